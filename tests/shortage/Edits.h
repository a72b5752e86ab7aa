#pragma once

#include <cstddef>
#include <vector>

#include "store/ConfigInfo.h"

/// What a user does to a document all day, each with what undoes it, so that it can be repeated for ever.
namespace edits {

struct Edit {
    const char* name;
    void (*run)(ConfigInfo& document, int repetition);  ///< throws std::logic_error where the document is not as expected
};

const std::vector<Edit>& all();
/// A document that these edits work on.
void prepare(ConfigInfo& document);

/// The most bytes in use at any time while an edit is repeated.
std::size_t mostBytes(const Edit& edit, ConfigInfo& document, int repetitions);
/// By so much that may vary: a few blocks of the XML library, since the tree is copied at other times than before.
inline constexpr std::size_t slack = 48 * 1024;

}  // namespace edits
