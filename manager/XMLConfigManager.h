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
class UpgradeReceipt;
struct Finding;

/// What loading did to the document. The file itself is never changed by a load.
enum VersionUpgradeEnum : int {
    NoUpgradeRequired,  ///< the file was at the latest version; so is a new configuration
    Upgraded,           ///< an older file, converted in memory
    UpgradeFailed       ///< never the status of a manager: such a load throws
};

}  // namespace XMLConfig

/// One open configuration: the document, its sections, its devices and its file.
///
/// The manager owns the document and every accessor that it hands out; they end with it and its copies. It shares the asset
/// manager and the product information and never owns the resource cache. A manager and what it hands out are used by one
/// thread at a time. What the document throws reaches the caller unchanged. The order of the virtual members is part of the
/// interface.
///
/// A copy shares the document and every accessor, those too that either of them makes later; they are freed with the last
/// of the copies. File name, upgrade status and resource cache are the copy's own.
class XMLCONFIG_API XMLConfigManager {
public:
    /// Opens a file and brings its document to the latest version. The caller owns the manager.
    /// A path whose extension is not the product's gives an untitled configuration. The environment variables
    /// UL_VIRTUAL_PROJECTOR ("config" or "fake") and UL_VIRTUAL_CAMERA ("config") put virtual devices into the document. The
    /// site's visit begins or ends (SiteAnalyticsConfig::onLoad), which does not make the document dirty.
    /// Throws CorvaneException for a file that cannot be opened for update, is malformed, or is newer than the library,
    /// and without product information for a path with an extension.
    static XMLConfigManager* loadConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo, const std::wstring& path);
    /// Loads likewise, and tells `observer` what the upgrade does. The observer is only used during the call, and may be
    /// null. An XMLConfig::UpgradeReceipt keeps all that it is told.
    static XMLConfigManager* loadConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo, const std::wstring& path,
                                               XMLConfig::UpgradeObserver* observer);
    /// Loads as without an observer, and keeps what the upgrade does for getUpgradeReceipt(), which costs time and memory.
    static XMLConfigManager* loadWithReceipt(std::shared_ptr<IQuorvelProductInfo> productInfo, const std::wstring& path);
    /// A new, untitled configuration whose fixed sections hold their initial values. The caller owns the manager.
    /// Without product information it can be copied, but not saved: saveConfiguration throws CorvaneException.
    static XMLConfigManager* newConfiguration(std::shared_ptr<IQuorvelProductInfo> productInfo);

    XMLConfigManager(const XMLConfigManager&) = default;
    XMLConfigManager& operator=(const XMLConfigManager&) = default;

    // Devices, by the ID of their section.

    /// The accessor of that camera, the same one each time; never null. A camera that the document does not have is added to
    /// it.
    virtual CameraConfig* getCameraConfig(const std::wstring& id);

    // Sections. The accessors are made with the manager and never null. A projector stands among them because the order is
    // part of the interface.

    virtual GeometryConfig* getGeometryConfig();            ///< settings of the geometric solve
    virtual ScreenConfig* getScreenConfig();                ///< the surface that is projected onto
    virtual SystemConfig* getSystemConfig();                ///< settings of the whole installation
    virtual TargetLocatorConfig* getTargetLocatorConfig();  ///< the content that the projectors must show
    /// The accessor of that projector, the same one each time; never null. A projector that the document does not have is
    /// added to it.
    virtual ProjectorConfig* getProjectorConfig(const std::wstring& id);
    virtual ~XMLConfigManager();

    const TargetLocatorConfig* getTargetLocatorConfig() const;        ///< the same one
    ColorConfig* getColorConfig();                                    ///< matching of colour and brightness
    ProjectorApprovedSlotsConfig* getProjectorApprovedSlotsConfig();  ///< approved slots and what the last run left behind
    SiteAnalyticsConfig* getSiteAnalyticsConfig();                    ///< counts of runs and the time of the first visit
    ProjMapConfig* getProjMapConfig();                                ///< settings of the export to projection mapping
    const ProjMapConfig* getProjMapConfig() const;                    ///< the same one
    MediaServerConfig* getMediaServerConfig();                        ///< settings of the export to a media server
    const MediaServerConfig* getMediaServerConfig() const;            ///< the same one

    /// IDs of the cameras in document order, whether or not an accessor was asked for. A camera without an ID is left out.
    std::vector<std::wstring> getCameraIDs() const;
    /// IDs of the projectors in document order, whether or not an accessor was asked for. A projector without an ID is left
    /// out.
    std::vector<std::wstring> getProjectorIDs() const;
    int getCameraConfigCount() const;     ///< number of cameras in the document, those without an ID too
    int getProjectorConfigCount() const;  ///< number of projectors in the document, those without an ID too

    // Rename and remove devices here. The accessor's own renameSection() and removeSection() do the same to the document,
    // but the manager is not told: it goes on giving that accessor out for the old ID. A device counts as asked for when
    // this manager or a copy has given out its accessor.

    /// Gives a camera a new ID and its accessor too; true also when the IDs are equal, false, and nothing is changed, when
    /// the camera was never asked for. An accessor that was given out for `newId` before stays valid, but the manager gives
    /// it out no more. IDs of the camera that other sections hold are not changed.
    bool renameCameraConfig(const std::wstring& oldId, const std::wstring& newId);
    /// Gives a projector a new ID, as renameCameraConfig() does; but it is false, and nothing is changed, also when a
    /// projector of `newId` was asked for before.
    bool renameProjectorConfig(const std::wstring& oldId, const std::wstring& newId);
    /// Removes a camera from the document and deletes its accessor; false, and nothing is changed, when the camera was never
    /// asked for.
    bool removeCameraConfig(const std::wstring& id);
    /// Removes a projector from the document and deletes its accessor; false, and nothing is changed, when the projector was
    /// never asked for.
    bool removeProjectorConfig(const std::wstring& id);
    /// Swaps a camera with its nearest neighbour among the cameras, earlier (-1) or later (+1) in the document; false, and
    /// nothing moves, where there is none, for any other number, and when the camera was never asked for.
    bool moveCameraConfig(const std::wstring& id, int index);
    bool moveProjectorConfig(const std::wstring& id, int index);  ///< the same for a projector among the projectors

    std::shared_ptr<AssetManager> getAssetManager() const;  ///< what turns stored file names into paths; never null
    const IQuorvelProductInfo* getProductInfo() const;      ///< what the manager was made with; may be null
    /// What was set last; null before. The caller keeps ownership: the library neither uses nor frees it.
    IResourceCache* getResourceCache() const;
    void setResourceCache(IResourceCache* resourceCache);
    XMLConfig::VersionUpgradeEnum getVersionUpgradeStatus() const;  ///< what loading did to the document
    /// What the upgrade at load did (manager/Upgrade.h), without steps where the file needed none; null where the manager
    /// was not made by loadWithReceipt. It lives as long as this manager and its copies.
    const XMLConfig::UpgradeReceipt* getUpgradeReceipt() const;
    /// Whether the document holds changes that were not saved.
    bool isConfigDirty() const;
    /// Whether somebody else has changed the file since it was loaded or saved; see XMLConfig::hasFileChanged.
    bool isConfigChangedOnDisk() const;
    /// Makes isConfigDirty() say so; the document's content stays.
    void setConfigDirty(bool dirty);

    // The document as it is now, unsaved changes included, so that nobody loads the file a second time to look at it.

    /// The open document, for XMLConfig::check and XMLConfig::ElementView. It lives as long as this manager or a copy.
    const ConfigInfo& getDocument() const;
    /// What deserves a look, as XMLConfig::check finds it (manager/Check.h).
    std::vector<XMLConfig::Finding> check() const;

    // The file.

    /// Saves under that path, which becomes the file name; file names that are stored relative to the old folder are
    /// rewritten first, and the build stamps brought up to date. Does nothing, without a word, for an extension that is not
    /// the product's and for a path that begins with its only "."; throws std::out_of_range for a path without a ".". Throws
    /// CorvaneException when the file cannot be written: it then stands as it was and the document stays dirty, but the new
    /// file name and the rewritten names stay. A path that is not absolute counts from the current folder at the time of the
    /// call.
    void saveConfiguration(const std::wstring& path);
    /// Writes the document to another file, of any name. File name, dirty flag and build stamps stay. Throws
    /// CorvaneException when the file cannot be written, which then stands as it was.
    void copyConfiguration(const std::wstring& path);
    /// The path of the file, as it was given; empty for an untitled configuration.
    std::wstring getFileName() const;
    /// What follows the last "/" of getFileName(), or the last "\" when it holds no "/"; all of it when it holds neither.
    std::wstring getFileNameNoPath() const;
    std::wstring getFileNameNoPathNoExtension() const;  ///< the same up to its last "."
    /// The file of SystemConfig::getSkorraFilename(), the warp file, as processPath() makes it a path.
    std::wstring getSkorraFilename();
    /// The file of ColorConfig::getAdvancedColorFilename(), as processPath() makes it a path.
    std::wstring getAdvancedColorFilename() const;
    /// The media server's "outputFile", as it is stored. Where it is empty: getFileName() with ".mpcdi.xml" in the place of
    /// its extension, and "mpcdi.xml" for an untitled configuration.
    std::wstring getMpcdiOutputFilename() const;

    /// `path` becomes the file name, or the configuration becomes untitled where the path's extension is not the product's.
    /// A path without a "." and one that ends in "." become the file name.
    void setConfigUntitledIfDeprecatedExtension(const std::wstring& path);
    /// A stored file name as a path to open: the extension ".skorra" becomes ".skorrax", and a relative name is put into the
    /// folder of getFileName(). It stays relative where that is empty or itself relative.
    std::wstring processPath(const std::wstring& path) const;
    /// Moves the root of relative file names to the folder of `newConfigPath`, and rewrites the names that the screen's
    /// section stores, so that they still name the same files. Nothing is changed where the folder is the same, or where
    /// anything is thrown.
    void updateRelativeFilePaths(const std::wstring& newConfigPath);

protected:
    /// Takes over the document; `path` sets the root of relative names, not the file name.
    XMLConfigManager(std::shared_ptr<IQuorvelProductInfo> productInfo, ConfigInfo* document, const std::wstring& path);

    /// `fileName` becomes the file name, whatever its extension.
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
    std::shared_ptr<const XMLConfig::UpgradeReceipt> m_upgradeReceipt;  // with the copies of this manager
    IResourceCache* m_resourceCache = nullptr;
    std::wstring m_fileName;
    std::shared_ptr<XMLConfig::detail::OpenConfiguration> m_open;  // with the copies of this manager
};
