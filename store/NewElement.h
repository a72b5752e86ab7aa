#pragma once

#include <string>

#include "store/ElementParts.h"
#include "store/Tree.h"

namespace XMLConfig::detail {

/// An element that is to be stored.
struct NewElement {
    LooseElement element;
    int depth = 0;       ///< levels of nested elements, itself counted
    int namespaces = 0;  ///< declared at most in one of its elements and those around that
};

/// Makes nodes of parts that are plain.
NewElement makeElement(const ElementParts& parts, Tree& tree);
/// Parses an element given as UTF-8. Throws ParseFailure for anything but one element.
NewElement readElement(const std::string& text, Tree& tree);

}  // namespace XMLConfig::detail
