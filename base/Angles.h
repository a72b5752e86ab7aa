#pragma once

/// Angles are radians wherever the library stores, reads or computes with them.
namespace XMLConfig::detail {

inline constexpr double pi = 3.14159265358979323846;
inline constexpr double fullTurn = 2.0 * pi;
inline constexpr double degree = pi / 180.0;

}  // namespace XMLConfig::detail
