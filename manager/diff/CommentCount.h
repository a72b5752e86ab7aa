#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace XMLConfig::detail {

/// How many comments are among the ones or the others only, by their texts. One whose text has changed counts once.
std::size_t countChangedComments(const std::vector<std::wstring>& ones, const std::vector<std::wstring>& others);

}  // namespace XMLConfig::detail
