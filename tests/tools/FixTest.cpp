#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/support/CurrentFile.h"
#include "tests/support/Example.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using Json = nlohmann::json;

/// "check --fix" on copies of the example.
class Fix : public ToolFiles {
protected:
    static std::string contentOf(const std::string& file) { return TemporaryFolder::readFile(file); }
    /// The example with another gamma of the first projector.
    std::string withGamma(const std::string& gamma) const { return fileOf(exampleText("<Gamma>2.2", "<Gamma>" + gamma)); }
};

const std::string change =
    "- Projector[Dome 4]/Portrait_Mode  0 -> 0 (inherited from Geometry)\n"
    "1 change, 0 new findings, 1 solved (XC409)";

/// The example without what is mended, the last of its lines that say so.
std::string mendedExample() {
    std::string text = exampleText();
    const std::string line = "    <Portrait_Mode>0</Portrait_Mode>\n";
    text.erase(text.rfind(line), line.size());
    return text;
}

TEST_F(Fix, ReplacesTheOlderNameOfAWord) {
    const std::string file = example("<Data_Type>Spherical", "<Data_Type>Projector Pose");
    EXPECT_THAT(runTool({"check", "--fix", "--only", "XC112", file}).output,
                StartsWith("~ TargetLocator/Data_Type  Projector Pose -> Projector Centric\n"
                           "1 change, 0 new findings, 1 solved (XC112)"));
    EXPECT_EQ(contentOf(file), exampleText("<Data_Type>Spherical", "<Data_Type>Projector Centric"));
}

TEST_F(Fix, DoesTheSafeMendsAndChecksAgain) {
    const std::string file = example();
    const ToolRun run = runTool({"check", "--fix", "--only", "XC408,XC409", file});
    EXPECT_EQ(run.output, change + "\nnote[XC408] " + file +
                              ":364 Projector[Dome 2]/Box_Spacing: 2, the other 3 projectors "
                              "have 1.5\n" +
                              file + ": 0 errors, 0 warnings, 1 note\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(contentOf(file), mendedExample());
    EXPECT_THAT(runTool({"check", "--fix", file}).output, StartsWith("0 changes, 0 new findings\n"));
    EXPECT_EQ(contentOf(file), mendedExample());
}

TEST_F(Fix, QuietlyTellsWhatIsLeftAlone) {
    const std::string file = example();
    expectRun(runTool({"check", "--fix", "--quiet", "--only", "XC409", file}), 0,
              file + ": 0 errors, 0 warnings, 0 notes; all is well\n");
    EXPECT_EQ(contentOf(file), mendedExample());
}

TEST_F(Fix, WritesNothingInADryRun) {
    const std::string file = example();
    EXPECT_EQ(runTool({"check", "--fix", "--dry-run", "--only", "XC409", file}).output,
              change + " (dry run, nothing written)\n" + file + ": 0 errors, 0 warnings, 0 notes; all is well\n");
    EXPECT_EQ(contentOf(file), exampleText());
    const Json answer = Json::parse(runTool({"check", "--fix", "--dry-run", "--json", file}).output);
    EXPECT_EQ(answer["files"][0]["written"], false);
    EXPECT_EQ(answer["files"][0]["changes"].size(), 1U);
}

TEST_F(Fix, AnswersInJson) {
    const std::string file = example();
    const ToolRun run = runTool({"check", "--fix", "--json", "--only", "XC409", file});
    EXPECT_EQ(Json::parse(run.output), Json::parse(R"json({"format": 1, "verb": "check", "files": [{
        "file": )json" + Json(file).dump() + R"json(, "version": 9.0, "written": true, "changes": [{
          "address": "Projector[VELDAR***00:0a:0b:0c:0d:1f]/Portrait_Mode", "kind": "removed", "old": "0", "new": null}],
        "errors": 0, "warnings": 0, "notes": 0, "accepted": 0, "findings": []}], "exit": 0})json"));
}

TEST_F(Fix, LeavesFilesWithAnErrorOfTheirFormAlone) {
    const std::string file = withGamma("2,2");
    const std::string before = contentOf(file);
    const ToolRun run = runTool({"check", "--fix", "--only", "XC409", file});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "xmlconfig: " + file +
                              ": nothing is mended in a file with an error of its form: XC103 "
                              "Projector[VELDAR***00:0a:0b:0c:0d:01]/Gamma; --fix=XC103 mends that too\n");
    EXPECT_THAT(run.output, StartsWith("note[XC409] "));
    EXPECT_EQ(contentOf(file), before);
    const std::string whole = runTool({"check", file}).output;
    EXPECT_THAT(whole, HasSubstr("\nnote[XC409] "));
    EXPECT_THAT(whole, Not(HasSubstr("mended by --fix")));
}

TEST_F(Fix, DoesOtherMendsOfTheRulesThatItNamesOnly) {
    const std::string file = withGamma("2,3");
    const ToolRun run = runTool({"check", "--fix=xc103,XC104", file});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(
        run.output,
        StartsWith("~ Projector[Dome 1]/Gamma          2,300000000000000e+00 -> 2.3\n- Projector[Dome 4]/Portrait_Mode"));
    EXPECT_THAT(contentOf(file), HasSubstr("<Gamma>2.300000000000000e+00<"));
}

TEST_F(Fix, MendsWhatAMendUncovers) {
    std::string text = exampleText("<Associated_Camera_Id_1>PGR***02:1c:00:51:00:a0</Associated_Camera_Id_1>",
                                   "<Associated_Camera_Id_2>old</Associated_Camera_Id_2>");
    replaceOnce(text, "<Camera ID=\"PGR***02:1c:00:51:00:a0\">",
                "<Camera ID=\"PGR***02:1c:00:51:00:a0\">\n<OldSectionID>old</OldSectionID>");
    const std::string file = fileOf(text);
    EXPECT_EQ(runTool({"check", "--fix", "--only", "XC208,XC210", file}).output,
              "~ Projector[Dome 1]/Associated_Camera_Id_2  old -> Dome left\n"
              "+ Projector[Dome 1]/Associated_Camera_Id_1  Dome left\n"
              "- Projector[Dome 1]/Associated_Camera_Id_2  Dome left -> \"\" (default)\n"
              "3 changes, 0 new findings, 2 solved (XC208, XC210)\n" +
                  file + ": 0 errors, 0 warnings, 0 notes; all is well\n");
}

TEST_F(Fix, FollowsAllRenamedCamerasAtOnce) {
    std::string text = exampleText("PGR***02:1c:00:51:00:a0,PGR***02:1c:00:51:00:a4</CameraOrder>",
                                   "1,2,3,4,5,6,PGR***02:1c:00:51:00:a0,PGR***02:1c:00:51:00:a4</CameraOrder>");
    std::string cameras;
    for (const char* const id : {"1", "2", "3", "4", "5", "6"})
        cameras += std::string("<Camera ID=\"new-") + id + "\"><OldSectionID>" + id + "</OldSectionID></Camera>";
    replaceOnce(text, "</ConfigInfo>", cameras + "</ConfigInfo>");
    const std::string file = fileOf(text);
    EXPECT_THAT(runTool({"check", "--fix", "--only", "XC208", file}).output, HasSubstr("all is well"));
    EXPECT_THAT(contentOf(file), HasSubstr("new-1,new-2,new-3,new-4,new-5,new-6,PGR"));
}

TEST_F(Fix, TakesAwayASecondItemOfTheSameText) {
    std::string text = exampleText();
    replaceOnce(text, "<Fit_Order>3<", "<Fit_Order>3</Fit_Order><Fit_Order>3</Fit_Order><Fit_Order>3<");
    replaceOnce(text, "<Blend_Run>true<", "<Blend_Run>true</Blend_Run><Blend_Run>false</Blend_Run><Blend_Run>true<");
    const std::string file = fileOf(text);
    const ToolRun run = runTool({"check", "--fix", "--only", "XC106", file});
    EXPECT_THAT(run.output, StartsWith("~ Geometry/Fit_Order  3 -> 3\n~ Geometry/Fit_Order  3 -> 3\n2 changes, "));
    EXPECT_THAT(run.output, HasSubstr("/Blend_Run: is hidden by that in line "));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(runTool({"get", file, "Geometry/Fit_Order"}).output, "3\n");
    EXPECT_THAT(contentOf(file), Not(HasSubstr("<Fit_Order>3</Fit_Order><Fit_Order>")));
}

TEST_F(Fix, TakesAwayASecondSectionOfTheSameContent) {
    const std::string one = "<Projector ID=\"A\"><Name>One</Name><Gamma>2.2</Gamma></Projector>";
    const std::string other = "<Projector ID=\"B\"><Name>Two</Name></Projector>";
    const std::string screen = "<Screen><Shape>Flat</Shape></Screen>";
    const std::string file = fileOf(currentFile(one + screen + other + one + one + screen));
    const ToolRun run = runTool({"check", "--fix", "--only", "XC106", file});
    EXPECT_EQ(run.output,
              "- Projector[One]  2 settings, a second time\n- Projector[One]  2 settings, a second time\n"
              "- Screen          1 setting, a second time\n3 changes, 0 new findings, 3 solved (XC106)\n" +
                  file + ": 0 errors, 0 warnings, 0 notes; all is well\n");
    EXPECT_EQ(runTool({"get", file, "Projector[*]/Name"}).output, "Projector[A]/Name\tOne\nProjector[B]/Name\tTwo\n");
    EXPECT_EQ(runTool({"get", file, "Screen/Shape"}).output, "Flat\n");
}

TEST_F(Fix, LeavesSecondSectionsOfOtherContent) {
    const auto named = [](const std::string& name) { return "<Camera ID=\"A\"><Name>" + name + "</Name></Camera>"; };
    const std::string text = currentFile(named("One") + named("Two") + named("One"));
    const std::string file = fileOf(text);
    const ToolRun run = runTool({"check", "--fix", "--only", "XC106", file});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr(": 2 errors, "));
    EXPECT_EQ(contentOf(file), text);
}

TEST_F(Fix, LeavesSecondItemsAloneThatUnsetDoesNotReach) {
    const std::string file =
        fileOf(currentFile("<Screen><Checkerboard_Calibration><Grid_Size><Rows>3</Rows>"
                           "<Rows>3</Rows></Grid_Size></Checkerboard_Calibration></Screen>"));
    EXPECT_THAT(runTool({"check", "--fix", "--only", "XC106", file}).output, StartsWith("0 changes, "));
    const Json answer = Json::parse(runTool({"check", "--json", "--only", "XC106", file}).output);
    EXPECT_EQ(answer["files"][0]["findings"][0]["mend"]["safety"], "none");
}

TEST_F(Fix, TakesAwayCommentsThatAcceptNothing) {
    std::string text = exampleText();
    replaceOnce(text, "<Geometry>", "<Geometry><!-- xmlconfig accepts XC407: by hand --><!-- keep me -->");
    replaceOnce(text, "<System>", "<!-- xmlconfig accepts XC701: one box --><System>");
    const std::string file = fileOf(text);
    const ToolRun run = runTool({"check", "--fix", "--only", "XC910", file});
    EXPECT_THAT(run.output, StartsWith("- Geometry        xmlconfig accepts XC407: by hand\n"
                                       "- the whole file  xmlconfig accepts XC701: one box\n"
                                       "2 changes, 0 new findings, 2 solved (XC910)\n"));
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(contentOf(file), Not(HasSubstr("xmlconfig accepts")));
    EXPECT_THAT(contentOf(file), HasSubstr("<!-- keep me -->"));
}

TEST_F(Fix, TakesAwayCommentsThatAcceptMissingFilesWhichAreThere) {
    const std::string file = fileOf(currentFile("<Screen><!-- xmlconfig accepts XC902: later --></Screen>"));
    EXPECT_THAT(runTool({"check", "--fix", "--no-files", file}).output, StartsWith("0 changes, "));
    EXPECT_THAT(runTool({"check", "--fix", file}).output,
                StartsWith("- Screen  xmlconfig accepts XC902: later\n1 change, "));
    EXPECT_THAT(contentOf(file), Not(HasSubstr("accepts")));
}

TEST_F(Fix, SaysThatARuleHasNoMend) {
    const std::string file = fileOf(exampleText());
    expectRun(runTool({"check", "--fix=XC409,xc301", file}), 2, "",
              "xmlconfig: --fix=XC301: the rule has no mend that a program could do; 'xmlconfig describe XC301' tells "
              "what it looks at\n");
    expectRun(runTool({"check", "--fix=XC206", file}), 2, "",
              "xmlconfig: --fix=XC206: the rule has no mend that a program could do, only a person: set another name\n");
    EXPECT_EQ(contentOf(file), exampleText());
}

TEST_F(Fix, RefusesMendsThatMakeErrors) {
    const std::string text = currentFile("<Screen><Shape>sphere</Shape></Screen>");
    const std::string round = fileOf(text);
    const ToolRun run = runTool({"check", "--fix", round});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, StartsWith("xmlconfig: " + round +
                                       ": nothing was written, for the mends make errors\n"
                                       "error[XC501] Screen/Screen_Radius: a Sphere needs it (-1)\n"));
    EXPECT_THAT(run.errors, Not(HasSubstr("\n\n")));
    EXPECT_THAT(run.output, StartsWith("error[XC109] "));
    EXPECT_EQ(contentOf(round), text);
    EXPECT_THAT(runTool({"check", "--fix", example("<Shape>Sphere", "<Shape>sphere")}).output,
                StartsWith("~ Screen/Shape                     sphere -> Sphere\n"));
}

TEST_F(Fix, GoesOnWithTheNextFile) {
    const std::string old = "examples/history/dome-8.000.skorrax";
    const std::string before = contentOf(old);
    const std::string file = example();
    const ToolRun run = runTool({"check", "--fix", "--json", path("missing"), old, file});
    EXPECT_EQ(run.status, 3);
    const Json files = Json::parse(run.output)["files"];
    EXPECT_TRUE(files[0].contains("error"));
    EXPECT_EQ(files[1]["written"], false);
    EXPECT_EQ(files[2]["written"], true);
    EXPECT_THAT(run.errors, HasSubstr(old + ": is of file version 8.000 and must be upgraded first"));
    EXPECT_EQ(contentOf(old), before);
    EXPECT_EQ(contentOf(file), mendedExample());
}

TEST_F(Fix, WithAnEmptyValueIsWrongUsage) {
    const std::string file = example();
    const ToolRun run = runTool({"check", "--json", "--fix=", file});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.errors, "xmlconfig: --fix=: nothing follows the =\nxmlconfig: see 'xmlconfig check --help'\n");
    EXPECT_EQ(Json::parse(run.output)["verb"], "check");
    EXPECT_EQ(contentOf(file), exampleText());
}

TEST_F(Fix, RefusesWhatItCannotUnderstand) {
    const std::string file = example();
    expectRun(runTool({"check", "--fix=XC9", file}), 2, "",
              "xmlconfig: there is no rule \"XC9\"; docs/rules.md and 'xmlconfig describe XC' list all\n");
    expectRun(runTool({"check", "--fix", "--accept", "XC408", "--because", "x", file}), 2, "",
              "xmlconfig: --fix and --accept exclude each other\n");
    expectRun(runToolReading(exampleText(), {"check", "--fix", "-"}), 2, "",
              "xmlconfig: --fix writes to files and cannot take standard input\n");
    EXPECT_EQ(contentOf(file), exampleText());
}

}  // namespace
