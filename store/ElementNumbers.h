#pragma once

#include <cstddef>
#include <vector>

#include "store/ElementView.h"
#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

struct NumberedElement {
    std::size_t index;   ///< among those that were asked for
    std::size_t number;  ///< in the tree, in document order; the root's is 0
};

/// The numbers of those elements that are in the tree, in document order, found in one walk. One that is asked for twice is
/// told twice.
std::vector<NumberedElement> numbered(const std::vector<ElementView>& elements, const xercesc::DOMElement& root);

}  // namespace XMLConfig::detail
