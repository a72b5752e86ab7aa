#include "store/TreeLinks.h"

#include <random>

#include "tests/store/TreeSupport.h"

// What the store's own links make of a tree is held against what the XML library's functions make of its twin.

namespace storetests {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;
using XMLConfig::detail::DocumentPointer;

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

TEST(TreeLinks, ReplaceTheValueOfAnAttribute) {
    const DocumentPointer document = parsed(mixed);
    DOMElement* const root = document->getDocumentElement();
    xercesc::DOMAttr* const attribute = root->getLastElementChild()->getAttributeNode(XMLConfig::detail::xmlText(u"x"));
    const std::string before = described(*root);
    DOMNode* const old = attribute->getFirstChild();
    XMLConfig::detail::unlink(*attribute, *old);
    expectAlone(*old);
    EXPECT_EQ(attribute->getFirstChild(), nullptr);
    XMLConfig::detail::append(*attribute, *document->createTextNode(XMLConfig::detail::xmlText(u"2")));
    EXPECT_EQ(XMLConfig::detail::view(attribute->getValue()), u"2");
    // The library's functions go on from there.
    attribute->removeChild(attribute->getLastChild())->release();
    attribute->appendChild(old);
    EXPECT_EQ(described(*root), before);
}

TEST(TreeLinks, TellOfEachNodeWhatTheXmlLibraryTells) {
    const DocumentPointer document = parsed(mixed);
    const auto looks = [&document] {
        std::vector<XMLConfig::detail::NodeLook> all;
        for (const DOMNode* node = document->getDocumentElement()->getFirstChild(); node != nullptr; node = all.back().next)
            all.push_back(XMLConfig::detail::lookAt(*node));
        return all;
    };
    const auto byLinks = looks();
    const PublicFunctionsOnly without;
    const auto byFunctions = looks();
    ASSERT_EQ(byLinks.size(), 6U);
    ASSERT_EQ(byFunctions.size(), byLinks.size());
    for (std::size_t i = 0; i < byLinks.size(); ++i) {
        EXPECT_EQ(byLinks[i].type, byFunctions[i].type) << i;
        EXPECT_EQ(byLinks[i].next, byFunctions[i].next) << i;
        EXPECT_EQ(byLinks[i].text, byFunctions[i].text) << i;
    }
    EXPECT_EQ(byLinks[0].text, u"c");
    EXPECT_EQ(byLinks[1].text, u"");
    EXPECT_EQ(byLinks[2].text, u"text");
    EXPECT_EQ(byLinks[3].text, u"");
    EXPECT_EQ(byLinks[4].text, u"d");
}

TEST(TreeLinks, AreKnownOfOneVersionOnly) {
    using XMLConfig::detail::isKnownVersion;
    EXPECT_TRUE(isKnownVersion("N11xercesc_3_221DOMImplementationImplE"));
    EXPECT_TRUE(isKnownVersion("class xercesc_3_2::DOMImplementationImpl"));
    for (const char* const other : {"", "DOMImplementationImpl", "class xercesc_3_1::DOMImplementationImpl",
                                    "class xercesc_3_3::DOMImplementationImpl", "class xercesc_4_0::DOMImplementationImpl",
                                    "class xercesc_3_2_1::DOMImplementationImpl", "class xercesc::DOMImplementationImpl"})
        EXPECT_FALSE(isKnownVersion(other)) << other;
}

TEST(TreeLinks, AreNotUsedWithAnotherVersion) {
    EXPECT_TRUE(XMLConfig::detail::startXmlLibrary() != nullptr && XMLConfig::detail::linksAreKnown());
    {
        const PublicFunctionsOnly others;
        EXPECT_FALSE(XMLConfig::detail::linksAreKnown());
    }
    EXPECT_TRUE(XMLConfig::detail::linksAreKnown());
}

TEST(TreeLinks, KeepAllNamesWhenTheyAreSpread) {
    const DocumentPointer document = parsed("<r/>");
    const auto made = [&](int number) {
        const std::string name = "name" + std::to_string(number);
        return document->createElement(XMLConfig::detail::xmlText(std::u16string(name.begin(), name.end())));
    };
    std::vector<const XMLCh*> names;
    for (int i = 0; i < 1000; ++i) names.push_back(made(i)->getNodeName());
    XMLConfig::detail::NameCounter().count(*document, 1024);  // enough for it to spread them
    for (int i = 0; i < 1000; ++i) EXPECT_EQ(made(i)->getNodeName(), names[static_cast<std::size_t>(i)]);
    EXPECT_NE(made(1000)->getNodeName(), nullptr);
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

}  // namespace storetests
