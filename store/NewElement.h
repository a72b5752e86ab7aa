#pragma once

#include <string>

#include "store/ElementItem.h"
#include "store/Tree.h"

namespace XMLConfig::detail {

/// The nodes of an element that is to be stored, which are no part of the tree yet.
struct NewElement {
    LooseElement element;
    int levels = 0;      ///< of nested elements, itself counted
    int namespaces = 0;  ///< declared at most in one of its elements and those around that
};

/// Whether a parser would read the element back from its XML text as it is.
bool isPlain(const StoredElement& element);
/// Makes nodes of an element that is plain.
NewElement makeElement(const StoredElement& element, Tree& tree);
/// Parses an element given as UTF-8. Throws ParseFailure for anything but one element.
NewElement readElement(const std::string& text, Tree& tree);

}  // namespace XMLConfig::detail
