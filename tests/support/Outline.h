#pragma once

#include <string>
#include <utility>
#include <vector>

#include "store/ElementView.h"

/// A document's elements as plain values, to compare whole documents and to keep what one held before it changed.
namespace XMLConfig::tests {

struct OutlineNode {
    std::wstring name;                                              ///< the tag
    std::vector<std::pair<std::wstring, std::wstring>> attributes;  ///< name and value, by name
    std::wstring text;                                              ///< what an element without child elements holds
    std::vector<OutlineNode> children;                              ///< child elements, in document order

    /// The "ID" attribute's value; "" when there is none.
    std::wstring id() const {
        for (const auto& [attribute, value] : attributes)
            if (attribute == L"ID") return value;
        return L"";
    }
};

inline OutlineNode outline(const ElementView& element) {
    OutlineNode node{element.name(), element.attributes(), L"", {}};
    for (const ElementView& child : element.children()) node.children.push_back(outline(child));
    if (node.children.empty()) node.text = element.text();
    return node;
}

/// Of the root's child elements: header elements and sections.
inline std::vector<OutlineNode> outline(const ConfigInfo& document) { return outline(rootElement(document)).children; }

}  // namespace XMLConfig::tests
