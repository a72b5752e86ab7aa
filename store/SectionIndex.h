#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/SectionItems.h"
#include "store/XmlLibrary.h"

/// Finds the children of the root by tag and ID, and items below them by key, without walking. Its answers are those of
/// a walk in document order, duplicates and missing or empty IDs included; every structural change must be told to it.
namespace XMLConfig::detail {

struct SectionTag;

/// A child element of the root.
struct Section {
    xercesc::DOMElement* element = nullptr;
    SectionTag* tag = nullptr;
    std::uint64_t order = 0;  ///< ascending in document order among the sections of one tag
    std::wstring id;          ///< "" without an "ID" attribute
    SectionItems items;       ///< by the numbers of their keys
};

/// The sections of one tag. Keys are numbered for all of them together, so that a section needs no map of its own.
struct SectionTag {
    std::map<std::uint64_t, Section> sections;                     ///< by order
    std::unordered_map<std::wstring, std::vector<Section*>> byID;  ///< each list by order
    std::unordered_map<std::wstring, std::size_t> keyNumbers;
    std::unordered_map<const XMLCh*, std::size_t> nameNumbers;  ///< of child names, which the document keeps once each
};

class SectionIndex {
public:
    /// Forgets everything and indexes the root's children on the next question.
    void reset(xercesc::DOMElement* root);

    /// The first section of that tag, and of that ID unless it is empty; null when there is none.
    Section* find(const std::wstring& tag, const std::wstring& id);
    /// The section of that element, which must be a child of the root.
    Section& sectionOf(xercesc::DOMElement* element);
    /// The item that the key leads to, good until the section's items change; null when there is none.
    static KnownItem* item(Section& section, const std::wstring& key);
    /// A child was appended to the section.
    static void itemAppended(Section& section, xercesc::DOMElement* child);
    /// A child was removed from the section and still has its content.
    static void itemRemoved(Section& section, const xercesc::DOMElement* child);

    void appended(xercesc::DOMElement* element);
    void removing(xercesc::DOMElement* element);
    void renamed(xercesc::DOMElement* element, const std::wstring& newID);
    /// Two sections of one tag, with none of that tag between them, changed places.
    void swapped(xercesc::DOMElement* one, xercesc::DOMElement* other);

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

/// The "ID" attribute's value; "" when there is none.
std::wstring idOf(const xercesc::DOMElement& element);
/// The element below `element` that the key's parts lead to, each the first child of that name; null when there is none.
xercesc::DOMElement* walkKey(xercesc::DOMElement* element, std::u16string_view key);
/// The first child element of that name; null when there is none.
xercesc::DOMElement* childNamed(const xercesc::DOMElement* element, std::u16string_view name);

}  // namespace XMLConfig::detail
