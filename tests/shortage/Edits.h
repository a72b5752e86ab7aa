#pragma once

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

}  // namespace edits
