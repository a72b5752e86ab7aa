#include "platform/FileNames.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "platform/Files.h"
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

TEST(FileNames, ForStreamsAreReachedWhateverTheirSeparatorsAndLength) {
    const TemporaryFolder folder;
    std::wstring path = wideOf(folder.path());
    for (int i = 0; i < 12; ++i) ASSERT_TRUE(XMLConfig::detail::makeFolder(path += L"\\a-folder-of-thirty-letters--\u00fc"));
    const std::wstring file = path + L"/lines.txt";
    std::ofstream(XMLConfig::pathForStreams(file)) << "a line";
    EXPECT_TRUE(std::filesystem::is_regular_file(XMLConfig::pathForStreams(file)));
    EXPECT_EQ(XMLConfig::detail::readWholeFile(file), "a line");
}

TEST(FileNames, OfFilesAreNoDevices) {
    EXPECT_FALSE(XMLConfig::isDeviceName(L"hall.skorrax"));
    EXPECT_FALSE(XMLConfig::isDeviceName(L"/shows/NULL.skorrax"));
}

}  // namespace
