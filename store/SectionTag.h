#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "store/Section.h"

namespace XMLConfig::detail {

/// Takes half of what the standard library's takes. It tells nobody in advance, so that its result is kept with each text.
struct HashOfText {
    std::size_t operator()(const std::wstring& text) const;
};

/// The sections of one tag, which stay where they are in memory. Item keys are numbered for all of them together, so that
/// a section needs no map of its own.
class SectionTag {
public:
    explicit SectionTag(const std::wstring& itsName) : name(itsName) {}
    const std::wstring name;

    /// The sections of that ID, or all where it is empty; none where there are none.
    [[nodiscard]] const Sections& sections(const std::wstring& id) const;
    /// The section before one, where `direction` is negative, or after it; null where there is none.
    [[nodiscard]] Section* neighbour(const Section& section, int direction) const;
    [[nodiscard]] bool hasUniqueIDs() const { return m_byID.size() == m_all.size(); }

    void append(xercesc::DOMElement& element);
    void remove(Section& section);
    void rename(Section& section, const std::wstring& newID);
    void swap(Section& one, Section& other);

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
    void list(Section& section);
    void unlist(Section& section);

    std::unordered_map<const xercesc::DOMElement*, Section> m_sections;
    std::uint64_t m_nextOrder = 0;
    Sections m_all;
    std::unordered_map<std::wstring, Sections> m_byID;
    std::unordered_map<std::wstring, Key, HashOfText> m_keys;
    std::unordered_map<const XMLCh*, std::size_t> m_nameNumbers;
};

/// The "ID" attribute's value; "" when there is none.
std::wstring idOf(const xercesc::DOMElement& element);

}  // namespace XMLConfig::detail
