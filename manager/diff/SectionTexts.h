#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "manager/StoredTexts.h"

namespace XMLConfig::detail {

/// The texts of a section in document order, known by their paths within it, because the same section may have another ID
/// in the other document. Of several with one path only the first counts, as for the library.
class SectionTexts {
public:
    explicit SectionTexts(const ElementView& section);
    SectionTexts(const SectionTexts&) = delete;
    SectionTexts& operator=(const SectionTexts&) = delete;

    const std::vector<StoredText>& all() const { return m_texts; }
    /// Null where the section has none at the path.
    const StoredText* find(const std::wstring& path) const;

private:
    std::vector<StoredText> m_texts;
    std::unordered_map<std::wstring_view, std::size_t> m_places;  // by the paths of m_texts
};

}  // namespace XMLConfig::detail
