#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Small operations on texts. They are inline because the command-line tool uses them too, to which the library exports
/// none of its inside.
namespace XMLConfig::detail {

/// Lower case of an ASCII letter; every other character stays.
constexpr wchar_t lowerAscii(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + (L'a' - L'A')) : character;
}

constexpr bool isDigit(wchar_t character) { return character >= L'0' && character <= L'9'; }

/// Upper case of the ASCII letters; every other character stays.
inline std::wstring upperAscii(std::wstring text) {
    for (wchar_t& character : text)
        if (character >= L'a' && character <= L'z') character = static_cast<wchar_t>(character - (L'a' - L'A'));
    return text;
}

/// Lower case of the ASCII letters; every other character stays.
inline std::wstring lowerAscii(std::wstring_view text) {
    std::wstring lower(text);
    for (wchar_t& character : lower) character = lowerAscii(character);
    return lower;
}

inline bool endsWith(std::wstring_view text, std::wstring_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// The text without the blanks, tabs and line ends at both of its ends.
inline std::wstring withoutOuterBlanks(const std::wstring& text) {
    constexpr const wchar_t* blanks = L" \t\n\r";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::wstring::npos ? std::wstring() : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The texts one after the other, with the separator between them.
inline std::wstring joined(const std::vector<std::wstring>& texts, const wchar_t* separator = L", ") {
    std::wstring all;
    for (std::size_t i = 0; i < texts.size(); ++i) all += (i == 0 ? L"" : separator) + texts[i];
    return all;
}

/// "1 entry", "2 entries".
inline std::wstring counted(std::size_t count, const std::wstring& one, const std::wstring& many) {
    return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}
/// "1 projector", "2 projectors".
inline std::wstring counted(std::size_t count, const std::wstring& noun) { return counted(count, noun, noun + L"s"); }

}  // namespace XMLConfig::detail
