#include "tools/RuleText.h"

#include "manager/CheckRules.h"

namespace tool {
namespace {

std::wstring field(const std::wstring& label, const std::wstring& text) {
    constexpr std::size_t width = 14;
    return text.empty() ? L"" : L"  " + label + std::wstring(width - label.size(), L' ') + text + L"\n";
}

}  // namespace

std::wstring ruleText(const std::wstring& id) {
    std::wstring upper = id;
    for (wchar_t& letter : upper)
        if (letter >= L'a' && letter <= L'z') letter = static_cast<wchar_t>(letter - L'a' + L'A');
    const XMLConfig::CheckRule* const rule = XMLConfig::findRule(upper);
    if (rule == nullptr) return {};
    return std::wstring(rule->id) + L" " + rule->name + L", " + rule->severity + L"\n  " + rule->meaning + L"\n" +
           field(L"looks at", rule->looksAt) + field(L"exactly", rule->condition) + field(L"mend", rule->mend);
}

}  // namespace tool
