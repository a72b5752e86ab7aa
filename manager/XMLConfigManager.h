#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Export.h"

class AssetManager;
class CameraConfig;
class ColorConfig;
class ConfigInfo;
class GeometryConfig;
class IQuorvelProductInfo;
class IResourceCache;
class MediaServerConfig;
class ProjMapConfig;
class ProjectorApprovedSlotsConfig;
class ProjectorConfig;
class ScreenConfig;
class SiteAnalyticsConfig;
class SystemConfig;
class TargetLocatorConfig;

namespace XMLConfig::detail {
struct OpenConfiguration;
}

namespace XMLConfig {

class UpgradeObserver;
struct Finding;
struct OutlineNode;

/// What loading did to the document. The file itself is never changed by a load.
enum VersionUpgradeEnum : int {
    NoUpgradeRequired,  ///< the file was at the latest version; so is a new configuration
    Upgraded,           ///< an older file, converted in memory
    UpgradeFailed       ///< never the status of a manager: such a load throws
};

}  // namespace XMLConfig

/// One open configuration: the document, its sections, its devices and its file.
///
/// The manager owns the document and every accessor it hands out; they are gone with it and its copies. It shares the asset
/// manager and the product information and never owns the resource cache. A manager and what it hands out are used by one
/// thread at a time. What the document throws reaches the caller unchanged. The order of the virtual members is part of the
/// interface.
///
/// A copy shares the document and every accessor, those too that either of them makes later; they are freed with the last
/// of the copies. File name, upgrade status and resource cache are the copy's own.
class XMLCONFIG_API XMLConfigManager {
public:
    /// Opens a file and brings its document to the latest version. The caller owns the manager.
    /// A path whose extension is not the product's gives an untitled configuration.
    /// Throws CorvaneException for a file that cannot be opened for update, is malformed, or is newer than the library,
    /// and without product information for a path with an extension.
    static XMLConfigManager* loadConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo, const std::wstring& path);
    /// Loads likewise, and tells `observer` what the upgrade does. It is only used during the call, and may be null. Give an
    /// XMLConfig::UpgradeReceipt to keep it all.
    static XMLConfigManager* loadConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo, const std::wstring& path,
                                               XMLConfig::UpgradeObserver* observer);
    /// A new, untitled configuration whose fixed sections hold their initial values. The caller owns the manager.
    /// Without product information it can be copied, but not saved: saveConfiguration throws CorvaneException.
    static XMLConfigManager* newConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo);

    XMLConfigManager(const XMLConfigManager&) = default;
    XMLConfigManager& operator=(const XMLConfigManager&) = default;

    // Devices, by the ID of their section.

    /// The accessor of that camera, the same one each time. A camera that the document does not have is added to it.
    virtual CameraConfig* getCameraConfig(const std::wstring& id);

    // Sections; never null.

    virtual GeometryConfig* getGeometryConfig();
    virtual ScreenConfig* getScreenConfig();
    virtual SystemConfig* getSystemConfig();
    virtual TargetLocatorConfig* getTargetLocatorConfig();
    /// The accessor of that projector, the same one each time. A projector that the document does not have is added to it.
    virtual ProjectorConfig* getProjectorConfig(const std::wstring& id);
    virtual ~XMLConfigManager();

    const TargetLocatorConfig* getTargetLocatorConfig() const;
    ColorConfig* getColorConfig();
    ProjectorApprovedSlotsConfig* getProjectorApprovedSlotsConfig();
    SiteAnalyticsConfig* getSiteAnalyticsConfig();
    ProjMapConfig* getProjMapConfig();
    const ProjMapConfig* getProjMapConfig() const;
    MediaServerConfig* getMediaServerConfig();
    const MediaServerConfig* getMediaServerConfig() const;

    /// In document order, whether or not an accessor was asked for; devices without an ID are counted, not listed.
    std::vector<std::wstring> getCameraIDs() const;
    std::vector<std::wstring> getProjectorIDs() const;
    int getCameraConfigCount() const;
    int getProjectorConfigCount() const;

    // A device is renamed and removed here only. The accessor's own renameSection() and removeSection() do the same to the
    // document, but the manager is not told: it goes on giving that accessor out for the old ID.

    /// Gives a camera a new ID; true also when the IDs are equal, false when no accessor of `oldId` was ever asked for.
    /// An accessor known under `newId` is displaced: it stays valid, but the manager gives it out no more. IDs that other
    /// sections hold are not changed.
    bool renameCameraConfig(const std::wstring& oldId, const std::wstring& newId);
    /// As for a camera, but false too when an accessor of `newId` was asked for before.
    bool renameProjectorConfig(const std::wstring& oldId, const std::wstring& newId);
    /// Removes a device from the document and deletes its accessor; false, and nothing is changed, when no accessor of
    /// that ID was ever asked for.
    bool removeCameraConfig(const std::wstring& id);
    bool removeProjectorConfig(const std::wstring& id);
    /// Swaps a device with its neighbour of the same kind, earlier (-1) or later (+1) in the document; false when nothing
    /// moved or no accessor of that ID was ever asked for.
    bool moveCameraConfig(const std::wstring& id, int index);
    bool moveProjectorConfig(const std::wstring& id, int index);

    std::shared_ptr<AssetManager> getAssetManager() const;
    const IQuorvelProductInfo* getProductInfo() const;
    /// Null until one is set. The caller keeps ownership.
    IResourceCache* getResourceCache() const;
    void setResourceCache(IResourceCache* resourceCache);
    XMLConfig::VersionUpgradeEnum getVersionUpgradeStatus() const;
    /// Whether the document holds changes that were not saved.
    bool isConfigDirty() const;
    /// Whether somebody else has changed the file since it was loaded or saved; see XMLConfig::hasFileChanged.
    bool isConfigChangedOnDisk() const;
    void setConfigDirty(bool dirty);

    // The document as it is now, unsaved changes included, so that nobody loads the file a second time to look at it.

    /// For XMLConfig::check, XMLConfig::outline and XMLConfig::ElementView. It lives as long as this manager and its copies.
    const ConfigInfo& getDocument() const;
    /// What deserves a look, as XMLConfig::check finds it (manager/Check.h).
    std::vector<XMLConfig::Finding> check() const;
    /// The header elements and sections as a tree (store/Outline.h), a copy of them all.
    std::vector<XMLConfig::OutlineNode> outline() const;

    // The file.

    /// Saves under that path, which becomes the file name; names relative to the old folder are rewritten first. Does
    /// nothing for an extension that is not the product's or a path that begins with its only "."; throws
    /// std::out_of_range for a path without a ".". When the save fails the file stands as it was, the new file name stays.
    /// Give full paths: names relative to a folder that is itself given as relative cannot follow the file elsewhere.
    void saveConfiguration(const std::wstring& path);
    /// Writes the document to another file. File name, dirty flag and build stamps stay.
    void copyConfiguration(const std::wstring& path);
    /// The full path; empty for an untitled configuration.
    std::wstring getFileName() const;
    /// What follows the last "/", or without one the last "\".
    std::wstring getFileNameNoPath() const;
    std::wstring getFileNameNoPathNoExtension() const;
    /// The warp file, as processPath gives it.
    std::wstring getSkorraFilename();
    std::wstring getAdvancedColorFilename() const;
    /// The media server's "outputFile"; where it is empty, a name beside the file that ends in ".mpcdi.xml".
    std::wstring getMpcdiOutputFilename() const;

    /// Takes `path` as the file name, or none where its extension is not the product's. A path without a "." or ending in
    /// one is taken.
    void setConfigUntitledIfDeprecatedExtension(const std::wstring& path);
    /// A stored file name as a path to open: ".skorra" becomes ".skorrax", and a relative name is put into the folder of
    /// the file; it stays relative for an untitled configuration.
    std::wstring processPath(const std::wstring& path) const;
    /// Moves the root of relative names to the folder of `newConfigPath` and rewrites the screen's, so that they still
    /// name the same files. Nothing is changed where the folder is the same.
    void updateRelativeFilePaths(const std::wstring& newConfigPath);

protected:
    /// Takes over the document; `path` sets the root of relative names, not the file name.
    XMLConfigManager(std::shared_ptr<IQuorvelProductInfo> productInfo, ConfigInfo* document, const std::wstring& path);

    void setFileName(const std::wstring& fileName);

private:
    static std::unique_ptr<XMLConfigManager> managerOf(std::unique_ptr<ConfigInfo> document,
                                                       std::shared_ptr<IQuorvelProductInfo> productInfo,
                                                       const std::wstring& path);
    /// The file whose folder is the root of relative names: a relative path is one in the current folder.
    static std::wstring rootFile(const std::wstring& configFile);
    std::wstring configExtension() const;
    void initializeSections();
    void startSiteAnalytics();

    std::shared_ptr<IQuorvelProductInfo> m_productInfo;
    XMLConfig::VersionUpgradeEnum m_versionUpgradeStatus = XMLConfig::NoUpgradeRequired;
    IResourceCache* m_resourceCache = nullptr;
    std::wstring m_fileName;
    std::shared_ptr<XMLConfig::detail::OpenConfiguration> m_open;  // with the copies of this manager
};
