#include "sections/ScreenTexts.h"

#include "platform/Numbers.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {

namespace {

constexpr std::size_t maxLineLength = 127;

std::wstring fixed(double value) { return formatFixed(value, 6); }

// A line that is alone counts as the first, not as the last. Files hold it like that: do not change.
std::wstring linesText(const std::vector<std::wstring>& lines) {
    std::wstring text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool first = i == 0;
        const bool last = !first && i + 1 == lines.size();
        const std::wstring line = (first ? L"\n\t\t" : L"\t\t") + lines[i] + (last ? L"\n\n\t" : L",\n");
        text += line.substr(0, maxLineLength);
    }
    return text;
}

std::vector<double> numbersOf(const std::wstring& text) {
    const std::vector<std::wstring> tokens = tokensOf(text);
    std::vector<double> numbers;
    numbers.reserve(tokens.size());
    for (const std::wstring& token : tokens) numbers.push_back(leadingDouble(token));
    return numbers;
}

}  // namespace

std::wstring calibrationPointsText(const std::vector<Point_3Dim<double>>& points) {
    std::vector<std::wstring> lines;
    lines.reserve(points.size());
    for (const auto& point : points) lines.push_back(fixed(point.x) + L", " + fixed(point.y) + L", " + fixed(point.z));
    return linesText(lines);
}

std::vector<Point_3Dim<double>> calibrationPointsOf(const std::wstring& text) {
    const std::vector<double> numbers = numbersOf(text);
    std::vector<Point_3Dim<double>> points;
    for (std::size_t i = 0; i + 2 < numbers.size(); i += 3) points.emplace_back(numbers[i], numbers[i + 1], numbers[i + 2]);
    return points;
}

// The blank before the last comma belongs to the stored form: do not change.
std::wstring transformText(const Matrix<double, 4>& transform) {
    std::vector<std::wstring> lines;
    for (const auto& row : transform.m)
        lines.push_back(fixed(row[0]) + L", " + fixed(row[1]) + L", " + fixed(row[2]) + L" ," + fixed(row[3]));
    return linesText(lines);
}

Matrix<double, 4> transformOf(const std::wstring& text) {
    const std::vector<double> numbers = numbersOf(text);
    if (numbers.size() != 16) return Matrix<double, 4>::identity();
    Matrix<double, 4> transform;
    auto number = numbers.begin();
    for (auto& row : transform.m)
        for (double& element : row) element = *number++;
    return transform;
}

}  // namespace XMLConfig::detail
