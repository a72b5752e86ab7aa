#include <ostream>

#include "tests/store/StoreSupport.h"

namespace storetests {

TEST(Version, IsReadAsTheLongestLeadingNumber) {
    const std::pair<const char*, double> rows[] = {
        {"9.000", 9.0}, {"  8.5x", 8.5},     {"1e1", 10.0}, {"abc", 0.0},
        {"", 0.0},      {"8<b>.5</b>", 8.5}, {"-2", -2.0},  {"<![CDATA[7.25]]>", 7.25}};
    for (const auto& [text, expected] : rows) {
        const Document document = load("<ConfigInfo><Version>" + std::string(text) + "</Version></ConfigInfo>");
        EXPECT_EQ(document->getVersion(), expected) << text;
    }
}

TEST(Version, IsTheFirstElementOfThatName) {
    const Document document =
        load("<ConfigInfo><version>1</version><A/><Version ID=\"x\">2</Version><Version>3</Version></ConfigInfo>");
    EXPECT_EQ(document->getVersion(), 2.0);
    document->setVersion(4);
    EXPECT_EQ(document->getVersion(), 4.0);
    EXPECT_CONTAINS(savedText(*document), "<Version ID=\"x\">4.000</Version>\n  <Version>3</Version>");
}

TEST(Version, IsStoredWithThreeDecimals) {
    ConfigInfo document;
    document.setVersion(8.5);
    EXPECT_EQ(document.getVersion(), 8.5);
    EXPECT_TRUE(document.isDirty());
    EXPECT_CONTAINS(savedText(document), "<Version>8.500</Version>");
    document.setVersion(2.0049);
    EXPECT_CONTAINS(savedText(document), "<Version>2.005</Version>");
    document.setVersion(-1.0);
    EXPECT_CONTAINS(savedText(document), "<Version>-1.000</Version>");
}

TEST(Version, IsCutAt31Characters) {
    ConfigInfo document;
    document.setVersion(1e35);
    EXPECT_CONTAINS(savedText(document), "<Version>9999999999999999686336610791797</Version>");
}

TEST(Version, SetsDirtyEvenWhenItIsTheSame) {
    ConfigInfo document;
    document.setVersion(9.0);
    EXPECT_TRUE(document.isDirty());
}

TEST(Version, ReplacesWhateverTheElementHeld) {
    const Document document = load("<ConfigInfo><Version>1<b>2</b><!--c--></Version></ConfigInfo>");
    document->setVersion(3);
    EXPECT_EQ(savedText(*document), savedRoot("  <Version>3.000</Version>\n"));
}

TEST(Version, IsRefusedWithoutItsElement) {
    const Document document = load("<ConfigInfo><S><Version>1</Version></S></ConfigInfo>");
    const Untouched before(*document);
    EXPECT_EQ(messageOf([&] { (void)document->getVersion(); }), L"Error getVersion:  No \"version\" node in XML file");
    EXPECT_EQ(messageOf([&] { document->setVersion(9); }), L"Error setVersion:  No \"version\" node in XML file");
    EXPECT_TRUE(before.unchanged());
}

struct StampRow {
    const char* subject;
    const char* body;
    const char* expected;
};
void PrintTo(const StampRow& row, std::ostream* out) { *out << row.subject; }

class BuildStamps : public testing::TestWithParam<StampRow> {};

TEST_P(BuildStamps, AreBroughtUpToDate) {
    for (const bool dirty : {false, true}) {
        const Document document = load("<ConfigInfo>" + std::string(GetParam().body) + "</ConfigInfo>");
        document->setDirty(dirty);
        document->insertBuildDateAndNumber();
        EXPECT_EQ(document->isDirty(), dirty);
        EXPECT_EQ(savedText(*document), savedRoot(GetParam().expected));
    }
}

constexpr StampRow stampRows[] = {
    {"NothingWithoutAnyHeader", "<S><A/></S>", "  <S>\n    <A/>\n  </S>\n"},
    {"NothingInsertedWithoutMaker", "<Version>1</Version>", "  <Version>1</Version>\n"},
    {"OldStampsWithoutMaker", "<BuildDate>a</BuildDate><BuildNumber>b</BuildNumber>",
     "  <BuildDate>Mar 11 2019</BuildDate>\n  <BuildNumber>2.1.1.14</BuildNumber>\n"},
    {"OneOldStampWithoutMaker", "<BuildNumber>b</BuildNumber>", "  <BuildNumber>2.1.1.14</BuildNumber>\n"},
    {"OldStamps", "<BuildDate>a</BuildDate><BuildNumber>b</BuildNumber><DevelopedBy>m</DevelopedBy>",
     "  <BuildDate>Mar 11 2019</BuildDate>\n  <BuildNumber>2.1.1.14</BuildNumber>\n  <DevelopedBy>m</DevelopedBy>\n"},
    {"MissingNumber", "<BuildDate>Mar 11 2019</BuildDate><S/><DevelopedBy>m</DevelopedBy>",
     "  <BuildDate>Mar 11 2019</BuildDate>\n  <S/>\n  <BuildNumber>2.1.1.14</BuildNumber>\n  "
     "<DevelopedBy>m</DevelopedBy>\n"},
    {"MissingDate", "<DevelopedBy>m</DevelopedBy><BuildNumber>b</BuildNumber>",
     "  <BuildDate>Mar 11 2019</BuildDate>\n  <DevelopedBy>m</DevelopedBy>\n  <BuildNumber>2.1.1.14</BuildNumber>\n"},
    {"BothMissing", "<Version>1</Version><DevelopedBy>m</DevelopedBy><DevelopedBy>n</DevelopedBy><S/>",
     "  <Version>1</Version>\n  <BuildDate>Mar 11 2019</BuildDate>\n  <BuildNumber>2.1.1.14</BuildNumber>\n"
     "  <DevelopedBy>m</DevelopedBy>\n  <DevelopedBy>n</DevelopedBy>\n  <S/>\n"},
    {"StampsWithinASectionDoNotCount", "<S><BuildDate>a</BuildDate><DevelopedBy>m</DevelopedBy></S>",
     "  <S>\n    <BuildDate>a</BuildDate>\n    <DevelopedBy>m</DevelopedBy>\n  </S>\n"},
    {"EveryOneMetUntilBothWereSeen",
     "<BuildDate>a</BuildDate><BuildDate>b</BuildDate><BuildNumber>c</BuildNumber><BuildDate>d</BuildDate>",
     "  <BuildDate>Mar 11 2019</BuildDate>\n  <BuildDate>Mar 11 2019</BuildDate>\n"
     "  <BuildNumber>2.1.1.14</BuildNumber>\n  <BuildDate>d</BuildDate>\n"},
    {"EmptyStamps", "<BuildDate/><BuildNumber/>",
     "  <BuildDate>Mar 11 2019</BuildDate>\n  <BuildNumber>2.1.1.14</BuildNumber>\n"},
};
INSTANTIATE_TEST_SUITE_P(Rows, BuildStamps, testing::ValuesIn(stampRows),
                         [](const auto& row) { return std::string(row.param.subject); });

TEST(InsertedBuildStamps, AreFoundAtOnce) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A>1</A></S><DevelopedBy>m</DevelopedBy></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A", L"1"), L"1");
    EXPECT_FALSE(document->doesSectionExist(L"BuildNumber", L""));
    document->insertBuildDateAndNumber();
    EXPECT_EQ(document->getSectionCount(L"BuildDate"), 1);
    EXPECT_TRUE(document->doesSectionExist(L"BuildNumber", L""));
    EXPECT_EQ(get(*document, L"S", L"A", L"1"), L"1");
}

TEST(InsertedBuildStamps, LeaveTheSectionThatWasReadLastReadable) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A>1</A></S><DevelopedBy>m</DevelopedBy></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A", L"1"), L"1");
    document->insertBuildDateAndNumber();
    EXPECT_EQ(get(*document, L"S", L"A", L"1"), L"1");
    set(*document, L"S", L"A", L"2", L"1");
    EXPECT_CONTAINS(savedText(*document), "<A>2</A>");
}

}  // namespace storetests
