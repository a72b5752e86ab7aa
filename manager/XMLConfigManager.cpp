#include "manager/XMLConfigManager.h"

#include <stdexcept>
#include <utility>

#include "base/AssetManager.h"
#include "manager/ManagerLog.h"
#include "manager/ProductExtension.h"
#include "manager/VirtualDevices.h"
#include "manager/upgrade/VersionUpgrade.h"
#include "sections/CameraConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/SiteAnalyticsConfig.h"
#include "store/ConfigInfo.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"

using XMLConfig::detail::logInfo;
using XMLConfig::detail::logWarn;
using XMLConfig::detail::managerLog;

namespace {

[[noreturn]] void failUpgrade(const std::wstring& path) {
    const std::wstring message =
        L"Error loadConfiguration(): doFileVersionUpgrade() failed attempting to upgrade file: " + path;
    logWarn(managerLog, message);
    throw CorvaneException(message);
}

template <typename Owned>
void freeAll(const Owned& devices) {
    for (const auto& [id, device] : devices) delete device;
}

}  // namespace

XMLConfigManager* XMLConfigManager::loadConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo,
                                                      const std::wstring& path) {
    logInfo(managerLog, L"loadConfiguration('" + path + L"')");
    std::unique_ptr<ConfigInfo> document(ConfigInfoFactory::getInstance()->createFromFile(path));
    if (!document) return nullptr;
    const XMLConfig::VersionUpgradeEnum status = XMLConfig::detail::doFileVersionConversion(document.get());
    if (status == XMLConfig::UpgradeFailed) {
        document.reset();
        failUpgrade(path);
    }
    XMLConfig::detail::applyVirtualDevices(*document);

    std::unique_ptr<XMLConfigManager> manager = taking(std::move(document), std::move(productInfo), path);
    manager->setFileName(path);
    manager->setConfigUntitledIfDeprecatedExtension(path);
    manager->m_versionUpgradeStatus = status;
    manager->startSiteAnalytics();
    return manager.release();
}

XMLConfigManager* XMLConfigManager::newConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo) {
    logInfo(managerLog, L"newConfiguration()");
    std::unique_ptr<ConfigInfo> document(ConfigInfoFactory::getInstance()->createNew());
    std::unique_ptr<XMLConfigManager> manager = taking(std::move(document), std::move(productInfo), L"");
    manager->initializeSections();
    return manager.release();
}

std::unique_ptr<XMLConfigManager> XMLConfigManager::taking(std::unique_ptr<ConfigInfo> document,
                                                           std::shared_ptr<IQuorvelProductInfo> productInfo,
                                                           const std::wstring& path) {
    std::unique_ptr<XMLConfigManager> manager(new XMLConfigManager(std::move(productInfo), document.get(), path));
    static_cast<void>(document.release());
    return manager;
}

XMLConfigManager::XMLConfigManager(std::shared_ptr<IQuorvelProductInfo> productInfo, ConfigInfo* document,
                                   const std::wstring& path)
    : m_productInfo(std::move(productInfo)),
      m_configInfo(document),
      m_assetManager(std::make_shared<AssetManager>(rootFile(path))) {
    makeSections();
}

XMLConfigManager::~XMLConfigManager() {
    delete m_configInfo;
    m_configInfo = nullptr;
    freeAll(m_cameras);
    for (CameraConfig* camera : m_displacedCameras) delete camera;
    freeSections();
    freeAll(m_projectors);
}

// A visit is counted in the open document only: opening a file is no change to save.
void XMLConfigManager::startSiteAnalytics() {
    const bool dirty = isConfigDirty();
    m_siteAnalyticsConfig->onLoad();
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
    m_configInfo->insertBuildDateAndNumber();
    m_configInfo->save(m_fileName);
}

void XMLConfigManager::copyConfiguration(const std::wstring& path) {
    logInfo(managerLog, L"copyConfiguration('" + path + L"')");
    const bool dirty = m_configInfo->isDirty();
    m_configInfo->save(path);
    m_configInfo->setDirty(dirty);
}

std::shared_ptr<AssetManager> XMLConfigManager::getAssetManager() const { return m_assetManager; }

const IQuorvelProductInfo* XMLConfigManager::getProductInfo() const { return m_productInfo.get(); }

IResourceCache* XMLConfigManager::getResourceCache() const { return m_resourceCache; }

void XMLConfigManager::setResourceCache(IResourceCache* resourceCache) { m_resourceCache = resourceCache; }

XMLConfig::VersionUpgradeEnum XMLConfigManager::getVersionUpgradeStatus() const { return m_versionUpgradeStatus; }

bool XMLConfigManager::isConfigDirty() const { return m_configInfo->isDirty(); }

void XMLConfigManager::setConfigDirty(bool dirty) { m_configInfo->setDirty(dirty); }
