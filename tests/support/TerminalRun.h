#pragma once

#include <optional>
#include <string>
#include <vector>

/// One run of the command-line tool with a terminal in the place of one of its streams; the other goes nowhere.
struct TerminalRun {
    int status = -1;
    std::string shown;  ///< with a carriage return before each line feed
};

enum class ToTerminal { Output, Errors };

/// Nothing where the system gives no terminal. What is shown must fit into the terminal's buffer: 4,000 characters do.
/// `environment` is as runTool has it.
std::optional<TerminalRun> runOnATerminal(const std::vector<std::string>& arguments, ToTerminal stream,
                                          const std::string& environment = "");
