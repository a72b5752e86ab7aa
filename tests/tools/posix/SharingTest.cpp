#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <chrono>
#include <csignal>
#include <thread>

#include "manager/ConfigLock.h"
#include "store/ConfigInfo.h"
#include "tests/manager/TestManager.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/posix/StartedProgram.h"

namespace {

using testing::HasSubstr;

class Sharing : public ToolFiles {
protected:
    std::wstring widePath(const std::string& name) const { return wideOf(path(name)); }
    std::string errors() const { return TemporaryFolder::readFile(errorFolder.path() / "errors"); }
    std::string errorFile() const { return (errorFolder.path() / "errors").string(); }

    /// A file with so many sections that a save of it takes a while.
    std::string largeFile(const std::string& name) const {
        std::string sections;
        for (int i = 0; i < 20'000; ++i)
            sections += "<Projector ID=\"" + std::to_string(i) + "\"><Name>A name that fills a line</Name></Projector>\n";
        folder.write(wideOf(name), fileText(sections));
        return path(name);
    }

    /// Sets another item in each of so many processes at once; how many of them succeeded.
    int setAtOnce(int count) const { return setAtOnce(count, {path("hall.skorrax")}); }
    /// The same by several names of the file in turn.
    static int setAtOnce(int count, const std::vector<std::string>& names) {
        std::vector<StartedProgram> tools;
        for (int i = 0; i < count; ++i) {
            const std::string& name = names[static_cast<std::size_t>(i) % names.size()];
            const std::string key = "System/Key" + std::to_string(i);
            tools.push_back(startTool({"set", "--force", "--wait", "300", name, key + "=" + std::to_string(i)}));
        }
        int good = 0;
        for (StartedProgram& tool : tools) good += tool.end() == 0 ? 1 : 0;
        return good;
    }
    int countKept(int count) const {
        const ConfigInfo document(widePath("hall.skorrax"));
        int kept = 0;
        for (int i = 0; i < count; ++i)
            kept += document.getIntegerItem(L"System", L"Key" + std::to_wstring(i), -1, L"") == i ? 1 : 0;
        return kept;
    }
    TemporaryFolder errorFolder;
};

/// Whether a process has read some of a file, by what the system tells of its open files.
bool isReading(pid_t process, const std::string& file) {
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "fd", error)) {
        if (std::filesystem::read_symlink(entry.path(), error) != file) continue;
        std::ifstream information(folder / "fdinfo" / entry.path().filename());
        std::string word;
        long position = 0;
        information >> word >> position;
        if (word == "pos:" && position > 0) return true;
    }
    return false;
}

}  // namespace

TEST_F(Sharing, ReaderThatGoesAwayHidesNotThatTheFileIsWritten) {
    const std::string file =
        fileOf("<ConfigInfo>\n<Version>" + latestVersion + "</Version>\n</ConfigInfo>\n", "hall.skorrax");
    const std::string set = shellQuoted(toolPath()) + " set " + shellQuoted(file) + " System/RunType=CinemaRun";
    const std::string errors = shellQuoted(path("errors"));
    EXPECT_EQ(shellStatus("mkfifo " + shellQuoted(path("pipe")) + " && { exec 3<>" + shellQuoted(path("pipe")) + " 4>" +
                          shellQuoted(path("pipe")) + " 3<&-; " + set + " >&4 2> " + errors + "; }"),
              3);
    EXPECT_EQ(TemporaryFolder::readFile(path("errors")),
              "xmlconfig: standard output cannot be written; " + file + " is written\n");
    EXPECT_EQ(runTool({"get", file, "System/RunType"}).output, "CinemaRun\n");
}

TEST_F(Sharing, TwentySetsAtOnceLoseNoChange) {
    folder.write(L"hall.skorrax", fileText());
    EXPECT_EQ(setAtOnce(20), 20);
    EXPECT_EQ(countKept(20), 20);
    EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(Sharing, TwoHundredSetsAtOnceLoseNoChange) {
    folder.write(L"hall.skorrax", fileText());
    EXPECT_EQ(setAtOnce(200), 200);
    EXPECT_EQ(countKept(200), 200);
    EXPECT_EQ(folder.entries(), 1u);
}

// Names as configurations of Windows hold them, with "\\" between the folders.
TEST_F(Sharing, WritersByNamesWithABackslashWaitForTheOthers) {
    folder.write(L"hall.skorrax", fileText());
    const std::string around = folder.path().string();
    const std::vector<std::string> names{around + "/hall.skorrax", around + "\\hall.skorrax", around + "\\.\\/hall.skorrax"};
    EXPECT_EQ(setAtOnce(20, names), 20);
    EXPECT_EQ(countKept(20), 20);
    EXPECT_EQ(folder.entries(), 1u);
    const XMLConfig::ConfigLock held(widePath("hall.skorrax"));
    for (const std::string& name : names) {
        const ToolRun set = runTool({"set", "--wait", "0", name, "System/RunType=ClassicRun"});
        EXPECT_EQ(set.status, 1) << name;
        EXPECT_THAT(set.errors, HasSubstr(name + " is being written by another program")) << name;
    }
}

TEST_F(Sharing, ManyUpgradesAtOnceKeepEachOldFileOnce) {
    constexpr int files = 15;
    constexpr int writers = 8;
    const auto name = [](int file) { return "show" + std::to_string(file) + ".skorra"; };
    for (int file = 0; file < files; ++file) folder.write(wideOf(name(file)), fileText("", "1.5"));
    std::vector<StartedProgram> tools;
    for (int writer = 0; writer < writers; ++writer)
        for (int file = 0; file < files; ++file) tools.push_back(startTool({"upgrade", "--wait", "300", path(name(file))}));
    for (StartedProgram& tool : tools) EXPECT_EQ(tool.end(), 0);
    for (int file = 0; file < files; ++file) {
        EXPECT_THAT(folder.read(wideOf(name(file))), HasSubstr("<Version>" + latestVersion + "</Version>"));
        EXPECT_EQ(folder.read(wideOf(name(file) + ".v1.500.bak")), fileText("", "1.5"));
    }
    EXPECT_EQ(folder.entries(), 2u * files);
}

TEST_F(Sharing, WriterSaysForWhomItHasWaited) {
    folder.write(L"hall.skorrax", fileText());
    const std::string file = path("hall.skorrax");
    const XMLConfig::ConfigLock held(widePath("hall.skorrax"));
    const std::string busy =
        file + " is being written by another program (process " + std::to_string(::getpid()) + "), waited ";
    const ToolRun set = runTool({"set", "--wait", "1", file, "System/RunType=ClassicRun"});
    EXPECT_EQ(set.status, 1);
    EXPECT_EQ(set.errors, "xmlconfig: " + busy + "1 s\n");
    const ToolRun made = runTool({"new", "--force", "--wait", "0", file});
    EXPECT_EQ(made.status, 1);
    EXPECT_EQ(made.errors, "xmlconfig: " + busy + "0 s\n");
    const ToolRun upgraded = runTool({"upgrade", "--wait", "0", file});
    EXPECT_EQ(upgraded.status, 1);
    EXPECT_EQ(upgraded.errors, "xmlconfig: " + file + ": not upgraded: " + busy + "0 s\n");
    EXPECT_EQ(folder.read(L"hall.skorrax"), fileText());
}

TEST_F(Sharing, ReadersDoNotWait) {
    folder.write(L"hall.skorrax", fileText());
    const XMLConfig::ConfigLock held(widePath("hall.skorrax"));
    EXPECT_EQ(runTool({"show", path("hall.skorrax")}).status, 0);
    EXPECT_EQ(runTool({"upgrade", "--dry-run", "--wait", "0", path("hall.skorrax")}).status, 0);
}

TEST_F(Sharing, WriterThatIsKilledHoldsNothing) {
    const std::string file = largeFile("hall.skorrax");
    StartedProgram tool = startTool({"set", file, "System/RunType=ClassicRun"});
    while (!isReading(tool.process(), file)) std::this_thread::yield();
    EXPECT_THROW(XMLConfig::ConfigLock(widePath("hall.skorrax"), std::chrono::milliseconds(0)),
                 XMLConfig::ConfigBusyException);
    tool.send(SIGKILL);
    EXPECT_EQ(tool.end(), -SIGKILL);
    EXPECT_NO_THROW(XMLConfig::ConfigLock(widePath("hall.skorrax"), std::chrono::seconds(10)));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(Sharing, ChangeByAProgramWithoutTheLockIsNotOverwritten) {
    const std::string file = largeFile("hall.skorrax");
    folder.write(L"theirs", fileText("<System><RunType>Palvex3DRun</RunType></System>"));
    StartedProgram tool = startTool({"set", file, "System/RunType=ClassicRun"}, errorFile());
    while (!isReading(tool.process(), file)) std::this_thread::yield();
    std::filesystem::rename(path("theirs"), file);
    EXPECT_EQ(tool.end(), 3);
    EXPECT_EQ(errors(), "xmlconfig: " + file + " has been changed by another program meanwhile; nothing was written\n");
    EXPECT_THAT(folder.read(L"hall.skorrax"), HasSubstr("Palvex3DRun"));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(Sharing, SignalInTheMiddleOfASaveEndsTheToolAfterIt) {
    if (runTool({}).status == -1 ||
        std::system("strace -V > /dev/null 2>&1") != 0)  // NOLINT(concurrency-mt-unsafe,cert-env33-c)
        GTEST_SKIP() << "needs strace, which sends a signal at a system call";
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        folder.write(L"hall.skorrax", fileText());
        const std::string inject = "inject=fsync:signal=" + std::to_string(signal) + ":when=1";
        StartedProgram tool({"strace", "-qq", "-o", path("trace"), "-e", "trace=fsync", "-e", inject, toolPath(), "set",
                             "--force", path("hall.skorrax"), "System/Key=new"});
        EXPECT_EQ(tool.end(), -signal);
        EXPECT_THAT(folder.read(L"trace"), HasSubstr("fsync"));
        EXPECT_THAT(folder.read(L"hall.skorrax"), HasSubstr("<Key>new</Key>"));
        EXPECT_EQ(folder.entries(), 2u);
    }
}

TEST_F(Sharing, SignalEndsTheToolThatWaitsForTheReaderOfAPipe) {
    if (runTool({}).status == -1 ||
        std::system("strace -V > /dev/null 2>&1") != 0)  // NOLINT(concurrency-mt-unsafe,cert-env33-c)
        GTEST_SKIP() << "needs strace, which sends a signal at a system call";
    const std::string pipe = path("hall.skorrax");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    StartedProgram tool({"timeout", "-s", "KILL", "20", "strace", "-qq", "-o", path("trace"), "-P", pipe, "-e",
                         "trace=openat", "-e", "inject=openat:signal=TERM:when=1", toolPath(), "new", "--force", pipe});
    EXPECT_EQ(tool.end(), -SIGTERM);
    EXPECT_THAT(folder.read(L"trace"), HasSubstr("O_WRONLY"));
}

TEST_F(Sharing, SignalAtAnyTimeLeavesTheOldOrTheNewFileAlone) {
    const std::string file = largeFile("hall.skorrax");
    const std::string before = folder.read(L"hall.skorrax");
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(startTool({"set", "--force", file, "System/Key=new"}).end(), 0);
    const auto duration = std::chrono::steady_clock::now() - begin;
    const std::string after = folder.read(L"hall.skorrax");
    constexpr int moments = 8;
    int ended = 0;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        for (int moment = 0; moment < moments; ++moment) {
            folder.write(L"hall.skorrax", before);
            StartedProgram tool = startTool({"set", "--force", file, "System/Key=new"});
            std::this_thread::sleep_for(duration * moment / moments);
            tool.send(signal);
            const int status = tool.end();
            EXPECT_TRUE(status == 0 || status == -signal) << status;
            ended += status == -signal ? 1 : 0;
            const std::string now = folder.read(L"hall.skorrax");
            EXPECT_TRUE(now == after || (now == before && status != 0));
            EXPECT_EQ(folder.entries(), 1u);
        }
    }
    EXPECT_GT(ended, 0);
}
