#include "sections/SystemConfig.h"

#include <utility>

#include "platform/Early.h"
#include "sections/SystemItems.h"
#include "store/CorvaneException.h"
#include "store/Together.h"

static constexpr auto& items = XMLConfig::detail::systemItems;

XMLCONFIG_EARLY const std::wstring SystemConfig::DEFAULT_FILE_BASENAME = L"untitled";
XMLCONFIG_EARLY const std::wstring SystemConfig::DEFAULT_SKORRA_FILE_EXTENSION = L".skorrax";
XMLCONFIG_EARLY const std::wstring SystemConfig::PROMPT_SUFFIX = L"-prompt";

SystemConfig::SystemConfig(ConfigInfo* configInfo, std::shared_ptr<AssetManager> assetManager, const std::wstring& sectionID)
    : BaseConfig(configInfo, items.section, sectionID),
      m_markerMethodTexts{{MarkerLocationManual, L"manual"},
                          {MarkerLocationLed, L"led"},
                          {MarkerLocationLedManual, L"led-manual"},
                          {MarkerLocationAct, L"act"},
                          {MarkerLocationMarkedSurfaceAutomatic, L"marked-surface-automatic"},
                          {MarkerLocationStructuredLight, L"structured-light"},
                          {MarkerLocationCheckerboard, L"checkerboard"}},
      m_assetManager(std::move(assetManager)) {
    for (const auto& [method, text] : m_markerMethodTexts) m_markerMethods.emplace(text, method);
    for (const auto method : {MarkerLocationAct, MarkerLocationMarkedSurfaceAutomatic})
        m_markerMethods.emplace(m_markerMethodTexts.at(method) + PROMPT_SUFFIX, method);
}

SystemConfig::~SystemConfig() = default;

void SystemConfig::initialize() {
    XMLConfig::detail::together(*m_configInfo, [&] {
        removeACTUnits(storedACTUnits(items.actCount.initial, getACTCount()));
        writeInitialValues(items);
    });
}

std::wstring SystemConfig::getLengthUnit() const { return read(items.lengthUnit).value; }
std::wstring SystemConfig::getAngleUnit() const { return read(items.angleUnit).value; }

double SystemConfig::getCinemaKeystoneValue() const { return read(items.cinemaKeystoneValue).value; }
void SystemConfig::setCinemaKeystoneValue(double value) { write(items.cinemaKeystoneValue, value); }
double SystemConfig::getCinemaVerticalShift() const { return read(items.cinemaVerticalShift).value; }
void SystemConfig::setCinemaVerticalShift(double value) { write(items.cinemaVerticalShift, value); }
double SystemConfig::getCinemaVerticalStretch() const { return read(items.cinemaVerticalStretch).value; }
void SystemConfig::setCinemaVerticalStretch(double value) { write(items.cinemaVerticalStretch, value); }

bool SystemConfig::getSupportsPellinor() const { return read(items.supportsPellinor).value; }
void SystemConfig::setSupportsPellinor(bool value) { write(items.supportsPellinor, value); }
bool SystemConfig::getOneShotMappersEnabled() const { return read(items.oneShotMappers).value; }
void SystemConfig::setOneShotMappersEnabled(bool value) { write(items.oneShotMappers, value); }
std::wstring SystemConfig::getSkorraFilename() const { return read(items.skorraFile).value; }
bool SystemConfig::getAreBlindersUsed() const { return read(items.areBlindersUsed).value; }
void SystemConfig::setAreBlindersUsed(bool value) { write(items.areBlindersUsed, value); }
bool SystemConfig::getIsBlbUsed() const { return read(items.isBlbUsed).value; }
void SystemConfig::setIsBlbUsed(bool value) { write(items.isBlbUsed, value); }
bool SystemConfig::getIsCameraUsed() const { return read(items.isCameraUsed).value; }
void SystemConfig::setIsCameraUsed(bool value) { write(items.isCameraUsed, value); }
bool SystemConfig::isUseScreenAsMaskEnabled() const { return read(items.isReferenceOverlayMaskingEnabled).value; }
void SystemConfig::enableUseScreenAsMask(bool value) { write(items.isReferenceOverlayMaskingEnabled, value); }
bool SystemConfig::getPoseBlenderIgnoresOcclusions() const { return read(items.poseBlenderIgnoresShadows).value; }
void SystemConfig::setPoseBlenderIgnoresOcclusions(bool value) { write(items.poseBlenderIgnoresShadows, value); }
bool SystemConfig::getParallelizeSends() const { return read(items.parallelizeSends).value; }
void SystemConfig::setParallelizeSends(bool value) { write(items.parallelizeSends, value); }
int SystemConfig::getGlareThreshold() const { return read(items.glareThresholdPercentage).value; }
void SystemConfig::setGlareThreshold(int percent) { write(items.glareThresholdPercentage, percent); }
int SystemConfig::getMarkedSurfaceMaskingExpansionPct() const {
    return read(items.markedSurfaceMaskingExpansionPercentage).value;
}
void SystemConfig::setMarkedSurfaceMaskingExpansionPct(int percent) {
    write(items.markedSurfaceMaskingExpansionPercentage, percent);
}
int SystemConfig::getReferenceMappingsTimeStamp() const { return read(items.referenceMappingsTimestamp).value; }
void SystemConfig::setReferenceMappingsTimeStamp(int timeStamp) { write(items.referenceMappingsTimestamp, timeStamp); }

std::wstring SystemConfig::getMotoBlendInitCommand() const { return read(items.motoBlendInitCommand).value; }
void SystemConfig::setMotoBlendInitCommand(const std::wstring& command) { write(items.motoBlendInitCommand, command); }
std::wstring SystemConfig::getMotoBlendOpenCommand() const { return read(items.motoBlendOpenCommand).value; }
void SystemConfig::setMotoBlendOpenCommand(const std::wstring& command) { write(items.motoBlendOpenCommand, command); }
std::wstring SystemConfig::getMotoBlendCloseCommand() const { return read(items.motoBlendCloseCommand).value; }
void SystemConfig::setMotoBlendCloseCommand(const std::wstring& command) { write(items.motoBlendCloseCommand, command); }

// Marker location method.

SystemConfig::MarkerLocationMethodEnum SystemConfig::getMarkerLocationMethod() const {
    return markerLocationMethodEnumFromString(read(items.markerLocationMethod).value);
}

void SystemConfig::setMarkerLocationMethod(MarkerLocationMethodEnum method) {
    const auto known = m_markerMethodTexts.find(method);
    if (known == m_markerMethodTexts.end()) throw CorvaneException(L"Unexpected marker location enum");
    const bool automatic = method == MarkerLocationAct || method == MarkerLocationMarkedSurfaceAutomatic;
    write(items.markerLocationMethod, automatic && m_promptUser ? known->second + PROMPT_SUFFIX : known->second);
}

bool SystemConfig::getPromptUserForAutomaticCameraCalibrationEnabledState() const {
    return read(items.markerLocationMethod).value.find(PROMPT_SUFFIX) != std::wstring::npos;
}

void SystemConfig::setPromptUserForAutomaticCameraCalibrationEnabledState(bool enabled) {
    const bool before = std::exchange(m_promptUser, enabled);
    try {
        setMarkerLocationMethod(getMarkerLocationMethod());
    } catch (...) {
        m_promptUser = before;
        throw;
    }
}

bool SystemConfig::isAutomaticCameraCalibrationEnabled() const {
    const MarkerLocationMethodEnum method = getMarkerLocationMethod();
    return method == MarkerLocationAct || method == MarkerLocationMarkedSurfaceAutomatic;
}

SystemConfig::MarkerLocationMethodEnum SystemConfig::markerLocationMethodEnumFromString(const std::wstring& text) const {
    const auto known = m_markerMethods.find(text);
    return known == m_markerMethods.end() ? MarkerLocationManual : known->second;
}

std::string SystemConfig::MarkerLocationMethodEnumToString(MarkerLocationMethodEnum method) {
    switch (method) {
        case MarkerLocationManual:
            return "Manual";
        case MarkerLocationLed:
            return "LED Automatic";
        case MarkerLocationLedManual:
            return "LED Manual";
        case MarkerLocationAct:
            return "ACT Calibration";
        case MarkerLocationMarkedSurfaceAutomatic:
            return "Image-Based Calibration";
        case MarkerLocationStructuredLight:
            return "Structured Light Calibration";
        default:
            return "";
    }
}

// Units.

void SystemConfig::setLengthUnit(const std::wstring& name) {
    if (items.lengthUnit.facts.hasWord(name)) write(items.lengthUnit, name);
}

void SystemConfig::setAngleUnit(const std::wstring& name) {
    if (items.angleUnit.facts.hasWord(name)) write(items.angleUnit, name);
}

UnitConversionTable::UnitSubType SystemConfig::getLengthUnitByEnum() const {
    return UnitConversionTable::getUnitSubTypeFromName(getLengthUnit());
}

void SystemConfig::setLengthUnitByEnum(UnitConversionTable::UnitSubType subType) {
    switch (subType) {
        case UnitConversionTable::Meters:
        case UnitConversionTable::Centimeters:
        case UnitConversionTable::Feet:
        case UnitConversionTable::Inches:
            setLengthUnit(UnitConversionTable::getUnitName(subType));
            break;
        default:
            break;
    }
}

UnitConversionTable::UnitSubType SystemConfig::getAngleUnitByEnum() const {
    return UnitConversionTable::getUnitSubTypeFromName(getAngleUnit());
}

void SystemConfig::setAngleUnitByEnum(UnitConversionTable::UnitSubType subType) {
    if (subType == UnitConversionTable::Radians || subType == UnitConversionTable::Degrees)
        setAngleUnit(UnitConversionTable::getUnitName(subType));
}

// Run type, picture format and the warp file's name.

RunType SystemConfig::getRunType() const { return StringToRunType(read(items.runType).value); }
void SystemConfig::setRunType(RunType runType) { write(items.runType, RunTypeToString(runType)); }

Cinema::Frame SystemConfig::getCinemaFrameType() const { return Cinema::StringToFrame(read(items.cinemaFrame).value); }
void SystemConfig::setCinemaFrameType(Cinema::Frame frame) { write(items.cinemaFrame, Cinema::FrameToString(frame)); }

void SystemConfig::setSkorraFilename(const std::wstring& name) {
    const std::wstring& extension = DEFAULT_SKORRA_FILE_EXTENSION;
    if (name.empty() || name == extension) return;
    const bool complete =
        name.size() > extension.size() && name.compare(name.size() - extension.size(), extension.size(), extension) == 0;
    write(items.skorraFile, complete ? name : name + extension);
}
