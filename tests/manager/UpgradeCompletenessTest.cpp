
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "manager/upgrade/UpgradeChain.h"
#include "tests/manager/UpgradeFiles.h"
#include "tests/support/TemporaryFolder.h"

// What belongs to a step of the chain besides its row. Run in the root of the sources.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using XMLConfig::detail::upgradeChain;
using Names = std::vector<std::string>;

// Without the zeros at the end: "9" for 9.0, "2.005" for 2.005.
std::string shortVersion(double version) {
    std::string text = fileVersion(version);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

std::string sourceOf(double version) {
    std::string number = shortVersion(version);
    number.erase(std::remove(number.begin(), number.end(), '.'), number.end());
    return "manager/upgrade/ToVersion" + number + ".cpp";
}

// How the heading of that version's paragraph begins.
std::string headingOf(double version) {
    const std::string number = shortVersion(version);
    return "\n## " + number + (number.find('.') == std::string::npos ? ".0" : "") + ":";
}

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
