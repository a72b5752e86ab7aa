#pragma once

#include <vector>

#include "base/Setting.h"
#include "platform/Export.h"

namespace XMLConfig {

/// Every setting the library knows: section by section in the order of a new document, then projectors, cameras and the
/// results of reprojection accuracy; within a section in the order in which a new section holds them. The first call makes
/// the list, which then lives as long as the process. May be called from any thread.
XMLCONFIG_API const std::vector<Setting>& catalogue();

}  // namespace XMLConfig
