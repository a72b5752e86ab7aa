#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/Steps.h"
#include "platform/Numbers.h"
#include "sections/ProjectorConfig.h"
#include "sections/SystemConfig.h"

// Version 6.0 keeps a camera's calibration outside the configuration and says once, for the whole system, how markers
// are found.
namespace XMLConfig::detail {

namespace {

constexpr int channelCount = 50;
constexpr int sampleCount = 4;

void removeNumbered(ConfigInfo& document, const wchar_t* prefix, int count, const std::wstring& id) {
    const std::wstring section = L"Camera";
    for (int i = 0; i < count; ++i) document.removeItem(section, prefix + formatInteger(i), id);
}

void removeCalibration(ConfigInfo& document, const std::wstring& id) {
    removeItems(document, L"Camera",
                {L"CalibrationTimeStamp", L"Calibration_Type", L"Camera_Calibration_Engine", L"SensorSize_X",
                 L"SensorSize_Y", L"FocalLength_X", L"FocalLength_Y", L"ImageCenter_X", L"ImageCenter_Y",
                 L"RadialDistortion_1", L"RadialDistortion_2", L"TangentialDistortion_1", L"TangentialDistortion_2",
                 L"Aperture", L"Red_Exposure", L"Green_Exposure", L"Blue_Exposure", L"White_Exposure"},
                id);
    removeNumbered(document, L"Channel_", channelCount, id);
    removeItems(document, L"Camera",
                {L"White_Balance_Coefficients", L"Scale_Factor", L"Kappa", L"Image_Center_TX", L"Image_Center_TY"}, id);
    removeNumbered(document, L"LensDropoffPnts_", sampleCount, id);
    removeNumbered(document, L"InterCameraDeltaSample_", sampleCount, id);
    removeItems(document, L"Camera", {L"Automatic_Binarization"}, id);
}

}  // namespace

void toVersion6(ConfigInfo& document) {
    const auto projectors = projectorsOf(document);
    const auto cameras = camerasOf(document);
    for (const std::wstring& id : projectors) {
        // The section's name has been misspelt since this release and decides what every projector gets: do not mend it.
        ProjectorConfig(&document, id).setBoxSpacing(document.getDoubleItem(L"Geomtry", L"Mapper_Spacing", 1.5, {}));
    }
    for (const std::wstring& id : projectors) {
        removeItems(
            document, L"Projector",
            {L"X_Pixel_Size", L"Y_Pixel_Size", L"GeomPnts", L"Sample_Region", L"Edge_Blob_Offset_X", L"Edge_Blob_Offset_Y"},
            id);
    }
    removeItems(document, L"Geometry",
                {L"InputResolutionX", L"InputResolutionY", L"CalibrationEngine", L"Serial_Run", L"Blob_Location_Algorithm",
                 L"Use_Quick_Cal", L"Use_TSAI_Extrapolation", L"Mapper_Box_Size", L"Mapper_Spacing"});

    auto method = SystemConfig::MarkerLocationManual;
    for (const std::wstring& id : cameras) {
        if (textItem(document, L"Camera", L"Locate_Screen", {}, id) == L"led")
            method = SystemConfig::MarkerLocationLedManual;
        removeItems(document, L"Camera", {L"Locate_Screen"}, id);
    }
    for (const std::wstring& id : cameras) removeCalibration(document, id);
    SystemConfig(&document, nullptr, {}).setMarkerLocationMethod(method);
}

}  // namespace XMLConfig::detail
