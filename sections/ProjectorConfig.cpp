#include "sections/ProjectorConfig.h"

#include "platform/Early.h"
#include "sections/ProjectorItems.h"
#include "store/Together.h"

static constexpr auto& items = XMLConfig::detail::projectorItems;
using XMLConfig::detail::Descriptor;
using XMLConfig::detail::ValueTrait;

XMLCONFIG_EARLY const std::wstring ProjectorConfig::LAMP_MODE_SINGLE1 = L"Single1";
XMLCONFIG_EARLY const std::wstring ProjectorConfig::LAMP_MODE_SINGLE2 = L"Single2";
XMLCONFIG_EARLY const std::wstring ProjectorConfig::LAMP_MODE_DUAL = L"Dual";

ProjectorConfig::ProjectorConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, items.section, sectionID) {}

ProjectorConfig::~ProjectorConfig() = default;

// Settings that fall back on the geometry section; declared here because the accessors below use them.

template <typename T>
BaseConfig::Explicit<typename ValueTrait<T>::Given> ProjectorConfig::readInherited(const Descriptor<T>& item) const {
    if (m_configInfo->doesItemExist(getSectionName(), item.key, getSectionID())) return read(item);
    return {ValueTrait<T>::read(*m_configInfo, {item.facts.parent, {}, item.key}, item.fallback)};
}

template <typename T>
void ProjectorConfig::unset(const Descriptor<T>& item) {
    m_configInfo->removeItem(getSectionName(), item.key, getSectionID());
}

void ProjectorConfig::writeOrUnset(const Descriptor<std::wstring>& item, const std::wstring& value) {
    if (value.empty()) unset(item);
    else write(item, value);
}

// Calls the setters one by one, because a subclass may have replaced some of them.
void ProjectorConfig::initialize() {
    XMLConfig::detail::together(*m_configInfo, [&] {
        setName(XMLConfig::detail::withSectionID(items.name.initial, getSectionID()));
        setDeviceSnippet(items.deviceSnippet.initial);
        setResolutionX(items.resolutionX.initial);
        setResolutionY(items.resolutionY.initial);
        setGamma(items.gamma.initial);
        setLampPower(items.lampPower.initial);
        setColourUser(items.colourUser.initial);
        setLampMode(items.lampMode.initial);
        setBlendPercentTop(items.blendPercentTop.initial);
        setBlendPercentBottom(items.blendPercentBottom.initial);
        setBlendPercentRight(items.blendPercentRight.initial);
        setBlendPercentLeft(items.blendPercentLeft.initial);
        setChannelExtentHeadingYaw(items.headingYaw.initial);
        setChannelExtentHeadingPitch(items.headingPitch.initial);
        setChannelExtentHeadingRoll(items.headingRoll.initial);
        setChannelExtentVFOVTop(items.vfovTop.initial);
        setChannelExtentVFOVBottom(items.vfovBottom.initial);
        setChannelExtentHFOVLeft(items.hfovLeft.initial);
        setChannelExtentHFOVRight(items.hfovRight.initial);
        setScreenAreaLeft(items.screenAreaLeft.initial);
        setScreenAreaRight(items.screenAreaRight.initial);
        setScreenAreaTop(items.screenAreaTop.initial);
        setScreenAreaBottom(items.screenAreaBottom.initial);
    });
}

std::wstring ProjectorConfig::getName() const { return read(items.name).value; }
void ProjectorConfig::setName(const std::wstring& value) { write(items.name, value); }
std::wstring ProjectorConfig::getDeviceSnippet() const { return read(items.deviceSnippet).value; }
void ProjectorConfig::setDeviceSnippet(const std::wstring& value) { write(items.deviceSnippet, value); }
std::wstring ProjectorConfig::getDeviceSnippetOriginal() const { return read(items.deviceSnippetOriginal).value; }
int ProjectorConfig::getResolutionX() const { return read(items.resolutionX).value; }
void ProjectorConfig::setResolutionX(int value) { write(items.resolutionX, value); }
int ProjectorConfig::getResolutionY() const { return read(items.resolutionY).value; }
void ProjectorConfig::setResolutionY(int value) { write(items.resolutionY, value); }

int ProjectorConfig::getImageResolutionX() const { return readInherited(items.imageResolutionX).value; }
void ProjectorConfig::setImageResolutionX(int value) { write(items.imageResolutionX, value); }
void ProjectorConfig::unsetImageResolutionX() { unset(items.imageResolutionX); }
int ProjectorConfig::getImageResolutionY() const { return readInherited(items.imageResolutionY).value; }
void ProjectorConfig::setImageResolutionY(int value) { write(items.imageResolutionY, value); }
void ProjectorConfig::unsetImageResolutionY() { unset(items.imageResolutionY); }
int ProjectorConfig::getInputImageScalingMode() const { return readInherited(items.inputImageScalingMode).value; }
void ProjectorConfig::setInputImageScalingMode(int value) { write(items.inputImageScalingMode, value); }
void ProjectorConfig::unsetInputImageScalingMode() { unset(items.inputImageScalingMode); }
int ProjectorConfig::getPortraitMode() const { return readInherited(items.portraitMode).value; }
void ProjectorConfig::setPortraitMode(int value) { write(items.portraitMode, value); }
void ProjectorConfig::unsetPortraitMode() { unset(items.portraitMode); }
Point_2Dim<int> ProjectorConfig::getBoxSize() const { return readInherited(items.boxSize).value; }
void ProjectorConfig::setBoxSize(const Point_2Dim<int>& value) { write(items.boxSize, value); }
void ProjectorConfig::unsetBoxSize() { unset(items.boxSize); }
double ProjectorConfig::getBoxSpacing() const { return readInherited(items.boxSpacing).value; }
void ProjectorConfig::setBoxSpacing(double value) { write(items.boxSpacing, value); }
void ProjectorConfig::unsetBoxSpacing() { unset(items.boxSpacing); }

double ProjectorConfig::getGamma() const { return read(items.gamma).value; }
void ProjectorConfig::setGamma(double value) { write(items.gamma, value); }
double ProjectorConfig::getLampPower() const { return read(items.lampPower).value; }
void ProjectorConfig::setLampPower(double value) { write(items.lampPower, value); }
int ProjectorConfig::getColourUser() const { return read(items.colourUser).value; }
void ProjectorConfig::setColourUser(int value) { write(items.colourUser, value); }
double ProjectorConfig::getBlendPercentTop() const { return read(items.blendPercentTop).value; }
void ProjectorConfig::setBlendPercentTop(double value) { write(items.blendPercentTop, value); }
double ProjectorConfig::getBlendPercentBottom() const { return read(items.blendPercentBottom).value; }
void ProjectorConfig::setBlendPercentBottom(double value) { write(items.blendPercentBottom, value); }
double ProjectorConfig::getBlendPercentRight() const { return read(items.blendPercentRight).value; }
void ProjectorConfig::setBlendPercentRight(double value) { write(items.blendPercentRight, value); }
double ProjectorConfig::getBlendPercentLeft() const { return read(items.blendPercentLeft).value; }
void ProjectorConfig::setBlendPercentLeft(double value) { write(items.blendPercentLeft, value); }

double ProjectorConfig::getChannelExtentHeadingYaw() const { return read(items.headingYaw).value; }
void ProjectorConfig::setChannelExtentHeadingYaw(double value) { write(items.headingYaw, value); }
double ProjectorConfig::getChannelExtentHeadingPitch() const { return read(items.headingPitch).value; }
void ProjectorConfig::setChannelExtentHeadingPitch(double value) { write(items.headingPitch, value); }
double ProjectorConfig::getChannelExtentHeadingRoll() const { return read(items.headingRoll).value; }
void ProjectorConfig::setChannelExtentHeadingRoll(double value) { write(items.headingRoll, value); }
double ProjectorConfig::getChannelExtentVFOVTop() const { return read(items.vfovTop).value; }
void ProjectorConfig::setChannelExtentVFOVTop(double value) { write(items.vfovTop, value); }
double ProjectorConfig::getChannelExtentVFOVBottom() const { return read(items.vfovBottom).value; }
void ProjectorConfig::setChannelExtentVFOVBottom(double value) { write(items.vfovBottom, value); }
double ProjectorConfig::getChannelExtentHFOVLeft() const { return read(items.hfovLeft).value; }
void ProjectorConfig::setChannelExtentHFOVLeft(double value) { write(items.hfovLeft, value); }
double ProjectorConfig::getChannelExtentHFOVRight() const { return read(items.hfovRight).value; }
void ProjectorConfig::setChannelExtentHFOVRight(double value) { write(items.hfovRight, value); }

Frustum ProjectorConfig::getDesignedFrustum() const { return read(items.designedFrustum).value; }
void ProjectorConfig::setDesignedFrustum(const Frustum& value) { write(items.designedFrustum, value); }
double ProjectorConfig::getDesignedLumens() const { return read(items.designedLumens).value; }
void ProjectorConfig::setDesignedLumens(double value) { write(items.designedLumens, value); }
double ProjectorConfig::getScreenAreaLeft() const { return read(items.screenAreaLeft).value; }
void ProjectorConfig::setScreenAreaLeft(double value) { write(items.screenAreaLeft, value); }
double ProjectorConfig::getScreenAreaRight() const { return read(items.screenAreaRight).value; }
void ProjectorConfig::setScreenAreaRight(double value) { write(items.screenAreaRight, value); }
double ProjectorConfig::getScreenAreaTop() const { return read(items.screenAreaTop).value; }
void ProjectorConfig::setScreenAreaTop(double value) { write(items.screenAreaTop, value); }
double ProjectorConfig::getScreenAreaBottom() const { return read(items.screenAreaBottom).value; }
void ProjectorConfig::setScreenAreaBottom(double value) { write(items.screenAreaBottom, value); }
double ProjectorConfig::getBlackLevel() const { return read(items.blackLevel).value; }
void ProjectorConfig::setBlackLevel(double value) { write(items.blackLevel, value); }
BlackLevelBlending::PondOfMirrors ProjectorConfig::getPondOfMirrors() const { return read(items.pondOfMirrors).value; }
void ProjectorConfig::setPondOfMirrors(const BlackLevelBlending::PondOfMirrors& value) { write(items.pondOfMirrors, value); }
double ProjectorConfig::getBlackLevelBoostFactor() const { return read(items.blackLevelBoostFactor).value; }
void ProjectorConfig::setBlackLevelBoostFactor(double value) { write(items.blackLevelBoostFactor, value); }
int ProjectorConfig::getBlackLevelTint() const { return read(items.blackLevelTint).value; }
void ProjectorConfig::setBlackLevelTint(int value) { write(items.blackLevelTint, value); }

std::wstring ProjectorConfig::getMotoBlendInitCommand() const { return readInherited(items.motoBlendInitCommand).value; }
void ProjectorConfig::setMotoBlendInitCommand(const std::wstring& value) { writeOrUnset(items.motoBlendInitCommand, value); }
std::wstring ProjectorConfig::getMotoBlendOpenCommand() const { return readInherited(items.motoBlendOpenCommand).value; }
void ProjectorConfig::setMotoBlendOpenCommand(const std::wstring& value) { writeOrUnset(items.motoBlendOpenCommand, value); }
std::wstring ProjectorConfig::getMotoBlendCloseCommand() const { return readInherited(items.motoBlendCloseCommand).value; }
void ProjectorConfig::setMotoBlendCloseCommand(const std::wstring& value) {
    writeOrUnset(items.motoBlendCloseCommand, value);
}

int ProjectorConfig::getFitOrder() const { return read(items.fitOrder).value; }
void ProjectorConfig::setFitOrder(int value) { write(items.fitOrder, value); }
Point_3Dim<double> ProjectorConfig::getEyePoint() const { return read(items.eyePoint).value; }
void ProjectorConfig::setEyePoint(const Point_3Dim<double>& value) { write(items.eyePoint, value); }
std::wstring ProjectorConfig::getProjectionModelFilename() const { return read(items.projectionModelFilename).value; }
void ProjectorConfig::setProjectionModelFilename(const std::wstring& value) { write(items.projectionModelFilename, value); }
std::wstring ProjectorConfig::getProjectionModelScript() const { return read(items.projectionModelScript).value; }
void ProjectorConfig::setProjectionModelScript(const std::wstring& value) { write(items.projectionModelScript, value); }
std::wstring ProjectorConfig::getProjectionLayoutFilename() const { return read(items.projectionLayoutFilename).value; }
void ProjectorConfig::setProjectionLayoutFilename(const std::wstring& value) {
    write(items.projectionLayoutFilename, value);
}
std::wstring ProjectorConfig::getSolverType() const { return read(items.solverType).value; }

Point_3Dim<double> ProjectorConfig::getInitialYPR() const { return read(items.initialYPR).value; }
Point_3Dim<double> ProjectorConfig::getInitialXYZ() const { return read(items.initialXYZ).value; }
double ProjectorConfig::getInitialF() const { return read(items.initialF).value; }
double ProjectorConfig::getInitialAspectRatio() const { return read(items.initialAspectRatio).value; }

std::wstring ProjectorConfig::getRedGreenAlignmentImageName() const { return read(items.redGreenAlignmentImageName).value; }
void ProjectorConfig::setRedGreenAlignmentImageName(const std::wstring& value) {
    write(items.redGreenAlignmentImageName, value);
}
int ProjectorConfig::getPellinorWarpLatency() const { return read(items.pellinorWarpLatency).value; }
void ProjectorConfig::setPellinorWarpLatency(int value) { write(items.pellinorWarpLatency, value); }
std::wstring ProjectorConfig::getAssociatedCameraId1() const { return read(items.associatedCameraId1).value; }
void ProjectorConfig::setAssociatedCameraId1(const std::wstring& value) { write(items.associatedCameraId1, value); }
std::wstring ProjectorConfig::getAssociatedCameraId2() const { return read(items.associatedCameraId2).value; }
void ProjectorConfig::setAssociatedCameraId2(const std::wstring& value) { write(items.associatedCameraId2, value); }
std::wstring ProjectorConfig::getOldUID() const { return read(items.oldUID).value; }

// Lamp mode: only the known names are given out.

std::wstring ProjectorConfig::getLampMode() const {
    const std::wstring mode = read(items.lampMode).value;
    return items.lampMode.facts.hasWord(mode) ? mode : std::wstring();
}
void ProjectorConfig::setLampMode(const std::wstring& mode) { write(items.lampMode, mode); }

// Start pose: what is missing is found by the solver itself.

Point_2Dim<double> ProjectorConfig::getInitialOffset() const {
    return ValueTrait<Point_2Dim<double>>::read(*m_configInfo, {getSectionName(), getSectionID(), items.initialOffset.key},
                                                {0.5 * getResolutionX(), 0.5 * getResolutionY()});
}
bool ProjectorConfig::getAutoInitIntrinsics() const {
    return !m_configInfo->doesItemExist(getSectionName(), items.initialF.key, getSectionID());
}
bool ProjectorConfig::getAutoInitExtrinsics() const {
    return !m_configInfo->doesItemExist(getSectionName(), items.initialXYZ.key, getSectionID());
}

// The channel as a viewport.

Viewport ProjectorConfig::getChannelExtentsAsViewport() const {
    const double roll = getChannelExtentHeadingRoll();
    const double pitch = getChannelExtentHeadingPitch();
    const double yaw = getChannelExtentHeadingYaw();
    const double bottom = getChannelExtentVFOVBottom();
    const double top = getChannelExtentVFOVTop();
    const double right = getChannelExtentHFOVRight();
    const double left = getChannelExtentHFOVLeft();
    return Viewport(getEyePoint(), {yaw, pitch, roll}, left, right, top, bottom, 1, 1);
}
void ProjectorConfig::setChannelExtentsFromViewport(const Viewport& viewport) {
    XMLConfig::detail::together(*m_configInfo, [&] {
        setChannelExtentHeadingRoll(viewport.RotationYPR.z);
        setChannelExtentHeadingPitch(viewport.RotationYPR.y);
        setChannelExtentHeadingYaw(viewport.RotationYPR.x);
        setChannelExtentVFOVBottom(viewport.FOVBottom);
        setChannelExtentVFOVTop(viewport.FOVTop);
        setChannelExtentHFOVRight(viewport.FOVRight);
        setChannelExtentHFOVLeft(viewport.FOVLeft);
        setEyePoint(viewport.Offset);
    });
}
