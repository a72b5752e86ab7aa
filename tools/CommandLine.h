#pragma once

#include <string>
#include <vector>

namespace tool {

/// Runs the tool with its arguments in UTF-8, without the program's name, and gives the exit status.
int run(const std::vector<std::string>& arguments);

}  // namespace tool
