#include "tools/MendAdvice.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/Utf8.h"
#include "tools/Mending.h"
#include "tools/NumberTexts.h"
#include "tools/Printable.h"

namespace tool {
namespace {

using XMLConfig::Finding;
using XMLConfig::MendSafety;
using XMLConfig::Severity;
using Places = std::vector<CheckedFile::Place>;

bool isMendedWhenAsked(const Finding& finding) {
    return finding.mend.safety == MendSafety::Asked && !finding.mend.commands.empty();
}

/// Whether it stops --fix=..., whatever rules that names.
bool stopsEveryFix(const Finding& finding) {
    const bool isMended = isMendedWhenAsked(finding) || isMendedByFix(finding);
    return finding.rule == L"XC101" || (forbidsMending(finding) && !isMended);
}

/// "2 errors, 1 warning".
std::wstring countsText(const std::map<Severity, std::size_t>& counts) {
    std::wstring text;
    for (const auto& [severity, count] : counts) text += (text.empty() ? L"" : L", ") + counted(count, nameOf(severity));
    return text;
}

std::wstring fixLine(const Places& findings, const std::wstring& file) {
    std::set<std::wstring> rules;
    std::map<Severity, std::size_t> counts;
    for (const CheckedFile::Place& place : findings) {
        if (stopsEveryFix(place.finding)) return L"";
        if (!isMendedWhenAsked(place.finding)) continue;
        rules.insert(place.finding.rule);
        ++counts[place.finding.severity];
    }
    std::wstring list;
    for (const std::wstring& rule : rules) list += (list.empty() ? L"" : L",") + rule;
    return list.empty() ? L""
                        : L"  to mend " + countsText(counts) + L": xmlconfig check --fix=" + list + L" " + file + L"\n";
}

std::wstring commandLine(const Finding& finding, const std::wstring& file) {
    std::wstring line = L"  to mend " + finding.rule + L": xmlconfig";
    for (const std::wstring& word : finding.mend.commands[0])
        line += L" " + (word == L"FILE" ? file : printable(shellWord(word)));
    return line + L"\n";
}

}  // namespace

std::wstring mendAdvice(const Places& findings, const std::string& file) {
    constexpr std::size_t most = 3;
    if (file == "-") return L"";
    const std::wstring word = printable(fileWord(XMLConfig::wideFromUtf8(file)));
    std::wstring lines = fixLine(findings, word);
    std::size_t count = 0;
    for (const CheckedFile::Place& place : findings) {
        const Finding& finding = place.finding;
        const bool hasCommand = finding.mend.safety == MendSafety::None && !finding.mend.commands.empty();
        if (hasCommand && finding.severity != Severity::Note && count++ < most) lines += commandLine(finding, word);
    }
    return lines;
}

}  // namespace tool
