#pragma once

#include <vector>

#include "manager/UpgradeFile.h"

/// What an upgrade takes from a file, besides what its receipt says.
namespace XMLConfig::detail {

/// All projectors and cameras of a document before its upgrade, each kind in document order.
std::vector<LostDevice> devicesOf(const ConfigInfo& document);
/// The devices among these that the upgrade removed.
std::vector<LostDevice> lostOf(const std::vector<LostDevice>& devices, const UpgradeReceipt& receipt);
/// The devices among these that the upgrade gave another ID.
std::vector<DeviceWithNewID> renamedOf(const std::vector<LostDevice>& devices, const UpgradeReceipt& receipt);
/// The settings of an upgraded document that name a camera by the ID that it had before.
std::vector<DanglingReference> danglingReferences(const ConfigInfo& document, const std::vector<DeviceWithNewID>& renamed);

}  // namespace XMLConfig::detail
