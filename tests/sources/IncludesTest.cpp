#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

// Who may include whom. Run in the root of the sources.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using Names = std::vector<std::string>;

// Each folder may include the ones before it.
const Names folders = {"platform", "store", "base", "sections", "manager", "tools"};

struct Foreign {
    std::string header;  // how its name begins
    Names users;         // the folders and files that may include it
};
const std::vector<Foreign> foreignHeaders = {
    // The inside of the library's tree.
    {"xercesc/dom/impl/", {"store/TreeLinks.h", "store/TreeLinks.cpp"}},
    {"xercesc/", {"store"}},
    {"log4cxx/", {"store", "manager"}},
    // Compiling it takes seconds.
    {"CLI/", {"tools/CommandLine.cpp", "tools/HelpFormat.cpp", "tools/ManualPage.cpp", "tools/Options.cpp"}},
    {"nlohmann/", {"tools"}},
    {"fmt/", {"tools"}},
    {"pugixml.hpp", {"tools"}},
    {"utf8proc.h", {"tools"}},
    {"unistd.h", {"platform/posix"}},
    {"fcntl.h", {"platform/posix", "platform/windows"}},
    {"sys/", {"platform/posix"}},
    {"windows.h", {"platform/windows"}},
    {"platform/posix/", {"platform/posix"}},
    {"platform/windows/", {"platform/windows"}}};

bool beginsWith(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

bool liesIn(const std::string& file, const std::string& folder) { return beginsWith(file, folder + "/"); }

Names includesOf(const std::string& text) {
    static const std::regex directive("^[ \\t]*#[ \\t]*include[ \\t]*[<\"]([^>\"]+)[>\"]");
    Names found;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        if (std::regex_search(line, match, directive)) found.push_back(match[1]);
    }
    return found;
}

bool mayInclude(const std::string& file, const std::string& header) {
    for (const Foreign& foreign : foreignHeaders) {
        if (!beginsWith(header, foreign.header)) continue;
        return std::any_of(foreign.users.begin(), foreign.users.end(),
                           [&](const std::string& user) { return file == user || liesIn(file, user); });
    }
    const auto folderOf = [](const std::string& path) {
        return std::find_if(folders.begin(), folders.end(), [&](const auto& folder) { return liesIn(path, folder); });
    };
    if (folderOf(header) != folders.end()) return folderOf(header) <= folderOf(file);
    return !liesIn(header, "tests");
}

// "file includes header", for each include that is forbidden.
Names forbiddenIn(const std::string& file, const std::string& text) {
    Names found;
    for (const std::string& header : includesOf(text)) {
        if (!mayInclude(file, header)) found.push_back(file + " includes " + header);
    }
    return found;
}

Names sourcesBelow(const std::string& folder) {
    Names files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".h" || extension == ".cpp") files.push_back(entry.path().generic_string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

// The headers of our own that a file reaches, each with the file that includes it.
void reach(const std::string& file, std::map<std::string, std::string>& reached) {
    for (const std::string& header : includesOf(TemporaryFolder::readFile(file))) {
        if (std::filesystem::exists(header) && reached.emplace(header, file).second) reach(header, reached);
    }
}

}  // namespace

TEST(Includes, GoFromEachFolderToEarlierOnesOnly) {
    for (const std::string& folder : folders) {
        const Names files = sourcesBelow(folder);
        EXPECT_THAT(files, Not(IsEmpty()));
        for (const std::string& file : files) EXPECT_THAT(forbiddenIn(file, TemporaryFolder::readFile(file)), IsEmpty());
    }
}

TEST(Includes, OfUpgradeStepsReachNoSettingOfToday) {
    std::map<std::string, std::string> reached;
    for (const std::string& file : sourcesBelow("manager/upgrade")) reach(file, reached);
    EXPECT_EQ(reached.count("store/ConfigInfo.h"), 1u);
    for (const auto& [header, includer] : reached) {
        EXPECT_FALSE(liesIn(header, "sections") || liesIn(header, "base")) << includer << " includes " << header;
    }
}

TEST(Includes, NameEachHeaderByANameOfItsOwn) {
    std::map<std::string, Names> filesOf;
    for (const std::string& folder : folders) {
        for (const std::string& file : sourcesBelow(folder)) {
            const std::filesystem::path path(file);
            // The two systems' files are alike on purpose, and the old header of the asset manager includes the new one.
            const bool isExpected = liesIn(file, "platform/windows") || file == "manager/AssetManager.h";
            if (path.extension() == ".h" && !isExpected) filesOf[path.filename().string()].push_back(file);
        }
    }
    EXPECT_GT(filesOf.size(), 100u);
    for (const auto& [name, files] : filesOf) EXPECT_THAT(files, SizeIs(1)) << name;
}

TEST(Includes, ThatAreForbiddenAreFound) {
    EXPECT_THAT(forbiddenIn("store/Log.cpp", "#include \"store/Log.h\"\n  #  include \"base/Items.h\"\n"),
                ElementsAre("store/Log.cpp includes base/Items.h"));
    EXPECT_THAT(
        forbiddenIn("sections/A.h", "#include <xercesc/dom/DOM.hpp>\n#include <log4cxx/logger.h>\n#include <vector>\n"),
        ElementsAre("sections/A.h includes xercesc/dom/DOM.hpp", "sections/A.h includes log4cxx/logger.h"));
    EXPECT_THAT(forbiddenIn("platform/Files.cpp", "#include <unistd.h>\n#include \"platform/posix/System.h\"\n"),
                ElementsAre("platform/Files.cpp includes unistd.h", "platform/Files.cpp includes platform/posix/System.h"));
    EXPECT_THAT(forbiddenIn("manager/Check.cpp", "#include <fmt/format.h>\n#include <pugixml.hpp>\n#include <utf8proc.h>\n"),
                ElementsAre("manager/Check.cpp includes fmt/format.h", "manager/Check.cpp includes pugixml.hpp",
                            "manager/Check.cpp includes utf8proc.h"));
    EXPECT_THAT(forbiddenIn("store/StrictParser.cpp", "#include <xercesc/dom/impl/DOMDocumentImpl.hpp>\n"),
                ElementsAre("store/StrictParser.cpp includes xercesc/dom/impl/DOMDocumentImpl.hpp"));
    EXPECT_THAT(forbiddenIn("tools/GetVerb.cpp", "#include <CLI/App.hpp>\n"),
                ElementsAre("tools/GetVerb.cpp includes CLI/App.hpp"));
    EXPECT_THAT(
        forbiddenIn("manager/Check.cpp", "#include \"tests/support/Thrown.h\"\n#include \"tools/TableText.h\"\n"),
        ElementsAre("manager/Check.cpp includes tests/support/Thrown.h", "manager/Check.cpp includes tools/TableText.h"));
}
