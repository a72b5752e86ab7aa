#pragma once

#include <string_view>

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// The settings of the section "ProjectorApprovedSlots". A slot is a subsection "Slot" whose ID is its number.
// clang-format off
struct ApprovedSlotsItems : SettingTable {
    constexpr ApprovedSlotsItems() : SettingTable(L"ProjectorApprovedSlots") {}

    Descriptor<int> currentSlotID{*this, L"CurrentSlotID", {-1},
        means(L"the slot of the current run; -1 for none").byRuns()};
    Descriptor<std::wstring> timeOfLastRun{*this, L"TimeOfLastRun", {L""},
        means(L"when the last run was made").byRuns()};
    Descriptor<std::wstring> lastRunDiagFolder{*this, L"LastRunDiagFolder", {L""},
        means(L"the diagnostics folder of the last run").byRuns()};
    Descriptor<std::wstring> slotName{*this, L"Slot[%d]|Name", {L""},
        means(L"the name of an approved slot")};
};
// clang-format on

inline constexpr ApprovedSlotsItems approvedSlotsItems;
static_assert(keysAreDistinct(approvedSlotsItems));

inline constexpr std::wstring_view slotPath = approvedSlotsItems.slotName.key;
inline constexpr std::wstring_view slotTag = slotPath.substr(0, slotPath.find(L'['));
inline constexpr std::wstring_view slotNameKey = slotPath.substr(slotPath.find(L'|') + 1);

}  // namespace XMLConfig::detail
