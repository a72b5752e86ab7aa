#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace XMLConfig::detail {

/// A short text in an array. The whole array is copied at once, which takes less time than copying as many bytes as the text
/// has.
template <std::size_t capacity>
struct ShortText {
    std::array<char, capacity> bytes;
    std::size_t size;
};
struct Blanks {
    std::size_t count;
};

/// Bytes that are gathered. A string would clear what is going to be overwritten, each time it grows.
class ByteBuffer {
public:
    /// Where to put up to `count` bytes more. They count once they are added.
    char* room(std::size_t count) {
        if (static_cast<std::size_t>(m_limit - m_put) < count) grow(count);
        return m_put;
    }
    void added(std::size_t count) { m_put += count; }

    /// Appends what each piece stands for: a character, a literal, a text, a short text or blanks.
    template <typename... Pieces>
    void append(const Pieces&... pieces) {
        char* end = room((mostOf(pieces) + ...));
        ((end = put(end, pieces)), ...);
        m_put = end;
    }

    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(m_put - m_bytes.get()); }
    [[nodiscard]] std::string_view text() const { return {m_bytes.get(), size()}; }
    void clear() { m_put = m_bytes.get(); }

private:
    static constexpr std::size_t usualBlanks = 32;

    static constexpr std::size_t mostOf(char /*piece*/) { return 1; }
    static constexpr std::size_t mostOf(std::string_view piece) { return piece.size(); }
    static constexpr std::size_t mostOf(Blanks piece) { return std::max(piece.count, usualBlanks); }
    template <std::size_t size>
    static constexpr std::size_t mostOf(const char (&/*piece*/)[size]) {
        return size;
    }
    template <std::size_t capacity>
    static constexpr std::size_t mostOf(const ShortText<capacity>& /*piece*/) {
        return capacity;
    }

    static char* put(char* to, char piece) {
        *to = piece;
        return to + 1;
    }
    static char* put(char* to, std::string_view piece) { return std::copy(piece.begin(), piece.end(), to); }
    static char* put(char* to, Blanks piece) {
        std::memset(to, ' ', usualBlanks);
        if (piece.count > usualBlanks) std::memset(to, ' ', piece.count);
        return to + piece.count;
    }
    template <std::size_t size>
    static char* put(char* to, const char (&piece)[size]) {
        std::memcpy(to, piece, size);
        return to + size - 1;
    }
    template <std::size_t capacity>
    static char* put(char* to, const ShortText<capacity>& piece) {
        std::memcpy(to, piece.bytes.data(), capacity);
        return to + piece.size;
    }

    void grow(std::size_t count) {
        constexpr std::size_t startSize = 256;
        const std::size_t used = size();
        const std::size_t capacity = 2 * static_cast<std::size_t>(m_limit - m_bytes.get()) + count + startSize;
        std::unique_ptr<char[]> bytes(new char[capacity]);  // make_unique would clear it
        std::copy_n(m_bytes.get(), used, bytes.get());
        m_bytes = std::move(bytes);
        m_put = m_bytes.get() + used;
        m_limit = m_bytes.get() + capacity;
    }

    std::unique_ptr<char[]> m_bytes;
    char* m_put = nullptr;
    char* m_limit = nullptr;
};

}  // namespace XMLConfig::detail
