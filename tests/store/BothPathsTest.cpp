#include <cstdlib>
#include <functional>
#include <random>

#include "store/Comments.h"
#include "store/DocumentParser.h"
#include "store/DocumentWriter.h"
#include "store/NewElement.h"
#include "store/ParseFailure.h"
#include "tests/store/StoreSupport.h"
#include "tests/store/TreeSupport.h"
#include "tests/support/AsciiText.h"
#include "tests/support/CurrentFile.h"

// What the store makes by the links of the XML library's tree is held against what it makes by the public functions alone,
// of text that is right and of text that is not.

namespace storetests {

namespace {

using XMLConfig::detail::DocumentPointer;
using XMLConfig::detail::ParseFailure;

/// More of them for a long run: XMLCONFIG_RANDOM_DOCUMENTS=1000000.
int documentCount() {
    const char* const wanted = std::getenv("XMLCONFIG_RANDOM_DOCUMENTS");
    return wanted == nullptr ? 20000 : std::atoi(wanted);
}

class RandomText {
public:
    explicit RandomText(unsigned seed) : m_random(seed) {}

    std::string document() {
        std::string text;
        if (one(4)) text += one(5) ? "<?xml version=\"1.1\"?>" : "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        if (one(6)) text += "<!--c--><?p i?>\n";
        text += element(0);
        return one(6) ? text + "\n<!--d-->" : text;
    }

    /// One that is most often no XML any more.
    std::string spoiled() {
        std::string text = document();
        static const std::string bytes("\0\x01\n <>/?!-[]&;:='\"xq1#\x7f\x80\xc3\xbc\xef\xbf\xbe\xed\xa0\xf0\x90\x80\x80",
                                       36);
        for (unsigned count = 1 + below(3); count > 0; --count) {
            const std::size_t at = below(static_cast<unsigned>(text.size()));
            const char byte = bytes[below(static_cast<unsigned>(bytes.size()))];
            if (one(3)) text.erase(at, 1 + below(4));
            else if (one(2)) text.insert(at, 1, byte);
            else text[at] = byte;
            if (text.empty()) text = " ";
        }
        return text;
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
    bool one(unsigned of) { return below(of) == 0; }
    std::string name() { return (one(6) ? "p:" : "") + std::string(1 + below(3), static_cast<char>('a' + below(4))); }

    std::string attributes(int level) {
        std::string text = level == 0 ? " xmlns:p=\"urn:p\"" : "";
        if (one(3)) text += " ID=\"" + std::to_string(below(9)) + "\"";
        if (one(6)) text += " z=\"\" p:a=\"&lt;\xc3\xa4&#10;\" b='\"'";
        if (one(9)) text += " xmlns=\"urn:" + std::to_string(below(3)) + "\"";
        if (one(12)) text += " xmlns:q=\"urn:q\" q:x=\"1\" xml:space=\"preserve\"";
        return text;
    }

    std::string element(int level) {
        const std::string tag = name();
        const std::string start = "<" + tag + attributes(level);
        if (one(5)) return start + "/>";
        std::string text = start + ">";
        for (unsigned count = below(4); count > 0; --count) text += content(level);
        return text + "</" + tag + ">";
    }

    std::string content(int level) {
        static const char* const pieces[] = {"\n  ",    "text",  "&amp;", "\xe2\x82\xac", "<!--c-->", "<![CDATA[<d>]]>",
                                             "<?p i?>", "&#13;", "\t"};
        return one(2) && level < 4 ? element(level + 1) : pieces[below(std::size(pieces))];
    }

    std::mt19937 m_random;
};

std::string asDocument(const std::string& text) {
    try {
        const DocumentPointer document = parsed(text);
        std::string made = described(*document->getDocumentElement());
        XMLConfig::detail::writeDocument(*document, [&made](std::string_view piece) { made += piece; });
        return made;
    } catch (const ParseFailure& failure) {
        return asciiOf(failure.message());
    }
}

/// Parses into the tree of another document.
class Fragments {
public:
    Fragments() { m_tree.adopt(parsed("<r/>")); }
    std::string parse(const std::string& text) {
        try {
            const XMLConfig::detail::NewElement made = XMLConfig::detail::readElement(text, m_tree);
            return std::to_string(made.levels) + "," + std::to_string(made.namespaces) + described(*made.element) +
                   XMLConfig::detail::toUtf8(XMLConfig::detail::writeElement(*made.element));
        } catch (const ParseFailure& failure) {
            return asciiOf(failure.message());
        }
    }

private:
    XMLConfig::detail::Tree m_tree;
};

std::string outcome(const std::function<DocumentPointer()>& parse) {
    try {
        return described(*parse()->getDocumentElement());
    } catch (const ParseFailure& failure) {
        return asciiOf(failure.message());
    }
}

}  // namespace

TEST(BothPaths, MakeEqualTreesAndBytes) {
    RandomText random(20190311);
    Fragments byLinks;
    Fragments byFunctions;
    int refused = 0;
    for (int i = 0; i < documentCount() && !testing::Test::HasFailure(); ++i) {
        const std::string text = i % 2 == 0 ? random.document() : random.spoiled();
        SCOPED_TRACE(text);
        const std::string document = asDocument(text);
        const std::string fragment = byLinks.parse(text);
        refused += document.compare(0, 5, "line ") == 0 ? 1 : 0;
        const PublicFunctionsOnly without;
        EXPECT_EQ(asDocument(text), document);
        EXPECT_EQ(byFunctions.parse(text), fragment);
    }
    EXPECT_GT(refused, documentCount() / 4);
    EXPECT_LT(refused, documentCount() / 2);
}

// Those that were noted during the load against those that are met in the tree.
TEST(BothPaths, FindTheSameComments) {
    RandomText random(5);
    std::size_t count = 0;
    for (int i = 0; i < documentCount() / 10 && !testing::Test::HasFailure(); ++i) {
        const std::string text = random.document();
        SCOPED_TRACE(text);
        const Document document = load(text);
        const auto noted = XMLConfig::commentsOf(*document);
        const auto met = XMLConfig::commentsIn(XMLConfig::rootElement(*document));
        ASSERT_EQ(noted.size(), met.size());
        for (std::size_t k = 0; k < met.size(); ++k) {
            EXPECT_TRUE(noted[k].around == met[k].around && noted[k].next == met[k].next) << k;
            EXPECT_EQ(noted[k].text, met[k].text);
        }
        count += met.size();
    }
    EXPECT_GT(count, static_cast<std::size_t>(documentCount()) / 100);
}

// The parser that is kept from one load to the next against a new one, which stops after each piece to note its place.
TEST(BothPaths, ReadFilesAlikeOneAfterTheOther) {
    XMLConfig::detail::startXmlLibrary();
    const TemporaryFolder folder;
    RandomText random(11);
    int refused = 0;
    for (int i = 0; i < documentCount() / 10 && !testing::Test::HasFailure(); ++i) {
        const std::string text = i % 3 == 0 ? random.spoiled() : random.document();
        SCOPED_TRACE(text);
        const std::wstring path = folder.write(L"a.skorrax", text);
        const std::string read = outcome([&] { return XMLConfig::detail::parseFile(path).document; });
        EXPECT_EQ(outcome([&] { return XMLConfig::detail::parseFileWithPlaces(path).document; }), read);
        refused += read.compare(0, 5, "line ") == 0 ? 1 : 0;
    }
    EXPECT_GT(refused, documentCount() / 60);
}

TEST(BothPaths, AVersionDoesNotLastBeyondItsFile) {
    const std::string name = "<?\xf0\x90\x80\x80 x?>";
    const std::string old = "<ConfigInfo>" + name + "</ConfigInfo>";
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(load("<?xml version=\"1.1\"?>" + old)->getSectionCount(L"S"), 0);
        EXPECT_CONTAINS(messageOf([&] { load(old); }), L"The name of a processing instruction");
        EXPECT_EQ(load("<?xml version=\"1.1\"?><ConfigInfo><S>&#1;</S></ConfigInfo>")->getSectionCount(L"S"), 1);
        EXPECT_CONTAINS(messageOf([&] { load("<ConfigInfo><S>&#1;</S></ConfigInfo>"); }), L"line 1, column ");
    }
}

TEST(BothPaths, ChangeATreeAlike) {
    const auto edited = [] {
        const Document document = load(currentFile("<S ID=\"1\"><A>1</A></S><S ID=\"2\"/>"));
        document->setStringItem(L"S", L"A|B", L"value", L"1", L"", L"");
        document->setStringItemAsDOMElement(L"S", L"F", L"<f x=\"1\"><g/>text</f>", L"2");
        document->setStringItemAsDOMElement(L"S", L"F", L"<h/>", L"2");
        document->removeItem(L"S", L"A", L"1");
        document->setStringItem(L"T", L"C", L"new", L"3", L"U", L"4");
        document->renameSection(L"S", L"2", L"5");
        document->moveSection(1, L"S", L"1");
        document->removeSection(L"S", L"1");
        return savedText(*document);
    };
    const std::string byLinks = edited();
    const PublicFunctionsOnly without;
    EXPECT_EQ(edited(), byLinks);
}

}  // namespace storetests
