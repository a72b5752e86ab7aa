#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/Namesakes.h"
#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

/// An item that is known by the number of its key, and the place of its text's copy where that is known too.
struct KnownItem {
    xercesc::DOMElement* element = nullptr;
    std::uint32_t textBegin = 0;
    std::uint32_t textLength = 0;  ///< 0 where the text is not known
};

/// What is known of one section's items: which element a key leads to, and the text of those that hold one piece of text.
/// The texts are copies that lie side by side, for those in the tree are spread over so much memory that a large document
/// would answer more slowly than a small one. Whoever changes the tree must tell this record of it by the calls below.
class SectionItems {
public:
    bool isScanned = false;  ///< whether every child element of the section is known

    /// The item of that number; null where there is none. The pointer, like the reference that `add` gives, is good until
    /// the next add, remove or clear.
    [[nodiscard]] KnownItem* find(std::size_t number);
    /// Notes that the number leads to the element. Where it leads to another one already, the new element is listed among
    /// those that come after that.
    KnownItem& add(std::size_t number, xercesc::DOMElement* element, std::size_t expectedNumbers);
    /// Forgets where the number leads.
    void remove(std::size_t number);
    /// Lets the number lead to the next element that was added for it and still is in `section`; where there is none, to
    /// nothing.
    void removeFirst(std::size_t number, const xercesc::DOMElement& section);
    void clear() noexcept;
    /// The elements that were added for the number after the first; null where there were none.
    [[nodiscard]] Namesakes* after(std::size_t number);

    /// The item's text where it is known, else nothing; good until any text is remembered or forgotten.
    [[nodiscard]] std::u16string_view text(const KnownItem& item) const;
    /// Keeps a copy of the text of an item that holds nothing else, unless the text is long.
    void rememberText(KnownItem& item, std::u16string_view text);
    void forgetText(KnownItem& item);
    void forgetTexts();

private:
    /// What few sections have, so that the many need no room for it.
    struct Rare {
        std::unordered_map<std::size_t, KnownItem> items;  // those of high numbers
        std::unordered_map<std::size_t, Namesakes> namesakes;
    };
    Rare& rare();

    std::vector<KnownItem> m_items;  // by number; without an element where there is none
    std::unique_ptr<Rare> m_rare;
    std::u16string m_copies;
    std::size_t m_unused = 0;  // how much of the copies belongs to no item any more
};

}  // namespace XMLConfig::detail
