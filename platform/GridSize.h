#pragma once

#include <cstdint>

namespace Corvane {

/// Rows and columns of a layout.
struct GridSize {
    std::int32_t height;  ///< number of rows
    std::int32_t width;   ///< number of columns
};

}  // namespace Corvane
