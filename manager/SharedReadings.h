#pragma once

#include <vector>

#include "manager/UpgradeFile.h"

namespace XMLConfig::detail {

/// What projectors of the upgraded document read otherwise than before the step of version 9.0, by which they share settings
/// through the geometry section: before, each had its own value, else that of the geometry section, else the default.
std::vector<ValueReadOtherwise> readOtherwise(const ConfigInfo& document, const UpgradeReceipt& receipt);

}  // namespace XMLConfig::detail
