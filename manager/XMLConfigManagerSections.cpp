#include "manager/OpenConfiguration.h"
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

void XMLConfigManager::initializeSections() {
    m_open->color->initialize();
    getGeometryConfig()->initialize();
    getScreenConfig()->initialize();
    getSystemConfig()->initialize();
    getTargetLocatorConfig()->initialize();
    m_open->approvedSlots->initialize();
    m_open->siteAnalytics->initialize();
    m_open->projMap->initialize();
    m_open->mediaServer->initialize();
}

ColorConfig* XMLConfigManager::getColorConfig() { return m_open->color.get(); }

GeometryConfig* XMLConfigManager::getGeometryConfig() { return m_open->geometry.get(); }

ScreenConfig* XMLConfigManager::getScreenConfig() { return m_open->screen.get(); }

SystemConfig* XMLConfigManager::getSystemConfig() { return m_open->system.get(); }

TargetLocatorConfig* XMLConfigManager::getTargetLocatorConfig() { return m_open->targetLocator.get(); }

const TargetLocatorConfig* XMLConfigManager::getTargetLocatorConfig() const { return m_open->targetLocator.get(); }

ProjectorApprovedSlotsConfig* XMLConfigManager::getProjectorApprovedSlotsConfig() { return m_open->approvedSlots.get(); }

SiteAnalyticsConfig* XMLConfigManager::getSiteAnalyticsConfig() { return m_open->siteAnalytics.get(); }

ProjMapConfig* XMLConfigManager::getProjMapConfig() { return m_open->projMap.get(); }

const ProjMapConfig* XMLConfigManager::getProjMapConfig() const { return m_open->projMap.get(); }

MediaServerConfig* XMLConfigManager::getMediaServerConfig() { return m_open->mediaServer.get(); }

const MediaServerConfig* XMLConfigManager::getMediaServerConfig() const { return m_open->mediaServer.get(); }
