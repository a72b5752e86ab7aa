#include "manager/layout/Surface.h"

#include <algorithm>
#include <cmath>

#include "sections/ScreenConfig.h"

namespace XMLConfig::detail {
namespace {

constexpr double rounding = 1e-9;

bool isRange(const Interval& range) {
    return std::isfinite(range.from) && std::isfinite(range.to) && range.from < range.to &&
           std::abs(range.from) <= fullTurn && std::abs(range.to) <= fullTurn;
}

}  // namespace

std::optional<Surface> Surface::of(const LayoutScreen& screen) {
    const bool isSphere = screen.shape == BaseConfig::SHAPE_SPHERE;
    if (!isSphere && screen.shape != BaseConfig::SHAPE_CYLINDER) return std::nullopt;
    Surface surface(screen, isSphere);
    if (!surface.setLimits()) return std::nullopt;
    surface.setBounds();
    return surface;
}

void Surface::setBounds() {
    const double rounded = rounding * m_screen.radius;
    m_levels = {levelAt(m_heights.from).centre.z - m_screen.centre.z - rounded,
                levelAt(m_heights.to).centre.z - m_screen.centre.z + rounded};
    m_middle = directionAt((m_around.from + m_around.to) / 2.0);
    m_sideways = std::cos((m_around.to - m_around.from) / 2.0);
    m_isClosed = m_around.to - m_around.from > fullTurn - rounding;
}

/// What is more than a whole sphere counts as a whole one. A cylinder without a height has the angles of a sphere.
bool Surface::setLimits() {
    constexpr double highestCylinder = 80.0 * degree;
    const LayoutScreen& screen = m_screen;
    const bool isSized = std::isfinite(screen.radius) && screen.radius > 0.0 && isFinite(screen.centre);
    if (!isSized || !isRange(screen.theta)) return false;
    m_around = {screen.theta.from, std::min(screen.theta.to, screen.theta.from + fullTurn)};
    if (!m_isSphere && std::isfinite(screen.height) && screen.height > 0.0) {
        m_heights = {-screen.height / 2.0, screen.height / 2.0};
        return std::abs(phiOf(m_heights.to)) <= highestCylinder;
    }
    if (!isRange(screen.phi)) return false;
    const double highest = m_isSphere ? pi / 2.0 : highestCylinder;
    const Interval phi{std::max(screen.phi.from, -highest), std::min(screen.phi.to, highest)};
    m_heights = {heightOf(phi.from), heightOf(phi.to)};
    return phi.from < phi.to;
}

double Surface::heightStep() const { return (m_isSphere ? 1.0 : m_screen.radius) * 0.5 * degree; }
bool Surface::endsBelow() const { return !m_isSphere || m_heights.from > -pi / 2.0 + rounding; }
bool Surface::endsAbove() const { return !m_isSphere || m_heights.to < pi / 2.0 - rounding; }

Surface::Level Surface::levelAt(double height) const {
    const double up = m_isSphere ? m_screen.radius * std::sin(height) : height;
    const double share = m_isSphere ? std::cos(height) : 1.0;
    return {plus(m_screen.centre, {0.0, 0.0, up}), m_screen.radius * share};
}

double Surface::areaBetween(double low, double high) const {
    return m_isSphere ? std::sin(high) - std::sin(low) : high - low;
}

double Surface::phiOf(double height) const { return m_isSphere ? height : std::atan(height / m_screen.radius); }
double Surface::heightOf(double phi) const { return m_isSphere ? phi : m_screen.radius * std::tan(phi); }

Surface::Rays::Rays(const Surface& surface, const Vector& from)
    : m_surface(surface), m_fromCentre(minus(from, surface.m_screen.centre)), m_start(m_fromCentre) {
    if (!surface.m_isSphere) m_start.z = 0.0;
    m_beyond = dot(m_start, m_start) - surface.m_screen.radius * surface.m_screen.radius;
}

/// Between which levels rays from inside of the surface meet it, were it without limits. `farthest` is how far from the eye
/// that may be, of a cylinder without the height.
Interval Surface::Rays::levelsMet(const Interval& pitch, double farthest) const {
    const double nearest = 2.0 * m_surface.m_screen.radius - farthest;
    const auto rise = [this](double angle) { return m_surface.m_isSphere ? std::sin(angle) : std::tan(angle); };
    const double low = rise(pitch.from);
    const double high = rise(pitch.to);
    return {m_fromCentre.z + low * (low < 0.0 ? farthest : nearest),
            m_fromCentre.z + high * (high > 0.0 ? farthest : nearest)};
}

std::optional<bool> Surface::Rays::meetItAlike(const Interval& pitch) const {
    const double radius = m_surface.m_screen.radius;
    const double margin = 1e-6 * radius;  // much more than anything is rounded by
    const double away = lengthOf(m_start);
    if (!(away < radius - margin) || !std::isfinite(m_beyond)) return std::nullopt;
    const Interval met = levelsMet(pitch, radius + away);
    const Interval& levels = m_surface.m_levels;
    if (met.from > levels.to + margin || met.to < levels.from - margin) return false;
    // Nothing of a sphere is below or above its poles.
    const bool reachesBottom = m_surface.m_isSphere && levels.from <= -radius;
    const bool reachesTop = m_surface.m_isSphere && levels.to >= radius;
    const bool isAbove = reachesBottom || met.from >= levels.from + margin;
    const bool isBelow = reachesTop || met.to <= levels.to - margin;
    return isAbove && isBelow && m_surface.isClosed() ? std::optional(true) : std::nullopt;
}

}  // namespace XMLConfig::detail

namespace XMLConfig {

std::optional<ScreenPatch> limitsOf(const LayoutScreen& screen) {
    const auto surface = detail::Surface::of(screen);
    if (!surface) return std::nullopt;
    const Interval& heights = surface->heights();
    return ScreenPatch{surface->around(), {surface->phiOf(heights.from), surface->phiOf(heights.to)}};
}

std::vector<Point_3Dim<double>> outlineOf(const LayoutScreen& screen, const Point_3Dim<double>& from,
                                          const ScreenPatch& part, int points) {
    std::vector<Point_3Dim<double>> outline;
    const auto surface = detail::Surface::of(screen);
    if (!surface) return outline;
    const Point_2Dim<double> corners[] = {{part.theta.from, part.phi.from},
                                          {part.theta.to, part.phi.from},
                                          {part.theta.to, part.phi.to},
                                          {part.theta.from, part.phi.to},
                                          {part.theta.from, part.phi.from}};
    for (int side = 0; side < 4; ++side)
        for (int i = 0; i < points; ++i) {
            const double share = static_cast<double>(i) / points;
            const double theta = corners[side].x + share * (corners[side + 1].x - corners[side].x);
            const double phi = corners[side].y + share * (corners[side + 1].y - corners[side].y);
            outline.push_back(detail::minus(surface->pointAt(theta, surface->heightOf(phi)), from));
        }
    return outline;
}

}  // namespace XMLConfig
