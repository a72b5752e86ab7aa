#pragma once

#include <string>
#include <vector>

#include "tools/CheckText.h"

namespace tool {

/// The commands that mend what --fix alone leaves, a line each: one for all the mends that have to be asked for, and one for
/// each error or warning that another command mends. "" for standard input, which no command can mend.
std::wstring mendAdvice(const std::vector<CheckedFile::Place>& findings, const std::string& file);

}  // namespace tool
