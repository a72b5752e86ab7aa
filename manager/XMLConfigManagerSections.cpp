#include <memory>

#include "base/AssetManager.h"
#include "manager/XMLConfigManager.h"
#include "sections/ColorConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/MediaServerConfig.h"
#include "sections/ProjMapConfig.h"
#include "sections/ProjectorApprovedSlotsConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SiteAnalyticsConfig.h"
#include "sections/SystemConfig.h"
#include "sections/TargetLocatorConfig.h"

namespace {

template <typename T>
void freeSection(T*& section) {
    const std::unique_ptr<T> owner(section);
    section = nullptr;
}

}  // namespace

void XMLConfigManager::makeSections() {
    auto color = std::make_unique<ColorConfig>(m_configInfo, L"");
    auto geometry = std::make_unique<GeometryConfig>(m_configInfo, L"");
    auto screen = std::make_unique<ScreenConfig>(m_configInfo, m_assetManager, L"");
    auto system = std::make_unique<SystemConfig>(m_configInfo, m_assetManager, L"");
    auto targetLocator = std::make_unique<TargetLocatorConfig>(m_configInfo, L"");
    auto approvedSlots = std::make_unique<ProjectorApprovedSlotsConfig>(m_configInfo, L"");
    auto siteAnalytics = std::make_unique<SiteAnalyticsConfig>(m_configInfo, L"");
    auto projMap = std::make_unique<ProjMapConfig>(m_configInfo, L"");
    auto mediaServer = std::make_unique<MediaServerConfig>(m_configInfo, L"");
    m_colorConfig = color.release();
    m_geometryConfig = geometry.release();
    m_screenConfig = screen.release();
    m_systemConfig = system.release();
    m_targetLocatorConfig = targetLocator.release();
    m_projectorApprovedSlotsConfig = approvedSlots.release();
    m_siteAnalyticsConfig = siteAnalytics.release();
    m_projMapConfig = projMap.release();
    m_mediaServerConfig = mediaServer.release();
}

void XMLConfigManager::initializeSections() {
    m_colorConfig->initialize();
    getGeometryConfig()->initialize();
    getScreenConfig()->initialize();
    getSystemConfig()->initialize();
    getTargetLocatorConfig()->initialize();
    m_projectorApprovedSlotsConfig->initialize();
    m_siteAnalyticsConfig->initialize();
    m_projMapConfig->initialize();
    m_mediaServerConfig->initialize();
}

void XMLConfigManager::freeSections() {
    freeSection(m_colorConfig);
    freeSection(m_geometryConfig);
    freeSection(m_screenConfig);
    freeSection(m_systemConfig);
    freeSection(m_targetLocatorConfig);
    freeSection(m_projectorApprovedSlotsConfig);
    freeSection(m_siteAnalyticsConfig);
    freeSection(m_projMapConfig);
    freeSection(m_mediaServerConfig);
}

ColorConfig* XMLConfigManager::getColorConfig() { return m_colorConfig; }

GeometryConfig* XMLConfigManager::getGeometryConfig() { return m_geometryConfig; }

ScreenConfig* XMLConfigManager::getScreenConfig() { return m_screenConfig; }

SystemConfig* XMLConfigManager::getSystemConfig() { return m_systemConfig; }

TargetLocatorConfig* XMLConfigManager::getTargetLocatorConfig() { return m_targetLocatorConfig; }

const TargetLocatorConfig* XMLConfigManager::getTargetLocatorConfig() const { return m_targetLocatorConfig; }

ProjectorApprovedSlotsConfig* XMLConfigManager::getProjectorApprovedSlotsConfig() { return m_projectorApprovedSlotsConfig; }

SiteAnalyticsConfig* XMLConfigManager::getSiteAnalyticsConfig() { return m_siteAnalyticsConfig; }

ProjMapConfig* XMLConfigManager::getProjMapConfig() { return m_projMapConfig; }

const ProjMapConfig* XMLConfigManager::getProjMapConfig() const { return m_projMapConfig; }

MediaServerConfig* XMLConfigManager::getMediaServerConfig() { return m_mediaServerConfig; }

const MediaServerConfig* XMLConfigManager::getMediaServerConfig() const { return m_mediaServerConfig; }
