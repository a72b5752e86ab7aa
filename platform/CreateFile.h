#pragma once

#include <string>

#include "platform/Files.h"

namespace XMLConfig::detail {

/// Makes a file that must not exist yet, and that nobody sees before it is complete and flushed to the disk. False, and
/// nothing is changed, when something of that name exists, be it a link to nothing; that is found out by the system in one
/// step with giving the name. On failure throws FileError, or what the source throws, and leaves nothing behind.
/// Where `rightsOf` names a file, nobody but this user may do more with the new one than with that, as after copyToNewFile;
/// else it has what a new file gets.
bool createFile(const std::wstring& path, const ByteSource& source, const std::wstring& rightsOf = {});

}  // namespace XMLConfig::detail
