#include "store/Outline.h"

#include "tests/store/StoreSupport.h"
#include "tests/support/CurrentFile.h"

namespace storetests {

using XMLConfig::outline;

TEST(Outline, ListsTheRootsElementsInOrder) {
    ConfigInfo document;
    set(document, L"System", L"A|B", L"1");
    const auto nodes = outline(document);
    ASSERT_EQ(nodes.size(), 5u);
    EXPECT_EQ(nodes[0].name, L"Version");
    EXPECT_EQ(XMLConfig::detail::toUtf8(nodes[0].text), latestVersion);
    EXPECT_EQ(nodes[1].name, L"BuildDate");
    EXPECT_EQ(nodes[2].name, L"BuildNumber");
    EXPECT_EQ(nodes[3].name, L"DevelopedBy");
    EXPECT_EQ(nodes[4].name, L"System");
    ASSERT_EQ(nodes[4].children.size(), 1u);
    EXPECT_EQ(nodes[4].children[0].name, L"A");
    ASSERT_EQ(nodes[4].children[0].children.size(), 1u);
    EXPECT_EQ(nodes[4].children[0].children[0].text, L"1");
    EXPECT_TRUE(document.isDirty());
}

TEST(Outline, HoldsAttributesByName) {
    const Document document = load("<ConfigInfo><S z=\"1\" ID=\"x y\" a=\"&lt;&#10;\"/><S ID=\"\"/><S/></ConfigInfo>");
    const auto nodes = outline(*document);
    ASSERT_EQ(nodes.size(), 3u);
    using Attributes = std::vector<std::pair<std::wstring, std::wstring>>;
    EXPECT_EQ(nodes[0].attributes, (Attributes{{L"ID", L"x y"}, {L"a", L"<\n"}, {L"z", L"1"}}));
    EXPECT_EQ(nodes[0].id(), L"x y");
    EXPECT_EQ(nodes[1].attributes, (Attributes{{L"ID", L""}}));
    EXPECT_EQ(nodes[1].id(), L"");
    EXPECT_TRUE(nodes[2].attributes.empty());
    EXPECT_EQ(nodes[2].id(), L"");
}

TEST(Outline, HoldsElementsAndTextAlone) {
    const Document document = load(
        "<ConfigInfo>stray<!--c--><S><!--c--><?p d?><A>a<!--x-->b<![CDATA[<c>]]>&amp;</A><B> </B><C/></S></ConfigInfo>");
    const auto nodes = outline(*document);
    ASSERT_EQ(nodes.size(), 1u);
    ASSERT_EQ(nodes[0].children.size(), 3u);
    EXPECT_EQ(nodes[0].children[0].text, L"ab<c>&");
    EXPECT_EQ(nodes[0].children[1].text, L" ");
    EXPECT_EQ(nodes[0].children[2].text, L"");
}

TEST(Outline, IsACopy) {
    ConfigInfo document;
    set(document, L"S", L"A", L"1");
    const auto before = outline(document);
    set(document, L"S", L"A", L"2");
    EXPECT_EQ(before.back().children[0].text, L"1");
    EXPECT_EQ(outline(document).back().children[0].text, L"2");
}

TEST(Outline, OfAnEmptyRootIsEmpty) { EXPECT_TRUE(outline(*load("<Anything/>")).empty()); }

TEST(Outline, ReachesIntoFragments) {
    ConfigInfo document;
    document.setStringItemAsDOMElement(L"S", L"A", L"<d k=\"v\"><e>1</e></d>", L"");
    const auto nodes = outline(document);
    const auto& item = nodes.back().children[0];
    ASSERT_EQ(item.children.size(), 1u);
    EXPECT_EQ(item.children[0].name, L"d");
    EXPECT_EQ(item.children[0].attributes[0].second, L"v");
    EXPECT_EQ(item.children[0].children[0].text, L"1");
}

}  // namespace storetests
