#include <algorithm>
#include <cmath>

#include "tools/LayoutText.h"
#include "tools/PictureParts.h"
#include "tools/PicturePaths.h"

namespace tool::picture {

using svg::Path;
using svg::Point;
using XMLConfig::Channel;
using XMLConfig::EdgeValues;

namespace {

XMLConfig::Heading directionOf(const Canvas& canvas, const XMLConfig::CameraPlace& camera) {
    const Point_3Dim<double>& at = *camera.position;
    return XMLConfig::headingOf({at.x - canvas.eye.x, at.y - canvas.eye.y, at.z - canvas.eye.z});
}

std::wstring directionText(const Canvas& canvas, const XMLConfig::CameraPlace& camera) {
    const XMLConfig::Heading direction = directionOf(canvas, camera);
    return canvas.units.angle(direction.yaw) + L" / " + canvas.units.angle(direction.pitch);
}

}  // namespace

Point placeOfCamera(const Canvas& canvas, const XMLConfig::CameraPlace& camera) {
    return placeOf(directionOf(canvas, camera));
}

void drawCameras(const Canvas& canvas) {
    for (const XMLConfig::CameraPlace& camera : canvas.layout.cameras) {
        if (!camera.position) continue;
        const Point at = placeOfCamera(canvas, camera);
        for (const Channel& channel : canvas.layout.channels)
            if (isUsable(channel) &&
                std::find(channel.cameras.begin(), channel.cameras.end(), camera.id) != channel.cameras.end())
                svg::addLine(canvas.root, at, sightOf(channel), "link",
                             identityOf(camera.name, camera.id) + L"\n" + identityOf(channel.name, channel.id));
        const long arm = canvas.font / 2;
        svg::addPath(canvas.root, svg::pathData({{at.x, at.y - arm}, {at.x + arm, at.y + arm}, {at.x - arm, at.y + arm}}),
                     "camera", identityOf(camera.name, camera.id) + L"\n" + directionText(canvas, camera));
        const bool isLeft = 2 * at.x < canvas.frame.left + canvas.frame.right;
        svg::addText(canvas.root, {isLeft ? at.x - arm : at.x + arm, at.y + 2 * canvas.font},
                     camera.name.empty() ? camera.id : camera.name, "heading", isLeft ? "start" : "end");
    }
}

void drawAreas(Canvas& canvas) {
    const auto isSet = [](const Channel& channel) {
        const EdgeValues& area = channel.screenArea;
        return area.left >= 0.0 && area.right <= 1.0 && area.left < area.right && area.top >= 0.0 && area.bottom <= 1.0 &&
               area.top < area.bottom;
    };
    if (std::none_of(canvas.layout.channels.begin(), canvas.layout.channels.end(), isSet)) return;
    const long width = canvas.frame.right - canvas.frame.left;
    const long height = width / 4;
    const long top = canvas.end + canvas.font * 3 / 2;
    const auto pathOfArea = [&](const EdgeValues& area) {
        const long left = canvas.frame.left + std::lround(area.left * static_cast<double>(width));
        const long right = canvas.frame.left + std::lround(area.right * static_cast<double>(width));
        const long from = top + std::lround(area.top * static_cast<double>(height));
        const long to = top + std::lround(area.bottom * static_cast<double>(height));
        return Path{{left, from}, {right, from}, {right, to}, {left, to}};
    };
    svg::addText(canvas.root, {canvas.frame.left, top - canvas.font / 2}, L"Parts of the screen", "heading", "start");
    svg::addPath(canvas.root, svg::pathData(pathOfArea({0.0, 1.0, 0.0, 1.0})), "screen", canvas.layout.screen.shape);
    for (std::size_t i = 0; i < canvas.layout.channels.size(); ++i) {
        const Channel& channel = canvas.layout.channels[i];
        if (!isSet(channel)) continue;
        const EdgeValues& area = channel.screenArea;
        const Path path = pathOfArea(area);
        svg::addPath(canvas.root, svg::pathData(path), "area " + colourOf(i),
                     identityOf(channel.name, channel.id) + L"\n" + numberText(area.left, 4) + L" to " +
                         numberText(area.right, 4) + L" across, " + numberText(area.top, 4) + L" to " +
                         numberText(area.bottom, 4) + L" down");
        svg::addText(canvas.root, {(path[0].x + path[2].x) / 2, (path[0].y + path[2].y) / 2 + canvas.font / 3},
                     nameOf(channel), "name");
    }
    canvas.end = top + height + canvas.font;
}

}  // namespace tool::picture
