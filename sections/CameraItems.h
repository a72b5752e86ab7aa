#pragma once

#include <limits>

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// What no document gives, so that every stored point counts, (0, 0, 0) too.
inline constexpr double unread = std::numeric_limits<double>::quiet_NaN();

/// The settings of a camera.
// clang-format off
struct CameraItems : SettingTable {
    constexpr CameraItems() : SettingTable(L"Camera") {}

    Descriptor<std::wstring> name{*this, L"Name", {L"Camera_XX", L"Camera_%s"},
        means(L"name people give the camera").of(SettingClass::Identity)};
    Descriptor<XmlElement> deviceSnippet{*this, L"DeviceSnippet", {L"", L""},
        means(L"how the camera is connected, as its driver describes it").of(SettingClass::Identity)};
    Descriptor<XmlElement> deviceSnippetOriginal{*this, L"DeviceSnippetOriginal", {L""},
        means(L"the original device snippet, kept by other tools and only read here").onlyRead().of(SettingClass::Identity)};
    Descriptor<int> binarizationThreshold{*this, L"Binarization_Threshold", {75, 75},
        means(L"brightness that parts light from dark in captures of the projected patterns").within(1, 254)
            .inOurJudgement()};
    Descriptor<int> ledExposure{*this, L"LED_Exposure", {100000, 100000},
        means(L"exposure time for captures of the LED markers").atLeast(1).inOurJudgement()};
    Descriptor<int> markedSurfaceExposure{*this, L"MarkedSurface_Exposure", {100000},
        means(L"exposure time for captures of the marked surface").atLeast(1).inOurJudgement()
            .countsWhile(L"", L"Marked_Surface_Automatic_Exposure", {L"false"})};
    Descriptor<int> ledBinarizationThreshold{*this, L"LED_Binarization_Threshold", {75, 75},
        means(L"brightness that parts light from dark in captures of the LED markers").within(1, 254).inOurJudgement()};
    Descriptor<int> markedSurfaceBinarizationThreshold{*this, L"MarkedSurface_Binarization_Threshold", {75},
        means(L"brightness that parts light from dark in captures of the marked surface").within(1, 254).inOurJudgement()};
    Descriptor<int> markedSurfaceOpacity{*this, L"Marked_Surface_Opacity", {20},
        means(L"opacity of the marked surface where it is drawn over the camera's image").in(Unit::Percent)
            .within(0, 100).inOurJudgement()};
    Descriptor<int> subliminalExposureWindow{*this, L"SubliminalExposureWindow", {75},
        means(L"exposure window for patterns shown subliminally")};
    Descriptor<int> geometryExposure{*this, L"Geometry_Exposure", {100000, 100000},
        means(L"exposure time for captures of the projected patterns").atLeast(1).inOurJudgement()
            .countsWhile(L"", L"Automatic_Exposure", {L"false"})};
    Descriptor<std::wstring> intrinsicFileID{*this, L"IntrinsicFileID", {L"", L""},
        means(L"identifier of the file with the lens calibration").of(SettingClass::Identity)};
    Descriptor<double> maskingROIScreenAreaPercentage{*this, L"MaskingROIScreenAreaPercentage", {0.0001, 0.0001},
        means(L"smallest region of interest that masking keeps, as a share of the screen's area in the image")
            .in(Unit::Fraction).within(0, 1).inOurJudgement()};
    Descriptor<std::wstring> referenceImageResource{*this, L"Camera_Reference_Image_RESID", {L""},
        means(L"resource identifier of the camera's reference image").of(SettingClass::Place).byRuns()};
    Descriptor<int> referenceImageTimeStamp{*this, L"Camera_Reference_Image_Timestamp", {0},
        means(L"when the camera's reference image was taken; 0 when there is none").in(Unit::EpochSeconds)
            .of(SettingClass::Place).byRuns()};
    Descriptor<bool> explicitExtrinsicsValid{*this, L"ExplicitExtrinsicValid", {false},
        means(L"whether the explicit camera pose is to be used").of(SettingClass::Place)};
    Descriptor<Point_3Dim<double>> explicitExtrinsicsXYZ{*this, L"ExplicitExtrinsicXYZ", {{unread, unread, unread}},
        means(L"position of the camera given by hand; there is no pose when missing").in(Unit::Meters)
            .of(SettingClass::Place).missingMeans(L"no pose")};
    Descriptor<Point_3Dim<double>> explicitExtrinsicsYPR{*this, L"ExplicitExtrinsicYPR", {{unread, unread, unread}},
        means(L"yaw, pitch and roll of the camera given by hand; there is no pose when missing").of(SettingClass::Place)
            .missingMeans(L"no pose")};
    Descriptor<Special<SettingType::FourIntegers>> multiCamEdgeThreshold{*this, L"MultiCamEdgeThreshold", {L"", L"40,40,40,40"},
        means(L"edge thresholds where the images of several cameras meet; a single number stands for all four")};
    Descriptor<Special<SettingType::MarkerPlaces>> calibrationPoints{*this, L"Camera_Calibration_Points", {L""},
        means(L"marker numbers and where the camera sees those markers: number, x, y,...").in(Unit::Pixels)
            .of(SettingClass::Place)};
    Descriptor<Special<SettingType::MarkerPlaces>> referenceCalibrationPoints{*this, L"Reference_Camera_Calibration_Points", {L""},
        means(L"marker numbers and where the reference image shows those markers: number, x, y,...").in(Unit::Pixels)
            .of(SettingClass::Place)};
    Descriptor<std::wstring> oldUID{*this, L"OldSectionID", {L""},
        means(L"identifier the section had before it was last renamed").onlyRead().of(SettingClass::Identity)};
    Descriptor<bool> automaticExposure{*this, L"Automatic_Exposure", {true, true},
        means(L"whether the exposure for geometry captures is found automatically")};
    Descriptor<bool> markedSurfaceAutomaticExposure{*this, L"Marked_Surface_Automatic_Exposure", {true},
        means(L"whether the exposure for captures of the marked surface is found automatically")};
    Descriptor<bool> extendedContrast{*this, L"Extended_Contrast", {false},
        means(L"whether images are taken with extended contrast")};
    Descriptor<int> cameraGain{*this, L"Camera_Gain", {0, 0},
        means(L"gain of the camera's sensor").atLeast(0).inOurJudgement()};
};
// clang-format on

inline constexpr CameraItems cameraItems;
static_assert(keysAreDistinct(cameraItems));

}  // namespace XMLConfig::detail
