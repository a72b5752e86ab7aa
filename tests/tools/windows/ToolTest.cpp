#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "store/ConfigInfo.h"
#include "tests/manager/TestManager.h"
#include "tests/support/windows/StartedProgram.h"

namespace {

using testing::HasSubstr;

class ToolOnWindows : public testing::Test {
protected:
    std::string path(const std::string& name) const { return (folder.path() / std::filesystem::u8path(name)).u8string(); }

    TemporaryFolder folder;
};

}  // namespace

TEST_F(ToolOnWindows, TakesAPathThatBeginsWithASlash) {
    const ToolRun run = runTool({"get", "/there/is/none.skorrax", "System/RunType"});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.errors, HasSubstr("/there/is/none.skorrax"));
}

TEST_F(ToolOnWindows, MakesNoConfigurationOutOfADevice) {
    const ToolRun run = runTool({"new", "--force", "NUL.skorrax"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "xmlconfig: NUL.skorrax: is the name of a device\n");
}

TEST_F(ToolOnWindows, UpgradesTheFilesThatAPatternStandsFor) {
    folder.write(L"a.skorra", fileText("", "1.5"));
    folder.write(L"\u00fc.skorra", fileText("", "1.5"));
    EXPECT_EQ(runTool({"upgrade", path("*.skorra")}).status, 0);
    for (const wchar_t* name : {L"a.skorra", L"\u00fc.skorra"})
        EXPECT_THAT(folder.read(name), HasSubstr("<Version>9.000</Version>"));
    const ToolRun none = runTool({"upgrade", path("*.none")});
    EXPECT_EQ(none.status, 3);
    EXPECT_THAT(none.errors, HasSubstr("*.none"));
}

TEST_F(ToolOnWindows, NewDoesNotReplaceAFileOfALongName) {
    std::string longFolder;
    for (int i = 0; i < 6; ++i) {
        longFolder += "\\" + std::string(60, 'f');
        ASSERT_NE(::CreateDirectoryW((L"\\\\?\\" + wideOf(folder.path()) + XMLConfig::detail::fromUtf8(longFolder)).c_str(),
                                     nullptr),
                  0);
    }
    const std::string file = folder.path().u8string() + longFolder + "\\\xc3\xbc.skorrax";
    EXPECT_EQ(runTool({"new", file}).status, 0);
    EXPECT_EQ(runTool({"set", file, "System/RunType=CinemaRun"}).status, 0);
    const ToolRun again = runTool({"new", file});
    EXPECT_EQ(again.status, 1);
    EXPECT_THAT(again.errors, HasSubstr("exists; --force replaces it"));
    EXPECT_EQ(runTool({"get", file, "System/RunType"}).output, "CinemaRun\n");
}

TEST_F(ToolOnWindows, SetsOfManyProgramsAtOnceLoseNoChange) {
    folder.write(L"hall.skorrax", fileText());
    constexpr int count = 8;
    std::vector<StartedProgram> tools;
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        tools.emplace_back(std::vector<std::string>{toolPath(), "set", "--force", "--wait", "300", path("hall.skorrax"),
                                                    "System/Key" + number + "=" + number});
    }
    for (StartedProgram& tool : tools) EXPECT_EQ(tool.end(), 0);
    const ConfigInfo document(folder.file(L"hall.skorrax"));
    for (int i = 0; i < count; ++i) EXPECT_EQ(document.getIntegerItem(L"System", L"Key" + std::to_wstring(i), -1, L""), i);
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(ToolOnWindows, KilledAtAnyTimeLeavesTheOldOrTheNewFile) {
    std::string sections;
    for (int i = 0; i < 5'000; ++i) sections += "<Projector ID=\"" + std::to_string(i) + "\"><Name>A</Name></Projector>\n";
    const std::string before = fileText(sections);
    folder.write(L"hall.skorrax", before);
    ASSERT_EQ(runTool({"set", "--force", path("hall.skorrax"), "System/Key=new"}).status, 0);
    const std::string after = folder.read(L"hall.skorrax");
    int killed = 0;
    for (DWORD moment = 0; moment < 1000; moment += 100) {
        folder.write(L"hall.skorrax", before);
        StartedProgram tool({toolPath(), "set", "--force", path("hall.skorrax"), "System/Key=new"});
        ::Sleep(moment);
        tool.kill();
        killed += tool.end() == StartedProgram::killedStatus ? 1 : 0;
        const std::string now = folder.read(L"hall.skorrax");
        EXPECT_TRUE(now == before || now == after) << moment;
    }
    EXPECT_GT(killed, 0);
}
