#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>

#include "store/Section.h"

namespace XMLConfig::detail {

/// Takes less than the standard library's. Since it does not promise to throw nothing, its result is kept with each text.
struct HashOfText {
    std::size_t operator()(const std::wstring& text) const;
};

/// The sections of one tag, which stay where they are in memory. Item keys are numbered for all of them together, so that
/// a section needs no map of its own.
class SectionTag {
public:
    explicit SectionTag(const std::wstring& itsName) : name(itsName) {}
    const std::wstring name;
    std::size_t sizeOfTexts = 0;  ///< of all that are known of the section that was read last; mostly the next has as many

    /// The first section of that ID, or of any where it is empty; null when there is none.
    [[nodiscard]] Section* find(const std::wstring& id) const;
    /// The next section of the same ID; null after the last.
    [[nodiscard]] Section* nextOfID(const Section& section) const;
    [[nodiscard]] std::size_t count() const { return m_sections.size(); }
    [[nodiscard]] bool hasUniqueIDs() const { return m_byID.size() == m_sections.size(); }

    void append(xercesc::DOMElement& element);
    void remove(Section& section);
    void rename(Section& section, const std::wstring& newID);
    /// Lets two neighbours change places; `later` is the section that follows `earlier`.
    void swap(Section& earlier, Section& later);

    struct Key {
        std::size_t number = 0;
        const Key* first = nullptr;  ///< of a key of several parts: the first
        std::u16string rest = {};    ///< and what follows it
    };

    /// Null where none of the sections was asked for that key or has it.
    [[nodiscard]] const Key* findKey(const std::wstring& key) const;
    /// Numbers a key of several parts that has no number yet.
    const Key& numberNested(const std::wstring& key, const Key& first, std::u16string&& rest);
    /// The number of a child's name, which must be the document's own copy of that name.
    std::size_t numberOfName(const XMLCh* itsName);
    [[nodiscard]] std::size_t countNumbers() const { return m_keys.size(); }

private:
    struct ByOrder {
        bool operator()(const Section* left, const Section* right) const { return left->order < right->order; }
    };
    using InOrder = std::set<Section*, ByOrder>;
    /// The sections of one ID. Mostly that is one, which needs no set.
    struct SameID {
        Section* first = nullptr;
        std::unique_ptr<InOrder> all;  ///< null for one
    };

    void list(Section& section);
    void unlist(Section& section);

    std::unordered_map<const xercesc::DOMElement*, Section> m_sections;
    std::uint64_t m_nextOrder = 0;
    Section* m_first = nullptr;
    Section* m_last = nullptr;
    std::unordered_map<std::wstring, SameID> m_byID;
    std::unordered_map<std::wstring, Key, HashOfText> m_keys;
    std::unordered_map<const XMLCh*, std::size_t> m_nameNumbers;
};

}  // namespace XMLConfig::detail
