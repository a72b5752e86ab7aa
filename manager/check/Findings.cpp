#include "manager/check/Findings.h"

#include <algorithm>
#include <map>

#include "store/Address.h"

namespace XMLConfig::detail {
namespace {

constexpr const wchar_t* acceptedGone = L"XC910";
constexpr const wchar_t* neighboursLeftOut = L"XC300";

bool isAmong(const std::vector<std::wstring>& rules, std::wstring_view rule) {
    return std::find(rules.begin(), rules.end(), rule) != rules.end();
}

/// The rules that comments accept in each element, and whether any of what they find is there.
class AcceptedRules {
public:
    explicit AcceptedRules(const std::vector<Acceptance>& acceptances) {
        for (const Acceptance& acceptance : acceptances) m_isFound[acceptance.around].emplace(acceptance.rule, false);
    }
    /// Whether a comment accepts what that rule finds in that element. Notes that it is there.
    bool take(const std::wstring& rule, ElementView place) {
        bool isAccepted = false;
        for (; place; place = place.parent()) {
            const auto rules = m_isFound.find(place);
            if (rules == m_isFound.end()) continue;
            const auto accepted = rules->second.find(rule);
            if (accepted != rules->second.end()) isAccepted = accepted->second = true;
        }
        return isAccepted;
    }
    [[nodiscard]] bool isFound(const Acceptance& acceptance) const {
        return m_isFound.at(acceptance.around).at(acceptance.rule);
    }

private:
    std::unordered_map<ElementView, std::unordered_map<std::wstring, bool>, ElementView::Hash> m_isFound;
};

/// Whether a text is to be set where elements stand, which no command replaces.
bool isForElements(const Finding& finding) {
    const auto& commands = finding.mend.commands;
    return !commands.empty() && commands[0][0] == L"set" && finding.element && finding.element.firstChild() &&
           addressOf(finding.element) == finding.address;
}

}  // namespace

Findings::Findings(const ConfigInfo& checked, const CheckOptions& wishes)
    : document(checked),
      options(wishes),
      read(checked),
      units(read.text(L"System", L"Length_Unit"), read.text(L"System", L"AngleUnit")),
      comments(commentsOf(checked)),
      m_acceptances(acceptancesOf(comments)),
      m_lookedFor(wishes.onlyRules) {
    if (m_acceptances.empty() || !isAmong(m_lookedFor, acceptedGone)) return;
    for (const Acceptance& acceptance : m_acceptances)
        if (findRule(acceptance.rule) != nullptr) lookAlsoFor(acceptance.rule);
    lookAlsoFor(neighboursLeftOut);
}

void Findings::lookAlsoFor(const std::wstring& rule) {
    if (!isAmong(m_lookedFor, rule)) m_lookedFor.push_back(rule);
}

bool Findings::wants(std::wstring_view beginning) const {
    const auto begins = [&](const std::wstring& rule) { return rule.compare(0, beginning.size(), beginning) == 0; };
    return m_lookedFor.empty() || std::any_of(m_lookedFor.begin(), m_lookedFor.end(), begins);
}

bool Findings::holds(std::wstring_view rule) const {
    return std::any_of(m_findings.begin(), m_findings.end(), [&](const Finding& finding) { return finding.rule == rule; });
}

// Files are not always looked for, nor neighbours where a channel is broken.
bool Findings::isJudged(const std::wstring& rule, bool leavesNeighboursOut) const {
    if (rule == L"XC902" && (options.file.empty() || !options.looksForFiles)) return false;
    if (leavesNeighboursOut && rule.compare(0, 3, L"XC3") == 0 && rule != neighboursLeftOut) return false;
    return findRule(rule) == nullptr || wants(rule);  // no rule of that name finds anything, whatever is looked for
}

void Findings::accept() {
    if (m_acceptances.empty()) return;
    AcceptedRules accepted(m_acceptances);
    for (Finding& finding : m_findings)
        finding.isAccepted = accepted.take(finding.rule, finding.element ? finding.element : rootElement(document));
    const bool leavesNeighboursOut = holds(neighboursLeftOut);
    for (const Acceptance& acceptance : m_acceptances)
        if (!accepted.isFound(acceptance) && isJudged(acceptance.rule, leavesNeighboursOut)) addGone(acceptance);
}

void Findings::addGone(const Acceptance& acceptance) {
    const Place place{acceptance.around, addressOf(acceptance.around), L""};
    Finding& finding =
        add(acceptedGone, Severity::Note, place, L"accepts " + acceptance.rule + L", which is not found any more");
    finding.places = {otherPlace(place, acceptance.text)};
    const ElementView above = acceptance.around.parent();
    if (above && above.parent()) return;  // comments are taken out of the root and of sections only
    finding.mend = {MendSafety::Safe, {{L"check", L"--fix", L"--only", acceptedGone, L"FILE"}}};
}

const CheckRule& Findings::ruleOf(const wchar_t* id) {
    const CheckRule*& known = m_rules[id];
    if (known == nullptr) known = findRule(id);
    return *known;
}

Finding& Findings::add(const wchar_t* rule, Severity severity, Place place, std::wstring message) {
    if (!wants(rule)) {
        m_unwanted = Finding();
        return m_unwanted;
    }
    m_findings.push_back({rule,
                          ruleOf(rule).name,
                          severity,
                          place.element,
                          std::move(place.address),
                          std::move(place.device),
                          std::move(message),
                          {},
                          {},
                          false});
    return m_findings.back();
}

std::vector<Finding> Findings::inOrder() {
    std::map<std::pair<Severity, std::wstring_view>, std::vector<std::size_t>> byRule;
    for (std::size_t i = 0; i < m_findings.size(); ++i) {
        const Finding& finding = m_findings[i];
        const bool isAskedFor = options.onlyRules.empty() || isAmong(options.onlyRules, finding.rule);
        if (isAskedFor && (options.givesAccepted || !finding.isAccepted))
            byRule[{finding.severity, finding.rule}].push_back(i);
    }
    std::vector<Finding> ordered;
    ordered.reserve(m_findings.size());
    for (const auto& group : byRule)
        for (const std::size_t index : group.second) {
            ordered.push_back(std::move(m_findings[index]));
            if (isForElements(ordered.back())) ordered.back().mend = Mend();
        }
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

FindingPlace otherPlace(Place place) {
    const ElementView around = place.element.parent();
    const bool isSection = around && !around.parent();
    const bool isValue = !isSection && !place.element.firstChild() && addressOf(place.element) == place.address;
    return {place.element, std::move(place.address), isValue ? std::optional(place.element.text()) : std::nullopt};
}

FindingPlace otherPlace(Place place, const std::wstring& text) { return {place.element, std::move(place.address), text}; }

std::vector<std::wstring> setCommand(const Place& place, const std::wstring& text) {
    std::vector<std::wstring> command{L"set", L"FILE"};
    std::wstring& assignment = command.emplace_back();
    assignment.reserve(place.address.size() + 1 + text.size());
    assignment.append(place.address).append(1, L'=').append(text);
    return command;
}

Mend mendBy(MendSafety safety, std::vector<std::wstring> command) {
    Mend mend;
    mend.safety = safety;
    mend.commands.push_back(std::move(command));
    return mend;
}

std::vector<std::wstring> unsetCommand(const Place& place) { return {L"unset", L"FILE", place.address}; }

}  // namespace XMLConfig::detail
