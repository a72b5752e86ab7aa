#pragma once

#include "manager/XMLConfigManager.h"
#include "store/Log.h"

class ConfigInfo;
namespace XMLConfig {
class UpgradeObserver;
}

namespace XMLConfig::detail {

/// The upgrade driver. Null gives UpgradeFailed. Every step's threshold is compared with the version the document had at
/// the start. Throws what the document throws.
VersionUpgradeEnum doFileVersionConversion(ConfigInfo* document, UpgradeObserver* observer = nullptr);

/// "Ulvano.XMLConfig.VersionUpgrade"
const LoggerPtr& versionUpgradeLog();

}  // namespace XMLConfig::detail
