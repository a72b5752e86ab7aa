#include "manager/diff/SectionTexts.h"

#include <utility>

namespace XMLConfig::detail {

SectionTexts::SectionTexts(const ElementView& section) {
    std::vector<StoredText> texts = storedTexts(section, {section.name(), section.id(), L"", L"", L""}, L"");
    m_texts.reserve(texts.size());  // the paths of what is in it must stay where they are
    m_places.reserve(texts.size());
    for (StoredText& text : texts) {
        const bool isOfSectionItself = text.path.empty();
        if (isOfSectionItself || m_places.count(text.path) > 0) continue;
        m_texts.push_back(std::move(text));
        m_places.emplace(m_texts.back().path, m_texts.size() - 1);
    }
}

const StoredText* SectionTexts::find(const std::wstring& path) const {
    const auto place = m_places.find(path);
    return place == m_places.end() ? nullptr : &m_texts[place->second];
}

}  // namespace XMLConfig::detail
