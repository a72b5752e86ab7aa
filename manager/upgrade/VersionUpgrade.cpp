#include "manager/upgrade/VersionUpgrade.h"

#include "manager/XMLConfigManager.h"
#include "platform/Numbers.h"
#include "store/ConfigInfo.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "store/Log.h"

namespace XMLConfig::detail {

namespace {

const LoggerPtr upgradeLog = logger(L"Ulvano.XMLConfig.VersionUpgrade");

std::wstring shown(double version) { return formatFixed(version, 3); }

}  // namespace

VersionUpgradeEnum doFileVersionConversion(ConfigInfo* document) {
    if (document == nullptr) return UpgradeFailed;
    const double latest = ConfigInfoFactory::getLatestFileVersionNumber();
    const double current = document->getVersion();
    logTrace(upgradeLog, L"doFileVersionConversion(" + shown(current) + L") -> " + shown(latest));
    if (current == latest) {
        logInfo(upgradeLog, L"   -> already at current version - no conversion req'd");
        return NoUpgradeRequired;
    }
    if (current > latest) {
        logError(upgradeLog, L"   -> ERROR:  unsupported file version #: " + shown(current));
        return UpgradeFailed;
    }
    throw CorvaneException(L"Error doFileVersionConversion: no conversion of version " + shown(current) + L" to " +
                           shown(latest));
}

}  // namespace XMLConfig::detail
