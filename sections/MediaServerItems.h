#pragma once

#include "base/Items.h"

/// The section "MediaServer" is open: callers name the keys. Described here is what the library itself reads.
namespace XMLConfig::detail::mediaServerItems {

inline constexpr const wchar_t* sectionName = L"MediaServer";

inline constexpr Item<std::wstring> outputFile =
    Item<std::wstring>{L"outputFile", L""}.means(L"the file an export writes; empty for one beside the configuration");

inline constexpr auto all = std::tuple(outputFile);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::mediaServerItems
