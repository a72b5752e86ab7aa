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
/// That of ADDRESS=VALUE. Throws CorvaneParseException for other text.
AskedChange askedChangeOf(const std::wstring& text);
/// Those of the operands, and then those of the lines that --from names. Throws WrongOperands for a line that is none, and
/// Unreadable.
std::vector<AskedChange> askedChanges(const Request& request);

}  // namespace tool
