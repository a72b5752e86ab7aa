#include "base/TextChecks.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/TextForms.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
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

bool isInteger(std::wstring_view text) {
    std::wstring_view rest = text;
    cutSign(rest);
    if (cut(rest, digits) == 0 || !rest.empty()) return false;
    try {
        strictInteger(text);
        return true;
    } catch (const std::out_of_range&) {
        return false;
    }
}

bool isNumber(std::wstring_view text) {
    cutSign(text);
    for (const wchar_t* word : {L"nan", L"inf", L"infinity"})
        if (equalIgnoringCase(text, word)) return true;
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

bool areAll(std::wstring_view text, std::size_t count, bool (*isOne)(std::wstring_view)) {
    const std::vector<std::wstring> tokens = tokensOf(std::wstring(text));
    return tokens.size() == count && std::all_of(tokens.begin(), tokens.end(), isOne);
}

}  // namespace

bool isBoolText(std::wstring_view text) { return boolOf(text).has_value(); }
bool isIntegerText(std::wstring_view text) { return isInteger(trimmed(text)); }
bool isNumberText(std::wstring_view text) { return isNumber(trimmed(text)); }
bool isIntegerPointText(std::wstring_view text, std::size_t dimensions) { return areAll(text, dimensions, isInteger); }
bool isPointText(std::wstring_view text, std::size_t dimensions) { return areAll(text, dimensions, isNumber); }

}  // namespace XMLConfig::detail
