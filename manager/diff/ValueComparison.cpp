#include "manager/diff/ValueComparison.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
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
        if (!std::isfinite(one) || !std::isfinite(other)) return false;
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
    // All NaNs count as one name, sorted last: NaN compares false with everything and would break the sort.
    const auto nameOf = [](const Entry& entry) {
        return std::make_pair(std::isnan(entry[0]), std::isnan(entry[0]) ? 0.0 : entry[0]);
    };
    const auto isBefore = [&](const Entry& one, const Entry& other) { return nameOf(one) < nameOf(other); };
    const auto isSame = [&](const Entry& one, const Entry& other) { return nameOf(one) == nameOf(other); };
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

/// How a text is made of numbers.
struct ListForm {
    std::size_t entryLength;  ///< how many numbers belong together
    bool isByName;            ///< whether entries are known by their first number, whatever their order
    bool hasSixDecimals;      ///< whether the application stores the numbers rounded to six decimals
};

/// Nothing for types whose texts are one number, or are compared as they stand. Without a default the compiler names the
/// type that is missing.
std::optional<ListForm> listFormOf(SettingType type) {
    switch (type) {
        case SettingType::IntPoint2:
        case SettingType::Point2:
        case SettingType::Point3:
        case SettingType::FourIntegers:
            return ListForm{1, false, false};
        case SettingType::PointList:
        case SettingType::Matrix:
        case SettingType::OverlapPoint:
            return ListForm{1, false, true};
        case SettingType::IntegerPairs:
            return ListForm{2, true, false};
        case SettingType::AxisTable:
            return ListForm{2, true, true};
        case SettingType::MarkerPlaces:
            return ListForm{3, true, true};
        case SettingType::Bool:
        case SettingType::Int:
        case SettingType::Double:
        case SettingType::Text:
        case SettingType::Element:
        case SettingType::Frustum:
        case SettingType::PondOfMirrors:
        case SettingType::Path:
        case SettingType::CameraIDs:
        case SettingType::BlackBox:
            break;
    }
    return std::nullopt;
}

bool areOneList(const std::wstring& one, const std::wstring& other, const ListForm& form, const Closeness& close) {
    const std::vector<Entry> ones = entriesOf(one, form.entryLength);
    const std::vector<Entry> others = entriesOf(other, form.entryLength);
    return form.isByName ? areClose(byName(ones), byName(others), close) : areClose(ones, others, close);
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
    if (type == SettingType::Bool) return areOneTruth(one, other);
    if (type == SettingType::Int) return exact(leadingInteger(one), leadingInteger(other));
    if (type == SettingType::Double) return exact(leadingDouble(one), leadingDouble(other));
    const std::optional<ListForm> form = listFormOf(type);
    return form && areOneList(one, other, *form, form->hasSixDecimals ? sixDecimals : exact);
}

}  // namespace XMLConfig::detail
