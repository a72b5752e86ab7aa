#pragma once

#include <string>
#include <vector>

#include "base/Setting.h"
#include "platform/Words.h"
#include "store/ValueTypes.h"

class ConfigInfo;

/// Values as the messages of findings show them.
namespace XMLConfig::detail {

/// Rounded to at most so many decimals, without trailing zeros; never -0.
std::wstring shortNumber(double value, int decimals = 6);
/// A stored text with its numbers as people read them; a text that is not of the type as it stands.
std::wstring shortText(const std::wstring& stored, SettingType type);
std::wstring quoted(const std::wstring& text);
/// The one of the texts that is one or two letters away from the text, the nearest and first; null when none is.
const std::wstring* nearest(const std::wstring& text, const std::vector<std::wstring>& texts);

/// Angles and lengths in the units that the document asks for.
class ShownUnits {
public:
    explicit ShownUnits(const std::wstring& lengthUnit, const std::wstring& angleUnit);
    [[nodiscard]] std::wstring angle(double radians, int decimals = 2) const;
    /// As angle(), with enough decimals to show that it exceeds the limit.
    [[nodiscard]] std::wstring angleBeyond(double radians, double limit) const;
    [[nodiscard]] std::wstring point(const Point_3Dim<double>& meters) const;

private:
    bool m_isDegrees;
    std::wstring m_lengthUnit;
};

}  // namespace XMLConfig::detail
