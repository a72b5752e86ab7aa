#include <algorithm>

#include "manager/CheckRules.h"
#include "manager/SettingSearch.h"

namespace XMLConfig {
namespace {

/// The whole name of a setting in a rule's list, where a name may leave out what it shares with the one before it: after
/// "Projector/Blend_Left", "_Right" means "Projector/Blend_Right" and "Gamma" means "Projector/Gamma".
std::wstring wholeName(const std::wstring& name, const std::wstring& before) {
    if (name.find(L'/') != std::wstring::npos) return name;
    const std::size_t end = before.find_last_of(name[0] == L'_' ? L'_' : L'/');
    if (end == std::wstring::npos) return name;
    return before.substr(0, name[0] == L'_' ? end : end + 1) + name;
}

std::vector<std::wstring> namesIn(const std::wstring& list) {
    std::vector<std::wstring> names;
    for (std::size_t begin = 0; begin < list.size();) {
        const std::size_t end = std::min(list.find(L", ", begin), list.size());
        names.push_back(wholeName(list.substr(begin, end - begin), names.empty() ? L"" : names.back()));
        begin = end + 2;
    }
    return names;
}

/// Whether the setting is the one of that name, or stands in the group of that name.
bool isNamed(const std::wstring& address, const std::wstring& name) {
    if (name.find(L'/') == std::wstring::npos) return false;
    return address.compare(0, name.size(), name) == 0 && (address.size() == name.size() || address[name.size()] == L'/');
}

/// Whether the rule looks at every setting of some kind, and this is one of them.
bool isOfKind(const Setting& setting, const std::wstring& rule) {
    if (rule == L"XC109") return !setting.words.empty();
    if (rule == L"XC114") return setting.range.has_value();
    if (rule == L"XC305") return setting.unit == Unit::Radians;
    if (rule == L"XC408") return setting.inheritsFrom == L"Geometry";
    if (rule == L"XC409") return !setting.inheritsFrom.empty();
    return rule == L"XC901" && setting.countsWhile.has_value();
}

}  // namespace

std::vector<const CheckRule*> rulesOf(const Setting& setting) {
    const std::wstring address = setting.section + L"/" + addressKey(setting);
    std::vector<const CheckRule*> rules;
    for (const CheckRule& rule : checkRules()) {
        const std::vector<std::wstring> names = namesIn(rule.looksAt);
        const auto isIt = [&](const std::wstring& name) { return isNamed(address, name); };
        if (isOfKind(setting, rule.id) || std::any_of(names.begin(), names.end(), isIt)) rules.push_back(&rule);
    }
    return rules;
}

}  // namespace XMLConfig
