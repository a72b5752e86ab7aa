#include "tools/Summary.h"

#include "manager/Check.h"
#include "manager/Origin.h"
#include "manager/Upgrade.h"
#include "sections/CameraConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/ProjectorApprovedSlotsConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SiteAnalyticsConfig.h"
#include "store/BuildIdentity.h"
#include "store/ConfigInfo.h"
#include "store/ElementView.h"
#include "tools/Places.h"

namespace tool {
namespace {

using XMLConfig::ElementView;

std::wstring textOf(const ElementView& element, const wchar_t* tag) { return element.child(tag).text(); }

/// What the device snippet of a section holds.
ElementView deviceOf(const ElementView& section) { return section.child(L"DeviceSnippet").firstChild(); }

/// The IDs of the devices that an ID leads to, so that the number of each is the one that addresses count.
std::vector<std::wstring> devicesOf(const ConfigInfo& document, const std::wstring& section) {
    std::vector<std::wstring> ids;
    for (const ElementView& device : reachedSections(document, section))
        if (!device.id().empty()) ids.push_back(device.id());
    return ids;
}

Summary::Connection connectionOf(const ElementView& device) {
    const ElementView connection = device.child(L"connection");
    return {connection.attribute(L"type").value_or(L""), textOf(connection, L"address"), textOf(connection, L"port"),
            textOf(connection, L"baud")};
}

std::vector<std::wstring> camerasOf(const ProjectorConfig& config) {
    std::vector<std::wstring> cameras;
    for (const std::wstring& id : {config.getAssociatedCameraId1(), config.getAssociatedCameraId2()})
        if (!id.empty()) cameras.push_back(id);
    return cameras;
}

Summary::Projector projectorOf(ConfigInfo& document, const std::wstring& id) {
    const ProjectorConfig config(&document, id);
    Summary::Projector projector;
    projector.id = id;
    projector.element = XMLConfig::findElement(document, {L"Projector", id, L"", L"", L""});
    projector.connection = connectionOf(deviceOf(projector.element));
    projector.cameras = camerasOf(config);
    projector.name = config.getName();
    projector.resolutionX = config.getResolutionX();
    projector.resolutionY = config.getResolutionY();
    projector.yaw = config.getChannelExtentHeadingYaw();
    projector.pitch = config.getChannelExtentHeadingPitch();
    projector.roll = config.getChannelExtentHeadingRoll();
    projector.fieldAcross = config.getChannelExtentHFOVRight() - config.getChannelExtentHFOVLeft();
    projector.fieldUpright = config.getChannelExtentVFOVTop() - config.getChannelExtentVFOVBottom();
    projector.blends[0] = config.getBlendPercentLeft();
    projector.blends[1] = config.getBlendPercentRight();
    projector.blends[2] = config.getBlendPercentTop();
    projector.blends[3] = config.getBlendPercentBottom();
    return projector;
}

Summary::Camera cameraOf(ConfigInfo& document, const std::wstring& id) {
    const CameraConfig config(&document, id);
    const ElementView device = deviceOf(XMLConfig::findElement(document, {L"Camera", id, L"", L"", L""}));
    return {id,
            config.getName(),
            config.isAutomaticExposure(),
            config.getGeometryExposure(),
            config.getCameraGain(),
            textOf(device, L"ipAddress"),
            textOf(device, L"serialNumber")};
}

Summary::Screen screenOf(ConfigInfo& document) {
    ScreenConfig config(&document, nullptr, L"");
    Summary::Screen screen;
    screen.shape = config.getShape();
    screen.width = config.getWidth();
    screen.height = config.getHeight();
    screen.radius = config.getRadius();
    screen.minTheta = config.getMinTheta();
    screen.maxTheta = config.getMaxTheta();
    screen.minPhi = config.getMinPhi();
    screen.maxPhi = config.getMaxPhi();
    return screen;
}

void addRuns(Summary& summary, ConfigInfo& document) {
    const SiteAnalyticsConfig site(&document, L"");
    summary.successfulRuns = site.getSuccessfulRunNumber();
    summary.failedRuns = site.getFailedRunNumber();
    summary.lastRun = site.getLastRunTimestamp();
    const ProjectorApprovedSlotsConfig slots(&document, L"");
    const std::wstring& section = slots.getSectionName();
    for (const std::wstring& id : document.getSubSectionIDs(section, L"Slot"))
        summary.approvedSlots.push_back({id, document.getStringItem(section, L"Name", L"", L"", L"Slot", id)});
    summary.currentSlot = slots.getCurrentSlotID();
}

void addFindings(Summary& summary, const ConfigInfo& document, const std::wstring& file,
                 std::optional<double> storedVersion) {
    XMLConfig::CheckOptions options;
    options.file = file;
    options.storedVersion = storedVersion;
    for (const XMLConfig::Finding& finding : XMLConfig::check(document, options))
        ++(finding.severity == XMLConfig::Severity::Error     ? summary.errors
           : finding.severity == XMLConfig::Severity::Warning ? summary.warnings
                                                              : summary.notes);
}

}  // namespace

Summary summarize(ConfigInfo& document, const std::wstring& file, std::optional<double> storedVersion) {
    Summary summary;
    const ElementView root = XMLConfig::rootElement(document);
    summary.version = XMLConfig::versionText(storedVersion.value_or(document.getVersion()));
    summary.buildDate = textOf(root, XMLConfig::detail::buildDateElement);
    summary.buildNumber = textOf(root, XMLConfig::detail::buildNumberElement);
    for (const std::wstring& id : devicesOf(document, L"Projector")) summary.projectors.push_back(projectorOf(document, id));
    for (const std::wstring& id : devicesOf(document, L"Camera")) summary.cameras.push_back(cameraOf(document, id));
    const GeometryConfig geometry(&document, L"");
    summary.columns = geometry.getProjectorLayoutWidth();
    summary.rows = geometry.getProjectorLayoutHeight();
    summary.screen = screenOf(document);
    // The accessor would replace an older word in the document, which is checked below.
    summary.target = XMLConfig::effectiveValue(document, XMLConfig::parseAddress(L"TargetLocator/Data_Type")).value().text;
    addRuns(summary, document);
    addFindings(summary, document, file, storedVersion);
    return summary;
}

}  // namespace tool
