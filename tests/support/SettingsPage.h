#pragma once

#include <string>

namespace XMLConfig::detail {

/// The reference page of all settings in Markdown, made from the catalogue: docs/settings.md.
std::wstring settingsPage();

}  // namespace XMLConfig::detail
