#include "tests/store/StoreSupport.h"

namespace storetests {

namespace {

Document twoProjectors() {
    return load(
        "<ConfigInfo>\n  <Projector ID=\"1\">\n    <Name>one</Name>\n  </Projector>\n"
        "  <Projector ID=\"2\">\n    <Name>two</Name>\n  </Projector>\n</ConfigInfo>\n");
}

}  // namespace

TEST(SectionAddress, FindsTheSectionOfThatId) {
    const Document document = twoProjectors();
    EXPECT_EQ(get(*document, L"Projector", L"Name", L"2"), L"two");
    EXPECT_EQ(get(*document, L"Projector", L"Name", L"1"), L"one");
    EXPECT_EQ(get(*document, L"Projector", L"Name", L""), L"one");
    EXPECT_EQ(get(*document, L"Projector", L"Name", L"3"), L"(default)");
    EXPECT_EQ(get(*document, L"projector", L"Name", L"1"), L"(default)");
    EXPECT_EQ(get(*document, L"Camera", L"Name", L""), L"(default)");
    EXPECT_EQ(get(*document, L"ConfigInfo", L"Projector", L""), L"(default)");
    EXPECT_FALSE(document->isDirty());
}

TEST(SectionAddress, AppendsASectionOfAnUnknownId) {
    const Document document = twoProjectors();
    set(*document, L"Projector", L"Name", L"three", L"3");
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(savedText(*document), savedRoot("  <Projector ID=\"1\">\n    <Name>one</Name>\n  </Projector>\n"
                                              "  <Projector ID=\"2\">\n    <Name>two</Name>\n  </Projector>\n"
                                              "  <Projector ID=\"3\">\n    <Name>three</Name>\n  </Projector>\n"));
}

TEST(SectionAddress, AppendsASectionWithoutIdForAnEmptyOne) {
    const Document document = load("<ConfigInfo/>");
    set(*document, L"System", L"A", L"1");
    EXPECT_EQ(savedText(*document), savedRoot("  <System>\n    <A>1</A>\n  </System>\n"));
}

TEST(SectionAddress, TakesTheFirstOfThatTagForAnEmptyId) {
    const Document document = load("<ConfigInfo><S ID=\"x\" n=\"1\"><A>1</A></S><S><A>2</A></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A"), L"1");
    set(*document, L"S", L"A", L"3");
    EXPECT_EQ(get(*document, L"S", L"A", L"x"), L"3");
}

TEST(SectionAddress, TakesTheFirstOfARepeatedId) {
    const Document document = load("<ConfigInfo><S ID=\"x\"><A>1</A></S><S ID=\"x\"><A>2</A><B>b</B></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A", L"x"), L"1");
    EXPECT_EQ(get(*document, L"S", L"B", L"x"), L"(default)");
}

TEST(SectionAddress, LooksAtTheIdAttributeAlone) {
    const Document document = load(
        "<ConfigInfo><S id=\"2\"><A>a</A></S><S Name=\"2\"><A>b</A></S><S x=\"9\" ID=\"2\" "
        "y=\"8\"><A>c</A></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A", L"2"), L"c");
    EXPECT_EQ(get(*document, L"S", L"A", L"9"), L"(default)");
}

TEST(SectionAddress, WantsThePrefixOfAPrefixedTag) {
    const Document document = load("<ConfigInfo xmlns:p=\"urn:p\"><p:S><A>1</A></p:S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"p:S", L"A"), L"1");
    EXPECT_EQ(get(*document, L"S", L"A"), L"(default)");
}

TEST(SectionAddress, DoesNotTrimIds) {
    const Document document = load("<ConfigInfo><S ID=\" 1\"><A>a</A></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A", L"1"), L"(default)");
    EXPECT_EQ(get(*document, L"S", L"A", L" 1"), L"a");
}

TEST(SubSectionAddress, FindsTheSubSectionOfThatId) {
    const Document document =
        load("<ConfigInfo><S ID=\"1\"><T><A>n</A></T><T ID=\"a\"><A>1</A></T><T ID=\"b\"><A>2</A></T></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A", L"1", L"T", L"b"), L"2");
    EXPECT_EQ(get(*document, L"S", L"A", L"1", L"T", L"a"), L"1");
    EXPECT_EQ(get(*document, L"S", L"A", L"1", L"T", L""), L"n");
    EXPECT_EQ(get(*document, L"S", L"A", L"1", L"T", L"c"), L"(default)");
    EXPECT_EQ(get(*document, L"S", L"A", L"", L"T", L"b"), L"2");
    EXPECT_EQ(get(*document, L"S", L"A", L"2", L"T", L"b"), L"(default)");
    EXPECT_EQ(get(*document, L"S", L"A", L"1"), L"(default)");
}

TEST(SubSectionAddress, GoesOnToLaterSectionsOfTheSameAddress) {
    const Document document = load(
        "<ConfigInfo><S ID=\"1\"/><S ID=\"2\"><T ID=\"a\"><A>other</A></T></S>"
        "<S ID=\"1\"><T ID=\"a\"><A>found</A></T></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A", L"1", L"T", L"a"), L"found");
    EXPECT_EQ(get(*document, L"S", L"A", L"", L"T", L"a"), L"other");
    EXPECT_TRUE(document->doesSubSectionExist(L"S", L"T", L"1", L"a"));
    set(*document, L"S", L"A", L"new", L"1", L"T", L"a");
    EXPECT_EQ(savedText(*document),
              savedRoot("  <S ID=\"1\"/>\n  <S ID=\"2\">\n    <T ID=\"a\">\n      <A>other</A>\n    </T>\n  </S>\n"
                        "  <S ID=\"1\">\n    <T ID=\"a\">\n      <A>new</A>\n    </T>\n  </S>\n"));
}

TEST(SubSectionAddress, IsMadeInTheFirstSection) {
    const Document document = load("<ConfigInfo>\n  <S ID=\"1\"/>\n  <S ID=\"1\">\n    <T/>\n  </S>\n</ConfigInfo>");
    set(*document, L"S", L"A", L"v", L"1", L"T", L"a");
    EXPECT_EQ(savedText(*document), savedRoot("  <S ID=\"1\">\n    <T ID=\"a\">\n      <A>v</A>\n    </T>\n  </S>\n"
                                              "  <S ID=\"1\">\n    <T/>\n  </S>\n"));
}

TEST(SubSectionAddress, IsMadeWithItsSection) {
    const Document document = load("<ConfigInfo><R/></ConfigInfo>");
    set(*document, L"S", L"A|B", L"v", L"1", L"T", L"a");
    set(*document, L"U", L"A", L"w", L"", L"T", L"");
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(
        savedText(*document),
        savedRoot("  <R/>\n  <S ID=\"1\">\n    <T ID=\"a\">\n      <A>\n        <B>v</B>\n      </A>\n    </T>\n  </S>\n"
                  "  <U>\n    <T>\n      <A>w</A>\n    </T>\n  </U>\n"));
}

TEST(SubSectionAddress, TakesTheWhiteSpaceBehindItsSectionAway) {
    const Document document = load("<ConfigInfo>text<S/> \n <T/> \n </ConfigInfo>");
    set(*document, L"S", L"A", L"v", L"", L"Slot", L"1");
    EXPECT_EQ(savedText(*document),
              xmlHead + "<ConfigInfo>text<S><Slot ID=\"1\"><A>v</A></Slot></S><T/> \n </ConfigInfo>\n");
}

TEST(ItemKey, NamesNestedElements) {
    const Document document = load("<ConfigInfo><S><A><B><C>deep</C></B></A></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A|B|C"), L"deep");
    EXPECT_EQ(get(*document, L"S", L"A|C"), L"(default)");
    EXPECT_EQ(get(*document, L"S", L"a|B|C"), L"(default)");
    EXPECT_EQ(get(*document, L"S", L"B"), L"(default)");
}

TEST(ItemKey, NeverMatchesAnEmptyPart) {
    const Document document = load("<ConfigInfo><S><a><b>x</b></a></S></ConfigInfo>");
    for (const wchar_t* key : {L"a||b", L"|a", L"a|", L"|", L"", L"a|b|"}) {
        EXPECT_EQ(get(*document, L"S", key), L"(default)") << key;
        EXPECT_FALSE(document->doesItemExist(L"S", key, L"")) << key;
    }
}

TEST(ItemKey, StepsIntoTheFirstElementOfAPart) {
    const Document document = load("<ConfigInfo><S><A><B>1</B></A><A><C>2</C></A></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A|C"), L"(default)");
    set(*document, L"S", L"A|C", L"3");
    EXPECT_EQ(savedText(*document), savedRoot("  <S>\n    <A>\n      <B>1</B>\n      <C>3</C>\n    </A>\n"
                                              "    <A>\n      <C>2</C>\n    </A>\n  </S>\n"));
}

TEST(ItemKey, SharesItsLeadingElements) {
    const Document document = load("<ConfigInfo/>");
    set(*document, L"S", L"A|B", L"1");
    set(*document, L"S", L"A|D", L"2");
    EXPECT_EQ(savedText(*document), savedRoot("  <S>\n    <A>\n      <B>1</B>\n      <D>2</D>\n    </A>\n  </S>\n"));
}

TEST(ItemKey, MayNameAnElementThatIsASubSectionToo) {
    const Document document = load("<ConfigInfo><S><T ID=\"1\"><A>x</A></T></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"T|A"), L"x");
}

TEST(Existence, OfSections) {
    const Document document = twoProjectors();
    EXPECT_TRUE(document->doesSectionExist(L"Projector", L""));
    EXPECT_TRUE(document->doesSectionExist(L"Projector", L"2"));
    EXPECT_FALSE(document->doesSectionExist(L"Projector", L"3"));
    EXPECT_FALSE(document->doesSectionExist(L"Name", L""));
    EXPECT_FALSE(document->doesSectionExist(L"", L""));
}

TEST(Existence, OfSubSections) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><T ID=\"a\"/></S></ConfigInfo>");
    EXPECT_TRUE(document->doesSubSectionExist(L"S", L"T", L"1", L"a"));
    EXPECT_TRUE(document->doesSubSectionExist(L"S", L"T", L"", L""));
    EXPECT_FALSE(document->doesSubSectionExist(L"S", L"T", L"1", L"b"));
    EXPECT_FALSE(document->doesSubSectionExist(L"S", L"T", L"2", L"a"));
    EXPECT_FALSE(document->doesSubSectionExist(L"T", L"S", L"", L""));
}

TEST(Existence, OfItems) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A><B/></A></S></ConfigInfo>");
    EXPECT_TRUE(document->doesItemExist(L"S", L"A", L"1"));
    EXPECT_TRUE(document->doesItemExist(L"S", L"A|B", L""));
    EXPECT_FALSE(document->doesItemExist(L"S", L"B", L""));
    EXPECT_FALSE(document->doesItemExist(L"S", L"A", L"2"));
    EXPECT_FALSE(document->doesItemExist(L"X", L"A", L""));
    EXPECT_FALSE(document->isDirty());
}

TEST(RemoveItem, RemovesADirectChild) {
    const Document document = load("<ConfigInfo>\n  <S>\n    <A>1</A>\n    <B>2</B>\n    <A>3</A>\n  </S>\n</ConfigInfo>");
    EXPECT_TRUE(document->removeItem(L"S", L"A", L""));
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(savedText(*document), savedRoot("  <S>\n    <B>2</B>\n    <A>3</A>\n  </S>\n"));
    EXPECT_TRUE(document->removeItem(L"S", L"A", L""));
    EXPECT_TRUE(document->removeItem(L"S", L"B", L""));
    EXPECT_EQ(savedText(*document), savedRoot("  <S/>\n"));
}

TEST(RemoveItem, FindsAndForgetsEachOfVeryManyItems) {
    ConfigInfo document;
    constexpr int count = 600;
    const auto key = [](int i) { return L"K" + std::to_wstring(i); };
    for (int i = 0; i < count; ++i) set(document, L"S", key(i) + L"|B", std::to_wstring(i));
    for (int i = 0; i < count; ++i) EXPECT_EQ(get(document, L"S", key(i) + L"|B"), std::to_wstring(i));
    for (int i = 0; i < count; i += 2) EXPECT_TRUE(document.removeItem(L"S", key(i), L""));
    for (int i = 0; i < count; ++i) {
        EXPECT_EQ(document.doesItemExist(L"S", key(i), L""), i % 2 == 1) << i;
        EXPECT_EQ(get(document, L"S", key(i) + L"|B"), i % 2 == 1 ? std::to_wstring(i) : L"(default)");
    }
}

TEST(RemoveItem, LeavesAnythingElseAlone) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A><B>1</B></A></S></ConfigInfo>");
    const Untouched before(*document);
    EXPECT_FALSE(document->removeItem(L"S", L"X", L"1"));
    EXPECT_FALSE(document->removeItem(L"S", L"A", L"2"));
    EXPECT_FALSE(document->removeItem(L"X", L"A", L""));
    EXPECT_FALSE(document->removeItem(L"S", L"A|X", L"1"));
    EXPECT_FALSE(document->removeItem(L"S", L"", L"1"));
    EXPECT_FALSE(document->removeItem(L"S", L"A|", L"1"));
    EXPECT_TRUE(before.unchanged());
}

TEST(RemoveItem, RefusesAKeyOfSeveralPartsThatExists) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A><B>1</B></A></S></ConfigInfo>");
    const Untouched before(*document);
    EXPECT_STARTS_WITH(messageOf([&] { document->removeItem(L"S", L"A|B", L"1"); }),
                       L"Error removeItem():  XML message is: ");
    EXPECT_TRUE(before.unchanged());
}

}  // namespace storetests
