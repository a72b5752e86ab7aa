#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "tests/support/ToolHelp.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string pageOf(const std::string& name) {
    const ToolRun run = runTool({"--man", name});
    EXPECT_EQ(run.status, 0) << run.errors;
    return run.output;
}

std::string asEntry(const std::string& name) {
    return ".TP\n\\fB" + std::regex_replace(name, std::regex("-"), "\\-") + "\\fR";
}

TEST(ManualPage, OfAVerbHasItsSections) {
    const std::string page = pageOf("set");
    EXPECT_THAT(page, StartsWith(".TH xmlconfig\\-set 1 \"\" \"xmlconfig 2.1.1.14\"\n.SH NAME\n"
                                 "xmlconfig\\-set \\- Change the values at addresses, all or none\n"
                                 ".SH SYNOPSIS\nxmlconfig set [OPTIONS] FILE "));
    EXPECT_THAT(page, HasSubstr(".SH DESCRIPTION\nAn ADDRESS is Section[ID]"));
    EXPECT_THAT(page, HasSubstr("\n.SH OPTIONS\n.TP\n\\fB\\-h,\\-\\-help\\fR\nShow this help\n"));
    EXPECT_THAT(page, HasSubstr("\n.SH EXIT STATUS\n0 done, 1 not found or refused, 2 wrong usage,"));
    EXPECT_THAT(page, HasSubstr("wants addresses in quotes: \\(aqCamera[Dome left]/Camera_Gain\\(aq."));
}

TEST(ManualPage, OfTheToolHasEveryVerb) {
    const std::string page = pageOf("xmlconfig");
    const std::vector<std::string> verbs = verbNames();
    ASSERT_GE(verbs.size(), 10U);
    for (const std::string& verb : verbs) EXPECT_THAT(page, HasSubstr(asEntry(verb)));
}

TEST(ManualPage, OfEachVerbHasEveryOptionOfItsHelp) {
    for (const std::string& verb : verbNames()) {
        const std::string page = pageOf(verb);
        const std::vector<std::string> options = optionsOf(verb);
        ASSERT_GE(options.size(), 3U) << verb;
        for (const std::string& option : options) EXPECT_THAT(page, HasSubstr(asEntry(option))) << verb;
    }
}

TEST(ManualPage, IsNamedByNoHelpAndOfNoUnknownVerb) {
    EXPECT_THAT(runTool({"--help"}).output, Not(HasSubstr("--man")));
    const ToolRun run = runTool({"--man", "shw"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.errors, HasSubstr("there is no verb \"shw\"; did you mean \"show\"?"));
    for (const char* name : {"-x", "--help", ""}) EXPECT_EQ(runTool({"--man", name}).status, 2) << name;
}

}  // namespace
