#pragma once

#include <gtest/gtest.h>

#include <string>

#include "store/DocumentParser.h"
#include "store/TreeLinks.h"

/// What the tests of trees share.
namespace storetests {

/// While it lives, the store takes the XML library for one whose inside it does not know.
class PublicFunctionsOnly {
public:
    PublicFunctionsOnly() { XMLConfig::detail::examineLinks(*m_library, "class xercesc_9_9::DOMImplementationImpl"); }
    ~PublicFunctionsOnly() { XMLConfig::detail::examineLinks(*m_library); }
    PublicFunctionsOnly(const PublicFunctionsOnly&) = delete;
    PublicFunctionsOnly& operator=(const PublicFunctionsOnly&) = delete;

private:
    xercesc::DOMImplementation* m_library = XMLConfig::detail::startXmlLibrary();  // not owned
};

inline XMLConfig::detail::DocumentPointer parsed(const std::string& text) {
    XMLConfig::detail::startXmlLibrary();
    return XMLConfig::detail::parseElement(text).document;
}

/// Every way from the element to its children and back, as the XML library walks it.
inline std::string described(const xercesc::DOMNode& node) {
    std::string text = std::to_string(node.getNodeType());
    const auto name = XMLConfig::detail::view(node.getNodeName());
    text.append(name.begin(), name.end());
    const auto value = XMLConfig::detail::view(node.getNodeValue());
    text.append("=").append(value.begin(), value.end());
    const xercesc::DOMNamedNodeMap* const attributes = node.getAttributes();
    for (XMLSize_t i = 0; attributes != nullptr && i < attributes->getLength(); ++i)
        text += " [" + described(*attributes->item(i)) + "]";
    if (const XMLCh* const uri = node.getNamespaceURI())
        text += " in " + std::string(XMLConfig::detail::view(uri).begin(), XMLConfig::detail::view(uri).end());
    const xercesc::DOMNode* previous = nullptr;
    for (const xercesc::DOMNode* child = node.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
        EXPECT_EQ(child->getParentNode(), &node);
        EXPECT_EQ(child->getPreviousSibling(), previous);
        EXPECT_EQ(child->getOwnerDocument(), node.getOwnerDocument());
        text += " (" + described(*child) + ")";
        previous = child;
    }
    EXPECT_EQ(node.getLastChild(), previous);
    const auto* const listed = node.getChildNodes();
    XMLSize_t count = 0;
    for (const xercesc::DOMNode* child = node.getFirstChild(); child != nullptr; child = child->getNextSibling(), ++count)
        EXPECT_EQ(listed->item(count), child);
    EXPECT_EQ(listed->getLength(), count);
    return text;
}

}  // namespace storetests
