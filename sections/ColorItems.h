#pragma once

#include "base/Items.h"

/// The settings of the "Color" section, in the order of a new section.
namespace XMLConfig::detail::colorItems {

inline constexpr const wchar_t* sectionName = L"Color";

inline constexpr auto maxIterationsColor =
    Item<int>{L"MaxIterationsColor", 1, 25}.means(L"how many rounds of colour matching are made at most");
inline constexpr auto minCameraExposureDelta = Item<int>{L"MinCameraExposureDeltaInMS", 1000, 1000}
                                                   .in(L"milliseconds")
                                                   .means(L"smallest change of a camera's exposure time");
inline constexpr auto useProjectorAperture =
    Item<bool>{L"UseProjectorAperture", true, true}.means(L"whether matching may adjust the projectors' apertures");
inline constexpr auto normalizedThresholdBrightness = Item<double>{L"NormalizedThresholdForBrightness", 0.01, 0.01}.means(
    L"brightness difference, as a fraction, at which brightness matching is good enough");
inline constexpr auto normalizedThresholdColor = Item<double>{L"NormalizedThresholdForColor", 0.01, 0.01}.means(
    L"colour difference, as a fraction, at which colour matching is good enough");
inline constexpr auto brightnessAdjustViaLampPower = Item<bool>{L"UseBrightnessAdjustViaLampPower", true, true}.means(
    L"whether brightness may be adjusted by the power of the lamps");
inline constexpr auto targetSizeX =
    Item<int>{L"AdvColor_TargetSizeX", 124, 0}.in(L"pixels").means(L"width of the patch that is measured");
inline constexpr auto targetSizeY =
    Item<int>{L"AdvColor_TargetSizeY", 124, 0}.in(L"pixels").means(L"height of the patch that is measured");
inline constexpr auto userLampPowerCap = Item<double>{L"UserLampPowerCap", 1.0, 1.0}.means(
    L"highest lamp power that matching may set, as a fraction of full power");
inline constexpr auto advColorCommPort =
    Item<std::wstring>{L"AdvColor_ComPort", L"COM1", L"COM1"}.means(L"serial port of the colorimeter");
inline constexpr auto brightnessTolerance =
    Item<double>{L"Brightness_Tolerance", 0.5, 0.5}.means(L"difference in brightness that is accepted between projectors");
inline constexpr auto colourTolerance =
    Item<double>{L"Colour_Tolerance", 0.001, 0.001}.means(L"difference in colour that is accepted between projectors");
inline constexpr auto colourConvergeJump = Item<double>{L"Colour_Converge_Jump", 0.5, 0.5}.means(
    L"part of the remaining colour difference that one round of matching corrects");
inline constexpr auto cameraOrder = Item<std::wstring>{L"CameraOrder", L"", L""}
                                        .holds(L"list of camera IDs")
                                        .means(L"IDs of the cameras in the order in which they are used");
inline constexpr auto normalizedValidExposureSampleRange =
    Item<Point_2Dim<double>>{L"NormalizedValidExposureSampleRange", {0.0, 0.0}, {0.985, 0.99}}.means(
        L"lowest and highest fraction of a camera's range at which an exposure sample counts");
inline constexpr auto colorimeterType = Item<int>{L"Colorimeter_Type", 0, 0}.means(L"number of the kind of colorimeter");
inline constexpr auto advancedColorFilename =
    Item<std::wstring>{L"Advanced_Color_Filename", L"SavedAdvancedColor.skorrax"}.means(
        L"file in which the results of advanced colour matching are saved");
inline constexpr auto cameraOverlapPoint =
    Item<std::wstring>{L"CameraOverlapPoint_%s_%s", L""}
        .holds(L"3-D point and two channels")
        .onlyRead()
        .means(L"point seen by both cameras of a pair, by their IDs, and the channel that shows it to each");

inline constexpr auto all =
    std::tuple(maxIterationsColor, minCameraExposureDelta, useProjectorAperture, normalizedThresholdBrightness,
               normalizedThresholdColor, brightnessAdjustViaLampPower, targetSizeX, targetSizeY, userLampPowerCap,
               advColorCommPort, brightnessTolerance, colourTolerance, colourConvergeJump, cameraOrder,
               normalizedValidExposureSampleRange, colorimeterType, advancedColorFilename, cameraOverlapPoint);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::colorItems
