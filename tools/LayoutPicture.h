#pragma once

#include <string>

#include "manager/Layout.h"
#include "tools/NumberTexts.h"

namespace tool {

/// The layout as an SVG drawing, the same to the byte for the same layout: yaw across, pitch up, one to one, as seen from
/// the eye point; right is right for the viewer. Each shape has a class, for a style sheet, and a title, for the mouse:
/// "screen", "channel", "blend", "overlap", "camera", "area", and "finding" for gaps, holes and what cannot be drawn.
/// Where the screen has no angles, the parts of the screen that the projectors name are drawn below.
std::string layoutSvg(const XMLConfig::Layout& layout, const Units& units);

}  // namespace tool
