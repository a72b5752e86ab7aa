#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/Steps.h"
#include "sections/ProjectorConfig.h"

// Version 2.0 describes what a projector shows as a heading with a field of view around it, where older files hold the
// four edges of its image as spherical angles. The edges stay in the file until the next step removes them.
namespace XMLConfig::detail {

void toVersion2(ConfigInfo& document) {
    for (const std::wstring& id : projectorsOf(document)) {
        const double left = document.getDoubleItem(L"Projector", L"Spherical_Angle_Left", -1.0, id);
        const double right = document.getDoubleItem(L"Projector", L"Spherical_Angle_Right", -1.0, id);
        const double bottom = document.getDoubleItem(L"Projector", L"Spherical_Angle_Bottom", -1.0, id);
        const double top = document.getDoubleItem(L"Projector", L"Spherical_Angle_Top", -1.0, id);

        ProjectorConfig projector(&document, id);
        projector.setChannelExtentHeadingYaw((right - left) * 0.5 + left);
        projector.setChannelExtentHeadingPitch((top - bottom) * 0.5 + bottom);
        projector.setChannelExtentHeadingRoll(0.0);
        projector.setChannelExtentVFOVTop((top - bottom) * 0.5);
        projector.setChannelExtentVFOVBottom((bottom - top) * 0.5);
        projector.setChannelExtentHFOVLeft((left - right) * 0.5);
        projector.setChannelExtentHFOVRight((right - left) * 0.5);
    }
}

}  // namespace XMLConfig::detail
