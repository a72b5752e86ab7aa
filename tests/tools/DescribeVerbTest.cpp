#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include <nlohmann/json.hpp>

#include "tests/support/ToolRun.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

}  // namespace

TEST(DescribeVerb, LooksForAWord) {
    expectRun(
        runTool({"describe", "OVERLAP"}), 0,
        "Color/CameraOverlapPoint_%s_%s           3-D point and two channels  point seen by both cameras of a pair, by "
        "their IDs, and the channel that shows it to each\n"
        "TargetLocator/Horizontal_Overlap         double                      wanted overlap of projectors side by "
        "side, as a fraction\n"
        "TargetLocator/Vertical_Overlap           double                      wanted overlap of projectors one above "
        "the other, as a fraction\n"
        "TargetLocator/Overlap_Display_Unit       text                        unit in which a user interface shows "
        "the overlaps\n"
        "global/ReprojectionError_OverlapPercent  double                      the share of the measured overlap\n"
        "rules: XC219, XC301, XC308, XC311, XC312, XC313, XC315, XC319\n",
        "");
}

TEST(DescribeVerb, ListsTheCatalogue) {
    const ToolRun all = runTool({"describe"});
    EXPECT_EQ(all.status, 0);
    for (const char* address : {"Color/", "Geometry/Box_Spacing ", "Projector/Channel_Extents/Heading/Yaw ",
                                "ProjectorApprovedSlots/Slot[%d]/Name ", "MediaServer/outputFile "})
        EXPECT_THAT(all.output, testing::AnyOf(HasSubstr(std::string("\n") + address), StartsWith(address)));
    const ToolRun section = runTool({"describe", "SiteAnalytics"});
    EXPECT_EQ(std::count(section.output.begin(), section.output.end(), '\n'), 4);
    EXPECT_THAT(section.output, StartsWith("SiteAnalytics/SuccessfulRunNumber  int "));
}

TEST(DescribeVerb, DetailsOneSetting) {
    expectRun(runTool({"describe", "SiteAnalytics/VisitTimestamp"}), 0,
              "SiteAnalytics/VisitTimestamp\n"
              "  meaning       when the installation was first visited; 0 for not yet\n"
              "  type          int\n"
              "  unit          seconds since 1970-01-01 UTC\n"
              "  when missing  0\n"
              "  when new      not stored\n"
              "  rules         XC903\n",
              "");
    const ToolRun inherited = runTool({"describe", "Projector/Box_Spacing"});
    EXPECT_THAT(inherited.output, HasSubstr("when missing  that of Geometry, else 1.5\n"));
    const ToolRun group = runTool({"describe", "Projector/Channel_Extents/Heading"});
    EXPECT_EQ(std::count(group.output.begin(), group.output.end(), '\n'), 3);
}

TEST(DescribeVerb, TellsWhatAMissingSettingReadsAs) {
    const std::pair<const char*, const char*> settings[] = {
        {"Screen/SizeDefinition", "1 while Auto_Dimensions is true, else 0"},
        {"Projector/InitialProjectorData/Offset", "half of Resolution_X, half of Resolution_Y"},
        {"Camera/ExplicitExtrinsicXYZ", "no pose"},
        {"Screen/Locate_Guess_Transform", "the identity"},
    };
    for (const auto& [setting, missing] : settings)
        EXPECT_THAT(runTool({"describe", setting}).output, HasSubstr(std::string("when missing  ") + missing + "\n"));
}

TEST(DescribeVerb, KnowsThePartsOfRecords) {
    const ToolRun flag = runTool({"describe", "Projector/Pond_Of_Mirrors/Left"});
    EXPECT_THAT(flag.output, StartsWith("Projector/Pond_Of_Mirrors/Left\n"));
    EXPECT_THAT(flag.output, HasSubstr("  values        0 to 255\n  when missing  0\n"));
    EXPECT_THAT(runTool({"describe", "Projector/Designed/Frustum/FOVLeft"}).output, HasSubstr("  unit          radians\n"));
    EXPECT_EQ(runTool({"describe", "Projector/Pond_Of_Mirrors/Middle"}).status, 1);
}

TEST(DescribeVerb, KnowsAddressesOfAFile) {
    const std::pair<const char*, const char*> settings[] = {
        {"System/ACT_Address_3", "System/ACT_Address_%d"},
        {"Color/CameraOverlapPoint_a_b", "Color/CameraOverlapPoint_%s_%s"},
        {"Projector[Dome 1]/Gamma", "Projector/Gamma"},
        {"Camera[*]/Camera_Gain", "Camera/Camera_Gain"},
        {"Projector[PGR***02:1c:00:51:00:a0]/Channel_Extents/HFOV/Left", "Projector/Channel_Extents/HFOV/Left"},
        {"Projector[#1]/Pond_Of_Mirrors/Left", "Projector/Pond_Of_Mirrors/Left"},
    };
    for (const auto& [address, setting] : settings)
        EXPECT_THAT(runTool({"describe", address}).output, StartsWith(std::string(setting) + "\n  meaning"));
    EXPECT_EQ(runTool({"describe", "Projector[#1]/Channel_Extents"}).output,
              runTool({"describe", "Projector/Channel_Extents"}).output);
    EXPECT_EQ(runTool({"describe", "Projector[#1]"}).output, runTool({"describe", "Projector"}).output);
    EXPECT_EQ(runTool({"describe", "System/ACT_Address_x"}).status, 1);
    EXPECT_EQ(runTool({"describe", "Projector[#1"}).status, 1);
}

TEST(DescribeVerb, KnowsRulesByTheirNames) {
    EXPECT_EQ(runTool({"describe", "Blend-too-narrow"}).output, runTool({"describe", "XC312"}).output);
    expectRun(runTool({"describe", "too-narrow"}), 0, "rules: XC312\n", "");
}

TEST(DescribeVerb, TellsHowFarAnAngleGoes) {
    EXPECT_THAT(runTool({"describe", "Projector/Channel_Extents/Heading/Yaw"}).output,
                HasSubstr("  values        at most one turn either way\n"));
}

TEST(DescribeVerb, SuggestsWhatIsMeant) {
    expectRun(runTool({"describe", "Sistem"}), 1, "",
              "xmlconfig: there is no \"Sistem\" among the settings and rules; did you mean \"System\"?\n");
    expectRun(runTool({"describe", "System/RuntType"}), 1, "",
              "xmlconfig: there is no \"System/RuntType\" among the settings and rules; did you mean \"System/RunType\"?\n");
}

TEST(DescribeVerb, SuggestsAKeyWithoutItsSection) {
    expectRun(runTool({"describe", "Fit_Solvr"}), 1, "",
              "xmlconfig: there is no \"Fit_Solvr\" among the settings and rules; did you mean \"Fit_Solver\"?\n");
    expectRun(runTool({"describe", "Projector/Yaw"}), 1, "",
              "xmlconfig: there is no \"Projector/Yaw\" among the settings and rules; did you mean "
              "\"Projector/Channel_Extents/Heading/Yaw\"?\n");
}

TEST(DescribeVerb, ListsTheRulesThatBeginSo) {
    expectRun(runTool({"describe", "XC40"}), 0, "rules: XC401, XC402, XC403, XC405, XC407, XC408, XC409\n", "");
    expectRun(runTool({"describe", "xc32"}), 0, "rules: XC321, XC322\n", "");
    EXPECT_THAT(runTool({"describe", "XC1"}).output, StartsWith("rules: XC101, XC102, "));
    EXPECT_THAT(runTool({"describe", "XC"}).output, EndsWith(", XC908, XC910\n"));
    const auto all = nlohmann::json::parse(runTool({"describe", "--json", "XC60"}).output);
    EXPECT_EQ(all["rules"].size(), 6U);
    expectRun(runTool({"describe", "XC499"}), 1, "",
              "xmlconfig: there is no rule \"XC499\"; 'xmlconfig describe XC4' lists those that begin so\n");
}

TEST(DescribeVerb, TellsWhatARuleLooksAt) {
    const ToolRun run = runTool({"describe", "xc312"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(
        run.output,
        "XC312 blend-too-narrow, warning\n"
        "  A blend takes less of the image than a neighbour overlaps. What lies between is lit by both: a bright band.\n"
        "  looks at      Projector/Blend_Left, _Right, _Top, _Bottom, Projector/Channel_Extents\n"
        "  exactly       0 <= blend < least overlap - 2, where a neighbour overlaps over more than 90 % of that edge\n"
        "  mend          set the blend to the overlap in the middle, or mend the channel\n"
        "  --fix         only when asked for: --fix=XC312\n");
}

TEST(DescribeVerb, TellsWhoDoesTheMendOfARule) {
    EXPECT_THAT(runTool({"describe", "XC409"}).output, EndsWith("\n  --fix         safe, done without asking\n"));
    EXPECT_THAT(runTool({"describe", "XC206"}).output, EndsWith("\n  --fix         never\n"));
    EXPECT_THAT(runTool({"describe", "XC301"}).output, Not(HasSubstr("--fix")));
}

TEST(DescribeVerb, TellsWhichRulesLookAtASetting) {
    EXPECT_THAT(runTool({"describe", "Geometry/Fit_Solver"}).output, HasSubstr("\n  rules         XC110\n"));
    EXPECT_THAT(runTool({"describe", "Projector/Box_Spacing"}).output,
                HasSubstr("\n  rules         XC114, XC408, XC409, XC411, XC901\n"));
}

TEST(DescribeVerb, ShowsShortestDigits) {
    EXPECT_THAT(runTool({"describe", "Projector/Channel_Extents/HFOV/Left"}).output,
                HasSubstr("  when missing  0\n  when new      -0.523598776\n"));
    EXPECT_THAT(runTool({"describe", "Screen/Center_Point"}).output, HasSubstr("  when missing  0, 0, 0\n"));
}

TEST(DescribeVerb, LooksForAWordInRulesToo) {
    expectRun(runTool({"describe", "lit by both"}), 0, "rules: XC312\n", "");
    EXPECT_EQ(runTool({"describe", "lit by neither"}).status, 1);
}

TEST(DescribeVerb, AnswersInJson) {
    const auto rule = nlohmann::json::parse(runTool({"describe", "--json", "xc409"}).output);
    EXPECT_TRUE(rule["settings"].empty());
    ASSERT_EQ(rule["rules"].size(), 1U);
    EXPECT_EQ(rule["rules"][0]["rule"], "XC409");
    EXPECT_EQ(rule["rules"][0]["safety"], "safe");
    const auto setting = nlohmann::json::parse(runTool({"describe", "--json", "Geometry/Fit_Solver"}).output);
    EXPECT_TRUE(setting["rules"].empty());
    EXPECT_EQ(setting["settings"][0]["rules"], nlohmann::json::parse(R"(["XC110"])"));
    EXPECT_EQ(setting["settings"][0]["defaultMeaning"], nullptr);
    EXPECT_EQ(setting["settings"][0]["olderWord"], nullptr);
    const auto told = nlohmann::json::parse(
        runTool({"describe", "--json", "TargetLocator/Data_Type", "Screen/SizeDefinition"}).output)["settings"];
    EXPECT_EQ(told[0]["olderWord"], nlohmann::json::parse(R"({"value":"Projector Pose","countsAs":"Projector Centric"})"));
    EXPECT_EQ(told[1]["defaultMeaning"], "1 while Auto_Dimensions is true, else 0");
    const auto all = nlohmann::json::parse(runTool({"describe", "--json"}).output);
    EXPECT_GT(all["rules"].size(), 90U);
    EXPECT_GT(all["settings"].size(), 200U);
}
