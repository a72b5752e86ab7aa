#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "store/GroupIndex.h"
#include "store/SectionTag.h"
#include "store/TreeChange.h"
#include "store/XmlLibrary.h"

/// Finds the children of the root by tag and ID, and items below them by key, without walking. Its answers are those of
/// a walk in document order, duplicates and missing or empty IDs included; every change must be told to it. What is asked
/// is looked up once and then known; where memory runs out meanwhile, it is not known, and the next question is answered
/// anew.
namespace XMLConfig::detail {

class SectionIndex {
public:
    /// Forgets everything and indexes the root's children on the next question.
    void reset(xercesc::DOMElement* root) noexcept;
    /// Throws where memory runs out; it must be reset then.
    void changed(const TreeChange& change);

    /// The first section of that tag, and of that ID unless it is empty; null when there is none.
    Section* find(const std::wstring& tag, const std::wstring& id);
    /// The next section after one that was found for `id`.
    static Section* next(const Section& section, const std::wstring& id);
    /// How many sections of that tag there are.
    std::size_t count(const std::wstring& tag);
    /// The section of that element, which must be a child of the root.
    Section& sectionOf(const xercesc::DOMElement* element);
    /// The item that the key leads to, good until the section's items change or another is asked for; null when there is
    /// none.
    KnownItem* item(Section& section, const std::wstring& key);
    /// The first child of the section of that tag, and of that ID unless it is empty; null when there is none.
    static xercesc::DOMElement* subSection(Section& section, const std::wstring& tag, const std::wstring& id);
    /// The element below `element` that the key's parts lead to, each the first child of that name; null when there is none.
    xercesc::DOMElement* walk(xercesc::DOMElement* element, std::u16string_view key);

private:
    void build();
    SectionTag* tagNamed(const std::wstring& name);
    KnownItem* newNested(Section& section, const std::wstring& key);
    void sectionRenamed(Section& section, const std::wstring& newID);
    void insideAdded(Section& section, xercesc::DOMElement& added);
    static void childRemoved(Section& section, const xercesc::DOMElement& child);
    static void forgetInside(Section& section, const xercesc::DOMElement& element);

    xercesc::DOMElement* m_root = nullptr;
    bool m_isBuilt = false;
    std::uint64_t m_nextOrder = 0;
    std::unordered_map<std::wstring, SectionTag> m_tags;
    GroupIndex m_groups;
    std::wstring m_lastTag;  // the last answer: a section is mostly read item by item
    std::wstring m_lastID;
    Section* m_lastSection = nullptr;
};

/// The first child element of that name, found by walking; null when there is none.
xercesc::DOMElement* childNamed(const xercesc::DOMElement* element, std::u16string_view name);

}  // namespace XMLConfig::detail
