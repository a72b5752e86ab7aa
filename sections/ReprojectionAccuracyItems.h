#pragma once

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// The settings of a results document. They stand in the section "global" for the whole display and in a section "Camera"
/// for each camera; a new document holds those of the whole display.
// clang-format off
struct ReprojectionAccuracyItems : SettingTable {
    constexpr ReprojectionAccuracyItems() : SettingTable(L"global") {}

    Descriptor<double> maxError{*this, L"ReprojectionError_Max", {0.0, -1.0},
        means(L"the largest reprojection error").in(Unit::Pixels)};
    Descriptor<double> rmsError{*this, L"ReprojectionError_RMS", {0.0, -1.0},
        means(L"root mean square of the reprojection errors").in(Unit::Pixels)};
    Descriptor<double> overlapPercentage{*this, L"ReprojectionError_OverlapPercent", {0.0, -1.0},
        means(L"the share of the measured overlap").in(Unit::Percent)};
};
// clang-format on

inline constexpr ReprojectionAccuracyItems reprojectionAccuracyItems;
static_assert(keysAreDistinct(reprojectionAccuracyItems));

}  // namespace XMLConfig::detail
