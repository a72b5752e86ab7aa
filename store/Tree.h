#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "store/TreeLinks.h"
#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

class Tree;

struct Discard {
    Tree* tree = nullptr;
    void operator()(xercesc::DOMElement* element) const;
};
/// An element that belongs to the tree's document and is no part of the tree. What is not joined to it is discarded.
using LooseElement = std::unique_ptr<xercesc::DOMElement, Discard>;

/// The XML library's document, and new nodes for it.
///
/// The library gives memory back with the whole document only. So a node that is not wanted any more is left where it is,
/// and when such waste outweighs the content, the tree is copied into a new document and the old one ends.
class Tree {
public:
    /// Replaces the tree. `names`: how many elements and attributes it has at least.
    void adopt(DocumentPointer document, std::size_t names = 0) noexcept;
    [[nodiscard]] bool exists() const { return m_document != nullptr; }
    [[nodiscard]] const xercesc::DOMDocument& document() const { return *m_document; }
    [[nodiscard]] xercesc::DOMElement* root() const { return m_document ? m_document->getDocumentElement() : nullptr; }

    /// Throws DOMException for a name that could not be read again below `place`.
    LooseElement makeElement(const xercesc::DOMElement& place, std::wstring_view name);
    LooseElement makeElement(const char16_t* name);
    /// Copies an element of another document, with all that it holds.
    LooseElement copy(const xercesc::DOMElement& element);
    xercesc::DOMText* makeText(const std::wstring& text);
    xercesc::DOMComment* makeComment(const std::u16string& text);
    /// Adds an attribute to a new element that has none of that name.
    void addAttribute(xercesc::DOMElement& element, const char16_t* name, const char16_t* value);

    /// Gives a text another value, or, where memory is short, leaves it as it is.
    static void setText(xercesc::DOMText& text, const std::wstring& value);

    /// Takes a child out of its parent.
    void remove(xercesc::DOMNode& parent, xercesc::DOMNode& child) noexcept;
    /// Counts a node that is no part of the tree, and everything in it, as waste.
    void discard(const xercesc::DOMNode& node) noexcept;
    /// Copies the tree when there is much waste, unless memory is short. True when it did: no pointer into the tree is good
    /// then.
    bool shedWaste() noexcept;

private:
    DocumentPointer m_document;
    NameCounter m_names;
    std::size_t m_waste = 0;         // bytes, estimated
    std::size_t m_allowedWaste = 0;  // how much there may be until the content is weighed again
};

}  // namespace XMLConfig::detail
