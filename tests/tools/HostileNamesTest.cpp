#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

#include "tests/support/Example.h"
#include "tests/support/TerminalRun.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;
using Arguments = std::vector<std::string>;
using Json = nlohmann::json;

const std::string csi = "\u009b";
const std::string rightToLeft = "\u202e";
const std::string name = "Do\nme\t" + csi + "31m" + rightToLeft + "1\x7f";
const char* const shown = "Do\\nme\\t\\u009b31m\\u202e1\\u007f";

/// The example, in which a projector has a name that would disturb lines and terminals.
class HostileNames : public ToolFiles {
protected:
    HostileNames() : file(fileOf(text(), "dome.skorrax")) {}
    static std::string text() {
        return replaced(exampleText(), "<Name>Dome 1</Name>",
                        "<Name>Do&#10;me&#9;" + csi + "31m" + rightToLeft + "1\x7f</Name>");
    }
    static bool holdsControl(const std::string& output) {
        const auto isControl = [](char character) {
            const auto code = static_cast<unsigned char>(character);
            return (code < 0x20 && character != '\n' && character != '\t') || code == 0x7f;
        };
        return std::any_of(output.begin(), output.end(), isControl) || output.find(csi) != std::string::npos ||
               output.find(rightToLeft) != std::string::npos;
    }

    const std::string file;
};

}  // namespace

TEST_F(HostileNames, AreWrittenOutInTheTextOfEveryVerb) {
    const Arguments calls[] = {{"show", file},
                               {"show", "--all", file},
                               {"show", "--flat", file, "Projector[#1]/Name"},
                               {"show", file, "Projector[#1]/Name"},
                               {"get", "--human", file, "Projector[#1]/Name"},
                               {"get", "--default", "x", file, "Camera", "Projector[#2]/Name"},
                               {"check", "--strict", "--only", "XC408,XC409,XC104", file},
                               {"layout", file},
                               {"diff", file, "examples/dome.skorrax"},
                               {"diff", "--lines", "examples/dome.skorrax", file},
                               {"set", "--dry-run", file, "Projector[#1]/Gamma=2.4"},
                               {"set", file, "Projector[" + name + "]/Gama=2.4"},
                               {"unset", "--dry-run", file, "Projector[#1]/Gamma"},
                               {"unset", file, "Projector[" + name + "x]/Gamma"}};
    for (const Arguments& call : calls) {
        const ToolRun run = runTool(call);
        EXPECT_FALSE(holdsControl(run.output)) << testing::PrintToString(call) << run.output;
        EXPECT_FALSE(holdsControl(run.errors)) << testing::PrintToString(call) << run.errors;
    }
    for (const Arguments& call : {calls[0], calls[1], calls[2], calls[7], calls[8], calls[10]})
        EXPECT_THAT(runTool(call).output, HasSubstr("\\u009b31m\\u202e1\\u007f")) << testing::PrintToString(call);
}

TEST_F(HostileNames, BringNoColourOfTheirOwn) {
    const std::string old = replaced(exampleText(), "version=\"1.0\"", "version=\"1.1\"");
    const std::string coloured =
        fileOf(replaced(old, "<Name>Dome 1</Name>", "<Name>\n&#27;[31m1</Name>"), "coloured.skorrax");
    for (const Arguments& call : {Arguments{"show", coloured}, Arguments{"show", "--all", coloured},
                                  Arguments{"show", coloured, "Projector[#1]/Name"}, Arguments{"layout", coloured},
                                  Arguments{"get", "--human", coloured, "Projector[*]/Name"},
                                  Arguments{"set", "--dry-run", coloured, "Projector[#1]/Gamma=2.4"}}) {
        const ToolRun run = runTool(call);
        EXPECT_THAT(run.output, HasSubstr("\\u001b[31m1")) << testing::PrintToString(call);
        EXPECT_EQ(run.output.find('\x1b'), std::string::npos) << testing::PrintToString(call);
    }
    const std::optional<TerminalRun> run = runOnATerminal({"get", coloured, "Projector[#1]/Name"}, ToTerminal::Output);
    if (!run) GTEST_SKIP() << "no terminal can be made here";
    EXPECT_THAT(run->shown, HasSubstr("\\u001b[31m1"));
    EXPECT_EQ(run->shown.find("\x1b[31m"), std::string::npos);
}

TEST_F(HostileNames, LeaveAFindingOnItsLine) {
    folder.write(L"dome.skorrax", replaced(text(), "<Gamma>2.2", "<Gamma>9.2"));
    const ToolRun run = runTool({"check", "--only", "XC114", file});
    const ToolRun plain = runTool({"check", "--only", "XC114", fileOf(replaced(exampleText(), "<Gamma>2.2", "<Gamma>9.2"))});
    EXPECT_THAT(run.output, HasSubstr(std::string("Projector[") + shown + "]/Gamma"));
    EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'),
              std::count(plain.output.begin(), plain.output.end(), '\n'));
    const ToolRun show = runTool({"show", file});
    EXPECT_THAT(show.output, HasSubstr(std::string("\n  1  ") + shown + "  -67.5° / 22°"));
}

TEST_F(HostileNames, AreExactInJson) {
    EXPECT_EQ(Json::parse(runTool({"show", "--json", file}).output)["projectors"][0]["name"], name);
    EXPECT_EQ(Json::parse(runTool({"get", "--json", file, "Projector[#1]/Name"}).output)["values"][0]["text"], name);
    EXPECT_EQ(Json::parse(runTool({"layout", "--json", file}).output)["projectors"][0]["name"], name);
}

TEST_F(HostileNames, OfOneTextAreExactForPrograms) {
    expectRun(runTool({"get", file, "Projector[#1]/Name"}), 0, name + "\n");
    const std::optional<TerminalRun> run = runOnATerminal({"get", file, "Projector[#1]/Name"}, ToTerminal::Output);
    if (!run) GTEST_SKIP() << "no terminal can be made here";
    EXPECT_THAT(run->shown, HasSubstr("\\u009b31m\\u202e1\\u007f"));
    EXPECT_EQ(run->shown.find(csi), std::string::npos);
}

TEST_F(HostileNames, ComeBackFromLines) {
    const std::string lines = runTool({"show", "--flat", file}).output;
    const std::string copy = fileOf(exampleText(), "copy.skorrax");
    ASSERT_EQ(runToolReading(lines, {"set", "--force", copy, "--from", "-"}).status, 0);
    expectRun(runTool({"get", copy, "Projector[#1]/Name"}), 0, name + "\n");
    expectRun(runTool({"diff", file, copy}), 0, "0 renamed, 0 changed, 0 added, 0 removed\n");
}

TEST_F(HostileNames, OfFilesAndArgumentsGiveNoOrders) {
    const std::string bad = path("a\x1b[31mb\n.skorrax");
    for (const Arguments& call :
         {Arguments{"show", bad}, Arguments{"check", bad}, Arguments{"upgrade", bad}, Arguments{"new", bad + "x"},
          Arguments{"get", file, "Screen/\x1b[31m"}, Arguments{"\x1b[31m"}, Arguments{"show", "--\x1b[31m", file},
          Arguments{"describe", "\x1b[31m"}, Arguments{"layout", "--svg", bad + "/x", file}}) {
        const ToolRun run = runTool(call);
        EXPECT_NE(run.status, 0);
        EXPECT_FALSE(holdsControl(run.output + run.errors)) << run.errors;
        EXPECT_THAT(run.errors, HasSubstr("\\u001b[31m"));
    }
}
