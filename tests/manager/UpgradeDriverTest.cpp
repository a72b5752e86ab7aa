#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "manager/Upgrade.h"
#include "manager/upgrade/UpgradeChain.h"
#include "manager/upgrade/VersionUpgrade.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestDocument.h"
#include "tests/support/Thrown.h"

using testing::ElementsAre;
using XMLConfig::detail::doFileVersionConversion;

namespace {

constexpr const char* upgradeLogger = "Ulvano.XMLConfig.VersionUpgrade";

LogLine line(const char* level, const std::string& text) { return {upgradeLogger, level, text}; }

// The versions that the applied steps lead to.
std::vector<double> stepsFor(const std::string& version) {
    const TestDocument document(fileText("", version));
    XMLConfig::UpgradeReceipt receipt;
    EXPECT_EQ(XMLConfig::upgradeDocument(*document, &receipt), XMLConfig::Upgraded) << version;
    std::vector<double> versions;
    for (const auto& step : receipt.steps) versions.push_back(step.version);
    return versions;
}

// The versions that the chain's steps lead to, from this one on.
std::vector<double> stepsFrom(double first) {
    std::vector<double> versions;
    for (const auto& step : XMLConfig::detail::upgradeChain) {
        if (step.below >= first) versions.push_back(step.below);
    }
    return versions;
}

/// Throws after so many steps.
struct ThrowingObserver : XMLConfig::UpgradeObserver {
    explicit ThrowingObserver(std::size_t count) : left(count) {}
    void upgradeBegins(double /*from*/, double /*to*/) override {}
    void stepDone(XMLConfig::UpgradeStepReport /*step*/) override {
        if (--left == 0) throw std::runtime_error("enough");
    }
    std::size_t left;
};

}  // namespace

TEST(UpgradeDriver, LeavesTheDocumentOfAnUpgradeThatFails) {
    const std::string old = TemporaryFolder::readFile("examples/history/dome-1.500.skorra");
    const TestDocument document(old);
    const std::string before = document.text();
    for (std::size_t count = 1; count <= stepsFrom(1.5).size(); ++count) {
        ThrowingObserver observer(count);
        EXPECT_THROW(XMLConfig::upgradeDocument(*document, &observer), std::runtime_error);
        EXPECT_EQ(document.text(), before) << count;
        EXPECT_FALSE(document->isDirty());
        EXPECT_EQ(document->getVersion(), 1.5);
    }
    EXPECT_EQ(XMLConfig::upgradeDocument(*document), XMLConfig::Upgraded);
    EXPECT_NE(document.text(), before);
}

TEST(UpgradeDriver, NullDocumentFailsWithoutALogLine) {
    const LogCapture log;
    EXPECT_EQ(doFileVersionConversion(nullptr), 2);
    EXPECT_TRUE(log.lines().empty());
}

TEST(UpgradeDriver, LatestVersionIsLeftUntouched) {
    const LogCapture log;
    const TestDocument document(fileText("<Screen><Unit>Feet</Unit></Screen>"));
    const std::string before = document.text();
    EXPECT_EQ(doFileVersionConversion(&*document), 0);
    EXPECT_EQ(document.text(), before);
    EXPECT_FALSE(document->isDirty());
    EXPECT_THAT(log.linesOf(upgradeLogger),
                ElementsAre(line("TRACE", "doFileVersionConversion(" + latestVersion + ") -> " + latestVersion),
                            line("INFO", "   -> already at current version - no conversion req'd")));
}

TEST(UpgradeDriver, NewerVersionIsLeftUntouched) {
    const LogCapture log;
    const TestDocument document(fileText("<Screen><Unit>Feet</Unit></Screen>", "9.001"));
    const std::string before = document.text();
    EXPECT_EQ(doFileVersionConversion(&*document), 2);
    EXPECT_EQ(document.text(), before);
    EXPECT_THAT(log.linesOf(upgradeLogger), ElementsAre(line("TRACE", "doFileVersionConversion(9.001) -> " + latestVersion),
                                                        line("ERROR", "   -> ERROR:  unsupported file version #: 9.001")));
}

TEST(UpgradeDriver, OlderVersionIsConvertedAndStamped) {
    const LogCapture log;
    const TestDocument document(fileText("", "1.5"));
    EXPECT_EQ(doFileVersionConversion(&*document), 1);
    EXPECT_EQ(document->getVersion(), XMLConfig::detail::latestFileVersion);
    EXPECT_NE(document.text().find("<Version>" + latestVersion +
                                   "</Version>\n  <BuildDate>Mar 11 2019</BuildDate>\n"
                                   "  <BuildNumber>2.1.1.14</BuildNumber>\n"),
              std::string::npos);
    EXPECT_TRUE(document->isDirty());
    EXPECT_THAT(log.linesOf(upgradeLogger), ElementsAre(line("TRACE", "doFileVersionConversion(1.500) -> " + latestVersion),
                                                        line("WARN", "   -> converting 1.500 file to " + latestVersion)));
}

// Spelt out on purpose here and below: what old files go through must not change with the chain that is under test.
TEST(UpgradeDriver, ChainBeginsWithTheseSteps) {
    const std::vector<double> steps = stepsFrom(0.0);
    ASSERT_GE(steps.size(), 8u);
    EXPECT_THAT(std::vector<double>(steps.begin(), steps.begin() + 8),
                ElementsAre(2.0, 2.005, 3.0, 4.0, 5.0, 6.0, 8.0, 9.0));
}

TEST(UpgradeDriver, StepsAreChosenByTheVersionAtTheStart) {
    EXPECT_EQ(stepsFor("1.5"), stepsFrom(2.0));
    EXPECT_EQ(stepsFor("2.000"), stepsFrom(2.005));
    EXPECT_EQ(stepsFor("2.003"), stepsFrom(2.005));
    EXPECT_EQ(stepsFor("2.004999"), stepsFrom(2.005));
    EXPECT_EQ(stepsFor("2.005"), stepsFrom(3.0));
    EXPECT_EQ(stepsFor("3.000"), stepsFrom(4.0));
    EXPECT_EQ(stepsFor("4.000"), stepsFrom(5.0));
    EXPECT_EQ(stepsFor("5.000"), stepsFrom(6.0));
    EXPECT_EQ(stepsFor("6.000"), stepsFrom(8.0));
    EXPECT_EQ(stepsFor("7.000"), stepsFrom(8.0));
    EXPECT_EQ(stepsFor("7.999"), stepsFrom(8.0));
    EXPECT_EQ(stepsFor("8.000"), stepsFrom(9.0));
    EXPECT_EQ(stepsFor("8.999"), stepsFrom(9.0));
}

TEST(UpgradeDriver, VersionThatIsNoNumberCountsAsZero) {
    const LogCapture log;
    EXPECT_EQ(stepsFor("abc"), stepsFrom(2.0));
    EXPECT_THAT(log.linesOf(upgradeLogger), ElementsAre(line("TRACE", "doFileVersionConversion(0.000) -> " + latestVersion),
                                                        line("WARN", "   -> converting 0.000 file to " + latestVersion)));
}

TEST(UpgradeDriver, NumberIsReadFromTheVersionsBeginning) { EXPECT_EQ(stepsFor(" 8.5beta"), stepsFrom(9.0)); }

TEST(UpgradeDriver, VersionThatComparesWithNothingIsRefused) {
    const TestDocument document(fileText("", "nan"));
    EXPECT_EQ(doFileVersionConversion(&*document), 2);
    EXPECT_NE(document.text().find("<Version>nan</Version>"), std::string::npos);
}

TEST(UpgradeDriver, FileWithoutVersionThrows) {
    const TestDocument document("<ConfigInfo><System/></ConfigInfo>");
    EXPECT_EQ(messageOf([&] { doFileVersionConversion(&*document); }),
              L"Error getVersion:  No \"version\" node in XML file");
}

TEST(UpgradeDriver, LoadUpgradesInMemoryOnly) {
    const TemporaryFolder folder;
    const std::string old = fileText("<Camera ID=\"1\"><CameraType>-1</CameraType></Camera>", "8.500");
    const std::wstring path = folder.write(L"old.skorrax", old);
    const auto manager = loadedManager(path);
    EXPECT_EQ(manager->getVersionUpgradeStatus(), XMLConfig::Upgraded);
    EXPECT_TRUE(manager->isConfigDirty());
    EXPECT_TRUE(manager->getCameraIDs().empty());
    EXPECT_EQ(folder.read(L"old.skorrax"), old);
    manager->saveConfiguration(path);
    EXPECT_EQ(loadedManager(path)->getVersionUpgradeStatus(), XMLConfig::NoUpgradeRequired);
}
