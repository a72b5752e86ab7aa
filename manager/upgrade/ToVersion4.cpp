#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/UpgradeChain.h"

// Version 4.0 tells a projector's image from its panel: until then the image had the panel's resolution.
namespace XMLConfig::detail {

void toVersion4(StepDocument& document) {
    for (StepSection& projector : projectorsOf(document)) {
        projector.setInteger(L"ImageResolution_X", projector.integer(L"Resolution_X", 1400));
        projector.setInteger(L"ImageResolution_Y", projector.integer(L"Resolution_Y", 1050));
        projector.setInteger(L"InputImageScaling_Mode", 0);
    }
    for (StepSection& camera : camerasOf(document)) {
        camera.setFlag(L"Automatic_Binarization", false);
        camera.setFlag(L"ShowOnOffMapperBlobs", true);
    }
    StepSection(document, L"Geometry").setInteger(L"Fit_Order", 3);
    StepSection(document, L"Color").setInteger(L"Colorimeter_Type", 0);
}

}  // namespace XMLConfig::detail
