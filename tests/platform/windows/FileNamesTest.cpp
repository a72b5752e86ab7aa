#include "platform/FileNames.h"

#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Environment.h"
#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace XMLConfig::detail;
using testing::ElementsAre;

TEST(FileNames, OfDevicesAreDevicesWithAnyEnding) {
    EXPECT_TRUE(XMLConfig::isDeviceName(L"NUL"));
    EXPECT_TRUE(XMLConfig::isDeviceName(L"NUL.skorrax"));
    EXPECT_TRUE(XMLConfig::isDeviceName(L"com1.skorrax"));
}

TEST(FileNames, WithAPatternStandForTheFilesThatFit) {
    const TemporaryFolder folder;
    folder.write(L"b.skorra", "");
    folder.write(L"\u65e5.skorra", "");
    folder.write(L"a.skorra", "");
    folder.write(L"a.txt", "");
    std::filesystem::create_directory(folder.path() / "folder.skorra");
    EXPECT_THAT(XMLConfig::filesMatching(folder.file(L"*.skorra")),
                ElementsAre(folder.file(L"a.skorra"), folder.file(L"b.skorra"), folder.file(L"\u65e5.skorra")));
    EXPECT_THAT(XMLConfig::filesMatching(folder.file(L"?.txt")), ElementsAre(folder.file(L"a.txt")));
    EXPECT_TRUE(XMLConfig::filesMatching(folder.file(L"*.none")).empty());
}

TEST(FileNames, MayBeLong) {
    const TemporaryFolder folder;
    std::wstring path = wideOf(folder.path());
    for (int i = 0; i < 6; ++i) ASSERT_TRUE(makeFolder(path += L"\\" + std::wstring(60, L'f')));
    const std::wstring file = path + L"\\a.skorrax";
    EXPECT_FALSE(XMLConfig::isNameTaken(file));
    replaceFile(file, "new");
    EXPECT_TRUE(XMLConfig::isNameTaken(file));
    EXPECT_EQ(readWholeFile(file), "new");
    EXPECT_TRUE(removeFile(file));
}

TEST(Environment, IsSetForTheCLibraryToo) {
    setEnvironmentVariable(L"XMLCONFIG_TEST_VALUE", L"config");
    const char* const value = std::getenv("XMLCONFIG_TEST_VALUE");
    EXPECT_STREQ(value, "config");
    setEnvironmentVariable(L"XMLCONFIG_TEST_VALUE", L"");
    EXPECT_EQ(environmentVariable(L"XMLCONFIG_TEST_VALUE"), L"");
}

}  // namespace
