#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/CurrentFile.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;

using ToolFileNames = ToolFiles;

// A backslash parts folders for the library, and not for shells.
TEST_F(ToolFileNames, ABackslashIsQuotedInCommands) {
    std::string file = fileOf(currentFile(""), "hall.skorrax");
    file[file.rfind('/')] = '\\';
    EXPECT_THAT(runTool({"show", file}).output, HasSubstr(" (xmlconfig check '" + file + "')\n"));
}

TEST_F(ToolFileNames, AHyphenAtTheStartIsNoOptionInCommands) {
    const std::string inFolder = "cd " + shellQuoted(std::filesystem::path(example()).parent_path().string()) + " && ";
    fileOf(exampleText(), "-x.skorrax");
    EXPECT_THAT(runTool({"show", "--", "-x.skorrax"}, inFolder).output, HasSubstr(" (xmlconfig check ./-x.skorrax)\n"));
}

TEST_F(ToolFileNames, APipeIsToldAsTheReason) {
    const std::string pipe = path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    expectRun(runTool({"show", pipe}), 3, "",
              "xmlconfig: Error parseDataFile: Can not open file: " + pipe + "; it is a pipe or a device\n");
}

}  // namespace
