#pragma once

#include <array>
#include <cstdint>

#include "platform/Export.h"

/// A point, or another pair of numbers. A new one is (0, 0). A coordinate that is NaN equals nothing.
template <typename T>
struct Point_2Dim {
    T x{};
    T y{};

    constexpr Point_2Dim() = default;
    constexpr Point_2Dim(T xValue, T yValue) : x(xValue), y(yValue) {}  ///< in the unit of whoever uses it
    constexpr bool operator==(const Point_2Dim& other) const { return x == other.x && y == other.y; }
    constexpr bool operator!=(const Point_2Dim& other) const { return !(*this == other); }
};

/// A point, or another three numbers. A new one is (0, 0, 0). A coordinate that is NaN equals nothing.
template <typename T>
struct Point_3Dim {
    T x{};
    T y{};
    T z{};

    constexpr Point_3Dim() = default;
    constexpr Point_3Dim(T xValue, T yValue, T zValue) : x(xValue), y(yValue), z(zValue) {}  ///< as Point_2Dim
    constexpr bool operator==(const Point_3Dim& other) const { return x == other.x && y == other.y && z == other.z; }
    constexpr bool operator!=(const Point_3Dim& other) const { return !(*this == other); }
};

/// A square matrix, `m[row][column]`. A new one is all zeros.
template <typename T, int N>
struct Matrix {
    T m[N][N] = {};

    /// Ones from the upper left to the lower right, and zeros.
    static Matrix identity() {
        Matrix result;
        for (int i = 0; i < N; ++i) result.m[i][i] = T(1);
        return result;
    }
    bool operator==(const Matrix& other) const {
        for (int row = 0; row < N; ++row)
            for (int column = 0; column < N; ++column)
                if (m[row][column] != other.m[row][column]) return false;
        return true;
    }
    bool operator!=(const Matrix& other) const { return !(*this == other); }
};

/// A view onto the scene: where from, which way, how wide. Lengths are in meters and angles in radians.
/// A default-constructed one is all zeros, its two matrices included. What is derived is derived once, by the constructor:
/// it does not follow when a field is changed afterwards.
class XMLCONFIG_API Viewport {
public:
    Viewport();
    /// Derives RotationMatrix = Rz(-yaw) * Rx(pitch) * Ry(roll), where Rx(a) turns a column vector by the angle a about the
    /// x axis, counter-clockwise for whoever looks against the axis, and its inverse (by elimination with row pivoting).
    Viewport(const Point_3Dim<double>& offset, const Point_3Dim<double>& rotationYPR, double fovLeft, double fovRight,
             double fovTop, double fovBottom, int resolutionX, int resolutionY);
    Viewport(const Viewport&) = default;
    Viewport& operator=(const Viewport&) = default;
    virtual ~Viewport();

    Point_3Dim<double> Offset;       ///< where from, in meters
    Point_3Dim<double> RotationYPR;  ///< yaw, pitch, roll in radians
    // Angles from the line of sight to the edges of the image; left and bottom are negative as a rule.
    double FOVLeft = 0.0;
    double FOVRight = 0.0;
    double FOVTop = 0.0;
    double FOVBottom = 0.0;
    std::int32_t ResolutionX = 0;                   ///< pixels
    std::int32_t ResolutionY = 0;                   ///< pixels
    std::array<double, 9> RotationMatrix{};         ///< row by row
    std::array<double, 9> InverseRotationMatrix{};  ///< row by row
};

/// A projector's viewport with the extents of its image plane at unit distance, which the constructor derives from the four
/// angles. A default-constructed one is all zeros.
class XMLCONFIG_API Frustum : public Viewport {
public:
    Frustum();
    /// Derives the four fields below and what Viewport derives.
    Frustum(const Point_3Dim<double>& offset, const Point_3Dim<double>& rotationYPR, double fovLeft, double fovRight,
            double fovTop, double fovBottom, int resolutionX, int resolutionY);
    Frustum(const Frustum&) = default;
    Frustum& operator=(const Frustum&) = default;
    ~Frustum() override;

    double TanLeft = 0.0;  ///< tan(FOVLeft)
    double TanTop = 0.0;   ///< tan(FOVTop)
    double Width = 0.0;    ///< tan(FOVRight) - tan(FOVLeft)
    double Height = 0.0;   ///< tan(FOVBottom) - tan(FOVTop)
};

namespace BlackLevelBlending {

/// For each edge of a projector's image a flag: whether the black level is mirrored there. Files hold 0 or 1; any number of
/// 8 bits is kept as it is. A new record is four zeros.
struct PondOfMirrors {
    std::uint8_t Top = 0;
    std::uint8_t Bottom = 0;
    std::uint8_t Left = 0;
    std::uint8_t Right = 0;
};

}  // namespace BlackLevelBlending
