#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// What names and reaches a device: its ID, and addresses of networks.
namespace XMLConfig::detail {

inline constexpr const wchar_t* deviceIDSeparator = L"***";

/// The parts of an ID such as "PGR***02:1c:00:51:00:a0".
struct DeviceID {
    std::wstring type;     ///< of the device: "PGR"
    std::wstring address;  ///< "02:1c:00:51:00:a0"
};
/// Nothing for an ID without "***".
std::optional<DeviceID> deviceIDOf(const std::wstring& id);

/// Six pairs of hexadecimal digits, with colons or hyphens between them or nothing.
bool isMAC(const std::wstring& text);
/// The MAC address in lower case and without what separates its pairs.
std::wstring plainMAC(const std::wstring& text);
/// Twelve hexadecimal digits in lower case, or "" for a text of other digits. Laxer than isMAC, because it is for finding a
/// device again and not for judging what was written: colons, hyphens and dots may stand anywhere.
std::wstring digitsOfMAC(const std::wstring& text);

/// Four numbers from 0 to 255 with dots between; nothing for other text.
std::optional<std::uint32_t> ipv4Of(const std::wstring& text);

}  // namespace XMLConfig::detail
