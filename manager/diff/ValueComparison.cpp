#include "manager/diff/ValueComparison.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/Numbers.h"
#include "store/TextForms.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

/// What may lie between two numbers that count as equal.
struct Closeness {
    double relative;
    double absolute;

    bool operator()(double one, double other) const {
        if (one == other || (std::isnan(one) && std::isnan(other))) return true;
        const double distance = std::abs(one - other);
        return distance <= absolute || distance <= relative * std::max(std::abs(one), std::abs(other));
    }
};

/// Numbers that belong together, the first of them naming the entry: a marker and its place, an angle and its correction.
using Entry = std::vector<double>;

std::vector<Entry> entriesOf(const std::wstring& text, std::size_t length) {
    std::vector<Entry> entries;
    for (const std::wstring& token : tokensOf(text)) {
        if (entries.empty() || entries.back().size() == length) entries.emplace_back();
        entries.back().push_back(leadingDouble(token));
    }
    return entries;
}

/// Sorted by name; of several of one name the first stays.
std::vector<Entry> byName(std::vector<Entry> entries) {
    const auto isBefore = [](const Entry& one, const Entry& other) { return one[0] < other[0]; };
    const auto isSame = [](const Entry& one, const Entry& other) { return one[0] == other[0]; };
    std::stable_sort(entries.begin(), entries.end(), isBefore);
    entries.erase(std::unique(entries.begin(), entries.end(), isSame), entries.end());
    return entries;
}

bool areClose(const std::vector<Entry>& one, const std::vector<Entry>& other, const Closeness& close) {
    const auto areEqual = [&](const Entry& a, const Entry& b) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), close);
    };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), areEqual);
}

bool areCloseInOrder(const std::wstring& one, const std::wstring& other, const Closeness& close) {
    return areClose(entriesOf(one, 1), entriesOf(other, 1), close);
}

bool areCloseByName(const std::wstring& one, const std::wstring& other, std::size_t length, const Closeness& close) {
    return areClose(byName(entriesOf(one, length)), byName(entriesOf(other, length)), close);
}

bool areOneTruth(const std::wstring& one, const std::wstring& other) {
    const std::optional<bool> value = boolOf(one);
    return value.has_value() && value == boolOf(other);
}

}  // namespace

bool areOneValue(const std::wstring& one, const std::wstring& other, SettingType type,
                 const std::optional<double>& tolerance) {
    if (one == other) return true;
    const Closeness exact = tolerance ? Closeness{0.0, *tolerance} : Closeness{1e-12, 0.0};
    const Closeness sixDecimals = tolerance ? exact : Closeness{1e-12, 5e-7};
    switch (type) {
        case SettingType::Bool:
            return areOneTruth(one, other);
        case SettingType::Int:
            return exact(leadingInteger(one), leadingInteger(other));
        case SettingType::Double:
            return exact(leadingDouble(one), leadingDouble(other));
        case SettingType::IntPoint2:
        case SettingType::Point2:
        case SettingType::Point3:
        case SettingType::FourIntegers:
            return areCloseInOrder(one, other, exact);
        case SettingType::PointList:
        case SettingType::Matrix:
        case SettingType::OverlapPoint:
            return areCloseInOrder(one, other, sixDecimals);
        case SettingType::MarkerPlaces:
            return areCloseByName(one, other, 3, sixDecimals);
        case SettingType::AxisTable:
            return areCloseByName(one, other, 2, sixDecimals);
        case SettingType::IntegerPairs:
            return areCloseByName(one, other, 2, exact);
        default:
            return false;
    }
}

}  // namespace XMLConfig::detail
