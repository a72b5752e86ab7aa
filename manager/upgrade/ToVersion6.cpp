#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/UpgradeChain.h"
#include "platform/Numbers.h"

// Version 6.0 keeps a camera's calibration outside the configuration and says once, for the whole system, how markers
// are found.
namespace XMLConfig::detail {

namespace {

constexpr int channelCount = 50;
constexpr int sampleCount = 4;

using Keys = StepSection::Keys;

void addNumbered(Keys& keys, const wchar_t* prefix, int count) {
    for (int i = 0; i < count; ++i) keys.push_back(prefix + formatInteger(i));
}

Keys calibrationKeys() {
    Keys keys = {L"CalibrationTimeStamp",   L"Calibration_Type",   L"Camera_Calibration_Engine",
                 L"SensorSize_X",           L"SensorSize_Y",       L"FocalLength_X",
                 L"FocalLength_Y",          L"ImageCenter_X",      L"ImageCenter_Y",
                 L"RadialDistortion_1",     L"RadialDistortion_2", L"TangentialDistortion_1",
                 L"TangentialDistortion_2", L"Aperture",           L"Red_Exposure",
                 L"Green_Exposure",         L"Blue_Exposure",      L"White_Exposure"};
    addNumbered(keys, L"Channel_", channelCount);
    for (const wchar_t* key :
         {L"White_Balance_Coefficients", L"Scale_Factor", L"Kappa", L"Image_Center_TX", L"Image_Center_TY"})
        keys.emplace_back(key);
    addNumbered(keys, L"LensDropoffPnts_", sampleCount);
    addNumbered(keys, L"InterCameraDeltaSample_", sampleCount);
    keys.emplace_back(L"Automatic_Binarization");
    return keys;
}

void reduceProjectors(StepDocument& document) {
    // The section's name has been misspelt since this release and decides what every projector gets: do not mend it.
    const StepSection misspelt(document, L"Geomtry");
    auto projectors = projectorsOf(document);
    for (StepSection& projector : projectors) {
        projector.setNumber(L"Box_Spacing", misspelt.number(L"Mapper_Spacing", 1.5));
    }
    const Keys obsolete = {L"X_Pixel_Size",  L"Y_Pixel_Size",       L"GeomPnts",
                           L"Sample_Region", L"Edge_Blob_Offset_X", L"Edge_Blob_Offset_Y"};
    for (StepSection& projector : projectors) projector.removeItems(obsolete);
}

// Takes from the cameras how markers are found, and gives the method of the whole system.
std::wstring takeMarkerLocationMethod(std::vector<StepSection>& cameras) {
    std::wstring method = L"manual";
    for (StepSection& camera : cameras) {
        if (camera.text(L"Locate_Screen") == L"led") method = L"led-manual";
        camera.removeItem(L"Locate_Screen");
    }
    return method;
}

}  // namespace

void toVersion6(StepDocument& document) {
    reduceProjectors(document);
    StepSection(document, L"Geometry")
        .removeItems({L"InputResolutionX", L"InputResolutionY", L"CalibrationEngine", L"Serial_Run",
                      L"Blob_Location_Algorithm", L"Use_Quick_Cal", L"Use_TSAI_Extrapolation", L"Mapper_Box_Size",
                      L"Mapper_Spacing"});

    auto cameras = camerasOf(document);
    const std::wstring method = takeMarkerLocationMethod(cameras);
    const Keys calibration = calibrationKeys();
    for (StepSection& camera : cameras) camera.removeItems(calibration);
    StepSection(document, L"System").setText(L"Marker_Location_Method", method);
}

}  // namespace XMLConfig::detail
