#pragma once

#include <cstdint>
#include <string_view>

#define XXH_INLINE_ALL  // nothing to link
#include <xxhash.h>

namespace XMLConfig::detail {

/// A number that tells two contents apart, but for about one pair in 2^64. It guards against accidents, not against malice.
/// The pieces in which the bytes come do not matter.
class ContentHash {
public:
    ContentHash() { XXH64_reset(&m_state, 0); }
    void add(std::string_view bytes) { XXH64_update(&m_state, bytes.data(), bytes.size()); }
    [[nodiscard]] std::uint64_t value() const { return XXH64_digest(&m_state); }

private:
    XXH64_state_t m_state;
};

}  // namespace XMLConfig::detail
