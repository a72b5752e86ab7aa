#pragma once

#include "platform/Export.h"

namespace XMLConfig {

/// How much the library tells in its log, from errors alone to every step; nothing for Off.
enum class LogLevel { Error, Warn, Info, Trace, Off };

/// Sends what the library logs at that level, or at a more serious one, to standard error, and nowhere else: a line each,
/// such as "xmlconfig: WARN: text", in UTF-8 whatever the locale. On a terminal the line takes the place of an unfinished
/// one. A later call replaces the level. For programs that do not set up the logging themselves. May be called from any
/// thread.
XMLCONFIG_API void logToStandardError(LogLevel level);

}  // namespace XMLConfig
