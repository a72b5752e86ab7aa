#pragma once

#include <sys/wait.h>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

/// One run of the command-line tool, by a shell.
struct ToolRun {
    int status = -1;
    std::string output;
    std::string errors;
};

/// The built tool: what XMLCONFIG_TOOL names, else the one beside this program.
inline std::string toolPath() {
    if (const char* const path = std::getenv("XMLCONFIG_TOOL")) return path;
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "xmlconfig").string();
}

inline std::string shellQuoted(const std::string& text) {
    std::string quoted = "'";
    for (char character : text) quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return quoted + "'";
}

/// Runs the tool with UTF-8 arguments; `environment` is put before the command, as in "LC_ALL=C".
inline ToolRun runTool(const std::vector<std::string>& arguments, const std::string& environment = "") {
    const TemporaryFolder folder;
    std::string command = environment + " " + shellQuoted(toolPath());
    for (const std::string& argument : arguments) command += " " + shellQuoted(argument);
    command +=
        " > " + shellQuoted((folder.path() / "out").string()) + " 2> " + shellQuoted((folder.path() / "err").string());
    const int status = std::system(command.c_str());  // NOLINT(concurrency-mt-unsafe,cert-env33-c)
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.read(L"out"), folder.read(L"err")};
}
