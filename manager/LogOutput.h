#pragma once

#include "platform/Export.h"

namespace XMLConfig {

enum class LogLevel { Error, Warn, Info, Trace, Off };

/// Sends what the library logs from that level up, nothing for Off, to standard error, a line each as "xmlconfig: WARN:
/// text" in UTF-8 whatever the locale, and nowhere else; on a terminal in the place of an unfinished line. A later call
/// replaces the level. For programs that do not set up the logging themselves.
XMLCONFIG_API void logToStandardError(LogLevel level);

}  // namespace XMLConfig
