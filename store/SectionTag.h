#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/SectionItems.h"
#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

class SectionTag;

/// A child element of the root.
struct Section {
    xercesc::DOMElement* element = nullptr;
    SectionTag* tag = nullptr;
    Section* previous = nullptr;  ///< in document order, among those of one tag
    Section* next = nullptr;
    std::uint64_t order = 0;  ///< ascends in document order
    bool hasID = false;       ///< whether there is an "ID" attribute, which may be empty
    bool isFirstOfID = false;
    std::wstring id;
    SectionItems items;  ///< by the numbers of their keys
};

/// Takes half of what the standard library's takes. It tells nobody in advance, so that its result is kept with each text.
struct HashOfText {
    std::size_t operator()(const std::wstring& text) const;
};

/// The sections of one tag, which stay where they are in memory. Item keys are numbered for all of them together, so that
/// a section needs no map of its own.
class SectionTag {
public:
    [[nodiscard]] Section* first() const { return m_first; }
    /// The first section of that ID; null when there is none.
    [[nodiscard]] Section* find(const std::wstring& id) const;
    /// The next section of the same ID; null after the last.
    [[nodiscard]] Section* nextOfID(const Section& section) const;
    [[nodiscard]] Section& of(const xercesc::DOMElement* element) { return m_sections.at(element); }
    [[nodiscard]] std::size_t count() const { return m_sections.size(); }

    void append(xercesc::DOMElement* element, std::uint64_t order);
    void remove(Section& section);
    void rename(Section& section, const std::wstring& newID);
    /// Lets two neighbours change places; `later` is the section that follows `earlier`.
    void swap(Section& earlier, Section& later);

    struct Key {
        std::size_t number = 0;
        std::size_t first = 0;     ///< of a key of several parts: the number of the first
        std::u16string rest = {};  ///< and what follows it; empty for a key of one part
    };

    /// Null where none of the sections was asked for that key or has it.
    [[nodiscard]] const Key* findKey(const std::wstring& key) const;
    /// The number of a key of several parts that has none yet, of which the first has that number.
    std::size_t numberNested(const std::wstring& key, std::size_t first, std::u16string&& rest);
    /// The number of a child's name, which must be the document's own copy of that name.
    std::size_t numberOfName(const XMLCh* name);
    [[nodiscard]] std::size_t countNumbers() const { return m_keys.size(); }
    /// The numbers of the keys that begin with that key and have more parts; null where there are none.
    [[nodiscard]] const std::vector<std::size_t>* nestedIn(std::size_t number) const;

private:
    struct ByOrder {
        bool operator()(const Section* left, const Section* right) const { return left->order < right->order; }
    };
    using InOrder = std::set<Section*, ByOrder>;

    void list(Section& section);
    void unlist(Section& section);
    void lead(Section*& leader, Section* next);

    std::unordered_map<const xercesc::DOMElement*, Section> m_sections;
    std::unordered_map<std::wstring, Section*> m_firstOfID;
    std::unordered_map<std::wstring, InOrder> m_othersOfID;  // where there are several, those after the first
    Section* m_first = nullptr;
    Section* m_last = nullptr;
    std::unordered_map<std::wstring, Key, HashOfText> m_keys;
    std::unordered_map<const XMLCh*, std::size_t> m_nameNumbers;
    std::unordered_map<std::size_t, std::vector<std::size_t>> m_nestedIn;
};

/// The "ID" attribute's value; "" when there is none.
std::wstring idOf(const xercesc::DOMElement& element);

}  // namespace XMLConfig::detail
