#pragma once

#include <cstdint>

namespace Corvane {

/// Rows and columns of a layout.
struct GridSize {
    std::int32_t height;
    std::int32_t width;
};

}  // namespace Corvane
