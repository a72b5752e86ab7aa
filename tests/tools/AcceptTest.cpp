#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/support/CurrentFile.h"
#include "tests/support/Example.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using Json = nlohmann::json;

/// "check --accept" on a copy of the example.
class Accept : public ToolFiles {
protected:
    ToolRun accept(const std::string& what, const std::vector<std::string>& more = {}) const {
        std::vector<std::string> words = {"check", "--no-files", "--accept", what, "--because", "as built"};
        words.insert(words.end(), more.begin(), more.end());
        words.push_back(file);
        return runTool(words);
    }
    std::string content() const { return TemporaryFolder::readFile(file); }
    void expectRefused(const ToolRun& run, int status, const std::string& message) const {
        EXPECT_EQ(run.status, status);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, "xmlconfig: " + message + "\n");
        EXPECT_EQ(content(), exampleText());
    }

    const std::string file = example();
};

TEST_F(Accept, WritesACommentIntoTheSectionAndChecksAgain) {
    const ToolRun run =
        runTool({"check", "--only", "XC321,XC216", "--accept", "xc321", "--because", " lighting ring above 45\u00b0", file});
    EXPECT_EQ(run.output,
              "+ Screen: xmlconfig accepts XC321: lighting ring above 45\u00b0\n1 comment for 1 finding\n"
              "note[XC216] " +
                  file +
                  ":202 ProjectorApprovedSlots/CurrentSlotID: slot 3 is none of the "
                  "approved slots (1, 2)\n" +
                  file + ": 0 errors, 0 warnings, 1 note, 1 accepted\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(content(), exampleText("  </Screen>\n",
                                     "    <!-- xmlconfig accepts XC321: lighting ring above 45\u00b0 -->\n"
                                     "  </Screen>\n"));
}

TEST_F(Accept, QuietlyTellsWhatIsLeftAlone) {
    expectRun(accept("XC321", {"--quiet", "--only", "XC321"}), 0,
              file + ": 0 errors, 0 warnings, 0 notes, 1 accepted; all is well\n");
    EXPECT_NE(content(), exampleText());
}

TEST_F(Accept, TakesTheFindingOfOnePlaceOnly) {
    EXPECT_THAT(accept("XC901@Projector[Dome 2]/Box_Spacing").output,
                StartsWith("+ Projector[Dome 2]: xmlconfig accepts XC901: as built\n1 comment for 1 finding\n"));
    EXPECT_THAT(accept("XC901@Camera[*]").output, HasSubstr("\n2 comments for 2 findings\n"));
    EXPECT_THAT(runTool({"check", "--only", "XC901", file}).output, EndsWith("4 notes, 3 accepted\n"));
}

TEST_F(Accept, WithoutAPlaceTakesAllThatTheRuleFinds) {
    EXPECT_THAT(accept("XC901").output, HasSubstr("\n6 comments for 7 findings\n"));
    EXPECT_EQ(runTool({"check", "--strict", "--only", "XC901", file}).output,
              file + ": 0 errors, 0 warnings, 0 notes, 7 accepted; all is well\n");
    EXPECT_EQ(runTool({"check", "--strict", "--only", "XC901", file}).status, 0);
}

TEST_F(Accept, TakesWhatConcernsTheWholeFile) {
    const ToolRun run = runTool({"check", "--only", "XC902", "--accept", "XC902", "--because", "a copy", file});
    EXPECT_THAT(run.output, StartsWith("+ the whole file: xmlconfig accepts XC902: a copy\n"));
    EXPECT_THAT(run.output, EndsWith(": 0 errors, 0 warnings, 0 notes, 1 accepted; all is well\n"));
    EXPECT_THAT(content(), EndsWith("\n  <!-- xmlconfig accepts XC902: a copy -->\n</ConfigInfo>\n"));
}

TEST_F(Accept, FindsTheSectionOfADeviceThatNoAddressReaches) {
    const std::string twice = fileOf(currentFile("<Camera><Name>x</Name></Camera>"
                                                 "<Camera ID=\"A\"/><Camera ID=\"A\"/>"),
                                     "twice.skorrax");
    EXPECT_EQ(runTool({"check", "--accept", "XC106", "--because", "spare", twice}).status, 1);
    EXPECT_EQ(runTool({"check", "--only", "XC106,XC910", twice}).status, 0);
    EXPECT_THAT(TemporaryFolder::readFile(twice),
                EndsWith("  <Camera ID=\"A\"/>\n  <Camera ID=\"A\">\n    <!-- xmlconfig accepts XC106: spare -->\n"
                         "  </Camera>\n</ConfigInfo>\n"));
}

TEST_F(Accept, WritesNothingInADryRun) {
    const ToolRun run = accept("XC408", {"--dry-run", "--only", "XC408,XC409"});
    EXPECT_EQ(run.output,
              "+ Projector[Dome 2]: xmlconfig accepts XC408: as built\n"
              "1 comment for 1 finding (dry run, nothing written)\n"
              "note[XC409] " +
                  file + " Projector[Dome 4]/Portrait_Mode: says again what it would inherit (0)\n" + file +
                  ": 0 errors, 0 warnings, 1 note, 1 accepted; 1 note mended by --fix\n");
    EXPECT_EQ(content(), exampleText());
    EXPECT_EQ(Json::parse(accept("XC408", {"--dry-run", "--json"}).output)["files"][0]["written"], false);
}

TEST_F(Accept, AnswersInJson) {
    const ToolRun run = accept("XC408", {"--json", "--only", "XC408"});
    EXPECT_EQ(Json::parse(run.output), Json::parse(R"json({"format": 1, "verb": "check", "files": [{
        "file": )json" + Json(file).dump() + R"json(, "version": 9.0, "written": true, "comments": [{
          "address": "Projector[VELDAR***00:0a:0b:0c:0d:02]", "text": "xmlconfig accepts XC408: as built"}],
        "errors": 0, "warnings": 0, "notes": 0, "accepted": 1, "findings": []}], "exit": 0})json"));
}

TEST_F(Accept, RefusesWhatIsNotFound) {
    expectRefused(accept("XC301"), 1, "XC301 is not found");
    expectRefused(accept("XC408@Projector[Dome 1]"), 1, "XC408 is not found at Projector[Dome 1]");
    expectRefused(accept("XC408@Projector[Dome 2]/Box_Spac"), 1,
                  "XC408 is not found at Projector[Dome 2]/Box_Spac; did you mean \"Box_Spacing\"?");
    EXPECT_EQ(Json::parse(accept("XC301", {"--json"}).output)["error"], "XC301 is not found");
}

TEST_F(Accept, RefusesWhatIsAcceptedAlready) {
    EXPECT_EQ(accept("XC408").status, 0);
    const std::string before = content();
    const ToolRun run = accept("XC408@Projector[Dome 2]");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "xmlconfig: XC408 is accepted already at Projector[Dome 2]\n");
    EXPECT_EQ(content(), before);
}

TEST_F(Accept, RefusesWhatItCannotUnderstand) {
    expectRefused(accept("XC9"), 2, "there is no rule \"XC9\"; docs/rules.md and 'xmlconfig describe XC' list all");
    expectRefused(accept("XC910"), 2, "XC910 cannot be accepted; remove the comment that it names");
    expectRefused(accept("XC408@Projector["), 2,
                  "Error parseAddress: \"Projector[\", character 10: the identifier has no end");
    expectRefused(accept("XC408", {file}), 2, "--accept takes one file");
    expectRefused(runTool({"check", "--accept", "XC408", file}), 2, "--accept needs a reason: --because TEXT");
    for (const char* reason : {"a\nb", "a\tb", "a\x01", "a\u0085b", "a\u2028b"})
        expectRefused(runTool({"check", "--accept", "XC408", "--because", reason, file}), 2,
                      "--because is one line, without line feeds and other control characters");
    expectRefused(runTool({"check", "--accept", "XC408", "--because", " ", file}), 2,
                  "--accept needs a reason: --because TEXT");
    expectRefused(runTool({"check", "--because", "x", file}), 2,
                  "--because tells why --accept is asked for, which is missing");
    expectRefused(runToolReading(exampleText(), {"check", "--accept", "XC408", "--because", "x", "-"}), 2,
                  "--accept writes to a file and cannot take standard input");
}

TEST_F(Accept, AnswersAMistypedPlaceWithWhatIsNearest) {
    expectRefused(accept("XC408@Projector[dome 3]"), 1, "XC408 is not found at Projector[dome 3]; did you mean \"Dome 3\"?");
}

TEST_F(Accept, RefusesAReasonThatNoCommentHolds) {
    expectRefused(runTool({"check", "--accept", "XC408", "--because", "a -- b", file}), 2,
                  "--because cannot hold \"--\", which would end the comment that it becomes");
}

TEST_F(Accept, RefusesOldFiles) {
    const std::string old = fileOf(TemporaryFolder::readFile("examples/history/dome-8.000.skorrax"), "old.skorrax");
    const ToolRun run = runTool({"check", "--accept", "XC101", "--because", "x", old});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "xmlconfig: " + old + ": is of file version 8.000 and must be upgraded first: xmlconfig upgrade " +
                              inCommand(old) + "\n");
    EXPECT_EQ(runTool({"check", "--accept", "XC101", "--because", "x", path("missing")}).status, 3);
}

}  // namespace
