#include "manager/layout/Image.h"

#include <algorithm>
#include <cmath>

namespace XMLConfig::detail {
namespace {

/// Tells what lies on which side of a plane through the eye, at a point of an image: not negative is inside.
struct Side {
    double constant;
    double perX;
    double perY;
    [[nodiscard]] double at(const Point_2Dim<double>& point) const { return constant + perX * point.x + perY * point.y; }
};
using Sides = std::array<Side, 5>;

/// A polygon without dents: four corners and one more for each plane that cuts it.
class Polygon {
public:
    Polygon() = default;
    Polygon(std::initializer_list<Point_2Dim<double>> corners) {
        for (const Point_2Dim<double>& corner : corners) push_back(corner);
    }
    void push_back(const Point_2Dim<double>& corner) {
        if (m_size < m_corners.size()) m_corners[m_size++] = corner;
    }
    [[nodiscard]] std::size_t size() const { return m_size; }
    const Point_2Dim<double>& operator[](std::size_t i) const { return m_corners[i]; }
    [[nodiscard]] const Point_2Dim<double>* begin() const { return m_corners.data(); }
    [[nodiscard]] const Point_2Dim<double>* end() const { return m_corners.data() + m_size; }

private:
    std::array<Point_2Dim<double>, 16> m_corners;
    std::size_t m_size = 0;
};

Sides sidesOn(const Channel& channel, const Planes& planes) {
    Sides sides{};
    for (std::size_t i = 0; i < planes.size(); ++i)
        sides[i] = {dot(planes[i], channel.sight), dot(planes[i], channel.right), dot(planes[i], channel.up)};
    return sides;
}

Point_2Dim<double> between(const Point_2Dim<double>& from, const Point_2Dim<double>& to, double share) {
    return {from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
}

/// A line of an image, from one edge to the opposite one.
struct Line {
    Point_2Dim<double> from;
    Point_2Dim<double> to;
};

/// The share of the line that lies inside all planes.
double shareInside(const Line& line, const Sides& sides) {
    constexpr double parallel = 1e-12;  // along a plane, but for the rounding
    double begin = 0.0;
    double end = 1.0;
    for (const Side& side : sides) {
        const double first = side.at(line.from);
        const double last = side.at(line.to);
        if (std::abs(last - first) < parallel) {
            if (first < -parallel) return 0.0;
        } else if (last > first) {
            begin = std::max(begin, first / (first - last));
        } else {
            end = std::min(end, first / (first - last));
        }
    }
    return std::max(0.0, end - begin);
}

Polygon cutBy(const Side& side, const Polygon& polygon) {
    Polygon kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point_2Dim<double>& point = polygon[i];
        const Point_2Dim<double>& next = polygon[i + 1 < polygon.size() ? i + 1 : 0];
        const double here = side.at(point);
        const double there = side.at(next);
        if (here >= 0.0) kept.push_back(point);
        if ((here < 0.0) != (there < 0.0)) kept.push_back(between(point, next, here / (here - there)));
    }
    return kept;
}

/// An image whose edges lie at 0 and 1: all that is reckoned here are shares.
struct Shares {
    double area = 0.0;
    Point_2Dim<double> centre;
};

Shares sharesOf(const Polygon& polygon) {
    Shares shares;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point_2Dim<double>& a = polygon[i];
        const Point_2Dim<double>& b = polygon[(i + 1) % polygon.size()];
        const double twice = a.x * b.y - b.x * a.y;
        shares.area += twice / 2.0;
        shares.centre.x += twice * (a.x + b.x) / 6.0;
        shares.centre.y += twice * (a.y + b.y) / 6.0;
    }
    if (shares.area > 0.0) shares.centre = {shares.centre.x / shares.area, shares.centre.y / shares.area};
    return shares;
}

ImageEdge edgeBeside(const Point_2Dim<double>& centre) {
    constexpr double rounding = 1e-9;
    const double x = std::abs(centre.x - 0.5) < rounding ? 0.0 : centre.x - 0.5;
    const double y = std::abs(centre.y - 0.5) < rounding ? 0.0 : centre.y - 0.5;
    if (std::abs(x) >= std::abs(y)) return x < 0.0 ? ImageEdge::Left : ImageEdge::Right;
    return y < 0.0 ? ImageEdge::Bottom : ImageEdge::Top;
}

/// The sides as they lie on an image whose edges are at 0 and 1.
Sides scaled(const Sides& sides, const EdgeValues& tangents) {
    Sides result{};
    for (std::size_t i = 0; i < sides.size(); ++i)
        result[i] = {sides[i].at({tangents.left, tangents.bottom}), sides[i].perX * (tangents.right - tangents.left),
                     sides[i].perY * (tangents.top - tangents.bottom)};
    return result;
}

constexpr double firstLine = 0.05;
constexpr double lastLine = 0.95;
constexpr double fullShare = 0.9;

/// The share of an image that another one covers, along lines from edge to edge.
class LinesAcross {
public:
    LinesAcross(const Sides& sides, ImageEdge edge)
        : m_sides(sides), m_isHorizontal(edge == ImageEdge::Left || edge == ImageEdge::Right) {}

    [[nodiscard]] double shareAt(double place) const {
        const Line line = m_isHorizontal ? Line{{0.0, place}, {1.0, place}} : Line{{place, 0.0}, {place, 1.0}};
        return shareInside(line, m_sides);
    }
    [[nodiscard]] double placeOf(const Point_2Dim<double>& point) const { return m_isHorizontal ? point.y : point.x; }

private:
    const Sides& m_sides;
    bool m_isHorizontal;
};

/// The common area has no dents: between two of its corners the share changes evenly. It is least on the first or the last
/// line, and most on one of them or at a corner.
void measure(Overlap& overlap, const LinesAcross& lines, const Polygon& common) {
    double from = lastLine;
    double to = firstLine;
    const double first = lines.shareAt(firstLine);
    const double last = lines.shareAt(lastLine);
    overlap.middle = lines.shareAt(0.5);
    overlap.least = std::min(first, last);
    overlap.most = std::max({first, last, overlap.middle});
    for (const Point_2Dim<double>& corner : common) {
        const double place = lines.placeOf(corner);
        from = std::min(from, std::max(place, firstLine));
        to = std::max(to, std::min(place, lastLine));
        if (place > firstLine && place < lastLine) overlap.most = std::max(overlap.most, lines.shareAt(place));
    }
    overlap.isFull = to - from > fullShare * (lastLine - firstLine);
}

double pitchOf(const Vector& direction) { return std::atan2(direction.z, std::hypot(direction.x, direction.y)); }

/// The highest pitch (or the lowest, for `sign` -1) between two directions on the great circle through them.
double highestBetween(const Vector& from, const Vector& to, double sign) {
    double highest = std::max(sign * pitchOf(from), sign * pitchOf(to));
    // Between the two the pitch turns where the slope of z / |p| is 0, which is at one point of the line at most.
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

Overlap overlapOn(const Channel& channel, const Planes& other) {
    const Sides sides = scaled(sidesOn(channel, other), channel.tangents);
    Polygon common = {{0.0, 0.0}, {1.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}};
    for (const Side& side : sides)
        if (common.size() > 0) common = cutBy(side, common);
    const Shares shares = sharesOf(common);
    Overlap overlap;
    if (shares.area <= 0.0) return overlap;
    overlap.area = std::min(1.0, shares.area);
    overlap.edge = edgeBeside(shares.centre);
    overlap.across = LinesAcross(sides, ImageEdge::Left).shareAt(0.5);
    measure(overlap, LinesAcross(sides, overlap.edge), common);
    return overlap;
}

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
