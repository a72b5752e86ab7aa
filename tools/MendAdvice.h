#pragma once

#include <string>
#include <vector>

#include "tools/CheckText.h"

namespace tool {

/// A line with the command that does all the mends that have to be asked for; of an older file, which nothing else mends,
/// with the one that upgrades it. "" where there is nothing to do, and for standard input, which no command can mend.
std::wstring mendAdvice(const std::vector<CheckedFile::LocatedFinding>& findings, const std::string& file);

}  // namespace tool
