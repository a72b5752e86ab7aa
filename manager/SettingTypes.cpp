#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

#include "manager/SettingSearch.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/ConfigInfo.h"

namespace XMLConfig {
namespace {

constexpr std::wstring_view digits = L"0123456789";

/// Cuts the characters of `set` from the start of `text` and returns how many there were.
std::size_t cut(std::wstring_view& text, std::wstring_view set) {
    const std::size_t count = std::min(text.find_first_not_of(set), text.size());
    text.remove_prefix(count);
    return count;
}

void cutSign(std::wstring_view& text) {
    if (!text.empty() && (text[0] == L'+' || text[0] == L'-')) text.remove_prefix(1);
}

std::wstring_view trimmed(std::wstring_view text) {
    constexpr std::wstring_view blanks = L" \t\r\n";
    cut(text, blanks);
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

bool isBool(std::wstring_view text) {
    const std::wstring word = detail::lowerAscii(text);
    constexpr const wchar_t* words[] = {L"true", L"t", L"1", L"yes", L"y", L"false", L"f", L"0", L"no", L"n"};
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

bool isInteger(std::wstring_view text) {
    std::wstring_view rest = text;
    cutSign(rest);
    if (cut(rest, digits) == 0 || !rest.empty()) return false;
    try {
        detail::strictInteger(text);
        return true;
    } catch (const std::out_of_range&) {
        return false;
    }
}

bool isNumber(std::wstring_view text) {
    cutSign(text);
    for (const wchar_t* word : {L"nan", L"inf", L"infinity"})
        if (detail::equalIgnoringCase(text, word)) return true;
    std::size_t count = cut(text, digits);
    if (!text.empty() && text[0] == L'.') {
        text.remove_prefix(1);
        count += cut(text, digits);
    }
    if (count == 0) return false;
    if (text.empty()) return true;
    if (text[0] != L'e' && text[0] != L'E') return false;
    text.remove_prefix(1);
    cutSign(text);
    return cut(text, digits) > 0 && text.empty();
}

bool isPoint(const std::wstring& text, int dimensions, bool (*isCoordinate)(std::wstring_view)) {
    std::vector<std::wstring> tokens;
    return ConfigInfo::createTokenVector(tokens, text, L" ,\n\t") == dimensions &&
           std::all_of(tokens.begin(), tokens.end(), isCoordinate);
}

}  // namespace

bool isOfType(const std::wstring& text, const std::wstring& type) {
    if (type == L"bool") return isBool(text);
    if (type == L"int") return isInteger(trimmed(text));
    if (type == L"double") return isNumber(trimmed(text));
    if (type == L"2-D integer point") return isPoint(text, 2, isInteger);
    if (type == L"2-D point") return isPoint(text, 2, isNumber);
    if (type == L"3-D point") return isPoint(text, 3, isNumber);
    return true;
}

}  // namespace XMLConfig
