#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/UpgradeChain.h"

// Version 5.0 keeps warps and blends in one memory location instead of one each, and can tile its input.
namespace XMLConfig::detail {

void toVersion5(StepDocument& document) {
    StepSection geometry(document, L"Geometry");
    const int location = geometry.integer(L"Warp_Memory_Location", 0);
    const std::wstring name = geometry.text(L"Warp_Memory_Name", L"Ulvano");
    geometry.setInteger(L"Memory_Location", location);
    geometry.setText(L"Memory_Location_Name", name);

    StepSection(document, L"System").removeItem(L"Image_Export_Dir");
    geometry.removeItems({L"Warp_Memory_Location", L"Warp_Memory_Name", L"Blend_Memory_Location", L"Blend_Memory_Name"});

    geometry.setFlag(L"TilingEnabled", false);
    geometry.setInteger(L"InputResolutionX", 1920);
    geometry.setInteger(L"InputResolutionY", 1080);
    geometry.setFlag(L"Do_Spherical_Blend", false);
    geometry.setFlag(L"Do_CalculateBlendsOnly_Run", false);
    for (StepSection& camera : camerasOf(document)) camera.setFlag(L"Automatic_Exposure", false);
}

}  // namespace XMLConfig::detail
