#include "store/SectionTag.h"

#include <cstring>
#include <utility>

#include "platform/Text.h"
#include "store/Attributes.h"

namespace XMLConfig::detail {

std::wstring idOf(const xercesc::DOMElement& element) { return fromUtf16(idTextOf(element)); }

std::size_t HashOfText::operator()(const std::wstring& text) const {
    constexpr std::uint64_t odd = 0x9E3779B97F4A7C15U;
    constexpr std::size_t step = sizeof(std::uint64_t) / sizeof(wchar_t);
    const std::size_t whole = text.size() / step * step;
    std::uint64_t hash = text.size();
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < whole; i += step) {
        std::memcpy(&word, text.data() + i, sizeof word);
        hash = (hash ^ word) * odd;
        hash ^= hash >> 32U;
    }
    word = 0;
    for (std::size_t i = whole; i < text.size(); ++i) word = (word << 16U) ^ static_cast<std::uint64_t>(text[i]);
    hash = (hash ^ word) * odd;
    return static_cast<std::size_t>(hash ^ (hash >> 32U));
}

Section* SectionTag::find(const std::wstring& id) const {
    const auto found = m_firstOfID.find(id);
    return found == m_firstOfID.end() ? nullptr : found->second;
}

Section* SectionTag::nextOfID(const Section& section) const {
    const auto others = m_othersOfID.find(section.id);
    if (others == m_othersOfID.end()) return nullptr;
    const auto next = others->second.upper_bound(const_cast<Section*>(&section));
    return next == others->second.end() ? nullptr : *next;
}

void SectionTag::append(xercesc::DOMElement* element, std::uint64_t order) {
    Section& section = m_sections[element];
    section.element = element;
    section.tag = this;
    section.order = order;
    const xercesc::DOMAttr* const id = idAttributeOf(*element);
    section.hasID = id != nullptr;
    if (id != nullptr) section.id = fromUtf16(valueOf(*id));
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

const SectionTag::Key* SectionTag::findKey(const std::wstring& key) const {
    const auto found = m_keys.find(key);
    return found == m_keys.end() ? nullptr : &found->second;
}

std::size_t SectionTag::numberNested(const std::wstring& key, std::size_t first, std::u16string&& rest) {
    std::vector<std::size_t>& nested = m_nestedIn[first];
    if (nested.size() == nested.capacity())
        nested.reserve(2 * nested.size() + 1);  // nothing may fail after the key is known
    return nested.emplace_back(m_keys.emplace(key, Key{m_keys.size(), first, std::move(rest)}).first->second.number);
}

const std::vector<std::size_t>* SectionTag::nestedIn(std::size_t number) const {
    const auto found = m_nestedIn.find(number);
    return found == m_nestedIn.end() ? nullptr : &found->second;
}

std::size_t SectionTag::numberOfName(const XMLCh* name) {
    const auto found = m_nameNumbers.find(name);
    if (found != m_nameNumbers.end()) return found->second;
    return m_nameNumbers.emplace(name, m_keys.emplace(fromUtf16(view(name)), Key{m_keys.size()}).first->second.number)
        .first->second;
}

void SectionTag::lead(Section*& leader, Section* next) {
    leader = next;
    next->isFirstOfID = true;
}

void SectionTag::list(Section& section) {
    const auto [place, isFirst] = m_firstOfID.emplace(section.id, &section);
    if (isFirst) return lead(place->second, &section);
    Section* other = &section;
    if (section.order < place->second->order) {
        other = place->second;
        other->isFirstOfID = false;
        lead(place->second, &section);
    }
    InOrder& others = m_othersOfID[section.id];
    others.insert(others.end(), other);  // mostly it is the last one: they are listed in document order
}

void SectionTag::unlist(Section& section) {
    const auto first = m_firstOfID.find(section.id);
    const auto others = m_othersOfID.find(section.id);
    if (first->second != &section) others->second.erase(&section);
    else if (others == m_othersOfID.end()) m_firstOfID.erase(first);
    else lead(first->second, others->second.extract(others->second.begin()).value());
    section.isFirstOfID = false;
    if (others != m_othersOfID.end() && others->second.empty()) m_othersOfID.erase(others);
}

}  // namespace XMLConfig::detail
