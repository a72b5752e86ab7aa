#include "tests/support/Declarations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> namesIn(const std::string& header) {
    std::vector<std::string> names;
    for (const Declaration& found : declarationsOf(header))
        names.push_back((found.owner.empty() ? "" : found.owner + "::") + found.name + (found.isPublic ? "" : " (hidden)"));
    return names;
}

std::string commentIn(const std::string& header) { return declarationsOf(header).at(0).comment; }

}  // namespace

TEST(Declarations, AreTheFunctionsOfClassesAndNamespaces) {
    EXPECT_THAT(
        namesIn("namespace a {\nclass API Box : public Thing {\npublic:\n    Box();\n    ~Box() override;\n"
                "    virtual double getWidth() const = 0;\nprotected:\n    void hide();\n};\n"
                "struct Lid {\n    bool operator==(const Lid& other) const { return x == other.x; }\n    int x{};\n};\n"
                "API Lid lidOf(const Box& box, int number = int(3),\n          const Lid& other = {});\n}\n"),
        ElementsAre("Box::Box", "Box::~Box", "Box::getWidth", "Box::hide (hidden)", "Lid::operator==", "lidOf"));
}

TEST(Declarations, AreThoseWithABodyAndOfNestedClassesAndTemplatesToo) {
    EXPECT_THAT(namesIn("template <typename T, int N>\nclass Box {\n    void own();\npublic:\n    class Lid {\n    public:\n"
                        "        explicit Lid(int x) : m_x(x) {}\n        Lid& next() {\n            if (m_x) { m_x = 0; }\n"
                        "            return *this;\n        }\n    };\n    Lid lid() const { return Lid(1); }\n};\n"),
                ElementsAre("Box::own (hidden)", "Box::Lid::Lid", "Box::Lid::next", "Box::lid"));
}

TEST(Declarations, AreNeitherValuesNorEnumerationsNorWhatIsDeclaredElsewhere) {
    EXPECT_THAT(namesIn("#define X(a) a\nclass Later;\nenum Kind : int { A = int(1), B };\nstruct S {\n    int a = int(2);\n"
                        "    double b[2] = {f(1), 2};\n    using F = int(int);\n    friend void g(int);\n};\n"
                        "inline int S::h() { return 1; }\n"),
                IsEmpty());
}

TEST(Declarations, HaveTheCommentAboveAndTheOneBeside) {
    EXPECT_EQ(commentIn("/// Gives\n/// one.\nint one();\n"), "Gives  one.");
    EXPECT_EQ(commentIn("int one();  ///< gives one\n"), "gives one");
    EXPECT_EQ(commentIn("int one() { return 1; }  ///< gives one\n"), "gives one");
    EXPECT_EQ(commentIn("/// Above.\nint one(int a,\n        int b);  ///< beside\n"), "Above.  beside");
}

TEST(Declarations, HaveNoCommentOfOthers) {
    EXPECT_EQ(commentIn("/// Of a group.\n\nint one();\n"), "");
    EXPECT_EQ(commentIn("// of no tool's\nint one();\n"), "");
    EXPECT_EQ(commentIn("int one();  // of no tool's\n"), "");
    EXPECT_EQ(commentIn("struct S {\n    int x;  ///< of x\n    int one();\n};\n"), "");
    EXPECT_EQ(declarationsOf("int one();  ///< of one\nint two();\n").at(1).comment, "");
}

TEST(Declarations, OfThePublicHeadersAreFound) {
    EXPECT_THAT(publicHeaders(), testing::Contains("sections/SystemConfig.h"));
    EXPECT_THAT(publicHeaders(), testing::Contains("manager/XMLConfigManager.h"));
}
