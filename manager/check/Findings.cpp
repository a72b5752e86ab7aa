#include "manager/check/Findings.h"

#include <algorithm>
#include <map>

#include "store/Address.h"

namespace XMLConfig::detail {
Findings::Findings(const ConfigInfo& checked, const CheckOptions& wishes)
    : document(checked),
      options(wishes),
      read(checked),
      units(read.text(L"System", L"Length_Unit"), read.text(L"System", L"AngleUnit")) {}

bool Findings::wants(std::wstring_view beginning) const {
    const auto begins = [&](const std::wstring& rule) { return rule.compare(0, beginning.size(), beginning) == 0; };
    return options.onlyRules.empty() || std::any_of(options.onlyRules.begin(), options.onlyRules.end(), begins);
}

const CheckRule& Findings::ruleOf(const wchar_t* id) {
    const CheckRule*& known = m_rules[id];
    if (known == nullptr) known = findRule(id);
    return *known;
}

Finding& Findings::add(const wchar_t* rule, Severity severity, const Place& place, const std::wstring& message) {
    if (!wants(rule)) {
        m_unwanted = Finding();
        return m_unwanted;
    }
    m_findings.push_back({rule, ruleOf(rule).name, severity, place.element, place.address, place.device, message, {}, {}});
    return m_findings.back();
}

std::vector<Finding> Findings::inOrder() {
    std::map<std::pair<Severity, std::wstring_view>, std::vector<std::size_t>> byRule;
    for (std::size_t i = 0; i < m_findings.size(); ++i) byRule[{m_findings[i].severity, m_findings[i].rule}].push_back(i);
    std::vector<Finding> ordered;
    ordered.reserve(m_findings.size());
    for (const auto& group : byRule)
        for (const std::size_t index : group.second) ordered.push_back(std::move(m_findings[index]));
    return ordered;
}

Place placeOf(const CheckedSection& section) { return {section.element, section.address(), section.name()}; }

Place placeOf(const CheckedSection& section, const CheckedItem& item) {
    return {item.element, addressOf(section, item), section.name()};
}

Place placeOf(const CheckedSection& section, std::wstring_view key) {
    if (const CheckedItem* const item = section.find(key)) return placeOf(section, *item);
    for (std::size_t end = key.rfind(L'|'); end != std::wstring_view::npos && end > 0; end = key.rfind(L'|', end - 1))
        if (const CheckedItem* const group = section.find(key.substr(0, end)))
            return {group->element, addressOf(section, key), section.name()};
    return {section.element, addressOf(section, key), section.name()};
}

Place placeOf(const Findings& findings, std::wstring_view tag, std::wstring_view key) {
    const CheckedSection& section = findings.read.section(tag);
    if (section.element) return placeOf(section, key);
    return {ElementView(), addressText({std::wstring(tag), L"", L"", L"", std::wstring(key)}), L""};
}

FindingPlace otherPlace(const Place& place, const std::wstring& text) { return {place.element, place.address, text}; }

std::vector<std::wstring> setCommand(const Place& place, const std::wstring& text) {
    return {L"set", L"FILE", place.address + L"=" + text};
}

std::vector<std::wstring> unsetCommand(const Place& place) { return {L"unset", L"FILE", place.address}; }

}  // namespace XMLConfig::detail
