#pragma once

#include <cmath>

#include "base/Angles.h"
#include "store/ValueTypes.h"

/// Arithmetic of directions and points.
namespace XMLConfig::detail {

using Vector = Point_3Dim<double>;

inline double dot(const Vector& a, const Vector& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vector plus(const Vector& a, const Vector& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vector minus(const Vector& a, const Vector& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vector times(double factor, const Vector& a) { return {factor * a.x, factor * a.y, factor * a.z}; }
inline double lengthOf(const Vector& a) { return std::sqrt(dot(a, a)); }
inline Vector unit(const Vector& a) { return times(1.0 / lengthOf(a), a); }
/// The point at that share of the way.
inline Point_2Dim<double> between(const Point_2Dim<double>& from, const Point_2Dim<double>& to, double share) {
    return {from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
}
inline bool isFinite(const Vector& a) { return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z); }

}  // namespace XMLConfig::detail
