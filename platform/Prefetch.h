#pragma once

#include <cstddef>

namespace XMLConfig::detail {

/// Asks the processor to fetch `size` bytes, which begin `distance` bytes after `place`, because they will probably be read
/// soon. It does nothing else: there need not be any memory.
inline void prefetch([[maybe_unused]] const void* place, [[maybe_unused]] std::size_t distance,
                     [[maybe_unused]] std::size_t size) {
#if defined(__GNUC__)
    constexpr std::size_t line = 64;
    const char* const begin = static_cast<const char*>(place) + distance;
    for (std::size_t i = 0; i < size; i += line) __builtin_prefetch(begin + i);
#endif
}

}  // namespace XMLConfig::detail
