#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "base/Setting.h"
#include "store/Address.h"
#include "store/ElementView.h"

namespace XMLConfig::detail {

/// A text somewhere in a section, known by its way within that section, because the same section may have another ID in the
/// other document: that of a setting, of an unknown item, or of a part of a device snippet.
struct StoredText {
    std::wstring path;                 ///< the address after the section, unique in it: "Gamma", "DeviceSnippet/device@UID"
    Address place;                     ///< of the setting; of a part of a snippet that of the snippet
    const Setting* setting = nullptr;  ///< null for what the catalogue does not know
    std::wstring text;
    bool inSnippet = false;
};

/// The texts of a section in document order. Of several with one path only the first counts, as for the library.
class StoredTexts {
public:
    explicit StoredTexts(const ElementView& section);

    const std::vector<StoredText>& all() const { return m_texts; }
    /// Null where the section has none at the path.
    const StoredText* find(const std::wstring& path) const;

private:
    void addChild(const ElementView& child);
    void addItem(const ElementView& item, const Address& place, const std::wstring& path);
    void addSnippet(const ElementView& element, const Address& place, const std::wstring& path);
    void add(StoredText text);

    Address m_section;
    std::vector<StoredText> m_texts;
    std::unordered_map<std::wstring, std::size_t> m_places;
};

}  // namespace XMLConfig::detail
