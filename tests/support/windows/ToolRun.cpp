#include "tests/support/ToolRun.h"

#include <cstdlib>
#include <optional>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/windows/StartedProgram.h"

std::string toolPath() {
    if (const char* const path = std::getenv("XMLCONFIG_TOOL")) return path;
    wchar_t program[1000] = {};
    ::GetModuleFileNameW(nullptr, program, 1000);
    return (std::filesystem::path(program).parent_path() / "xmlconfig.exe").u8string();
}

namespace {

ToolRun runWith(const std::wstring& input, const std::vector<std::string>& arguments) {
    const TemporaryFolder folder;
    std::vector<std::string> command = arguments;
    command.insert(command.begin(), toolPath());
    const int status = StartedProgram(command, folder.file(L"out"), folder.file(L"err"), input).end();
    return {status, folder.read(L"out"), folder.read(L"err")};
}

}  // namespace

ToolRun runTool(const std::vector<std::string>& arguments, const std::string& environment) {
    std::optional<EnvironmentVariable> variable;
    if (const std::size_t sign = environment.find('='); sign != std::string::npos)
        variable.emplace(environment.substr(0, sign), environment.substr(sign + 1));
    return runWith(L"NUL", arguments);
}

ToolRun runToolReading(const std::string& input, const std::vector<std::string>& arguments) {
    const TemporaryFolder folder;
    return runWith(folder.write(L"in", input), arguments);
}

std::string shellQuoted(const std::string& text) { return '"' + text + '"'; }

int shellStatus(const std::string& command) { return std::system(command.c_str()); }
