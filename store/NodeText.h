#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "store/XmlLibrary.h"

/// The texts that elements and attributes hold, read where they stand in the tree. A view is good until the tree changes.
namespace XMLConfig::detail {

/// The text of an element or attribute that holds one piece of text and nothing else.
std::optional<std::u16string_view> onlyText(const xercesc::DOMNode& parent);
/// The text of an element with that of everything inside it. The view is into the tree where the element holds one piece
/// of text, else into `buffer`, with which it changes.
std::u16string_view textOf(const xercesc::DOMElement& element, std::u16string& buffer);
bool hasText(const xercesc::DOMElement& element, const std::wstring& text);
std::wstring wideTextOf(const xercesc::DOMElement& element);

/// The value of an attribute. Nearly every value is one text, which is read by its links: the library's getValue first asks
/// it four times for its class.
std::u16string_view valueOf(const xercesc::DOMNode& attribute);
/// The "ID" attribute; null where the element has none.
const xercesc::DOMAttr* idAttributeOf(const xercesc::DOMElement& element);
/// Its value; "" where the element has none.
std::u16string_view idTextOf(const xercesc::DOMElement& element);
/// Whether both have attributes of the same names and values, in whatever order.
bool haveEqualAttributes(const xercesc::DOMElement& one, const xercesc::DOMElement& other);

}  // namespace XMLConfig::detail
