#include "store/Tree.h"

#include "store/ChangeObserver.h"
#include "store/Document.h"
#include "tests/store/StoreSupport.h"
#include "tests/support/CurrentFile.h"

// What is removed stays in memory until there is much of it; then the tree is copied. Nobody may notice.

namespace storetests {

namespace {

const xercesc::DOMDocument* treeOf(ConfigInfo& document) { return &XMLConfig::detail::Document::of(document).tree(); }

/// Edits a section of its own until the tree has been copied, and takes that section out again.
void editUntilCopied(ConfigInfo& document) {
    const xercesc::DOMDocument* const before = treeOf(document);
    const std::wstring text(2000, L'x');
    for (int i = 0; i < 2000 && treeOf(document) == before; ++i) {
        set(document, L"Waste", L"A", text);
        EXPECT_TRUE(document.removeSection(L"Waste", L""));
    }
    EXPECT_NE(treeOf(document), before);
}

}  // namespace

TEST(TreeCopy, KeepsEveryKindOfNode) {
    const Document document = load(
        "<?xml version=\"1.0\"?><!--before--><?p before?><ConfigInfo xmlns:n=\"urn:n\" a=\"1\"><!--c--><S ID=\"1\" "
        "b=\"&lt;&#10;\">"
        "<A>text &amp; more</A><B>mixed<i>x</i> and <![CDATA[<raw>]]></B><n:C n:d=\"2\"/><?q data?><E></E><F> </F></S>"
        "<S/><T xmlns=\"urn:t\"><u/><\xF0\x90\x90\x80 \xF0\x90\x90\x81=\"1\"/></T></ConfigInfo><!--after--><?p after?>");
    const std::string before = savedText(*document);
    editUntilCopied(*document);
    EXPECT_EQ(savedText(*document), before);
}

TEST(TreeCopy, KeepsTheVersionOfXml) {
    const Document document = load("<?xml version=\"1.1\"?><ConfigInfo><S><A>&#1;</A></S></ConfigInfo>");
    const std::string before = savedText(*document);
    editUntilCopied(*document);
    EXPECT_EQ(savedText(*document), before);
    EXPECT_CONTAINS(before, "version=\"1.1\"");
}

TEST(TreeCopy, LeavesAllLookUpsAndChangesRight) {
    ConfigInfo document;
    set(document, L"S", L"A", L"1", L"1");
    set(document, L"S", L"B|C", L"2", L"1");
    document.setStringItemAsDOMElement(L"S", L"F", L"<d k=\"v\"><e>1</e></d>", L"1");
    EXPECT_EQ(get(document, L"S", L"A", L"1"), L"1");
    EXPECT_EQ(get(document, L"S", L"B|C", L"1"), L"2");
    const std::wstring element = fragment(document, L"S", L"F", L"1");
    editUntilCopied(document);
    EXPECT_EQ(get(document, L"S", L"A", L"1"), L"1");
    EXPECT_EQ(get(document, L"S", L"B|C", L"1"), L"2");
    EXPECT_EQ(fragment(document, L"S", L"F", L"1"), element);
    document.setStringItemAsDOMElement(L"S", L"F", L"<d/>", L"1");
    EXPECT_EQ(fragment(document, L"S", L"F", L"1"), L"<d/>");
    EXPECT_TRUE(document.renameSection(L"S", L"1", L"2"));
    EXPECT_TRUE(document.removeItem(L"S", L"A", L"2"));
    EXPECT_EQ(document.getVersion(), XMLConfig::detail::latestFileVersion);
}

TEST(TreeCopy, IsNotMadeForADocumentThatOnlyGrows) {
    ConfigInfo document;
    const xercesc::DOMDocument* const before = treeOf(document);
    for (int i = 0; i < 3000; ++i) set(document, L"S", L"A", std::wstring(500, L'x'), std::to_wstring(i));
    for (int i = 0; i < 3000; ++i) set(document, L"S", L"A", std::wstring(400, L'y'), std::to_wstring(i));
    EXPECT_EQ(treeOf(document), before);
}

TEST(TreeCopy, WaitsForMoreWasteInALargerDocument) {
    ConfigInfo document;
    for (int i = 0; i < 1000; ++i) set(document, L"S", L"A", std::wstring(2000, L'x'), std::to_wstring(i));
    const xercesc::DOMDocument* const before = treeOf(document);
    for (int i = 0; i < 500; ++i) EXPECT_TRUE(document.removeSection(L"S", std::to_wstring(i)));
    EXPECT_EQ(treeOf(document), before);
    editUntilCopied(document);
    EXPECT_EQ(document.getSectionCount(L"S"), 500);
}

}  // namespace storetests
