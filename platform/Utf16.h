#pragma once

#include <cstddef>
#include <string_view>

namespace XMLConfig::detail {

/// How far a conversion came.
struct Conversion {
    std::size_t bytesRead;
    std::size_t unitsWritten;
};

/// Converts UTF-8 to UTF-16 up to its end or to the first bytes that are cut or ill-formed. `units` may lie at any address
/// and must have room for as many as there are bytes.
Conversion convertUtf8(std::string_view bytes, unsigned char* units);

}  // namespace XMLConfig::detail
