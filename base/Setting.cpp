#include "base/Setting.h"

#include <cstddef>
#include <iterator>

#include "base/TraitOfType.h"
#include "platform/Numbers.h"
#include "platform/Words.h"

namespace XMLConfig {

namespace {

// Each list in the order of its enumeration.
constexpr const wchar_t* unitNames[] = {
    L"",         L"meters", L"radians",       L"degrees",      L"percent",
    L"fraction", L"pixels", L"square pixels", L"milliseconds", L"seconds since 1970-01-01 UTC",
    L"lumens"};
constexpr const wchar_t* classNames[] = {L"rest", L"identity", L"channel", L"place"};
static_assert(std::size(unitNames) == static_cast<std::size_t>(Unit::Lumens) + 1);
static_assert(std::size(classNames) == static_cast<std::size_t>(SettingClass::Place) + 1);

std::wstring visible(const std::wstring& text) { return text.empty() ? L"\"\"" : text; }

std::wstring choicesText(const Setting& setting) {
    std::vector<std::wstring> choices;
    for (const std::wstring& word : setting.words) choices.push_back(visible(word));
    for (const NamedNumber& named : setting.numbers)
        choices.push_back(detail::formatInteger(named.number) + L" " + named.name);
    std::wstring others = setting.othersCountAs ? L"; any other counts as " + visible(*setting.othersCountAs) : L"";
    if (setting.olderWord)
        others += L"; " + setting.olderWord->text + L" is the older name of " + setting.olderWord->countsAs;
    return detail::joined(choices) + others;
}

std::wstring shortText(double number) { return detail::formatGeneral(static_cast<float>(number)); }

}  // namespace

const wchar_t* nameOf(SettingType type) {
    return detail::withTrait(type, [](auto trait) { return decltype(trait)::name; });
}
const wchar_t* nameOf(Unit unit) { return unitNames[static_cast<std::size_t>(unit)]; }
const wchar_t* nameOf(SettingClass settingClass) { return classNames[static_cast<std::size_t>(settingClass)]; }

bool isNumbers(SettingType type) {
    return detail::withTrait(type, [](auto trait) { return decltype(trait)::isNumbers; });
}
bool isOfType(const std::wstring& text, SettingType type) {
    return detail::withTrait(type, [&](auto trait) { return decltype(trait)::isValid(text); });
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
    if (!setting.range && setting.unit == Unit::Radians) return L"at most one turn either way";
    if (!setting.range) return choicesText(setting);
    return textOf(*setting.range) + (setting.range->ownJudgement ? L" is usual" : L"");
}

std::wstring conditionText(const Setting& setting) {
    if (!setting.countsWhile) return {};
    const EffectCondition& condition = *setting.countsWhile;
    std::wstring other = (condition.section.empty() ? setting.section : condition.section) + L"/" + condition.key;
    return other + (condition.whileOneOf ? L" is " : L" is not ") + detail::joined(condition.texts, L" or ");
}

}  // namespace XMLConfig
