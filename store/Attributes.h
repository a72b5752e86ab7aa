#pragma once

#include <string_view>

#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

/// The value of an attribute, good until that changes. Nearly every value is one text, which is read by its links: the
/// library's getValue first asks it four times for its class.
std::u16string_view valueOf(const xercesc::DOMNode& attribute);

/// The "ID" attribute; null where the element has none.
const xercesc::DOMAttr* idAttributeOf(const xercesc::DOMElement& element);
/// Its value, good until that changes; "" where the element has none.
std::u16string_view idTextOf(const xercesc::DOMElement& element);

}  // namespace XMLConfig::detail
