#include "store/TreeLinks.h"

#include <random>

#include "store/DocumentParser.h"
#include "tests/store/StoreSupport.h"

// What the store's own links make of a tree is held against what the XML library's functions make of its twin.

namespace storetests {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;
using XMLConfig::detail::DocumentPointer;

DocumentPointer parsed(const std::string& text) {
    XMLConfig::detail::startXmlLibrary();
    return XMLConfig::detail::parseFragment(text).document;
}

// Every way from the element to its children and back, as the XML library walks it.
std::string described(const DOMNode& node) {
    std::string text = std::to_string(node.getNodeType());
    const auto name = XMLConfig::detail::view(node.getNodeName());
    text.append(name.begin(), name.end());
    const auto value = XMLConfig::detail::view(node.getNodeValue());
    text.append("=").append(value.begin(), value.end());
    const DOMNode* previous = nullptr;
    for (const DOMNode* child = node.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
        EXPECT_EQ(child->getParentNode(), &node);
        EXPECT_EQ(child->getPreviousSibling(), previous);
        EXPECT_EQ(child->getOwnerDocument(), node.getOwnerDocument());
        text += " (" + described(*child) + ")";
        previous = child;
    }
    EXPECT_EQ(node.getLastChild(), previous);
    const auto* const listed = node.getChildNodes();
    XMLSize_t count = 0;
    for (const DOMNode* child = node.getFirstChild(); child != nullptr; child = child->getNextSibling(), ++count)
        EXPECT_EQ(listed->item(count), child);
    EXPECT_EQ(listed->getLength(), count);
    return text;
}

void expectAlone(const DOMNode& node) {
    EXPECT_EQ(node.getParentNode(), nullptr);
    EXPECT_EQ(node.getPreviousSibling(), nullptr);
    EXPECT_EQ(node.getNextSibling(), nullptr);
}

const char* const mixed = "<r><!--c--><a>1</a>text<?p i?><![CDATA[d]]><b x=\"1\"><c/></b></r>";

DOMNode* childAt(DOMNode* parent, std::size_t number) {
    DOMNode* child = parent->getFirstChild();
    while (child != nullptr && number-- > 0) child = child->getNextSibling();
    return child;
}

}  // namespace

TEST(TreeLinks, MakeTheTreesThatTheXmlLibraryMakes) {
    const DocumentPointer own = parsed(mixed);
    const DocumentPointer twin = parsed(mixed);
    DOMElement* const ownRoot = own->getDocumentElement();
    DOMElement* const twinRoot = twin->getDocumentElement();
    const auto* const anyName = XMLConfig::detail::xmlText(u"*");
    const xercesc::DOMNodeList* const ownElements = own->getElementsByTagName(anyName);
    const xercesc::DOMNodeList* const twinElements = twin->getElementsByTagName(anyName);
    std::mt19937 random(20190311);
    int emptied = 0;
    for (int step = 0; step < 2000 && !testing::Test::HasFailure(); ++step) {
        const std::size_t count = twinRoot->getChildNodes()->getLength();
        if (random() % 100 < (step % 100 < 50 ? 30U : 80U) && count > 0) {
            const std::size_t at = random() % count;
            DOMNode* const ownChild = childAt(ownRoot, at);
            XMLConfig::detail::unlink(*ownRoot, *ownChild);
            expectAlone(*ownChild);
            DOMNode* const twinChild = twinRoot->removeChild(childAt(twinRoot, at));
            if (random() % 4 == 0) {
                XMLConfig::detail::append(*ownRoot, *ownChild);
                twinRoot->appendChild(twinChild);
            }
            emptied += count == 1 ? 1 : 0;
        } else if (random() % 2 == 0) {
            XMLConfig::detail::append(*ownRoot, *own->createTextNode(XMLConfig::detail::xmlText(u"t")));
            twinRoot->appendChild(twin->createTextNode(XMLConfig::detail::xmlText(u"t")));
        } else {
            const std::u16string name(1, static_cast<char16_t>(u'a' + random() % 26));
            XMLConfig::detail::append(*ownRoot, *own->createElement(XMLConfig::detail::xmlText(name)));
            twinRoot->appendChild(twin->createElement(XMLConfig::detail::xmlText(name)));
        }
        EXPECT_EQ(described(*ownRoot), described(*twinRoot)) << "step " << step;
        EXPECT_EQ(ownElements->getLength(), twinElements->getLength()) << "step " << step;
    }
    EXPECT_GT(emptied, 0);
    // The library's functions go on from there.
    ownRoot->insertBefore(own->createElement(XMLConfig::detail::xmlText(u"first")), ownRoot->getFirstChild());
    twinRoot->insertBefore(twin->createElement(XMLConfig::detail::xmlText(u"first")), twinRoot->getFirstChild());
    while (DOMNode* const last = ownRoot->getLastChild()) {
        EXPECT_EQ(described(*ownRoot), described(*twinRoot));
        ownRoot->removeChild(last)->release();
        twinRoot->removeChild(twinRoot->getLastChild())->release();
    }
    EXPECT_EQ(described(*ownRoot), described(*twinRoot));
}

TEST(TreeLinks, RefuseWhatIsNoChild) {
    const DocumentPointer document = parsed(mixed);
    DOMElement* const root = document->getDocumentElement();
    DOMElement* const inner = root->getLastElementChild()->getFirstElementChild();
    const std::string before = described(*root);
    DOMElement* const alone = document->createElement(XMLConfig::detail::xmlText(u"x"));
    for (DOMNode* const node : {inner, alone}) {
        try {
            XMLConfig::detail::unlink(*root, *node);
            ADD_FAILURE() << "not refused";
        } catch (const xercesc::DOMException& exception) {
            EXPECT_EQ(exception.code, xercesc::DOMException::NOT_FOUND_ERR);
        }
    }
    EXPECT_EQ(described(*root), before);
}

TEST(TreeLinks, CopyAnElementWithAllThatIsInIt) {
    const DocumentPointer from = parsed(mixed);
    const DocumentPointer to = parsed("<other/>");
    DOMElement* const copy = XMLConfig::detail::copyInto(*to, *from->getDocumentElement());
    expectAlone(*copy);
    EXPECT_EQ(copy->getOwnerDocument(), to.get());
    EXPECT_TRUE(copy->isEqualNode(from->getDocumentElement()));
    EXPECT_EQ(described(*copy), described(*from->getDocumentElement()));
    XMLConfig::detail::append(*to->getDocumentElement(), *copy);
    EXPECT_EQ(copy->getParentNode(), to->getDocumentElement());
}

TEST(TreeLinks, CopyNamespaces) {
    const DocumentPointer from = parsed("<p:a xmlns:p=\"urn:p\" p:x=\"1\"><p:b/><c xmlns=\"urn:c\"/></p:a>");
    const DocumentPointer to = parsed("<other/>");
    DOMElement* const copy = XMLConfig::detail::copyInto(*to, *from->getDocumentElement());
    EXPECT_TRUE(copy->isEqualNode(from->getDocumentElement()));
}

}  // namespace storetests
