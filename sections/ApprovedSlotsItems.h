#pragma once

#include <string_view>

#include "base/Items.h"

/// The items of the section "ProjectorApprovedSlots". A slot is a subsection "Slot" whose ID is its number.
namespace XMLConfig::detail::approvedSlotsItems {

inline constexpr const wchar_t* sectionName = L"ProjectorApprovedSlots";

inline constexpr Item<int> currentSlotID =
    Item<int>{L"CurrentSlotID", -1}.means(L"the slot of the current run; -1 for none");
inline constexpr Item<std::wstring> timeOfLastRun =
    Item<std::wstring>{L"TimeOfLastRun", L""}.means(L"when the last run was made");
inline constexpr Item<std::wstring> lastRunDiagFolder =
    Item<std::wstring>{L"LastRunDiagFolder", L""}.means(L"the diagnostics folder of the last run");
inline constexpr Item<std::wstring> slotName =
    Item<std::wstring>{L"Slot[%d]|Name", L""}.means(L"the name of an approved slot");

inline constexpr auto all = std::tuple(currentSlotID, timeOfLastRun, lastRunDiagFolder, slotName);
static_assert(keysAreDistinct(all));

inline constexpr std::wstring_view slotPath = slotName.key;
inline constexpr std::wstring_view slotTag = slotPath.substr(0, slotPath.find(L'['));
inline constexpr std::wstring_view nameKey = slotPath.substr(slotPath.find(L'|') + 1);

}  // namespace XMLConfig::detail::approvedSlotsItems
