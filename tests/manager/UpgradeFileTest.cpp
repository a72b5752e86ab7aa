#include "manager/UpgradeFile.h"

#include <gtest/gtest.h>

#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"

using XMLConfig::upgradeFile;

TEST(UpgradeFile, InPlaceKeepsTheOldFileBesideIt) {
    const TemporaryFolder folder;
    const std::string old = fileText("<Screen><Unit>Feet</Unit></Screen>", "1.5");
    const std::wstring path = folder.write(L"hall.skorra", old);
    const auto report = upgradeFile({path});
    EXPECT_EQ(report.status, XMLConfig::Upgraded);
    EXPECT_EQ(report.target, path);
    EXPECT_EQ(report.backup, path + L".v1.500.bak");
    EXPECT_EQ(report.receipt.steps.size(), 8u);
    EXPECT_EQ(folder.read(L"hall.skorra.v1.500.bak"), old);
    EXPECT_EQ(ConfigInfo(path).getVersion(), 9.0);
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(UpgradeFile, BackupsAreNeverOverwritten) {
    const TemporaryFolder folder;
    folder.write(L"a.skorrax.v8.000.bak", "first");
    folder.write(L"a.skorrax.v8.000.bak.2", "second");
    const std::wstring path = folder.write(L"a.skorrax", fileText("", "8.0"));
    EXPECT_EQ(upgradeFile({path}).backup, path + L".v8.000.bak.3");
    EXPECT_EQ(folder.read(L"a.skorrax.v8.000.bak"), "first");
    EXPECT_EQ(folder.read(L"a.skorrax.v8.000.bak.2"), "second");
    EXPECT_EQ(folder.read(L"a.skorrax.v8.000.bak.3"), fileText("", "8.0"));
}

TEST(UpgradeFile, OtherTargetLeavesTheOldFileAlone) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"old.skorra", fileText("", "2.0"));
    const auto report = upgradeFile({path, folder.file(L"new.skorrax")});
    EXPECT_EQ(report.target, folder.file(L"new.skorrax"));
    EXPECT_EQ(report.backup, L"");
    EXPECT_EQ(folder.read(L"old.skorra"), fileText("", "2.0"));
    EXPECT_EQ(ConfigInfo(folder.file(L"new.skorrax")).getVersion(), 9.0);
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(UpgradeFile, TargetThatExistsIsRefused) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"old.skorra", fileText("", "2.0"));
    const std::wstring target = folder.write(L"new.skorrax", "precious");
    EXPECT_EQ(thrownMessage<CorvaneException>([&] {
                  upgradeFile({path, target});
              }),
              L"Error upgradeFile: " + target + L": exists already");
    EXPECT_EQ(folder.read(L"new.skorrax"), "precious");
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(UpgradeFile, LatestVersionIsLeftAloneInPlace) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText());
    const auto report = upgradeFile({path});
    EXPECT_EQ(report.status, XMLConfig::NoUpgradeRequired);
    EXPECT_EQ(report.backup, L"");
    EXPECT_TRUE(report.receipt.steps.empty());
    EXPECT_EQ(folder.read(L"a.skorrax"), fileText());
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(UpgradeFile, LatestVersionIsCopiedToAnotherTarget) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText());
    upgradeFile({path, folder.file(L"b.skorrax")});
    EXPECT_EQ(folder.read(L"b.skorrax"), fileText());
}

TEST(UpgradeFile, DryRunTellsEverythingAndWritesNothing) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText("", "1.5"));
    const auto report = upgradeFile({path, L"", false});
    EXPECT_EQ(report.status, XMLConfig::Upgraded);
    EXPECT_EQ(report.backup, path + L".v1.500.bak");
    EXPECT_EQ(report.receipt.steps.size(), 8u);
    EXPECT_EQ(folder.read(L"a.skorrax"), fileText("", "1.5"));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(UpgradeFile, NewerFileIsRefusedAndLeftAlone) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText("", "9.001"));
    EXPECT_EQ(thrownMessage<CorvaneException>([&] { upgradeFile({path}); }),
              L"Error upgradeFile: " + path + L": is of file version 9.001, which is newer than this library");
    EXPECT_EQ(folder.read(L"a.skorrax"), fileText("", "9.001"));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(UpgradeFile, FileThatIsNoConfigurationIsLeftAlone) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", "<ConfigInfo><Version>1.5</Version>");
    EXPECT_THROW(upgradeFile({path}), CorvaneException);
    EXPECT_THROW(upgradeFile({folder.file(L"missing.skorrax")}), CorvaneException);
    EXPECT_EQ(folder.read(L"a.skorrax"), "<ConfigInfo><Version>1.5</Version>");
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(UpgradeFile, TargetThatCannotBeWrittenLeavesNothingBehind) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText("", "1.5"));
    EXPECT_THROW(upgradeFile({path, folder.file(L"missing") + L"/b.skorrax"}), CorvaneException);
    EXPECT_EQ(folder.entries(), 1u);
}
