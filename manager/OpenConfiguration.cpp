#include "manager/OpenConfiguration.h"

#include <utility>

#include "base/AssetManager.h"
#include "sections/CameraConfig.h"
#include "sections/CameraItems.h"
#include "sections/ColorConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/MediaServerConfig.h"
#include "sections/ProjMapConfig.h"
#include "sections/ProjectorApprovedSlotsConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/ProjectorItems.h"
#include "sections/ScreenConfig.h"
#include "sections/SiteAnalyticsConfig.h"
#include "sections/SystemConfig.h"
#include "sections/TargetLocatorConfig.h"

namespace XMLConfig::detail {

namespace {

constexpr DeviceKind cameraKind{cameraItems.section, L"camera", true};
constexpr DeviceKind projectorKind{projectorItems.section, L"projector", false};

}  // namespace

OpenConfiguration::OpenConfiguration(std::unique_ptr<ConfigInfo> openDocument, const std::wstring& rootFile)
    : document(std::move(openDocument)),
      assetManager(std::make_shared<AssetManager>(rootFile)),
      cameras(cameraKind, *document),
      projectors(projectorKind, *document),
      color(std::make_unique<ColorConfig>(document.get(), L"")),
      geometry(std::make_unique<GeometryConfig>(document.get(), L"")),
      screen(std::make_unique<ScreenConfig>(document.get(), assetManager, L"")),
      system(std::make_unique<SystemConfig>(document.get(), assetManager, L"")),
      targetLocator(std::make_unique<TargetLocatorConfig>(document.get(), L"")),
      approvedSlots(std::make_unique<ProjectorApprovedSlotsConfig>(document.get(), L"")),
      siteAnalytics(std::make_unique<SiteAnalyticsConfig>(document.get(), L"")),
      projMap(std::make_unique<ProjMapConfig>(document.get(), L"")),
      mediaServer(std::make_unique<MediaServerConfig>(document.get(), L"")) {}

OpenConfiguration::~OpenConfiguration() {
    document.reset();
    cameras.clear();
    color.reset();
    geometry.reset();
    screen.reset();
    system.reset();
    targetLocator.reset();
    approvedSlots.reset();
    siteAnalytics.reset();
    projMap.reset();
    mediaServer.reset();
    projectors.clear();
}

}  // namespace XMLConfig::detail
