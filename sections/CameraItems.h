#pragma once

#include <limits>
#include <tuple>

#include "base/Items.h"

/// The settings of a camera, in the order of the section's reference; "%s" in a new value is the section's identifier.
namespace XMLConfig::detail::cameraItems {

using Point3D = Point_3Dim<double>;

inline constexpr const wchar_t* sectionName = L"Camera";
/// What no document gives, so that every stored point counts, (0, 0, 0) too.
inline constexpr double unread = std::numeric_limits<double>::quiet_NaN();

// A table: each item above its meaning.
// clang-format off
inline constexpr auto name = Item<std::wstring>{L"Name", L"Camera_XX", L"Camera_%s"}
    .means(L"name people give the camera");
inline constexpr auto deviceSnippet = Item<Fragment>{L"DeviceSnippet", L"", L""}
    .means(L"how the camera is connected, as its driver describes it");
inline constexpr auto deviceSnippetOriginal = Item<Fragment>{L"DeviceSnippetOriginal", L""}.onlyRead()
    .means(L"the original device snippet, kept by other tools and only read here");
inline constexpr auto intrinsicFileID = Item<std::wstring>{L"IntrinsicFileID", L"", L""}
    .means(L"identifier of the file with the lens calibration");
inline constexpr auto automaticExposure = Item<bool>{L"Automatic_Exposure", true, true}
    .means(L"whether the exposure for geometry captures is found automatically");
inline constexpr auto markedSurfaceAutomaticExposure = Item<bool>{L"Marked_Surface_Automatic_Exposure", true}
    .means(L"whether the exposure for captures of the marked surface is found automatically");
inline constexpr auto extendedContrast = Item<bool>{L"Extended_Contrast", false}
    .means(L"whether images are taken with extended contrast");
inline constexpr auto cameraGain = Item<int>{L"Camera_Gain", 0, 0}
    .means(L"gain of the camera's sensor");
inline constexpr auto geometryExposure = Item<int>{L"Geometry_Exposure", 100000, 100000}
    .means(L"exposure time for captures of the projected patterns");
inline constexpr auto ledExposure = Item<int>{L"LED_Exposure", 100000, 100000}
    .means(L"exposure time for captures of the LED markers");
inline constexpr auto markedSurfaceExposure = Item<int>{L"MarkedSurface_Exposure", 100000}
    .means(L"exposure time for captures of the marked surface");
inline constexpr auto binarizationThreshold = Item<int>{L"Binarization_Threshold", 75, 75}
    .means(L"brightness that parts light from dark in captures of the projected patterns");
inline constexpr auto ledBinarizationThreshold = Item<int>{L"LED_Binarization_Threshold", 75, 75}
    .means(L"brightness that parts light from dark in captures of the LED markers");
inline constexpr auto markedSurfaceBinarizationThreshold = Item<int>{L"MarkedSurface_Binarization_Threshold", 75}
    .means(L"brightness that parts light from dark in captures of the marked surface");
inline constexpr auto markedSurfaceOpacity = Item<int>{L"Marked_Surface_Opacity", 20}
    .means(L"opacity of the marked surface where it is drawn over the camera's image");
inline constexpr auto subliminalExposureWindow = Item<int>{L"SubliminalExposureWindow", 75}
    .means(L"exposure window for patterns shown subliminally");
inline constexpr auto maskingROIScreenAreaPercentage = Item<double>{L"MaskingROIScreenAreaPercentage", 0.0001, 0.0001}
    .means(L"smallest region of interest that masking keeps, as a share of the screen's area in the image");
inline constexpr auto referenceImageResource = Item<std::wstring>{L"Camera_Reference_Image_RESID", L""}
    .means(L"resource identifier of the camera's reference image");
inline constexpr auto referenceImageTimeStamp = Item<int>{L"Camera_Reference_Image_Timestamp", 0}
    .means(L"when the camera's reference image was taken; 0 when there is none");
inline constexpr auto explicitExtrinsicsValid = Item<bool>{L"ExplicitExtrinsicValid", false}
    .means(L"whether the explicit camera pose is to be used");
inline constexpr auto explicitExtrinsicsXYZ = Item<Point3D>{L"ExplicitExtrinsicXYZ", {unread, unread, unread}}
    .means(L"position of the camera given by hand; there is no pose when missing");
inline constexpr auto explicitExtrinsicsYPR = Item<Point3D>{L"ExplicitExtrinsicYPR", {unread, unread, unread}}
    .means(L"yaw, pitch and roll of the camera given by hand; there is no pose when missing");
inline constexpr auto multiCamEdgeThreshold =
    Item<std::wstring>{L"MultiCamEdgeThreshold", L"", L"40,40,40,40"}.holds(L"four integers")
    .means(L"edge thresholds where the images of several cameras meet; a single number stands for all four");
inline constexpr auto calibrationPoints =
    Item<std::wstring>{L"Camera_Calibration_Points", L""}.in(L"pixels").holds(L"calibration points")
    .means(L"marker numbers and where the camera sees those markers: number, x, y,...");
inline constexpr auto referenceCalibrationPoints =
    Item<std::wstring>{L"Reference_Camera_Calibration_Points", L""}.in(L"pixels").holds(L"calibration points")
    .means(L"marker numbers and where the reference image shows those markers: number, x, y,...");
inline constexpr auto oldUID = Item<std::wstring>{L"OldSectionID", L""}.onlyRead()
    .means(L"identifier the section had before it was last renamed");
// clang-format on

inline constexpr auto all =
    std::tuple(name, deviceSnippet, deviceSnippetOriginal, intrinsicFileID, automaticExposure,
               markedSurfaceAutomaticExposure, extendedContrast, cameraGain, geometryExposure, ledExposure,
               markedSurfaceExposure, binarizationThreshold, ledBinarizationThreshold, markedSurfaceBinarizationThreshold,
               markedSurfaceOpacity, subliminalExposureWindow, maskingROIScreenAreaPercentage, referenceImageResource,
               referenceImageTimeStamp, explicitExtrinsicsValid, explicitExtrinsicsXYZ, explicitExtrinsicsYPR,
               multiCamEdgeThreshold, calibrationPoints, referenceCalibrationPoints, oldUID);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::cameraItems
