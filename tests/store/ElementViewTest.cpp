#include "store/ElementView.h"

#include <ctime>
#include <string>

#include "store/Address.h"
#include "tests/store/StoreSupport.h"

namespace storetests {

using XMLConfig::ElementView;
using XMLConfig::findElement;
using XMLConfig::parseAddress;
using XMLConfig::rootElement;
using XMLConfig::sectionElements;

namespace {

const char* const sample =
    "<ConfigInfo><!--c--><S ID=\"1\"><A>one</A><B><C>two</C><C>three</C></B></S>text<T/><S><A/></S>"
    "<S ID=\"2\" z=\"&#xe4;\"><Slot ID=\"7\"><v>seven</v></Slot><A>1<!--x-->2<b>3</b></A></S></ConfigInfo>";

std::wstring namesIn(const ElementView& element) {
    std::wstring names;
    for (const ElementView& child : element.children()) names += child.name() + L" ";
    return names;
}

}  // namespace

TEST(ElementView, WalksElementsInDocumentOrder) {
    const Document document = load(sample);
    const ElementView root = rootElement(*document);
    EXPECT_EQ(root.name(), L"ConfigInfo");
    EXPECT_FALSE(root.parent());
    EXPECT_FALSE(root.next());
    EXPECT_EQ(namesIn(root), L"S T S S ");
    EXPECT_EQ(namesIn(root.firstChild()), L"A B ");
    EXPECT_EQ(root.firstChild().parent(), root);
    EXPECT_EQ(root.firstChild().next().name(), L"T");
    EXPECT_EQ(namesIn(root.firstChild().next()), L"");
}

TEST(ElementView, FindsTheFirstChildOfATag) {
    const Document document = load(sample);
    const ElementView section = rootElement(*document).child(L"S");
    EXPECT_EQ(section.id(), L"1");
    EXPECT_EQ(section.child(L"B").child(L"C").text(), L"two");
    EXPECT_FALSE(section.child(L"C"));
    EXPECT_FALSE(ElementView().child(L"A"));
}

TEST(ElementView, ReadsTagAttributesAndText) {
    const Document document = load(sample);
    const ElementView section = findElement(*document, parseAddress(L"S[2]"));
    EXPECT_TRUE(section.isNamed(L"S"));
    EXPECT_FALSE(section.isNamed(L"s"));
    EXPECT_FALSE(section.isNamed(L""));
    EXPECT_EQ(section.id(), L"2");
    EXPECT_EQ(section.attribute(L"z"), L"\u00e4");
    EXPECT_EQ(section.attribute(L"Z"), std::nullopt);
    EXPECT_EQ(findElement(*document, parseAddress(L"T")).id(), L"");
    EXPECT_EQ(findElement(*document, parseAddress(L"T")).attribute(L"ID"), std::nullopt);
    EXPECT_EQ(findElement(*document, parseAddress(L"S[2]/A")).text(), L"123");
    EXPECT_EQ(findElement(*document, parseAddress(L"S[1]/B")).text(), L"twothree");
}

TEST(ElementView, OfNoElementIsEmpty) {
    const ElementView none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.name(), L"");
    EXPECT_EQ(none.id(), L"");
    EXPECT_EQ(none.text(), L"");
    EXPECT_FALSE(none.isNamed(L""));
    EXPECT_FALSE(none.firstChild() || none.next() || none.parent());
    EXPECT_EQ(namesIn(none), L"");
    EXPECT_EQ(none.attribute(L"ID"), std::nullopt);
    EXPECT_TRUE(none.attributes().empty());
}

TEST(ElementView, ListsTheSectionsOfATagAlone) {
    const Document document = load(sample);
    const auto sections = sectionElements(*document, L"S");
    ASSERT_EQ(sections.size(), 3u);
    EXPECT_EQ(sections[0].id(), L"1");
    EXPECT_EQ(sections[1].id(), L"");
    EXPECT_EQ(sections[2].id(), L"2");
    EXPECT_EQ(sectionElements(*document, L"T").size(), 1u);
    EXPECT_TRUE(sectionElements(*document, L"A").empty());
}

TEST(ElementView, IsFoundByItsAddress) {
    const Document document = load(sample);
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"S", L"S[1] onetwothree"},
        {L"S[1]", L"S[1] onetwothree"},
        {L"S[2]", L"S[2] seven123"},
        {L"S[3]", L"none"},
        {L"T", L"T[] "},
        {L"U", L"none"},
        {L"S/A", L"A[] one"},
        {L"S[1]/A", L"A[] one"},
        {L"S[1]/B/C", L"C[] two"},
        {L"S[1]/C", L"none"},
        {L"S/A/b", L"none"},
        {L"S[2]/A/b", L"b[] 3"},
        {L"S[2]/Slot[7]", L"Slot[7] seven"},
        {L"S/Slot[7]/v", L"v[] seven"},
        {L"S[2]/Slot[8]/v", L"none"},
        {L"S[1]/Slot[7]", L"none"},
        {L"S[2]/Slot/v", L"v[] seven"},
    };
    for (const auto& [address, expected] : rows) {
        const ElementView element = findElement(*document, parseAddress(address));
        const std::wstring found = element.name() + L"[" + element.id() + L"] " + element.text();
        EXPECT_EQ(element ? found : L"none", expected) << testing::PrintToString(std::wstring(address));
    }
}

TEST(ElementView, HasItsAttributesByName) {
    const Document document = load("<ConfigInfo><S z=\"1\" ID=\"x y\" a=\"&lt;&#10;\"/><S ID=\"\"/><S/></ConfigInfo>");
    const auto sections = sectionElements(*document, L"S");
    ASSERT_EQ(sections.size(), 3u);
    using Attributes = std::vector<std::pair<std::wstring, std::wstring>>;
    EXPECT_EQ(sections[0].attributes(), (Attributes{{L"ID", L"x y"}, {L"a", L"<\n"}, {L"z", L"1"}}));
    EXPECT_EQ(sections[0].id(), L"x y");
    EXPECT_EQ(sections[1].attributes(), (Attributes{{L"ID", L""}}));
    EXPECT_EQ(sections[1].id(), L"");
    EXPECT_TRUE(sections[2].attributes().empty());
}

TEST(ElementView, ShowsElementsAndTextAlone) {
    const Document document = load(
        "<ConfigInfo>stray<!--c--><S><!--c--><?p d?><A>a<!--x-->b<![CDATA[<c>]]>&amp;</A><B> </B><C/></S></ConfigInfo>");
    const ElementView section = rootElement(*document).firstChild();
    EXPECT_EQ(namesIn(section), L"A B C ");
    EXPECT_EQ(section.child(L"A").text(), L"ab<c>&");
    EXPECT_EQ(section.child(L"B").text(), L" ");
    EXPECT_EQ(section.child(L"C").text(), L"");
}

TEST(ElementView, ShowsTheDocumentAndNoCopy) {
    const Document document = load(sample);
    set(*document, L"S", L"A", L"now", L"1");
    EXPECT_EQ(findElement(*document, parseAddress(L"S[1]/A")).text(), L"now");
    EXPECT_TRUE(document->removeSection(L"S", L"1"));
    EXPECT_EQ(sectionElements(*document, L"S").size(), 2u);
}

TEST(ElementView, ComparesTagsAndTextsWithoutCopies) {
    const auto document = ConfigInfo::fromText("<C><a>\xC3\xA4 1</a><b/><a>2</a><c>\xC3\xA4<d> 1</d></c></C>", L"it");
    const ElementView first = rootElement(*document).firstChild();
    const ElementView empty = first.next();
    EXPECT_TRUE(haveEqualTexts(first, first));
    EXPECT_TRUE(haveEqualTexts(first, empty.next().next()));
    EXPECT_FALSE(haveEqualTexts(first, empty.next()));
    EXPECT_FALSE(haveEqualTexts(first, empty));
    EXPECT_TRUE(haveEqualTexts(empty, ElementView()));
    EXPECT_FALSE(haveEqualTexts(first, ElementView()));
    EXPECT_TRUE(haveEqualTexts(ElementView(), ElementView()));
    const auto longer = ConfigInfo::fromText("<C><a>\xC3\xA4 10</a><a>\xC3\xA4 2</a></C>", L"it");
    for (const ElementView& other : rootElement(*longer).children()) EXPECT_FALSE(haveEqualTexts(first, other));
    EXPECT_TRUE(first.isNamedLike(first.next().next()));
    EXPECT_FALSE(first.isNamedLike(first.next()));
    EXPECT_FALSE(first.isNamedLike(ElementView()));
    const auto other = ConfigInfo::fromText("<D><a/></D>", L"it");
    EXPECT_TRUE(first.isNamedLike(rootElement(*other).firstChild()));
}

TEST(ElementView, ListsCommentsWithWhatIsAroundThem) {
    const auto document = ConfigInfo::fromText(
        "<!--0--><C>\n<!-- 1 --><a><!--2-->text<!--3--><b/></a><!--4--><!--5--><c/>t<!--6--></C><!--7-->", L"it");
    const ElementView root = rootElement(*document);
    const ElementView a = root.firstChild();
    const ElementView c = a.next();
    const std::vector<XMLConfig::CommentView> comments = XMLConfig::commentsOf(*document);
    ASSERT_EQ(comments.size(), 6u);
    const std::vector<std::wstring> texts = {L" 1 ", L"2", L"3", L"4", L"5", L"6"};
    const std::vector<ElementView> around = {root, a, a, root, root, root};
    const std::vector<ElementView> next = {a, a.firstChild(), a.firstChild(), c, c, ElementView()};
    for (std::size_t i = 0; i < comments.size(); ++i) {
        EXPECT_EQ(comments[i].text, texts[i]);
        EXPECT_TRUE(comments[i].around == around[i]) << i;
        EXPECT_TRUE(comments[i].next == next[i]) << i;
    }
    EXPECT_TRUE(XMLConfig::commentsOf(ConfigInfo()).empty());
}

/// Of the processor, so that other programs do not count.
double secondsToListComments(const std::string& comment) {
    constexpr int count = 30000;
    std::string text = "<ConfigInfo>";
    for (int i = 0; i < count; ++i) text += comment;
    const auto document = ConfigInfo::fromText(text + "</ConfigInfo>", L"it");
    const std::clock_t start = std::clock();
    EXPECT_EQ(XMLConfig::commentsOf(*document).size(), static_cast<std::size_t>(count));
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST(ElementView, ListsCommentsInARowAsFastAsOthers) {
    EXPECT_LT(secondsToListComments("<!---->"), 20 * secondsToListComments("<!----><a/>"));
}

}  // namespace storetests
