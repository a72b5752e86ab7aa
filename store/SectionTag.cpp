#include "store/SectionTag.h"

#include <utility>

#define XXH_INLINE_ALL  // nothing to link
#include <xxhash.h>

#include "platform/Text.h"

namespace XMLConfig::detail {

std::size_t HashOfText::operator()(const std::wstring& text) const {
    return static_cast<std::size_t>(XXH3_64bits(text.data(), text.size() * sizeof(wchar_t)));
}

Section* SectionTag::find(const std::wstring& id) const {
    if (id.empty()) return m_first;
    const auto found = m_byID.find(id);
    return found == m_byID.end() ? nullptr : found->second.first;
}

Section* SectionTag::nextOfID(const Section& section) const {
    const auto& all = m_byID.at(section.id).all;
    if (all == nullptr) return nullptr;
    const auto next = all->upper_bound(const_cast<Section*>(&section));
    return next == all->end() ? nullptr : *next;
}

void SectionTag::append(xercesc::DOMElement& element) {
    Section& section = m_sections.try_emplace(&element, *this, element, m_nextOrder++).first->second;
    section.previous = m_last;
    (m_last == nullptr ? m_first : m_last->next) = &section;
    m_last = &section;
    list(section);
}

void SectionTag::remove(Section& section) {
    unlist(section);
    (section.previous == nullptr ? m_first : section.previous->next) = section.next;
    (section.next == nullptr ? m_last : section.next->previous) = section.previous;
    m_sections.erase(section.element);
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

void SectionTag::list(Section& section) {
    if (section.id.empty()) return;
    SameID& same = m_byID[section.id];
    if (same.first == nullptr) {
        same.first = &section;
        return;
    }
    if (same.all == nullptr) same.all = std::make_unique<InOrder>(InOrder{same.first});
    same.all->insert(same.all->end(), &section);
    same.first = *same.all->begin();
}

void SectionTag::unlist(Section& section) {
    if (section.id.empty()) return;
    const auto found = m_byID.find(section.id);
    InOrder* const all = found->second.all.get();
    if (all != nullptr) all->erase(&section);
    if (all == nullptr || all->empty()) m_byID.erase(found);
    else found->second.first = *all->begin();
}

const SectionTag::Key* SectionTag::findKey(const std::wstring& key) const {
    const auto found = m_keys.find(key);
    return found == m_keys.end() ? nullptr : &found->second;
}

const SectionTag::Key& SectionTag::numberNested(const std::wstring& key, const Key& first, std::u16string&& rest) {
    return m_keys.emplace(key, Key{m_keys.size(), &first, std::move(rest)}).first->second;
}

std::size_t SectionTag::numberOfName(const XMLCh* itsName) {
    const auto found = m_nameNumbers.find(itsName);
    if (found != m_nameNumbers.end()) return found->second;
    const std::size_t number = m_keys.emplace(fromUtf16(view(itsName)), Key{m_keys.size()}).first->second.number;
    m_nameNumbers.emplace(itsName, number);
    return number;
}

}  // namespace XMLConfig::detail
