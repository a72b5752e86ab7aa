#pragma once

#include <vector>

#include "base/Angles.h"
#include "manager/Layout.h"
#include "tools/Svg.h"

/// From directions that the eye looks in to places in the picture: yaw across, pitch up, a hundred units to a degree.
namespace tool::picture {

using Directions = std::vector<Point_3Dim<double>>;

using XMLConfig::detail::pi;

constexpr long tenDegrees = 1000;
constexpr int pointsPerEdge = 24;
constexpr XMLConfig::EdgeValues wholeImage{0.0, 1.0, 1.0, 0.0};

svg::Point placeOf(const XMLConfig::Heading& heading);
/// Points as they follow one another, without a jump from one to the next.
svg::Path unrolled(const Directions& directions, double firstYaw);
/// The closed curve that directions draw. One that goes round the zenith or the nadir runs from the left edge of the picture
/// to the right one, and along the pole.
svg::Path curveOf(const Directions& directions, double firstYaw);
/// The yaw from half a turn to the left to half a turn to the right.
double drawnYaw(double yaw);
/// The outline of a part of a channel's image.
svg::Path pathOf(const XMLConfig::Channel& channel, const XMLConfig::EdgeValues& part, int points);
/// The line of sight.
svg::Point sightOf(const XMLConfig::Channel& channel);

}  // namespace tool::picture
