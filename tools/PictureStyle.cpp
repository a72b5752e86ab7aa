#include "tools/PictureStyle.h"

#include <algorithm>
#include <string>

namespace tool {
namespace {

// Lengths in em: all grow with the font.
const char* const style = R"(
text{fill:#222;font-family:sans-serif}
.ground{fill:#fff}
.grid{stroke:#ddd;stroke-width:.06em;fill:none}
.figure,.heading{font-size:.8em}
.name{font-weight:bold}
.overlap{font-size:.9em;font-style:italic}
.screen{fill:#f3eee0;stroke:#777;stroke-width:.12em;stroke-dasharray:.5em .35em}
.channel,.area{fill-opacity:.15;stroke-width:.14em}
.blend{fill-opacity:.3;stroke:none}
.sight{stroke-width:.1em;fill:none}
.c0{fill:#0072b2;stroke:#0072b2}
.c1{fill:#e69f00;stroke:#e69f00}
.c2{fill:#009e73;stroke:#009e73}
.c3{fill:#cc79a7;stroke:#cc79a7}
.c4{fill:#56b4e9;stroke:#56b4e9}
.camera{fill:#fff;stroke:#222;stroke-width:.12em}
.link{stroke:#222;stroke-width:.08em;stroke-dasharray:.08em .35em;stroke-linecap:round;fill:none}
.finding{fill:#d40000;stroke:#d40000;stroke-width:.1em}
.gap{fill-opacity:.35}
.hole{fill:url(#hatching);stroke:none}
.alarm{fill:#d40000;font-weight:bold}
.strokes{stroke:#d40000;stroke-width:2;fill:none}
@media(prefers-color-scheme:dark){
text{fill:#e8e8e8}
.ground{fill:#17191d}
.grid{stroke:#34373d}
.screen{fill:#2a2822;stroke:#a0a0a0}
.channel,.area{fill-opacity:.22}
.c0{fill:#4c9be8;stroke:#4c9be8}
.c1{fill:#f0b030;stroke:#f0b030}
.c2{fill:#26c99a;stroke:#26c99a}
.c3{fill:#e39bc3;stroke:#e39bc3}
.c4{fill:#9fd8f7;stroke:#9fd8f7}
.camera{fill:#17191d;stroke:#e8e8e8}
.link{stroke:#e8e8e8}
.finding,.strokes{stroke:#ff6b5e}
.gap{fill:#ff6b5e}
.alarm{fill:#ff6b5e}
}
)";

}  // namespace

void pictureStyle(pugi::xml_node svg, long fontSize) {
    svg.append_child("style").text() = style;
    pugi::xml_node pattern = svg.append_child("pattern");
    pattern.append_attribute("id") = "hatching";
    pattern.append_attribute("patternUnits") = "userSpaceOnUse";
    pattern.append_attribute("width") = "10";
    pattern.append_attribute("height") = "10";
    const std::string scale = "scale(" + std::to_string(std::max(1L, fontSize / 20)) + ")";
    pattern.append_attribute("patternTransform") = scale.c_str();
    pugi::xml_node strokes = pattern.append_child("path");
    strokes.append_attribute("class") = "strokes";
    strokes.append_attribute("d") = "M0 10L10 0M-2 2L2 -2M8 12L12 8";
}

}  // namespace tool
