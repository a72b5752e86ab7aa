#include "platform/Text.h"

#include <algorithm>
#include <type_traits>

namespace XMLConfig::detail {
namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t illFormed = 0xFFFFFFFF;  // no character: what stands there is not well-formed
constexpr std::size_t chunk = 256;          // units converted before they are appended

template <typename Unit>
constexpr char32_t valueOf(Unit unit) {
    return static_cast<std::make_unsigned_t<Unit>>(unit);
}

constexpr bool isSurrogate(char32_t value) { return value - 0xD800 < 0x800; }
constexpr bool isHighSurrogate(char32_t value) { return value >= 0xD800 && value <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t value) { return value >= 0xDC00 && value <= 0xDFFF; }

struct Utf8Lead {
    int following;    // bytes after the first; 0 for a byte that starts nothing
    char32_t bits;    // what the first byte gives to the character
    char32_t lowest;  // of the second byte
    char32_t highest;
};

constexpr Utf8Lead leadOf(char32_t byte) {
    if (byte < 0xC2 || byte > 0xF4) return {0, 0, 0, 0};
    if (byte < 0xE0) return {1, byte & 0x1F, 0x80, 0xBF};
    if (byte < 0xF0) return {2, byte & 0x0F, byte == 0xE0 ? 0xA0u : 0x80u, byte == 0xED ? 0x9Fu : 0xBFu};
    return {3, byte & 0x07, byte == 0xF0 ? 0x90u : 0x80u, byte == 0xF4 ? 0x8Fu : 0xBFu};
}

template <typename Unit>
char32_t takeUtf8(const Unit*& at, const Unit* end) {
    const char32_t first = valueOf(*at++);
    if (first < 0x80) return first;
    Utf8Lead lead = leadOf(first);
    if (lead.following == 0) return illFormed;
    for (; lead.following > 0; --lead.following) {
        if (at == end || valueOf(*at) < lead.lowest || valueOf(*at) > lead.highest) return illFormed;
        lead.bits = (lead.bits << 6) | (valueOf(*at++) & 0x3F);
        lead.lowest = 0x80;
        lead.highest = 0xBF;
    }
    return lead.bits;
}

template <typename Unit>
char32_t takeUtf16(const Unit*& at, const Unit* end) {
    const char32_t first = valueOf(*at++);
    if (!isSurrogate(first)) return first;
    if (!isHighSurrogate(first) || at == end || !isLowSurrogate(valueOf(*at))) return illFormed;
    return 0x10000 + ((first - 0xD800) << 10) + (valueOf(*at++) - 0xDC00);
}

template <typename Unit>
char32_t takeUtf32(const Unit*& at) {
    const char32_t value = valueOf(*at++);
    return isSurrogate(value) || value > 0x10FFFF ? illFormed : value;
}

/// The next character, or illFormed for the longest part that cannot belong to one.
template <typename Unit>
char32_t takeCharacter(const Unit*& at, const Unit* end) {
    if constexpr (sizeof(Unit) == 1) {
        return takeUtf8(at, end);
    } else if constexpr (sizeof(Unit) == 2) {
        return takeUtf16(at, end);
    } else {
        return takeUtf32(at);
    }
}

template <typename Unit>
Unit* putUtf8(Unit* out, char32_t value) {
    if (value < 0x80) {
        *out++ = static_cast<Unit>(value);
        return out;
    }
    if (value < 0x800) {
        *out++ = static_cast<Unit>(0xC0 | (value >> 6));
    } else {
        if (value < 0x10000) {
            *out++ = static_cast<Unit>(0xE0 | (value >> 12));
        } else {
            *out++ = static_cast<Unit>(0xF0 | (value >> 18));
            *out++ = static_cast<Unit>(0x80 | ((value >> 12) & 0x3F));
        }
        *out++ = static_cast<Unit>(0x80 | ((value >> 6) & 0x3F));
    }
    *out++ = static_cast<Unit>(0x80 | (value & 0x3F));
    return out;
}

template <typename Unit>
Unit* putUtf16(Unit* out, char32_t value) {
    if (value < 0x10000) {
        *out++ = static_cast<Unit>(value);
        return out;
    }
    *out++ = static_cast<Unit>(0xD7C0 + (value >> 10));
    *out++ = static_cast<Unit>(0xDC00 + (value & 0x3FF));
    return out;
}

template <typename Unit>
Unit* putCharacter(Unit* out, char32_t value) {
    if constexpr (sizeof(Unit) == 1) {
        return putUtf8(out, value);
    } else if constexpr (sizeof(Unit) == 2) {
        return putUtf16(out, value);
    } else {
        *out = static_cast<Unit>(value);
        return out + 1;
    }
}

/// Whether each unit is a character that has the same one unit in the other form: one of ASCII, and between UTF-16 and
/// UTF-32 one of the basic plane.
template <typename Out, typename Unit>
bool isUnitByUnit(std::basic_string_view<Unit> text) {
    constexpr bool isUtf8 = sizeof(Out) == 1 || sizeof(Unit) == 1;
    std::make_unsigned_t<Unit> others = 0;  // as large as the units, so that one instruction takes several
    for (const Unit unit : text) {
        const char32_t value = valueOf(unit);
        const char32_t other = isUtf8 ? value & ~char32_t{0x7F} : static_cast<char32_t>(isSurrogate(value)) | (value >> 16);
        others = static_cast<std::make_unsigned_t<Unit>>(others | other);
    }
    return others == 0;
}

template <typename Out, typename Unit>
void convertAndAppend(std::basic_string<Out>& out, std::basic_string_view<Unit> text) {
    if (isUnitByUnit<Out>(text)) {
        const std::size_t begin = out.size();
        out.resize(begin + text.size());  // appending would put the text together beside it first
        std::copy(text.begin(), text.end(), out.data() + begin);
        return;
    }
    Out buffer[(chunk + 1) * 4];  // no unit gives more than four
    const Unit* at = text.data();
    const Unit* const end = at + text.size();
    while (at != end) {
        const Unit* const stop = static_cast<std::size_t>(end - at) > chunk ? at + chunk : end;
        Out* put = buffer;
        while (at < stop) {
            const char32_t character = takeCharacter(at, end);
            put = putCharacter(put, character == illFormed ? replacement : character);
        }
        out.append(buffer, static_cast<std::size_t>(put - buffer));
    }
}

template <typename Out, typename Unit>
std::basic_string<Out> converted(std::basic_string_view<Unit> text) {
    if (isUnitByUnit<Out>(text)) return std::basic_string<Out>(text.begin(), text.end());
    std::basic_string<Out> out;
    convertAndAppend(out, text);
    return out;
}

constexpr bool xmlHolds(char32_t character) {
    if (character < 0x20) return character == 0x9 || character == 0xA || character == 0xD;
    return character != illFormed && character != 0xFFFE && character != 0xFFFF;
}

}  // namespace

std::string toUtf8(std::wstring_view text) { return converted<char>(text); }
std::wstring fromUtf8(std::string_view text) { return converted<wchar_t>(text); }
std::u16string toUtf16(std::wstring_view text) { return converted<char16_t>(text); }
std::wstring fromUtf16(std::u16string_view text) { return converted<wchar_t>(text); }

void appendUtf16(std::u16string& out, std::wstring_view text) { convertAndAppend(out, text); }
void appendUtf8(std::string& out, std::u16string_view text) { convertAndAppend(out, text); }

bool equal(std::u16string_view left, std::wstring_view right) {
    if (left.size() < right.size()) return false;
    const char16_t* at = left.data();
    const char16_t* const leftEnd = at + left.size();
    const wchar_t* from = right.data();
    const wchar_t* const end = from + right.size();
    for (; from != end && at != leftEnd && valueOf(*from) < 0xD800; ++from, ++at) {
        if (valueOf(*from) != *at) return false;
    }
    while (from != end) {
        const char32_t character = takeCharacter(from, end);
        char16_t units[2];
        const char16_t* const unitsEnd = putCharacter(units, character == illFormed ? replacement : character);
        for (const char16_t* unit = units; unit != unitsEnd; ++unit, ++at) {
            if (at == leftEnd || *at != *unit) return false;
        }
    }
    return at == leftEnd;
}

std::optional<std::wstring> fromUtf8Strictly(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        if (takeCharacter(at, end) == illFormed) return std::nullopt;
    }
    return fromUtf8(text);
}

std::optional<CharacterFault> firstCharacterXmlCannotHold(std::wstring_view text) {
    const wchar_t* at = text.data();
    const wchar_t* const end = at + text.size();
    for (std::size_t position = 1; at != end; ++position) {
        const char32_t first = valueOf(*at);
        if (first >= 0x20 && first < 0xD800) {
            ++at;
            continue;
        }
        const char32_t character = takeCharacter(at, end);
        if (!xmlHolds(character)) return CharacterFault{position, character == illFormed ? first : character};
    }
    return std::nullopt;
}

}  // namespace XMLConfig::detail
