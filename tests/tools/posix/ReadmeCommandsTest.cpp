// The commands that the README shows, run one after the other as it shows them.

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToolRun.h"

namespace {

std::vector<std::string> commandsOfReadme() {
    const std::string page = TemporaryFolder::readFile("README.md");
    const std::size_t tool = page.find("\n## The tool\n");
    const std::size_t begin = page.find("```sh\n", tool) + 6;
    std::istringstream block(page.substr(begin, page.find("```", begin) - begin));
    std::vector<std::string> commands;
    for (std::string line; std::getline(block, line);) commands.push_back(line);
    return commands;
}

/// 1 for an answer that is no: the two files differ, and the old file has a camera that the upgrade drops.
int expectedStatus(const std::string& command) {
    const bool isNo = command.find("xmlconfig diff ") == 0 || command.find("xmlconfig upgrade ") == 0;
    return isNo ? 1 : 0;
}

}  // namespace

TEST(Readme, ShowsCommandsThatWork) {
    const TemporaryFolder folder;
    std::filesystem::create_directory_symlink(std::filesystem::current_path() / "examples", folder.path() / "examples");
    const std::string tools = std::filesystem::absolute(toolPath()).parent_path().string();
    const std::string start = "cd " + shellQuoted(folder.path().string()) + " && PATH=" + shellQuoted(tools) + ":$PATH && ";
    const std::vector<std::string> commands = commandsOfReadme();
    EXPECT_GT(commands.size(), 10u);
    for (const std::string& command : commands)
        EXPECT_EQ(shellStatus(start + command + " > answer.txt"), expectedStatus(command)) << command << "\n"
                                                                                           << folder.read(L"answer.txt");
}
