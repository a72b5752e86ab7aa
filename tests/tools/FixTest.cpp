#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

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

TEST_F(Fix, DoesTheSafeMendsAndChecksAgain) {
    const std::string file = fileOf(exampleText());
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

TEST_F(Fix, WritesNothingInADryRun) {
    const std::string file = fileOf(exampleText());
    EXPECT_EQ(runTool({"check", "--fix", "--dry-run", "--only", "XC409", file}).output,
              change + " (dry run, nothing written)\n" + file + ": 0 errors, 0 warnings, 0 notes; all is well\n");
    EXPECT_EQ(contentOf(file), exampleText());
    const Json answer = Json::parse(runTool({"check", "--fix", "--dry-run", "--json", file}).output);
    EXPECT_EQ(answer["files"][0]["written"], false);
    EXPECT_EQ(answer["files"][0]["changes"].size(), 1U);
}

TEST_F(Fix, AnswersInJson) {
    const std::string file = fileOf(exampleText());
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
                              "Projector[VELDAR***00:0a:0b:0c:0d:01]/Gamma\n");
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

TEST_F(Fix, RefusesMendsThatMakeErrors) {
    const std::string text = "<ConfigInfo><Version>9.000</Version><Screen><Shape>sphere</Shape></Screen></ConfigInfo>";
    const std::string round = fileOf(text);
    const ToolRun run = runTool({"check", "--fix", round});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, StartsWith("xmlconfig: " + round +
                                       ": nothing was written, for the mends make errors\n"
                                       "error[XC501] Screen/Screen_Radius: a Sphere needs it (-1)\n"));
    EXPECT_THAT(run.errors, Not(HasSubstr("\n\n")));
    EXPECT_THAT(run.output, StartsWith("error[XC109] "));
    EXPECT_EQ(contentOf(round), text);
    EXPECT_THAT(runTool({"check", "--fix", fileOf(exampleText("<Shape>Sphere", "<Shape>sphere"))}).output,
                StartsWith("~ Screen/Shape                     sphere -> Sphere\n"));
}

TEST_F(Fix, GoesOnWithTheNextFile) {
    const std::string old = "examples/history/dome-8.000.skorrax";
    const std::string before = contentOf(old);
    const std::string file = fileOf(exampleText());
    const ToolRun run = runTool({"check", "--fix", "--json", path("missing"), old, file});
    EXPECT_EQ(run.status, 3);
    const Json files = Json::parse(run.output)["files"];
    EXPECT_TRUE(files[0].contains("fault"));
    EXPECT_EQ(files[1]["written"], false);
    EXPECT_EQ(files[2]["written"], true);
    EXPECT_THAT(run.errors, HasSubstr(old + ": is of file version 8.000 and must be upgraded first"));
    EXPECT_EQ(contentOf(old), before);
    EXPECT_EQ(contentOf(file), mendedExample());
}

TEST_F(Fix, RefusesWhatItCannotUnderstand) {
    const std::string file = fileOf(exampleText());
    expectRun(runTool({"check", "--fix=XC9", file}), 2, "",
              "xmlconfig: there is no rule XC9; docs/rules.md and 'xmlconfig describe' tell all\n");
    expectRun(runTool({"check", "--fix", "--accept", "XC408", "--because", "x", file}), 2, "",
              "xmlconfig: --fix and --accept exclude each other\n");
    expectRun(runToolReading(exampleText(), {"check", "--fix", "-"}), 2, "",
              "xmlconfig: --fix writes to files and cannot take standard input\n");
    EXPECT_EQ(contentOf(file), exampleText());
}

}  // namespace
