#include <algorithm>

#include "tools/LayoutText.h"
#include "tools/PictureParts.h"
#include "tools/PicturePaths.h"

namespace tool::picture {
namespace {

using svg::Path;
using svg::Point;
using XMLConfig::Channel;

/// An upright edge of the image, from the bottom up.
Path edgeOf(const Channel& channel, double side, double yaw) {
    const Directions edge = XMLConfig::outlineOf(channel, {side, side, 1.0, 0.0}, pointsPerEdge);
    const auto begin = edge.begin() + pointsPerEdge;
    const Directions upwards(begin, begin + pointsPerEdge + 1);
    return unrolled(upwards, XMLConfig::headingOf(upwards.front(), yaw).yaw);
}

/// Draws the area between two channels, as far up as they do not overlap.
void drawGap(const Canvas& canvas, const XMLConfig::ChannelGap& gap) {
    const Channel& left = canvas.layout.channels[gap.left];
    const Channel& right = canvas.layout.channels[gap.right];
    const double yaw = drawnYaw(left.yaw) + left.edges.right;
    const Path one = edgeOf(left, 1.0, yaw);
    const Path other = edgeOf(right, 0.0, yaw);
    Path between;
    for (std::size_t i = 0; i < one.size(); ++i)
        if (one[i].x < other[i].x) between.push_back(one[i]);
    for (std::size_t i = one.size(); i-- > 0;)
        if (one[i].x < other[i].x) between.push_back(other[i]);
    if (between.empty()) return;
    const std::wstring width = canvas.units.angle(gap.width);
    svg::addPath(canvas.root, svg::pathData(between), "finding gap",
                 width + L" gap between " + nameOf(left) + L" and " + nameOf(right) + L"\n" + left.id + L"\n" + right.id);
    const Point below{(between.front().x + between.back().x) / 2, std::max(between.front().y, between.back().y)};
    svg::addText(canvas.root, {below.x, below.y + canvas.font * 5 / 4}, width, "alarm");
}

}  // namespace

void drawGaps(const Canvas& canvas) {
    for (const XMLConfig::ChannelRow& row : canvas.layout.rows)
        for (const XMLConfig::ChannelGap& gap : row.gaps) drawGap(canvas, gap);
}

void drawHoles(const Canvas& canvas) {
    if (!canvas.layout.coverage) return;
    for (const XMLConfig::UncoveredPart& part : canvas.layout.coverage->uncovered) {
        if (!part.isHole) continue;
        std::string data;
        for (const XMLConfig::ScreenPatch& patch : part.patches) {
            const int points = 1 + static_cast<int>((patch.theta.to - patch.theta.from) / (pi / 18.0));
            data += svg::pathData(
                curveOf(XMLConfig::outlineOf(canvas.layout.screen, canvas.eye, patch, points), drawnYaw(patch.theta.from)));
        }
        svg::addPath(canvas.root, data, "finding hole", percentText(part.share) + L" of the screen, in no channel");
    }
}

void drawNotes(Canvas& canvas) {
    for (const Channel& channel : canvas.layout.channels) {
        if (isUsable(channel)) continue;
        svg::addText(canvas.root, {canvas.frame.left, canvas.end + canvas.font},
                     L"Not drawn: " + nameOf(channel) + L": " + faultOf(channel, canvas.units), "alarm", "start");
        canvas.end += canvas.font * 3 / 2;
    }
}

}  // namespace tool::picture
