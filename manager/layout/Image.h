#pragma once

#include <array>
#include <vector>

#include "manager/Layout.h"
#include "manager/layout/Vector.h"

/// A channel's image as a plane, and what of it another channel shows.
namespace XMLConfig::detail {

/// The planes through the eye that bound a channel: before the eye, right of the left edge, left of the right one, below
/// the top one, above the bottom one. A direction is in the channel where its product with none of these normals, of
/// length 1, is negative.
using Planes = std::array<Vector, 5>;
Planes planesOf(const Channel& channel);

/// The direction that the image holds at x, y.
Vector directionAt(const Channel& channel, double x, double y);

/// Bottom left, bottom right, top right, top left.
std::array<Vector, 4> cornersOf(const Channel& channel);

/// A line of an image.
struct Line {
    Point_2Dim<double> from;
    Point_2Dim<double> to;
};
/// The line through the image's middle that is turned against its lower edge by that angle, as far as the image goes. Turned
/// by the channel's roll, it is level and runs from left to right.
Line lineThroughMiddle(const Channel& channel, double angle);
/// What angles off the line of sight that line spans.
Interval fieldAlong(const Channel& channel, double angle);

/// What the image's outline reaches.
Interval yawSpanOf(const Channel& channel);
Interval pitchSpanOf(const Channel& channel);

/// How another channel, given by its planes, lies over this one's image. All zeros where it does not.
Overlap overlapOn(const Channel& channel, const Planes& other);

}  // namespace XMLConfig::detail
