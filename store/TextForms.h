#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "store/ValueTypes.h"

/// The stored text of each simple type of value, in one place.
namespace XMLConfig::detail {

std::wstring textOf(bool value);  ///< "true" or "false"
/// The truth value that one of the ten words "true", "t", "1", "yes", "y", "false", "f", "0", "no" and "n" stands for, in
/// any case; nothing for any other text.
std::optional<bool> boolOf(std::wstring_view text);
std::wstring versionText(double version);              ///< of a file: "%.3f"
std::wstring textOf(int value);                        ///< "%ld"
std::wstring textOf(double value);                     ///< "%.15e"
std::wstring textOf(const Point_2Dim<int>& value);     ///< "%d, %d"
std::wstring textOf(const Point_2Dim<double>& value);  ///< "%.15e, %.15e"
std::wstring textOf(const Point_3Dim<double>& value);  ///< "%.15e, %.15e, %.15e"

}  // namespace XMLConfig::detail
