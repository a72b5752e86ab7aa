#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/manager/TestManager.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/TerminalRun.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class UpgradeVerb : public ToolFiles {
protected:
    std::string write(const std::string& name, const std::string& version, const std::string& sections = "") const {
        return fileOf(fileText(sections, version), name);
    }
};

const char* const feet = "<Screen><Unit>Feet</Unit></Screen>";

}  // namespace

TEST_F(UpgradeVerb, ConvertsInPlaceAndKeepsTheOldFile) {
    const std::string file = write("hall.skorra", "1.5", feet);
    const ToolRun run = runTool({"upgrade", file});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, file + ": version 1.500 -> 9.000, the old file is " + file + ".v1.500.bak\n" +
                              "1 upgraded, 0 at the latest version already, 0 failed\n");
    EXPECT_EQ(folder.read(L"hall.skorra.v1.500.bak"), fileText(feet, "1.5"));
    EXPECT_THAT(folder.read(L"hall.skorra"), HasSubstr("<Version>" + latestVersion + "</Version>"));
    EXPECT_EQ(folder.entries(), 2u);
}

TEST_F(UpgradeVerb, SecondRunChangesNothing) {
    const std::string file = write("hall.skorra", "1.5");
    runTool({"upgrade", file});
    const std::string once = folder.read(L"hall.skorra");
    const ToolRun run = runTool({"upgrade", file});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, file + ": at the latest version already\n0 upgraded, 1 at the latest version already, 0 failed\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(folder.read(L"hall.skorra"), once);
    EXPECT_EQ(folder.entries(), 2u);
}

TEST_F(UpgradeVerb, OutputLeavesTheOldFileAlone) {
    const std::string file = write("old.skorra", "3.0");
    const ToolRun run = runTool({"upgrade", file, "-o", path("new.skorrax")});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr(file + ": version 3.000 -> 9.000, in " + path("new.skorrax") + "\n"));
    EXPECT_EQ(folder.read(L"old.skorra"), fileText("", "3.0"));
    EXPECT_EQ(runTool({"check", path("new.skorrax")}).errors, "");
    EXPECT_EQ(folder.entries(), 2u);
}

TEST_F(UpgradeVerb, OutputThatExistsIsRefused) {
    const std::string file = write("old.skorra", "3.0");
    const std::string other = write("new.skorrax", latestVersion, feet);
    const ToolRun run = runTool({"upgrade", file, "-o", other});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, HasSubstr(other + ": exists already"));
    EXPECT_EQ(folder.read(L"new.skorrax"), fileText(feet));
}

TEST_F(UpgradeVerb, OutputGoesWithOneFileOnly) {
    const std::string one = write("1.skorra", "3.0");
    const std::string two = write("2.skorra", "3.0");
    const ToolRun run = runTool({"upgrade", one, two, "-o", path("new.skorrax")});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "xmlconfig: --output goes with one FILE only\n");
    EXPECT_EQ(nlohmann::json::parse(runTool({"upgrade", "--json", one, two, "-o", path("new.skorrax")}).output)["error"],
              "--output goes with one FILE only");
    EXPECT_EQ(folder.entries(), 2u);
}

TEST_F(UpgradeVerb, EmptyOutputIsWrongUsage) {
    const std::string file = write("1.skorra", "3.0");
    const ToolRun run = runTool({"upgrade", file, "-o", ""});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.errors, HasSubstr("the file name is empty"));
    EXPECT_EQ(folder.read(L"1.skorra"), fileText("", "3.0"));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(UpgradeVerb, GoesOnAfterAFileThatFails) {
    const std::string newer = write("newer.skorrax", "9.001");
    const std::string current = write("current.skorrax", latestVersion);
    const std::string old = write("old.skorrax", "8.0");
    const ToolRun run = runTool({"upgrade", newer, path("missing.skorrax"), current, old});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.output, HasSubstr(old + ": version 8.000 -> 9.000"));
    EXPECT_THAT(run.output, HasSubstr("\n1 upgraded, 1 at the latest version already, 2 failed\n"));
    EXPECT_THAT(run.errors, HasSubstr("xmlconfig: " + newer + ": not upgraded: "));
    EXPECT_THAT(run.errors, HasSubstr("xmlconfig: " + path("missing.skorrax") + ": not upgraded: "));
    EXPECT_THAT(run.errors, Not(HasSubstr("\r")));
    EXPECT_EQ(folder.read(L"newer.skorrax"), fileText("", "9.001"));
    EXPECT_EQ(folder.entries(), 4u);
}

TEST_F(UpgradeVerb, ShowsTheLineOfAFault) {
    folder.write(L"broken.skorrax", "<ConfigInfo>\n  <Version>8.0</Vers>\n");
    const ToolRun run = runTool({"upgrade", path("broken.skorrax")});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.errors, HasSubstr("\n    <Version>8.0</Vers>\n"));
    EXPECT_THAT(run.errors, testing::EndsWith(" ^\n"));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(UpgradeVerb, DryRunWritesNothing) {
    const std::string file = write("hall.skorra", "1.5");
    const ToolRun run = runTool({"upgrade", "--dry-run", file});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr(".v1.500.bak (dry run, nothing written)\n"));
    EXPECT_EQ(folder.read(L"hall.skorra"), fileText("", "1.5"));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(UpgradeVerb, StepsTellsWhatEachStepDid) {
    const std::string file = write("hall.skorrax", "7.5",
                                   "<Screen><Unit>Feet</Unit></Screen><Geometry><Fit_Solver>5</Fit_Solver></Geometry>"
                                   "<Camera ID=\"1\"><CameraType>0</CameraType></Camera><Camera ID=\"2\"/>");
    const ToolRun run = runTool({"upgrade", "--steps", "--dry-run", file});
    EXPECT_THAT(run.output,
                HasSubstr("\n  to 8.000: fit solver and overlap unit\n"
                          "    changed Geometry/Fit_Solver: 5 -> 1\n"
                          "    added TargetLocator\n"
                          "    added TargetLocator/Overlap_Display_Unit = Percent\n"
                          "  to 9.000: camera device snippets, units, geometry defaults from projectors\n"
                          "    added Camera[1]/DeviceSnippet = <device UID=\"PGR***\" name=\"\" password=\"\" type=\"PGR\" "
                          "version=\"1.0\"><bayerPattern>0</bayerPattern>"));
    EXPECT_THAT(run.output, HasSubstr("    removed Camera[1]/CameraType (was 0)\n    renamed Camera[1] -> PGR***\n"
                                      "    removed Camera[2], the whole section\n"));
    EXPECT_THAT(run.output, HasSubstr("    moved Screen/Unit -> System/Length_Unit = Feet\n"));
}

TEST_F(UpgradeVerb, StepThatFoundNothingSaysSo) {
    const std::string file = write("hall.skorrax", "7.5",
                                   "<Geometry><Fit_Solver>1</Fit_Solver></Geometry>"
                                   "<TargetLocator><Overlap_Display_Unit>Percent</Overlap_Display_Unit></TargetLocator>");
    EXPECT_THAT(runTool({"upgrade", "--steps", "--dry-run", file}).output,
                HasSubstr("  to 8.000: fit solver and overlap unit\n    nothing to do\n"));
}

TEST_F(UpgradeVerb, ExplainTellsInShortWhatBecameOfTheFile) {
    const ToolRun run = runTool({"upgrade", "--explain", "--dry-run", "examples/history/dome-8.000.skorrax"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(
        run.output,
        HasSubstr(".v8.000.bak (dry run, nothing written)\n"
                  "  lost     Camera[3] \"Old analogue\" with its 14 settings: cameras of type 7 are not known any more\n"
                  "  renamed  Camera[1] \"Front\" -> PGR***00:b0:9d:00:00:01, Camera[2] \"Rear\" -> "
                  "PGR***00:b0:9d:00:00:02; nothing refers to the old IDs\n"
                  "  moved    Screen/Unit -> System/Length_Unit, Screen/AngleUnit -> System/AngleUnit\n"
                  "  shared   6 settings stand in Geometry now, 16 of the projectors' own went; none reads differently\n"
                  "  joined   12 settings of cameras into their device snippets\n"
                  "  gone     15 settings that version 9.000 does not know (--steps lists every change)\n"));
    EXPECT_THAT(run.output, HasSubstr("\n1 upgraded, 0 at the latest version already, 0 failed; 1 lost something\n"));
}

TEST_F(UpgradeVerb, ExplainTellsWhatReadsDifferently) {
    const std::string file =
        write("hall.skorrax", "8.0",
              "<Geometry><Box_Spacing>3</Box_Spacing></Geometry>"
              "<Projector ID=\"a\"><Portrait_Mode>1</Portrait_Mode><Box_Spacing>2</Box_Spacing></Projector>"
              "<Projector ID=\"b\"><Portrait_Mode>1</Portrait_Mode><Box_Spacing>2</Box_Spacing></Projector>"
              "<Projector ID=\"c\"><Box_Size>10, 10</Box_Size></Projector>");
    EXPECT_THAT(
        runTool({"upgrade", "--explain", "--dry-run", file}).output,
        HasSubstr("\n  shared   2 settings stand in Geometry now, 4 of the projectors' own went; 2 read differently: "
                  "Projector[c]/Portrait_Mode 0 -> 1, Projector[c]/Box_Spacing 3 -> 2\n"));
    const auto json = nlohmann::json::parse(runTool({"upgrade", "--json", "--dry-run", file}).output);
    EXPECT_EQ(json["exit"], 0);
    EXPECT_EQ(json["files"][0]["readOtherwise"], nlohmann::json::parse(R"([
        {"address":"Projector[c]/Portrait_Mode","oldValue":"0","newValue":"1"},
        {"address":"Projector[c]/Box_Spacing","oldValue":"3.000000000000000e+00","newValue":"2.000000000000000e+00"}])"));
}

TEST_F(UpgradeVerb, ReferencesToRenamedCamerasComeWithTheCommandThatFollows) {
    const std::string file = write("hall.skorrax", "8.0",
                                   "<Camera ID=\"1\"><CameraType>0</CameraType></Camera>"
                                   "<Color><CameraOrder>1,9</CameraOrder></Color>"
                                   "<Projector ID=\"P\"><Associated_Camera_Id_1>1</Associated_Camera_Id_1>"
                                   "<Associated_Camera_Id_2>9</Associated_Camera_Id_2></Projector>");
    const ToolRun run = runTool({"upgrade", "--explain", "--dry-run", file});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr("  dangling Color/CameraOrder = 1,9: xmlconfig set " + inCommand(file) +
                                      " 'Color/CameraOrder=PGR***,9'\n"
                                      "  dangling Projector[P]/Associated_Camera_Id_1 = 1: xmlconfig set " +
                                      inCommand(file) + " 'Projector[P]/Associated_Camera_Id_1=PGR***'\n"));
    EXPECT_THAT(run.output, Not(HasSubstr("Associated_Camera_Id_2 =")));
}

TEST_F(UpgradeVerb, JsonTellsLosses) {
    const std::string file = write("hall.skorrax", "8.0",
                                   "<Camera ID=\"1\"><CameraType>0</CameraType></Camera>"
                                   "<Camera ID=\"2\"><Name>Old</Name></Camera>"
                                   "<Color><CameraOrder>1</CameraOrder></Color>");
    const auto json = nlohmann::json::parse(runTool({"upgrade", "--json", "--dry-run", file}).output);
    const auto& first = json["files"][0];
    EXPECT_EQ(json["exit"], 1);
    EXPECT_EQ(first["lost"], nlohmann::json::parse(R"([{"section":"Camera","id":"2","name":"Old","settings":1}])"));
    EXPECT_EQ(first["renamed"], nlohmann::json::parse(R"([{"section":"Camera","name":"","old":"1","new":"PGR***"}])"));
    ASSERT_EQ(first["dangling"].size(), 1u);
    EXPECT_EQ(first["dangling"][0]["command"], "xmlconfig set " + inCommand(file) + " 'Color/CameraOrder=PGR***'");
}

TEST_F(UpgradeVerb, JsonTellsTheSame) {
    const std::string old = write("old.skorrax", "8.0", feet);
    const std::string current = write("current.skorrax", latestVersion);
    const ToolRun run = runTool({"upgrade", "--json", old, current, path("missing.skorrax")});
    EXPECT_EQ(run.status, 3);
    const auto json = nlohmann::json::parse(run.output);
    EXPECT_EQ(json["upgraded"], 1);
    EXPECT_EQ(json["current"], 1);
    EXPECT_EQ(json["failed"], 1);
    EXPECT_EQ(json["dryRun"], false);
    const auto& first = json["files"][0];
    EXPECT_EQ(first["status"], "upgraded");
    EXPECT_EQ(first["file"], old);
    EXPECT_EQ(first["target"], old);
    EXPECT_EQ(first["backup"], old + ".v8.000.bak");
    EXPECT_EQ(first["from"], 8.0);
    EXPECT_EQ(first["to"], 9.0);
    ASSERT_EQ(first["steps"].size(), 1u);
    EXPECT_EQ(first["steps"][0]["version"], 9.0);
    const nlohmann::json move = {{"kind", "moved"},        {"section", "Screen"},    {"id", ""},
                                 {"key", "Unit"},          {"oldValue", "Feet"},     {"newValue", "Feet"},
                                 {"newSection", "System"}, {"newKey", "Length_Unit"}};
    EXPECT_THAT(first["steps"][0]["changes"], testing::Contains(move));
    EXPECT_EQ(json["files"][1]["status"], "current");
    EXPECT_EQ(json["files"][2]["status"], "failed");
    EXPECT_THAT(json["files"][2]["error"].get<std::string>(), HasSubstr("Can not open file"));
}

TEST_F(UpgradeVerb, NamesOutsideAsciiWorkUnderTheCLocale) {
    folder.write(L"B\u00fchne.skorra", fileText("", "1.5"));
    const std::string file = path("B\xC3\xBChne.skorra");
    const ToolRun run = runTool({"upgrade", file}, "LC_ALL=C");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr(file + ".v1.500.bak"));
    EXPECT_EQ(folder.entries(), 2u);
}

TEST_F(UpgradeVerb, ConversionsAreNoWarnings) {
    const std::string file = write("hall.skorra", "1.5");
    EXPECT_EQ(runTool({"upgrade", "--dry-run", file}).errors, "");
    EXPECT_EQ(runTool({"upgrade", "--dry-run", "--json", file}).errors, "");
    EXPECT_THAT(runTool({"upgrade", "--dry-run", "--verbose", file}).errors,
                HasSubstr("xmlconfig: WARN:    -> converting 1.500 file to 9.000\n"));
}

TEST_F(UpgradeVerb, WhatTheLibraryLogsIsNotTold) {
    const std::string file = write("hall.skorrax", "8.0", "<Camera ID=\"1\"><CameraType>7</CameraType></Camera>");
    EXPECT_THAT(runTool({"upgrade", "--verbose", "--dry-run", file}).errors,  // "encounterd" is misspelt on purpose
                HasSubstr("xmlconfig: ERROR: Unknown camera type encounterd (7), removing this section\n"));
    const std::string old = "xmlconfig: " + file + ": is of file version 8.000; ";
    const std::string dropped = " as it would be after the upgrade, which drops 1 device: Camera[1]\n";
    for (const char* verb : {"show", "layout"}) EXPECT_EQ(runTool({verb, file}).errors, old + "read" + dropped);
    EXPECT_EQ(runTool({"check", file}).errors, old + "checked" + dropped);
    const ToolRun run = runTool({"upgrade", file});
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, HasSubstr(", lost Camera[1]\n"));
    const std::string newer = write("newer.skorrax", "9.001");
    EXPECT_EQ(runTool({"upgrade", newer}).errors,
              "xmlconfig: " + newer + ": not upgraded: is of file version 9.001; this program knows 9.000\n");
}

TEST_F(UpgradeVerb, QuietlyToldNothingButWhatFails) {
    const std::string file = write("hall.skorrax", "8.0", "<Camera ID=\"1\"><CameraType>7</CameraType></Camera>");
    expectRun(runTool({"upgrade", "--quiet", file}), 1, "", "");
    EXPECT_THAT(folder.read(L"hall.skorrax"), HasSubstr("<Version>" + latestVersion + "</Version>"));
    const ToolRun newer = runTool({"upgrade", "--quiet", write("newer.skorrax", "9.001")});
    EXPECT_EQ(newer.output, "");
    EXPECT_THAT(newer.errors, HasSubstr("newer.skorrax: not upgraded: "));
    EXPECT_THAT(runTool({"upgrade", "--quiet", "--json", file}).output, HasSubstr("\"current\": 1"));
}

TEST_F(UpgradeVerb, ManyLostDevicesAreNamedByTheUpgradeAlone) {
    std::string cameras;
    for (const char id : {'1', '2', '3', '4'})
        cameras += std::string("<Camera ID=\"") + id + "\"><CameraType>7</CameraType></Camera>";
    const std::string file = write("hall.skorrax", "8.0", cameras);
    const std::string upgrade = " as it would be after the upgrade, which drops 4 devices";
    EXPECT_EQ(runTool({"check", file}).errors, "xmlconfig: " + file + ": is of file version 8.000; checked" + upgrade +
                                                   " (xmlconfig upgrade --dry-run " + inCommand(file) + " names them)\n");
    EXPECT_EQ(runToolReading(TemporaryFolder::readFile(file), {"check", "-"}).errors,
              "xmlconfig: standard input: is of file version 8.000; checked" + upgrade + "\n");
}

TEST_F(UpgradeVerb, VersionThatIsNoNumberCountsAsNone) {
    const std::string file = write("hall.skorrax", "abc");
    expectRun(runTool({"upgrade", file}), 0,
              file + ": version 0.000 -> 9.000, the old file is " + file +
                  ".v0.000.bak\n1 upgraded, 0 at the latest version already, 0 failed\n",
              "xmlconfig: " + file +
                  ": its version \"abc\" is no number above 0; converted as if of version 0.000, as the application does\n");
}

TEST_F(UpgradeVerb, LogLinesTakeThePlaceOfTheProgress) {
    const std::string one = write("1.skorrax", "8.0", "<Camera ID=\"1\"><CameraType>7</CameraType></Camera>");
    const std::string two = write("2.skorrax", "8.0");
    const std::optional<TerminalRun> run =
        runOnATerminal({"upgrade", "--verbose", one, two}, ToTerminal::Errors, "TERM=xterm");
    if (!run) GTEST_SKIP() << "no terminal can be made here";
    EXPECT_EQ(run->status, 1);  // a camera is lost
    EXPECT_THAT(run->shown,     // "encounterd" is misspelt on purpose
                StartsWith("\r1/2 " + one + "\x1b[K\r\x1b[Kxmlconfig: WARN:    -> converting 8.000 file to 9.000\r\n" +
                           "\r\x1b[Kxmlconfig: ERROR: Unknown camera type encounterd (7), removing this section\r\n" +
                           "\r\x1b[K" + "\r2/2 " + two + "\x1b[K\r\x1b[Kxmlconfig: WARN: "));
}

TEST_F(UpgradeVerb, ShowsNoProgressOnATerminalThatCannotOverwriteIt) {
    const std::string one = write("1.skorrax", "8.0");
    const std::string two = write("2.skorrax", "8.0");
    const std::optional<TerminalRun> run = runOnATerminal({"upgrade", one, two}, ToTerminal::Errors, "TERM=dumb");
    if (!run) GTEST_SKIP() << "no terminal can be made here";
    EXPECT_EQ(run->shown, "");
}

TEST_F(UpgradeVerb, WithoutFilesIsWrongUsage) { EXPECT_EQ(runTool({"upgrade"}).status, 2); }
