#include "manager/FileWriting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Utf8.h"
#include "store/CorvaneException.h"
#include "tests/support/TemporaryFolder.h"

TEST(FileWriting, MakesAFileAndReplacesIt) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"picture.svg");
    XMLConfig::writeFile(path, std::string("a\0b\n", 4));
    EXPECT_EQ(folder.read(L"picture.svg"), std::string("a\0b\n", 4));
    XMLConfig::writeFile(path, "shorter");
    EXPECT_EQ(folder.read(L"picture.svg"), "shorter");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST(FileWriting, TellsWhatCannotBeWritten) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"none") + L"/picture.svg";
    try {
        XMLConfig::writeFile(path, "x");
        FAIL() << "wrote a file in a folder that is not there";
    } catch (const CorvaneException& fault) {
        EXPECT_THAT(XMLConfig::utf8FromWide(fault.getMessage()),
                    testing::AllOf(testing::StartsWith("Error writeFile: "), testing::HasSubstr("picture.svg")));
    }
    EXPECT_EQ(folder.entries(), 0U);
}
