#pragma once

#include <string>

namespace XMLConfig::detail {

/// The name of a new device: `pattern` with its "%s" replaced by the section's identifier.
std::wstring nameOfNewDevice(std::wstring pattern, const std::wstring& sectionID);

}  // namespace XMLConfig::detail
