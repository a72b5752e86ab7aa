// All that belongs to a verb is there. Run in the root of the sources.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToolHelp.h"

namespace {

using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

/// "describe" for tools/DescribeVerb.cpp.
std::vector<std::string> verbsOfSources() {
    const std::string ending = "Verb";
    std::vector<std::string> verbs;
    for (const auto& entry : std::filesystem::directory_iterator("tools")) {
        std::string name = entry.path().stem().string();
        if (entry.path().extension() != ".cpp" || name.size() <= ending.size()) continue;
        if (name.substr(name.size() - ending.size()) != ending) continue;
        name.resize(name.size() - ending.size());
        name[0] = static_cast<char>(name[0] - 'A' + 'a');
        verbs.push_back(name);
    }
    return verbs;
}

TEST(Verbs, HaveASourceAndARowEach) { EXPECT_THAT(verbsOfSources(), UnorderedElementsAreArray(verbNames())); }

TEST(Verbs, ThatAnswerInJsonHaveASchemaAndAChapter) {
    const std::string page = TemporaryFolder::readFile("docs/scripting.md");
    int answering = 0;
    for (const std::string& verb : verbNames()) {
        const std::vector<std::string> options = optionsOf(verb);
        if (std::find(options.begin(), options.end(), "--json") == options.end()) continue;
        ++answering;
        EXPECT_TRUE(std::filesystem::exists("docs/schemas/" + verb + ".json"))
            << "no schema docs/schemas/" << verb << ".json";
        EXPECT_THAT(page, HasSubstr("\n## " + verb)) << "no chapter of docs/scripting.md";
    }
    EXPECT_GE(answering, 8);
}

}  // namespace
