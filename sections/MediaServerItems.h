#pragma once

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// The section "MediaServer" is open: callers name the keys. Described here is what the library itself reads.
// clang-format off
struct MediaServerItems : SettingTable {
    constexpr MediaServerItems() : SettingTable(L"MediaServer") {}

    Descriptor<std::wstring> outputFile{*this, L"outputFile", {L""},
        means(L"the file an export writes; empty for one beside the configuration")};
};
// clang-format on

inline constexpr MediaServerItems mediaServerItems;
static_assert(keysAreDistinct(mediaServerItems));

}  // namespace XMLConfig::detail
