#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/Steps.h"
#include "sections/CameraConfig.h"
#include "sections/GeometryConfig.h"

// Version 5.0 keeps warps and blends in one memory location instead of one each, and can tile its input.
namespace XMLConfig::detail {

void toVersion5(ConfigInfo& document) {
    const int location = document.getIntegerItem(L"Geometry", L"Warp_Memory_Location", 0, {});
    const std::wstring name = textItem(document, L"Geometry", L"Warp_Memory_Name", L"Ulvano");
    GeometryConfig geometry(&document, {});
    geometry.setMemoryLocation(location);
    geometry.setMemoryLocationName(name);

    removeItems(document, L"System", {L"Image_Export_Dir"});
    removeItems(document, L"Geometry",
                {L"Warp_Memory_Location", L"Warp_Memory_Name", L"Blend_Memory_Location", L"Blend_Memory_Name"});

    geometry.setTilingEnabled(false);
    document.setIntegerItem(L"Geometry", L"InputResolutionX", 1920, {});
    document.setIntegerItem(L"Geometry", L"InputResolutionY", 1080, {});
    geometry.setDoSphericalBlend(false);
    geometry.setDoCalculateBlendsOnlyRun(false);
    for (const std::wstring& id : camerasOf(document)) CameraConfig(&document, id).setAutomaticExposure(false);
}

}  // namespace XMLConfig::detail
