#pragma once

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// The settings of the "Color" section.
// clang-format off
struct ColorItems : SettingTable {
    constexpr ColorItems() : SettingTable(L"Color") {}

    Descriptor<int> maxIterationsColor{*this, L"MaxIterationsColor", {1, 25},
        means(L"how many rounds of colour matching are made at most").atLeast(1).inOurJudgement()};
    Descriptor<int> minCameraExposureDelta{*this, L"MinCameraExposureDeltaInMS", {1000, 1000},
        means(L"smallest change of a camera's exposure time").in(Unit::Milliseconds)};
    Descriptor<bool> useProjectorAperture{*this, L"UseProjectorAperture", {true, true},
        means(L"whether matching may adjust the projectors' apertures")};
    Descriptor<double> normalizedThresholdBrightness{*this, L"NormalizedThresholdForBrightness", {0.01, 0.01},
        means(L"brightness difference, as a fraction, at which brightness matching is good enough").in(Unit::Fraction)
            .above(0, 1).inOurJudgement()};
    Descriptor<double> normalizedThresholdColor{*this, L"NormalizedThresholdForColor", {0.01, 0.01},
        means(L"colour difference, as a fraction, at which colour matching is good enough").in(Unit::Fraction)
            .above(0, 1).inOurJudgement()};
    Descriptor<bool> brightnessAdjustViaLampPower{*this, L"UseBrightnessAdjustViaLampPower", {true, true},
        means(L"whether brightness may be adjusted by the power of the lamps")};
    Descriptor<int> targetSizeX{*this, L"AdvColor_TargetSizeX", {124, 0},
        means(L"width of the patch that is measured").in(Unit::Pixels)};
    Descriptor<int> targetSizeY{*this, L"AdvColor_TargetSizeY", {124, 0},
        means(L"height of the patch that is measured").in(Unit::Pixels)};
    Descriptor<double> userLampPowerCap{*this, L"UserLampPowerCap", {1.0, 1.0},
        means(L"highest lamp power that matching may set, as a fraction of full power").in(Unit::Fraction).above(0, 1)
            .inOurJudgement()};
    Descriptor<std::wstring> advColorCommPort{*this, L"AdvColor_ComPort", {L"COM1", L"COM1"},
        means(L"serial port of the colorimeter")};
    Descriptor<double> brightnessTolerance{*this, L"Brightness_Tolerance", {0.5, 0.5},
        means(L"difference in brightness that is accepted between projectors")};
    Descriptor<double> colourTolerance{*this, L"Colour_Tolerance", {0.001, 0.001},
        means(L"difference in colour that is accepted between projectors")};
    Descriptor<double> colourConvergeJump{*this, L"Colour_Converge_Jump", {0.5, 0.5},
        means(L"part of the remaining colour difference that one round of matching corrects").in(Unit::Fraction)
            .above(0, 1).inOurJudgement()};
    Descriptor<Special<SettingType::CameraIDs>> cameraOrder{*this, L"CameraOrder", {L"", L""},
        means(L"IDs of the cameras in the order in which they are used")};
    Descriptor<Point_2Dim<double>> normalizedValidExposureSampleRange{*this, L"NormalizedValidExposureSampleRange",
        {{0.0, 0.0}, {0.985, 0.99}},
        means(L"lowest and highest fraction of a camera's range at which an exposure sample counts").in(Unit::Fraction)};
    Descriptor<int> colorimeterType{*this, L"Colorimeter_Type", {0, 0},
        means(L"number of the kind of colorimeter")};
    Descriptor<std::wstring> advancedColorFilename{*this, L"Advanced_Color_Filename", {L"SavedAdvancedColor.skorrax"},
        means(L"file in which the results of advanced colour matching are saved")};
    Descriptor<Special<SettingType::OverlapPoint>> cameraOverlapPoint{*this, L"CameraOverlapPoint_%s_%s", {L""},
        means(L"point seen by both cameras of a pair, by their IDs, and the channel that shows it to each").onlyRead()};
};
// clang-format on

inline constexpr ColorItems colorItems;
static_assert(keysAreDistinct(colorItems));

}  // namespace XMLConfig::detail
