#include "sections/CalibrationPoints.h"

#include <cstddef>
#include <vector>

#include "platform/Numbers.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

constexpr std::size_t longestEntry = 127;

/// A coordinate in the form "%4f". The width of four matters to "nan" and "inf" alone; numbers are longer.
std::wstring coordinate(double value) {
    std::wstring text = formatFixed(value, 6);
    if (text.size() < 4) text.insert(0, 4 - text.size(), L' ');
    return text;
}

std::wstring entry(const wchar_t* prefix, int marker, const Point_2Dim<double>& place) {
    const std::wstring text = prefix + formatInteger(marker) + L", " + coordinate(place.x) + L", " + coordinate(place.y);
    return text.substr(0, longestEntry);
}

}  // namespace

std::wstring calibrationPointsToText(const CalibrationPoints& points) {
    if (points.empty()) return {};
    std::wstring text;
    for (const auto& [marker, place] : points) text += entry(text.empty() ? L"\n\t\t" : L",\n\t\t", marker, place);
    return text + L'\n';
}

CalibrationPoints calibrationPointsFromText(const std::wstring& text) {
    const std::vector<std::wstring> pieces = tokensOf(text);
    CalibrationPoints points;
    for (std::size_t i = 0; i + 3 <= pieces.size(); i += 3)
        points.emplace(leadingInteger(pieces[i]),
                       Point_2Dim<double>(leadingDouble(pieces[i + 1]), leadingDouble(pieces[i + 2])));
    return points;
}

}  // namespace XMLConfig::detail
