#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "manager/Layout.h"
#include "tools/NumberTexts.h"
#include "tools/Svg.h"

/// What the picture of a layout is made of; each is drawn over those before it.
namespace tool::picture {

/// What all parts are drawn on and by.
struct Canvas {
    const XMLConfig::Layout& layout;
    const Units& units;
    Point_3Dim<double> eye;           ///< from where all is seen
    std::vector<svg::Path> channels;  ///< empty for those that are not usable
    svg::Frame frame;
    long font = 0;
    long end = 0;  ///< how far down is drawn
    pugi::xml_node root;
};

bool isUsable(const XMLConfig::Channel& channel);
/// The class of the colour that a projector of that index has.
std::string colourOf(std::size_t index);

/// The name and the ID of a device, a line each; the ID alone where it has no name.
std::wstring identityOf(const std::wstring& name, const std::wstring& id);

/// The images, their blends and names.
void drawChannels(const Canvas& canvas);
/// How much any two overlap along a whole edge; smaller overlaps are in the tables.
void drawOverlaps(const Canvas& canvas);
void drawGaps(const Canvas& canvas);
void drawHoles(const Canvas& canvas);
/// Cameras of known places, with lines to the projectors that name them.
void drawCameras(const Canvas& canvas);
svg::Point placeOfCamera(const Canvas& canvas, const XMLConfig::CameraPlace& camera);
/// The parts of the screen on the unit square, as wide as the picture and a quarter as high.
void drawAreas(Canvas& canvas);
/// Why channels are not drawn.
void drawNotes(Canvas& canvas);

}  // namespace tool::picture
