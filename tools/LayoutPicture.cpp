#include "tools/LayoutPicture.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "platform/Utf8.h"
#include "tools/LayoutText.h"
#include "tools/PictureStyle.h"
#include "tools/Svg.h"

namespace tool {
namespace {

using XMLConfig::Channel;
using XMLConfig::ChannelState;
using XMLConfig::EdgeValues;
using XMLConfig::Layout;
using XMLConfig::ScreenPatch;
using Directions = std::vector<Point_3Dim<double>>;
using svg::Path;
using svg::Point;

constexpr double pi = 3.14159265358979323846;
constexpr double unitsPerRadian = 18000.0 / pi;  // a hundred units to a degree
constexpr long tenDegrees = 1000;
constexpr long turn = 36 * tenDegrees;
constexpr int pointsPerEdge = 24;
constexpr int pointsPerBlendEdge = 8;
constexpr EdgeValues wholeImage{0.0, 1.0, 1.0, 0.0};

Point placeOf(const XMLConfig::Heading& heading) {
    return {std::lround(heading.yaw * unitsPerRadian), -std::lround(heading.pitch * unitsPerRadian)};
}

/// Points as they follow one another, without a jump from one to the next.
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

/// Draws a curve that goes round the zenith or the nadir: from the left edge of the picture to the right one, and along the
/// pole.
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

/// The curve that directions draw.
Path curveOf(const Directions& directions, double firstYaw) {
    Path path = unrolled(directions, firstYaw);
    if (path.empty()) return path;
    const double lastYaw = static_cast<double>(path.back().x) / unitsPerRadian;
    const bool isClosed =
        std::labs(placeOf(XMLConfig::headingOf(directions.front(), lastYaw)).x - path.front().x) < turn / 2;
    return isClosed ? path : aroundPole(std::move(path));
}

/// The yaw from half a turn to the left to half a turn to the right.
double drawnYaw(double yaw) { return std::remainder(yaw, 2.0 * pi); }

Path pathOf(const Channel& channel, const EdgeValues& part, int points) {
    const Directions outline = XMLConfig::outlineOf(channel, part, points);
    const double first = XMLConfig::headingOf(outline.front(), drawnYaw(channel.yaw)).yaw;
    return curveOf(outline, first);
}

Point sightOf(const Channel& channel) { return placeOf({drawnYaw(channel.yaw), XMLConfig::headingOf(channel.sight).pitch}); }

bool isUsable(const Channel& channel) { return channel.state == ChannelState::Usable; }

class Picture {
public:
    Picture(const Layout& layout, const Units& units) : m_layout(layout), m_units(units) {
        const auto first = std::find_if(layout.channels.begin(), layout.channels.end(), isUsable);
        m_eye = first == layout.channels.end() ? layout.targetEyePoint : first->eyePoint;
    }

    std::string draw() {
        m_screen = screenPath();
        for (const Channel& channel : m_layout.channels)
            m_channels.push_back(isUsable(channel) ? pathOf(channel, wholeImage, pointsPerEdge) : Path());
        findFrame();
        m_root = m_document.append_child("svg");
        m_root.append_attribute("xmlns") = "http://www.w3.org/2000/svg";
        m_root.append_attribute("viewBox");
        m_root.append_attribute("font-size") = std::to_string(m_font).c_str();
        pictureStyle(m_root, m_font);
        m_ground = m_root.append_child("rect");
        drawGrid();
        drawScreen();
        drawChannels();
        drawOverlaps();
        drawGaps();
        drawHoles();
        drawCameras();
        if (m_screen.empty()) drawAreas();
        drawNotes();
        setViewBox();
        std::ostringstream out;
        m_document.save(out, " ", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
        return out.str();
    }

private:
    static std::string colourOf(std::size_t index) { return "c" + std::to_string(index % pictureColours); }

    [[nodiscard]] Path screenPath() const {
        const std::optional<ScreenPatch> limits = XMLConfig::limitsOf(m_layout.screen);
        if (!limits) return {};
        const Directions outline = XMLConfig::outlineOf(m_layout.screen, m_eye, *limits, 2 * pointsPerEdge);
        return unrolled(outline, limits->theta.from);
    }

    [[nodiscard]] Point placeOfCamera(const XMLConfig::CameraPlace& camera) const {
        const Point_3Dim<double>& at = *camera.position;
        return placeOf(XMLConfig::headingOf({at.x - m_eye.x, at.y - m_eye.y, at.z - m_eye.z}));
    }

    void findFrame() {
        m_frame = {-tenDegrees, tenDegrees, -tenDegrees, tenDegrees};
        const auto take = [this](const Point& point) {
            m_frame.left = std::min(m_frame.left, point.x);
            m_frame.right = std::max(m_frame.right, point.x);
            m_frame.top = std::min(m_frame.top, point.y);
            m_frame.bottom = std::max(m_frame.bottom, point.y);
        };
        long narrowest = m_frame.right - m_frame.left;
        for (const Path& path : m_channels) {
            if (path.empty()) continue;
            const auto byX = [](const Point& a, const Point& b) { return a.x < b.x; };
            const auto ends = std::minmax_element(path.begin(), path.end(), byX);
            narrowest = std::max(narrowest, ends.second->x - ends.first->x);
            std::for_each(path.begin(), path.end(), take);
        }
        std::for_each(m_screen.begin(), m_screen.end(), take);
        for (const XMLConfig::CameraPlace& camera : m_layout.cameras)
            if (camera.position) take(placeOfCamera(camera));
        m_frame = {roundedDown(m_frame.left), -roundedDown(-m_frame.right), roundedDown(m_frame.top),
                   -roundedDown(-m_frame.bottom)};
        m_font = fontFor(narrowest);
        m_end = m_frame.bottom + 2 * m_font;
    }

    static long roundedDown(long value) {
        return (value >= 0 ? value / tenDegrees : -((-value + tenDegrees - 1) / tenDegrees)) * tenDegrees;
    }

    /// To be read where the picture is as wide as a page, and to fit into a channel.
    [[nodiscard]] long fontFor(long channelWidth) const {
        const long wanted = std::max((m_frame.right - m_frame.left) / 60, (m_frame.bottom - m_frame.top) / 40);
        return std::clamp(std::min(wanted, channelWidth / 6), 60L, 480L);
    }

    void drawGrid() {
        pugi::xml_node grid = m_root.append_child("g");
        for (long x = m_frame.left; x <= m_frame.right; x += tenDegrees) {
            svg::addLine(grid, {x, m_frame.top}, {x, m_frame.bottom}, "grid");
            if (x % (3 * tenDegrees) == 0) svg::addText(grid, {x, m_frame.bottom + m_font * 5 / 4}, figure(x), "figure");
        }
        for (long y = m_frame.top; y <= m_frame.bottom; y += tenDegrees) {
            svg::addLine(grid, {m_frame.left, y}, {m_frame.right, y}, "grid");
            svg::addText(grid, {m_frame.left - m_font / 2, y + m_font / 3}, figure(-y), "figure", "end");
        }
    }

    static std::wstring figure(long units) { return std::to_wstring(10 * units / tenDegrees) + L"°"; }

    void drawScreen() {
        if (m_screen.empty()) return;
        std::wstring title =
            m_layout.screen.shape + L", radius " + m_units.length(m_layout.screen.radius) + L" " + m_units.lengthUnit();
        if (m_layout.coverage) title += L", " + percentText(m_layout.coverage->inNone) + L" in no channel";
        svg::addPath(m_root, svg::pathData(m_screen), "screen", title);
    }

    [[nodiscard]] std::wstring titleOf(const Channel& channel) const {
        const EdgeValues& edges = channel.edges;
        return nameOf(channel) + L"\n" + channel.id + L"\n" + headingText(channel, m_units) + L", " +
               fieldText(edges, m_units) + L"\nyaw " + spanText(channel.yawSpan, m_units) + L"\npitch " +
               spanText(channel.pitchSpan, m_units) + L"\nblends l/r/t/b " + blendsText(channel.blends);
    }

    void drawChannels() {
        for (std::size_t i = 0; i < m_channels.size(); ++i) {
            if (m_channels[i].empty()) continue;
            const Channel& channel = m_layout.channels[i];
            pugi::xml_node group = m_root.append_child("g");
            svg::addPath(group, svg::pathData(m_channels[i]), "channel " + colourOf(i), titleOf(channel));
            drawBlends(group, channel, colourOf(i));
        }
        for (std::size_t i = 0; i < m_channels.size(); ++i)
            if (!m_channels[i].empty()) drawName(m_layout.channels[i], colourOf(i));
    }

    void drawBlends(pugi::xml_node group, const Channel& channel, const std::string& colour) const {
        const EdgeValues& blends = channel.blends;
        const auto draw = [&](double percent, const wchar_t* edge, const EdgeValues& part) {
            if (!(percent > 0.0 && percent <= 100.0)) return;
            const std::wstring title = nameOf(channel) + L", " + edge + L" blend " + numberText(percent, 2) + L" %";
            svg::addPath(group, svg::pathData(pathOf(channel, part, pointsPerBlendEdge)), "blend " + colour, title);
        };
        draw(blends.left, L"left", {0.0, blends.left / 100.0, 1.0, 0.0});
        draw(blends.right, L"right", {1.0 - blends.right / 100.0, 1.0, 1.0, 0.0});
        draw(blends.top, L"top", {0.0, 1.0, 1.0, 1.0 - blends.top / 100.0});
        draw(blends.bottom, L"bottom", {0.0, 1.0, blends.bottom / 100.0, 0.0});
    }

    void drawName(const Channel& channel, const std::string& colour) {
        const Point at = sightOf(channel);
        const long arm = m_font / 3;
        const bool isAtTheTop = at.y - 2 * m_font < m_frame.top;
        svg::addLine(m_root, {at.x - arm, at.y}, {at.x + arm, at.y}, "sight " + colour);
        svg::addLine(m_root, {at.x, at.y - arm}, {at.x, at.y + arm}, "sight " + colour);
        svg::addText(m_root, {at.x, isAtTheTop ? at.y + m_font * 5 / 4 : at.y - m_font * 2 / 3}, nameOf(channel), "name");
        svg::addText(m_root, {at.x, at.y + (isAtTheTop ? m_font * 9 / 4 : m_font * 5 / 4)}, headingText(channel, m_units),
                     "heading");
    }

    /// Between two whose overlap runs along a whole edge; smaller ones are in the tables.
    void drawOverlaps() {
        for (const XMLConfig::ChannelPair& pair : m_layout.pairs) {
            const Channel& first = m_layout.channels[pair.first];
            const Channel& second = m_layout.channels[pair.second];
            if (pair.ofFirst.isWhole() || pair.ofSecond.isWhole() || !(pair.ofFirst.isFull || pair.ofSecond.isFull))
                continue;
            const std::wstring one = percentText(pair.ofFirst.middle);
            const std::wstring other = percentText(pair.ofSecond.middle);
            const Point_3Dim<double> between{first.sight.x + second.sight.x, first.sight.y + second.sight.y,
                                             first.sight.z + second.sight.z};
            const Point at = placeOf(XMLConfig::headingOf(between));
            pugi::xml_node text = svg::addText(m_root, at, one == other ? one : one + L" | " + other, "overlap");
            const std::wstring title = nameOf(second) + L" over " + nameOf(first) + L": " + rangeText(pair.ofFirst) + L"\n" +
                                       nameOf(first) + L" over " + nameOf(second) + L": " + rangeText(pair.ofSecond);
            text.append_child("title").text() = XMLConfig::utf8FromWide(title).c_str();
        }
    }

    void drawGaps() {
        for (const XMLConfig::ChannelRow& row : m_layout.rows)
            for (const XMLConfig::ChannelGap& gap : row.gaps) drawGap(gap);
    }

    /// What lies between the two, as far up as they do not overlap.
    void drawGap(const XMLConfig::ChannelGap& gap) {
        const Channel& left = m_layout.channels[gap.left];
        const Channel& right = m_layout.channels[gap.right];
        const double yaw = drawnYaw(left.yaw) + left.edges.right;
        const Path one = edgeOf(left, 1.0, yaw);
        const Path other = edgeOf(right, 0.0, yaw);
        Path between;
        for (std::size_t i = 0; i < one.size(); ++i)
            if (one[i].x < other[i].x) between.push_back(one[i]);
        for (std::size_t i = one.size(); i-- > 0;)
            if (one[i].x < other[i].x) between.push_back(other[i]);
        if (between.empty()) return;
        const std::wstring width = m_units.angle(gap.width);
        svg::addPath(m_root, svg::pathData(between), "finding gap",
                     width + L" gap between " + nameOf(left) + L" and " + nameOf(right));
        const Point below{(between.front().x + between.back().x) / 2, std::max(between.front().y, between.back().y)};
        svg::addText(m_root, {below.x, below.y + m_font * 5 / 4}, width, "alarm");
    }

    /// An upright edge of the image, from the bottom up.
    static Path edgeOf(const Channel& channel, double side, double yaw) {
        const Directions edge = XMLConfig::outlineOf(channel, {side, side, 1.0, 0.0}, pointsPerEdge);
        const auto begin = edge.begin() + pointsPerEdge;
        const Directions upwards(begin, begin + pointsPerEdge + 1);
        return unrolled(upwards, XMLConfig::headingOf(upwards.front(), yaw).yaw);
    }

    void drawHoles() {
        if (!m_layout.coverage) return;
        for (const XMLConfig::UncoveredPart& part : m_layout.coverage->uncovered) {
            if (!part.isHole) continue;
            std::string data;
            for (const ScreenPatch& patch : part.patches) {
                const int points = 1 + static_cast<int>((patch.theta.to - patch.theta.from) / (pi / 18.0));
                data += svg::pathData(
                    curveOf(XMLConfig::outlineOf(m_layout.screen, m_eye, patch, points), drawnYaw(patch.theta.from)));
            }
            svg::addPath(m_root, data, "finding hole", percentText(part.share) + L" of the screen, in no channel");
        }
    }

    void drawCameras() {
        for (const XMLConfig::CameraPlace& camera : m_layout.cameras) {
            if (!camera.position) continue;
            const Point at = placeOfCamera(camera);
            for (const Channel& channel : m_layout.channels)
                if (isUsable(channel) &&
                    std::find(channel.cameras.begin(), channel.cameras.end(), camera.id) != channel.cameras.end())
                    svg::addLine(m_root, at, sightOf(channel), "link");
            const long arm = m_font / 2;
            svg::addPath(m_root, svg::pathData({{at.x, at.y - arm}, {at.x + arm, at.y + arm}, {at.x - arm, at.y + arm}}),
                         "camera", (camera.name.empty() ? camera.id : camera.name + L"\n" + camera.id));
            const bool isLeft = 2 * at.x < m_frame.left + m_frame.right;
            svg::addText(m_root, {isLeft ? at.x - arm : at.x + arm, at.y + 2 * m_font},
                         camera.name.empty() ? camera.id : camera.name, "heading", isLeft ? "start" : "end");
        }
    }

    /// The unit square, as wide as the picture and a quarter as high.
    void drawAreas() {
        const auto isSet = [](const Channel& channel) {
            const EdgeValues& area = channel.screenArea;
            return area.left >= 0.0 && area.right <= 1.0 && area.left < area.right && area.top >= 0.0 &&
                   area.bottom <= 1.0 && area.top < area.bottom;
        };
        if (std::none_of(m_layout.channels.begin(), m_layout.channels.end(), isSet)) return;
        const long width = m_frame.right - m_frame.left;
        const long height = width / 4;
        const long top = m_end + m_font * 3 / 2;
        const auto pathOfArea = [&](const EdgeValues& area) {
            const long left = m_frame.left + std::lround(area.left * static_cast<double>(width));
            const long right = m_frame.left + std::lround(area.right * static_cast<double>(width));
            const long from = top + std::lround(area.top * static_cast<double>(height));
            const long to = top + std::lround(area.bottom * static_cast<double>(height));
            return Path{{left, from}, {right, from}, {right, to}, {left, to}};
        };
        svg::addText(m_root, {m_frame.left, top - m_font / 2}, L"Parts of the screen", "heading", "start");
        svg::addPath(m_root, svg::pathData(pathOfArea({0.0, 1.0, 0.0, 1.0})), "screen", m_layout.screen.shape);
        for (std::size_t i = 0; i < m_layout.channels.size(); ++i) {
            const Channel& channel = m_layout.channels[i];
            if (!isSet(channel)) continue;
            const EdgeValues& area = channel.screenArea;
            const Path path = pathOfArea(area);
            svg::addPath(m_root, svg::pathData(path), "area " + colourOf(i),
                         nameOf(channel) + L": " + numberText(area.left, 4) + L" to " + numberText(area.right, 4) +
                             L" across, " + numberText(area.top, 4) + L" to " + numberText(area.bottom, 4) + L" down");
            svg::addText(m_root, {(path[0].x + path[2].x) / 2, (path[0].y + path[2].y) / 2 + m_font / 3}, nameOf(channel),
                         "name");
        }
        m_end = top + height + m_font;
    }

    void drawNotes() {
        for (const Channel& channel : m_layout.channels) {
            if (isUsable(channel)) continue;
            svg::addText(m_root, {m_frame.left, m_end + m_font},
                         L"Not drawn: " + nameOf(channel) + L": " + faultOf(channel, m_units), "alarm", "start");
            m_end += m_font * 3 / 2;
        }
    }

    void setViewBox() {
        const long left = m_frame.left - 4 * m_font;
        const long top = m_frame.top - m_font;
        const long width = m_frame.right + 2 * m_font - left;
        const long height = m_end + m_font / 2 - top;
        const std::string box =
            std::to_string(left) + " " + std::to_string(top) + " " + std::to_string(width) + " " + std::to_string(height);
        m_root.attribute("viewBox") = box.c_str();
        m_ground.append_attribute("class") = "ground";
        m_ground.append_attribute("x") = std::to_string(left).c_str();
        m_ground.append_attribute("y") = std::to_string(top).c_str();
        m_ground.append_attribute("width") = std::to_string(width).c_str();
        m_ground.append_attribute("height") = std::to_string(height).c_str();
    }

    const Layout& m_layout;
    const Units& m_units;
    Point_3Dim<double> m_eye;
    Path m_screen;
    std::vector<Path> m_channels;
    svg::Frame m_frame;
    long m_font = 0;
    long m_end = 0;  // how far down the picture is drawn
    pugi::xml_document m_document;
    pugi::xml_node m_root;
    pugi::xml_node m_ground;
};

}  // namespace

std::string layoutSvg(const Layout& layout, const Units& units) { return Picture(layout, units).draw(); }

}  // namespace tool
