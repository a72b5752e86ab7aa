#pragma once

/// Who wrote a file: its header elements, which stand in the root beside the sections, and their values.
namespace XMLConfig::detail {

inline constexpr const wchar_t* versionElement = L"Version";
inline constexpr const wchar_t* buildDateElement = L"BuildDate";
inline constexpr const wchar_t* buildNumberElement = L"BuildNumber";
inline constexpr const wchar_t* makerElement = L"DevelopedBy";
/// All of them, in the order of a new document.
inline constexpr const wchar_t* headerElements[] = {versionElement, buildDateElement, buildNumberElement, makerElement};

inline constexpr const wchar_t* buildDate = L"Mar 11 2019";
inline constexpr const wchar_t* buildNumber = L"2.1.1.14";
inline constexpr const wchar_t* makerName = L"Ulvano";
inline constexpr double latestFileVersion = 9.0;

}  // namespace XMLConfig::detail
