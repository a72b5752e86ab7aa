#include "tests/store/StoreSupport.h"

namespace storetests {

namespace {

using Ids = std::vector<std::wstring>;

Document threeCameras() {
    return load("<ConfigInfo>\n  <Camera ID=\"3\"/>\n  <Camera ID=\"1\"/>\n  <Camera ID=\"2\"/>\n</ConfigInfo>\n");
}

}  // namespace

TEST(SectionLists, CountWhateverTheAttributes) {
    const Document document = load(
        "<ConfigInfo><S/><S ID=\"b\"/><T><S ID=\"no\"/></T><S ID=\"a\"/><S id=\"x\"/><S ID=\"b\"/><S "
        "ID=\"\"/><s/></ConfigInfo>");
    EXPECT_EQ(document->getSectionCount(L"S"), 6);
    EXPECT_EQ(document->getSectionIDs(L"S"), (Ids{L"b", L"a", L"b", L""}));
    EXPECT_EQ(document->getSectionCount(L"X"), 0);
    EXPECT_EQ(document->getSectionIDs(L"X"), Ids{});
    EXPECT_EQ(document->getSectionCount(L""), 0);
    EXPECT_EQ(document->getSectionCount(L"ConfigInfo"), 0);
    EXPECT_FALSE(document->isDirty());
}

TEST(SectionLists, OfSubSectionsCoverEverySectionOfThatName) {
    const Document document = load(
        "<ConfigInfo><S ID=\"1\"><T ID=\"a\"/><T/><U ID=\"u\"/></S><R><T ID=\"no\"/></R><S><T ID=\"b\"/></S>"
        "<S ID=\"1\"><T ID=\"a\"><T ID=\"deep\"/></T></S></ConfigInfo>");
    EXPECT_EQ(document->getSubSectionCount(L"S", L"T"), 4);
    EXPECT_EQ(document->getSubSectionIDs(L"S", L"T"), (Ids{L"a", L"b", L"a"}));
    EXPECT_EQ(document->getSubSectionCount(L"S", L"X"), 0);
    EXPECT_EQ(document->getSubSectionIDs(L"X", L"T"), Ids{});
}

TEST(RemoveSection, RemovesTheFirstMatchAndNoLineIsLeft) {
    const Document document = threeCameras();
    EXPECT_TRUE(document->removeSection(L"Camera", L"1"));
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(savedText(*document), savedRoot("  <Camera ID=\"3\"/>\n  <Camera ID=\"2\"/>\n"));
    EXPECT_TRUE(document->removeSection(L"Camera", L""));
    EXPECT_EQ(document->getSectionIDs(L"Camera"), Ids{L"2"});
    EXPECT_TRUE(document->removeSection(L"Camera", L"2"));
    EXPECT_FALSE(document->removeSection(L"Camera", L""));
    EXPECT_EQ(savedText(*document), xmlHead + "<ConfigInfo/>\n");
}

TEST(RemoveSection, LeavesEverythingWithoutAMatch) {
    const Document document = threeCameras();
    const Untouched before(*document);
    EXPECT_FALSE(document->removeSection(L"Camera", L"9"));
    EXPECT_FALSE(document->removeSection(L"camera", L""));
    EXPECT_FALSE(document->removeSection(L"", L""));
    EXPECT_TRUE(before.unchanged());
}

TEST(RemoveSection, RemovesOnlyOneOfARepeatedId) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A>a</A></S><S ID=\"1\"><A>b</A></S></ConfigInfo>");
    EXPECT_TRUE(document->removeSection(L"S", L"1"));
    EXPECT_EQ(get(*document, L"S", L"A", L"1"), L"b");
}

TEST(RemoveSection, KeepsCommentsAroundIt) {
    const Document document = load("<ConfigInfo>\n  <!-- one -->\n  <S/>\n  <!-- two -->\n</ConfigInfo>");
    EXPECT_TRUE(document->removeSection(L"S", L""));
    EXPECT_EQ(savedText(*document), savedRoot("  <!-- one -->\n  <!-- two -->\n"));
}

TEST(RemoveSubSection, RemovesTheFirstMatchAndNoLineIsLeft) {
    const Document document = load(
        "<ConfigInfo>\n  <S ID=\"1\">\n    <T ID=\"a\"/>\n    <T ID=\"b\"/>\n    <T ID=\"c\"/>\n  </S>\n</ConfigInfo>\n");
    EXPECT_TRUE(document->removeSubSection(L"S", L"T", L"1", L"b"));
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(savedText(*document), savedRoot("  <S ID=\"1\">\n    <T ID=\"a\"/>\n    <T ID=\"c\"/>\n  </S>\n"));
    EXPECT_TRUE(document->removeSubSection(L"S", L"T", L"", L""));
    EXPECT_EQ(document->getSubSectionIDs(L"S", L"T"), Ids{L"c"});
}

TEST(RemoveSubSection, LooksInLaterSectionsOfTheSameAddress) {
    const Document document = load("<ConfigInfo><S ID=\"1\"/><S ID=\"1\"><T ID=\"a\"/></S></ConfigInfo>");
    EXPECT_TRUE(document->removeSubSection(L"S", L"T", L"1", L"a"));
    EXPECT_EQ(savedText(*document), savedRoot("  <S ID=\"1\"/>\n  <S ID=\"1\"/>\n"));
}

TEST(RemoveSubSection, LeavesEverythingWithoutAMatch) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><T ID=\"a\"/></S></ConfigInfo>");
    const Untouched before(*document);
    EXPECT_FALSE(document->removeSubSection(L"S", L"T", L"1", L"b"));
    EXPECT_FALSE(document->removeSubSection(L"S", L"T", L"2", L"a"));
    EXPECT_FALSE(document->removeSubSection(L"S", L"X", L"1", L""));
    EXPECT_FALSE(document->removeSubSection(L"X", L"T", L"", L""));
    EXPECT_TRUE(before.unchanged());
}

TEST(RenameSection, ChangesTheIdOfTheFirstMatch) {
    const Document document = load("<ConfigInfo><P ID=\"1\"/><P ID=\"2\"><A>x</A></P><P ID=\"2\"/></ConfigInfo>");
    EXPECT_TRUE(document->renameSection(L"P", L"2", L"5"));
    EXPECT_TRUE(document->isDirty());
    EXPECT_TRUE(document->doesSectionExist(L"P", L"5"));
    EXPECT_EQ(document->getSectionIDs(L"P"), (Ids{L"1", L"5", L"2"}));
    EXPECT_EQ(get(*document, L"P", L"A", L"5"), L"x");
    EXPECT_TRUE(document->renameSection(L"P", L"2", L"6"));
    EXPECT_FALSE(document->doesSectionExist(L"P", L"2"));
}

TEST(RenameSection, AllowsAnIdThatExistsAndAnEmptyOne) {
    const Document document = load("<ConfigInfo><P ID=\"1\"/><P ID=\"2\"/></ConfigInfo>");
    EXPECT_TRUE(document->renameSection(L"P", L"2", L"1"));
    EXPECT_EQ(document->getSectionIDs(L"P"), (Ids{L"1", L"1"}));
    EXPECT_TRUE(document->renameSection(L"P", L"1", L""));
    EXPECT_EQ(document->getSectionIDs(L"P"), (Ids{L"", L"1"}));
    EXPECT_EQ(savedText(*document), savedRoot("  <P ID=\"\"/>\n  <P ID=\"1\"/>\n"));
}

TEST(RenameSection, ToTheSameIdIsAChange) {
    const Document document = load("<ConfigInfo><P ID=\"1\"/></ConfigInfo>");
    EXPECT_TRUE(document->renameSection(L"P", L"1", L"1"));
    EXPECT_TRUE(document->isDirty());
}

TEST(RenameSection, LeavesEverythingWithoutAMatch) {
    const Document document = load("<ConfigInfo><P/><P ID=\"\"/><P ID=\"1\"/></ConfigInfo>");
    const Untouched before(*document);
    EXPECT_FALSE(document->renameSection(L"P", L"", L"5"));
    EXPECT_FALSE(document->renameSection(L"P", L"2", L"5"));
    EXPECT_FALSE(document->renameSection(L"X", L"1", L"5"));
    EXPECT_TRUE(before.unchanged());
}

TEST(RenameSection, KeepsTheOtherAttributes) {
    const Document document = load("<ConfigInfo><P a=\"1\" ID=\"1\" b=\"2\"/></ConfigInfo>");
    EXPECT_TRUE(document->renameSection(L"P", L"1", L"\"<&>"));
    EXPECT_EQ(reloaded(*document)->getSectionIDs(L"P"), Ids{L"\"<&>"});
    EXPECT_CONTAINS(savedText(*document), "a=\"1\"");
    EXPECT_CONTAINS(savedText(*document), "b=\"2\"");
}

TEST(MoveSection, SwapsWithTheNextOfThatName) {
    const Document document = threeCameras();
    EXPECT_TRUE(document->moveSection(1, L"Camera", L"3"));
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(document->getSectionIDs(L"Camera"), (Ids{L"1", L"3", L"2"}));
    EXPECT_EQ(savedText(*document), savedRoot("  <Camera ID=\"1\"/>\n  <Camera ID=\"3\"/>\n  <Camera ID=\"2\"/>\n"));
}

TEST(MoveSection, SwapsWithTheOneBefore) {
    const Document document = threeCameras();
    EXPECT_TRUE(document->moveSection(-1, L"Camera", L"2"));
    EXPECT_EQ(document->getSectionIDs(L"Camera"), (Ids{L"3", L"2", L"1"}));
    EXPECT_EQ(savedText(*document), savedRoot("  <Camera ID=\"3\"/>\n  <Camera ID=\"2\"/>\n  <Camera ID=\"1\"/>\n"));
}

TEST(MoveSection, InsertsRightBeforeTheOther) {
    const char* text = "<ConfigInfo><P ID=\"1\"/><!--a--><Q/><P ID=\"2\"/><R/></ConfigInfo>";
    const Document up = load(text);
    EXPECT_TRUE(up->moveSection(-1, L"P", L"2"));
    EXPECT_EQ(savedText(*up), savedRoot("  <P ID=\"2\"/>\n  <P ID=\"1\"/>\n  <!--a-->\n  <Q/>\n  <R/>\n"));
    const Document down = load(text);
    EXPECT_TRUE(down->moveSection(1, L"P", L"1"));
    EXPECT_EQ(savedText(*down), savedText(*up));
}

TEST(MoveSection, MovesTheFirstForAnEmptyId) {
    const Document document = threeCameras();
    EXPECT_TRUE(document->moveSection(1, L"Camera", L""));
    EXPECT_EQ(document->getSectionIDs(L"Camera"), (Ids{L"1", L"3", L"2"}));
}

TEST(MoveSection, LeavesEverythingAtTheEndsAndForOtherDirections) {
    const Document document = threeCameras();
    const Untouched before(*document);
    EXPECT_FALSE(document->moveSection(-1, L"Camera", L"3"));
    EXPECT_FALSE(document->moveSection(1, L"Camera", L"2"));
    EXPECT_FALSE(document->moveSection(1, L"Camera", L"9"));
    EXPECT_FALSE(document->moveSection(1, L"X", L""));
    for (const int direction : {0, 2, -2, 100}) EXPECT_FALSE(document->moveSection(direction, L"Camera", L"1"));
    EXPECT_TRUE(before.unchanged());
}

TEST(MoveSection, KeepsTheContent) {
    const Document document = load("<ConfigInfo><P ID=\"1\"><A>one</A></P><P ID=\"2\"><A>two</A></P></ConfigInfo>");
    EXPECT_TRUE(document->moveSection(-1, L"P", L"2"));
    EXPECT_EQ(get(*document, L"P", L"A", L""), L"two");
    EXPECT_EQ(get(*document, L"P", L"A", L"1"), L"one");
    EXPECT_TRUE(document->moveSection(1, L"P", L"2"));
    EXPECT_EQ(get(*document, L"P", L"A", L""), L"one");
}

}  // namespace storetests
