#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/support/Example.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using Json = nlohmann::json;

using CheckVerb = ToolFiles;

TEST_F(CheckVerb, TellsOfTheExample) {
    const ToolRun run = runTool({"check", "examples/dome.skorrax"});
    EXPECT_EQ(
        run.output,
        "note[XC216] examples/dome.skorrax:201 ProjectorApprovedSlots/CurrentSlotID: slot 3 is none of the approved "
        "slots (1, 2)\n"
        "note[XC321] examples/dome.skorrax:73 Screen: 22 % of the screen is in no channel; all of -10\u00b0 to -7\u00b0 "
        "and 45\u00b0 to 60\u00b0 up\n"
        "note[XC408] examples/dome.skorrax:364 Projector[Dome 2]/Box_Spacing: 2, the other 3 projectors have 1.5\n"
        "note[XC409] examples/dome.skorrax:501 Projector[Dome 4]/Portrait_Mode: says again what it would inherit "
        "(0)\n"
        "note[XC901] 7 settings have no effect now: Geometry/Box_Size, Screen/Screen_Height, Screen/Screen_Width, "
        "System/Cinema/Vertical_Stretch, \u2026\n"
        "note[XC902] none of the 8 files that it names is here; is this a copy?\n"
        "examples/dome.skorrax: 0 errors, 0 warnings, 12 notes; 1 note mended by --fix\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.status, 0);
}

TEST_F(CheckVerb, NotesCountWhereItIsStrict) {
    EXPECT_EQ(runTool({"check", "--strict", "examples/dome.skorrax"}).status, 1);
    const ToolRun run = runTool({"check", "--strict", "--only", "XC103", "examples/dome.skorrax"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "examples/dome.skorrax: 0 errors, 0 warnings, 0 notes; all is well\n");
}

TEST_F(CheckVerb, FilesAreNotLookedForWhereNotAsked) {
    EXPECT_THAT(runTool({"check", "--no-files", "examples/dome.skorrax"}).output,
                EndsWith("0 errors, 0 warnings, 11 notes; 1 note mended by --fix\n"));
}

TEST_F(CheckVerb, OnlyTakesRulesThatThereAre) {
    const ToolRun run = runTool({"check", "--only", "XC999", "examples/dome.skorrax"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.errors, HasSubstr("there is no rule \"XC999\""));
    EXPECT_EQ(runTool({"check", "--only", "xc216", "examples/dome.skorrax"}).output,
              "note[XC216] examples/dome.skorrax:201 ProjectorApprovedSlots/CurrentSlotID: slot 3 is none of the approved "
              "slots (1, 2)\nexamples/dome.skorrax: 0 errors, 0 warnings, 1 note\n");
}

TEST_F(CheckVerb, ChannelsAreShownAsAPicture) {
    const std::string moved = example("<Yaw>3.926990816987241e-01", "<Yaw>7.417649320975901e-01");
    const ToolRun run = runTool({"check", "--only", "XC301", moved});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "warning[XC301] " + moved +
                              ":390 Projector[Dome 3]/Channel_Extents/Heading/Yaw: 5\u00b0 gap between \"Dome 2\" and "
                              "\"Dome 3\"\n" +
                              moved + ": 0 errors, 1 warning, 0 notes\n  a picture: xmlconfig layout --svg layout.svg " +
                              inCommand(moved) + "\n");
}

TEST_F(CheckVerb, NamesTheCommandsThatMend) {
    const std::string file = example("<Projector_Count>4", "<Projector_Count>6");
    EXPECT_THAT(runTool({"check", file}).output,
                EndsWith(": 0 errors, 1 warning, 12 notes; 1 note mended by --fix\n  to mend 1 warning: xmlconfig check "
                         "--fix=XC217 " +
                         inCommand(file) + "\n"));
    EXPECT_THAT(runToolReading(exampleText("<Projector_Count>4", "<Projector_Count>6"), {"check", "-"}).output,
                EndsWith("-: 0 errors, 1 warning, 11 notes\n"));
}

TEST_F(CheckVerb, NamesNoMendThatIsRefused) {
    std::string text = exampleText("<Projector_Count>4", "<Projector_Count>6");
    const std::string none = "<Color>";
    text.replace(text.find(none), none.size(), "<Color><Name><x/></Name>");
    text.replace(text.find("<Blend_Run>true"), 15, "<Blend_Run><x/>");
    EXPECT_THAT(runTool({"check", fileOf(text)}).output, AllOf(HasSubstr("warning[XC217]"), Not(HasSubstr("to mend"))));
}

TEST_F(CheckVerb, NamesTheUpgradeOfAnOldFile) {
    const std::string old = "examples/history/dome-8.000.skorrax";
    const std::string output = runTool({"check", old}).output;
    EXPECT_THAT(output, HasSubstr("\n  to upgrade it: xmlconfig upgrade " + old + "\n"));
    EXPECT_THAT(output, Not(HasSubstr("--fix")));
}

TEST_F(CheckVerb, HiddenItemsNameTheLineOfTheOther) {
    const std::string twice =
        example("<Blend_Run>true</Blend_Run>", "<Blend_Run>true</Blend_Run>\n<Blend_Run>false</Blend_Run>");
    EXPECT_EQ(runTool({"check", "--only", "XC106", twice}).output,
              "warning[XC106] " + twice + ":34 Geometry/Blend_Run: is hidden by that in line 33\n" + twice +
                  ": 0 errors, 1 warning, 0 notes\n");
}

TEST_F(CheckVerb, SameWordsShareALine) {
    std::string content = exampleText();
    for (std::size_t at = 0; (at = content.find("<Gamma>2.2", at)) != std::string::npos; at += 10)
        content.replace(at, 10, "<Gamma>9.2");
    const std::string bad = fileOf(content);
    EXPECT_EQ(runTool({"check", "--only", "XC114", bad}).output,
              "warning[XC114] 4 times: 9.2 is outside 1 to 4: Projector[Dome 1]/Gamma, Projector[Dome 2]/Gamma, "
              "Projector[Dome 3]/Gamma, Projector[Dome 4]/Gamma\n" +
                  bad + ": 0 errors, 4 warnings, 0 notes\n");
}

TEST_F(CheckVerb, OldFilesAreCheckedAsUpgraded) {
    const std::string old = "examples/history/dome-8.000.skorrax";
    const ToolRun run = runTool({"check", old});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, StartsWith("warning[XC101] " + old +
                                       ":4 Version: is of file version 8.000; checked as it would be after the upgrade\n"));
}

TEST_F(CheckVerb, NewerFilesAreTold) {
    const std::string newer = fileOf("<ConfigInfo>\n<Version>10.000</Version><Sistem/></ConfigInfo>");
    const ToolRun run = runTool({"check", newer});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "error[XC102] " + newer + ":2 Version: is of file version 10.000; this program knows 9.000\n" +
                              newer + ": 1 error, 0 warnings, 0 notes\n");
}

TEST_F(CheckVerb, ShowsWhereTheXMLIsBroken) {
    const std::string broken = fileOf("<ConfigInfo>\n  <Version>9.000</Versoin>\n</ConfigInfo>\n");
    const ToolRun run = runTool({"check", broken});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, HasSubstr("line 2, column "));
    EXPECT_THAT(run.errors, HasSubstr("\n    <Version>9.000</Versoin>\n"));
    EXPECT_THAT(run.errors, EndsWith("^\n"));
}

TEST_F(CheckVerb, PutsTheCaretUnderTheFaultInEveryEncoding) {
    const auto shownOf = [this](const std::string& bytes) {
        const std::string errors = runTool({"check", fileOf(bytes)}).errors;
        return errors.substr(std::min(errors.find('\n'), errors.size()));
    };
    const std::string text = "<ConfigInfo><Name>\xC3\x84\xE6\x97\xA5\t</Nmae>";
    const std::string shown = "\n  <ConfigInfo><Name>\xC3\x84\xE6\x97\xA5 </Nmae>\n" + std::string(26, ' ') + "^\n";
    EXPECT_EQ(shownOf(text), shown);
    EXPECT_EQ(shownOf("\xEF\xBB\xBF" + text), shown);
    std::string wide = "\xFF\xFE";
    for (const char16_t unit : XMLConfig::detail::toUtf16(XMLConfig::detail::fromUtf8(text)))
        wide.append({static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)});
    EXPECT_EQ(shownOf(wide), shown);
    EXPECT_EQ(shownOf("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r<a>\xC4</b>"), "\n  <a>\xC3\x84</b>\n        ^\n");
}

TEST_F(CheckVerb, PutsTheCaretUnderTheFaultWhoseMessageNamesAnotherPlace) {
    const std::string errors = runTool({"check", fileOf("\n<?xml version=\"1.0\"?>\n<ConfigInfo/>")}).errors;
    EXPECT_THAT(errors, HasSubstr("line 2, column 7: XML or TEXT declaration must start at line 1, column 1\n"));
    EXPECT_THAT(errors, EndsWith("\n  <?xml version=\"1.0\"?>\n        ^\n"));
}

TEST_F(CheckVerb, TellsOfAFileInAnotherEncodingThanItNames) {
    const auto firstLineOf = [](const ToolRun& run) { return run.errors.substr(0, run.errors.find('\n')); };
    const std::string declared = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ConfigInfo/>\n";
    std::string little;
    std::string big;
    for (const char byte : declared) {
        little.append({byte, '\0'});
        big.append({'\0', byte});
    }
    for (const std::string& bytes : {"\xFF\xFE" + little, "\xFE\xFF" + big, little, big}) {
        EXPECT_THAT(firstLineOf(runTool({"check", fileOf(bytes)})), EndsWith("; it is written in UTF-16, but names UTF-8"));
        EXPECT_THAT(firstLineOf(runToolReading(bytes, {"show", "-"})),
                    EndsWith("; it is written in UTF-16, but names UTF-8"));
    }
    const std::string notUtf8 = "; it is not in UTF-8, as it is to be where it names no other encoding";
    for (const std::string& text : {std::string("<a>\xFC</a>"), replaced(declared, "<ConfigInfo/>", "<a>f\xFCr</a>"),
                                    std::string("<?xml version=\"1.0\" encoding=\"utf8\"?><a>\xFC</a>")}) {
        EXPECT_THAT(firstLineOf(runTool({"check", fileOf(text)})), EndsWith(notUtf8));
        EXPECT_THAT(runTool({"upgrade", fileOf(text)}).errors, HasSubstr(notUtf8 + "\n"));
    }
    EXPECT_THAT(runTool({"check", fileOf("<?xml version=\"1.0\"?><a encoding=\"ISO-8859-1\">\xFC</a>")}).errors,
                HasSubstr(notUtf8 + "\n"));
    for (const char* text : {"<a>\xC3\xBC</b>", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xFC</b>",
                             "<?xml version=\"1.0\"\n  encoding=\"ISO-8859-1\"?><a>\xFC</b>"})
        EXPECT_THAT(runTool({"check", fileOf(text)}).errors, testing::Not(HasSubstr("UTF-8")));
}

TEST_F(CheckVerb, CutsALongLineAboutTheFault) {
    const std::string broken = fileOf("<ConfigInfo>" + std::string(500, 'x') + "</Cnofig>" + std::string(500, 'y'));
    EXPECT_THAT(runTool({"check", broken}).errors, EndsWith("\n  " + std::string(58, 'x') + "</Cnofig>" +
                                                            std::string(33, 'y') + "\n" + std::string(62, ' ') + "^\n"));
}

TEST_F(CheckVerb, WhatIsNoConfigurationCannotBeRead) {
    const std::string none = fileOf("<ConfigInfo/>");
    const ToolRun run = runTool({"check", none});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.errors, "xmlconfig: " + none + ": is no configuration, it has no version\n");
}

TEST_F(CheckVerb, GoesOnAfterAFileThatCannotBeRead) {
    const std::string missing = (folder.path() / "missing.skorrax").u8string();
    const ToolRun run = runTool({"check", "--json", missing, "examples/dome.skorrax"});
    EXPECT_EQ(run.status, 3);
    const Json answer = Json::parse(run.output);
    EXPECT_EQ(answer["exit"], 3);
    EXPECT_EQ(answer["files"][0]["error"], "Error parseDataFile: Can not open file: " + missing + "; there is no such file");
    EXPECT_EQ(answer["files"][1]["notes"], 12);
}

TEST_F(CheckVerb, AnswersInJson) {
    const ToolRun run = runTool({"check", "--json", "--only", "XC409", "examples/dome.skorrax"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(Json::parse(run.output), Json::parse(R"json({"format": 1, "verb": "check", "files": [{
        "file": "examples/dome.skorrax", "version": 9.0, "errors": 0, "warnings": 0, "notes": 1, "accepted": 0, "findings": [{
          "rule": "XC409", "name": "repeats-what-it-inherits", "severity": "note",
          "address": "Projector[VELDAR***00:0a:0b:0c:0d:1f]/Portrait_Mode", "device": "Dome 4", "line": 501,
          "message": "says again what it would inherit (0)",
          "places": [{"address": "Geometry/Portrait_Mode", "line": 47, "text": "0"}],
          "mend": {"safety": "safe", "commands": [
            ["unset", "examples/dome.skorrax", "Projector[VELDAR***00:0a:0b:0c:0d:1f]/Portrait_Mode"]]}}]}], "exit": 0})json"));
}

}  // namespace
