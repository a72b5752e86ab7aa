#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

/// One run of the command-line tool.
struct ToolRun {
    int status = -1;
    std::string output;
    std::string errors;
};

/// The built tool: what XMLCONFIG_TOOL names, else the one beside this program.
std::string toolPath();

/// Runs the tool with UTF-8 arguments. `environment` is put before the command, as in "LC_ALL=C"; only where a shell of
/// POSIX runs it may it be more than a variable.
ToolRun runTool(const std::vector<std::string>& arguments, const std::string& environment = "");
/// The same with these bytes on its standard input.
ToolRun runToolReading(const std::string& input, const std::vector<std::string>& arguments);

inline void expectRun(const ToolRun& run, int status, const std::string& output, const std::string& errors = "") {
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(run.output, output);
    EXPECT_EQ(run.errors, errors);
}

/// As one word of a shell of POSIX.
std::string shellQuoted(const std::string& text);
/// The exit status of a command line, -1 where it did not end by itself.
int shellStatus(const std::string& command);
