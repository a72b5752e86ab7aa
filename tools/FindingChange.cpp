#include "tools/FindingChange.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "platform/Utf8.h"
#include "tools/CheckText.h"
#include "tools/NumberTexts.h"

namespace tool {
namespace {

using XMLConfig::Finding;
using XMLConfig::Severity;
using Key = std::tuple<std::wstring, std::wstring, std::wstring>;

Key keyOf(const Finding& finding) { return {finding.rule, finding.address, finding.message}; }

/// The findings that `others` lacks; one that `findings` holds twice counts as lacking unless `others` holds it twice, too.
std::vector<Finding> without(const std::vector<Finding>& findings, const std::vector<Finding>& others) {
    std::multiset<Key> known;
    for (const Finding& other : others) known.insert(keyOf(other));
    std::vector<Finding> result;
    for (const Finding& finding : findings) {
        const auto same = known.find(keyOf(finding));
        if (same == known.end()) result.push_back(finding);
        else known.erase(same);
    }
    return result;
}

bool wasError(const Finding& finding, const std::vector<Finding>& before) {
    return std::any_of(before.begin(), before.end(), [&](const Finding& old) {
        return old.severity == Severity::Error && old.rule == finding.rule && old.address == finding.address;
    });
}

}  // namespace

std::vector<Finding> findingsOf(const ConfigInfo& document, const std::string& file) {
    XMLConfig::CheckOptions options;
    options.file = XMLConfig::wideFromUtf8(file);
    options.looksForFiles = false;
    std::vector<Finding> findings = XMLConfig::check(document, options);
    for (Finding& finding : findings) {
        finding.element = {};
        for (XMLConfig::FindingPlace& place : finding.places) place.element = {};
    }
    return findings;
}

FindingChange compareFindings(const std::vector<Finding>& before, const std::vector<Finding>& after) {
    FindingChange change{without(after, before), without(before, after), 0};
    for (const Finding& finding : change.fresh)
        if (finding.severity == Severity::Error && !wasError(finding, before)) ++change.newErrors;
    return change;
}

std::wstring findingCounts(const FindingChange& change) {
    std::wstring text = L", " + counted(change.fresh.size(), L"new finding");
    if (change.solved.empty()) return text;
    std::set<std::wstring> rules;
    for (const Finding& finding : change.solved) rules.insert(finding.rule);
    text += L", " + std::to_wstring(change.solved.size()) + L" solved (";
    for (const std::wstring& rule : rules) text += (rule == *rules.begin() ? L"" : L", ") + rule;
    return text + L")";
}

std::wstring findingLines(const std::vector<Finding>& findings, const Showing& showing, bool isColoured) {
    std::wstring text;
    for (const Finding& finding : findings) text += findingText(finding, showing, isColoured) + L"\n";
    return text;
}

std::wstring errorLines(const FindingChange& change, const Showing& showing) {
    std::wstring lines;
    for (const Finding& finding : change.fresh)
        if (finding.severity == Severity::Error)
            lines += (lines.empty() ? L"" : L"\n") + findingText(finding, showing, false);
    return lines;
}

Json jsonOf(const std::vector<Finding>& findings) {
    Json json = Json::array();
    for (const Finding& finding : findings)
        json.push_back({{"rule", jsonText(finding.rule)},
                        {"name", jsonText(finding.name)},
                        {"severity", jsonText(nameOf(finding.severity))},
                        {"address", jsonText(finding.address)},
                        {"message", jsonText(finding.message)}});
    return json;
}

}  // namespace tool
