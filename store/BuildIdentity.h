#pragma once

#include <string>

/// Who wrote a file: the values of its header elements.
namespace XMLConfig::detail {

inline constexpr const wchar_t* buildDate = L"Mar 11 2019";
inline constexpr const wchar_t* makerName = L"Ulvano";
inline constexpr double latestFileVersion = 9.0;

/// "2.1.1.14"; made once a process, safely from any thread.
const std::wstring& buildNumber();

}  // namespace XMLConfig::detail
