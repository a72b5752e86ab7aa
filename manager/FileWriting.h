#pragma once

#include <string>

#include "platform/Export.h"

namespace XMLConfig {

/// Writes a file of any kind as safely as a document is saved: either all bytes reach the disk, or the old file stays as it
/// was. The path may be of any length. Throws CorvaneException, which names the file and the reason.
XMLCONFIG_API void writeFile(const std::wstring& path, const std::string& bytes);

}  // namespace XMLConfig
