#include "sections/AxisDistortionCorrection.h"

#include <algorithm>
#include <cmath>
#include <ios>
#include <locale>
#include <sstream>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/Tokens.h"

using XMLConfig::detail::fromUtf8Strictly;
using XMLConfig::detail::leadingDouble;
using XMLConfig::detail::tokensOf;

namespace {

using Pair = std::pair<double, double>;
using Table = std::vector<Pair>;

constexpr double limitTolerance = 0.0001;  // degrees

double clamped(double value, double minValue, double maxValue) {
    if (value > maxValue) value = maxValue;
    if (value <= minValue) value = minValue;
    return value;
}

bool sameMagnitude(double left, double right) { return std::abs(std::abs(left) - std::abs(right)) <= limitTolerance; }

// Sorts NaN after every number, because a plain comparison with it is no ordering.
bool comesBefore(double left, double right) { return std::isnan(left) ? false : std::isnan(right) || left < right; }

bool pairComesBefore(const Pair& left, const Pair& right) {
    if (comesBefore(left.first, right.first)) return true;
    return !comesBefore(right.first, left.first) && comesBefore(left.second, right.second);
}

void addAnchors(Table& table, double minValue, double maxValue) {
    const double first = table.front().first;
    if (!(first < 0.0 && sameMagnitude(first, minValue))) table.insert(table.begin(), {minValue, minValue});
    const double last = table.back().first;
    if (!(last > 0.0 && sameMagnitude(last, maxValue))) table.emplace_back(maxValue, maxValue);
}

bool increasesStrictly(const Table& table) {
    const auto doesNotIncrease = [](const Pair& pair, const Pair& next) {
        return !(pair.first < next.first && pair.second < next.second);
    };
    return std::adjacent_find(table.begin(), table.end(), doesNotIncrease) == table.end();
}

}  // namespace

namespace AxisDistortionCorrection {

double minValueInDegreesPitch() { return -90.0; }
double maxValueInDegreesPitch() { return 90.0; }
double minValueInDegreesYaw() { return -180.0; }
double maxValueInDegreesYaw() { return 180.0; }

void serializeTableToDelimitedString(std::string& out, const std::vector<std::pair<double, double>>& table, int formatFlags,
                                     long long precision) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream.setf(static_cast<std::ios_base::fmtflags>(formatFlags));
    stream.precision(static_cast<std::streamsize>(precision));
    const char* separator = "";
    for (const Pair& pair : table) {
        stream << separator << pair.first << '\t' << pair.second;
        separator = "\n";
    }
    out = stream.str();
}

void deserializeTableFromDelimitedString(std::vector<std::pair<double, double>>& table, const std::string& text) {
    const std::vector<std::wstring> tokens = tokensOf(fromUtf8Strictly(text).value_or(L""));
    for (std::size_t i = 0; i + 1 < tokens.size(); i += 2)
        table.emplace_back(leadingDouble(tokens[i]), leadingDouble(tokens[i + 1]));
}

bool cleanData(std::vector<std::pair<double, double>>& out, const std::vector<std::pair<double, double>>& in,
               double minValue, double maxValue) {
    if (in.empty()) return true;
    for (const Pair& pair : in)
        out.emplace_back(clamped(pair.first, minValue, maxValue), clamped(pair.second, minValue, maxValue));
    std::sort(out.begin(), out.end(), pairComesBefore);
    addAnchors(out, minValue, maxValue);
    return increasesStrictly(out);
}

}  // namespace AxisDistortionCorrection
