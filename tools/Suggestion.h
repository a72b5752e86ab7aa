#pragma once

#include <string>
#include <vector>

namespace tool {

/// "; did you mean "..."?" with the nearest of the names, or nothing when none is near.
std::wstring suggestion(const std::wstring& text, const std::vector<std::wstring>& names);

}  // namespace tool
