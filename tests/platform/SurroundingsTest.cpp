#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "platform/DiagnosticsFolder.h"
#include "platform/Environment.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace XMLConfig::detail;

TEST(Environment, GivesNothingForAVariableThatIsNotSet) { EXPECT_FALSE(environmentVariable(L"XMLCONFIG_TEST_NEVER_SET")); }

TEST(Environment, GivesBackWhatWasSet) {
    setEnvironmentVariable(L"XMLCONFIG_TEST_VALUE", L"config");
    EXPECT_EQ(environmentVariable(L"XMLCONFIG_TEST_VALUE"), L"config");
    setEnvironmentVariable(L"XMLCONFIG_TEST_VALUE", L"\u00fc\u65e5\U0001F4FD");
    EXPECT_EQ(environmentVariable(L"XMLCONFIG_TEST_VALUE"), L"\u00fc\u65e5\U0001F4FD");
}

TEST(Environment, GivesNothingForAValueOfMoreThan256Characters) {
    setEnvironmentVariable(L"XMLCONFIG_TEST_LONG", std::wstring(256, L'\u00fc'));
    EXPECT_EQ(environmentVariable(L"XMLCONFIG_TEST_LONG"), std::wstring(256, L'\u00fc'));
    setEnvironmentVariable(L"XMLCONFIG_TEST_LONG", std::wstring(257, L'x'));
    EXPECT_FALSE(environmentVariable(L"XMLCONFIG_TEST_LONG"));
}

TEST(Environment, HasATemporaryFolderWithoutATrailingSeparator) {
    const std::wstring folder = temporaryFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_TRUE(isAbsolute(folder));
    EXPECT_FALSE(isSeparator(folder.back()));
    EXPECT_TRUE(std::filesystem::is_directory(pathOf(folder)));
}

TEST(Environment, NumbersThisProcess) { EXPECT_GT(processId(), 0); }

struct StampRow {
    std::int64_t seconds;
    const wchar_t* stamp;
};

const StampRow stampRows[] = {
    {0, L"1970-01-01T00-00-00"},          {-1, L"1969-12-31T23-59-59"},         {951782399, L"2000-02-28T23-59-59"},
    {951782400, L"2000-02-29T00-00-00"},  {951868800, L"2000-03-01T00-00-00"},  {1552262400, L"2019-03-11T00-00-00"},
    {1709251199, L"2024-02-29T23-59-59"}, {1735689599, L"2024-12-31T23-59-59"}, {4107542400, L"2100-03-01T00-00-00"},
    {2147483648, L"2038-01-19T03-14-08"}, {1638320461, L"2021-12-01T01-01-01"},
};

class UtcStamp : public testing::TestWithParam<StampRow> {};

TEST_P(UtcStamp, TellsDateAndTime) { EXPECT_EQ(utcStamp(GetParam().seconds), GetParam().stamp); }

INSTANTIATE_TEST_SUITE_P(Clock, UtcStamp, testing::ValuesIn(stampRows));

TEST(Clock, CanBeReplacedAndBroughtBack) {
    setClock([] { return std::int64_t(1552262400); });
    EXPECT_EQ(now(), 1552262400);
    setClock({});
    EXPECT_GT(now(), 1700000000);
}

/// Leaves the folder as another test found it.
class DiagnosticsFolder : public testing::Test {
protected:
    ~DiagnosticsFolder() override { UlvanoDiagnostics::setDataSubDirectory(m_before); }
    TemporaryFolder m_folder;

private:
    std::wstring m_before = UlvanoDiagnostics::getDataSubDirectory();
};

TEST_F(DiagnosticsFolder, IsOneForAProcessBelowTheTemporaryFolder) {
    const std::wstring path = UlvanoDiagnostics::getDataSubDirectory();
    EXPECT_EQ(UlvanoDiagnostics::getDataSubDirectory(), path);
    EXPECT_TRUE(std::filesystem::is_directory(pathOf(path)));
    const std::wstring above = joinPath(temporaryFolder(), L"UlvanoDiagnostics");
    EXPECT_EQ(folderOf(path).substr(0, above.size()), above);  // what follows tells users who share the folder apart
    const std::wstring name = lastComponent(path);
    EXPECT_EQ(name.substr(std::wstring(L"YYYY-MM-DDThh-mm-ss").size()), L'-' + formatInteger(processId()));
    EXPECT_EQ(name[10], L'T');
}

TEST_F(DiagnosticsFolder, IsReplacedAndNotMade) {
    UlvanoDiagnostics::setDataSubDirectory(m_folder.file(L"run"));
    EXPECT_EQ(UlvanoDiagnostics::getDataSubDirectory(), m_folder.file(L"run"));
    EXPECT_FALSE(m_folder.has(L"run"));
}

TEST_F(DiagnosticsFolder, IsTheSameInEveryThread) {
    const std::wstring expected = UlvanoDiagnostics::getDataSubDirectory();
    std::vector<std::wstring> seen(8);
    std::vector<std::thread> threads;
    for (std::wstring& path : seen) threads.emplace_back([&path] { path = UlvanoDiagnostics::getDataSubDirectory(); });
    for (std::thread& thread : threads) thread.join();
    for (const std::wstring& path : seen) EXPECT_EQ(path, expected);
}

}  // namespace
