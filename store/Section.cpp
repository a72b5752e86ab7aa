#include "store/Section.h"

#include <algorithm>

#include "platform/Text.h"
#include "store/NodeText.h"
#include "store/SectionTag.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

// Each section has places for the keys below this number, whether it holds those items or not.
constexpr std::size_t commonKeys = 512;
// Most values are numbers or a few of them; what is longer takes long to read anyway.
constexpr std::size_t longestText = 128;

}  // namespace

xercesc::DOMElement* ElementQueue::first(const xercesc::DOMElement& parent) {
    while (m_passed < m_elements.size() && parentOf(*m_elements[m_passed]) != &parent) ++m_passed;
    return m_passed == m_elements.size() ? nullptr : m_elements[m_passed];
}

Section::Section(SectionTag& itsTag, xercesc::DOMElement& itsElement, std::uint64_t itsOrder)
    : tag(&itsTag), element(&itsElement), order(itsOrder), id(fromUtf16(idTextOf(itsElement))) {}

void Section::listChildren() {
    replaced();  // a list that was begun, for want of memory
    for (auto* child = firstElementIn(*element); child != nullptr; child = elementAfter(*child)) list(*child);
    m_isScanned = true;
}

void Section::list(xercesc::DOMElement& child) {
    const std::size_t number = tag->numberOfName(child.getNodeName());
    if (number < commonKeys) {
        if (number >= m_children.size()) m_children.resize(std::min(tag->countNumbers(), commonKeys));
        if (m_children[number] == nullptr) {
            m_children[number] = &child;
            return;
        }
    }
    if (m_others == nullptr) m_others = std::make_unique<std::map<NumberAndID, ElementQueue>>();
    (*m_others)[{number, {}}].add(child);
    const std::u16string_view itsID = idTextOf(child);
    if (!itsID.empty()) (*m_others)[{number, std::u16string(itsID)}].add(child);
}

xercesc::DOMElement* Section::child(std::size_t number, std::u16string_view itsID) {
    xercesc::DOMElement* const first = number < m_children.size() ? m_children[number] : nullptr;
    const bool isIt = first != nullptr && (itsID.empty() || idTextOf(*first) == itsID);
    return isIt ? first : other(number, itsID);
}

xercesc::DOMElement* Section::other(std::size_t number, std::u16string_view itsID) {
    if (m_others == nullptr) return nullptr;
    const auto found = m_others->find({number, std::u16string(itsID)});
    return found == m_others->end() ? nullptr : found->second.first(*element);
}

void Section::rememberRead(const Item& item, std::u16string_view text) {
    if (item.number >= commonKeys || text.size() > longestText) return;
    if (item.number >= m_read.size()) m_read.resize(std::min(tag->countNumbers(), commonKeys));
    const auto begin = static_cast<std::uint32_t>(m_texts.size());
    // Where the texts have to move as they become more, they leave gaps in the heap, over which later memory is spread.
    if (m_texts.empty()) m_texts.reserve(std::min<std::size_t>(tag->sizeOfTexts, 4096));
    m_texts += text;
    tag->sizeOfTexts = m_texts.size();
    m_read[item.number] = {item.element, begin, static_cast<std::uint32_t>(text.size())};
}

void Section::removed(const xercesc::DOMElement& child) {
    changedInside();
    if (!m_isScanned) return;
    const std::size_t number = tag->numberOfName(child.getNodeName());
    if (number < m_children.size() && m_children[number] == &child) m_children[number] = other(number, {});
}

void Section::replaced() {
    changedInside();
    m_isScanned = false;
    m_children.clear();
    m_others.reset();
}

}  // namespace XMLConfig::detail
