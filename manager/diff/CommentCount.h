#pragma once

#include <cstddef>
#include <vector>

#include "manager/Diff.h"

class ConfigInfo;

namespace XMLConfig::detail {

/// How many comments stand in a section of one document and not in the same section of the other. One whose text has
/// changed counts once. Sections follow the renaming of their devices; what stands in devices that are new or gone does not
/// count, for those are told as a whole.
std::size_t countChangedComments(const ConfigInfo& oldDocument, const ConfigInfo& newDocument, const Difference& difference);

}  // namespace XMLConfig::detail
