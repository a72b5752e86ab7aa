#include "store/ElementView.h"

#include <cstring>

#include "platform/Text.h"
#include "store/Address.h"
#include "store/Document.h"
#include "store/ElementAccess.h"
#include "store/NodeText.h"
#include "store/TreeLinks.h"

namespace XMLConfig {

namespace {

const xercesc::DOMElement* elementOf(const ElementView& view) { return ElementAccess::element(view); }

bool areTextsEqual(const xercesc::DOMElement& one, const xercesc::DOMElement& other) {
    std::u16string oneBuffer;
    std::u16string otherBuffer;
    const std::u16string_view text = detail::textOf(one, oneBuffer);
    const std::u16string_view otherText = detail::textOf(other, otherBuffer);
    if (text.size() != otherText.size()) return false;
    return text.empty() || std::memcmp(text.data(), otherText.data(), text.size() * sizeof(char16_t)) == 0;
}

bool areContentsEqual(const xercesc::DOMElement& one, const xercesc::DOMElement& other) {
    const xercesc::DOMElement* a = detail::firstElementIn(one);
    const xercesc::DOMElement* b = detail::firstElementIn(other);
    if (a == nullptr && b == nullptr) return areTextsEqual(one, other);
    for (; a != nullptr && b != nullptr; a = detail::elementAfter(*a), b = detail::elementAfter(*b)) {
        if (detail::view(a->getNodeName()) != detail::view(b->getNodeName())) return false;
        if (!detail::haveEqualAttributes(*a, *b) || !areContentsEqual(*a, *b)) return false;
    }
    return a == b;
}

}  // namespace

std::wstring ElementView::name() const {
    return m_element == nullptr ? std::wstring() : detail::fromUtf16(detail::view(elementOf(*this)->getNodeName()));
}

bool ElementView::isNamed(const std::wstring& tag) const {
    return m_element != nullptr && detail::equal(detail::view(elementOf(*this)->getNodeName()), tag);
}

bool ElementView::isNamedLike(const ElementView& other) const {
    if (m_element == nullptr || other.m_element == nullptr) return false;
    const XMLCh* const name = elementOf(*this)->getNodeName();
    const XMLCh* const otherName = elementOf(other)->getNodeName();
    return name == otherName || detail::view(name) == detail::view(otherName);  // a document keeps each name once
}

std::wstring ElementView::id() const {
    return m_element == nullptr ? std::wstring() : detail::fromUtf16(detail::idTextOf(*elementOf(*this)));
}

std::optional<std::wstring> ElementView::attribute(const std::wstring& attributeName) const {
    if (m_element == nullptr || !elementOf(*this)->hasAttributes()) return std::nullopt;
    const std::u16string name = detail::toUtf16(attributeName);
    const xercesc::DOMAttr* const found = elementOf(*this)->getAttributeNode(detail::xmlText(name));
    return found == nullptr ? std::nullopt : std::optional(detail::fromUtf16(detail::view(found->getValue())));
}

std::vector<std::pair<std::wstring, std::wstring>> ElementView::attributes() const {
    std::vector<std::pair<std::wstring, std::wstring>> attributes;
    const xercesc::DOMNamedNodeMap* const nodes = m_element == nullptr ? nullptr : elementOf(*this)->getAttributes();
    for (XMLSize_t i = 0; nodes != nullptr && i < nodes->getLength(); ++i) {
        const xercesc::DOMNode* const node = nodes->item(i);
        attributes.emplace_back(detail::fromUtf16(detail::view(node->getNodeName())),
                                detail::fromUtf16(detail::view(node->getNodeValue())));
    }
    return attributes;
}

std::wstring ElementView::text() const {
    return m_element == nullptr ? std::wstring() : detail::wideTextOf(*elementOf(*this));
}

ElementView ElementView::firstChild() const {
    return m_element == nullptr ? ElementView() : ElementAccess::view(detail::firstElementIn(*elementOf(*this)));
}

ElementView ElementView::child(const std::wstring& tag) const {
    for (const ElementView& element : children())
        if (element.isNamed(tag)) return element;
    return {};
}

ElementView ElementView::next() const {
    return m_element == nullptr ? ElementView() : ElementAccess::view(detail::elementAfter(*elementOf(*this)));
}

ElementView ElementView::parent() const {
    const xercesc::DOMNode* const parent = m_element == nullptr ? nullptr : detail::parentOf(*elementOf(*this));
    const bool isElement = parent != nullptr && parent->getNodeType() == xercesc::DOMNode::ELEMENT_NODE;
    return isElement ? ElementAccess::view(static_cast<const xercesc::DOMElement*>(parent)) : ElementView();
}

bool haveEqualContents(const ElementView& one, const ElementView& other) {
    if (!one || !other) return !one && !other;
    return areContentsEqual(*elementOf(one), *elementOf(other));
}

bool haveEqualTexts(const ElementView& one, const ElementView& other) {
    if (!one || !other) return one.text() == other.text();
    return areTextsEqual(*elementOf(one), *elementOf(other));
}

ElementView rootElement(const ConfigInfo& document) { return ElementAccess::view(detail::Document::of(document).root()); }

std::vector<ElementView> sectionElements(const ConfigInfo& document, const std::wstring& tag) {
    return detail::reporting(L"Error getSection: ", [&] {
        const detail::Document& tree = detail::Document::of(document);
        std::vector<ElementView> sections;
        sections.reserve(tree.countSections(tag));
        for (const detail::Section* section = tree.getSection(tag, {}); section != nullptr; section = section->next)
            sections.push_back(ElementAccess::view(section->element));
        return sections;
    });
}

ElementView findElement(const ConfigInfo& document, const Address& address) {
    return detail::reporting(L"Error getItem: ", [&] {
        const detail::Document& tree = detail::Document::of(document);
        const auto& [section, sectionID, subSection, subSectionID, key] = address;
        const detail::ItemAddress place{section, sectionID, key, subSection, subSectionID};
        const detail::Container container = tree.container(place);
        return ElementAccess::view(key.empty() ? container.element : tree.getItem(container, key).element);
    });
}

}  // namespace XMLConfig
