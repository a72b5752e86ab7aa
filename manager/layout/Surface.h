#pragma once

#include <optional>

#include "manager/Layout.h"
#include "manager/layout/Vector.h"

namespace XMLConfig::detail {

/// A sphere's or cylinder's surface within its limits. A place on it is an angle around and a height: of a sphere the angle
/// up, of a cylinder the length up from its centre.
class Surface {
public:
    /// None where the screen has another shape, or where its size is not stored or makes no sense.
    static std::optional<Surface> of(const LayoutScreen& screen);

    [[nodiscard]] const Interval& around() const { return m_around; }
    [[nodiscard]] const Interval& heights() const { return m_heights; }
    /// How high half a degree is.
    [[nodiscard]] double heightStep() const;
    /// Whether it goes all the way round.
    [[nodiscard]] bool isClosed() const { return m_isClosed; }
    /// Whether it ends below, or above, rather than at a pole.
    [[nodiscard]] bool endsBelow() const;
    [[nodiscard]] bool endsAbove() const;

    /// A circle around it at one height.
    struct Level {
        Vector centre;
        double radius = 0.0;
    };
    [[nodiscard]] Level levelAt(double height) const;
    static Vector directionAt(double around) { return {std::sin(around), std::cos(around), 0.0}; }
    [[nodiscard]] Vector pointAt(double around, double height) const {
        const Level level = levelAt(height);
        return plus(level.centre, times(level.radius, directionAt(around)));
    }
    /// How much area lies between two heights, in a measure of its own.
    [[nodiscard]] double areaBetween(double low, double high) const;
    /// The angle up, as seen from the centre, and back.
    [[nodiscard]] double phiOf(double height) const;
    [[nodiscard]] double heightOf(double phi) const;
    /// The rays that leave one point.
    class Rays {
    public:
        /// The surface stays the caller's.
        Rays(const Surface& surface, const Vector& from);
        /// Whether the ray of that direction meets the surface.
        [[nodiscard]] bool meetIt(const Vector& direction) const {
            const Vector across = m_surface.m_isSphere ? direction : Vector{direction.x, direction.y, 0.0};
            const double a = dot(across, across);
            const double b = dot(m_start, across);
            const double root = b * b - a * m_beyond;
            if (a <= 0.0 || root < 0.0) return false;
            const double distance = (std::sqrt(root) - b) / a;  // the far one of two places: the eye is inside as a rule
            return distance > 0.0 && m_surface.holds(plus(m_fromCentre, times(distance, direction)));
        }
        /// Whether all rays whose angles up are among these meet the surface, or none does; nothing where that must be asked
        /// of each.
        [[nodiscard]] std::optional<bool> meetItAlike(const Interval& pitch) const;

    private:
        [[nodiscard]] Interval levelsMet(const Interval& pitch, double farthest) const;

        const Surface& m_surface;
        Vector m_fromCentre;
        Vector m_start;         ///< the same, of a cylinder without its height
        double m_beyond = 0.0;  ///< how much further than the radius the point is from the centre, in squares
    };

private:
    explicit Surface(const LayoutScreen& screen, bool isSphere) : m_screen(screen), m_isSphere(isSphere) {}
    bool setLimits();
    void setBounds();
    [[nodiscard]] bool holds(const Vector& fromCentre) const {
        if (fromCentre.z < m_levels.from || fromCentre.z > m_levels.to) return false;
        return isClosed() || dot(fromCentre, m_middle) >= m_sideways * std::hypot(fromCentre.x, fromCentre.y);
    }

    LayoutScreen m_screen;
    bool m_isSphere;
    bool m_isClosed = false;
    Interval m_around;
    Interval m_heights;
    Interval m_levels;        ///< of m_heights, as lengths up from the centre
    Vector m_middle;          ///< towards the middle of what is around
    double m_sideways = 0.0;  ///< how much of a direction around points there at the limits
};

}  // namespace XMLConfig::detail
