#include "tools/UpgradeSummary.h"

#include <set>

#include "manager/Upgrade.h"
#include "store/Address.h"
#include "store/ConfigInfoFactory.h"
#include "store/Tokens.h"
#include "tools/NumberTexts.h"
#include "tools/Printable.h"

namespace tool {
namespace {

using XMLConfig::UpgradeChange;
using Kind = UpgradeChange::Kind;

struct Tally {
    std::wstring moved;
    std::set<std::wstring> shared;  // keys that Geometry got
    std::size_t ownGone = 0;        // projectors' values of such keys
    std::size_t joined = 0;
    std::size_t gone = 0;
    std::size_t others = 0;
};

void append(std::wstring& list, const std::wstring& text) { list += (list.empty() ? L"" : L", ") + text; }

std::wstring line(const std::wstring& word, const std::wstring& text) {
    return text.empty() ? L"" : L"  " + word + std::wstring(9 - word.size(), L' ') + printable(text) + L"\n";
}

/// Stored numbers in their shortest digits.
std::wstring shownNumbers(const std::wstring& stored) {
    std::wstring text;
    for (const std::wstring& token : XMLConfig::detail::tokensOf(stored)) append(text, numberText(numberRead(token)));
    return text;
}

std::wstring place(const std::wstring& section, const std::wstring& id, const std::wstring& key) {
    return XMLConfig::addressText({section, id, L"", L"", key});
}

bool isLost(const UpgradeOutcome& outcome, const UpgradeChange& change) {
    for (const XMLConfig::LostDevice& device : outcome.report.lost) {
        if (device.section == change.section && device.id == change.sectionID) return true;
    }
    return false;
}

// A step keeps these of a camera in the device snippet.
bool isJoined(const UpgradeChange& change) {
    static const std::set<std::wstring> keys = {L"CameraType",   L"SerialNumber", L"Model",
                                                L"Resolution_X", L"Resolution_Y", L"Connection"};
    return change.section == L"Camera" && keys.count(change.key) != 0;
}

void addRemoved(Tally& tally, const UpgradeChange& change) {
    if (isJoined(change)) ++tally.joined;
    else if (change.section == L"Projector" && tally.shared.count(change.key) != 0) ++tally.ownGone;
    else ++tally.gone;
}

void add(Tally& tally, const UpgradeChange& change) {
    if (change.kind == Kind::Renamed) return;  // told by the device
    const std::wstring from = place(change.section, change.sectionID, change.key);
    if (change.kind == Kind::Removed) {
        addRemoved(tally, change);
    } else if (change.kind == Kind::Moved && !change.newKey.empty()) {
        append(tally.moved, from + L" -> " + place(change.newSection, L"", change.newKey));
    } else if (tally.shared.count(change.key) == 0 || change.section != L"Geometry") {
        ++tally.others;
    }
}

// Geometry gets settings, or other values of them, that the projectors had, in the same step in which theirs go.
std::set<std::wstring> sharedKeys(const XMLConfig::UpgradeStepReport& step) {
    std::set<std::wstring> ofProjectors;
    for (const UpgradeChange& change : step.changes) {
        if (change.kind == Kind::Removed && change.section == L"Projector") ofProjectors.insert(change.key);
    }
    std::set<std::wstring> keys;
    for (const UpgradeChange& change : step.changes) {
        const bool isWritten = change.kind == Kind::Added || change.kind == Kind::Changed;
        if (isWritten && change.section == L"Geometry" && ofProjectors.count(change.key) != 0) keys.insert(change.key);
    }
    return keys;
}

Tally tallyOf(const UpgradeOutcome& outcome) {
    Tally tally;
    for (const XMLConfig::UpgradeStepReport& step : outcome.report.receipt.steps) {
        tally.shared.merge(sharedKeys(step));
        for (const UpgradeChange& change : step.changes) {
            if (!isLost(outcome, change)) add(tally, change);
        }
    }
    return tally;
}

std::wstring reasonOf(const XMLConfig::LostDevice& device) {
    return device.type.empty() ? L"it states no camera type"
                               : L"cameras of type " + device.type + L" are not known any more";
}

std::wstring renamedText(const UpgradeOutcome& outcome) {
    std::wstring list;
    bool hasCamera = false;
    for (const XMLConfig::DeviceWithNewID& device : outcome.report.renamed) {
        append(list, deviceName(device.section, device.oldID, device.name) + L" -> " + device.newID);
        hasCamera = hasCamera || device.section == L"Camera";
    }
    const bool isUnreferred = hasCamera && outcome.report.dangling.empty();
    return list + (isUnreferred ? L"; nothing refers to the old IDs" : L"");
}

std::wstring danglingLines(const UpgradeOutcome& outcome) {
    std::wstring lines;
    for (const XMLConfig::DanglingReference& reference : outcome.report.dangling) {
        lines +=
            line(L"dangling", reference.address + L" = " + reference.value + L": " + followingCommand(outcome, reference));
    }
    return lines;
}

/// What projectors read otherwise, because they inherit it now.
std::wstring readingsText(const UpgradeOutcome& outcome) {
    constexpr std::size_t mostNamed = 4;
    const auto& others = outcome.report.readOtherwise;
    if (others.empty()) return L"; none reads differently";
    std::wstring list;
    for (std::size_t i = 0; i < others.size() && i < mostNamed; ++i)
        append(list,
               others[i].address + L" " + shownNumbers(others[i].oldValue) + L" -> " + shownNumbers(others[i].newValue));
    return L"; " + std::to_wstring(others.size()) + (others.size() == 1 ? L" reads" : L" read") + L" differently: " + list +
           (others.size() > mostNamed ? L", \u2026" : L"");
}

std::wstring countLines(const Tally& tally, const UpgradeOutcome& outcome) {
    std::wstring text;
    if (!tally.shared.empty())
        text +=
            line(L"shared", counted(tally.shared.size(), L"setting stands", L"settings stand") + L" in Geometry now, " +
                                std::to_wstring(tally.ownGone) + L" of the projectors' own went" + readingsText(outcome));
    if (tally.joined != 0)
        text += line(L"joined", counted(tally.joined, L"setting", L"settings") + L" of cameras into their device snippets");
    if (tally.gone != 0)
        text += line(L"gone", counted(tally.gone, L"setting", L"settings") + L" that version " +
                                  XMLConfig::versionText(ConfigInfoFactory::getLatestFileVersionNumber()) +
                                  L" does not know (--steps lists every change)");
    if (tally.others != 0)
        text += line(L"others", counted(tally.others, L"more change", L"more changes") + L" (--steps lists every change)");
    return text;
}

}  // namespace

std::wstring deviceName(const std::wstring& section, const std::wstring& id, const std::wstring& name) {
    return place(section, id, L"") + (name.empty() ? L"" : L" \"" + name + L"\"");
}

std::wstring followingCommand(const UpgradeOutcome& outcome, const XMLConfig::DanglingReference& reference) {
    return L"xmlconfig set " + fileWord(outcome.report.target) + L" " +
           shellQuoted(reference.address + L"=" + reference.newValue);
}

std::wstring upgradeSummary(const UpgradeOutcome& outcome) {
    const Tally tally = tallyOf(outcome);
    std::wstring text;
    for (const XMLConfig::LostDevice& device : outcome.report.lost) {
        text += line(L"lost", deviceName(device.section, device.id, device.name) + L" with its " +
                                  counted(device.settings, L"setting", L"settings") + L": " + reasonOf(device));
    }
    text += line(L"renamed", renamedText(outcome));
    return text + danglingLines(outcome) + line(L"moved", tally.moved) + countLines(tally, outcome);
}

}  // namespace tool
