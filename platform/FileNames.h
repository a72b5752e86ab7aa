#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/Export.h"

/// What a file's name stands for, found as the library's loads and saves find it: a name may hold any character, may be of
/// any length, and both "/" and "\" separate its parts.
namespace XMLConfig {

/// Whether anything has this name: a file, a folder, also a link that leads nowhere.
XMLCONFIG_API bool isNameTaken(const std::wstring& path);
/// Whether the system takes the name for a device, whatever folder stands before it and whatever ending after it, as
/// Windows takes "shows/NUL.skorrax". False on other systems.
XMLCONFIG_API bool isDeviceName(const std::wstring& path);
/// The name in the form that the standard library's streams open: without it they reach no long name on Windows, and
/// elsewhere they take "\" for a part of a name.
XMLCONFIG_API std::filesystem::path pathForStreams(const std::wstring& path);
/// On Windows, whose shell leaves such names to programs, the files that a name with "*" or "?" stands for, sorted; empty
/// where no file fits, and for a name without those characters. Empty on other systems, where the shell has replaced such
/// names before the program starts.
XMLCONFIG_API std::vector<std::wstring> filesMatching(const std::wstring& pattern);

}  // namespace XMLConfig
