#pragma once

#include <string>

#include "platform/Export.h"

namespace XMLConfig {

/// Writes a file of any kind as a document is saved: the bytes are on the disk completely, or the old file stands as it was;
/// any path, of any length, will do. Throws CorvaneException, which names the file and the reason.
XMLCONFIG_API void writeFile(const std::wstring& path, const std::string& bytes);

}  // namespace XMLConfig
