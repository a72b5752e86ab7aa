#pragma once

#include <string_view>
#include <unordered_map>

#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

/// Finds children by name in elements that have many, after one walk through them. Whoever changes such an element must
/// call it afterwards.
class GroupIndex {
public:
    /// The first child element of that name; null when there is none.
    xercesc::DOMElement* child(const xercesc::DOMElement& parent, std::u16string_view name);
    /// To be called when the parent has got one more child, its last.
    void added(const xercesc::DOMElement& parent, xercesc::DOMElement& child);
    /// To be called when the parent has got other children.
    void replaced(const xercesc::DOMElement& parent) { m_groups.erase(&parent); }
    void clear() noexcept { m_groups.clear(); }

private:
    using ByName = std::unordered_map<std::u16string_view, xercesc::DOMElement*>;  // the tree's own copies of names
    xercesc::DOMElement* listedChild(const xercesc::DOMElement& parent, std::u16string_view name);

    std::unordered_map<const xercesc::DOMElement*, ByName> m_groups;
};

}  // namespace XMLConfig::detail
