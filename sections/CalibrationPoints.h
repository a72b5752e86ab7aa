#pragma once

#include <map>
#include <string>

#include "store/ValueTypes.h"

/// The text form of calibration points: marker number, x and y, a line an entry.
namespace XMLConfig::detail {

using CalibrationPoints = std::map<int, Point_2Dim<double>>;

/// Entries in ascending order, coordinates with six decimals; "" for no entry. An entry is cut at 127 characters.
std::wstring calibrationPointsToText(const CalibrationPoints& points);
/// Pieces between blanks, commas, line feeds and tabs, in threes. What begins with no number reads 0; an incomplete group at
/// the end is ignored, and a repeated marker keeps its first place.
CalibrationPoints calibrationPointsFromText(const std::wstring& text);

}  // namespace XMLConfig::detail
