#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/Text.h"

namespace XMLConfig::detail {

/// Most text is plain: each character is one byte of UTF-8 and needs no escape. It is copied and examined in one pass,
/// without a branch on any character, so that the compiler lets one instruction take several. False where the text is not
/// plain.
template <std::size_t step>
bool copyInSteps(std::u16string_view text, char* to) {
    std::array<std::uint16_t, step> others{};
    const auto copy = [&](std::size_t at) {
        std::array<std::uint16_t, step> units;  // apart from what is written, so that the order of both does not matter
        std::array<char, step> bytes;
        std::memcpy(units.data(), text.data() + at, sizeof units);
        for (std::size_t i = 0; i < step; ++i) {
            const std::uint16_t c = units[i];
            const bool isSpecial =
                (static_cast<std::uint16_t>(c - 0x20U) >= 0x5F) | (c == '&') | (c == '<') | (c == '>') | (c == '"');
            others[i] = static_cast<std::uint16_t>(others[i] | isSpecial);
        }
        for (std::size_t i = 0; i < step; ++i) bytes[i] = static_cast<char>(units[i]);
        std::memcpy(to + at, bytes.data(), sizeof bytes);
    };
    for (std::size_t end = step; end < text.size(); end += step) copy(end - step);
    copy(text.size() - step);  // some of them once more
    return others == std::array<std::uint16_t, step>{};
}

inline bool copyPlain(std::u16string_view text, char* to) {
    if (text.size() >= 16) return copyInSteps<16>(text, to);
    if (text.size() >= 8) return copyInSteps<8>(text, to);
    if (text.size() >= 4) return copyInSteps<4>(text, to);
    return text.empty() || copyInSteps<1>(text, to);
}

/// A text of up to 48 bytes, of which 48 can be read. All are copied, which takes less time than copying as many as the text
/// has.
struct ShortText {
    static constexpr std::size_t most = 48;
    const char* bytes;
    std::size_t size;
};

/// Gathers bytes and hands them on in pieces.
class Pieces {
public:
    /// A piece has up to `size` bytes, or as many as one text that is appended.
    Pieces(const ByteSink& sink, std::size_t size) : m_sink(sink) { reserve(size); }

    template <typename... Texts>
    void append(const Texts&... texts) {
        char* end = room((mostOf(texts) + ...));
        ((end = put(end, texts)), ...);
        m_end = end;
    }
    /// False, and nothing appended, where the text is not plain.
    bool appendPlain(std::u16string_view text) {
        if (!copyPlain(text, room(text.size()))) return false;
        m_end += text.size();
        return true;
    }
    void passOn() {
        m_sink({m_bytes.get(), static_cast<std::size_t>(m_end - m_bytes.get())});
        m_end = m_bytes.get();
    }

private:
    static constexpr std::size_t mostOf(std::string_view text) { return text.size(); }
    static constexpr std::size_t mostOf(ShortText /*text*/) { return ShortText::most; }
    static char* put(char* to, std::string_view text) { return std::copy(text.begin(), text.end(), to); }
    static char* put(char* to, ShortText text) {
        std::memcpy(to, text.bytes, ShortText::most);
        return to + text.size;
    }

    char* room(std::size_t count) {
        if (static_cast<std::size_t>(m_limit - m_end) < count) makeRoom(count);
        return m_end;
    }
    void makeRoom(std::size_t count) {
        passOn();
        if (static_cast<std::size_t>(m_limit - m_end) < count) reserve(count);
    }
    void reserve(std::size_t size) {
        m_bytes.reset(new char[size]);  // make_unique would clear it
        m_end = m_bytes.get();
        m_limit = m_end + size;
    }

    const ByteSink& m_sink;
    std::unique_ptr<char[]> m_bytes;
    char* m_end = nullptr;
    char* m_limit = nullptr;
};

}  // namespace XMLConfig::detail
