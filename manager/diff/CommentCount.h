#pragma once

#include <cstddef>
#include <vector>

#include "store/ElementView.h"

namespace XMLConfig::detail {

/// How many comments are among the ones or the others only, by their texts. One whose text has changed counts once.
std::size_t countChangedComments(const std::vector<CommentView>& ones, const std::vector<CommentView>& others);

}  // namespace XMLConfig::detail
