#pragma once

#include "base/Items.h"

/// The items of a results document. They stand in the section "global" for the whole display and in a section "Camera"
/// for each camera; a new document holds those of the whole display.
namespace XMLConfig::detail::reprojectionAccuracyItems {

inline constexpr const wchar_t* sectionName = L"AnalyticResults";
inline constexpr const wchar_t* globalSectionName = L"global";
inline constexpr const wchar_t* cameraSectionName = L"Camera";

inline constexpr Item<double> maxError =
    Item<double>{L"ReprojectionError_Max", 0.0, -1.0}.in(L"pixels").means(L"the largest reprojection error");
inline constexpr Item<double> rmsError =
    Item<double>{L"ReprojectionError_RMS", 0.0, -1.0}.in(L"pixels").means(L"root mean square of the reprojection errors");
inline constexpr Item<double> overlapPercentage =
    Item<double>{L"ReprojectionError_OverlapPercent", 0.0, -1.0}.in(L"percent").means(L"the share of the measured overlap");

inline constexpr auto all = std::tuple(maxError, rmsError, overlapPercentage);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::reprojectionAccuracyItems
