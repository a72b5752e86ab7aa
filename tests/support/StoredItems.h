#pragma once

#include <optional>
#include <string>

#include "store/ConfigInfo.h"
#include "tests/support/DocumentTexts.h"

namespace XMLConfig::tests {

/// The texts of one section of a document, as another program would write and find them, past the accessors.
class StoredItems {
public:
    StoredItems(ConfigInfo& document, std::wstring section, std::wstring sectionID = {})
        : m_document(document), m_section(std::move(section)), m_sectionID(std::move(sectionID)) {}

    void put(const std::wstring& key, const std::wstring& text) {
        m_document.setStringItem(m_section, key, text, m_sectionID, {}, {});
    }
    /// The same, as if the text had been there before anything changed: the document is not dirty.
    void putClean(const std::wstring& key, const std::wstring& text) {
        put(key, text);
        m_document.setDirty(false);
    }
    /// Nothing when the item is missing.
    std::optional<std::wstring> text(const std::wstring& key) const {
        return storedText(m_document, m_section, key, m_sectionID);
    }

private:
    ConfigInfo& m_document;
    std::wstring m_section;
    std::wstring m_sectionID;
};

}  // namespace XMLConfig::tests
