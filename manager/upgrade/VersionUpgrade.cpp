#include "manager/upgrade/VersionUpgrade.h"

#include <utility>

#include "manager/Upgrade.h"
#include "manager/upgrade/StepDocument.h"
#include "manager/upgrade/StepRecorder.h"
#include "manager/upgrade/UpgradeChain.h"
#include "platform/Early.h"
#include "store/ConfigInfo.h"
#include "store/ConfigInfoFactory.h"
#include "store/TextForms.h"
#include "store/Together.h"

namespace XMLConfig::detail {

namespace {

XMLCONFIG_EARLY const LoggerPtr upgradeLog = logger(L"Ulvano.XMLConfig.VersionUpgrade");

void apply(const UpgradeStep& step, StepDocument& document, UpgradeObserver* observer) {
    if (observer == nullptr) return step.apply(document);
    StepRecorder recorder(document.stored(), step);
    step.apply(document);
    observer->stepDone(recorder.takeReport());
}

}  // namespace

const LoggerPtr& versionUpgradeLog() { return upgradeLog; }

VersionUpgradeEnum doFileVersionConversion(ConfigInfo* document, UpgradeObserver* observer) {
    if (document == nullptr) return UpgradeFailed;
    const double latest = ConfigInfoFactory::getLatestFileVersionNumber();
    const double current = document->getVersion();
    logTrace(upgradeLog, L"doFileVersionConversion(" + versionText(current) + L") -> " + versionText(latest));
    if (current == latest) {
        logInfo(upgradeLog, L"   -> already at current version - no conversion req'd");
        return NoUpgradeRequired;
    }
    // A version that is no number at all, such as "nan", is newer than nothing and older than nothing.
    if (!(current < latest)) {
        logError(upgradeLog, L"   -> ERROR:  unsupported file version #: " + versionText(current));
        return UpgradeFailed;
    }
    logWarn(upgradeLog, L"   -> converting " + versionText(current) + L" file to " + versionText(latest));
    if (observer != nullptr) observer->upgradeBegins(current, latest);
    StepDocument converted(*document);
    for (const UpgradeStep& step : upgradeChain) {
        if (current < step.below) apply(step, converted, observer);
    }
    converted.write();
    document->setVersion(latest);
    document->insertBuildDateAndNumber();
    return Upgraded;
}

}  // namespace XMLConfig::detail

namespace XMLConfig {

UpgradeObserver::~UpgradeObserver() = default;
UpgradeReceipt::~UpgradeReceipt() = default;

void UpgradeReceipt::upgradeBegins(double from, double to) {
    fromVersion = from;
    toVersion = to;
    steps.clear();
}

void UpgradeReceipt::stepDone(UpgradeStepReport step) { steps.push_back(std::move(step)); }

VersionUpgradeEnum upgradeDocument(ConfigInfo& document, UpgradeObserver* observer) {
    detail::Together changes(document);
    try {
        return detail::doFileVersionConversion(&document, observer);
    } catch (...) {
        changes.undo();
        throw;
    }
}

std::wstring versionText(double version) { return detail::versionText(version); }

}  // namespace XMLConfig
