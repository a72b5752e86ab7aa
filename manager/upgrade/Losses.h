#pragma once

#include <vector>

#include "manager/UpgradeFile.h"

/// What an upgrade takes from a file, besides what its receipt says.
namespace XMLConfig::detail {

/// All cameras of a document before its upgrade, in document order.
std::vector<LostDevice> camerasOf(const ConfigInfo& document);
/// Those of the cameras that the upgrade removed.
std::vector<LostDevice> lostOf(const std::vector<LostDevice>& cameras, const UpgradeReceipt& receipt);
/// The settings of an upgraded document that name a camera by the ID that the upgrade replaced.
std::vector<DanglingReference> danglingReferences(const ConfigInfo& document, const UpgradeReceipt& receipt);

}  // namespace XMLConfig::detail
