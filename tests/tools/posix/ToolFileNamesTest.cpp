#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <nlohmann/json.hpp>

#include "tests/support/CurrentFile.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;

using ToolFileNames = ToolFiles;

// A backslash parts folders for the library, and not for shells.
TEST_F(ToolFileNames, ABackslashIsQuotedInCommands) {
    std::string file = fileOf(currentFile(""), "hall.skorrax");
    file[file.rfind('/')] = '\\';
    EXPECT_THAT(runTool({"show", file}).output, HasSubstr(" (xmlconfig check '" + file + "')\n"));
}

TEST_F(ToolFileNames, AHyphenAtTheStartIsNoOptionInCommands) {
    const std::string inFolder = "cd " + shellQuoted(std::filesystem::path(example()).parent_path().string()) + " && ";
    fileOf(exampleText(), "-x.skorrax");
    EXPECT_THAT(runTool({"show", "--", "-x.skorrax"}, inFolder).output, HasSubstr(" (xmlconfig check ./-x.skorrax)\n"));
}

TEST_F(ToolFileNames, WhatNoLineCanHoldIsPrintedByTheShellInCommands) {
    const std::string names[] = {"a\nb", "a\tb\r", "\x1b[31m", "\u2028", "\u202e'$x'", "%s%\n", "\"`\x07`\"", "#\u009b 1"};
    for (const std::string& name : names) {
        const std::string made = runTool({"new", path(name + ".skorrax")}).output;
        const std::size_t start = made.find("next: xmlconfig ");
        ASSERT_NE(start, std::string::npos) << made;
        const std::string words = made.substr(start + std::string("next: xmlconfig ").size());
        EXPECT_THAT(words, HasSubstr("$(printf '")) << name;
        EXPECT_EQ(words.find('\n'), words.size() - 1) << words;
        EXPECT_EQ(shellStatus(shellQuoted(toolPath()) + " " + words.substr(0, words.size() - 1) + " > /dev/null"), 0)
            << words;
    }
    EXPECT_THAT(runTool({"new", path("c\n.skorrax")}).output, testing::EndsWith("/c\\n.skorrax')\"\n"));
}

// Arguments of other systems are wide text, which none of these bytes are.
TEST_F(ToolFileNames, ThatAreNotUtf8AreRefusedInJsonToo) {
    using Json = nlohmann::json;
    const std::string fault = "an argument is not UTF-8: \uFFFD.skorrax";
    const auto answer = [&](const Json& verb) {
        return Json({{"format", 1}, {"verb", verb}, {"error", fault}, {"exit", 2}});
    };
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"get", "--json", "\xFF.skorrax", "System/RunType"},
          {"show", "\xFF.skorrax", "--json"},
          {"\xFF.skorrax", "--json"}}) {
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(Json::parse(run.output), answer(words[0].size() > 4 ? Json(nullptr) : Json(words[0])));
        EXPECT_EQ(run.errors, "xmlconfig: " + fault + "\n");
    }
    expectRun(runTool({"show", "\xFF.skorrax", "--", "--json"}), 2, "", "xmlconfig: " + fault + "\n");
}

TEST_F(ToolFileNames, MissingRightsAreToldAsTheReason) {
    const bool isRoot = ::geteuid() == 0;  // who may do everything
    const std::string asUser = isRoot ? "setpriv --reuid=65534 --regid=65534 --clear-groups" : "";
    if (runTool({"--version"}, asUser).status != 0) GTEST_SKIP() << "the tool cannot be run by another user";
    const std::string file = fileOf(exampleText(), "hall.skorrax");
    const std::string around = std::filesystem::path(file).parent_path().string();
    const auto expectReason = [&](const std::string& reason) {
        expectRun(runTool({"show", file}, asUser), 3, "",
                  "xmlconfig: Error parseDataFile: Can not open file: " + file + "; " + reason + "\n");
    };
    ASSERT_EQ(::chmod(around.c_str(), 0755), 0);
    ASSERT_EQ(::chmod(file.c_str(), 0200), 0);
    expectReason("it may not be read by you");
    ASSERT_EQ(::chmod(file.c_str(), 0644), 0);
    if (isRoot) expectReason("it may not be written by you, and such a file is not opened");
    ASSERT_EQ(::chmod(around.c_str(), 0600), 0);
    expectReason("its folder may not be entered by you");
    ASSERT_EQ(::chmod(around.c_str(), 0700), 0);
}

TEST_F(ToolFileNames, StandardInputMayBeNoneToRead) {
    const std::string told = "xmlconfig: standard input: cannot be read\n";
    for (const std::string& input : {std::string("<&-"), std::string("</")}) {
        expectRun(runTool({"show", "-"}, input), 3, "", told);
        expectRun(runTool({"set", "--from", "-", example()}, input), 3, "", told);
    }
}

TEST_F(ToolFileNames, APipeIsToldAsTheReason) {
    const std::string pipe = path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    expectRun(runTool({"show", pipe}), 3, "",
              "xmlconfig: Error parseDataFile: Can not open file: " + pipe + "; it is a pipe or a device\n");
}

}  // namespace
