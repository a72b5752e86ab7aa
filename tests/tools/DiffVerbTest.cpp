#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/support/CurrentFile.h"
#include "tests/support/Example.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Json = nlohmann::json;

/// The example, and what became of it overnight: "Dome 2" was swapped, "Dome 3" turned, "Dome 4" got another gamma and lost
/// a setting that it inherits all the same, the cameras changed places, the site got a name, and there was a run.
class DiffVerb : public ToolFiles {
protected:
    DiffVerb() {
        std::string text = exampleText();
        yesterday = fileOf(text, "yesterday.skorrax");
        swapProjector(text);
        replaceOnce(text, "<Yaw>3.926990816987241e-01", "<Yaw>4.188790204786391e-01");
        const std::size_t last = text.find("0c:0d:1f\">");
        text.replace(text.find("<Gamma>2.2", last), 10, "<Gamma>2.3");
        const std::string portrait = "<Portrait_Mode>0</Portrait_Mode>";
        text.erase(text.find(portrait, last), portrait.size());
        replaceOnce(text, "00:a0,PGR***02:1c:00:51:00:a4</CameraOrder>", "00:a4,PGR***02:1c:00:51:00:a0</CameraOrder>");
        replaceOnce(text, "</System>", "<Site_Name>Planetarium</Site_Name></System>");
        replaceOnce(text, "<SuccessfulRunNumber>27", "<SuccessfulRunNumber>28");
        today = fileOf(text, "today.skorrax");
    }

    static void swapProjector(std::string& text) {
        const std::string end = "</Projector>";
        const std::size_t start = text.find("<Projector ID=\"VELDAR***00:0a:0b:0c:0d:02\">");
        const std::size_t length = text.find(end, start) + end.size() - start;
        std::string projector = text.substr(start, length);
        text.erase(start, length);
        replaceOnce(projector, "0c:0d:02", "0c:0d:77");
        replaceOnce(projector, "0c:0d:02", "0c:0d:77");
        replaceOnce(projector, "<Name>", "<OldSectionID>VELDAR***00:0a:0b:0c:0d:02</OldSectionID><Name>");
        replaceOnce(projector, "<Lamp_Power>8.500000000000000e+01", "<Lamp_Power>85");
        text.insert(text.rfind(end) + end.size(), projector);
    }

    std::string yesterday;
    std::string today;
};

const char* const lastLine =
    "1 renamed, 3 changed, 1 added, 0 removed; told with --all: 1 of runs and times, 1 the same in effect, 1 the same in "
    "value\n";

TEST_F(DiffVerb, TellsWhatChangedOvernight) {
    const ToolRun run = runTool({"diff", yesterday, today});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output,
              "= Projector[Dome 2]  ID VELDAR***00:0a:0b:0c:0d:02 -> VELDAR***00:0a:0b:0c:0d:77 (its OldSectionID says so)\n"
              "~ Projector[Dome 3]/Channel_Extents/Heading/Yaw  22.5° -> 24°\n"
              "~ Projector[Dome 4]/Gamma                        2.2 -> 2.3\n"
              "~ Color/CameraOrder                              Dome left, Dome right -> Dome right, Dome left\n"
              "+ System/Site_Name                               Planetarium\n"
              "^ order of the projectors: Dome 1, Dome 3, Dome 4, Dome 2\n" +
                  std::string(lastLine));
    EXPECT_EQ(run.errors, "");
}

TEST_F(DiffVerb, SaysByWhatADeviceWithAnotherIDIsKnown) {
    const auto told = [&](const std::string& before, const std::string& after) {
        const std::string old = fileOf(currentFile("<Projector ID=\"a\">" + before + "</Projector>"), "old.skorrax");
        const std::string now = fileOf(currentFile("<Projector ID=\"b\">" + after + "</Projector>"), "now.skorrax");
        return runTool({"diff", old, now}).output;
    };
    EXPECT_THAT(told("<Name>Front</Name>", "<Name>Front</Name>"), HasSubstr("ID a -> b (it has the same name)\n"));
    const std::string channel =
        "<Channel_Extents><Heading><Yaw>1.0</Yaw><Pitch>0.1</Pitch></Heading><HFOV><Left>-0.5</Left><Right>0.5</Right></"
        "HFOV>"
        "<VFOV><Top>0.4</Top><Bottom>-0.4</Bottom></VFOV></Channel_Extents>";
    EXPECT_THAT(told(channel, channel), HasSubstr("a -> b (replaced: it has the same connection or channel)\n"));
}

TEST_F(DiffVerb, ListsWhatHasNoEffectWhenAsked) {
    const ToolRun run = runTool({"diff", "--all", yesterday, today});
    EXPECT_THAT(run.output, HasSubstr("27 -> 28 (runs and times)\n"));
    EXPECT_THAT(run.output, HasSubstr("0 (the same in effect: inherited)\n"));
    EXPECT_THAT(run.output, HasSubstr("8.500000000000000e+01 -> 85 (the same in value)\n"));
    EXPECT_THAT(run.output, HasSubstr("\n1 renamed, 3 changed, 1 added, 0 removed\n"));
}

TEST_F(DiffVerb, PrintsTheLastLineAlone) { EXPECT_EQ(runTool({"diff", "--stat", yesterday, today}).output, lastLine); }

TEST_F(DiffVerb, EndsWithZeroWhereNothingDiffers) {
    const ToolRun run = runTool({"diff", yesterday, yesterday});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "0 renamed, 0 changed, 0 added, 0 removed\n");
}

TEST_F(DiffVerb, PrintsLinesToSetAndCountsTheRest) {
    const ToolRun run = runTool({"diff", "--lines", yesterday, today});
    EXPECT_EQ(run.output,
              "Projector[VELDAR***00:0a:0b:0c:0d:03]/Channel_Extents/Heading/Yaw=4.188790204786391e-01\n"
              "Projector[VELDAR***00:0a:0b:0c:0d:1f]/Gamma=2.300000000000000e+00\n"
              "Color/CameraOrder=PGR***02:1c:00:51:00:a4,PGR***02:1c:00:51:00:a0\n"
              "System/Site_Name=Planetarium\n");
    EXPECT_EQ(run.errors, "xmlconfig: 2 differences cannot be told as lines; diff without --lines shows them\n");
}

TEST_F(DiffVerb, SaysAllOfItInJson) {
    const ToolRun run = runTool({"diff", "--json", yesterday, today});
    EXPECT_EQ(run.status, 1);
    const Json json = Json::parse(run.output);
    EXPECT_EQ(json["format"], 1);
    EXPECT_EQ(json["verb"], "diff");
    EXPECT_EQ(json["old"], yesterday);
    EXPECT_EQ(json["new"], today);
    EXPECT_EQ(json["same"], false);
    EXPECT_EQ(json["renamed"][0]["by"], "OldSectionID");
    EXPECT_EQ(json["added"], Json::array());
    EXPECT_EQ(json["changed"].size(), 4U);
    const Json first = {{"address", "Projector[VELDAR***00:0a:0b:0c:0d:03]/Channel_Extents/Heading/Yaw"},
                        {"device", "Dome 3"},
                        {"old", "3.926990816987241e-01"},
                        {"new", "4.188790204786391e-01"},
                        {"oldText", "22.5°"},
                        {"newText", "24°"}};
    EXPECT_EQ(json["changed"][0], first);
    EXPECT_EQ(json["changed"][3]["old"], nullptr);
    EXPECT_EQ(json["sameInEffect"][0]["why"], "inherited");
    EXPECT_EQ(json["sameInValue"][0]["new"], "85");
    EXPECT_EQ(json["runs"][0]["address"], "SiteAnalytics/SuccessfulRunNumber");
    EXPECT_EQ(json["order"][0]["new"], (Json{"Dome 1", "Dome 3", "Dome 4", "Dome 2"}));
    EXPECT_EQ(json["exit"], 1);
    EXPECT_THAT(run.output, StartsWith("{\n  \"format\": 1,"));
    EXPECT_EQ(run.output.rfind("\"exit\": 1\n}\n"), run.output.size() - 12);
}

TEST_F(DiffVerb, TellsAddedAndRemovedDevicesAsAWhole) {
    std::string text = exampleText();
    const std::size_t start = text.find("<Projector ID=\"VELDAR***00:0a:0b:0c:0d:02\">");
    text.erase(start, text.find("</Projector>", start) + 12 - start);
    const std::string fewer = fileOf(text, "fewer.skorrax");
    EXPECT_THAT(runTool({"diff", yesterday, fewer}).output,
                StartsWith("- Projector[Dome 2]  ID VELDAR***00:0a:0b:0c:0d:02, "));
    EXPECT_THAT(runTool({"diff", fewer, yesterday}).output,
                StartsWith("+ Projector[Dome 2]  ID VELDAR***00:0a:0b:0c:0d:02, "));
    EXPECT_EQ(runTool({"diff", "--stat", yesterday, fewer}).output, "0 renamed, 0 changed, 0 added, 1 removed\n");
}

TEST_F(DiffVerb, ComparesOldFilesAsUpgradedUnlessAsked) {
    const std::string old = "examples/history/dome-8.000.skorrax";
    const ToolRun upgraded = runTool({"diff", "--stat", old, old});
    EXPECT_EQ(upgraded.status, 0);
    EXPECT_THAT(upgraded.errors, HasSubstr("is of file version 8.000; read as it would be after the upgrade"));
    const ToolRun stored = runTool({"diff", "--as-stored", old, old});
    EXPECT_EQ(stored.status, 0);
    EXPECT_EQ(stored.errors, "");
}

TEST_F(DiffVerb, TakesATolerance) {
    EXPECT_THAT(runTool({"diff", "--stat", "--tolerance", "0.05", yesterday, today}).output,
                StartsWith("1 renamed, 2 changed"));
}

TEST_F(DiffVerb, AnswersGitAndEndsWithZero) {
    const ToolRun run = runTool({"diff", "--git", "hall.skorrax", yesterday, "0a", "100644", today, "0b", "100644"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, StartsWith("diff --xmlconfig a/hall.skorrax\n= Projector[Dome 2]"));
    const ToolRun added = runTool({"diff", "--git", "hall.skorrax", "/dev/null", ".", ".", today, "0b", "100644"});
    EXPECT_EQ(added.status, 0);
    EXPECT_THAT(added.output, HasSubstr("+ Projector[Dome 1] "));
}

TEST_F(DiffVerb, RefusesOtherNumbersOfFiles) {
    EXPECT_EQ(runTool({"diff", yesterday}).status, 2);
    EXPECT_EQ(runTool({"diff", yesterday}).errors, "xmlconfig: OLD and NEW are required\n");
    EXPECT_EQ(runTool({"diff", "-", "-"}).errors, "xmlconfig: only one of the files can be standard input\n");
    EXPECT_EQ(runTool({"diff", "--git", yesterday, today}).errors, "xmlconfig: --git takes git's seven arguments\n");
}

TEST_F(DiffVerb, SaysThatAFileIsNoConfiguration) {
    const ToolRun run = runTool({"diff", yesterday, fileOf("<ConfigInfo>", "bad.skorrax")});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, HasSubstr("bad.skorrax"));
    EXPECT_EQ(runTool({"diff", yesterday, path("none.skorrax")}).status, 3);
}

TEST_F(DiffVerb, ColoursOnRequestOnly) {
    EXPECT_THAT(runTool({"diff", "--color=always", yesterday, today}).output, HasSubstr("\x1b["));
    EXPECT_THAT(runTool({"diff", yesterday, today}).output, testing::Not(HasSubstr("\x1b[")));
}

TEST_F(DiffVerb, TellsTheNumberOfCommentsThatDiffer) {
    const std::string before = fileOf(exampleText(), "before.skorrax");
    std::string text = exampleText();
    replaceOnce(text, "<System>", "<System><!-- new lamps --><!-- in spring -->");
    const std::string after = fileOf(text, "after.skorrax");
    const std::string nothing = "0 renamed, 0 changed, 0 added, 0 removed";
    expectRun(runTool({"diff", before, after}), 0, nothing + "; 2 comments differ\n", "");
    expectRun(runTool({"diff", "--all", after, before}), 0, nothing + "; 2 comments differ\n", "");
    replaceOnce(text, "<!-- in spring -->", "");
    expectRun(runTool({"diff", before, fileOf(text, "one.skorrax")}), 0, nothing + "; 1 comment differs\n", "");
    expectRun(runTool({"diff", before, before}), 0, nothing + "\n", "");
    EXPECT_EQ(Json::parse(runTool({"diff", "--json", before, after}).output)["changedComments"], 2);
}

/// Every example of the latest version, and the older ones as upgraded.
std::vector<std::string> latestExamples(const TemporaryFolder& folder) {
    std::vector<std::string> all = {"examples/dome.skorrax"};
    for (const auto& entry : std::filesystem::directory_iterator("examples/history")) {
        const std::string upgraded = folder.at(wideOf(entry.path().stem()) + L".skorrax").u8string();
        const ToolRun run = runTool({"upgrade", "-o", upgraded, entry.path().u8string()});
        EXPECT_LT(run.status, 2) << run.errors;
        all.push_back(upgraded);
    }
    std::sort(all.begin(), all.end());
    return all;
}

// What lines cannot tell is left out: devices that come, go or change their IDs, their order, and settings that go.
TEST_F(DiffVerb, LinesBroughtIntoTheOldFileMakeTheNewOne) {
    const std::vector<std::string> files = latestExamples(folder);
    std::size_t brought = 0;
    const auto bring = [&](const std::string& old, const std::string& now) {
        const Json before = Json::parse(runTool({"diff", "--json", old, now}).output);
        const std::string lines = fileOf(runTool({"diff", "--lines", old, now}).output, "lines.txt");
        const std::string copy = fileOf(TemporaryFolder::readFile(std::filesystem::u8path(old)), "copy.skorrax");
        const ToolRun set = runTool({"set", "--force", "--quiet", copy, "--from", lines});
        ASSERT_EQ(set.status, 0) << set.errors << old << " to " << now;
        const Json after = Json::parse(runTool({"diff", "--json", copy, now}).output);
        for (const Json& change : after["changed"]) EXPECT_TRUE(change["new"].is_null()) << change << old << " to " << now;
        brought += before["changed"].size() - after["changed"].size();
    };
    for (std::size_t i = 0; i + 1 < files.size(); ++i) {
        bring(files[i], files[i + 1]);
        bring(files[i + 1], files[i]);
    }
    EXPECT_GT(brought, 200U);
}

TEST_F(DiffVerb, LinesTellWhatWasInheritedBeforeFromAChangedValue) {
    const auto made = [this](const std::string& geometry, const std::string& projector, const std::string& name) {
        return fileOf(currentFile("<Geometry><Box_Spacing>" + geometry + "</Box_Spacing></Geometry><Projector ID=\"1\">" +
                                  projector + "</Projector>"),
                      name);
    };
    const std::string old = made("2", "", "old.skorrax");
    const std::string own = "<Box_Spacing>2</Box_Spacing>";
    EXPECT_EQ(runTool({"diff", "--lines", old, made("3", own, "new.skorrax")}).output,
              "Geometry/Box_Spacing=3\nProjector[1]/Box_Spacing=2\n");
    expectRun(runTool({"diff", "--lines", old, made("2", own, "new.skorrax")}), 0, "", "");
}

TEST_F(DiffVerb, ShowsAllDigitsWhereTheUsualOnesAreTheSame) {
    const auto made = [this](const std::string& radius, const std::string& name) {
        return fileOf(currentFile("<Screen><Screen_Radius>" + radius + "</Screen_Radius></Screen>"), name);
    };
    EXPECT_THAT(runTool({"diff", made("5.2", "old.skorrax"), made("5.20000000001", "new.skorrax")}).output,
                StartsWith("~ Screen/Screen_Radius  5.2 -> 5.20000000001\n"));
}

TEST_F(DiffVerb, ShowsEmptyTextsAndBlanksInQuotes) {
    const auto withTexts = [this](const std::string& texts, const std::string& name) {
        return fileOf("<ConfigInfo><Version>9.000</Version><ProjMap>" + texts + "</ProjMap></ConfigInfo>", name);
    };
    const std::string old = withTexts("<a/><b> </b><c>1  2</c><d>x</d><g/>", "old.skorrax");
    const std::string now = withTexts("<a>x</a><b/><c>1 2</c><d/><f/>", "new.skorrax");
    const std::string told =
        "~ ProjMap/a  \"\" -> x\n~ ProjMap/b  \" \" -> \"\"\n~ ProjMap/c  \"1  2\" -> \"1 2\"\n~ ProjMap/d  x -> \"\"\n";
    EXPECT_EQ(runTool({"diff", old, now}).output,
              told + "+ ProjMap/f  \"\"\n- ProjMap/g  \"\"\n0 renamed, 4 changed, 1 added, 1 removed\n");
    expectRun(runTool({"set", old, "ProjMap/a=x", "ProjMap/b=", "ProjMap/c=1 2", "ProjMap/d=", "ProjMap/f="}), 0,
              told + "+ ProjMap/f  \"\"\n5 changes, 0 new findings\n");
}

TEST_F(DiffVerb, ToleranceIsANumberFromZeroUp) {
    for (const char* const text : {"-1", "nan", "inf"})
        expectRun(runTool({"diff", "--tolerance", text, yesterday, yesterday}), 2, "",
                  "xmlconfig: --tolerance takes a number from 0 up\n");
    EXPECT_EQ(runTool({"diff", "--tolerance", "0", yesterday, yesterday}).status, 0);
}

// Any text, and any ID, comes through the lines as it is.
TEST_F(DiffVerb, LinesHoldTextsAndIDsOfAllKinds) {
    const std::vector<std::string> ids = {"a]b", "a=b", "a b", "x/y", "#3", "*", "\u65e5", "a\\b", "a|b", "it's", "[z"};
    const auto made = [&](const std::string& text, const std::string& name) {
        std::string devices;
        for (const std::string& id : ids) devices += "<Projector ID=\"" + id + "\"><Name>" + text + "</Name></Projector>";
        return fileOf(currentFile(devices), name);
    };
    for (const char* const text :
         {"plain", "a&#10;b&#9;c", "\\n", "back\\slash", "a=b", "# no", " blanks ", "", "&lt;&amp;>\"", "&#10;"}) {
        const std::string old = made("before", "old.skorrax");
        const std::string now = made(text, "new.skorrax");
        const std::string lines = fileOf(runTool({"diff", "--lines", old, now}).output, "lines.txt");
        const ToolRun set = runTool({"set", "--force", "--quiet", old, "--from", lines});
        EXPECT_EQ(set.status, 0) << set.errors;
        expectRun(runTool({"diff", old, now}), 0, "0 renamed, 0 changed, 0 added, 0 removed\n", "");
    }
}

TEST_F(DiffVerb, LinesNameARenamedDeviceAsTheOldFileDoes) {
    const auto made = [this](const std::string& id, const std::string& inside, const std::string& name) {
        return fileOf(currentFile("<Camera ID=\"" + id + "\">" + inside + "</Camera>"), name);
    };
    const std::string old =
        made("1", "<Camera_Gain>1</Camera_Gain><DeviceSnippet><d UID=\"1\"><x>1</x></d></DeviceSnippet>", "old.skorrax");
    const std::string now = made("2",
                                 "<OldSectionID>1</OldSectionID><Camera_Gain>2</Camera_Gain><DeviceSnippet><d UID=\"2\">"
                                 "<x>2</x></d></DeviceSnippet>",
                                 "new.skorrax");
    expectRun(runTool({"diff", "--lines", old, now}), 1, "Camera[1]/Camera_Gain=2\n",
              "xmlconfig: 2 differences cannot be told as lines; diff without --lines shows them\n");
}

TEST_F(DiffVerb, LinesLeaveOutWhatIsGone) {
    const auto made = [this](const std::string& inside, const std::string& name) {
        return fileOf(currentFile("<Camera ID=\"1\">" + inside + "</Camera>"), name);
    };
    const std::string old = made("<DeviceSnippet><d UID=\"1\"/></DeviceSnippet>", "old.skorrax");
    const ToolRun run = runTool({"diff", "--lines", old, made("<DeviceSnippet/>", "new.skorrax")});
    expectRun(run, 1, "", "xmlconfig: 2 differences cannot be told as lines; diff without --lines shows them\n");
    const std::string gain = made("<Camera_Gain>1</Camera_Gain>", "gain.skorrax");
    expectRun(runTool({"diff", "--lines", gain, made("", "none.skorrax")}), 1, "",
              "xmlconfig: 1 difference cannot be told as a line; diff without --lines shows it\n");
}

}  // namespace
