#include "base/SettingTable.h"

#include "platform/Numbers.h"
#include "store/Together.h"

namespace XMLConfig::detail {

namespace {

EffectCondition conditionOf(const SettingFacts::Condition& kept) {
    return {kept.section, kept.key, {kept.texts.begin(), kept.texts.end()}, kept.whileOneOf};
}

Setting settingOf(const wchar_t* section, const AnyDescriptor& item) {
    const SettingFacts& facts = item.facts;
    Setting setting;
    setting.section = section;
    setting.key = item.key;
    setting.type = item.type();
    setting.defaultText = item.defaultText();
    if (item.hasInitial) setting.initialText = item.initialText();
    setting.unit = facts.unit;
    setting.inheritsFrom = facts.parent;
    setting.readOnly = facts.readOnly;
    setting.meaning = facts.meaning;
    setting.settingClass = facts.settingClass;
    setting.words.assign(facts.words.begin(), facts.words.end());
    for (const SettingFacts::NumberName& named : facts.numbers) setting.numbers.push_back({named.number, named.name});
    if (facts.othersCountAs != nullptr) setting.othersCountAs = facts.othersCountAs;
    if (facts.renamed.older != nullptr) setting.olderWord = OlderWord{facts.renamed.older, facts.renamed.word};
    setting.defaultMeaning = facts.defaultMeaning;
    if (facts.hasRange) setting.range = facts.range;
    if (*facts.condition.key != L'\0') setting.countsWhile = conditionOf(facts.condition);
    setting.writtenByRuns = facts.writtenByRuns;
    return setting;
}

}  // namespace

std::wstring withSectionID(std::wstring pattern, const std::wstring& sectionID) {
    constexpr std::wstring_view placeholder = L"%s";
    const auto place = pattern.find(placeholder);
    return place == std::wstring::npos ? pattern : pattern.replace(place, placeholder.size(), sectionID);
}

std::vector<Setting> settingsOf(const SettingTable& table) {
    std::vector<Setting> settings;
    for (const AnyDescriptor* item : table) settings.push_back(settingOf(table.section, *item));
    return settings;
}

std::wstring numberedKey(std::wstring_view pattern, int number) {
    return std::wstring(pattern).replace(pattern.find(L"%d"), 2, formatInteger(number));
}

std::optional<int> numberOfKey(std::wstring_view pattern, std::wstring_view key) {
    const std::wstring_view prefix = pattern.substr(0, pattern.find(L"%d"));
    if (key.substr(0, prefix.size()) != prefix) return std::nullopt;
    const int number = leadingInteger(key.substr(prefix.size()));
    return numberedKey(pattern, number) == key ? std::optional<int>(number) : std::nullopt;
}

}  // namespace XMLConfig::detail

void BaseConfig::writeInitialValues(const XMLConfig::detail::SettingTable& table) {
    XMLConfig::detail::together(*m_configInfo, [&] {
        for (const XMLConfig::detail::AnyDescriptor* item : table)
            if (item->hasInitial) item->writeInitial(*m_configInfo, table.section, m_sectionID);
    });
}
