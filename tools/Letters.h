#pragma once

#include <string>

namespace tool {

/// The letters from A to Z in the other case; everything else as it is.
inline std::wstring lowerCase(std::wstring text) {
    for (wchar_t& letter : text)
        if (letter >= L'A' && letter <= L'Z') letter = static_cast<wchar_t>(letter - L'A' + L'a');
    return text;
}
inline std::wstring upperCase(std::wstring text) {
    for (wchar_t& letter : text)
        if (letter >= L'a' && letter <= L'z') letter = static_cast<wchar_t>(letter - L'a' + L'A');
    return text;
}

}  // namespace tool
