#include "base/Setting.h"

#include <cstddef>
#include <iterator>

#include "base/ValueTraits.h"
#include "platform/Numbers.h"

namespace XMLConfig {

namespace {

// Each list in the order of its enumeration.
constexpr const wchar_t* typeNames[] = {L"bool",
                                        L"int",
                                        L"double",
                                        L"2-D integer point",
                                        L"2-D point",
                                        L"3-D point",
                                        L"text",
                                        L"XML element",
                                        L"frustum",
                                        L"pond of mirrors",
                                        L"path",
                                        L"list of camera IDs",
                                        L"3-D point and two channels",
                                        L"black box",
                                        L"integer pairs",
                                        L"four integers",
                                        L"calibration points",
                                        L"list of 3-D points",
                                        L"4 x 4 matrix",
                                        L"axis table"};
constexpr const wchar_t* unitNames[] = {
    L"",         L"meters", L"radians",       L"degrees",      L"percent",
    L"fraction", L"pixels", L"square pixels", L"milliseconds", L"seconds since 1970-01-01 UTC",
    L"lumens"};
constexpr const wchar_t* classNames[] = {L"rest", L"identity", L"channel", L"place"};
static_assert(std::size(typeNames) == static_cast<std::size_t>(SettingType::AxisTable) + 1);
static_assert(std::size(unitNames) == static_cast<std::size_t>(Unit::Lumens) + 1);
static_assert(std::size(classNames) == static_cast<std::size_t>(SettingClass::Place) + 1);

std::wstring joined(const std::vector<std::wstring>& texts, const wchar_t* separator) {
    std::wstring all;
    for (const std::wstring& text : texts) all += (&text == &texts.front() ? L"" : separator) + text;
    return all;
}

std::wstring visible(const std::wstring& text) { return text.empty() ? L"\"\"" : text; }

std::wstring choicesText(const Setting& setting) {
    std::vector<std::wstring> choices;
    for (const std::wstring& word : setting.words) choices.push_back(visible(word));
    for (const NamedNumber& named : setting.numbers)
        choices.push_back(detail::formatInteger(named.number) + L" " + named.name);
    const std::wstring others = setting.othersCountAs ? L"; any other counts as " + visible(*setting.othersCountAs) : L"";
    return joined(choices, L", ") + others;
}

std::wstring shortText(double number) { return detail::formatGeneral(static_cast<float>(number)); }

}  // namespace

const wchar_t* nameOf(SettingType type) { return typeNames[static_cast<std::size_t>(type)]; }
const wchar_t* nameOf(Unit unit) { return unitNames[static_cast<std::size_t>(unit)]; }
const wchar_t* nameOf(SettingClass settingClass) { return classNames[static_cast<std::size_t>(settingClass)]; }

bool isOfType(const std::wstring& text, SettingType type) {
    switch (type) {
        case SettingType::Bool:
            return detail::ValueTrait<bool>::isValid(text);
        case SettingType::Int:
            return detail::ValueTrait<int>::isValid(text);
        case SettingType::Double:
            return detail::ValueTrait<double>::isValid(text);
        case SettingType::IntPoint2:
            return detail::ValueTrait<Point_2Dim<int>>::isValid(text);
        case SettingType::Point2:
            return detail::ValueTrait<Point_2Dim<double>>::isValid(text);
        case SettingType::Point3:
            return detail::ValueTrait<Point_3Dim<double>>::isValid(text);
        default:
            return true;
    }
}

bool contains(const Range& range, double number) {
    return (range.withoutLow ? number > range.low : number >= range.low) && number <= range.high;
}

std::wstring textOf(const Range& range) {
    const std::wstring low = (range.withoutLow ? L"above " : L"") + shortText(range.low);
    if (range.high != std::numeric_limits<double>::infinity()) return low + L" to " + shortText(range.high);
    return range.withoutLow ? low : low + L" and more";
}

std::wstring valuesText(const Setting& setting) {
    if (!setting.range) return choicesText(setting);
    return textOf(*setting.range) + (setting.range->ownJudgement ? L" is usual" : L"");
}

std::wstring conditionText(const Setting& setting) {
    if (!setting.countsWhile) return {};
    const EffectCondition& condition = *setting.countsWhile;
    std::wstring other = (condition.section.empty() ? setting.section : condition.section) + L"/" + condition.key;
    return other + (condition.whileOneOf ? L" is " : L" is not ") + joined(condition.texts, L" or ");
}

}  // namespace XMLConfig
