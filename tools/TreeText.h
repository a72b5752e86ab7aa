#pragma once

#include <string>
#include <unordered_map>

#include "store/ElementView.h"

namespace XMLConfig {
struct Address;
}

namespace tool {

class Showing;

/// What people read instead of the stored texts, by the elements that hold these.
using ShownTexts = std::unordered_map<XMLConfig::ElementView, std::wstring, XMLConfig::ElementView::Hash>;

/// The numbers at and below an element, which stands at the place, as people read them.
ShownTexts shownNumbers(const XMLConfig::ElementView& element, const XMLConfig::Address& place, const Showing& showing);

/// An element and what it holds as an indented tree: "Name [ID]" for groups, "Name = text" for values; the text is the
/// stored one where the element has no other. Text of several lines stands below its name. `depth` is the element's own
/// level.
std::wstring treeText(const XMLConfig::ElementView& element, const ShownTexts& shown = {}, int depth = 0);

}  // namespace tool
