#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

class Section;
class SectionTag;

/// An item that was found; without an element where there is none.
struct Item {
    static constexpr std::size_t unnumbered = SIZE_MAX;
    xercesc::DOMElement* element = nullptr;
    Section* section = nullptr;       ///< what it is in
    std::size_t number = unnumbered;  ///< of its key; items of subsections have none
};

/// Elements in document order, of which those that have left their parent are passed over. So whoever removes one need not
/// look for it here.
class ElementQueue {
public:
    void add(xercesc::DOMElement& element) { m_elements.push_back(&element); }
    /// The first that still is in `parent`; null where there is none.
    xercesc::DOMElement* first(const xercesc::DOMElement& parent);

private:
    std::vector<xercesc::DOMElement*> m_elements;
    std::size_t m_passed = 0;
};

/// A child element of the root, and what is known of its items by the numbers that its tag gives their keys: its children,
/// and which item was read with which text. Whoever changes anything inside of it must tell it.
class Section {
public:
    Section(SectionTag& itsTag, xercesc::DOMElement& itsElement, std::uint64_t itsOrder);

    SectionTag* const tag;
    xercesc::DOMElement* const element;
    std::uint64_t order;          ///< ascends in document order
    Section* previous = nullptr;  ///< in document order, among those of one tag
    Section* next = nullptr;
    std::wstring id;  ///< "" where there is none

    /// Numbers the names of the children, unless that was done. To be called before anything is asked by a number.
    void scan() {
        if (!m_isScanned) listChildren();
    }
    /// The first child of the name of that number, and of that ID unless it is empty; null where there is none.
    xercesc::DOMElement* child(std::size_t number, std::u16string_view itsID = {});

    /// The item of that number where its text is known, else one without an element.
    [[nodiscard]] Item itemRead(std::size_t number) {
        return number < m_read.size() ? Item{m_read[number].element, this, number} : Item();
    }
    /// That text, or nothing where it is not known; good until another is remembered or anything changes.
    [[nodiscard]] std::u16string_view textRead(std::size_t number) const {
        if (number >= m_read.size()) return {};
        return {m_texts.data() + m_read[number].textBegin, m_read[number].textLength};
    }
    /// Keeps a copy of the text of an item that holds nothing else, unless the text is long.
    void rememberRead(const Item& item, std::u16string_view text);

    /// To be called when it has got one more child, its last.
    void added(xercesc::DOMElement& child) {
        if (m_isScanned) list(child);
    }
    /// To be called when a child has left it.
    void removed(const xercesc::DOMElement& child);
    /// To be called when it has got other children.
    void replaced();
    /// To be called when anything inside of its children has changed.
    void changedInside() noexcept {
        m_read.clear();
        m_texts.clear();
    }

private:
    /// An item that was read. The texts are copies that lie side by side, for those in the tree are spread over so much
    /// memory that a large document would answer half as fast as a small one.
    struct Read {
        xercesc::DOMElement* element = nullptr;
        std::uint32_t textBegin = 0;
        std::uint32_t textLength = 0;
    };
    using NumberAndID = std::pair<std::size_t, std::u16string>;

    void listChildren();
    void list(xercesc::DOMElement& child);
    xercesc::DOMElement* other(std::size_t number, std::u16string_view itsID);

    bool m_isScanned = false;
    std::vector<xercesc::DOMElement*> m_children;  // by number: the first of each name
    /// The other children by number and ID, those of any ID under "". Few sections have any, so that the many need no
    /// room for them.
    std::unique_ptr<std::map<NumberAndID, ElementQueue>> m_others;
    std::vector<Read> m_read;  // by number
    std::u16string m_texts;
};

}  // namespace XMLConfig::detail
