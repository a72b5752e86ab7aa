#pragma once

#include <array>
#include <cstddef>

/// A 3 x 3 matrix, row by row.
using Matrix3 = std::array<double, 9>;

inline Matrix3 product(const Matrix3& left, const Matrix3& right) {
    Matrix3 result{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            for (std::size_t k = 0; k < 3; ++k) result[row * 3 + column] += left[row * 3 + k] * right[k * 3 + column];
    return result;
}
