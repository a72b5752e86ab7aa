#pragma once

#include <memory>
#include <string>

#include "manager/DeviceCollection.h"

class AssetManager;
class CameraConfig;
class ColorConfig;
class GeometryConfig;
class MediaServerConfig;
class ProjMapConfig;
class ProjectorApprovedSlotsConfig;
class ProjectorConfig;
class ScreenConfig;
class SiteAnalyticsConfig;
class SystemConfig;
class TargetLocatorConfig;

namespace XMLConfig::detail {

/// What a manager shares with its copies: the document and all that works on it.
struct OpenConfiguration {
    /// `rootFile`: the file whose folder is the root of relative names.
    OpenConfiguration(std::unique_ptr<ConfigInfo> openDocument, const std::wstring& rootFile);
    /// The order in which the parts are freed is part of the interface.
    ~OpenConfiguration();
    OpenConfiguration(const OpenConfiguration&) = delete;
    OpenConfiguration& operator=(const OpenConfiguration&) = delete;

    std::unique_ptr<ConfigInfo> document;
    std::shared_ptr<AssetManager> assetManager;
    DeviceCollection<CameraConfig> cameras;
    DeviceCollection<ProjectorConfig> projectors;
    std::unique_ptr<ColorConfig> color;
    std::unique_ptr<GeometryConfig> geometry;
    std::unique_ptr<ScreenConfig> screen;
    std::unique_ptr<SystemConfig> system;
    std::unique_ptr<TargetLocatorConfig> targetLocator;
    std::unique_ptr<ProjectorApprovedSlotsConfig> approvedSlots;
    std::unique_ptr<SiteAnalyticsConfig> siteAnalytics;
    std::unique_ptr<ProjMapConfig> projMap;
    std::unique_ptr<MediaServerConfig> mediaServer;
};

}  // namespace XMLConfig::detail
