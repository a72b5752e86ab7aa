#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Most text of a document is plain: each character is one byte of UTF-8 and needs no escape. It is copied and examined in
/// one pass.
namespace XMLConfig::detail {

/// Other than 0 for a character that must be written in another way in some places. It has no branch, so that the
/// compiler lets one instruction examine several characters.
constexpr int special(std::uint16_t c) {
    return static_cast<int>(static_cast<std::uint16_t>(c - 0x20U) >= 0x5F) | static_cast<int>(c == '&') |
           static_cast<int>(c == '<') | static_cast<int>(c == '>') | static_cast<int>(c == '"');
}

/// Copies characters as bytes, a number of them at once, and notes whether any is special.
template <std::size_t count>
class Copier {
public:
    void copy(const char16_t* from, char* to) {
        std::array<std::uint16_t, count> units;  // apart from what is written, so that the order of both does not matter
        std::memcpy(units.data(), from, sizeof units);
        std::array<char, count> bytes;
        for (std::size_t i = 0; i < count; ++i) m_others[i] = static_cast<std::uint16_t>(m_others[i] | special(units[i]));
        for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(units[i]);
        std::memcpy(to, bytes.data(), sizeof bytes);
    }
    [[nodiscard]] bool areAllPlain() const { return m_others == std::array<std::uint16_t, count>{}; }

private:
    std::array<std::uint16_t, count> m_others{};
};

/// Copies at least `step` characters, some of them twice. False where one is special.
template <std::size_t step>
bool copyInSteps(std::u16string_view text, char* to) {
    const char16_t* const from = text.data();
    const std::size_t size = text.size();
    Copier<step> copier;
    for (std::size_t i = step; i < size; i += step) copier.copy(from + i - step, to + i - step);
    copier.copy(from + size - step, to + size - step);
    return copier.areAllPlain();
}

/// Copies text to as many bytes. False where it is not plain.
inline bool copyPlain(std::u16string_view text, char* to) {
    if (text.size() >= 16) return copyInSteps<16>(text, to);
    if (text.size() >= 8) return copyInSteps<8>(text, to);
    if (text.size() >= 4) return copyInSteps<4>(text, to);
    return text.empty() || copyInSteps<1>(text, to);
}

}  // namespace XMLConfig::detail
