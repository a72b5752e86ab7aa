#include "tools/Summary.h"

#include "base/UnitConversionTable.h"
#include "sections/CameraConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/ProjectorApprovedSlotsConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SiteAnalyticsConfig.h"
#include "sections/SystemConfig.h"
#include "sections/TargetLocatorConfig.h"
#include "store/ConfigInfo.h"

namespace tool {
namespace {

using Units = UnitConversionTable;

double degrees(double radians) { return Units::convertValue(Units::Radians, Units::Degrees, radians); }

Summary::Projector projectorOf(ConfigInfo& document, const std::wstring& id) {
    const ProjectorConfig config(&document, id);
    Summary::Projector projector;
    projector.id = id;
    projector.name = config.getName();
    projector.resolutionX = config.getResolutionX();
    projector.resolutionY = config.getResolutionY();
    projector.yaw = degrees(config.getChannelExtentHeadingYaw());
    projector.pitch = degrees(config.getChannelExtentHeadingPitch());
    projector.roll = degrees(config.getChannelExtentHeadingRoll());
    projector.fieldAcross = degrees(config.getChannelExtentHFOVRight() - config.getChannelExtentHFOVLeft());
    projector.fieldUpright = degrees(config.getChannelExtentVFOVTop() - config.getChannelExtentVFOVBottom());
    projector.blends[0] = config.getBlendPercentLeft();
    projector.blends[1] = config.getBlendPercentRight();
    projector.blends[2] = config.getBlendPercentTop();
    projector.blends[3] = config.getBlendPercentBottom();
    return projector;
}

Summary::Camera cameraOf(ConfigInfo& document, const std::wstring& id) {
    const CameraConfig config(&document, id);
    return {id, config.getName(), config.isAutomaticExposure(), config.getGeometryExposure(), config.getCameraGain()};
}

/// Lengths are stored in meters; negative ones stand for unknown and stay.
double inUnit(double meters, Units::UnitSubType unit) {
    return meters < 0.0 ? meters : Units::convertValue(Units::Meters, unit, meters);
}

Summary::Screen screenOf(ConfigInfo& document) {
    const SystemConfig system(&document, nullptr, L"");
    ScreenConfig config(&document, nullptr, L"");
    Units::UnitSubType unit = system.getLengthUnitByEnum();
    if (unit > Units::Inches) unit = Units::Meters;
    Summary::Screen screen;
    screen.shape = config.getShape();
    screen.unit = Units::getUnitSuffix(unit);
    screen.width = inUnit(config.getWidth(), unit);
    screen.height = inUnit(config.getHeight(), unit);
    screen.radius = inUnit(config.getRadius(), unit);
    screen.minTheta = degrees(config.getMinTheta());
    screen.maxTheta = degrees(config.getMaxTheta());
    screen.minPhi = degrees(config.getMinPhi());
    screen.maxPhi = degrees(config.getMaxPhi());
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

}  // namespace

Summary summarize(ConfigInfo& document) {
    Summary summary;
    for (const std::wstring& id : document.getSectionIDs(L"Projector"))
        summary.projectors.push_back(projectorOf(document, id));
    for (const std::wstring& id : document.getSectionIDs(L"Camera")) summary.cameras.push_back(cameraOf(document, id));
    const GeometryConfig geometry(&document, L"");
    summary.columns = geometry.getProjectorLayoutWidth();
    summary.rows = geometry.getProjectorLayoutHeight();
    summary.screen = screenOf(document);
    summary.target = TargetLocatorConfig(&document, L"").getDataType();
    addRuns(summary, document);
    return summary;
}

}  // namespace tool
