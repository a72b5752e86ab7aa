#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "store/GroupIndex.h"
#include "store/SectionTag.h"
#include "store/XmlLibrary.h"

/// Finds the children of the root by tag and ID, and items below them by key, without walking. Its answers are those of
/// a walk in document order, duplicates and missing or empty IDs included. What is asked is looked up once and then known;
/// where memory runs out meanwhile, it is not known, and the next question is answered anew.
namespace XMLConfig::detail {

class SectionIndex {
public:
    /// Forgets everything and indexes the root's children on the next question.
    void reset(xercesc::DOMElement* root) noexcept;

    /// The first section of that tag, and of that ID unless it is empty; null when there is none.
    Section* find(const std::wstring& tag, const std::wstring& id);
    /// The next section after one that was found for `id`.
    static Section* next(const Section& section, const std::wstring& id);
    /// How many sections of that tag there are.
    std::size_t count(const std::wstring& tag);
    /// The item that the key leads to.
    Item item(Section& section, const std::wstring& key);
    /// The first child of the section of that tag, and of that ID unless it is empty; null when there is none.
    static xercesc::DOMElement* subSection(Section& section, const std::wstring& tag, const std::wstring& id);
    /// The element below `element` that the key's parts lead to, each the first child of that name; null when there is
    /// none, or no `element`.
    xercesc::DOMElement* walk(xercesc::DOMElement* element, std::u16string_view key);

    // Every change must be told by one of these, after it was made. Where memory runs out in one, the index must be reset.
    /// The element is the last child of the root.
    void sectionAdded(xercesc::DOMElement& element);
    void sectionRemoved(Section& section);
    void sectionRenamed(Section& section, const std::wstring& newID);
    void sectionsSwapped(Section& earlier, Section& later);
    /// The element is the last child of the section, or of an element in it.
    void itemAdded(Section& section, xercesc::DOMElement& added);
    /// The element was a child of the section.
    static void itemRemoved(Section& section, const xercesc::DOMElement& removed);
    /// The element, in the section or that itself, has other content.
    void contentReplaced(Section& section, const xercesc::DOMElement& element);

private:
    void build();
    SectionTag* findTag(const std::wstring& name);
    SectionTag& tagNamed(std::u16string_view name);
    Item newNested(Section& section, const std::wstring& key);

    xercesc::DOMElement* m_root = nullptr;
    bool m_isBuilt = false;
    std::unordered_map<std::wstring, SectionTag> m_tags;
    GroupIndex m_groups;
    Section* m_last = nullptr;  // the last answer: a section is mostly read item by item
};

}  // namespace XMLConfig::detail
