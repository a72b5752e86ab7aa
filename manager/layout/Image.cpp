#include "manager/layout/Image.h"

#include <algorithm>
#include <cmath>

namespace XMLConfig::detail {
namespace {

double pitchOf(const Vector& direction) { return std::atan2(direction.z, std::hypot(direction.x, direction.y)); }

/// The highest pitch (or the lowest, for `sign` -1) between two directions on the great circle through them.
double highestBetween(const Vector& from, const Vector& to, double sign) {
    double highest = std::max(sign * pitchOf(from), sign * pitchOf(to));
    // Between the ends the pitch has its extreme where the derivative of z / |p| along the line is 0, at one point at most.
    const Vector step = minus(to, from);
    const double upper = step.z * dot(from, from) - from.z * dot(from, step);
    const double lower = from.z * dot(step, step) - step.z * dot(from, step);
    if (lower == 0.0) return highest;
    const double share = upper / lower;
    if (share > 0.0 && share < 1.0) highest = std::max(highest, sign * pitchOf(plus(from, times(share, step))));
    return highest;
}

bool holds(const Planes& planes, const Vector& direction) {
    return std::all_of(planes.begin(), planes.end(), [&](const Vector& normal) { return dot(normal, direction) >= 0.0; });
}

double pitchLimit(const Channel& channel, double sign) {
    if (holds(planesOf(channel), {0.0, 0.0, sign})) return sign * pi / 2.0;
    const std::array<Vector, 4> corners = cornersOf(channel);
    double limit = -pi;
    for (std::size_t i = 0; i < corners.size(); ++i)
        limit = std::max(limit, highestBetween(corners[i], corners[(i + 1) % corners.size()], sign));
    return sign * limit;
}

}  // namespace

Planes planesOf(const Channel& channel) {
    const Vector& sight = channel.sight;
    const EdgeValues& edge = channel.tangents;
    return {sight, unit(minus(channel.right, times(edge.left, sight))), unit(minus(times(edge.right, sight), channel.right)),
            unit(minus(times(edge.top, sight), channel.up)), unit(minus(channel.up, times(edge.bottom, sight)))};
}

Vector directionAt(const Channel& channel, double x, double y) {
    return plus(channel.sight, plus(times(x, channel.right), times(y, channel.up)));
}

std::array<Vector, 4> cornersOf(const Channel& channel) {
    const EdgeValues& edge = channel.tangents;
    return {directionAt(channel, edge.left, edge.bottom), directionAt(channel, edge.right, edge.bottom),
            directionAt(channel, edge.right, edge.top), directionAt(channel, edge.left, edge.top)};
}

Line lineThroughMiddle(const Channel& channel, double angle) {
    const EdgeValues& edge = channel.tangents;
    const Point_2Dim<double> middle((edge.left + edge.right) / 2.0, (edge.bottom + edge.top) / 2.0);
    const Point_2Dim<double> along(std::cos(angle), std::sin(angle));
    const double reach =
        std::min((edge.right - edge.left) / (2.0 * std::abs(along.x)), (edge.top - edge.bottom) / (2.0 * std::abs(along.y)));
    return {{middle.x - reach * along.x, middle.y - reach * along.y},
            {middle.x + reach * along.x, middle.y + reach * along.y}};
}

Interval fieldAlong(const Channel& channel, double angle) {
    const Line line = lineThroughMiddle(channel, angle);
    const auto angleOf = [&](const Point_2Dim<double>& end) {
        return std::atan(end.x * std::cos(angle) + end.y * std::sin(angle));
    };
    return {angleOf(line.from), angleOf(line.to)};
}

// Along an edge the yaw only rises or only falls: seen from above, an edge is a straight line.
Interval yawSpanOf(const Channel& channel) {
    const Planes planes = planesOf(channel);
    if (holds(planes, {0.0, 0.0, 1.0}) || holds(planes, {0.0, 0.0, -1.0})) return {channel.yaw - pi, channel.yaw + pi};
    const std::array<Vector, 4> corners = cornersOf(channel);
    const EdgeValues& edge = channel.tangents;
    const Vector middle = directionAt(channel, (edge.left + edge.right) / 2.0, (edge.bottom + edge.top) / 2.0);
    const double centre = headingOf(middle, channel.yaw).yaw;
    Interval span{centre, centre};
    double yaw = headingOf(corners[0], centre).yaw;
    for (std::size_t i = 0; i <= corners.size(); ++i) {
        yaw = headingOf(corners[i % corners.size()], yaw).yaw;
        span.from = std::min(span.from, yaw);
        span.to = std::max(span.to, yaw);
    }
    return span;
}

Interval pitchSpanOf(const Channel& channel) { return {pitchLimit(channel, -1.0), pitchLimit(channel, 1.0)}; }

}  // namespace XMLConfig::detail

namespace XMLConfig {

Heading headingOf(const Point_3Dim<double>& direction, double beside) {
    const double yaw = std::atan2(direction.x, direction.y);
    return {yaw + detail::fullTurn * std::round((beside - yaw) / detail::fullTurn), detail::pitchOf(direction)};
}

std::vector<Point_3Dim<double>> outlineOf(const Channel& channel, const EdgeValues& part, int points) {
    const EdgeValues& edge = channel.tangents;
    const auto at = [&](double x, double y) {
        return detail::directionAt(channel, edge.left + x * (edge.right - edge.left),
                                   edge.bottom + y * (edge.top - edge.bottom));
    };
    const Point_2Dim<double> corners[] = {{part.left, part.bottom},
                                          {part.right, part.bottom},
                                          {part.right, part.top},
                                          {part.left, part.top},
                                          {part.left, part.bottom}};
    std::vector<Point_3Dim<double>> outline;
    for (int side = 0; side < 4; ++side)
        for (int i = 0; i < points; ++i) {
            const Point_2Dim<double> place =
                detail::between(corners[side], corners[side + 1], static_cast<double>(i) / points);
            outline.push_back(at(place.x, place.y));
        }
    return outline;
}

}  // namespace XMLConfig
