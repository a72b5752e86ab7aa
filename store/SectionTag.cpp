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

const Sections& SectionTag::sections(const std::wstring& id) const {
    static const Sections none;
    if (id.empty()) return m_all;
    const auto found = m_byID.find(id);
    return found == m_byID.end() ? none : found->second;
}

Section* SectionTag::neighbour(const Section& section, int direction) const {
    auto place = section.place;
    if (direction < 0) return place == m_all.begin() ? nullptr : *--place;
    return ++place == m_all.end() ? nullptr : *place;
}

void SectionTag::append(xercesc::DOMElement& element) {
    list(m_sections.try_emplace(&element, *this, element, m_nextOrder++).first->second);
}

void SectionTag::remove(Section& section) {
    unlist(section);
    m_sections.erase(section.element);
}

void SectionTag::rename(Section& section, const std::wstring& newID) {
    unlist(section);
    section.id = newID;
    list(section);
}

void SectionTag::swap(Section& one, Section& other) {
    unlist(one);
    unlist(other);
    std::swap(one.order, other.order);
    list(one);
    list(other);
}

void SectionTag::list(Section& section) {
    section.place = m_all.insert(m_all.end(), &section);  // mostly it is the last one
    if (section.id.empty()) return;
    Sections& same = m_byID[section.id];
    same.insert(same.end(), &section);
}

void SectionTag::unlist(Section& section) {
    m_all.erase(section.place);
    if (section.id.empty()) return;
    const auto same = m_byID.find(section.id);
    same->second.erase(&section);
    if (same->second.empty()) m_byID.erase(same);
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
