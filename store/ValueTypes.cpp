#include "store/ValueTypes.h"

#include <cmath>
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

void swapRows(Matrix3& matrix, std::size_t one, std::size_t other) {
    for (std::size_t column = 0; column < 3; ++column) std::swap(matrix[at(one, column)], matrix[at(other, column)]);
}

// row[target] -= factor * row[source]
void subtractRow(Matrix3& matrix, std::size_t target, std::size_t source, double factor) {
    for (std::size_t column = 0; column < 3; ++column) matrix[at(target, column)] -= factor * matrix[at(source, column)];
}

// Gauss-Jordan elimination with row pivoting. A singular matrix leaves what the elimination has made so far.
Matrix3 inverse(Matrix3 matrix) {
    Matrix3 result{1, 0, 0, 0, 1, 0, 0, 0, 1};
    for (std::size_t column = 0; column < 3; ++column) {
        std::size_t pivot = column;
        for (std::size_t row = column + 1; row < 3; ++row) {
            if (std::fabs(matrix[at(row, column)]) > std::fabs(matrix[at(pivot, column)])) pivot = row;
        }
        const double value = matrix[at(pivot, column)];
        if (value == 0.0) return result;
        swapRows(matrix, column, pivot);
        swapRows(result, column, pivot);
        for (std::size_t k = 0; k < 3; ++k) {
            matrix[at(column, k)] /= value;
            result[at(column, k)] /= value;
        }
        for (std::size_t row = 0; row < 3; ++row) {
            if (row == column) continue;
            const double factor = matrix[at(row, column)];
            subtractRow(matrix, row, column, factor);
            subtractRow(result, row, column, factor);
        }
    }
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
