#include <algorithm>
#include <cmath>

#include "tools/LayoutText.h"
#include "tools/PictureParts.h"
#include "tools/PicturePaths.h"

namespace tool::picture {
namespace {

using svg::Path;
using svg::Point;
using XMLConfig::Channel;

/// The edge of the image that lies to the right, or to the left, from the bottom up. Which one that is depends on the roll.
Path edgeOf(const Channel& channel, bool isRight, double yaw) {
    Directions outline =
        XMLConfig::outlineOf(channel, wholeImage, pointsPerEdge);  // begins at the bottom left, then to the right
    outline.push_back(outline.front());
    const long quarterTurns = std::lround(channel.roll / (pi / 2.0));
    const long edge = (quarterTurns + (isRight ? 1 : 3)) % 4;
    const auto begin = outline.begin() + (edge < 0 ? edge + 4 : edge) * pointsPerEdge;
    Directions upwards(begin, begin + pointsPerEdge + 1);
    if (!isRight) std::reverse(upwards.begin(), upwards.end());
    return unrolled(upwards, XMLConfig::headingOf(upwards.front(), yaw).yaw);
}

/// Draws the area between two channels, as far up as they do not overlap.
void drawGap(const Canvas& canvas, const XMLConfig::ChannelGap& gap) {
    const Channel& left = canvas.layout.channels[gap.left];
    const Channel& right = canvas.layout.channels[gap.right];
    const double yaw = drawnYaw(left.yaw) + left.levelField.to;
    const Path one = edgeOf(left, true, yaw);
    const Path other = edgeOf(right, false, yaw);
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
