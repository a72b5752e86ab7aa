#pragma once

#include "store/XmlLibrary.h"

/// Joins nodes to the tree and takes them out of it.
///
/// The XML library's own functions for this ask every node that they touch several times for its class, which costs more
/// than making the node. These set the same links and nothing else, so that no live range or node iterator may watch the
/// tree; the store makes none.
namespace XMLConfig::detail {

/// `child`, which has no parent, becomes the last child of an element of its document.
void append(xercesc::DOMElement& parent, xercesc::DOMNode& child);
/// `child` leaves `parent`. Throws DOMException (NOT_FOUND_ERR), as the XML library does, when it is no child of it.
void unlink(xercesc::DOMElement& parent, xercesc::DOMNode& child);

}  // namespace XMLConfig::detail
