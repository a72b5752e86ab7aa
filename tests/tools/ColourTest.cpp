#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TerminalRun.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;
using testing::Not;

const std::vector<std::string> check = {"check", "--only", "XC409", "examples/dome.skorrax"};
const char* const escape = "\x1b[";

TEST(Colour, IsForTerminalsThatKnowIt) {
    const std::optional<TerminalRun> run = runOnATerminal(check, ToTerminal::Output, "TERM=xterm NO_COLOR=");
    if (!run) GTEST_SKIP() << "the system gives no terminal";
    EXPECT_THAT(run->shown, HasSubstr(escape));
    EXPECT_THAT(runOnATerminal(check, ToTerminal::Output, "TERM=dumb")->shown, Not(HasSubstr(escape)));
    EXPECT_THAT(runOnATerminal(check, ToTerminal::Output, "TERM=xterm NO_COLOR=1")->shown, Not(HasSubstr(escape)));
}

TEST(Colour, IsAsItIsWished) {
    std::vector<std::string> wished = check;
    wished.insert(wished.end(), {"--color", "always"});
    EXPECT_THAT(runTool(wished, "TERM=dumb").output, HasSubstr(escape));
    EXPECT_THAT(runTool(check, "TERM=xterm").output, Not(HasSubstr(escape)));
}

}  // namespace
