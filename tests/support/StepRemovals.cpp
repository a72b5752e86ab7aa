#include "tests/support/StepRemovals.h"

#include <filesystem>
#include <regex>
#include <set>

#include "manager/SettingSearch.h"
#include "manager/check/GoneSettings.h"
#include "manager/upgrade/StepRecorder.h"
#include "platform/Text.h"
#include "tests/manager/TestManager.h"
#include "tests/manager/UpgradeFiles.h"
#include "tests/support/SteppedDocument.h"
#include "tests/support/TestDocument.h"

using XMLConfig::UpgradeChange;
using XMLConfig::detail::toUtf8;
using XMLConfig::detail::UpgradeStep;
using Words = std::set<std::string>;

namespace {

std::string sourcesOfSteps() {
    std::string text;
    for (const auto& entry : std::filesystem::directory_iterator("manager/upgrade"))
        text += TemporaryFolder::readFile(entry.path());
    return text;
}

// What the pattern's first group finds in the text.
Words wordsIn(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    Words words;
    for (auto found = std::sregex_iterator(text.begin(), text.end(), expression); found != std::sregex_iterator(); ++found)
        words.insert((*found)[1]);
    return words;
}

// Every name that can be a key or the part of one, alone and as the beginning of a numbered key.
std::string itemsNamedIn(const std::string& sources) {
    std::string items;
    for (const std::string& word : wordsIn(sources, R"re(["|]([A-Za-z_]\w*)(?=["|]))re")) {
        for (const char* number : {"", "0", "1"})
            items.append("<").append(word).append(number).append(">0</").append(word).append(number).append(">");
    }
    return items;
}

Words sectionsNamedIn(const std::string& sources) {
    Words sections = wordsIn(sources, R"re(StepSection[^;"]*document, L"(\w+)")re");
    for (const std::wstring& name : XMLConfig::sectionNames()) sections.insert(toUtf8(name));
    for (const auto& row : XMLConfig::detail::goneSettings) sections.insert(toUtf8(row.section));
    return sections;
}

std::string documentOfAllKeys() {
    const std::string sources = sourcesOfSteps();
    const std::string items = itemsNamedIn(sources);
    std::string sections;
    for (const std::string& name : sectionsNamedIn(sources))
        sections.append("<").append(name).append(" ID=\"1\">").append(items).append("</").append(name).append(">");
    return fileText(sections, "1.000");
}

bool isKnownToday(const UpgradeChange& change) {
    const XMLConfig::Address address{change.section, {}, {}, {}, change.key};
    return XMLConfig::knownSetting(address) != nullptr || XMLConfig::isGroupOfSettings(address);
}

void noteRemovals(Removals& removals, const XMLConfig::UpgradeStepReport& report) {
    for (const UpgradeChange& change : report.changes) {
        const bool isTaken = change.kind == UpgradeChange::Kind::Removed || change.kind == UpgradeChange::Kind::Moved;
        if (!isTaken || change.key.empty() || isKnownToday(change)) continue;
        double& version = removals[{change.section, change.key}];
        version = std::max(version, report.version);
    }
}

void noteRemovals(Removals& removals, const UpgradeStep& step, const std::string& text) {
    const TestDocument document(text);
    XMLConfig::detail::StepRecorder recorder(*document, step);
    applyAlone(step.apply, *document);
    noteRemovals(removals, recorder.takeReport());
}

}  // namespace

Removals removalsOf(const UpgradeStep& step, const std::string& text) {
    Removals removals;
    noteRemovals(removals, step, text);
    return removals;
}

Removals removalsOfChain() {
    Removals removals;
    const std::string allKeys = documentOfAllKeys();
    for (const UpgradeStep& step : XMLConfig::detail::upgradeChain) {
        noteRemovals(removals, step, allKeys);
        const std::filesystem::path input = stepInput(fileVersion(step.below));
        if (std::filesystem::exists(input)) noteRemovals(removals, step, TemporaryFolder::readFile(input));
    }
    for (const HistoricalFile& file : historicalFiles("examples/history")) {
        const TestDocument document(TemporaryFolder::readFile(file.path));
        XMLConfig::UpgradeReceipt receipt;
        XMLConfig::upgradeDocument(*document, &receipt);
        for (const auto& report : receipt.steps) noteRemovals(removals, report);
    }
    return removals;
}

std::vector<std::string> missingAmongGone(const Removals& removals) {
    std::vector<std::string> missing;
    for (const auto& [name, version] : removals) {
        const wchar_t* const release = XMLConfig::detail::releaseWithout(name.first, name.second);
        if (release != nullptr && toUtf8(release) == spokenVersion(version)) continue;
        missing.push_back("manager/check/GoneSettings.h: " + toUtf8(name.first + L"/" + name.second) + " goes in " +
                          spokenVersion(version));
    }
    return missing;
}
