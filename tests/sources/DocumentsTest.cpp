// The documents name what ./do installs and does, and what platform/ holds, all of it and nothing else.

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace {

using Words = std::set<std::string>;

Words found(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern);
    Words words;
    for (std::sregex_iterator at(text.begin(), text.end(), regex), none; at != none; ++at) words.insert((*at)[1]);
    return words;
}

/// The packages of lines such as "forTesting='libgtest-dev locales'".
Words installedPackages() {
    Words packages;
    for (const std::string& list : found(TemporaryFolder::readFile("do"), "\nfor[A-Z][a-zA-Z]*='([^']*)'")) {
        std::istringstream words(list);
        for (std::string word; words >> word;) packages.insert(word);
    }
    return packages;
}

/// What stands between backquotes in the first column of the table that begins with that line.
Words firstColumn(const std::string& page, const std::string& head) {
    Words words;
    std::istringstream lines(page.substr(page.find(head)));
    std::string line;
    for (std::getline(lines, line); std::getline(lines, line) && line[0] == '|';)
        for (const std::string& word : found(line.substr(0, line.find('|', 1)), "`([^`]+)`")) words.insert(word);
    return words;
}

}  // namespace

TEST(Documents, NameEveryPackageThatIsInstalled) {
    EXPECT_EQ(firstColumn(TemporaryFolder::readFile("README.md"), "| package | for |"), installedPackages());
    EXPECT_EQ(firstColumn(TemporaryFolder::readFile("docs/building.md"), "| Debian package | for |"), installedPackages());
}

TEST(Documents, NameEveryVerbOfDo) {
    const std::string script = TemporaryFolder::readFile("do");
    const Words verbs = found(script.substr(script.find("\ncase $verb in")), "\n    ([a-z]+)(?:\\)| \\|)");
    EXPECT_GT(verbs.size(), 10u);
    Words listed;
    for (const std::string& command :
         firstColumn(TemporaryFolder::readFile("docs/building.md"), "| command | what it does |"))
        for (const std::string& verb : found(command, "^\\./do ([a-z]+)")) listed.insert(verb);
    EXPECT_EQ(listed, verbs);
    EXPECT_EQ(found(script, "\n\\./do ([a-z]+)"), verbs);
}

TEST(Documents, NameEveryHeaderOfThePlatform) {
    Words headers;
    for (const auto& entry : std::filesystem::directory_iterator("platform"))
        if (entry.path().extension() == ".h") headers.insert(entry.path().filename().string());
    EXPECT_EQ(firstColumn(TemporaryFolder::readFile("platform/README.md"), "| header | gives |"), headers);
}

TEST(Documents, TellWhatANewPlatformMustSupply) {
    const std::string page = TemporaryFolder::readFile("platform/README.md");
    const std::string section = page.substr(page.find("## What a new platform must supply"));
    for (const auto& entry : std::filesystem::directory_iterator("platform/posix")) {
        const std::string header = entry.path().stem().string() + ".h";
        if (entry.path().extension() != ".cpp" || !std::filesystem::exists("platform/" + header)) continue;
        EXPECT_THAT(section, testing::HasSubstr("`" + header + "`"));
    }
}
