#include "tools/NumberTexts.h"

#include <fmt/format.h>
#include <charconv>
#include <cmath>

#include "manager/Origin.h"
#include "platform/Utf8.h"
#include "sections/SystemConfig.h"

namespace tool {
namespace {

using Table = UnitConversionTable;

bool isOf(Table::UnitSubType unit, Table::UnitType type) {
    return unit != Table::UnknownUnitSubType && Table::getUnitType(unit) == type;
}

}  // namespace

double rounded(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    const double result = std::round(value * scale) / scale;
    if (!std::isfinite(result)) return value;
    return result == 0.0 ? 0.0 : result;
}

std::wstring numberText(double value, int decimals) {
    return XMLConfig::wideFromUtf8(fmt::format("{}", rounded(value, decimals)));
}

std::wstring percentText(double share) {
    const double percent = rounded(100.0 * share, 0);
    return percent == 0.0 && share > 0.0 ? L"under 1 %" : numberText(percent) + L" %";
}

double numberRead(const std::wstring& stored) {
    const std::optional<std::wstring> read = XMLConfig::textAsRead(stored, XMLConfig::SettingType::Double);
    const std::string text = XMLConfig::utf8FromWide(read.value_or(L""));
    double number = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

Units::Units(const ConfigInfo& document) {
    // SystemConfig wants a document that it may change; only its getters are used here.
    const SystemConfig system(const_cast<ConfigInfo*>(&document), nullptr, L"");
    const Table::UnitSubType angle = system.getAngleUnitByEnum();
    const Table::UnitSubType length = system.getLengthUnitByEnum();
    if (isOf(angle, Table::Angle)) m_angle = angle;
    if (isOf(length, Table::Length) && length != Table::Custom) m_length = length;
}

std::wstring Units::angle(double radians, int decimals) const {
    const double value = Table::convertValue(Table::Radians, m_angle, radians);
    const int finer = m_angle == Table::Radians ? decimals + 2 : decimals;
    const wchar_t* const blank = m_angle == Table::Degrees ? L"" : L" ";
    return numberText(value, finer) + blank + Table::getUnitSuffix(m_angle);
}

std::wstring Units::length(double meters) const {
    constexpr int decimals = 4;
    return numberText(Table::convertValue(Table::Meters, m_length, meters), decimals);
}

std::wstring Units::lengthUnit() const { return Table::getUnitSuffix(m_length); }

}  // namespace tool
