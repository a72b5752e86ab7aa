#include "store/ValueTypes.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace {

using Matrix3 = std::array<double, 9>;  // row by row

constexpr std::size_t at(std::size_t row, std::size_t column) { return row * 3 + column; }

// The axis-angle form of an elementary rotation.
Matrix3 rotation(double x, double y, double z, double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    return {x * x * t + c,     x * y * t - z * s, x * z * t + y * s, x * y * t + z * s, y * y * t + c,
            y * z * t - x * s, x * z * t - y * s, y * z * t + x * s, z * z * t + c};
}

Matrix3 product(const Matrix3& left, const Matrix3& right) {
    Matrix3 result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            for (std::size_t k = 0; k < 3; ++k) result[at(row, column)] += left[at(row, k)] * right[at(k, column)];
        }
    }
    return result;
}

// Gauss-Jordan elimination with row pivoting. A singular matrix leaves what the elimination has made so far.
Matrix3 inverse(const Matrix3& matrix) {
    std::array<std::array<double, 6>, 3> rows{};  // beside the matrix the unit matrix, which becomes the inverse
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) rows[row][column] = matrix[at(row, column)];
        rows[row][3 + row] = 1.0;
    }
    for (std::size_t column = 0; column < 3; ++column) {
        std::size_t pivot = column;
        for (std::size_t row = column + 1; row < 3; ++row)
            if (std::fabs(rows[row][column]) > std::fabs(rows[pivot][column])) pivot = row;
        std::swap(rows[column], rows[pivot]);
        const double value = rows[column][column];
        if (value == 0.0) break;
        for (double& element : rows[column]) element /= value;
        for (std::size_t row = 0; row < 3; ++row) {
            if (row == column) continue;
            const double factor = rows[row][column];
            for (std::size_t k = 0; k < 6; ++k) rows[row][k] -= factor * rows[column][k];
        }
    }
    Matrix3 result{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column) result[at(row, column)] = rows[row][3 + column];
    return result;
}

}  // namespace

Viewport::Viewport() = default;

Viewport::Viewport(const Point_3Dim<double>& offset, const Point_3Dim<double>& rotationYPR, double fovLeft, double fovRight,
                   double fovTop, double fovBottom, int resolutionX, int resolutionY)
    : Offset(offset),
      RotationYPR(rotationYPR),
      FOVLeft(fovLeft),
      FOVRight(fovRight),
      FOVTop(fovTop),
      FOVBottom(fovBottom),
      ResolutionX(resolutionX),
      ResolutionY(resolutionY) {
    const Matrix3 yaw = rotation(0, 0, 1, -rotationYPR.x);
    const Matrix3 pitch = rotation(1, 0, 0, rotationYPR.y);
    const Matrix3 roll = rotation(0, 1, 0, rotationYPR.z);
    RotationMatrix = product(product(yaw, pitch), roll);
    InverseRotationMatrix = inverse(RotationMatrix);
}

Viewport::~Viewport() = default;

Frustum::Frustum() = default;

Frustum::Frustum(const Point_3Dim<double>& offset, const Point_3Dim<double>& rotationYPR, double fovLeft, double fovRight,
                 double fovTop, double fovBottom, int resolutionX, int resolutionY)
    : Viewport(offset, rotationYPR, fovLeft, fovRight, fovTop, fovBottom, resolutionX, resolutionY),
      TanLeft(std::tan(fovLeft)),
      TanTop(std::tan(fovTop)),
      Width(std::tan(fovRight) - TanLeft),
      Height(std::tan(fovBottom) - TanTop) {}

Frustum::~Frustum() = default;
