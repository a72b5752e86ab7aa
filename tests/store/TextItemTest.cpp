#include "tests/store/StoreSupport.h"

namespace storetests {

TEST(TextItem, OfAnExistingEmptyElementIsEmpty) {
    for (const char* text :
         {"<A/>", "<A></A>", "<A><!--c--></A>", "<A><B/></A>", "<A><?pi d?></A>", "<A><![CDATA[]]></A>"}) {
        const Document document = load("<ConfigInfo><S>" + std::string(text) + "</S></ConfigInfo>");
        EXPECT_EQ(get(*document, L"S", L"A"), L"") << text;
    }
}

TEST(TextItem, IsTheTextOfEverythingInside) {
    const Document document =
        load("<ConfigInfo><S><A>a<B>b<C>c</C></B><!--no--><![CDATA[<d>]]><?no no?>&amp;&#65;</A></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A"), L"abc<d>&A");
}

TEST(TextItem, IsNotFoundBelowAHeaderElementThatWasRewritten) {
    const Document document = load(
        "<ConfigInfo><Version ID=\"1\"><a>1</a></Version><BuildDate ID=\"1\"><a>1</a></BuildDate>"
        "<BuildDate ID=\"2\"><b>2</b></BuildDate><BuildNumber/></ConfigInfo>");
    EXPECT_EQ(get(*document, L"Version", L"a"), L"1");
    EXPECT_EQ(get(*document, L"BuildDate", L"a", L"1"), L"1");
    EXPECT_EQ(get(*document, L"BuildDate", L"b", L"2"), L"2");
    document->setVersion(9);
    document->insertBuildDateAndNumber();
    EXPECT_EQ(get(*document, L"Version", L"a"), L"(default)");
    EXPECT_EQ(get(*document, L"BuildDate", L"a", L"1"), L"(default)");
    EXPECT_EQ(get(*document, L"BuildDate", L"b", L"2"), L"(default)");
}

TEST(TextItem, IsReplacedWithEverythingInside) {
    const Document document = load("<ConfigInfo><S><A x=\"1\">a<B>b</B><!--c--></A></S></ConfigInfo>");
    set(*document, L"S", L"A", L"new");
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(savedText(*document), savedRoot("  <S>\n    <A x=\"1\">new</A>\n  </S>\n"));
}

TEST(TextItem, KeepsItsChildrenWhenTheTextIsEqual) {
    const Document document = load("<ConfigInfo><S><A>a<B>b</B><!--c--></A></S></ConfigInfo>");
    const Untouched before(*document);
    set(*document, L"S", L"A", L"ab");
    EXPECT_TRUE(before.unchanged());
}

TEST(TextItem, SetsDirtyOnlyWhenItChanges) {
    ConfigInfo document;
    set(document, L"S", L"A", L"1");
    EXPECT_TRUE(document.isDirty());
    document.setDirty(false);
    set(document, L"S", L"A", L"1");
    EXPECT_FALSE(document.isDirty());
    set(document, L"S", L"A", L"2");
    EXPECT_TRUE(document.isDirty());
    document.setDirty(false);
    set(document, L"S", L"B", L"1");
    EXPECT_TRUE(document.isDirty());
}

TEST(TextItem, LeavesADirtyDocumentDirtyWhenEqual) {
    ConfigInfo document;
    set(document, L"S", L"A", L"1");
    set(document, L"S", L"A", L"1");
    EXPECT_TRUE(document.isDirty());
}

TEST(TextItem, IsMadeForAnEmptyValueToo) {
    const Document document = load("<ConfigInfo/>");
    set(*document, L"S", L"A", L"");
    EXPECT_TRUE(document->isDirty());
    EXPECT_TRUE(document->doesItemExist(L"S", L"A", L""));
    EXPECT_EQ(get(*document, L"S", L"A"), L"");
    EXPECT_EQ(savedText(*document), savedRoot("  <S>\n    <A/>\n  </S>\n"));
    const Document again = reloaded(*document);
    set(*again, L"S", L"A", L"");
    EXPECT_FALSE(again->isDirty());
    EXPECT_EQ(savedText(*again), savedText(*document));
}

TEST(TextItem, CanBecomeEmpty) {
    const Document document = load("<ConfigInfo><S><A>1</A></S></ConfigInfo>");
    set(*document, L"S", L"A", L"");
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(get(*document, L"S", L"A"), L"");
    EXPECT_EQ(savedText(*document), savedRoot("  <S>\n    <A/>\n  </S>\n"));
}

TEST(TextItem, SurvivesASaveWhateverItHolds) {
    const std::wstring values[] = {L" ",
                                   L"\t",
                                   L"\n",
                                   L"\r",
                                   L"\r\n",
                                   L"  lead",
                                   L"trail  ",
                                   L"a\r\nb\rc\nd\te",
                                   L"<&>\"'",
                                   L"]]>",
                                   L"&amp;",
                                   L"<!--",
                                   L"\u0085\u2028",
                                   L"\u00a0",
                                   L"\ufffd\ue000\ud7ff",
                                   L"\U00010000\U0010ffff",
                                   L"--",
                                   L"?>",
                                   L"%s%d%n",
                                   std::wstring(100000, L'x'),
                                   L"\u007f\u009f"};
    for (const auto& value : values) {
        ConfigInfo document;
        set(document, L"S", L"A", value);
        set(document, L"S", L"B", value, value, L"T", value);
        EXPECT_EQ(get(document, L"S", L"A"), value);
        const Document again = reloaded(document);
        EXPECT_EQ(get(*again, L"S", L"A"), value);
        EXPECT_EQ(get(*again, L"S", L"B", value, L"T", value), value);
        EXPECT_EQ(again->getSectionIDs(L"S"), std::vector<std::wstring>{value});
        EXPECT_EQ(savedText(*again), savedText(document));
    }
}

TEST(TextItem, WritesReturnsAndAttributeSpaceAsReferences) {
    ConfigInfo document;
    set(document, L"S", L"A", L"a\rb", L"t\tn\nr\r.");
    const std::string text = savedText(document);
    EXPECT_EQ(text.find('\r'), std::string::npos);
    EXPECT_EQ(text.find('\t'), std::string::npos);
    EXPECT_CONTAINS(text, "&#x");
    const Document again = load(text);
    EXPECT_EQ(get(*again, L"S", L"A", L"t\tn\nr\r."), L"a\rb");
}

TEST(TextItem, DefaultIsGivenBackAsItIs) {
    const ConfigInfo document;
    EXPECT_EQ(document.getStringItem(L"S", L"A", L"", L"", L"", L""), L"");
    EXPECT_EQ(document.getStringItem(L"S", L"A", std::wstring(1, L'\x1'), L"", L"", L""), std::wstring(1, L'\x1'));
    EXPECT_FALSE(document.isDirty());
    EXPECT_FALSE(document.doesSectionExist(L"S", L""));
}

}  // namespace storetests
