#include "manager/check/Texts.h"

#include <algorithm>
#include <cmath>
#include <cwctype>

#include "platform/EditDistance.h"
#include "platform/Numbers.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

using Table = UnitConversionTable;
constexpr double degreesInARadian = 57.295779513082320877;

std::wstring withoutTrailingZeros(std::wstring text) {
    if (text.find(L'.') == std::wstring::npos) return text;
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.back() == L'.') text.pop_back();
    return text;
}

/// "1e+300"
std::wstring withExponent(double value) {
    const std::wstring text = formatScientific(value);
    const std::size_t exponent = text.find(L'e');
    return withoutTrailingZeros(text.substr(0, exponent)) + text.substr(exponent);
}

}  // namespace

std::wstring shortNumber(double value, int decimals) {
    constexpr double large = 1e15;  // from there on not every digit is known
    if (!std::isfinite(value)) return formatFixed(value, 0);
    if (std::abs(value) >= large) return withExponent(value);
    const std::wstring text = withoutTrailingZeros(formatFixed(value, decimals));
    return text == L"-0" ? L"0" : text;
}

std::wstring numberBeyond(double value, std::initializer_list<double> limits, int decimals) {
    constexpr int mostDecimals = 15;
    for (; decimals <= mostDecimals; ++decimals) {
        std::wstring text = shortNumber(value, decimals);
        const auto isAlike = [&](double limit) { return value != limit && shortNumber(limit, decimals) == text; };
        if (std::none_of(limits.begin(), limits.end(), isAlike)) return text;
    }
    return withExponent(value);
}

std::wstring shortText(const std::wstring& stored, SettingType type) {
    if (!isNumbers(type) || !isOfType(stored, type)) return stored;
    std::vector<std::wstring> numbers;
    for (const std::wstring& token : tokensOf(stored)) numbers.push_back(shortNumber(leadingDouble(token)));
    return joined(numbers);
}

std::wstring quoted(const std::wstring& text) { return L"\"" + text + L"\""; }

const std::wstring* nearest(const std::wstring& text, const std::vector<std::wstring>& texts) {
    constexpr std::size_t limit = 2;
    const std::wstring* best = nullptr;
    std::size_t least = limit + 1;
    for (const std::wstring& candidate : texts) {
        if (std::max(text.size(), candidate.size()) - std::min(text.size(), candidate.size()) > limit) continue;
        const std::size_t letters = editDistance(text, candidate);
        if (letters >= least || letters >= candidate.size()) continue;
        least = letters;
        best = &candidate;
    }
    return best;
}

ShownUnits::ShownUnits(const std::wstring& lengthUnit, const std::wstring& angleUnit)
    : m_isDegrees(angleUnit != L"Radians") {
    for (const auto candidate : {Table::Millimeters, Table::Centimeters, Table::Inches, Table::Feet})
        if (Table::getUnitName(candidate) == lengthUnit) m_lengthUnit = candidate;
}

std::wstring ShownUnits::angle(double radians, int decimals) const {
    if (m_isDegrees) return shortNumber(radians * degreesInARadian, decimals) + L"\u00b0";
    return shortNumber(radians, decimals + 2) + L" rad";
}

std::wstring ShownUnits::angleBeyond(double radians, double limit) const {
    constexpr int mostDecimals = 9;
    int decimals = 2;
    while (decimals < mostDecimals && angle(std::abs(radians), decimals) == angle(limit, decimals)) ++decimals;
    return angle(radians, decimals);
}

std::wstring ShownUnits::length(double meters, int decimals) const {
    return shortNumber(Table::convertValue(Table::Meters, m_lengthUnit, meters), decimals);
}

std::wstring ShownUnits::point(const Point_3Dim<double>& meters) const {
    const auto shown = [&](double value) { return length(value, 4); };
    return shown(meters.x) + L", " + shown(meters.y) + L", " + shown(meters.z) + L" " + Table::getUnitSuffix(m_lengthUnit);
}

std::wstring ShownUnits::value(const std::wstring& stored, const Setting& setting) const {
    constexpr int decimals = 6;
    std::wstring plain = shortText(stored, setting.type);
    if (!isNumbers(setting.type) || !isOfType(stored, setting.type)) return plain;
    if (setting.unit == Unit::Percent) return plain + L" %";
    if (setting.type != SettingType::Double || !std::isfinite(leadingDouble(stored))) return plain;
    if (setting.unit == Unit::Radians) return angle(leadingDouble(stored), decimals);
    if (setting.unit != Unit::Meters) return plain;
    return length(leadingDouble(stored), decimals) + L" " + Table::getUnitSuffix(m_lengthUnit);
}

}  // namespace XMLConfig::detail
