#include <xercesc/util/XMLChar.hpp>

#include "platform/Text.h"
#include "store/Document.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

void removeAndRelease(DOMNode* node) { node->getParentNode()->removeChild(node)->release(); }

void removeChildren(DOMElement* element) {
    while (DOMNode* const child = element->getFirstChild()) removeAndRelease(child);
}

void removeLayoutBehind(DOMElement* element) {
    DOMNode* const next = element->getNextSibling();
    if (next == nullptr || next->getNodeType() != DOMNode::TEXT_NODE) return;
    if (view(next->getNodeValue()).find_first_not_of(u" \t\n\r\v\f") == std::u16string_view::npos) removeAndRelease(next);
}

}  // namespace

DOMElement* Document::makeElement(const DOMNode& parent, const std::wstring& name) {
    const std::u16string tag = toUtf16(name);
    const std::size_t colon = tag.find(u':');
    // What is not one declared prefix and one name could be written but never be read again.
    if (colon != std::u16string::npos && (!xercesc::XMLChar1_0::isValidQName(xmlText(tag), tag.size()) ||
                                          parent.lookupNamespaceURI(xmlText(tag.substr(0, colon))) == nullptr)) {
        throw xercesc::DOMException(xercesc::DOMException::NAMESPACE_ERR);
    }
    return m_document->createElement(xmlText(tag));
}

DOMElement* Document::appendElement(DOMNode* parent, const std::wstring& name, const std::wstring& text) {
    DOMElement* const element = makeElement(*parent, name);
    if (!text.empty()) element->appendChild(m_document->createTextNode(xmlText(toUtf16(text))));
    parent->appendChild(element);
    return element;
}

Container Document::makeContainer(const Address& address) {
    const auto make = [this](DOMElement* parent, const std::wstring& name, const std::wstring& id) {
        DOMElement* const element = appendElement(parent, name, {});
        if (!id.empty()) element->setAttribute(xmlText(u"ID"), xmlText(toUtf16(id)));
        return element;
    };
    Section* section = getSection(address.sectionName, address.sectionID);
    if (section == nullptr) {
        m_index.appended(make(root(), address.sectionName, address.sectionID));
        section = getSection(address.sectionName, address.sectionID);
    }
    if (address.subSectionName.empty()) return {section->element, section};
    DOMElement* const subSection = make(section->element, address.subSectionName, address.subSectionID);
    SectionIndex::itemAppended(*section, subSection);
    removeLayoutBehind(section->element);
    return {subSection, nullptr};
}

DOMElement* Document::makeItem(const Container& container, const std::wstring& key) {
    DOMElement* element = container.element;
    for (std::size_t begin = 0;;) {
        const std::size_t end = key.find(L'|', begin);
        const std::wstring part = key.substr(begin, end == std::wstring::npos ? end : end - begin);
        DOMElement* const child = childNamed(element, toUtf16(part));
        const bool isInSection = container.section != nullptr && element == container.element;
        element = child != nullptr ? child : appendElement(element, part, {});
        if (child == nullptr && isInSection) SectionIndex::itemAppended(*container.section, element);
        if (end == std::wstring::npos) return element;
        begin = end + 1;
    }
}

void Document::setSectionText(DOMElement* section, const std::wstring& value) {
    setText(section, value, {section, &m_index.sectionOf(section)});
}

void Document::setText(DOMElement* item, const std::wstring& value, const Container& container) {
    DOMNode* const first = item->getFirstChild();
    const std::u16string text = toUtf16(value);
    const bool isOneText =
        first != nullptr && first->getNodeType() == DOMNode::TEXT_NODE && first->getNextSibling() == nullptr;
    if (isOneText && !text.empty()) return first->setNodeValue(xmlText(text));
    if (first != nullptr && !isOneText) forgetItemsOf(container);
    removeChildren(item);
    if (!text.empty()) item->appendChild(m_document->createTextNode(xmlText(text)));
}

bool Document::setElement(DOMElement* item, const DOMElement& content, const Container& container) {
    DOMNode* const before = item->cloneNode(true);
    DOMNode* const imported = m_document->importNode(&content, true);
    forgetItemsOf(container);
    removeChildren(item);
    item->appendChild(imported);
    const bool isDifferent = !compareCollapsedNodes(*before, *item);
    before->release();
    return isDifferent;
}

void Document::removeItem(Section& section, DOMElement* item) {
    DOMNode* const removed = section.element->removeChild(item);
    section.forgetItems();
    removed->release();
}

void Document::removeSection(Section& section) {
    DOMElement* const element = section.element;
    m_index.removing(element);
    removeLayoutBehind(element);
    removeAndRelease(element);
}

void Document::removeSubSection(DOMElement* subSection) {
    m_index.sectionOf(static_cast<DOMElement*>(subSection->getParentNode())).forgetItems();
    removeLayoutBehind(subSection);
    removeAndRelease(subSection);
}

void Document::renameSection(Section& section, const std::wstring& newID) {
    DOMElement* const element = section.element;
    m_index.renamed(element, newID);
    element->setAttribute(xmlText(u"ID"), xmlText(toUtf16(newID)));
}

void Document::swapSections(DOMElement* earlier, DOMElement* later) {
    m_index.swapped(earlier, later);
    root()->insertBefore(later, earlier);
}

void Document::insertHeaderBefore(DOMElement* next, const std::wstring& name, const std::wstring& text) {
    DOMElement* const element = appendElement(root(), name, text);
    root()->insertBefore(element, next);
    m_index.reset(root());
}

void Document::forgetItemsOf(const Container& container) {
    if (container.section != nullptr) return container.section->forgetItems();
    m_index.sectionOf(static_cast<DOMElement*>(container.element->getParentNode())).forgetItems();
}

}  // namespace XMLConfig::detail
