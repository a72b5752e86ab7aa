#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

namespace XMLConfig::detail {

/// Bytes that are gathered. A string would clear what is going to be overwritten, each time it grows.
class ByteBuffer {
public:
    /// Where to put up to `count` bytes more. They count once they are added.
    char* room(std::size_t count) {
        if (m_capacity - m_size < count) grow(m_capacity * 2 + count + startSize);
        return m_bytes.get() + m_size;
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
    [[nodiscard]] std::string_view text() const { return {m_bytes.get(), m_size}; }
    void clear() { m_size = 0; }

private:
    static constexpr std::size_t startSize = 256;

    void grow(std::size_t capacity) {
        std::unique_ptr<char[]> bytes(new char[capacity]);  // make_unique would clear it
        std::copy_n(m_bytes.get(), m_size, bytes.get());
        m_bytes = std::move(bytes);
        m_capacity = capacity;
    }

    std::unique_ptr<char[]> m_bytes;
    std::size_t m_capacity = 0;
    std::size_t m_size = 0;
};

}  // namespace XMLConfig::detail
