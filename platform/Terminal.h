#pragma once

namespace XMLConfig::detail {

/// Whether someone may be watching standard error, on a terminal that follows escape sequences: false where it goes to a
/// file or another program. The command-line tool compiles this function's source too, which the library does not export.
bool isErrorATerminal();

}  // namespace XMLConfig::detail
