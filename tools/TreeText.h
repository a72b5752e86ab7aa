#pragma once

#include <string>

#include "store/ElementView.h"

namespace tool {

/// An element and what it holds as an indented tree: "Name [ID]" for groups, "Name = text" for values. Text of several
/// lines stands below its name. `depth` is the element's own level.
std::wstring treeText(const XMLConfig::ElementView& element, int depth = 0);

}  // namespace tool
