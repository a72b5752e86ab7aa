#pragma once

#include <string>
#include <string_view>

#include "platform/posix/System.h"

namespace XMLConfig::detail {

/// Writes the bytes into the file itself, once the room for them has been taken. After a failure the old text is put
/// back, and the file ends where it did. `path` leads to the file, to read the old text by.
void overwrite(const std::string& path, OpenFile& file, std::string_view bytes);

}  // namespace XMLConfig::detail
