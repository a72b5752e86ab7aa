#include "store/TextForms.h"

#include <algorithm>
#include <iterator>

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace XMLConfig::detail {

std::wstring textOf(bool value) { return value ? L"true" : L"false"; }

std::optional<bool> boolOf(std::wstring_view text) {
    constexpr const wchar_t* yes[] = {L"true", L"t", L"1", L"yes", L"y"};
    constexpr const wchar_t* no[] = {L"false", L"f", L"0", L"no", L"n"};
    const auto isWord = [text](const wchar_t* word) { return equalIgnoringCase(text, word); };
    if (std::any_of(std::begin(yes), std::end(yes), isWord)) return true;
    if (std::any_of(std::begin(no), std::end(no), isWord)) return false;
    return std::nullopt;
}

std::wstring textOf(int value) { return formatInteger(value); }
std::wstring textOf(double value) { return formatScientific(value); }

std::wstring versionText(double version) { return formatFixed(version, 3); }
std::wstring textOf(const Point_2Dim<int>& value) { return formatInteger(value.x) + L", " + formatInteger(value.y); }

std::wstring textOf(const Point_2Dim<double>& value) {
    return formatScientific(value.x) + L", " + formatScientific(value.y);
}

std::wstring textOf(const Point_3Dim<double>& value) {
    return formatScientific(value.x) + L", " + formatScientific(value.y) + L", " + formatScientific(value.z);
}

}  // namespace XMLConfig::detail
