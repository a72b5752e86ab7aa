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
using LocatedFindings = std::vector<CheckedFile::LocatedFinding>;

bool isMendedWhenAsked(const Finding& finding) {
    return finding.mend.safety == MendSafety::Asked && !finding.mend.commands.empty();
}

/// Whether it stops --fix=..., whatever rules that names.
bool stopsEveryFix(const Finding& finding) {
    return forbidsMending(finding) && !isMendedWhenAsked(finding) && !isMendedByFix(finding);
}

bool isOfOldFile(const CheckedFile::LocatedFinding& located) { return located.finding.rule == L"XC101"; }

/// "2 errors, 1 warning".
std::wstring countsText(const std::map<Severity, std::size_t>& counts) {
    std::wstring text;
    for (const auto& [severity, count] : counts) text += (text.empty() ? L"" : L", ") + counted(count, nameOf(severity));
    return text;
}

std::wstring fixLine(const LocatedFindings& findings, const std::wstring& file) {
    std::set<std::wstring> rules;
    std::map<Severity, std::size_t> counts;
    for (const CheckedFile::LocatedFinding& located : findings) {
        if (stopsEveryFix(located.finding)) return L"";
        if (!isMendedWhenAsked(located.finding)) continue;
        rules.insert(located.finding.rule);
        ++counts[located.finding.severity];
    }
    std::wstring list;
    for (const std::wstring& rule : rules) list += (list.empty() ? L"" : L",") + rule;
    return list.empty() ? L""
                        : L"  to mend " + countsText(counts) + L": xmlconfig check --fix=" + list + L" " + file + L"\n";
}

}  // namespace

std::wstring mendAdvice(const LocatedFindings& findings, const std::string& file) {
    if (file == "-") return L"";
    const std::wstring word = printable(fileWord(XMLConfig::wideFromUtf8(file)));
    const bool isOld = std::any_of(findings.begin(), findings.end(), isOfOldFile);
    return isOld ? L"  to upgrade it: xmlconfig upgrade " + word + L"\n" : fixLine(findings, word);
}

}  // namespace tool
