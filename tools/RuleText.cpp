#include "tools/RuleText.h"

#include "platform/Utf8.h"
#include "platform/Words.h"
#include "tools/Output.h"

namespace tool {
namespace {

using XMLConfig::CheckRule;
using XMLConfig::detail::lowerAscii;

std::wstring field(const std::wstring& label, const std::wstring& text) {
    constexpr std::size_t width = 14;
    return text.empty() ? L"" : L"  " + label + std::wstring(width - label.size(), L' ') + text + L"\n";
}

/// Whether --fix mends what the rule finds, for people; "" where no mend is known.
std::wstring fixText(const CheckRule& rule) {
    if (*rule.mend == L'\0') return L"";
    if (rule.safety == XMLConfig::MendSafety::None) return L"never";
    return rule.safety == XMLConfig::MendSafety::Safe ? L"safe, done without asking"
                                                      : L"only when asked for: --fix=" + std::wstring(rule.id);
}

}  // namespace

const CheckRule* ruleNamed(const std::wstring& id) { return XMLConfig::findRule(XMLConfig::detail::upperAscii(id)); }

std::wstring ruleIDOf(const std::string& word) {
    if (const CheckRule* const rule = ruleNamed(XMLConfig::wideFromUtf8(word))) return rule->id;
    throw WrongOperands("there is no rule \"" + word + "\"; docs/rules.md and 'xmlconfig describe XC' list all");
}

bool isStartOfRuleIDs(const std::wstring& word) {
    return XMLConfig::detail::upperAscii(word.substr(0, 2)) == L"XC" &&
           word.find_first_not_of(L"0123456789", 2) == std::wstring::npos;
}

Rules rulesBeginning(const std::wstring& word) {
    const std::wstring start = XMLConfig::detail::upperAscii(word);
    Rules rules;
    for (const CheckRule& rule : XMLConfig::checkRules())
        if (std::wstring(rule.id).compare(0, start.size(), start) == 0) rules.push_back(&rule);
    return rules;
}

Rules rulesAbout(const std::wstring& word) {
    const std::wstring wanted = lowerAscii(word);
    Rules rules;
    for (const CheckRule& rule : XMLConfig::checkRules())
        for (const wchar_t* const text : {rule.name, rule.meaning, rule.condition}) {
            if (lowerAscii(text).find(wanted) == std::wstring::npos) continue;
            rules.push_back(&rule);
            break;
        }
    return rules;
}

std::wstring ruleText(const CheckRule& rule) {
    return std::wstring(rule.id) + L" " + rule.name + L", " + rule.severity + L"\n  " + rule.meaning + L"\n" +
           field(L"looks at", rule.looksAt) + field(L"exactly", rule.condition) + field(L"mend", rule.mend) +
           field(L"--fix", fixText(rule));
}

std::wstring ruleIDs(const Rules& rules) {
    std::wstring list;
    for (const CheckRule* const rule : rules) list += (list.empty() ? L"" : L", ") + std::wstring(rule->id);
    return list;
}

Json ruleIDsJson(const Rules& rules) {
    Json list = Json::array();
    for (const CheckRule* const rule : rules) list.push_back(jsonText(rule->id));
    return list;
}

Json ruleJson(const CheckRule& rule) {
    return {{"rule", jsonText(rule.id)},           {"name", jsonText(rule.name)},
            {"severity", jsonText(rule.severity)}, {"meaning", jsonText(rule.meaning)},
            {"looksAt", jsonText(rule.looksAt)},   {"condition", jsonText(rule.condition)},
            {"mend", jsonText(rule.mend)},         {"safety", jsonText(nameOf(rule.safety))}};
}

}  // namespace tool
