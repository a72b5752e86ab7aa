#include "manager/UlvanoDiagnostics.h"

#include <atomic>
#include <exception>

#include "manager/ProductExtension.h"
#include "manager/XMLConfigManager.h"
#include "platform/Early.h"
#include "platform/Paths.h"
#include "sections/SystemConfig.h"
#include "store/Log.h"

namespace UlvanoDiagnostics {

namespace {

XMLCONFIG_EARLY const XMLConfig::detail::LoggerPtr diagnosticsLog = XMLConfig::detail::logger(L"Ulvano.UlvanoDiagnostics");

std::atomic<bool> isVirtualLoad{false};

std::wstring snapshotName(XMLConfigManager& manager) {
    const std::wstring name = manager.getFileName();
    if (!name.empty()) return XMLConfig::detail::lastComponent(name);
    return SystemConfig::DEFAULT_FILE_BASENAME + XMLConfig::detail::extensionOf(manager.getProductInfo());
}

}  // namespace

void setVirtualLoad(bool isVirtual) { isVirtualLoad = isVirtual; }

bool doVirtualLoad() { return isVirtualLoad; }

void saveConfiguration(XMLConfigManager* manager) {
    try {
        manager->copyConfiguration(XMLConfig::detail::joinPath(getDataSubDirectory(), snapshotName(*manager)));
    } catch (const std::exception&) {
        XMLConfig::detail::logWarn(diagnosticsLog,
                                   L"Error saveConfiguration(): An error occurred trying to save configuration");
    }
}

}  // namespace UlvanoDiagnostics
