#pragma once

#include <string_view>

namespace XMLConfig::detail {

// The command-line tool compiles these functions' source too, which the library does not export.

/// Whether someone may be watching standard error, on a terminal that follows escape sequences: false where it goes to a
/// file or another program.
bool isErrorATerminal();
/// Whether someone may be watching standard output, on such a terminal.
bool isOutputATerminal();

/// Writes UTF-8 text to standard error, at once and in one piece, in the form that a console shows.
void writeToError(std::string_view text);
/// Lets std::cin, std::cout and std::cerr carry the bytes that the program writes and gets, no line ending changed, and a
/// console show UTF-8 text. For the start of a program, once.
void prepareStandardStreams();
/// From here on a reader of standard output that goes away makes a write fail and no longer ends the program.
void outliveReader();

}  // namespace XMLConfig::detail
