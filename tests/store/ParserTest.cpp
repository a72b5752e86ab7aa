#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/parsers/DOMLSParserImpl.hpp>

#include "platform/Text.h"
#include "store/Document.h"
#include "store/DocumentParser.h"
#include "store/ParseFailure.h"
#include "tests/store/StoreSupport.h"
#include "tests/store/TreeSupport.h"

// The store's parsers join most elements to the tree themselves: what they make is held against what the XML library's own
// parser makes of the same text.

namespace storetests {

namespace {

using xercesc::DOMElement;
using XMLConfig::detail::DocumentPointer;
using XMLConfig::detail::NewElement;
using XMLConfig::detail::ParseFailure;
using XMLConfig::detail::Tree;
using XMLConfig::detail::xmlText;

DocumentPointer parsedByTheLibrary(const std::string& text) {
    xercesc::DOMLSParserImpl parser;
    parser.setParameter(xercesc::XMLUni::fgXercesUserAdoptsDOMDocument, true);
    const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()), text.size(), "memory");
    const xercesc::Wrapper4InputSource input(const_cast<xercesc::MemBufInputSource*>(&source), false);
    return DocumentPointer(parser.parse(&input));
}

int depthOf(const DOMElement& element) {
    int inside = 0;
    for (const auto* child = element.getFirstElementChild(); child != nullptr; child = child->getNextElementSibling())
        inside = std::max(inside, depthOf(*child));
    return inside + 1;
}

void expectTheLibrarysTree(Tree& tree, const std::string& text) {
    SCOPED_TRACE(text.substr(0, 500));
    const DocumentPointer own = parsed(text);
    const DocumentPointer theirs = parsedByTheLibrary(text);
    const std::string expected = described(*theirs->getDocumentElement());
    EXPECT_EQ(described(*own->getDocumentElement()), expected);
    EXPECT_EQ(own->getChildNodes()->getLength(), theirs->getChildNodes()->getLength());

    const NewElement made = XMLConfig::detail::readElement(text, tree);
    EXPECT_EQ(made.levels, depthOf(*theirs->getDocumentElement()));
    EXPECT_EQ(described(*made.element), expected);
    EXPECT_EQ(made.element->getOwnerDocument(), &tree.document());
}

// The element that the document holds after `text` was stored, as the XML library's own parser reads it.
void expectStored(ConfigInfo& document, const std::string& text) {
    SCOPED_TRACE(text.substr(0, 500));
    document.setStringItemAsDOMElement(L"S", L"A", XMLConfig::detail::fromUtf8(text), L"1");
    const std::wstring stored = document.getStringItemAsDOMElement(L"S", L"A", L"", L"1");
    const DocumentPointer own = parsedByTheLibrary("<holder>" + XMLConfig::detail::toUtf8(stored) + "</holder>");
    const DocumentPointer theirs = parsedByTheLibrary(text);
    EXPECT_TRUE(XMLConfig::detail::holdsCollapsed(*own->getDocumentElement(), *theirs->getDocumentElement()))
        << XMLConfig::detail::toUtf8(stored);
}

const char* const fragmentTexts[] = {
    "<a/>",
    "<a></a>",
    "<a>text</a>",
    "<a x=\"1\"/>",
    "<a><b/><c></c><d>1</d><b/></a>",
    "<a>\n  <b>1</b>\n  <c y=\"2\" x=\"1\">\n    <d/>\n  </c>\n</a>",
    "<a>one<b/>two<!--c-->three<?p i?>four<![CDATA[<five>]]>six</a>",
    "<!--before--><?p i?><a><b/></a><!--after--> \n",
    "<a>&amp;&lt;&gt;&quot;&apos;&#65;&#x1F600;</a>",
    "<a x=\"&amp;&#10;&quot;\"><b/></a>",
    "<p:a xmlns:p=\"urn:p\" p:x=\"1\" x=\"2\"><p:b/><b/><c xmlns=\"urn:c\"><d/><e x=\"3\"/></c><f/></p:a>",
    "<a xmlns=\"urn:a\"><b><c xmlns=\"\"><d/></c></b></a>",
    "<a xml:space=\"preserve\" xml:id=\"i\"> <b/> </a>",
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?><a><b/>\xC3\xA4</a>",
};

std::string randomElement(std::mt19937& random, int level) {
    const std::string name(1, static_cast<char>('a' + random() % 4));
    std::string text = "<" + name;
    if (random() % 3 == 0) text += " x=\"" + std::to_string(random() % 9) + "\"";
    if (random() % 9 == 0) text += " xmlns=\"urn:" + name + "\"";
    if (random() % 5 == 0) return text + "/>";
    text += ">";
    for (auto count = random() % 5; count > 0; --count) {
        const auto kind = random() % 8;
        if (kind < 4 && level < 6) text += randomElement(random, level + 1);
        else if (kind < 6) text += random() % 2 == 0 ? "\n  " : "text";
        else if (kind == 6) text += "<!--c-->";
        else text += "<![CDATA[d]]>";
    }
    return text + "</" + name + ">";
}

}  // namespace

TEST(Parser, MakesTheTreesOfTheXmlLibrary) {
    XMLConfig::detail::startXmlLibrary();
    Tree tree;
    tree.adopt(parsed("<r/>"));
    for (const char* const text : fragmentTexts) expectTheLibrarysTree(tree, text);
    const std::string longText(50000, 'x');  // the library gives such a text in several pieces
    expectTheLibrarysTree(tree, "<a>" + longText + "&amp;<b/>" + longText + "<![CDATA[" + longText + "]]></a>");
}

TEST(Parser, MakesTheTreesOfTheXmlLibraryAtRandom) {
    XMLConfig::detail::startXmlLibrary();
    Tree tree;
    tree.adopt(parsed("<r/>"));
    std::mt19937 random(20190311);
    for (int i = 0; i < 2000 && !testing::Test::HasFailure(); ++i) expectTheLibrarysTree(tree, randomElement(random, 0));
}

TEST(Parser, MakesTheTreesOfTheXmlLibraryOfTheExamples) {
    XMLConfig::detail::startXmlLibrary();
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator("examples")) {
        if (entry.path().extension() != ".skorra" && entry.path().extension() != ".skorrax") continue;
        const DocumentPointer own = XMLConfig::detail::parseFile(wideOf(entry.path())).document;
        std::ifstream file(entry.path(), std::ios::binary);
        const DocumentPointer theirs = parsedByTheLibrary(std::string(std::istreambuf_iterator<char>(file), {}));
        EXPECT_EQ(described(*own->getDocumentElement()), described(*theirs->getDocumentElement())) << entry.path();
        ++count;
    }
    EXPECT_EQ(count, 11);
}

TEST(Parser, LeavesTheTreeToItsOwnerAfterAFailure) {
    Tree tree;
    tree.adopt(parsed("<r><kept>1</kept></r>"));
    const std::string before = described(*tree.root());
    for (const char* const text :
         {"", " ", "text", "<a>", "<a/><b/>", "<a><b></a>", "<a>&unknown;</a>", "<!--c-->", "<p:a/>",
          "<?xml version=\"1.1\"?><a/>", "<?xml version=\"1.2\"?><a/>", "<!DOCTYPE a><a/>"}) {
        EXPECT_THROW(XMLConfig::detail::readElement(text, tree), ParseFailure) << text;
    }
    EXPECT_EQ(described(*tree.root()), before);
    const NewElement made = XMLConfig::detail::readElement("<a><b/></a>", tree);
    EXPECT_EQ(made.levels, 2);
    EXPECT_EQ(described(*made.element), described(*parsed("<a><b/></a>")->getDocumentElement()));
}

TEST(StoredElements, AreThoseOfTheText) {
    ConfigInfo document;
    for (const char* const text : fragmentTexts) expectStored(document, text);
    std::mt19937 random(20190311);
    for (int i = 0; i < 1000 && !testing::Test::HasFailure(); ++i) expectStored(document, randomElement(random, 0));
}

TEST(StoredElements, MayHaveAnyNameThatCanBeReadAgain) {
    const Document document = load("<ConfigInfo><S ID=\"1\"/></ConfigInfo>");
    const std::wstring text = XMLConfig::detail::fromUtf8("<a><\xF0\x90\x90\x80 \xF0\x90\x90\x81=\"1\"/></a>");
    document->setStringItemAsDOMElement(L"S", L"A", text, L"1");
    EXPECT_EQ(document->getStringItemAsDOMElement(L"S", L"A", L"", L"1"),
              XMLConfig::detail::fromUtf8("<a>\n  <\xF0\x90\x90\x80 \xF0\x90\x90\x81=\"1\"/>\n</a>"));
    EXPECT_EQ(savedText(*reloaded(*document)), savedText(*document));
}

TEST(StoredElements, AreRefusedOnlyAsOftenAsTheyAreMalformed) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A>1</A></S></ConfigInfo>");
    const auto store = [&](const wchar_t* text) { document->setStringItemAsDOMElement(L"S", L"A", text, L"1"); };
    for (int i = 0; i < 3; ++i) {
        const std::string before = savedText(*document);
        document->setDirty(false);
        for (const wchar_t* const text : {L"<a>", L"<!--c--><a/><b/>", L"<a><b>1</b>"}) {
            EXPECT_THROW(store(text), CorvaneException);
            EXPECT_FALSE(document->isDirty());
            EXPECT_EQ(savedText(*document), before);
        }
        store(i % 2 == 0 ? L"<!--c--><a><b>1</b></a>" : L"<a>2</a>");
        EXPECT_TRUE(document->isDirty());
        EXPECT_EQ(document->getStringItemAsDOMElement(L"S", L"A", L"", L"1"),
                  i % 2 == 0 ? L"<a>\n  <b>1</b>\n</a>" : L"<a>2</a>");
    }
}

}  // namespace storetests
