#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "store/Address.h"

/// What the command line of "set" asks for.
namespace tool {

struct Request;

/// One change that is asked for: an operand or a line.
struct AskedChange {
    XMLConfig::Assignment assignment;
    std::wstring part;  ///< in a device snippet; empty for the whole place
};

/// The place where the value of ADDRESS=VALUE begins: after the first "=" that stands in no brackets; npos where there is
/// none.
std::size_t valueStart(const std::wstring& assignment);
/// The change that ADDRESS=VALUE asks for. Throws CorvaneParseException for other text.
AskedChange askedChangeOf(const std::wstring& text);
/// The changes that the operands ask for, and after them those of the lines in the file that --from names. Throws
/// WrongOperands for a line that asks for none, and Unreadable for a file that cannot be read.
std::vector<AskedChange> askedChanges(const Request& request);

}  // namespace tool
