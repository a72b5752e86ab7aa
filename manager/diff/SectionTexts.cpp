#include "manager/diff/SectionTexts.h"

#include <utility>

namespace XMLConfig::detail {

SectionTexts::SectionTexts(const ElementView& section) {
    for (StoredText& text : storedTexts(section, {section.name(), section.id(), L"", L"", L""}, L"")) {
        const bool isOfSectionItself = text.path.empty();
        if (!isOfSectionItself && m_places.emplace(text.path, m_texts.size()).second) m_texts.push_back(std::move(text));
    }
}

const StoredText* SectionTexts::find(const std::wstring& path) const {
    const auto place = m_places.find(path);
    return place == m_places.end() ? nullptr : &m_texts[place->second];
}

}  // namespace XMLConfig::detail
