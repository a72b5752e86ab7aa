#include "platform/FileNames.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace {

TEST(FileNames, AreTakenByFilesAndFolders) {
    const TemporaryFolder folder;
    const std::wstring file = folder.write(L"\u00fc \u65e5.skorrax", "");
    EXPECT_TRUE(XMLConfig::isNameTaken(file));
    EXPECT_TRUE(XMLConfig::isNameTaken(wideOf(folder.path())));
    EXPECT_FALSE(XMLConfig::isNameTaken(folder.file(L"none.skorrax")));
    EXPECT_FALSE(XMLConfig::isNameTaken(L""));
}

TEST(FileNames, WithoutAPatternStandForNoOtherFiles) {
    const TemporaryFolder folder;
    EXPECT_TRUE(XMLConfig::filesMatching(folder.write(L"a.skorrax", "")).empty());
}

TEST(FileNames, OfFilesAreNoDevices) {
    EXPECT_FALSE(XMLConfig::isDeviceName(L"hall.skorrax"));
    EXPECT_FALSE(XMLConfig::isDeviceName(L"/shows/NULL.skorrax"));
}

}  // namespace
