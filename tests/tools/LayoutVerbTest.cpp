#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include <nlohmann/json.hpp>

#include "tests/support/CurrentFile.h"
#include "tests/support/Example.h"
#include "tests/support/Rig.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::json;

using LayoutVerb = ToolFiles;

const char* const exampleLayout =
    "Channels    4, seen from 0, 0, 1.65 m\n"
    "  #  Name    Heading       Field      Yaw                Pitch       Blends l/r/t/b   Cameras\n"
    "  1  Dome 1  -67.5° / 22°  60° x 50°  -105.3° .. -29.7°  -2° .. 48°  0 / 25 / 0 / 0   Dome left\n"
    "  2  Dome 2  -22.5° / 22°  60° x 50°  -60.3° .. 15.3°    -2° .. 48°  25 / 25 / 0 / 0  Dome left, Dome right\n"
    "  3  Dome 3  22.5° / 22°   60° x 50°  -15.3° .. 60.3°    -2° .. 48°  25 / 25 / 0 / 0  Dome right, Dome left\n"
    "  4  Dome 4  67.5° / 22°   60° x 50°  29.7° .. 105.3°    -2° .. 48°  25 / 0 / 0 / 0   Dome right\n"
    "Overlaps    3 pairs, wanted 25 %\n"
    "  Pair                Edge   Overlap of the image            Blend\n"
    "  Dome 2 over Dome 1  right  33 % in the middle, 22 to 41 %  25 %   ok\n"
    "  Dome 1 over Dome 2  left   33 % in the middle, 22 to 41 %  25 %   ok\n"
    "  Dome 3 over Dome 2  right  33 % in the middle, 22 to 41 %  25 %   ok\n"
    "  Dome 2 over Dome 3  left   33 % in the middle, 22 to 41 %  25 %   ok\n"
    "  Dome 4 over Dome 3  right  33 % in the middle, 22 to 41 %  25 %   ok\n"
    "  Dome 3 over Dome 4  left   33 % in the middle, 22 to 41 %  25 %   ok\n"
    "Screen      54 % in one channel, 24 % in two, 0 % in more, 22 % in none\n";

TEST_F(LayoutVerb, ShowsTheExample) {
    const ToolRun run = runTool({"layout", example()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, exampleLayout);
    EXPECT_EQ(run.errors, "");
}

TEST_F(LayoutVerb, ReadsStandardInput) {
    const ToolRun run = runToolReading(TemporaryFolder::readFile(example()), {"layout", "-"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, exampleLayout);
    const ToolRun broken = runToolReading("<a>\n", {"layout", "-"});
    EXPECT_EQ(broken.status, 3);
    EXPECT_EQ(broken.output, "");
    EXPECT_THAT(broken.errors, HasSubstr("standard input XML message is: line 2, column 1: "));
}

TEST_F(LayoutVerb, TellsGapsAndBlendsThatDoNotFit) {
    const ToolRun run = runTool({"layout", example("<Yaw>3.926990816987241e-01", "<Yaw>7.417649320975901e-01")});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr("  Dome 3 over Dome 2  right  0 % in the middle, 0 to 16 %    25 %   too wide\n"
                                      "  Dome 2 over Dome 3  left   0 % in the middle, 0 to 16 %    25 %   too wide\n"
                                      "  Dome 4 over Dome 3  right  61 % in the middle, 47 to 66 %  25 %   too narrow\n"));
    EXPECT_THAT(run.output, HasSubstr("\nGaps        1\n  Dome 2 to Dome 3  5°\n"));
}

TEST_F(LayoutVerb, BlendIsHeldAgainstAllNeighboursOnItsEdge) {
    // The second lies beside the first, the third touches its upper right corner only.
    ConfigInfo document;
    put(document, {{}, {45.0}, {50.0, 28.0}});
    ProjectorConfig(&document, L"1").setBlendPercentRight(28.0);
    const std::string output = runTool({"layout", fileOf(document)}).output;
    EXPECT_THAT(output, HasSubstr("P2 over P1  right   27 % in the middle, 26 to 27 %  28 %   ok"));
    EXPECT_THAT(output, Not(HasSubstr("too wide")));
}

TEST_F(LayoutVerb, TellsHoles) {
    ConfigInfo document;
    std::vector<RigChannel> sides = cube();
    sides.erase(sides.begin());
    put(document, sides);
    putSphere(document, -180.0, 180.0, -90.0, 90.0);
    EXPECT_THAT(runTool({"layout", fileOf(document)}).output,
                EndsWith("17 % in none\nHoles       1\n  17 % of the screen, -45° to 45° around, -45° to 45° up\n"));
}

TEST_F(LayoutVerb, TellsWhyAChannelIsNotUsable) {
    ConfigInfo document;
    put(document, {{}, {0.0, 0.0, 0.0, 30.0, -30.0}, {-67.5 * 57.3}, {0.0, 0.0, 0.0, -30.0, 95.0}, {0, 0, 0, 0, 0, 0, 0}});
    const ToolRun run = runTool({"layout", fileOf(document)});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr("\nNot usable  4\n"
                                      "  P2  Left (30°) is not left of Right (-30°)\n"
                                      "  P3  an angle is beyond a full turn; it looks like degrees stored as radians\n"
                                      "  P4  an edge 95° off the line of sight\n"
                                      "  P5  has no channel yet\n"
                                      "Overlaps    0 pairs\n"));
}

TEST_F(LayoutVerb, AnswersInJson) {
    const std::string file = example();
    const ToolRun run = runTool({"layout", "--json", file});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output.rfind("{\n  \"format\": 1,\n  \"verb\": \"layout\",\n  \"file\": ", 0), 0u);
    EXPECT_THAT(run.output, EndsWith("  \"exit\": 0\n}\n"));
    const Json json = Json::parse(run.output);
    EXPECT_EQ(json["file"], file);
    EXPECT_EQ(json["angles"], "degrees");
    ASSERT_EQ(json["projectors"].size(), 4u);
    EXPECT_EQ(json["projectors"][0], Json::parse(R"({"number": 1, "id": "VELDAR***00:0a:0b:0c:0d:01", "name": "Dome 1",
        "yaw": -67.5, "pitch": 22.0, "roll": 0.0, "left": -30.0, "right": 30.0, "top": 26.0, "bottom": -24.0,
        "span": {"yaw": [-105.3, -29.7], "pitch": [-2.0, 48.0]},
        "blend": {"left": 0.0, "right": 25.0, "top": 0.0, "bottom": 0.0},
        "cameras": ["PGR***02:1c:00:51:00:a0"], "offScreen": 17.2, "fault": null})"));
    ASSERT_EQ(json["overlaps"].size(), 3u);
    EXPECT_EQ(json["overlaps"][0]["projectors"],
              Json::parse(R"(["VELDAR***00:0a:0b:0c:0d:01", "VELDAR***00:0a:0b:0c:0d:02"])"));
    EXPECT_EQ(json["overlaps"][0]["of"][0],
              Json::parse(R"({"id": "VELDAR***00:0a:0b:0c:0d:01", "edge": "right", "middle": 32.7, "least": 21.9,
        "most": 41.3, "full": true, "area": 31.2, "blend": 25.0})"));
    EXPECT_EQ(json["gaps"], Json::array());
    EXPECT_EQ(json["screen"]["inNone"], 21.6);
    EXPECT_EQ(json["screen"]["inOne"], 54.0);
    EXPECT_EQ(json["screen"]["inTwo"], 24.3);
    EXPECT_EQ(json["screen"]["inMore"], 0.0);
    EXPECT_EQ(json["screen"]["uncoveredBands"], Json::parse("[[-10.0, -7.0], [44.5, 60.0]]"));
    EXPECT_EQ(json["screen"]["holes"], Json::array());
}

TEST_F(LayoutVerb, JsonHasNullForWhatIsNotKnown) {
    const ToolRun run = runTool({"layout", "--json", fileOf(currentFile("<Projector ID='a'/>"))});
    const Json json = Json::parse(run.output);
    EXPECT_EQ(json["screen"], nullptr);
    EXPECT_EQ(json["projectors"][0]["span"], nullptr);
    EXPECT_EQ(json["projectors"][0]["blend"]["left"], nullptr);
    EXPECT_EQ(json["projectors"][0]["offScreen"], nullptr);
    EXPECT_EQ(json["projectors"][0]["fault"], "has no channel yet");
}

TEST_F(LayoutVerb, OldFilesAreReadAsUpgraded) {
    const std::string old = TemporaryFolder::readFile("examples/history/dome-1.500.skorra");
    const std::string file = fileOf(old);
    const ToolRun run = runTool({"layout", file});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr("Channels    4, seen from "));
    EXPECT_THAT(run.errors, HasSubstr("xmlconfig: " + file +
                                      ": is of file version 1.500; read as it would be after the upgrade, "
                                      "which drops 1 device"));
    EXPECT_EQ(TemporaryFolder::readFile(file), old);
    EXPECT_EQ(folder.entries(), 1u);
}

void expectUnreadable(const std::string& file, const std::string& why) {
    for (const char* option : {"--json", "--color=never"}) {
        const ToolRun run = runTool({"layout", option, file});
        EXPECT_EQ(run.status, 3) << file;
        if (option != std::string("--json")) EXPECT_EQ(run.output, "");
        else EXPECT_THAT(Json::parse(run.output)["error"].get<std::string>(), HasSubstr(why));
        EXPECT_THAT(run.errors, HasSubstr(why));
        EXPECT_THAT(run.errors, ::testing::StartsWith("xmlconfig: "));
        EXPECT_EQ(run.errors.find("xmlconfig: ", 1), std::string::npos) << run.errors;  // one message
    }
}

TEST_F(LayoutVerb, WhatIsNoConfigurationIsStatusThree) {
    expectUnreadable((folder.path() / "missing.skorrax").string(), "Can not open file");
    expectUnreadable(folder.path().string(), "Can not open file");
    expectUnreadable(fileOf(""), "XML message is: line 1, column 1: ");
    expectUnreadable(fileOf("<ConfigInfo><Version>9.000</Version>"), "XML message is: line 1, column ");
    expectUnreadable(fileOf("<html><body/></html>"), "is no configuration, its root element is \"html\"");
    expectUnreadable(fileOf("<ConfigInfo/>"), "is no configuration, it has no version");
    expectUnreadable(fileOf("<ConfigInfo><Version>10.000</Version></ConfigInfo>"),
                     "is of file version 10.000; this program knows 9.000");
}

TEST_F(LayoutVerb, PictureThatCannotBeWrittenIsStatusThree) {
    const ToolRun run = runTool({"layout", "--svg", (folder.path() / "none" / "x.svg").string(), example()});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "xmlconfig: Error writeFile: Can not write file " + (folder.path() / "none" / "x.svg").string() +
                              ": No such file or directory\n");
}

TEST_F(LayoutVerb, PictureNeverReplacesTheConfiguration) {
    const std::string file = example();
    const std::string before = TemporaryFolder::readFile(file);
    const ToolRun run =
        runTool({"layout", "--svg",
                 (std::filesystem::path(file).parent_path() / "." / std::filesystem::path(file).filename()).string(), file});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, EndsWith(": is the configuration; the picture would replace it\n"));
    EXPECT_EQ(TemporaryFolder::readFile(file), before);
    EXPECT_EQ(runTool({"layout", "--svg", "", file}).status, 2);
}

TEST_F(LayoutVerb, ShowsTheUnitsOfTheDocument) {
    const std::string file = example("<AngleUnit>Degrees</AngleUnit>", "<AngleUnit>Radians</AngleUnit>");
    EXPECT_THAT(runTool({"layout", file}).output,
                HasSubstr("  1  Dome 1  -1.1781 rad / 0.384 rad  1.0472 rad x 0.8727 rad  -1.838 rad .. -0.518 rad  "
                          "-0.035 rad .. 0.838 rad  0 / 25 / 0 / 0   Dome left\n"));
    EXPECT_THAT(runTool({"layout", example("<Length_Unit>Meters", "<Length_Unit>Millimeters")}).output,
                HasSubstr("seen from 0, 0, 1650 mm\n"));
}

TEST_F(LayoutVerb, ColoursWhenAsked) {
    const std::string file = example();
    EXPECT_EQ(runTool({"layout", file}).output, exampleLayout);
    EXPECT_EQ(runTool({"layout", "--color=never", file}).output, exampleLayout);
    const std::string coloured = runTool({"layout", "--color", "always", file}, "NO_COLOR=1").output;
    EXPECT_THAT(coloured, HasSubstr("33 % in the middle, 22 to 41 %  25 %   \x1b[32mok\x1b[0m\n"));
    EXPECT_EQ(runTool({"layout", "--color=perhaps", file}).status, 2);
}

/// Runs it on a terminal: what a person would see.
std::string onTerminal(const std::string& file, const std::string& environment) {
    const TemporaryFolder folder;
    const std::string command = environment + " " + shellQuoted(toolPath()) + " layout " + shellQuoted(file);
    const std::string shell = "script -qec " + shellQuoted(command) + " /dev/null > " +
                              shellQuoted((folder.path() / "out").string()) + " < /dev/null";
    EXPECT_EQ(shellStatus(shell), 0);
    return folder.read(L"out");
}

TEST_F(LayoutVerb, ColoursOnATerminalUnlessRefused) {
    const std::string file = example();
    EXPECT_THAT(onTerminal(file, "TERM=xterm"), HasSubstr("\x1b[32mok"));
    EXPECT_THAT(onTerminal(file, "TERM=xterm NO_COLOR="), HasSubstr("\x1b[32mok"));
    EXPECT_THAT(onTerminal(file, "TERM=xterm NO_COLOR=1"), Not(HasSubstr("\x1b")));
}

TEST_F(LayoutVerb, WideNamesKeepTheColumns) {
    ConfigInfo document;
    put(document, {{}, {120.0}, {-120.0}});
    ProjectorConfig(&document, L"1").setName(L"日本");
    ProjectorConfig(&document, L"2").setName(L"e\u0301a");  // an accent that takes no column
    const std::string output = runTool({"layout", fileOf(document)}).output;
    EXPECT_THAT(output, HasSubstr("\n  1  日本  0° / 0°"));
    EXPECT_THAT(output, HasSubstr("\n  2  e\u0301a    120° / 0°"));
    EXPECT_THAT(output, HasSubstr("\n  3  P3    -120° / 0°"));
}

}  // namespace
