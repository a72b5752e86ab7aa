// Every function that the public headers declare says what it does, and where it gives numbers, in what unit.

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Setting.h"
#include "platform/Text.h"
#include "platform/Words.h"
#include "tests/support/Declarations.h"
#include "tests/support/DescribedGetters.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using testing::IsEmpty;
using Reasons = std::map<std::string, std::string>;

/// Functions without a comment of their own, and why they need none.
const Reasons withoutComment = {
    {"ElementView::Children::begin", "what every range has"},
    {"ElementView::Children::end", "what every range has"},
    {"ElementView::Children::Children", "made by ElementView::children()"},
    {"ElementView::Children::Iterator::Iterator", "made by ElementView::Children"},
};

std::string nameOf(const Declaration& found) { return (found.owner.empty() ? "" : found.owner + "::") + found.name; }

bool beginsWith(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

/// What every class has: what makes, copies and ends it without further ado, and its comparisons.
bool goesWithoutSaying(const Declaration& found) {
    const bool isConstructor = found.owner.substr(found.owner.rfind(':') + 1) == found.name;
    const bool hasOperands = found.text.find("()") == std::string::npos;
    const bool copies = found.text.find("(const " + found.name + "&)") != std::string::npos;
    return beginsWith(found.name, "~") || beginsWith(found.name, "operator") || (isConstructor && (!hasOperands || copies));
}

/// "Width" for "getWidth", "isWidth", "setWidth"; "" for other names.
std::string subjectOf(const std::string& function, const std::vector<std::string>& beginnings) {
    for (const std::string& beginning : beginnings)
        if (beginsWith(function, beginning)) return function.substr(beginning.size());
    return "";
}

std::set<std::string> subjectsOfGetters(const std::vector<Declaration>& declarations) {
    std::set<std::string> subjects;
    for (const Declaration& found : declarations)
        if (found.isPublic && !found.comment.empty()) subjects.insert(found.owner + subjectOf(found.name, {"get", "is"}));
    return subjects;
}

std::vector<std::string> withoutCommentIn(const std::string& header) {
    const std::vector<Declaration> declarations = declarationsOf(header);
    const std::set<std::string> read = subjectsOfGetters(declarations);
    std::vector<std::string> names;
    for (const Declaration& found : declarations) {
        const std::string stored = subjectOf(found.name, {"set"});
        const bool isOneOfAPair = !stored.empty() && read.count(found.owner + stored) == 1;
        if (found.isPublic && found.comment.empty() && !goesWithoutSaying(found) && !isOneOfAPair)
            names.push_back(nameOf(found));
    }
    return names;
}

bool givesNumbers(const Declaration& found) {
    static const std::string number =
        "\\b(int|double|float|size_t|int32_t|Point_[23]Dim<\\w+>|Matrix<[^>]*>|Viewport|Frustum|GridSize)";
    static const std::regex result(number + "\\b|" + number + "[ >&]");
    static const std::regex filled("[(,] (std::vector<)?" + number + ">?& ");
    const std::size_t open = found.text.find(found.name + "(");
    const std::string parameters = std::regex_replace(found.text.substr(open), std::regex("const [^&]*&|\\("), "( ");
    return std::regex_search(found.text.substr(0, open), result) || std::regex_search(parameters, filled);
}

/// Whether a comment says in what unit a number is, or what is counted, or that there is no unit.
bool saysUnit(std::string comment) {
    comment = XMLConfig::detail::toUtf8(XMLConfig::detail::lowerAscii(XMLConfig::detail::fromUtf8(comment)));
    std::vector<std::string> words = {"unit", "number", "version"};
    for (int unit = 1; unit <= static_cast<int>(XMLConfig::Unit::Lumens); ++unit)
        words.push_back(XMLConfig::detail::toUtf8(nameOf(static_cast<XMLConfig::Unit>(unit))));
    return std::any_of(words.begin(), words.end(),
                       [&](const std::string& word) { return comment.find(word) != std::string::npos; });
}

}  // namespace

TEST(PublicComments, StandAtEveryFunction) {
    std::set<std::string> without;
    for (const std::string& header : publicHeaders())
        for (const std::string& name : withoutCommentIn(TemporaryFolder::readFile(header))) without.insert(name);
    std::set<std::string> expected;
    for (const auto& [name, reason] : withoutComment) expected.insert(name);
    EXPECT_EQ(without, expected);
}

TEST(PublicComments, SayTheUnitOfNumbers) {
    std::vector<std::string> silent;
    int checked = 0;
    const auto described = describedGetters();  // AccessorComments holds these to their settings
    for (const std::string& header : publicHeaders()) {
        if (!beginsWith(header, "base/") && !beginsWith(header, "sections/") && !beginsWith(header, "manager/")) continue;
        for (const Declaration& found : declarationsOf(TemporaryFolder::readFile(header))) {
            if (!found.isPublic || goesWithoutSaying(found) || !givesNumbers(found)) continue;
            if (!saysUnit(found.comment) && described.count(nameOf(found)) == 0)
                silent.push_back(nameOf(found) + ": " + found.comment);
            ++checked;
        }
    }
    EXPECT_THAT(silent, IsEmpty());
    EXPECT_GT(checked, 150);
}

TEST(PublicComments, AreMissedWhereThereAreNone) {
    EXPECT_THAT(withoutCommentIn("class A {\npublic:\n    explicit A(int size);\n    int getSize() const;\n"
                                 "    void setSize(int size);\n    void clear();\nprivate:\n    void own();\n};\n"),
                testing::ElementsAre("A::A", "A::getSize", "A::setSize", "A::clear"));
    EXPECT_THAT(withoutCommentIn("class A {\npublic:\n    A();\n    A(const A&) = default;\n    ~A();\n"
                                 "    bool operator==(const A& other) const;\n    int getSize() const;  ///< pixels\n"
                                 "    void setSize(int size);\n};\n"),
                IsEmpty());
}

TEST(PublicComments, AreAskedForAUnitWhereTheyGiveNumbers) {
    const auto givesThem = [](const std::string& text) { return givesNumbers(declarationsOf(text + ";\n").at(0)); };
    for (const char* text : {"double f() const", "std::vector<Point_3Dim<double>> f(int a)", "static Matrix<double, 4> f()",
                             "bool f(Point_3Dim<double>& a)", "void f(const std::string& a, int& b) const"})
        EXPECT_TRUE(givesThem(text)) << text;
    for (const char* text : {"bool f(int a, const Point_2Dim<int>& b)", "std::string f(double a)", "void f(bool& a)"})
        EXPECT_FALSE(givesThem(text)) << text;
    EXPECT_TRUE(saysUnit("width of the image (Pixels)"));
    EXPECT_FALSE(saysUnit("width of the image; 5 when missing"));
}
