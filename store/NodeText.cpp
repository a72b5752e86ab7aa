#include "store/NodeText.h"

#include "platform/Text.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

using xercesc::DOMElement;
using xercesc::DOMNode;

namespace {

void gatherText(const DOMElement& element, std::u16string& text) {
    for (const DOMNode* child = element.getFirstChild(); child != nullptr;) {
        const NodeLook look = lookAt(*child);
        if (look.type == DOMNode::ELEMENT_NODE) gatherText(static_cast<const DOMElement&>(*child), text);
        else if (look.type != DOMNode::COMMENT_NODE) text += look.text;
        child = look.next;
    }
}

}  // namespace

std::optional<std::u16string_view> onlyText(const DOMNode& parent) {
    const DOMNode* const first = parent.getFirstChild();
    if (first == nullptr) return std::nullopt;
    const NodeLook look = lookAt(*first);
    if (look.type != DOMNode::TEXT_NODE || look.next != nullptr) return std::nullopt;
    return look.text;
}

std::u16string_view textOf(const DOMElement& element, std::u16string& buffer) {
    if (const auto only = onlyText(element)) return *only;
    buffer.clear();
    gatherText(element, buffer);
    return buffer;
}

bool hasText(const DOMElement& element, const std::wstring& text) {
    std::u16string buffer;
    return equal(textOf(element, buffer), text);
}

std::wstring wideTextOf(const DOMElement& element) {
    std::u16string buffer;
    return fromUtf16(textOf(element, buffer));
}

std::u16string_view valueOf(const DOMNode& attribute) {
    const auto only = onlyText(attribute);
    return only ? *only : view(attribute.getNodeValue());
}

const xercesc::DOMAttr* idAttributeOf(const DOMElement& element) {
    return element.hasAttributes() ? element.getAttributeNode(xmlText(u"ID")) : nullptr;
}

std::u16string_view idTextOf(const DOMElement& element) {
    const xercesc::DOMAttr* const attribute = idAttributeOf(element);
    return attribute == nullptr ? std::u16string_view() : valueOf(*attribute);
}

bool haveEqualAttributes(const DOMElement& one, const DOMElement& other) {
    if (!one.hasAttributes()) return !other.hasAttributes();
    const xercesc::DOMNamedNodeMap& ones = *one.getAttributes();
    if (ones.getLength() != other.getAttributes()->getLength()) return false;
    for (XMLSize_t i = 0; i < ones.getLength(); ++i) {
        const DOMNode& attribute = *ones.item(i);
        const xercesc::DOMAttr* const found = other.getAttributeNode(attribute.getNodeName());
        if (found == nullptr || valueOf(*found) != valueOf(attribute)) return false;
    }
    return true;
}

}  // namespace XMLConfig::detail
