#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "base/Setting.h"
#include "base/UnitConversionTable.h"
#include "platform/Words.h"
#include "store/ValueTypes.h"

class ConfigInfo;

/// Values as the messages of findings show them.
namespace XMLConfig::detail {

/// Rounded to at most so many decimals, without trailing zeros; never -0. Very large numbers have an exponent.
std::wstring shortNumber(double value, int decimals = 6);
/// With more decimals where it would look like one of the limits that it is not.
std::wstring numberBeyond(double value, std::initializer_list<double> limits, int decimals = 6);
/// A stored text with its numbers as people read them; a text that is not of the type as it stands.
std::wstring shortText(const std::wstring& stored, SettingType type);
std::wstring quoted(const std::wstring& text);
/// The one of the texts that is one or two letters away from the text, the nearest and first; null when none is.
const std::wstring* nearest(const std::wstring& text, const std::vector<std::wstring>& texts);

/// Values as people read them: angles and lengths in the units that the document asks for, percents with their sign.
class ShownUnits {
public:
    explicit ShownUnits(const std::wstring& lengthUnit, const std::wstring& angleUnit);
    [[nodiscard]] std::wstring angle(double radians, int decimals = 2) const;
    /// As angle(), with enough decimals to show that it exceeds the limit.
    [[nodiscard]] std::wstring angleBeyond(double radians, double limit) const;
    [[nodiscard]] std::wstring point(const Point_3Dim<double>& meters) const;
    /// A stored text of the setting; one that is not of its type as it stands.
    [[nodiscard]] std::wstring value(const std::wstring& stored, const Setting& setting) const;

private:
    [[nodiscard]] std::wstring length(double meters, int decimals) const;  // without the unit

    bool m_isDegrees;
    UnitConversionTable::UnitSubType m_lengthUnit = UnitConversionTable::Meters;
};

}  // namespace XMLConfig::detail
