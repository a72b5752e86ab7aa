#include "manager/XMLConfigManager.h"

#include <stdexcept>
#include <utility>

#include "manager/Check.h"
#include "manager/ManagerLog.h"
#include "manager/OpenConfiguration.h"
#include "manager/ProductExtension.h"
#include "manager/Upgrade.h"
#include "manager/VirtualDevices.h"
#include "manager/upgrade/VersionUpgrade.h"
#include "sections/SiteAnalyticsConfig.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "store/DocumentSaving.h"
#include "store/FileChange.h"

using XMLConfig::detail::logInfo;
using XMLConfig::detail::logWarn;
using XMLConfig::detail::managerLog;
using XMLConfig::detail::OpenConfiguration;

namespace {

[[noreturn]] void failUpgrade(const std::wstring& path) {
    // The message names no function that there is, on purpose: applications know it.
    const std::wstring message =
        L"Error loadConfiguration(): doFileVersionUpgrade() failed attempting to upgrade file: " + path;
    logWarn(managerLog, message);
    throw CorvaneException(message);
}

}  // namespace

XMLConfigManager* XMLConfigManager::loadConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo,
                                                      const std::wstring& path) {
    return loadConfiguration(std::move(productInfo), path, nullptr);
}

XMLConfigManager* XMLConfigManager::loadConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo,
                                                      const std::wstring& path, XMLConfig::UpgradeObserver* observer) {
    logInfo(managerLog, L"loadConfiguration('" + path + L"')");
    std::unique_ptr<ConfigInfo> document(ConfigInfoFactory::getInstance()->createFromFile(path));
    if (!document) return nullptr;
    const XMLConfig::VersionUpgradeEnum status = XMLConfig::detail::doFileVersionConversion(document.get(), observer);
    if (status == XMLConfig::UpgradeFailed) {
        document.reset();
        failUpgrade(path);
    }
    XMLConfig::detail::applyVirtualDevices(*document);

    std::unique_ptr<XMLConfigManager> manager = managerOf(std::move(document), std::move(productInfo), path);
    manager->setFileName(path);
    manager->setConfigUntitledIfDeprecatedExtension(path);
    manager->m_versionUpgradeStatus = status;
    manager->startSiteAnalytics();
    return manager.release();
}

XMLConfigManager* XMLConfigManager::loadWithReceipt(std::shared_ptr<IQuorvelProductInfo> productInfo,
                                                    const std::wstring& path) {
    const auto receipt = std::make_shared<XMLConfig::UpgradeReceipt>();
    XMLConfigManager* const manager = loadConfiguration(std::move(productInfo), path, receipt.get());
    if (manager != nullptr) manager->m_upgradeReceipt = receipt;
    return manager;
}

XMLConfigManager* XMLConfigManager::newConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo) {
    logInfo(managerLog, L"newConfiguration()");
    std::unique_ptr<ConfigInfo> document(ConfigInfoFactory::getInstance()->createNew());
    std::unique_ptr<XMLConfigManager> manager = managerOf(std::move(document), std::move(productInfo), L"");
    manager->initializeSections();
    return manager.release();
}

std::unique_ptr<XMLConfigManager> XMLConfigManager::managerOf(std::unique_ptr<ConfigInfo> document,
                                                              std::shared_ptr<IQuorvelProductInfo> productInfo,
                                                              const std::wstring& path) {
    return std::unique_ptr<XMLConfigManager>(new XMLConfigManager(std::move(productInfo), document.release(), path));
}

XMLConfigManager::XMLConfigManager(std::shared_ptr<IQuorvelProductInfo> productInfo, ConfigInfo* document,
                                   const std::wstring& path)
    : m_productInfo(std::move(productInfo)) {
    std::unique_ptr<ConfigInfo> owned(document);
    m_open = std::make_shared<OpenConfiguration>(std::move(owned), rootFile(path));
}

XMLConfigManager::~XMLConfigManager() = default;

// A visit is counted in the open document only: opening a file is no change to save.
void XMLConfigManager::startSiteAnalytics() {
    const bool dirty = isConfigDirty();
    m_open->siteAnalytics->onLoad();
    setConfigDirty(dirty);
}

std::wstring XMLConfigManager::configExtension() const { return XMLConfig::detail::extensionOf(m_productInfo.get()); }

void XMLConfigManager::saveConfiguration(const std::wstring& path) {
    const std::size_t dot = path.rfind(L'.');
    if (dot == 0) return;
    if (dot == std::wstring::npos) throw std::out_of_range("invalid string position");
    if (path.substr(dot) != configExtension()) return;
    setFileName(path);
    updateRelativeFilePaths(m_fileName);
    logInfo(managerLog, L"saveConfiguration('" + m_fileName + L"')");
    m_open->document->insertBuildDateAndNumber();
    m_open->document->save(m_fileName);
}

void XMLConfigManager::copyConfiguration(const std::wstring& path) {
    logInfo(managerLog, L"copyConfiguration('" + path + L"')");
    XMLConfig::detail::saveCopy(*m_open->document, path);
}

std::shared_ptr<AssetManager> XMLConfigManager::getAssetManager() const { return m_open->assetManager; }

const IQuorvelProductInfo* XMLConfigManager::getProductInfo() const { return m_productInfo.get(); }

IResourceCache* XMLConfigManager::getResourceCache() const { return m_resourceCache; }

void XMLConfigManager::setResourceCache(IResourceCache* resourceCache) { m_resourceCache = resourceCache; }

XMLConfig::VersionUpgradeEnum XMLConfigManager::getVersionUpgradeStatus() const { return m_versionUpgradeStatus; }

const XMLConfig::UpgradeReceipt* XMLConfigManager::getUpgradeReceipt() const { return m_upgradeReceipt.get(); }

bool XMLConfigManager::isConfigDirty() const { return m_open->document->isDirty(); }

bool XMLConfigManager::isConfigChangedOnDisk() const { return XMLConfig::hasFileChanged(*m_open->document); }

void XMLConfigManager::setConfigDirty(bool dirty) { m_open->document->setDirty(dirty); }

const ConfigInfo& XMLConfigManager::getDocument() const { return *m_open->document; }

std::vector<XMLConfig::Finding> XMLConfigManager::check() const { return XMLConfig::check(getDocument()); }
