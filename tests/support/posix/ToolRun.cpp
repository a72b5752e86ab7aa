#include "tests/support/ToolRun.h"

#include <sys/wait.h>
#include <cstdlib>
#include <filesystem>

std::string toolPath() {
    if (const char* const path = std::getenv("XMLCONFIG_TOOL")) return path;
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "xmlconfig").string();
}

ToolRun runTool(const std::vector<std::string>& arguments, const std::string& environment) {
    const TemporaryFolder folder;
    std::string command = environment + " " + shellQuoted(toolPath());
    for (const std::string& argument : arguments) command += " " + shellQuoted(argument);
    command +=
        " > " + shellQuoted((folder.path() / "out").string()) + " 2> " + shellQuoted((folder.path() / "err").string());
    const int status = shellStatus(command);
    return {status, folder.read(L"out"), folder.read(L"err")};
}

ToolRun runToolReading(const std::string& input, const std::vector<std::string>& arguments) {
    const TemporaryFolder folder;
    folder.write(L"in", input);
    return runTool(arguments, "cat " + shellQuoted((folder.path() / "in").string()) + " |");
}

std::string shellQuoted(const std::string& text) {
    std::string quoted = "'";
    for (char character : text) quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return quoted + "'";
}

int shellStatus(const std::string& command) {
    const int status = std::system(command.c_str());  // NOLINT(concurrency-mt-unsafe,cert-env33-c)
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
