#include "tools/PicturePaths.h"

#include <algorithm>
#include <cmath>

namespace tool::picture {
namespace {

using svg::Path;
using svg::Point;
using XMLConfig::Channel;
using XMLConfig::EdgeValues;

constexpr double unitsPerRadian = 18000.0 / pi;
constexpr long turn = 36 * tenDegrees;

Path aroundPole(Path path) {
    long heights = 0;
    for (Point& point : path) {
        heights += point.y;
        point.x = point.x - turn * static_cast<long>(std::floor(static_cast<double>(point.x) / turn + 0.5));
    }
    std::sort(path.begin(), path.end(), [](const Point& a, const Point& b) { return a.x < b.x; });
    const long pole = heights < 0 ? -turn / 4 : turn / 4;
    const long end = (path.front().y + path.back().y) / 2;
    path.insert(path.begin(), {{-turn / 2, pole}, {-turn / 2, end}});
    path.insert(path.end(), {{turn / 2, end}, {turn / 2, pole}});
    return path;
}

}  // namespace

Point placeOf(const XMLConfig::Heading& heading) {
    return {std::lround(heading.yaw * unitsPerRadian), -std::lround(heading.pitch * unitsPerRadian)};
}

Path unrolled(const Directions& directions, double firstYaw) {
    Path path;
    double yaw = firstYaw;
    for (const Point_3Dim<double>& direction : directions) {
        const XMLConfig::Heading heading = XMLConfig::headingOf(direction, yaw);
        yaw = heading.yaw;
        path.push_back(placeOf(heading));
    }
    return path;
}

Path curveOf(const Directions& directions, double firstYaw) {
    Path path = unrolled(directions, firstYaw);
    if (path.empty()) return path;
    const double lastYaw = static_cast<double>(path.back().x) / unitsPerRadian;
    const bool isClosed =
        std::labs(placeOf(XMLConfig::headingOf(directions.front(), lastYaw)).x - path.front().x) < turn / 2;
    return isClosed ? path : aroundPole(std::move(path));
}

double drawnYaw(double yaw) { return std::remainder(yaw, XMLConfig::detail::fullTurn); }

Path pathOf(const Channel& channel, const EdgeValues& part, int points) {
    const Directions outline = XMLConfig::outlineOf(channel, part, points);
    const double first = XMLConfig::headingOf(outline.front(), drawnYaw(channel.yaw)).yaw;
    return curveOf(outline, first);
}

Point sightOf(const Channel& channel) { return placeOf({drawnYaw(channel.yaw), XMLConfig::headingOf(channel.sight).pitch}); }

}  // namespace tool::picture
