#pragma once

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// The settings of the section "SiteAnalytics". Times are cut to 32 bits.
// clang-format off
struct SiteAnalyticsItems : SettingTable {
    constexpr SiteAnalyticsItems() : SettingTable(L"SiteAnalytics") {}

    Descriptor<int> successfulRunNumber{*this, L"SuccessfulRunNumber", {0},
        means(L"runs that succeeded").byRuns()};
    Descriptor<int> failedRunNumber{*this, L"FailedRunNumber", {0},
        means(L"runs that failed").byRuns()};
    Descriptor<int> lastRunTimestamp{*this, L"LastRunTimestamp", {0},
        means(L"when the last run was made; 0 for never").in(Unit::EpochSeconds).byRuns()};
    Descriptor<int> visitTimestamp{*this, L"VisitTimestamp", {0},
        means(L"when the installation was first visited; 0 for not yet").in(Unit::EpochSeconds).byRuns()};
};
// clang-format on

inline constexpr SiteAnalyticsItems siteAnalyticsItems;
static_assert(keysAreDistinct(siteAnalyticsItems));

}  // namespace XMLConfig::detail
