#include "manager/check/Findings.h"

#include <algorithm>
#include <tuple>

#include "manager/CheckRules.h"
#include "store/Address.h"

namespace XMLConfig::detail {
namespace {

std::wstring nameOf(const CheckedSection& section) {
    if (!section.isDevice()) return {};
    const std::wstring name = section.stored(L"Name");
    return name.empty() ? section.id : name;
}

}  // namespace

Findings::Findings(const ConfigInfo& checked, const CheckOptions& wishes)
    : document(checked),
      options(wishes),
      read(checked),
      units(read.text(L"System", L"Length_Unit"), read.text(L"System", L"AngleUnit")) {}

bool Findings::wants(const std::wstring& beginning) const {
    const auto begins = [&](const std::wstring& rule) { return rule.compare(0, beginning.size(), beginning) == 0; };
    return options.onlyRules.empty() || std::any_of(options.onlyRules.begin(), options.onlyRules.end(), begins);
}

Finding& Findings::add(const wchar_t* rule, Severity severity, const Place& place, const std::wstring& message) {
    if (!wants(rule)) {
        m_unwanted = Finding();
        return m_unwanted;
    }
    const CheckRule* const known = findRule(rule);
    m_findings.push_back({rule, known->name, severity, place.element, place.address, place.device, message, {}, {}});
    return m_findings.back();
}

std::vector<Finding> Findings::inOrder() {
    const auto isBefore = [](const Finding& a, const Finding& b) {
        return std::tie(a.severity, a.rule) < std::tie(b.severity, b.rule);
    };
    std::stable_sort(m_findings.begin(), m_findings.end(), isBefore);
    return std::move(m_findings);
}

Place placeOf(const CheckedSection& section) { return {section.element, addressOf(section.element), nameOf(section)}; }

Place placeOf(const CheckedSection& section, const CheckedItem& item) {
    return {item.element, addressOf(item.element), nameOf(section)};
}

Place placeOf(const CheckedSection& section, const std::wstring& key) {
    if (const CheckedItem* const item = section.find(key)) return placeOf(section, *item);
    const std::wstring address = addressText({section.tag, section.id, L"", L"", key});
    for (std::size_t end = key.rfind(L'|'); end != std::wstring::npos && end > 0; end = key.rfind(L'|', end - 1))
        if (const CheckedItem* const group = section.find(key.substr(0, end)))
            return {group->element, address, nameOf(section)};
    return {section.element, address, nameOf(section)};
}

Place placeOf(const Findings& findings, const std::wstring& tag, const std::wstring& key) {
    const CheckedSection& section = findings.read.section(tag);
    if (section.element) return placeOf(section, key);
    return {ElementView(), addressText({tag, L"", L"", L"", key}), L""};
}

FindingPlace otherPlace(const Place& place, const std::wstring& text) { return {place.element, place.address, text}; }

std::vector<std::wstring> setCommand(const Place& place, const std::wstring& text) {
    return {L"set", L"FILE", place.address + L"=" + text};
}

std::vector<std::wstring> unsetCommand(const Place& place) { return {L"unset", L"FILE", place.address}; }

}  // namespace XMLConfig::detail
