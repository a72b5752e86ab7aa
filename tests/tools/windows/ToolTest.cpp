#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Files.h"
#include "store/ConfigInfo.h"
#include "tests/manager/TestManager.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/windows/StartedProgram.h"

namespace {

using testing::HasSubstr;
using XMLConfig::detail::makeFolder;
using XMLConfig::detail::readWholeFile;
using XMLConfig::detail::replaceFile;

class ToolOnWindows : public testing::Test {
protected:
    static std::wstring wide(const std::string& text) { return XMLConfig::detail::fromUtf8(text); }
    /// Of more than 260 characters, with one that no code page has beside Latin letters.
    std::string longFolder() const {
        std::wstring name = wideOf(folder.path());
        for (int i = 0; i < 6; ++i) makeFolder(name += L"\\\u65e5\u00fc" + std::wstring(60, L'f'));
        return XMLConfig::detail::toUtf8(name);
    }
    std::string path(const std::string& name) const { return (folder.path() / std::filesystem::u8path(name)).u8string(); }

    TemporaryFolder folder;
};

}  // namespace

TEST_F(ToolOnWindows, TakesAPathThatBeginsWithASlash) {
    const ToolRun run = runTool({"get", "/there/is/none.skorrax", "System/RunType"});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.errors, HasSubstr("/there/is/none.skorrax"));
}

TEST_F(ToolOnWindows, RefusesAWordThatIsNoText) {
    const std::wstring name = wideOf(folder.path()) + L"\\a\xd800.skorrax";
    const std::vector<std::wstring> words = {wide(toolPath()), L"new", name};
    EXPECT_EQ(StartedProgram(words).end(), 2);
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(ToolOnWindows, WritesNothingToADevice) {
    const ToolRun run = runTool({"new", "--force", "NUL.skorrax"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "xmlconfig: NUL.skorrax: is the name of a device\n");
    const ToolRun picture = runTool({"layout", "--svg", "con.svg", "examples/dome.skorrax"});
    EXPECT_EQ(picture.status, 1);
    EXPECT_EQ(picture.errors, "xmlconfig: con.svg: is the name of a device\n");
}

TEST_F(ToolOnWindows, UpgradesTheFilesThatAPatternStandsFor) {
    folder.write(L"a.skorra", fileText("", "1.5"));
    folder.write(L"\u00fc.skorra", fileText("", "1.5"));
    EXPECT_EQ(runTool({"upgrade", path("*.skorra")}).status, 0);
    for (const wchar_t* name : {L"a.skorra", L"\u00fc.skorra"})
        EXPECT_THAT(folder.read(name), HasSubstr("<Version>" + latestVersion + "</Version>"));
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
    EXPECT_THAT(again.errors, HasSubstr("exists; take another name, or --force, which replaces it"));
    EXPECT_EQ(runTool({"get", file, "System/RunType"}).output, "CinemaRun\n");
}

TEST_F(ToolOnWindows, ReadsAndWritesItsOtherFilesUnderLongNames) {
    const std::string beside = longFolder() + "\\";
    EXPECT_EQ(runTool({"new", "--projectors", "2", beside + "hall.skorrax"}).status, 0);
    replaceFile(wide(beside + "lines.txt"), "System/RunType=CinemaRun\n");
    EXPECT_EQ(runTool({"set", beside + "hall.skorrax", "--from", beside + "lines.txt"}).status, 0);
    EXPECT_EQ(runTool({"get", beside + "hall.skorrax", "System/RunType"}).output, "CinemaRun\n");
    EXPECT_THAT(readWholeFile(wide(beside + "hall.skorrax")), HasSubstr("CinemaRun"));
    EXPECT_EQ(runTool({"upgrade", beside + "hall.skorrax", "-o", beside + "copy.skorrax"}).status, 0);
    EXPECT_EQ(runTool({"layout", "--svg", beside + "hall.svg", beside + "hall.skorrax"}).status, 0);
    EXPECT_THAT(readWholeFile(wide(beside + "hall.svg")), HasSubstr("</svg>"));
    EXPECT_EQ(runTool({"layout", "--svg", beside + "hall.skorrax", beside + "hall.skorrax"}).status, 1);
    EXPECT_EQ(runTool({"diff", beside + "hall.skorrax", beside + "copy.skorrax"}).status, 0);
    EXPECT_THAT(runTool({"check", beside + "hall.skorrax"}).errors, testing::IsEmpty());
    replaceFile(wide(beside + "broken.skorrax"), "<a>\n<b></a>\n");
    const ToolRun broken = runTool({"show", beside + "broken.skorrax"});
    EXPECT_EQ(broken.status, 3);
    EXPECT_THAT(broken.errors, HasSubstr("<b></a>"));
}

TEST_F(ToolOnWindows, TakesNamesOfAllForms) {
    const std::wstring name = folder.write(L"\u00fc \u65e5\u672c.skorrax", fileText());
    const std::string file = XMLConfig::detail::toUtf8(name);
    std::string slashes = file;
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    const std::string bare = file.substr(file.rfind('\\') + 1);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    // With and without the drive and the folders, and past the system's own reading of names.
    for (const std::string& form : {file, slashes, file.substr(2), slashes.substr(2), bare, ".\\" + bare, "./" + bare,
                                    file.substr(0, 2) + bare, "\\\\?\\" + file, "\\\\.\\" + file}) {
        const ToolRun run = runTool({"set", "--force", form, "System/Key=" + form});
        EXPECT_EQ(run.status, 0) << form << ": " << run.errors;
        EXPECT_EQ(runTool({"get", bare, "System/Key"}).output, form + "\n");
    }
    std::filesystem::current_path(before);
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(ToolOnWindows, LeavesItsExamplesTheNamesTheyAreGiven) {
    const std::string tour = toolPath().substr(0, toolPath().find_last_of("\\/") + 1) + "tour.exe";
    folder.write(L"from \u65e5\u672c.skorrax", TemporaryFolder::readFile("examples/dome.skorrax"));
    EXPECT_EQ(StartedProgram({tour, path("from 日本.skorrax"), path("to Ω ü.skorrax")}).end(), 0);
    EXPECT_TRUE(folder.has(L"to \u03a9 \u00fc.skorrax"));
}

TEST_F(ToolOnWindows, TellsWhatItCannotReachOnOtherMachines) {
    const std::string file = R"(\\no-such-machine\share\hall.skorrax)";
    const ToolRun run = runTool({"get", file, "System/RunType"});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.errors, HasSubstr(file));
    EXPECT_EQ(runTool({"new", file}).status, 3);
}

TEST_F(ToolOnWindows, RefusesAFileThatIsReadOnly) {
    const std::wstring file = folder.write(L"hall.skorrax", fileText());
    ASSERT_NE(::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY), 0);
    const ToolRun run = runTool({"set", "--force", path("hall.skorrax"), "System/Key=1"});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.errors, "xmlconfig: Error parseDataFile: Can not open file: " + path("hall.skorrax") +
                              "; nobody may write it, and such a file is not opened\n");
    EXPECT_EQ(folder.read(L"hall.skorrax"), fileText());
    ASSERT_NE(::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL), 0);
}

TEST_F(ToolOnWindows, SavesOrSaysWhatStandsInTheWayWhereAnotherHasTheFileOpen) {
    const std::wstring file = folder.write(L"hall.skorrax", fileText());
    const auto setKey = [this] { return runTool({"set", "--force", path("hall.skorrax"), "System/Key=1"}); };
    const auto opened = [&file](DWORD access, DWORD sharing) {
        return ::CreateFileW(file.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
    };
    HANDLE other = opened(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(setKey().status, 0);
    ::CloseHandle(other);
    const std::string saved = folder.read(L"hall.skorrax");
    EXPECT_THAT(saved, HasSubstr("<Key>1</Key>"));

    other = opened(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    const ToolRun refused = setKey();
    ::CloseHandle(other);
    EXPECT_EQ(refused.status, 3);
    EXPECT_EQ(refused.errors, "xmlconfig: Error parseDataFile: Can not open file: " + path("hall.skorrax") +
                                  " (another program has it open)\n");
    EXPECT_EQ(folder.read(L"hall.skorrax"), saved);
    EXPECT_EQ(folder.entries(), 1U);
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
