#pragma once

#include <string>

#include "platform/Export.h"

namespace UlvanoDiagnostics {

/// The folder for the diagnostics data of this run, without a trailing separator. The first call makes it:
/// `UlvanoDiagnostics/<UTC date and time>-<process id>` below the temporary folder, one a process, for this user alone.
/// Where `UlvanoDiagnostics` is another user's, a link or open to others, `UlvanoDiagnostics-<user>` takes its place.
/// May be called from several threads. A folder that cannot be made is returned all the same; writing into it then fails.
XMLCONFIG_API std::wstring getDataSubDirectory();
/// From now on getDataSubDirectory() returns `path`, as it is given. The folder is not made. May be called from several
/// threads.
XMLCONFIG_API void setDataSubDirectory(const std::wstring& path);

}  // namespace UlvanoDiagnostics
