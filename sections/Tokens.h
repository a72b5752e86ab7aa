#pragma once

#include <string>
#include <vector>

#include "store/ConfigInfo.h"

namespace XMLConfig::detail {

/// The non-empty pieces of a stored list, between blanks, commas, line feeds and tabs.
inline std::vector<std::wstring> tokensOf(const std::wstring& text) {
    std::vector<std::wstring> tokens;
    ConfigInfo::createTokenVector(tokens, text, L" ,\n\t");
    return tokens;
}

}  // namespace XMLConfig::detail
