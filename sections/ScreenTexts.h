#pragma once

#include <string>
#include <vector>

#include "store/ValueTypes.h"

/// The text forms of the "Screen" section: numbers with six decimals, a point or a row of the matrix a line. A line is cut
/// to 127 characters.
namespace XMLConfig::detail {

/// No points give the empty text.
std::wstring calibrationPointsText(const std::vector<Point_3Dim<double>>& points);
/// Up to the last point whose three numbers are there.
std::vector<Point_3Dim<double>> calibrationPointsOf(const std::wstring& text);

std::wstring transformText(const Matrix<double, 4>& transform);
/// The identity when the text does not hold exactly sixteen numbers.
Matrix<double, 4> transformOf(const std::wstring& text);

}  // namespace XMLConfig::detail
