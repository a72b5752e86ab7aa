#pragma once

#include <string>

namespace tool {

/// For a message that names "line N, column M" of a file's bytes: that line and, below it, a caret under the column, each on
/// a line of its own and without a line feed at the end. "" for other messages and for places that the file does not have. A
/// long line is cut about the column.
std::wstring faultLine(const std::wstring& message, const std::string& bytes);

/// For a message of that kind about bytes that are in another encoding than they say: "; it is written in UTF-16, but names
/// UTF-8". "" for others.
std::wstring encodingReason(const std::wstring& message, const std::string& bytes);

}  // namespace tool
