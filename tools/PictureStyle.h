#pragma once

#include <cstddef>

#include <pugixml.hpp>

namespace tool {

/// How many colours of channels there are: classes "c0", "c1" and so on.
inline constexpr std::size_t pictureColours = 5;

/// Adds the style sheet, for light and dark, and the hatching, in proportion to the font. The colours can be told apart by
/// the colour-blind; red is for findings alone, which have a word or a shape of their own as well.
void pictureStyle(pugi::xml_node svg, long fontSize);

}  // namespace tool
