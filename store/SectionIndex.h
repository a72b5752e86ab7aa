#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "store/SectionTag.h"
#include "store/XmlLibrary.h"

/// Finds the children of the root by tag and ID, and items below them by key, without walking. Its answers are those of
/// a walk in document order, duplicates and missing or empty IDs included; every structural change must be told to it.
namespace XMLConfig::detail {

class SectionIndex {
public:
    /// Forgets everything and indexes the root's children on the next question.
    void reset(xercesc::DOMElement* root);

    /// The first section of that tag, and of that ID unless it is empty; null when there is none.
    Section* find(const std::wstring& tag, const std::wstring& id);
    /// How many sections of that tag there are.
    std::size_t count(const std::wstring& tag);
    /// The section of that element, which must be a child of the root.
    Section& sectionOf(const xercesc::DOMElement* element);
    /// The item that the key leads to, good until the section's items change or another is asked for; null when there is
    /// none.
    static KnownItem* item(Section& section, const std::wstring& key);
    /// A child was appended to the section.
    static void itemAppended(Section& section, xercesc::DOMElement* child);
    /// A child was removed from the section and still has its content.
    static void itemRemoved(Section& section, const xercesc::DOMElement* child);

    void appended(xercesc::DOMElement* element);
    void removing(Section& section);
    void renamed(Section& section, const std::wstring& newID);
    /// A section and the next one of its tag changed places.
    void swapped(Section& earlier, Section& later);

private:
    void build();
    SectionTag* tagNamed(const std::wstring& name);

    xercesc::DOMElement* m_root = nullptr;
    bool m_isBuilt = false;
    std::uint64_t m_nextOrder = 0;
    std::unordered_map<std::wstring, SectionTag> m_tags;
    std::wstring m_lastTag;  // the last answer: a section is mostly read item by item
    std::wstring m_lastID;
    Section* m_lastSection = nullptr;
};

/// The element below `element` that the key's parts lead to, each the first child of that name; null when there is none.
xercesc::DOMElement* walkKey(xercesc::DOMElement* element, std::u16string_view key);
/// The first child element of that name; null when there is none.
xercesc::DOMElement* childNamed(const xercesc::DOMElement* element, std::u16string_view name);

}  // namespace XMLConfig::detail
