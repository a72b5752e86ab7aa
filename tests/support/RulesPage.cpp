#include "tests/support/RulesPage.h"

#include "manager/CheckRules.h"

namespace XMLConfig::detail {
namespace {

constexpr const wchar_t* introduction =
    L"# Rules\n"
    L"\n"
    L"What `xmlconfig check` and `XMLConfig::check` look for, made from the table of the rules. An error means that a run "
    L"cannot be\n"
    L"right, or that the application reads something else than the file seems to say; a warning, that something is probably "
    L"wrong; a\n"
    L"note is worth knowing. A mend that is safe changes nothing that works; one that is only for who asks may.\n";

struct Group {
    wchar_t digit;
    const wchar_t* title;
};
constexpr Group groups[] = {{L'1', L"Form"},    {L'2', L"Devices and references"}, {L'3', L"Channels"},
                            {L'4', L"Picture"}, {L'5', L"Screen and target"},      {L'6', L"Cameras and measuring"},
                            {L'7', L"Network"}, {L'9', L"Effect and files"}};

std::wstring cell(const std::wstring& text) {
    std::wstring result;
    for (const wchar_t c : text) {
        if (c == L'|' || c == L'*' || c == L'_' || c == L'<') result += L'\\';
        result += c;
    }
    return result;
}

std::wstring mendOf(const CheckRule& rule) {
    const std::wstring mend = cell(rule.mend);
    if (mend.empty() || rule.safety == MendSafety::None) return mend;
    return mend + (rule.safety == MendSafety::Safe ? L" (safe)" : L" (when asked)");
}

std::wstring row(const CheckRule& rule) {
    return L"| " + std::wstring(rule.id) + L" | " + rule.name + L" | " + rule.severity + L" | " + cell(rule.meaning) +
           L" | " + cell(rule.looksAt) + L" | " + cell(rule.condition) + L" | " + mendOf(rule) + L" |\n";
}

}  // namespace

std::wstring rulesPage() {
    std::wstring page = introduction;
    for (const Group& group : groups) {
        page += L"\n## " + std::wstring(group.title) +
                L"\n\n| rule | name | severity | meaning | looks at | exactly | mend |\n|---|---|---|---|---|---|---|\n";
        for (const CheckRule& rule : checkRules())
            if (rule.id[2] == group.digit) page += row(rule);
    }
    return page;
}

}  // namespace XMLConfig::detail
