#include "manager/check/Hardware.h"

#include <algorithm>

#include "manager/check/Texts.h"

namespace XMLConfig::detail {
namespace {

bool isDigit(wchar_t letter) { return letter >= L'0' && letter <= L'9'; }
bool isHexadecimal(wchar_t letter) { return isDigit(letter) || (letter >= L'a' && letter <= L'f'); }
bool isSeparator(wchar_t letter) { return letter == L':' || letter == L'-'; }

/// Reads a number from 0 to 255; `at` becomes the place after it.
std::optional<std::uint32_t> byteAt(const std::wstring& text, std::size_t& at) {
    std::uint32_t value = 0;
    const std::size_t begin = at;
    while (at < text.size() && isDigit(text[at]) && at - begin < 3)
        value = 10 * value + static_cast<std::uint32_t>(text[at++] - L'0');
    if (at == begin || value > 255) return std::nullopt;
    return value;
}

}  // namespace

std::wstring plainMAC(const std::wstring& text) {
    std::wstring plain = lowerAscii(text);
    plain.erase(std::remove_if(plain.begin(), plain.end(), isSeparator), plain.end());
    return plain;
}

bool isMAC(const std::wstring& text) {
    constexpr std::size_t digits = 12;
    const std::wstring plain = plainMAC(text);
    if (plain.size() != digits || !std::all_of(plain.begin(), plain.end(), isHexadecimal)) return false;
    if (text.size() == digits) return true;
    if (text.size() != digits + 5) return false;
    for (std::size_t at = 2; at < text.size(); at += 3)
        if (!isSeparator(text[at])) return false;
    return true;
}

std::optional<std::uint32_t> ipv4Of(const std::wstring& text) {
    std::uint32_t address = 0;
    std::size_t at = 0;
    for (int part = 0; part < 4; ++part) {
        if (part > 0 && (at >= text.size() || text[at++] != L'.')) return std::nullopt;
        const std::optional<std::uint32_t> value = byteAt(text, at);
        if (!value) return std::nullopt;
        address = address << 8U | *value;
    }
    return at == text.size() ? std::optional<std::uint32_t>(address) : std::nullopt;
}

}  // namespace XMLConfig::detail
