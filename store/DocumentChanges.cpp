#include <xercesc/util/XMLChar.hpp>

#include "platform/Text.h"
#include "store/Document.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

bool isText(const DOMNode* node) { return node != nullptr && node->getNodeType() == DOMNode::TEXT_NODE; }
bool isOneText(const DOMNode* first) { return isText(first) && first->getNextSibling() == nullptr; }

}  // namespace

xercesc::DOMText* Document::makeText(const std::wstring& text) {
    const std::u16string value = toUtf16(text);
    if (m_spareTexts.empty() && !m_spareItems.empty()) {
        DOMElement* const item = m_spareItems.back();
        m_spareItems.pop_back();
        release(item);
    }
    if (m_spareTexts.empty()) return m_document->createTextNode(xmlText(value));
    xercesc::DOMText* const spare = m_spareTexts.back();
    spare->setNodeValue(xmlText(value));
    m_spareTexts.pop_back();
    return spare;
}

void Document::release(DOMNode* node) {
    if (isText(node)) return m_spareTexts.push_back(static_cast<xercesc::DOMText*>(node));
    while (DOMNode* const child = node->getFirstChild()) release(node->removeChild(child));
    node->release();
}

void Document::removeAndRelease(DOMNode* node) { release(node->getParentNode()->removeChild(node)); }

void Document::removeChildren(DOMElement* element) {
    while (DOMNode* const child = element->getFirstChild()) release(element->removeChild(child));
}

void Document::removeLayoutBehind(DOMElement* element) {
    DOMNode* const next = element->getNextSibling();
    if (!isText(next)) return;
    if (view(next->getNodeValue()).find_first_not_of(u" \t\n\r\v\f") == std::u16string_view::npos) removeAndRelease(next);
}

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
    if (!text.empty()) element->appendChild(makeText(text));
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

ParsedDocument Document::parseElement(const std::string& text) {
    if (m_fragmentParser == nullptr) m_fragmentParser = std::make_unique<FragmentParser>();
    try {
        return m_fragmentParser->parse(text);
    } catch (...) {
        m_fragmentParser.reset();
        throw;
    }
}

void Document::setSectionText(DOMElement* section, const std::wstring& value) {
    setText(section, value, {section, &m_index.sectionOf(section)});
}

void Document::setText(DOMElement* item, const std::wstring& value, const Container& container) {
    DOMNode* const first = item->getFirstChild();
    if (isOneText(first) && !value.empty()) return first->setNodeValue(xmlText(toUtf16(value)));
    if (first != nullptr && !isOneText(first)) forgetItemsOf(container);
    removeChildren(item);
    if (!value.empty()) item->appendChild(makeText(value));
}

bool Document::setElement(DOMElement* item, const DOMElement& content, const Container& container) {
    DOMNode* const imported = m_document->importNode(&content, true);
    if (item->getFirstChild() == nullptr) {
        item->appendChild(imported);
        return true;
    }
    DOMNode* const before = item->cloneNode(true);
    if (item->getFirstElementChild() != nullptr) forgetItemsOf(container);
    removeChildren(item);
    item->appendChild(imported);
    const bool isDifferent = !compareCollapsedNodes(*before, *item);
    release(before);
    return isDifferent;
}

void Document::removeItem(Section& section, DOMElement* item) {
    DOMNode* const removed = section.element->removeChild(item);
    SectionIndex::itemRemoved(section, item);
    if (isOneText(item->getFirstChild())) return m_spareItems.push_back(item);
    release(removed);
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
    DOMNode* const text = element->getAttributeNode(xmlText(u"ID"))->getFirstChild();
    // Setting the attribute would leave one more text with the XML library.
    if (isOneText(text) && !newID.empty()) return text->setNodeValue(xmlText(toUtf16(newID)));
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
