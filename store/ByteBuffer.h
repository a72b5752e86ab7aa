#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace XMLConfig::detail {

/// Bytes that are gathered. A string would clear what it is going to overwrite, each time it grows by a few bytes.
class ByteBuffer {
public:
    /// Where to put up to `count` bytes more. They count once they are added.
    char* room(std::size_t count) {
        if (m_bytes.size() - m_size < count) m_bytes.resize(m_bytes.size() * 2 + count + startSize);
        return m_bytes.data() + m_size;
    }
    void added(std::size_t count) { m_size += count; }

    void append(std::string_view text) {
        std::copy(text.begin(), text.end(), room(text.size()));
        added(text.size());
    }
    void append(std::size_t count, char c) {
        std::fill_n(room(count), count, c);
        added(count);
    }
    void append(char c) {
        *room(1) = c;
        added(1);
    }

    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] std::string_view text() const { return {m_bytes.data(), m_size}; }
    void clear() { m_size = 0; }

private:
    static constexpr std::size_t startSize = 256;

    std::string m_bytes;
    std::size_t m_size = 0;
};

}  // namespace XMLConfig::detail
