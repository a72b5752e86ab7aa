#include "store/SectionTag.h"

#include <algorithm>
#include <utility>

#include "platform/Text.h"

namespace XMLConfig::detail {

std::wstring idOf(const xercesc::DOMElement& element) { return fromUtf16(view(element.getAttribute(xmlText(u"ID")))); }

Section* SectionTag::find(const std::wstring& id) const {
    const auto found = m_byID.find(id);
    return found == m_byID.end() ? nullptr : found->second.front();
}

void SectionTag::append(xercesc::DOMElement* element, std::uint64_t order) {
    Section& section = m_sections[element];
    section.element = element;
    section.tag = this;
    section.order = order;
    section.hasID = element->hasAttribute(xmlText(u"ID"));
    section.id = idOf(*element);
    section.previous = m_last;
    (m_last == nullptr ? m_first : m_last->next) = &section;
    m_last = &section;
    list(section);
}

void SectionTag::remove(Section& section) {
    unlist(section);
    (section.previous == nullptr ? m_first : section.previous->next) = section.next;
    (section.next == nullptr ? m_last : section.next->previous) = section.previous;
    const xercesc::DOMElement* const element = section.element;
    m_sections.erase(element);
}

void SectionTag::rename(Section& section, const std::wstring& newID) {
    unlist(section);
    section.id = newID;
    list(section);
}

void SectionTag::swap(Section& earlier, Section& later) {
    unlist(earlier);
    unlist(later);
    std::swap(earlier.order, later.order);
    (earlier.previous == nullptr ? m_first : earlier.previous->next) = &later;
    (later.next == nullptr ? m_last : later.next->previous) = &earlier;
    later.previous = std::exchange(earlier.previous, &later);
    earlier.next = std::exchange(later.next, &earlier);
    list(earlier);
    list(later);
}

const std::size_t* SectionTag::findNumber(const std::wstring& key) const {
    const auto found = m_numbers.find(key);
    return found == m_numbers.end() ? nullptr : &found->second;
}

std::size_t SectionTag::numberOf(const std::wstring& key) { return m_numbers.emplace(key, m_numbers.size()).first->second; }

std::size_t SectionTag::numberOfNested(const std::wstring& key) {
    if (const std::size_t* const known = findNumber(key)) return *known;
    const std::size_t outer = numberOf(key.substr(0, key.find(L'|')));
    return m_nested[outer].emplace_back(numberOf(key));
}

std::size_t SectionTag::numberOfName(const XMLCh* name) {
    const auto found = m_nameNumbers.find(name);
    if (found != m_nameNumbers.end()) return found->second;
    return m_nameNumbers.emplace(name, numberOf(fromUtf16(view(name)))).first->second;
}

void SectionTag::list(Section& section) {
    auto& sameID = m_byID[section.id];
    const auto earlier = [](const Section* left, const Section* right) { return left->order < right->order; };
    if (!sameID.empty()) sameID.front()->isFirstOfID = false;
    sameID.insert(std::upper_bound(sameID.begin(), sameID.end(), &section, earlier), &section);
    sameID.front()->isFirstOfID = true;
}

void SectionTag::unlist(Section& section) {
    const auto found = m_byID.find(section.id);
    auto& sameID = found->second;
    sameID.erase(std::find(sameID.begin(), sameID.end(), &section));
    section.isFirstOfID = false;
    if (sameID.empty()) m_byID.erase(found);
    else sameID.front()->isFirstOfID = true;
}

}  // namespace XMLConfig::detail
