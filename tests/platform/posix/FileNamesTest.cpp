#include "platform/FileNames.h"

#include <gtest/gtest.h>

#include "platform/ProgramArguments.h"
#include "tests/support/TemporaryFolder.h"

TEST(FileNames, AreTakenByLinksThatLeadNowhere) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("none", folder.path() / "link");
    EXPECT_TRUE(XMLConfig::isNameTaken(folder.file(L"link")));
}

TEST(FileNames, WithABackslashAreThoseWithASlash) {
    const TemporaryFolder folder;
    folder.write(L"a.skorrax", "");
    EXPECT_TRUE(XMLConfig::isNameTaken(wideOf(folder.path()) + L"\\a.skorrax"));
}

TEST(FileNames, WithAPatternWereExpandedByTheShell) {
    const TemporaryFolder folder;
    folder.write(L"a.skorrax", "");
    EXPECT_TRUE(XMLConfig::filesMatching(folder.file(L"*.skorrax")).empty());
}

TEST(ProgramArguments, AreTheWordsAfterTheProgram) {
    char program[] = "program";
    char word[] = "\xc3\xbc";
    char notUtf8[] = "\xff";
    char* words[] = {program, word, notUtf8, nullptr};
    EXPECT_EQ(XMLConfig::utf8Arguments(3, words), (std::vector<std::string>{"\xc3\xbc", "\xff"}));
    EXPECT_TRUE(XMLConfig::utf8Arguments(0, words + 3).empty());
}
