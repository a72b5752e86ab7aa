#include "tests/store/StoreSupport.h"

namespace storetests {

TEST(FragmentItem, GivesBackTheElement) {
    ConfigInfo document;
    document.setStringItemAsDOMElement(L"S", L"A", L"<dev x=\"1\">t</dev>", L"1");
    EXPECT_TRUE(document.isDirty());
    EXPECT_EQ(fragment(document, L"S", L"A", L"1"), L"<dev x=\"1\">t</dev>");
    EXPECT_EQ(get(document, L"S", L"A", L"1"), L"t");
    EXPECT_CONTAINS(savedText(document), "  <S ID=\"1\">\n    <A>\n      <dev x=\"1\">t</dev>\n    </A>\n  </S>\n");
    EXPECT_EQ(fragment(*reloaded(document), L"S", L"A", L"1"), L"<dev x=\"1\">t</dev>");
}

TEST(FragmentItem, GivesBackANestedElement) {
    ConfigInfo document;
    document.setStringItemAsDOMElement(L"S", L"A|B", L"<dev><ip>1</ip><port a='x'/></dev>", L"");
    const std::wstring text = fragment(document, L"S", L"A|B");
    ConfigInfo other;
    other.setStringItemAsDOMElement(L"S", L"A|B", text, L"");
    EXPECT_EQ(savedText(other), savedText(document));
    EXPECT_EQ(fragment(other, L"S", L"A|B"), text);
    EXPECT_EQ(get(document, L"S", L"A|B|dev|ip"), L"1");
    EXPECT_FALSE(contains(text, L"<?xml"));
}

TEST(FragmentItem, GivesTheTextOfATextItem) {
    const Document document = load("<ConfigInfo><S><A>a &lt; b</A></S></ConfigInfo>");
    EXPECT_EQ(fragment(*document, L"S", L"A"), L"a < b");
}

TEST(FragmentItem, GivesTheDefaultWithoutAnElement) {
    const Document document = load(
        "<ConfigInfo><S><Empty/><Comment><!--c--></Comment><Several>a<!--c--></Several><Pi><?p d?></Pi></S></ConfigInfo>");
    for (const wchar_t* key : {L"Empty", L"Comment", L"Several", L"Pi", L"Missing"})
        EXPECT_EQ(fragment(*document, L"S", key), L"(default)") << key;
    EXPECT_EQ(fragment(*document, L"X", L"Empty"), L"(default)");
    EXPECT_EQ(fragment(*document, L"S", L"Empty", L"9"), L"(default)");
}

TEST(FragmentItem, IsTheFirstElementAmongOthers) {
    const Document document = load("<ConfigInfo><S><A>\n  text<!--c--><first n=\"1\"/><second/></A></S></ConfigInfo>");
    EXPECT_EQ(fragment(*document, L"S", L"A"), L"<first n=\"1\"/>");
}

TEST(FragmentItem, ReplacesWhatTheItemHeld) {
    const Document document = load("<ConfigInfo><S><A k=\"1\">old<b/><!--c--></A></S></ConfigInfo>");
    document->setStringItemAsDOMElement(L"S", L"A", L"<new/>", L"");
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(savedText(*document), savedRoot("  <S>\n    <A k=\"1\">\n      <new/>\n    </A>\n  </S>\n"));
}

TEST(FragmentItem, IsNotDirtyWhenOnlyLayoutDiffers) {
    ConfigInfo document;
    document.setStringItemAsDOMElement(L"S", L"A", L"<d><a>1</a><b x=\"2\"/></d>", L"");
    document.setDirty(false);
    for (const wchar_t* same :
         {L"<d><a>1</a><b x=\"2\"/></d>", L"<d>\n\t <a>1</a>\n\n<b x='2'></b> </d>", L"<d><a>1</a><b x='2'>\n </b></d>",
          L"<?xml version=\"1.0\"?>\n<d><a>1</a><b x = \"2\" /></d>\n", L"<d><a>&#49;</a><b x=\"2\"/></d>"}) {
        document.setStringItemAsDOMElement(L"S", L"A", same, L"");
        EXPECT_FALSE(document.isDirty()) << same;
    }
    const Document again = reloaded(document);
    again->setStringItemAsDOMElement(L"S", L"A", L"<d><a>1</a><b x=\"2\"/></d>", L"");
    EXPECT_FALSE(again->isDirty());
}

// Elements of the file are in the namespace that is declared around them, what is stored is not: the saved bytes are equal.
TEST(FragmentItem, IsNotDirtyInAnotherNamespaceOfEqualNames) {
    const Document document =
        load("<ConfigInfo xmlns=\"urn:d\"><S><A>\n  <d y=\"2\" x=\"1\"><e/> <![CDATA[ ]]><!--c--></d></A></S></ConfigInfo>");
    document->setStringItemAsDOMElement(L"S", L"A", L"<d x='1' y='2'> <e/><![CDATA[ ]]>\n<!--c--></d>", L"");
    EXPECT_FALSE(document->isDirty());
    document->setStringItemAsDOMElement(L"S", L"A", L"<d x='1' y='2'><e/><![CDATA[ ]]>t<!--c--></d>", L"");
    EXPECT_TRUE(document->isDirty());
}

TEST(FragmentItem, IsDirtyWhenTheContentDiffers) {
    for (const wchar_t* other :
         {L"<d><a>1</a><b x=\"3\"/></d>", L"<d><a>2</a><b x=\"2\"/></d>", L"<d><b x=\"2\"/><a>1</a></d>",
          L"<e><a>1</a><b x=\"2\"/></e>", L"<d><a>1</a></d>", L"<d><a>1</a><b x=\"2\" y=\"\"/></d>",
          L"<d><a> 1</a><b x=\"2\"/></d>", L"<d>t<a>1</a><b x=\"2\"/></d>"}) {
        ConfigInfo document;
        document.setStringItemAsDOMElement(L"S", L"A", L"<d><a>1</a><b x=\"2\"/></d>", L"");
        document.setDirty(false);
        document.setStringItemAsDOMElement(L"S", L"A", other, L"");
        EXPECT_TRUE(document.isDirty()) << other;
    }
}

TEST(FragmentItem, IgnoresTheOrderOfAttributes) {
    ConfigInfo document;
    document.setStringItemAsDOMElement(L"S", L"A", L"<d a=\"1\" b=\"2\"/>", L"");
    document.setDirty(false);
    document.setStringItemAsDOMElement(L"S", L"A", L"<d b=\"2\" a=\"1\"/>", L"");
    EXPECT_FALSE(document.isDirty());
}

TEST(FragmentItem, LeavesAnExistingItemAloneForAnEmptyValue) {
    const Document document = load("<ConfigInfo><S><A><b/></A></S></ConfigInfo>");
    const Untouched before(*document);
    document->setStringItemAsDOMElement(L"S", L"A", L"", L"");
    EXPECT_TRUE(before.unchanged());
}

TEST(FragmentItem, IsMadeEmptyForAnEmptyValue) {
    const Document document = load("<ConfigInfo/>");
    document->setStringItemAsDOMElement(L"S", L"A|B", L"", L"7");
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(savedText(*document), savedRoot("  <S ID=\"7\">\n    <A>\n      <B/>\n    </A>\n  </S>\n"));
    EXPECT_EQ(fragment(*document, L"S", L"A|B", L"7"), L"(default)");
}

TEST(FragmentItem, KeepsForeignText) {
    ConfigInfo document;
    document.setStringItemAsDOMElement(L"S", L"A", L"<d n=\"\u65e5\u672c &amp; \U0001F3A5\">\u00fc&lt;</d>", L"");
    EXPECT_EQ(get(*reloaded(document), L"S", L"A|d"), L"\u00fc<");
    EXPECT_EQ(fragment(*reloaded(document), L"S", L"A"), L"<d n=\"\u65e5\u672c &amp; \U0001F3A5\">\u00fc&lt;</d>");
}

TEST(FragmentItem, IsWideTextWhateverEncodingItNames) {
    for (const wchar_t* encoding : {L"UTF-8", L"UTF-16", L"ISO-8859-1", L"US-ASCII"}) {
        ConfigInfo document;
        const std::wstring text = std::wstring(L"<?xml version=\"1.0\" encoding=\"") + encoding + L"\"?><d>\u00fc\u65e5</d>";
        document.setStringItemAsDOMElement(L"S", L"A", text, L"");
        EXPECT_EQ(get(document, L"S", L"A"), L"\u00fc\u65e5") << encoding;
    }
}

TEST(SetItem, TakesOnlyTheTypeDomElementAsAFragment) {
    struct Opened : ConfigInfo {
        using ConfigInfo::setItem;
    } document;
    for (const wchar_t* type : {L"String", L"Integer", L"Double", L"", L"domelement", L"anything"})
        document.setItem(L"S", L"A", L"<b/>", L"", type, L"T", type);
    EXPECT_EQ(document.getSubSectionCount(L"S", L"T"), 5);
    EXPECT_EQ(get(document, L"S", L"A", L"", L"T", L"Integer"), L"<b/>");
    EXPECT_FALSE(contains(savedText(document), "type"));
    document.setItem(L"S", L"A", L"<b>x</b>", L"", L"DOMElement", L"T", L"f");
    EXPECT_EQ(get(document, L"S", L"A|b", L"", L"T", L"f"), L"x");
}

}  // namespace storetests
