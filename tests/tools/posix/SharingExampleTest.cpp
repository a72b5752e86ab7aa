#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <chrono>
#include <fstream>
#include <thread>

#include "store/ConfigInfo.h"
#include "tests/support/Example.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/posix/StartedProgram.h"

namespace {

using testing::HasSubstr;

/// The program that the page on sharing shows, built beside the tool.
class SharingExample : public ToolFiles {
protected:
    SharingExample() { example(); }

    static std::string program() { return (std::filesystem::path(toolPath()).parent_path() / "sharing").string(); }
    int countedRuns() const {
        return ConfigInfo(folder.file(L"dome.skorrax")).getIntegerItem(L"SiteAnalytics", L"SuccessfulRunNumber", -1, L"");
    }

    /// Edits, and does something before what was edited is saved; the exit status.
    template <typename Meanwhile>
    int edit(const Meanwhile& meanwhile) const {
        const std::string input = path("input");
        if (::mkfifo(input.c_str(), 0600) != 0) return -1;
        const std::string words = shellQuoted(program()) + " edit " + shellQuoted(path("dome.skorrax")) + " Edited > " +
                                  shellQuoted(path("output")) + " < " + shellQuoted(input);
        StartedProgram shell({"/bin/sh", "-c", words}, path("errors"));
        std::ofstream line(input);  // opens when the program has
        while (folder.read(L"output") != "opened\n") std::this_thread::sleep_for(std::chrono::milliseconds(5));
        meanwhile();
        line << "save\n" << std::flush;
        return shell.end();
    }
};

}  // namespace

TEST_F(SharingExample, CountsEveryRunOfManyPrograms) {
    const int before = countedRuns();
    std::vector<StartedProgram> programs;
    for (int i = 0; i < 4; ++i) programs.push_back(StartedProgram({program(), "count", path("dome.skorrax"), "5"}));
    for (StartedProgram& counting : programs) EXPECT_EQ(counting.end(), 0);
    EXPECT_EQ(countedRuns(), before + 20);
}

TEST_F(SharingExample, SavesWhatWasEdited) {
    EXPECT_EQ(edit([] {}), 0);
    EXPECT_THAT(folder.read(L"dome.skorrax"), HasSubstr("<Name>Edited</Name>"));
}

TEST_F(SharingExample, DoesNotOverwriteWhatOthersChanged) {
    const auto setElsewhere = [this] {
        ASSERT_EQ(runTool({"set", path("dome.skorrax"), "System/RunType=CinemaRun"}).status, 0);
    };
    EXPECT_EQ(edit(setElsewhere), 1);
    EXPECT_THAT(folder.read(L"dome.skorrax"), testing::Not(HasSubstr("Edited")));
    EXPECT_THAT(folder.read(L"dome.skorrax"), HasSubstr("CinemaRun"));
    EXPECT_THAT(folder.read(L"errors"), HasSubstr("was changed by another program; not saved"));
}
