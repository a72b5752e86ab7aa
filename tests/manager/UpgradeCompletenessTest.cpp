#include <iterator>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "manager/CheckRules.h"
#include "manager/check/GoneSettings.h"
#include "manager/upgrade/StepDocument.h"
#include "manager/upgrade/UpgradeChain.h"
#include "tests/manager/TestManager.h"
#include "tests/manager/UpgradeFiles.h"
#include "tests/support/StepRemovals.h"
#include "tests/support/TemporaryFolder.h"

// What belongs to a step of the chain besides its row. Run in the root of the sources.

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using XMLConfig::detail::toUtf8;
using XMLConfig::detail::upgradeChain;
using Names = std::vector<std::string>;

std::string sourceOf(double version) {
    std::string number = shortVersion(version);
    number.erase(std::remove(number.begin(), number.end(), '.'), number.end());
    return "manager/upgrade/ToVersion" + number + ".cpp";
}

// How the heading of that version's paragraph begins.
std::string headingOf(double version) { return "\n## " + spokenVersion(version) + ":"; }

// An example that this step is the first to touch.
bool hasExample(double from, double below) {
    const auto files = historicalFiles("examples/history");
    return std::any_of(files.begin(), files.end(), [&](const HistoricalFile& file) {
        const double version = XMLConfig::detail::leadingDouble(XMLConfig::detail::fromUtf8(file.version));
        return from <= version && version < below;
    });
}

// What a step that leads from one version to the next has not got.
Names missingOfStep(double from, double to) {
    Names missing;
    const auto want = [&](bool isThere, const std::string& what) {
        if (!isThere) missing.push_back(what);
    };
    const std::string version = fileVersion(to);
    want(std::filesystem::exists(sourceOf(to)), sourceOf(to));
    want(std::filesystem::exists(stepInput(version)), stepInput(version).string());
    want(std::filesystem::exists(stepOutcome(version)), stepOutcome(version).string());
    want(TemporaryFolder::readFile("docs/migrations.md").find(headingOf(to)) != std::string::npos,
         "docs/migrations.md:" + headingOf(to).substr(1));
    want(hasExample(from, to), "examples/history/dome-" + fileVersion(from) + ".skorrax or later, below " + version);
    return missing;
}

Names stepSources() {
    Names sources;
    for (const auto& entry : std::filesystem::directory_iterator("manager/upgrade")) {
        const std::string name = entry.path().generic_string();
        if (name.find("/ToVersion") != std::string::npos) sources.push_back(name);
    }
    return sources;
}

std::wstring conditionOf(const std::wstring& rule) {
    const XMLConfig::CheckRule* const found = XMLConfig::findRule(rule);
    return found == nullptr ? L"no such rule" : found->condition;
}

// The row's keys, a numbered one with the number 1.
std::vector<std::wstring> keysOf(const XMLConfig::detail::GoneSettings& row) {
    std::wistringstream words{std::wstring(row.keys)};
    std::vector<std::wstring> keys{std::istream_iterator<std::wstring, wchar_t>(words), {}};
    for (std::wstring& key : keys)
        if (key.back() == L'*') key.back() = L'1';
    return keys;
}

}  // namespace

TEST(UpgradeChain, EveryStepHasAllThatBelongsToIt) {
    double from = 0.0;
    for (const auto& step : upgradeChain) {
        EXPECT_THAT(missingOfStep(from, step.below), IsEmpty());
        EXPECT_NE(std::wstring(step.summary), L"") << step.below;
        from = step.below;
    }
    EXPECT_TRUE(hasExample(from, from + 0.001)) << "no example of the latest version";
}

TEST(UpgradeChain, EverySettingThatAStepTakesAwayIsKnownToBeGone) {
    EXPECT_THAT(missingAmongGone(removalsOfChain()), IsEmpty());
}

TEST(UpgradeChain, EverySettingThatIsKnownToBeGoneIsTakenAwayInItsRelease) {
    const Removals removals = removalsOfChain();
    for (const auto& row : XMLConfig::detail::goneSettings) {
        for (const std::wstring& key : keysOf(row)) {
            const auto found = removals.find({row.section, key});
            EXPECT_EQ(found == removals.end() ? "none" : spokenVersion(found->second), toUtf8(row.release))
                << toUtf8(row.section) << "/" << toUtf8(key);
        }
    }
}

TEST(UpgradeChain, SettingThatIsNotAmongTheGoneIsNamed) {
    const auto removeSome = [](XMLConfig::detail::StepDocument& converted) {
        ConfigInfo& document = converted.stored();
        document.removeItem(L"Screen", L"Never_Listed", L"");
        document.removeItem(L"Screen", L"Eye_Point", L"");  // gone before
        document.removeItem(L"Screen", L"Shape", L"");      // of today
    };
    const XMLConfig::detail::UpgradeStep step{90.5, L"a step", removeSome};
    const std::string items = "<Never_Listed>1</Never_Listed><Eye_Point>1</Eye_Point><Shape>Sphere</Shape>";
    EXPECT_THAT(missingAmongGone(removalsOf(step, fileText("<Screen>" + items + "</Screen>"))),
                ElementsAre("manager/check/GoneSettings.h: Screen/Eye_Point goes in 90.5",
                            "manager/check/GoneSettings.h: Screen/Never_Listed goes in 90.5"));
}

TEST(UpgradeChain, TextsThatNameTheLatestVersionAreOfToday) {
    const std::string latest = spokenVersion(XMLConfig::detail::latestFileVersion);
    EXPECT_EQ(toUtf8(conditionOf(L"XC101")), "Version below " + latest);
    EXPECT_EQ(toUtf8(conditionOf(L"XC102")), "Version above " + latest);
    EXPECT_THAT(TemporaryFolder::readFile("README.md"), HasSubstr("files of any older release up to version " + latest));
    EXPECT_THAT(TemporaryFolder::readFile("docs/file-format.md"),
                AllOf(HasSubstr("Files of any version below " + latest + " are brought up to date"),
                      HasSubstr("<Version>" + fileVersion(XMLConfig::detail::latestFileVersion) + "</Version>")));
}

TEST(UpgradeChain, EveryStepSourceHasARow) {
    Names rows;
    for (const auto& step : upgradeChain) rows.push_back(sourceOf(step.below));
    EXPECT_THAT(stepSources(), testing::UnorderedElementsAreArray(rows));
}

TEST(UpgradeChain, EveryHistoricalFileHasItsOutcome) {
    for (const HistoricalFile& file : historicalFiles("examples/history")) {
        EXPECT_TRUE(std::filesystem::exists(chainOutcome(file.version))) << chainOutcome(file.version);
    }
}

TEST(UpgradeChain, WhatAStepHasNotGotIsNamed) {
    EXPECT_THAT(missingOfStep(90.0, 90.5),
                ElementsAre("manager/upgrade/ToVersion905.cpp", "tests/golden/steps/to-90.500.in.xml",
                            "tests/golden/steps/to-90.500.expected.xml",
                            "docs/migrations.md:## 90.5:", "examples/history/dome-90.000.skorrax or later, below 90.500"));
}
