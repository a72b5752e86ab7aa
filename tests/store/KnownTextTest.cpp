#include "store/Document.h"
#include "store/Together.h"
#include "tests/store/StoreSupport.h"

// Texts that were read once are remembered; whatever changes them afterwards, the next read must tell.

namespace storetests {

namespace {

/// The text that is known of an item of the section S without an ID.
std::u16string known(const ConfigInfo& document, const wchar_t* key) {
    const auto item = XMLConfig::detail::Document::of(document).getItem(L"S", key, L"");
    return std::u16string(item.section->textRead(item.number));
}

/// A section S with more keys than it keeps places for.
std::string manyKeys() {
    std::string text = "<ConfigInfo><S>";
    for (int i = 0; i < 700; ++i)
        text += "<k" + std::to_string(i) + ">" + std::to_string(i) + "</k" + std::to_string(i) + ">";
    return text + "<k699>second</k699><k699 ID=\"x\"><a>third</a></k699></S></ConfigInfo>";
}

}  // namespace

TEST(KnownText, IsThatOfTheLastWrite) {
    ConfigInfo document;
    for (const wchar_t* value : {L"one", L"two", L"longer than both", L"", L"x"}) {
        set(document, L"S", L"A", value, L"1");
        EXPECT_EQ(get(document, L"S", L"A", L"1"), value);
        EXPECT_EQ(get(document, L"S", L"A", L"1"), value);
    }
}

TEST(KnownText, ChangesWhenTheItemGetsAnItemInside) {
    const Document document = load("<ConfigInfo><S><A>x</A></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A", L""), L"x");
    set(*document, L"S", L"A|B|C", L"1", L"");
    EXPECT_EQ(get(*document, L"S", L"A", L""), L"x1");
}

TEST(KnownText, ChangesWhenASubsectionPutsAnItemInside) {
    const Document document = load("<ConfigInfo><S><T><A>y</A></T></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"T|A", L""), L"y");
    set(*document, L"S", L"A|B", L"2", L"", L"T", L"");
    EXPECT_EQ(get(*document, L"S", L"T|A", L""), L"y2");
}

TEST(KnownText, IsThatOfAllPiecesTogether) {
    const Document document = load("<ConfigInfo><S><A>a<!--c-->b</A><B><![CDATA[d]]></B></S></ConfigInfo>");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(get(*document, L"S", L"A", L""), L"ab");
        EXPECT_EQ(get(*document, L"S", L"B", L""), L"d");
    }
    set(*document, L"S", L"A", L"e", L"");
    set(*document, L"S", L"B", L"f", L"");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(get(*document, L"S", L"A", L""), L"e");
        EXPECT_EQ(get(*document, L"S", L"B", L""), L"f");
    }
}

TEST(KnownText, ChangesWhenASubsectionWritesIt) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><T ID=\"a\"><A>x</A></T></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"T|A", L"1"), L"x");
    set(*document, L"S", L"A", L"y", L"1", L"T", L"a");
    EXPECT_EQ(get(*document, L"S", L"T|A", L"1"), L"y");
    set(*document, L"S", L"A", L"", L"1", L"T", L"a");
    EXPECT_EQ(get(*document, L"S", L"T|A", L"1"), L"");
}

TEST(KnownText, ChangesWithAFragmentAndWithRemoval) {
    const Document document = load("<ConfigInfo><S><A>x</A><A>second</A><B>z</B></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"A", L""), L"x");
    document->setStringItemAsDOMElement(L"S", L"A", L"<a>f</a>", L"");
    EXPECT_EQ(get(*document, L"S", L"A", L""), L"f");
    EXPECT_TRUE(document->removeItem(L"S", L"A", L""));
    EXPECT_EQ(get(*document, L"S", L"A", L""), L"second");
    EXPECT_TRUE(document->removeItem(L"S", L"A", L""));
    EXPECT_EQ(get(*document, L"S", L"A", L""), L"(default)");
    set(*document, L"S", L"A", L"again", L"");  // may be given the text node of a removed item
    EXPECT_EQ(get(*document, L"S", L"A", L""), L"again");
    EXPECT_EQ(get(*document, L"S", L"B", L""), L"z");
}

TEST(KnownText, IsKeptUntilSomethingInTheSectionChanges) {
    const Document document = load("<ConfigInfo><S><A>x</A><B><C>y</C></B></S><S ID=\"1\"/></ConfigInfo>");
    for (const wchar_t* change : {L"A", L"B|C", L"B|D", L"B|C|D"}) {
        EXPECT_EQ(get(*document, L"S", L"B|C", L""), L"y");
        EXPECT_EQ(get(*document, L"S", L"A", L""), L"x");
        EXPECT_EQ(known(*document, L"A"), u"x");
        EXPECT_EQ(known(*document, L"B|C"), u"y");
        set(*document, L"S", L"A", L"in another section", L"1");
        EXPECT_EQ(known(*document, L"A"), u"x");
        set(*document, L"S", change, L"z", L"");
        EXPECT_EQ(known(*document, L"A"), u"");
        EXPECT_EQ(known(*document, L"B|C"), u"");
        EXPECT_EQ(get(*document, L"S", change, L""), L"z");
        set(*document, L"S", L"A", L"x", L"");
        set(*document, L"S", L"B|C", L"y", L"");
    }
    EXPECT_EQ(get(*document, L"S", L"A", L""), L"x");
    set(*document, L"S", L"D", L"a new item changes none that there is", L"");
    EXPECT_EQ(known(*document, L"A"), u"x");
    EXPECT_TRUE(document->removeItem(L"S", L"D", L""));
    EXPECT_EQ(known(*document, L"A"), u"");
}

TEST(KnownText, IsNotKeptWhenLong) {
    ConfigInfo document;
    for (const std::size_t length : {std::size_t(100), std::size_t(1000)}) {
        const std::wstring text(length, L'x');
        set(document, L"S", L"A", text, L"");
        for (int i = 0; i < 2; ++i) EXPECT_EQ(get(document, L"S", L"A", L""), text);
        EXPECT_EQ(known(document, L"A").size(), length == 100 ? length : 0);
    }
}

TEST(KnownText, IsNotKeptBetweenChangesThatAreMadeTogether) {
    ConfigInfo document;
    set(document, L"S", L"A", L"x", L"");
    {
        const XMLConfig::detail::Together changes(document);
        EXPECT_EQ(get(document, L"S", L"A", L""), L"x");
        EXPECT_EQ(known(document, L"A"), u"");
    }
    EXPECT_EQ(get(document, L"S", L"A", L""), L"x");
    EXPECT_EQ(known(document, L"A"), u"x");
}

TEST(KnownText, IsNotKeptOfMoreKeysThanASectionHasPlacesFor) {
    const Document document = load(manyKeys());
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 700; ++i) EXPECT_EQ(get(*document, L"S", L"k" + std::to_wstring(i), L""), std::to_wstring(i));
    EXPECT_EQ(known(*document, L"k0"), u"0");
    EXPECT_EQ(known(*document, L"k699"), u"");
    EXPECT_EQ(get(*document, L"S", L"a", L"", L"k699", L"x"), L"third");
    EXPECT_TRUE(document->removeItem(L"S", L"k699", L""));
    EXPECT_EQ(get(*document, L"S", L"k699", L""), L"second");
    EXPECT_TRUE(document->removeItem(L"S", L"k699", L""));
    EXPECT_EQ(get(*document, L"S", L"k699|a", L""), L"third");
    EXPECT_EQ(get(*document, L"S", L"k699|a", L""), L"third");
    EXPECT_TRUE(document->removeSubSection(L"S", L"k699", L"", L"x"));
    EXPECT_FALSE(document->doesItemExist(L"S", L"k699", L""));
    set(*document, L"S", L"k699", L"fourth", L"");
    EXPECT_EQ(get(*document, L"S", L"k699", L""), L"fourth");
}

}  // namespace storetests
