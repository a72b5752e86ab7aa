#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"

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

/// A copy of the root's child elements as a tree: header elements and sections, in document order.
XMLCONFIG_API std::vector<OutlineNode> outline(const ConfigInfo& document);

}  // namespace XMLConfig
