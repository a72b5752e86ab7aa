#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <sstream>

#include "tests/support/CurrentFile.h"
#include "tests/support/JsonSchema.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Json = nlohmann::json;
using Arguments = std::vector<std::string>;

/// As it is for programs that read answers of later releases, too.
Json openSchemaOf(const std::string& verb) {
    return Json::parse(TemporaryFolder::readFile("docs/schemas/" + verb + ".json"));
}

/// As it is for the answers of this release: nothing is left out of it.
Json schemaOf(const std::string& verb) { return withoutAdditions(openSchemaOf(verb)); }

/// Answers of verbs that read the example, or write to a copy of it.
class JsonAnswers : public testing::Test {
protected:
    JsonAnswers() { folder.write(L"dome.skorrax", TemporaryFolder::readFile(dome)); }

    std::string copy() const { return (folder.path() / "dome.skorrax").string(); }
    void expectFits(const std::string& verb, Arguments words) const {
        words.insert(words.begin(), {verb, "--json"});
        const ToolRun run = runTool(words);
        ASSERT_FALSE(run.output.empty()) << run.errors;
        const Json answer = Json::parse(run.output);
        EXPECT_THAT(schemaFaults(answer, schemaOf(verb)), IsEmpty()) << testing::PrintToString(words);
        EXPECT_EQ(answer["exit"], run.status);
        EXPECT_THAT(run.output, testing::EndsWith("\"exit\": " + std::to_string(run.status) + "\n}\n"));
    }

    static constexpr const char* dome = "examples/dome.skorrax";
    TemporaryFolder folder;
};

void addNames(std::vector<std::string>& names, const Json& schema) {
    const Json properties = schema.value("properties", Json::object());
    for (const auto& [name, member] : properties.items()) {
        names.push_back(name);
        addNames(names, member);
    }
    if (schema.contains("items")) addNames(names, schema["items"]);
}

}  // namespace

TEST(JsonSchema, TellsWhatDoesNotFit) {
    const Json schema = Json::parse(R"({"type":"object","properties":{"a":{"type":["integer","null"]},
        "b":{"type":"array","items":{"enum":["x","y"]}}},"required":["a"],"additionalProperties":false})");
    EXPECT_THAT(schemaFaults(Json::parse(R"({"a":null,"b":["x"]})"), schema), IsEmpty());
    EXPECT_THAT(schemaFaults(Json::parse(R"({"b":["x","z"],"c":1})"), schema),
                ElementsAre("answer: lacks a", "answer.b[1]: \"z\" is none of [\"x\",\"y\"]", "answer: has an unknown c"));
    EXPECT_THAT(schemaFaults(Json::parse(R"({"a":1.5})"), schema),
                ElementsAre("answer.a: is 1.5 instead of [\"integer\",\"null\"]"));
    EXPECT_THAT(schemaFaults(Json(1), schema), ElementsAre("answer: is 1 instead of \"object\""));
}

TEST(JsonSchema, AllowsNoAdditionsWhereItIsToldSo) {
    const Json open = Json::parse(R"({"type":"object","properties":{"a":{"type":"array","items":{"type":"object",
        "properties":{"b":{"type":"integer"}}}}}})");
    const Json answer = Json::parse(R"({"a":[{"b":1,"c":2}],"d":3})");
    EXPECT_THAT(schemaFaults(answer, open), IsEmpty());
    EXPECT_THAT(schemaFaults(answer, withoutAdditions(open)),
                ElementsAre("answer.a[0]: has an unknown c", "answer: has an unknown d"));
}

TEST_F(JsonAnswers, MayGetMoreMembersLater) {
    Json answer = Json::parse(runTool({"check", "--json", dome}).output);
    for (Json* const object : {&answer, &answer["files"][0], &answer["files"][0]["findings"][0]}) (*object)["later"] = 1;
    EXPECT_THAT(schemaFaults(answer, openSchemaOf("check")), IsEmpty());
    for (const auto& file : std::filesystem::directory_iterator("docs/schemas"))
        EXPECT_THAT(TemporaryFolder::readFile(file.path().string()), Not(HasSubstr("additionalProperties"))) << file.path();
}

TEST_F(JsonAnswers, OfReadingVerbsFitTheirSchemas) {
    expectFits("show", {dome});
    expectFits("show", {"--all", dome});
    expectFits("show", {dome, "Projector[*]/Name", "System/Nothing"});
    expectFits("get", {dome, "Projector[*]", "System", "System/Nothing", "Projector[#1]/Box_Spacing"});
    expectFits("describe", {});
    expectFits("describe", {"Geometry/Fit_Solver", "overlap"});
    expectFits("describe", {"XC312", "gap", "Projector/Gamma"});
    expectFits("check", {dome, "examples/history/dome-8.000.skorrax", "missing"});
    expectFits("layout", {dome});
    expectFits("diff", {dome, dome});
    expectFits("diff", {"examples/history/dome-8.000.skorrax", dome});
}

TEST_F(JsonAnswers, OfWritingVerbsFitTheirSchemas) {
    expectFits("new", {"--projectors", "2", (folder.path() / "new.skorrax").string()});
    expectFits("new", {"--dry-run", (folder.path() / "other.skorrax").string()});
    expectFits("set", {copy(), "Projector[*]/Gamma=3", "ProjMap/Own=x"});
    expectFits("unset", {copy(), "Projector[#2]/Box_Spacing", "ProjMap/Own"});
    expectFits("check", {"--accept", "XC901", "--because", "as built", copy()});
    expectFits("check", {"--fix", "--dry-run", copy(), "missing"});
    expectFits("check", {"--fix", copy(), "examples/history/dome-8.000.skorrax"});
    expectFits("upgrade", {"--dry-run", "examples/history/dome-8.000.skorrax", dome, "missing"});
}

TEST_F(JsonAnswers, OfACheckWithMendsFitTheSchema) {
    folder.write(L"broken.skorrax", currentFile("<Screen><Shape>sphere</Shape><Nothing>1</Nothing>"
                                                "</Screen><Camera><Name>x</Name></Camera><Projector ID=\"P\"/>"));
    expectFits("check", {(folder.path() / "broken.skorrax").string()});
}

TEST_F(JsonAnswers, TellTheFaultWhereThereIsNoAnswer) {
    const auto expectError = [](const Arguments& words, int status, const std::string& message) {
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.status, status) << testing::PrintToString(words);
        const Json answer = Json::parse(run.output);
        EXPECT_THAT(schemaFaults(answer, schemaOf("error")), IsEmpty()) << run.output;
        EXPECT_EQ(answer["verb"], words[0]);
        EXPECT_EQ(answer["exit"], status);
        EXPECT_EQ(answer["error"], message);
        EXPECT_EQ(run.errors.rfind("xmlconfig: " + message + "\n", 0), 0U) << run.errors;
    };
    const std::string missing = "Error parseDataFile: Can not open file: missing; there is no such file";
    expectError({"show", "--json", "missing"}, 3, missing);
    expectError({"layout", "--json", "missing"}, 3, missing);
    expectError({"diff", "--json", dome, "missing"}, 3, missing);
    expectError({"set", "--json", copy(), "Screen/Shape=Dome"}, 1,
                "Screen/Shape: \"Dome\" is none of Flat, Sphere, Cylinder, Ruled, Toroid, VRML, Test (XC109)");
    expectError({"describe", "--json", "Sistem"}, 1,
                "there is no \"Sistem\" among the settings and rules; did you mean \"System\"?");
    expectError({"get", "--json", dome, "Screen["}, 2,
                "Error parseAddress: \"Screen[\", character 7: the identifier has no end");
    const std::string broken = (folder.path() / "broken.skorrax").string();
    folder.write(L"broken.skorrax", "<ConfigInfo>\n<a></b>\n</ConfigInfo>");
    expectError({"get", "--json", broken, "System"}, 3,
                "Error parseDataFile: Error during parsing: " + broken +
                    " XML message is: line 2, column 6: expected end of tag 'a'");
}

TEST_F(JsonAnswers, TellTheFaultOfACommandLine) {
    const auto expectUsage = [](const Arguments& words, const Json& verb, const std::string& message) {
        const ToolRun run = runTool(words);
        const Json answer = Json::parse(run.output);
        EXPECT_THAT(schemaFaults(answer, schemaOf("error")), IsEmpty()) << run.output;
        EXPECT_EQ(answer, Json({{"format", 1}, {"verb", verb}, {"error", message}, {"exit", 2}}));
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.errors.rfind("xmlconfig: " + message + "\n", 0), 0U) << run.errors;
    };
    expectUsage({"show", "--json"}, "show", "FILE is required");
    expectUsage({"show", "--json", "--frobnicate", dome}, "show", "The following argument was not expected: --frobnicate");
    expectUsage({"shw", "--json"}, "shw", "there is no verb \"shw\"; did you mean \"show\"?");
    expectUsage({"--json"}, nullptr, "a verb is required");
    EXPECT_EQ(runTool({"get", "--what", "--", "--json", dome}).output, "");
}

TEST_F(JsonAnswers, OfADiffNameBothFilesAlsoWhereOneIsMissing) {
    const Json answer = Json::parse(runTool({"diff", "--json", dome, "missing"}).output);
    EXPECT_EQ(answer["old"], dome);
    EXPECT_EQ(answer["new"], "missing");
}

TEST_F(JsonAnswers, AreThereForEveryVerb) {
    const std::string help = runTool({"--help"}).output;
    std::istringstream lines(help.substr(help.find("Verbs:")));
    std::vector<std::string> verbs;
    std::smatch match;
    for (std::string line; std::getline(lines, line);)
        if (std::regex_search(line, match, std::regex("^  ([a-z]+)  "))) verbs.push_back(match[1]);
    EXPECT_GE(verbs.size(), 10U);
    for (const std::string& verb : verbs) {
        EXPECT_TRUE(std::filesystem::exists("docs/schemas/" + verb + ".json")) << verb;
        EXPECT_THAT(runTool({verb, "--help"}).output, testing::HasSubstr("--json")) << verb;
    }
}

TEST_F(JsonAnswers, EveryMemberIsDocumented) {
    const std::string page = TemporaryFolder::readFile("docs/scripting.md");
    for (const auto& file : std::filesystem::directory_iterator("docs/schemas")) {
        const std::string verb = file.path().stem().string();
        const std::size_t begin = page.find("\n## " + verb + "\n");
        ASSERT_NE(begin, std::string::npos) << verb;
        const std::string chapter = page.substr(begin, page.find("\n## ", begin + 1) - begin);
        std::vector<std::string> names;
        addNames(names, schemaOf(verb));
        for (const std::string& name : names) {
            const bool isCommon = name == "format" || name == "verb" || name == "exit" || name == "file";
            EXPECT_TRUE(isCommon || chapter.find("`" + name + "`") != std::string::npos) << verb << ": " << name;
        }
    }
}
