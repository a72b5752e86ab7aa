#include <algorithm>

#include <gtest/gtest.h>

#include "manager/Upgrade.h"
#include "manager/upgrade/UpgradeChain.h"
#include "store/ConfigInfoFactory.h"
#include "tests/manager/UpgradeFiles.h"
#include "tests/support/GoldenFile.h"
#include "tests/support/SteppedDocument.h"
#include "tests/support/TestDocument.h"

// Run in the root of the sources. The expected files are reasoned, not recorded: whoever changes one says why.

using XMLConfig::detail::UpgradeStep;

namespace {

class StepFiles : public testing::TestWithParam<UpgradeStep> {};

class ChainFiles : public testing::TestWithParam<HistoricalFile> {};

std::string testName(std::string version) {
    std::replace(version.begin(), version.end(), '.', '_');
    return "Version" + version;
}

}  // namespace

TEST_P(StepFiles, GiveWhatIsExpected) {
    const std::string version = fileVersion(GetParam().below);
    const TestDocument document(TemporaryFolder::readFile(stepInput(version)));
    applyAlone(GetParam().apply, *document);
    EXPECT_TRUE(matchesGolden(stepOutcome(version), document.text()));
}

INSTANTIATE_TEST_SUITE_P(Upgrade, StepFiles, testing::ValuesIn(XMLConfig::detail::upgradeChain),
                         [](const auto& test) { return testName(fileVersion(test.param.below)); });

TEST_P(ChainFiles, GiveWhatIsExpected) {
    const TestDocument document(TemporaryFolder::readFile(GetParam().path));
    const bool isLatest = document->getVersion() == ConfigInfoFactory::getLatestFileVersionNumber();
    const auto status = isLatest ? XMLConfig::NoUpgradeRequired : XMLConfig::Upgraded;
    EXPECT_EQ(XMLConfig::upgradeDocument(*document), status);
    EXPECT_TRUE(matchesGolden(chainOutcome(GetParam().version), document.text()));
}

INSTANTIATE_TEST_SUITE_P(Upgrade, ChainFiles, testing::ValuesIn(historicalFiles("examples/history")),
                         [](const auto& test) { return testName(test.param.version); });
