#include "store/ElementView.h"

#include "store/Address.h"
#include "store/Outline.h"
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
    EXPECT_EQ(XMLConfig::outline(none).name, L"");
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

TEST(ElementView, IsFoundAsOutlinesAre) {
    const Document document = load(sample);
    const auto nodes = XMLConfig::outline(*document);
    for (const wchar_t* text :
         {L"S", L"S[1]", L"S[2]", L"S[3]", L"T", L"U", L"S/A", L"S[1]/A", L"S[1]/B/C", L"S[1]/C", L"S/A/b", L"S[2]/A/b",
          L"S[2]/Slot[7]", L"S/Slot[7]/v", L"S[2]/Slot[8]/v", L"S[1]/Slot[7]", L"S[2]/Slot/v"}) {
        const auto address = parseAddress(text);
        const auto* const node = XMLConfig::findNode(nodes, address);
        const ElementView element = findElement(*document, address);
        EXPECT_EQ(bool(element), node != nullptr) << std::string(text, text + std::wcslen(text));
        const auto copy = XMLConfig::outline(element);
        EXPECT_EQ(copy.name, node == nullptr ? L"" : node->name);
        EXPECT_EQ(copy.attributes, node == nullptr ? decltype(copy.attributes)() : node->attributes);
        EXPECT_EQ(copy.text, node == nullptr ? L"" : node->text);
        EXPECT_EQ(copy.children.size(), node == nullptr ? 0u : node->children.size());
    }
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

}  // namespace storetests
