#include "store/Attributes.h"

#include "store/TreeLinks.h"

namespace XMLConfig::detail {

std::u16string_view valueOf(const xercesc::DOMNode& attribute) {
    const xercesc::DOMNode* const first = attribute.getFirstChild();
    if (first == nullptr) return {};
    const NodeLook look = lookAt(*first);
    const bool isOneText = look.type == xercesc::DOMNode::TEXT_NODE && look.next == nullptr;
    return isOneText ? look.text : view(attribute.getNodeValue());
}

const xercesc::DOMAttr* idAttributeOf(const xercesc::DOMElement& element) {
    return element.hasAttributes() ? element.getAttributeNode(xmlText(u"ID")) : nullptr;
}

std::u16string_view idTextOf(const xercesc::DOMElement& element) {
    const xercesc::DOMAttr* const attribute = idAttributeOf(element);
    return attribute == nullptr ? std::u16string_view() : valueOf(*attribute);
}

}  // namespace XMLConfig::detail
