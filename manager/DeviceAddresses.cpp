#include "manager/DeviceAddresses.h"

#include <algorithm>

#include "platform/Words.h"

namespace XMLConfig::detail {
namespace {

bool isHexadecimal(wchar_t letter) { return isDigit(letter) || (letter >= L'a' && letter <= L'f'); }
bool separatesBytes(wchar_t letter) { return letter == L':' || letter == L'-'; }

constexpr std::size_t digitsOfAMAC = 12;

/// Whether a text without separators is a MAC address.
bool isPlainMAC(const std::wstring& text) {
    return text.size() == digitsOfAMAC && std::all_of(text.begin(), text.end(), isHexadecimal);
}

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

std::optional<DeviceID> deviceIDOf(const std::wstring& id) {
    const std::wstring separator = deviceIDSeparator;
    const std::size_t end = id.find(separator);
    if (end == std::wstring::npos) return std::nullopt;
    return DeviceID{id.substr(0, end), id.substr(end + separator.size())};
}

std::wstring plainMAC(const std::wstring& text) {
    std::wstring plain = lowerAscii(text);
    plain.erase(std::remove_if(plain.begin(), plain.end(), separatesBytes), plain.end());
    return plain;
}

bool isMAC(const std::wstring& text) {
    if (!isPlainMAC(plainMAC(text))) return false;
    if (text.size() == digitsOfAMAC) return true;
    if (text.size() != digitsOfAMAC + 5) return false;
    for (std::size_t at = 2; at < text.size(); at += 3)
        if (!separatesBytes(text[at])) return false;
    return true;
}

std::wstring digitsOfMAC(const std::wstring& text) {
    std::wstring plain = plainMAC(text);
    plain.erase(std::remove(plain.begin(), plain.end(), L'.'), plain.end());
    return isPlainMAC(plain) ? plain : std::wstring();
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
