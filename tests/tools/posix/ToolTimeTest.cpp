#include <gtest/gtest.h>

#include <string>

#include "tests/support/CurrentFile.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using ToolTime = ToolFiles;

const std::string fiveSecondsAtMost = "ulimit -t 5;";  // of a processor; the shell ends what takes longer

TEST_F(ToolTime, OfNumbersForPeopleGrowsWithTheDevicesOnly) {
    std::string projectors;
    std::string expected;
    for (int number = 1; number <= 6000; ++number) {
        const std::string id = std::to_string(number);
        projectors +=
            "<Projector ID=\"" + id + "\"><Name>P" + id + "</Name><Gamma>2.500000000000000e+00</Gamma></Projector>";
        expected += "Projector[" + id + "]/Gamma\t2.5\n";
    }
    const std::string file = fileOf(currentFile(projectors));
    expectRun(runTool({"get", "--human", file, "Projector[*]/Gamma"}, fiveSecondsAtMost), 0, expected);
}

}  // namespace
