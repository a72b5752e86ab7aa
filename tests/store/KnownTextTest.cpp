#include "store/SectionItems.h"
#include "tests/store/StoreSupport.h"

// Texts that were read once are remembered; whatever changes them afterwards, the next read must tell.

namespace storetests {

namespace {

using XMLConfig::detail::KnownItem;
using XMLConfig::detail::SectionItems;

// Items are only told apart by their elements here, which are never looked into.
xercesc::DOMElement* element(std::size_t number) {
    static char places[400];
    return reinterpret_cast<xercesc::DOMElement*>(&places[number]);
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

TEST(KnownText, IsNotKeptWhenLong) {
    SectionItems items;
    KnownItem& item = items.add(0, element(0), 1);
    items.rememberText(item, std::u16string(1000, u'x'));
    EXPECT_TRUE(items.text(item).empty());
    items.rememberText(item, u"short");
    EXPECT_EQ(items.text(item), u"short");
}

TEST(KnownText, OfOthersOutlivesManyChangesOfOne) {
    SectionItems items;
    for (std::size_t number = 0; number < 400; ++number) items.add(number, element(number), 400);
    const std::u16string kept = u"kept";
    for (std::size_t number = 1; number < 400; ++number) items.rememberText(*items.find(number), kept);
    int forgotten = 0;
    for (int i = 0; i < 10000; ++i) {
        KnownItem& changing = *items.find(0);
        items.forgetText(changing);
        EXPECT_TRUE(items.text(changing).empty());
        items.rememberText(changing, i % 2 == 0 ? u"even" : u"odd");
        EXPECT_EQ(items.text(changing), i % 2 == 0 ? u"even" : u"odd");
        for (const std::size_t number : {std::size_t(1), std::size_t(399)}) {
            KnownItem& other = *items.find(number);
            if (items.text(other).empty()) {
                ++forgotten;
                items.rememberText(other, kept);
            }
            EXPECT_EQ(items.text(other), kept);
        }
    }
    EXPECT_LT(forgotten, 400);  // now and then all are forgotten, or the copies would grow for ever
    EXPECT_GT(forgotten, 0);
}

TEST(KnownText, IsForgottenOfAllItems) {
    SectionItems items;
    for (const std::size_t number : {std::size_t(3), std::size_t(300)})
        items.rememberText(items.add(number, element(number), 400), u"text");
    items.forgetTexts();
    EXPECT_TRUE(items.text(*items.find(3)).empty());
    EXPECT_TRUE(items.text(*items.find(300)).empty());
    items.rememberText(*items.find(300), u"other");
    EXPECT_TRUE(items.text(*items.find(3)).empty());
    EXPECT_EQ(items.text(*items.find(300)), u"other");
}

TEST(KnownText, GoesWithItsItem) {
    SectionItems items;
    for (const std::size_t number : {std::size_t(3), std::size_t(300)}) {
        items.rememberText(items.add(number, element(number), 400), u"text");
        EXPECT_EQ(items.find(number)->element, element(number));
        items.remove(number);
        EXPECT_EQ(items.find(number), nullptr);
        EXPECT_TRUE(items.text(items.add(number, element(number), 400)).empty());
    }
    items.clear();
    EXPECT_EQ(items.find(3), nullptr);
    EXPECT_EQ(items.find(300), nullptr);
}

}  // namespace storetests
