#pragma once

#include <string>
#include <vector>

#include "tools/Changes.h"

/// What the verbs that change settings do with one operand, for others that do the same.
namespace tool {

/// Does what "set" does with ADDRESS=VALUE, without --force.
std::vector<Change> applySet(ConfigInfo& document, const std::wstring& assignment);
/// Does what "unset" does with ADDRESS.
std::vector<Change> applyUnset(ConfigInfo& document, const std::wstring& address, const std::string& file);

}  // namespace tool
