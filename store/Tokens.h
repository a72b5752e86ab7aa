#pragma once

#include <string>
#include <vector>

#include "store/ConfigInfo.h"

namespace XMLConfig::detail {

/// What separates the pieces of stored points, lists and tables.
inline constexpr const wchar_t* listDelimiters = L" ,\n\t";
inline bool isListDelimiter(wchar_t character) {
    return character == L' ' || character == L',' || character == L'\n' || character == L'\t';
}

/// The non-empty pieces of a stored point, list or table.
inline std::vector<std::wstring> tokensOf(const std::wstring& text) {
    std::vector<std::wstring> tokens;
    ConfigInfo::createTokenVector(tokens, text, listDelimiters);
    return tokens;
}

}  // namespace XMLConfig::detail
