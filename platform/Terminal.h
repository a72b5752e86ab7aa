#pragma once

namespace XMLConfig::detail {

/// Whether someone may be watching standard error, on a terminal that follows escape sequences: false where it goes to a
/// file or another program. The command-line tool compiles these functions' source too, which the library does not export.
bool isErrorATerminal();
/// The same of standard output.
bool isOutputATerminal();

}  // namespace XMLConfig::detail
