#include "store/Tree.h"

#include <algorithm>
#include <utility>
#include <xercesc/util/XMLChar.hpp>

#include "platform/Text.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

// What the XML library takes for a node, about; measured with version 3.2 on 64 bits.
constexpr std::size_t nodeWeight = 240;
constexpr std::size_t attributeWeight = 320;
constexpr std::size_t leastWaste = 1024 * 1024;  // below this a copy is not worth its while

std::size_t weightOf(const DOMNode& node) {
    const NodeLook look = lookAt(node);
    if (look.type != DOMNode::ELEMENT_NODE) return nodeWeight + look.text.size() * sizeof(char16_t);
    const auto& element = static_cast<const DOMElement&>(node);
    std::size_t weight = nodeWeight;
    if (element.hasAttributes()) weight += element.getAttributes()->getLength() * attributeWeight;
    for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling())
        weight += weightOf(*child);
    return weight;
}

/// Copies a node with all that it holds; the copy stands nowhere yet.
DOMNode& copyOf(const DOMNode& node, xercesc::DOMDocument& document, NameCounter& names) {
    if (node.getNodeType() != DOMNode::ELEMENT_NODE) return *document.importNode(&node, false);
    const auto& element = static_cast<const DOMElement&>(node);
    names.count(document, 1 + element.getAttributes()->getLength());
    DOMElement& copy = copyAlone(element, document);
    for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling())
        append(copy, copyOf(*child, document, names));
    return copy;
}

DocumentPointer copyOf(const xercesc::DOMDocument& document) {
    DocumentPointer copy(startXmlLibrary()->createDocument());
    NameCounter names;
    copy->setXmlVersion(document.getXmlVersion());
    for (const DOMNode* node = document.getFirstChild(); node != nullptr; node = node->getNextSibling())
        copy->appendChild(&copyOf(*node, *copy, names));
    return copy;
}

}  // namespace

void Discard::operator()(DOMElement* element) const { tree->discard(*element); }

void Tree::adopt(DocumentPointer document, const std::size_t names) noexcept {
    m_document = std::move(document);
    m_names = {};
    m_waste = 0;
    // Most elements hold a text, and a text of indentation stands before each. Their weight is reckoned because a walk
    // through all nodes, which lie in much memory, takes long.
    m_allowedWaste = std::max(leastWaste, names * 3 * nodeWeight);
}

LooseElement Tree::makeElement(const DOMElement& place, const std::wstring_view name) {
    const std::u16string tag = toUtf16(name);
    const std::size_t colon = tag.find(u':');
    // What is not one declared prefix and one name could be written but never be read again.
    if (colon != std::u16string::npos && (!xercesc::XMLChar1_0::isValidQName(xmlText(tag), tag.size()) ||
                                          place.lookupNamespaceURI(xmlText(tag.substr(0, colon))) == nullptr)) {
        throw xercesc::DOMException(xercesc::DOMException::NAMESPACE_ERR);
    }
    return makeElement(tag.c_str());
}

LooseElement Tree::makeElement(const char16_t* name) {
    m_names.count(*m_document, 1);
    return {m_document->createElement(xmlText(name)), {this}};
}

LooseElement Tree::copy(const DOMElement& element) {
    return {static_cast<DOMElement*>(&copyOf(element, *m_document, m_names)), {this}};
}

xercesc::DOMText* Tree::makeText(const std::wstring& text) { return m_document->createTextNode(xmlText(toUtf16(text))); }

xercesc::DOMComment* Tree::makeComment(const std::u16string& text) { return m_document->createComment(xmlText(text)); }

void Tree::addAttribute(DOMElement& element, const char16_t* name, const char16_t* value) {
    m_names.count(*m_document, 1);
    if (!linksAreKnown()) return element.setAttribute(xmlText(name), xmlText(value));
    xercesc::DOMAttr& attribute = *m_document->createAttribute(xmlText(name));
    detail::addAttribute(element, attribute, *m_document->createTextNode(xmlText(value)));
}

void Tree::setText(xercesc::DOMText& text, const std::wstring& value) {
    const std::u16string units = toUtf16(value);
    // Setting a longer value drops the old one before there is room for it; appending makes the room and drops nothing.
    if (units.size() > view(text.getData()).size()) text.appendData(xmlText(units));
    text.setData(xmlText(units));
}

void Tree::remove(DOMNode& parent, DOMNode& child) noexcept {
    unlink(parent, child);
    discard(child);
}

void Tree::discard(const DOMNode& node) noexcept { m_waste += weightOf(node); }

bool Tree::shedWaste() noexcept {
    if (m_waste <= m_allowedWaste) return false;
    m_allowedWaste = std::max(leastWaste, weightOf(*root()));
    if (m_waste <= m_allowedWaste) return false;
    try {
        adopt(copyOf(*m_document));
        return true;
    } catch (...) {
        m_allowedWaste += m_waste;
        return false;
    }
}

}  // namespace XMLConfig::detail
