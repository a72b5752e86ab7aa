#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/Export.h"

/// What a name stands for, asked as the library's loads and saves ask it: any character, any length, both separators.
namespace XMLConfig {

/// Whether anything has this name: a file, a folder, also a link that leads nowhere.
XMLCONFIG_API bool isNameTaken(const std::wstring& path);
/// Whether the name is that of a device whatever folder and ending are put to it, as "NUL.skorrax" is on Windows.
XMLCONFIG_API bool isDeviceName(const std::wstring& path);
/// The name for the streams of the standard library, which of themselves reach no long name on Windows and take "\" for a
/// part of a name elsewhere.
XMLCONFIG_API std::filesystem::path pathForStreams(const std::wstring& path);
/// The files that a name with "*" or "?" stands for, sorted, where the system's shell leaves such names to programs
/// (Windows). None for another name, where nothing fits, and on systems whose shells have done it.
XMLCONFIG_API std::vector<std::wstring> filesMatching(const std::wstring& pattern);

}  // namespace XMLConfig
