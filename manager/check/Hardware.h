#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// Addresses of devices.
namespace XMLConfig::detail {

/// Six pairs of hexadecimal digits, with colons or hyphens between them or nothing.
bool isMAC(const std::wstring& text);
/// The MAC address in lower case and without what separates its pairs.
std::wstring plainMAC(const std::wstring& text);

/// Four numbers from 0 to 255 with dots between; nothing for other text.
std::optional<std::uint32_t> ipv4Of(const std::wstring& text);

}  // namespace XMLConfig::detail
