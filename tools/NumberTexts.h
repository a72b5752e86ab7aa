#pragma once

#include <string>

#include "base/UnitConversionTable.h"
#include "platform/Words.h"

class ConfigInfo;

/// Numbers as people read them: shortest digits, the same under every locale, in the document's units.
namespace tool {

/// Rounded to at most so many decimals, without trailing zeros: 22.5, 60, -0.25.
std::wstring numberText(double value, int decimals = 9);
/// Rounded in the same way; never -0.
double rounded(double value, int decimals);
/// 33 %, from a share of 1. A share above 0 never shows as 0 %, but as "under 1 %".
std::wstring percentText(double share);

using XMLConfig::detail::counted;

/// The number that the application reads of a stored text.
double numberRead(const std::wstring& stored);

/// The units that a document wants its angles and lengths shown in.
class Units {
public:
    explicit Units(const ConfigInfo& document);
    /// Degrees and meters.
    Units() = default;

    /// From radians; `decimals` are those of a degree, and finer units have as many as they need to show as much.
    [[nodiscard]] std::wstring angle(double radians, int decimals = 2) const;
    /// From meters, without the unit.
    [[nodiscard]] std::wstring length(double meters) const;
    [[nodiscard]] std::wstring lengthUnit() const;

private:
    UnitConversionTable::UnitSubType m_angle = UnitConversionTable::Degrees;
    UnitConversionTable::UnitSubType m_length = UnitConversionTable::Meters;
};

}  // namespace tool
