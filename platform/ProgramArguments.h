#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"

namespace XMLConfig {

/// The words after the program's name on its command line, in UTF-8. `count` and `words` are those of main. On Windows,
/// where main gets words that have lost what the user's code page lacks, they are taken from the system instead; elsewhere
/// they are the bytes that main got.
XMLCONFIG_API std::vector<std::string> utf8Arguments(int count, char** words);

}  // namespace XMLConfig
