// Misspelt words that applications, logs and files know are kept. Wherever one stands, something near it says that it is
// meant to be so, or the next reader mends it.

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TextLines.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// In two parts, so that they do not stand here.
const std::string dei = "Dei", geom = "Geom", dia = "dia", encoun = "encoun";
const std::vector<std::string> keptWords = {dei + "ve", geom + "try", dia + "mensions", encoun + "terd"};

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// Whether one of the lines around that one tells that a word is misspelt on purpose: the paragraph up to it, or the next.
bool isMarked(const std::vector<std::string>& lines, std::size_t at) {
    const auto marks = [](const std::string& line) { return holds(line, "on purpose") || holds(line, "isspelt"); };
    for (std::size_t i = at; i < lines.size() && (i == at || !lines[i].empty()); --i)
        if (marks(lines[i])) return true;
    return at + 1 < lines.size() && marks(lines[at + 1]);
}

std::vector<std::string> unmarkedIn(const std::string& text, std::set<std::string>& met) {
    const std::vector<std::string> lines = linesOf(text);
    std::vector<std::string> unmarked;
    for (std::size_t i = 0; i < lines.size(); ++i)
        for (const std::string& word : keptWords) {
            if (!holds(lines[i], word)) continue;
            met.insert(word);
            if (!isMarked(lines, i)) unmarked.push_back(lines[i]);
        }
    return unmarked;
}

bool isText(const std::filesystem::path& path) {
    const std::string extension = path.extension().string();
    return extension == ".h" || extension == ".cpp" || extension == ".md";
}

}  // namespace

TEST(Misspellings, ThatAreKeptAreMarked) {
    std::set<std::string> met;
    for (const char* folder : {"platform", "store", "base", "sections", "manager", "tools", "tests", "docs"})
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (!isText(entry.path())) continue;
            EXPECT_THAT(unmarkedIn(TemporaryFolder::readFile(entry.path()), met), IsEmpty()) << entry.path();
        }
    EXPECT_EQ(met, std::set<std::string>(keptWords.begin(), keptWords.end()));
}

TEST(Misspellings, WithoutAMarkAreFound) {
    std::set<std::string> met;
    const std::string word = keptWords[0];
    EXPECT_THAT(unmarkedIn("f(\"" + word + "\");\n", met), ElementsAre("f(\"" + word + "\");"));
    EXPECT_THAT(unmarkedIn("// spelt so on purpose\n\nf(\"" + word + "\");\n", met), ElementsAre("f(\"" + word + "\");"));
    EXPECT_THAT(unmarkedIn("// spelt so on purpose\nf(\"" + word + "\");\n", met), IsEmpty());
    EXPECT_THAT(unmarkedIn("f(\"" + word + "\");  // misspelt on purpose\n", met), IsEmpty());
}
