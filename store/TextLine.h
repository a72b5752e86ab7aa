#pragma once

#include <string>

#include "platform/Export.h"

namespace XMLConfig {

/// One line of a file's bytes, as characters, in whatever encoding the file is read: what a message about a malformed file
/// names by "line N". Lines count from 1 as in these messages; the end of the line and a byte order mark are left out. Bytes
/// of UTF-8 that are none stand as U+FFFD, and in another encoding the line ends before such bytes. "" where the file has no
/// such line. Throws CorvaneException where the XML library cannot be started.
XMLCONFIG_API std::wstring textLine(const std::string& bytes, unsigned long long line);

/// The encoding that the declaration at the start of a file's bytes names, as it is written there, whatever encoding the
/// bytes are really in; "" where it names none. Throws CorvaneException where the XML library cannot be started.
XMLCONFIG_API std::wstring namedEncoding(const std::string& bytes);

}  // namespace XMLConfig
