#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/Steps.h"
#include "sections/ColorConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/ProjectorConfig.h"

// Version 4.0 tells a projector's image from its panel: until then the image had the panel's resolution.
namespace XMLConfig::detail {

void toVersion4(ConfigInfo& document) {
    for (const std::wstring& id : projectorsOf(document)) {
        ProjectorConfig projector(&document, id);
        projector.setImageResolutionX(projector.getResolutionX());
        projector.setImageResolutionY(projector.getResolutionY());
        projector.setInputImageScalingMode(0);
    }
    for (const std::wstring& id : camerasOf(document)) {
        document.setBoolItem(L"Camera", L"Automatic_Binarization", false, id);
        document.setBoolItem(L"Camera", L"ShowOnOffMapperBlobs", true, id);
    }
    GeometryConfig(&document, {}).setFitOrder(3);
    ColorConfig(&document, {}).setColorimeterType(0);
}

}  // namespace XMLConfig::detail
