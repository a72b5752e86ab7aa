#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"
#include "store/ElementView.h"

class ConfigInfo;

namespace XMLConfig {

/// An element of a document: a section, a subsection, an item or a part of a fragment.
struct OutlineNode {
    std::wstring name;                                              ///< the tag
    std::vector<std::pair<std::wstring, std::wstring>> attributes;  ///< name and value, by name
    std::wstring text;                                              ///< what an element without child elements holds
    std::vector<OutlineNode> children;                              ///< child elements, in document order

    /// The "ID" attribute's value; "" when there is none.
    XMLCONFIG_API std::wstring id() const;
};

/// A copy of the root's child elements as a tree: header elements and sections, in document order. Whoever wants a few of
/// them only had better walk there by ElementView.
XMLCONFIG_API std::vector<OutlineNode> outline(const ConfigInfo& document);
/// A copy of one element with everything inside it; an empty node where there is none.
XMLCONFIG_API OutlineNode outline(const ElementView& element);

}  // namespace XMLConfig
