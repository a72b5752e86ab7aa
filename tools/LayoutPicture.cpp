#include "tools/LayoutPicture.h"

#include <algorithm>
#include <sstream>

#include "tools/LayoutText.h"
#include "tools/PictureParts.h"
#include "tools/PicturePaths.h"
#include "tools/PictureStyle.h"

namespace tool {
namespace {

using picture::pointsPerEdge;
using picture::tenDegrees;
using svg::Path;
using svg::Point;
using XMLConfig::Channel;
using XMLConfig::Layout;
using XMLConfig::ScreenPatch;

/// The point from which the picture is seen: the eye point of the first usable channel, as all should have the same.
Point_3Dim<double> eyeOf(const Layout& layout) {
    const auto first = std::find_if(layout.channels.begin(), layout.channels.end(), picture::isUsable);
    return first == layout.channels.end() ? layout.targetEyePoint : first->eyePoint;
}

class Picture {
public:
    Picture(const Layout& layout, const Units& units) : m_canvas{layout, units, eyeOf(layout), {}, {}, 0, 0, {}} {}

    std::string draw() {
        m_screen = screenPath();
        for (const Channel& channel : m_canvas.layout.channels)
            m_canvas.channels.push_back(
                picture::isUsable(channel) ? picture::pathOf(channel, picture::wholeImage, pointsPerEdge) : Path());
        findFrame();
        m_canvas.root = m_document.append_child("svg");
        m_canvas.root.append_attribute("xmlns") = "http://www.w3.org/2000/svg";
        m_canvas.root.append_attribute("viewBox");
        m_canvas.root.append_attribute("font-size") = std::to_string(m_canvas.font).c_str();
        pictureStyle(m_canvas.root, m_canvas.font);
        m_ground = m_canvas.root.append_child("rect");
        drawGrid();
        drawScreen();
        drawChannels(m_canvas);
        drawOverlaps(m_canvas);
        drawGaps(m_canvas);
        drawHoles(m_canvas);
        drawCameras(m_canvas);
        if (m_screen.empty()) drawAreas(m_canvas);
        drawNotes(m_canvas);
        setViewBox();
        std::ostringstream out;
        m_document.save(out, " ", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
        return out.str();
    }

private:
    [[nodiscard]] Path screenPath() const {
        const std::optional<ScreenPatch> limits = XMLConfig::limitsOf(m_canvas.layout.screen);
        if (!limits) return {};
        const picture::Directions outline =
            XMLConfig::outlineOf(m_canvas.layout.screen, m_canvas.eye, *limits, 2 * pointsPerEdge);
        return picture::unrolled(outline, limits->theta.from);
    }

    void findFrame() {
        m_canvas.frame = {-tenDegrees, tenDegrees, -tenDegrees, tenDegrees};
        const auto take = [this](const Point& point) {
            m_canvas.frame.left = std::min(m_canvas.frame.left, point.x);
            m_canvas.frame.right = std::max(m_canvas.frame.right, point.x);
            m_canvas.frame.top = std::min(m_canvas.frame.top, point.y);
            m_canvas.frame.bottom = std::max(m_canvas.frame.bottom, point.y);
        };
        long narrowest = m_canvas.frame.right - m_canvas.frame.left;
        for (const Path& path : m_canvas.channels) {
            if (path.empty()) continue;
            const auto byX = [](const Point& a, const Point& b) { return a.x < b.x; };
            const auto ends = std::minmax_element(path.begin(), path.end(), byX);
            narrowest = std::max(narrowest, ends.second->x - ends.first->x);
            std::for_each(path.begin(), path.end(), take);
        }
        std::for_each(m_screen.begin(), m_screen.end(), take);
        for (const XMLConfig::CameraPlace& camera : m_canvas.layout.cameras)
            if (camera.position) take(picture::placeOfCamera(m_canvas, camera));
        m_canvas.frame = {roundedDown(m_canvas.frame.left), -roundedDown(-m_canvas.frame.right),
                          roundedDown(m_canvas.frame.top), -roundedDown(-m_canvas.frame.bottom)};
        m_canvas.font = fontFor(narrowest);
        m_canvas.end = m_canvas.frame.bottom + 2 * m_canvas.font;
    }

    static long roundedDown(long value) {
        return (value >= 0 ? value / tenDegrees : -((-value + tenDegrees - 1) / tenDegrees)) * tenDegrees;
    }

    /// The size of the letters: so large that people can read them where the picture is as wide as a page, and so small that
    /// a name fits into a channel.
    [[nodiscard]] long fontFor(long channelWidth) const {
        const long wanted =
            std::max((m_canvas.frame.right - m_canvas.frame.left) / 60, (m_canvas.frame.bottom - m_canvas.frame.top) / 40);
        return std::clamp(std::min(wanted, channelWidth / 6), 60L, 480L);
    }

    void drawGrid() {
        pugi::xml_node grid = m_canvas.root.append_child("g");
        for (long x = m_canvas.frame.left; x <= m_canvas.frame.right; x += tenDegrees) {
            svg::addLine(grid, {x, m_canvas.frame.top}, {x, m_canvas.frame.bottom}, "grid");
            if (x % (3 * tenDegrees) == 0)
                svg::addText(grid, {x, m_canvas.frame.bottom + m_canvas.font * 5 / 4}, figure(x), "figure");
        }
        for (long y = m_canvas.frame.top; y <= m_canvas.frame.bottom; y += tenDegrees) {
            svg::addLine(grid, {m_canvas.frame.left, y}, {m_canvas.frame.right, y}, "grid");
            svg::addText(grid, {m_canvas.frame.left - m_canvas.font / 2, y + m_canvas.font / 3}, figure(-y), "figure",
                         "end");
        }
    }

    static std::wstring figure(long units) { return std::to_wstring(10 * units / tenDegrees) + L"°"; }

    void drawScreen() {
        if (m_screen.empty()) return;
        std::wstring title = m_canvas.layout.screen.shape + L", radius " +
                             m_canvas.units.length(m_canvas.layout.screen.radius) + L" " + m_canvas.units.lengthUnit();
        if (m_canvas.layout.coverage) title += L", " + percentText(m_canvas.layout.coverage->inNone) + L" in no channel";
        svg::addPath(m_canvas.root, svg::pathData(m_screen), "screen", title);
    }

    void setViewBox() {
        const long left = m_canvas.frame.left - 4 * m_canvas.font;
        const long top = m_canvas.frame.top - m_canvas.font;
        const long width = m_canvas.frame.right + 2 * m_canvas.font - left;
        const long height = m_canvas.end + m_canvas.font / 2 - top;
        const std::string box =
            std::to_string(left) + " " + std::to_string(top) + " " + std::to_string(width) + " " + std::to_string(height);
        m_canvas.root.attribute("viewBox") = box.c_str();
        m_ground.append_attribute("class") = "ground";
        m_ground.append_attribute("x") = std::to_string(left).c_str();
        m_ground.append_attribute("y") = std::to_string(top).c_str();
        m_ground.append_attribute("width") = std::to_string(width).c_str();
        m_ground.append_attribute("height") = std::to_string(height).c_str();
    }

    picture::Canvas m_canvas;
    Path m_screen;
    pugi::xml_document m_document;
    pugi::xml_node m_ground;
};

}  // namespace

std::string layoutSvg(const Layout& layout, const Units& units) { return Picture(layout, units).draw(); }

}  // namespace tool
