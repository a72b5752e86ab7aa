#include "tools/UpgradeText.h"

#include "manager/Upgrade.h"
#include "platform/Utf8.h"
#include "store/Address.h"
#include "tools/Json.h"
#include "tools/Printable.h"
#include "tools/UpgradeSummary.h"

namespace tool {
namespace {

using XMLConfig::UpgradeChange;

const char* nameOf(UpgradeChange::Kind kind) {
    switch (kind) {
        case UpgradeChange::Kind::Added:
            return "added";
        case UpgradeChange::Kind::Changed:
            return "changed";
        case UpgradeChange::Kind::Moved:
            return "moved";
        case UpgradeChange::Kind::Renamed:
            return "renamed";
        case UpgradeChange::Kind::Removed:
            break;
    }
    return "removed";
}

// The text on one line: without its line breaks and the blanks after them. An empty one in quotes, so that it is seen.
std::wstring oneLine(const std::wstring& text) {
    std::wstring line;
    bool isAfterBreak = false;
    for (const wchar_t character : text) {
        const bool isBreak = character == L'\n' || character == L'\r' || character == L'\t';
        if (!isBreak && !(isAfterBreak && character == L' ')) line += character;
        isAfterBreak = isBreak || (isAfterBreak && character == L' ');
    }
    return line.empty() ? L"\"\"" : line;
}

std::wstring placeOf(const UpgradeChange& change) {
    return XMLConfig::addressText({change.section, change.sectionID, L"", L"", change.key});
}

std::wstring placeAfter(const UpgradeChange& change) {
    return XMLConfig::addressText({change.newSection, L"", L"", L"", change.newKey});
}

std::wstring whatHappened(const UpgradeChange& change) {
    const std::wstring before = oneLine(change.oldValue);
    const std::wstring after = oneLine(change.newValue);
    switch (change.kind) {
        case UpgradeChange::Kind::Added:
            return change.key.empty() ? L"" : L" = " + after;
        case UpgradeChange::Kind::Removed:
            return change.key.empty() ? L", the whole section" : L" (was " + before + L")";
        case UpgradeChange::Kind::Moved:
            return change.newKey.empty() ? L"" : L" -> " + placeAfter(change) + L" = " + after;
        case UpgradeChange::Kind::Renamed:
            return L" -> " + after;
        case UpgradeChange::Kind::Changed:
            break;
    }
    return L": " + before + L" -> " + after;
}

Json jsonOf(const UpgradeChange& change) {
    Json json = {{"kind", nameOf(change.kind)},           {"section", jsonText(change.section)},
                 {"id", jsonText(change.sectionID)},      {"key", jsonText(change.key)},
                 {"oldValue", jsonText(change.oldValue)}, {"newValue", jsonText(change.newValue)}};
    if (!change.newKey.empty()) {
        json["newSection"] = jsonText(change.newSection);
        json["newKey"] = jsonText(change.newKey);
    }
    return json;
}

Json jsonOf(const XMLConfig::UpgradeStepReport& step) {
    Json changes = Json::array();
    for (const UpgradeChange& change : step.changes) changes.push_back(jsonOf(change));
    return {{"version", step.version}, {"summary", jsonText(step.summary)}, {"changes", changes}};
}

void addLosses(Json& json, const UpgradeOutcome& outcome) {
    for (const char* const member : {"lost", "renamed", "dangling", "readOtherwise"}) json[member] = Json::array();
    for (const auto& device : outcome.report.lost) {
        json["lost"].push_back({{"section", jsonText(device.section)},
                                {"id", jsonText(device.id)},
                                {"name", jsonText(device.name)},
                                {"settings", device.settings}});
    }
    for (const auto& device : outcome.report.renamed) {
        json["renamed"].push_back({{"section", jsonText(device.section)},
                                   {"name", jsonText(device.name)},
                                   {"old", jsonText(device.oldID)},
                                   {"new", jsonText(device.newID)}});
    }
    for (const auto& reference : outcome.report.dangling) {
        json["dangling"].push_back({{"address", jsonText(reference.address)},
                                    {"oldValue", jsonText(reference.value)},
                                    {"newValue", jsonText(reference.newValue)},
                                    {"command", jsonText(followingCommand(outcome, reference))}});
    }
    for (const auto& value : outcome.report.readOtherwise) {
        json["readOtherwise"].push_back({{"address", jsonText(value.address)},
                                         {"oldValue", jsonText(value.oldValue)},
                                         {"newValue", jsonText(value.newValue)}});
    }
}

Json jsonOf(const UpgradeOutcome& outcome) {
    Json json = {{"file", jsonText(outcome.file)}};
    if (!outcome.fault.empty()) {
        json["status"] = "failed";
        json["error"] = jsonText(printable(outcome.fault));
        return json;
    }
    const bool isUpgraded = outcome.report.status == XMLConfig::Upgraded;
    json["status"] = isUpgraded ? "upgraded" : "current";
    json["target"] = jsonText(outcome.report.target);
    if (!outcome.report.backup.empty()) json["backup"] = jsonText(outcome.report.backup);
    if (!isUpgraded) return json;
    json["from"] = outcome.report.receipt.fromVersion;
    json["to"] = outcome.report.receipt.toVersion;
    addLosses(json, outcome);
    json["steps"] = Json::array();
    for (const auto& step : outcome.report.receipt.steps) json["steps"].push_back(jsonOf(step));
    return json;
}

}  // namespace

UpgradeCounts countOf(const std::vector<UpgradeOutcome>& outcomes) {
    UpgradeCounts counts;
    for (const UpgradeOutcome& outcome : outcomes) {
        if (!outcome.report.lost.empty()) ++counts.lost;
        if (!outcome.fault.empty()) ++counts.failed;
        else if (outcome.report.status == XMLConfig::Upgraded) ++counts.upgraded;
        else ++counts.current;
    }
    return counts;
}

std::wstring upgradeLine(const UpgradeOutcome& outcome, bool namesLost) {
    const XMLConfig::UpgradeFileReport& report = outcome.report;
    std::wstring line = outcome.file + L": ";
    if (report.status == XMLConfig::Upgraded) {
        line += L"version " + XMLConfig::versionText(report.receipt.fromVersion) + L" -> " +
                XMLConfig::versionText(report.receipt.toVersion);
    } else {
        line += L"at the latest version already";
    }
    if (report.target != outcome.file) line += L", in " + report.target;
    if (!report.backup.empty()) line += L", the old file is " + report.backup;
    for (const auto& device : report.lost)
        if (namesLost) line += L", lost " + deviceName(device.section, device.id, device.name);
    return printable(outcome.isDryRun ? line + L" (dry run, nothing written)" : line);
}

std::wstring explanation(const XMLConfig::UpgradeReceipt& receipt) {
    std::wstring text;
    for (const auto& step : receipt.steps) {
        text += L"  to " + XMLConfig::versionText(step.version) + L": " + step.summary + L"\n";
        if (step.changes.empty()) text += L"    nothing to do\n";
        for (const UpgradeChange& change : step.changes) {
            text += L"    " + XMLConfig::wideFromUtf8(nameOf(change.kind)) + L" " +
                    printable(placeOf(change) + whatHappened(change)) + L"\n";
        }
    }
    return text;
}

std::wstring countLine(const std::vector<UpgradeOutcome>& outcomes) {
    const UpgradeCounts counts = countOf(outcomes);
    return XMLConfig::wideFromUtf8(std::to_string(counts.upgraded) + " upgraded, " + std::to_string(counts.current) +
                                   " at the latest version already, " + std::to_string(counts.failed) + " failed" +
                                   (counts.lost == 0 ? "" : "; " + std::to_string(counts.lost) + " lost something"));
}

std::wstring upgradeJson(const std::vector<UpgradeOutcome>& outcomes, int exitStatus) {
    const UpgradeCounts counts = countOf(outcomes);
    Json json = {{"format", 1},
                 {"verb", "upgrade"},
                 {"dryRun", !outcomes.empty() && outcomes.front().isDryRun},
                 {"upgraded", counts.upgraded},
                 {"current", counts.current},
                 {"failed", counts.failed},
                 {"files", Json::array()}};
    for (const UpgradeOutcome& outcome : outcomes) json["files"].push_back(jsonOf(outcome));
    json["exit"] = exitStatus;
    return XMLConfig::wideFromUtf8(json.dump(2)) + L"\n";
}

}  // namespace tool
