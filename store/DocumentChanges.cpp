#include <xercesc/util/XMLChar.hpp>

#include "platform/Text.h"
#include "store/Document.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

bool isText(const DOMNode* node) { return node != nullptr && node->getNodeType() == DOMNode::TEXT_NODE; }

}  // namespace

xercesc::DOMText* Document::makeText(const std::u16string& text) {
    if (m_spareTexts.empty() && !m_spareItems.empty()) {
        DOMElement* const item = m_spareItems.back();
        m_spareItems.pop_back();
        release(item);
    }
    if (m_spareTexts.empty()) return m_document->createTextNode(xmlText(text));
    xercesc::DOMText* const spare = m_spareTexts.back();
    spare->setNodeValue(xmlText(text));
    m_spareTexts.pop_back();
    return spare;
}

void Document::release(DOMNode* node) {
    if (isText(node)) return m_spareTexts.push_back(static_cast<xercesc::DOMText*>(node));
    if (node->getNodeType() == DOMNode::ELEMENT_NODE) removeChildren(static_cast<DOMElement*>(node));
    node->release();
}

void Document::removeAndRelease(DOMElement* parent, DOMNode* child) {
    unlink(*parent, *child);
    release(child);
}

void Document::removeChildren(DOMElement* element) {
    while (DOMNode* const child = element->getFirstChild()) removeAndRelease(element, child);
}

void Document::removeLayoutBehind(DOMElement* parent, DOMElement* child) {
    DOMNode* const next = child->getNextSibling();
    if (!isText(next)) return;
    const bool isLayout = view(next->getNodeValue()).find_first_not_of(u" \t\n\r\v\f") == std::u16string_view::npos;
    if (isLayout) removeAndRelease(parent, next);
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

DOMElement* Document::appendElement(DOMElement* parent, const std::wstring& name, const std::wstring& text) {
    DOMElement* const element = makeElement(*parent, name);
    if (!text.empty()) append(*element, *makeText(toUtf16(text)));
    append(*parent, *element);
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
    removeLayoutBehind(root(), section->element);
    return {subSection, nullptr};
}

Item Document::makeItem(const Container& container, const std::wstring& key) {
    DOMElement* element = container.element;
    for (std::size_t begin = 0;;) {
        const std::size_t end = key.find(L'|', begin);
        const std::wstring part = key.substr(begin, end == std::wstring::npos ? end : end - begin);
        const bool isInSection = container.section != nullptr && element == container.element;
        DOMElement* const child =
            isInSection ? knownItem(*container.section, part).element : childNamed(element, toUtf16(part));
        if (child == nullptr && !isInSection && isOneText(element->getFirstChild()))
            sectionOf(container).items.forgetTexts();
        element = child != nullptr ? child : appendElement(element, part, {});
        if (child == nullptr && isInSection) SectionIndex::itemAppended(*container.section, element);
        if (end == std::wstring::npos) return {element, nullptr, nullptr};
        begin = end + 1;
    }
}

void ReleaseElement::operator()(DOMElement* element) const {
    try {
        document->release(element);
    } catch (...) {  // without memory what is left of it goes with the document
    }
}

NewElement Document::parseElement(const std::string& text) {
    if (m_fragmentParser == nullptr) {
        // What is refused half way leaves memory with the tree, so that text is suspect until one was good.
        [[maybe_unused]] const DocumentPointer tried = parseFragment(text);
        m_fragmentParser = std::make_unique<FragmentParser>();
    }
    if (m_parsed == nullptr) m_parsed = m_document->createElement(xmlText(u"Parsed"));
    try {
        const int depth = m_fragmentParser->parse(text, *m_parsed);
        DOMElement* const element = m_parsed->getFirstElementChild();
        unlink(*m_parsed, *element);
        NewElement parsed{{element, {this}}, depth};
        removeChildren(m_parsed);
        return parsed;
    } catch (...) {
        m_fragmentParser.reset();
        removeChildren(m_parsed);
        throw;
    }
}

void Document::setSectionText(DOMElement* section, const std::wstring& value) {
    setText({section, nullptr, nullptr}, value, {section, &m_index.sectionOf(section)});
}

void Document::setText(const Item& item, const std::wstring& value, const Container& container) {
    forgetText(item, container);
    DOMNode* const first = item.element->getFirstChild();
    if (isOneText(first) && !value.empty()) return first->setNodeValue(xmlText(toUtf16(value)));
    if (first != nullptr && !isOneText(first)) sectionOf(container).items.clear();
    removeChildren(item.element);
    if (!value.empty()) append(*item.element, *makeText(toUtf16(value)));
}

bool Document::setElement(const Item& item, NewElement content, const Container& container) {
    if (item.element->getFirstChild() == nullptr) {
        append(*item.element, *content.element.release());
        return true;
    }
    forgetText(item, container);
    DOMNode* const before = item.element->cloneNode(true);
    if (item.element->getFirstElementChild() != nullptr) sectionOf(container).items.clear();
    removeChildren(item.element);
    append(*item.element, *content.element.release());
    const bool isDifferent = !compareCollapsedNodes(*before, *item.element);
    release(before);
    return isDifferent;
}

void Document::removeItem(Section& section, DOMElement* item) {
    unlink(*section.element, *item);
    SectionIndex::itemRemoved(section, item);
    if (isOneText(item->getFirstChild())) return m_spareItems.push_back(item);
    release(item);
}

void Document::removeSection(Section& section) {
    DOMElement* const element = section.element;
    m_index.removing(section);
    removeLayoutBehind(root(), element);
    removeAndRelease(root(), element);
}

void Document::removeSubSection(DOMElement* subSection) {
    auto* const section = static_cast<DOMElement*>(subSection->getParentNode());
    m_index.sectionOf(section).items.clear();
    removeLayoutBehind(section, subSection);
    removeAndRelease(section, subSection);
}

void Document::renameSection(Section& section, const std::wstring& newID) {
    m_index.renamed(section, newID);
    DOMElement* const element = section.element;
    DOMNode* const text = element->getAttributeNode(xmlText(u"ID"))->getFirstChild();
    // Setting the attribute would leave one more text with the XML library.
    if (isOneText(text) && !newID.empty()) return text->setNodeValue(xmlText(toUtf16(newID)));
    element->setAttribute(xmlText(u"ID"), xmlText(toUtf16(newID)));
}

void Document::swapSections(Section& earlier, Section& later) {
    m_index.swapped(earlier, later);
    root()->insertBefore(later.element, earlier.element);
}

void Document::insertHeaderBefore(DOMElement* next, const std::wstring& name, const std::wstring& text) {
    DOMElement* const element = appendElement(root(), name, text);
    root()->insertBefore(element, next);
    m_index.reset(root());
}

Section& Document::sectionOf(const Container& container) {
    if (container.section != nullptr) return *container.section;
    return m_index.sectionOf(static_cast<DOMElement*>(container.element->getParentNode()));
}

// What is in a subsection may be known by a longer key of the section too. What was made just now is not known yet.
void Document::forgetText(const Item& item, const Container& container) {
    if (item.known != nullptr) item.section->items.forgetText(*item.known);
    else if (container.section == nullptr) sectionOf(container).items.forgetTexts();
}

}  // namespace XMLConfig::detail
