#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/UpgradeChain.h"

// Version 2.0 describes what a projector shows as a heading with a field of view around it, where older files hold the
// four edges of its image as spherical angles. The edges stay in the file until the next step removes them.
namespace XMLConfig::detail {

void toVersion2(StepDocument& document) {
    for (StepSection& projector : projectorsOf(document)) {
        const double left = projector.number(L"Spherical_Angle_Left", -1.0);
        const double right = projector.number(L"Spherical_Angle_Right", -1.0);
        const double bottom = projector.number(L"Spherical_Angle_Bottom", -1.0);
        const double top = projector.number(L"Spherical_Angle_Top", -1.0);

        projector.setNumber(L"Channel_Extents|Heading|Yaw", (right - left) * 0.5 + left);
        projector.setNumber(L"Channel_Extents|Heading|Pitch", (top - bottom) * 0.5 + bottom);
        projector.setNumber(L"Channel_Extents|Heading|Roll", 0.0);
        projector.setNumber(L"Channel_Extents|VFOV|Top", (top - bottom) * 0.5);
        projector.setNumber(L"Channel_Extents|VFOV|Bottom", (bottom - top) * 0.5);
        projector.setNumber(L"Channel_Extents|HFOV|Left", (left - right) * 0.5);
        projector.setNumber(L"Channel_Extents|HFOV|Right", (right - left) * 0.5);
    }
}

}  // namespace XMLConfig::detail
