#include <algorithm>
#include <cmath>

#include "manager/layout/Image.h"

/// How much of a channel's image another channel shows: lines and areas of the image are cut by the planes that bound the
/// other one.
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

/// An image whose edges lie at 0 and 1: areas and places in it are shares of the whole.
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

Line scaled(const Line& line, const EdgeValues& tangents) {
    const auto place = [&](const Point_2Dim<double>& point) {
        return Point_2Dim<double>((point.x - tangents.left) / (tangents.right - tangents.left),
                                  (point.y - tangents.bottom) / (tangents.top - tangents.bottom));
    };
    return {place(line.from), place(line.to)};
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

}  // namespace

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
    overlap.level = shareInside(scaled(lineThroughMiddle(channel, channel.roll), channel.tangents), sides);
    measure(overlap, LinesAcross(sides, overlap.edge), common);
    return overlap;
}

}  // namespace XMLConfig::detail
