#pragma once

#include "base/Items.h"

/// The items of the section "SiteAnalytics". Times are seconds since 1970-01-01 UTC, cut to 32 bits.
namespace XMLConfig::detail::siteAnalyticsItems {

inline constexpr const wchar_t* sectionName = L"SiteAnalytics";
inline constexpr const wchar_t* epochSeconds = L"seconds since 1970-01-01 UTC";

inline constexpr Item<int> successfulRunNumber = Item<int>{L"SuccessfulRunNumber", 0}.means(L"runs that succeeded");
inline constexpr Item<int> failedRunNumber = Item<int>{L"FailedRunNumber", 0}.means(L"runs that failed");
inline constexpr Item<int> lastRunTimestamp =
    Item<int>{L"LastRunTimestamp", 0}.in(epochSeconds).means(L"when the last run was made; 0 for never");
inline constexpr Item<int> visitTimestamp =
    Item<int>{L"VisitTimestamp", 0}.in(epochSeconds).means(L"when the installation was first visited; 0 for not yet");

inline constexpr auto all = std::tuple(successfulRunNumber, failedRunNumber, lastRunTimestamp, visitTimestamp);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::siteAnalyticsItems
