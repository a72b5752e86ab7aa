#pragma once

#include <string>

namespace XMLConfig::detail {

/// The file version in which the setting went; null for one that no release had.
const wchar_t* releaseWithout(const std::wstring& section, const std::wstring& key);

}  // namespace XMLConfig::detail
