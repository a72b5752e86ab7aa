#include "sections/GeometryConfig.h"

#include "sections/GeometryItems.h"
#include "store/Together.h"

static constexpr auto& items = XMLConfig::detail::geometryItems;

namespace {

/// The number, if it is of a mapper that the solver knows; else that of the default mapper.
constexpr int knownMapper(int number) { return items.fitSolver.facts.hasNumber(number) ? number : items.fitSolver.fallback; }

}  // namespace

GeometryConfig::GeometryConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, items.section, sectionID) {}

GeometryConfig::~GeometryConfig() = default;

// Calls the setters one by one, because a subclass may have replaced some of them.
void GeometryConfig::initialize() {
    XMLConfig::detail::together(*m_configInfo, [&] {
        setProjectorCount(items.projectorCount.initial);
        setProjectorLayoutWidth(items.projectorLayoutWidth.initial);
        setProjectorLayoutHeight(items.projectorLayoutHeight.initial);
        setTilingEnabled(items.tilingEnabled.initial);
        setValidateWarps(items.validateWarps.initial);
        setMemoryLocation(items.memoryLocation.initial);
        setBlendRun(items.blendRun.initial);
        setMaxGridWidth(items.maxGridWidth.initial);
        setMaxGridHeight(items.maxGridHeight.initial);
        setGridMovementFactor(items.gridMovementFactor.initial);
        setPersistAllBlendCombinations(items.persistAllBlendCombinations.initial);
        setBlobNumHistorical(items.blobNumHistorical.initial);
        setMarkerless(items.markerless.initial);
        setGlobalOptimization(items.globalOptimization.initial);
        setAutoMaskingType(items.autoMaskingType.initial);
        setFitOrder(items.fitOrder.initial);
        setFitSolver(static_cast<FitSolver>(items.fitSolver.initial));
        setDoCalculateBlendsOnlyRun(items.doCalculateBlendsOnlyRun.initial);
        setDoSphericalBlend(items.doSphericalBlend.initial);
        setProjectorBusyTestPatternEnabled(items.projectorBusyTestPatternEnabled.initial);
        setPortraitMode(items.portraitMode.initial);
        setAutomaticMapperSettingsEnabled(items.automaticMapperSettingsEnabled.initial);
        setBoxSize(items.boxSize.initial);
        setBoxSpacing(items.boxSpacing.initial);
        setUseAutoBrightnessUniformity(items.useAutoBrightnessUniformity.initial);
        setImageResolutionX(items.imageResolutionX.initial);
        setImageResolutionY(items.imageResolutionY.initial);
        setInputImageScalingMode(items.inputImageScalingMode.initial);
    });
}

int GeometryConfig::getProjectorCount() const { return read(items.projectorCount).value; }
void GeometryConfig::setProjectorCount(int value) { write(items.projectorCount, value); }
int GeometryConfig::getProjectorLayoutWidth() const { return read(items.projectorLayoutWidth).value; }
void GeometryConfig::setProjectorLayoutWidth(int value) { write(items.projectorLayoutWidth, value); }
int GeometryConfig::getProjectorLayoutHeight() const { return read(items.projectorLayoutHeight).value; }
void GeometryConfig::setProjectorLayoutHeight(int value) { write(items.projectorLayoutHeight, value); }
bool GeometryConfig::getTilingEnabled() const { return read(items.tilingEnabled).value; }
void GeometryConfig::setTilingEnabled(bool value) { write(items.tilingEnabled, value); }
bool GeometryConfig::getValidateWarps() const { return read(items.validateWarps).value; }
void GeometryConfig::setValidateWarps(bool value) { write(items.validateWarps, value); }
int GeometryConfig::getMemoryLocation() const { return read(items.memoryLocation).value; }
void GeometryConfig::setMemoryLocation(int value) { write(items.memoryLocation, value); }
std::wstring GeometryConfig::getMemoryLocationName() const { return read(items.memoryLocationName).value; }
void GeometryConfig::setMemoryLocationName(const std::wstring& value) { write(items.memoryLocationName, value); }
int GeometryConfig::getMaxGridWidth() const { return read(items.maxGridWidth).value; }
void GeometryConfig::setMaxGridWidth(int value) { write(items.maxGridWidth, value); }
int GeometryConfig::getMaxGridHeight() const { return read(items.maxGridHeight).value; }
void GeometryConfig::setMaxGridHeight(int value) { write(items.maxGridHeight, value); }
double GeometryConfig::getGridMovementFactor() const { return read(items.gridMovementFactor).value; }
void GeometryConfig::setGridMovementFactor(double value) { write(items.gridMovementFactor, value); }
bool GeometryConfig::getUseContentMaskingForBlobsForSubliminal() const {
    return read(items.useContentMaskingForBlobsForSubliminal).value;
}
void GeometryConfig::setUseContentMaskingForBlobsForSubliminal(bool value) {
    write(items.useContentMaskingForBlobsForSubliminal, value);
}
GeometryConfig::PellinorBlobEncodingMethod GeometryConfig::getPellinorBlobEncoding() const {
    return static_cast<PellinorBlobEncodingMethod>(read(items.pellinorBlobEncoding).value);
}
void GeometryConfig::setPellinorBlobEncoding(PellinorBlobEncodingMethod value) {
    write(items.pellinorBlobEncoding, static_cast<int>(value));
}
bool GeometryConfig::getUseBlendUndershootCompensation() const { return read(items.useBlendUndershootCompensation).value; }
void GeometryConfig::setUseBlendUndershootCompensation(bool value) { write(items.useBlendUndershootCompensation, value); }
int GeometryConfig::getUseAutoBrightnessUniformity() const { return read(items.useAutoBrightnessUniformity).value; }
void GeometryConfig::setUseAutoBrightnessUniformity(int value) { write(items.useAutoBrightnessUniformity, value); }
bool GeometryConfig::getBlendEdgeResampling() const { return read(items.blendEdgeResampling).value; }
void GeometryConfig::setBlendEdgeResampling(bool value) { write(items.blendEdgeResampling, value); }
int GeometryConfig::getBlendUndershootCompensation() const { return read(items.blendUndershootCompensation).value; }
void GeometryConfig::setBlendUndershootCompensation(int value) { write(items.blendUndershootCompensation, value); }
bool GeometryConfig::getPersistAllBlendCombinations() const { return read(items.persistAllBlendCombinations).value; }
void GeometryConfig::setPersistAllBlendCombinations(bool value) { write(items.persistAllBlendCombinations, value); }
bool GeometryConfig::getBlendRun() const { return read(items.blendRun).value; }
void GeometryConfig::setBlendRun(bool value) { write(items.blendRun, value); }
int GeometryConfig::getAutoMaskingType() const { return read(items.autoMaskingType).value; }
void GeometryConfig::setAutoMaskingType(int value) { write(items.autoMaskingType, value); }
int GeometryConfig::getBlobNumHistorical() const { return read(items.blobNumHistorical).value; }
void GeometryConfig::setBlobNumHistorical(int value) { write(items.blobNumHistorical, value); }
int GeometryConfig::getBlobNumCalibrationIterations() const { return read(items.blobNumCalibrationIterations).value; }
bool GeometryConfig::getDoIterations() const { return read(items.doIterations).value; }
bool GeometryConfig::getMarkerless() const { return read(items.markerless).value; }
void GeometryConfig::setMarkerless(bool value) { write(items.markerless, value); }
bool GeometryConfig::getGlobalOptimization() const { return read(items.globalOptimization).value; }
void GeometryConfig::setGlobalOptimization(bool value) { write(items.globalOptimization, value); }
bool GeometryConfig::getDoSphericalBlend() const { return read(items.doSphericalBlend).value; }
void GeometryConfig::setDoSphericalBlend(bool value) { write(items.doSphericalBlend, value); }
int GeometryConfig::getFitOrder() const { return read(items.fitOrder).value; }
void GeometryConfig::setFitOrder(int value) { write(items.fitOrder, value); }
bool GeometryConfig::getDoCalculateBlendsOnlyRun() const { return read(items.doCalculateBlendsOnlyRun).value; }
void GeometryConfig::setDoCalculateBlendsOnlyRun(bool value) { write(items.doCalculateBlendsOnlyRun, value); }
double GeometryConfig::getBlackLevelAddedLight() const { return read(items.blackLevelAddedLight).value; }
void GeometryConfig::setBlackLevelAddedLight(double value) { write(items.blackLevelAddedLight, value); }
double GeometryConfig::getBlackLevelSlope() const { return read(items.blackLevelSlope).value; }
void GeometryConfig::setBlackLevelSlope(double value) { write(items.blackLevelSlope, value); }
BlackLevelBlending::BlackLevelMethod GeometryConfig::getBlackLevelMethod() const {
    return static_cast<BlackLevelBlending::BlackLevelMethod>(read(items.blackLevelMethod).value);
}
void GeometryConfig::setBlackLevelMethod(BlackLevelBlending::BlackLevelMethod value) {
    write(items.blackLevelMethod, static_cast<int>(value));
}
bool GeometryConfig::getBlackLevelPixelSizeCompensation() const { return read(items.blackLevelPixelSizeCompensation).value; }
void GeometryConfig::setBlackLevelPixelSizeCompensation(bool value) { write(items.blackLevelPixelSizeCompensation, value); }
int GeometryConfig::getPortraitMode() const { return read(items.portraitMode).value; }
void GeometryConfig::setPortraitMode(int value) { write(items.portraitMode, value); }
bool GeometryConfig::getAutomaticMapperSettingsEnabled() const { return read(items.automaticMapperSettingsEnabled).value; }
void GeometryConfig::setAutomaticMapperSettingsEnabled(bool value) { write(items.automaticMapperSettingsEnabled, value); }
Point_2Dim<int> GeometryConfig::getBoxSize() const { return read(items.boxSize).value; }
void GeometryConfig::setBoxSize(const Point_2Dim<int>& value) { write(items.boxSize, value); }
double GeometryConfig::getBoxSpacing() const { return read(items.boxSpacing).value; }
void GeometryConfig::setBoxSpacing(double value) { write(items.boxSpacing, value); }
int GeometryConfig::getImageResolutionX() const { return read(items.imageResolutionX).value; }
void GeometryConfig::setImageResolutionX(int value) { write(items.imageResolutionX, value); }
int GeometryConfig::getImageResolutionY() const { return read(items.imageResolutionY).value; }
void GeometryConfig::setImageResolutionY(int value) { write(items.imageResolutionY, value); }
int GeometryConfig::getInputImageScalingMode() const { return read(items.inputImageScalingMode).value; }
void GeometryConfig::setInputImageScalingMode(int value) { write(items.inputImageScalingMode, value); }
int GeometryConfig::getUserStackHeightOverride() const { return read(items.userStackHeightOverride).value; }
bool GeometryConfig::getMaskMappersEnabled() const { return read(items.maskMappersEnabled).value; }
void GeometryConfig::setMaskMappersEnabled(bool value) { write(items.maskMappersEnabled, value); }
bool GeometryConfig::getProjectorBusyTestPatternEnabled() const { return read(items.projectorBusyTestPatternEnabled).value; }
void GeometryConfig::setProjectorBusyTestPatternEnabled(bool value) { write(items.projectorBusyTestPatternEnabled, value); }
bool GeometryConfig::getDoGatherValidation() const { return read(items.doGatherValidation).value; }
void GeometryConfig::setDoGatherValidation(bool value) { write(items.doGatherValidation, value); }
int GeometryConfig::getGatherTries() const { return read(items.gatherTries).value; }
void GeometryConfig::setGatherTries(int value) { write(items.gatherTries, value); }
bool GeometryConfig::getGatherValidationFailsRun() const { return read(items.gatherValidationFailsRun).value; }
void GeometryConfig::setGatherValidationFailsRun(bool value) { write(items.gatherValidationFailsRun, value); }
double GeometryConfig::getChannelCoverageGatherValidationDistanceFactor() const {
    return read(items.channelCoverageGatherValidationDistanceFactor).value;
}
void GeometryConfig::setChannelCoverageGatherValidationDistanceFactor(double value) {
    write(items.channelCoverageGatherValidationDistanceFactor, value);
}
double GeometryConfig::getChannelCoverageGatherValidationPercentage() const {
    return read(items.channelCoverageGatherValidationPercentage).value;
}
void GeometryConfig::setChannelCoverageGatherValidationPercentage(double value) {
    write(items.channelCoverageGatherValidationPercentage, value);
}

bool GeometryConfig::getDoPellinorWarpValidation() const { return read(items.doPellinorWarpValidation).value; }
void GeometryConfig::setDoPellinorWarpValidation(bool value) { write(items.doPellinorWarpValidation, value); }

// The solver: any number can be stored, only known ones are given.

GeometryConfig::FitSolver GeometryConfig::getFitSolver() const {
    return mapperTypeToGeoConfigFitSolver(static_cast<MapperType>(read(items.fitSolver).value));
}
void GeometryConfig::setFitSolver(FitSolver value) { write(items.fitSolver, static_cast<int>(value)); }

GeometryConfig::FitSolver GeometryConfig::mapperTypeToGeoConfigFitSolver(MapperType mapperType) {
    return static_cast<FitSolver>(knownMapper(mapperType));
}

MapperType GeometryConfig::geoConfigFitSolverToMapperType(FitSolver fitSolver) {
    return static_cast<MapperType>(knownMapper(fitSolver));
}

// The layout as one value.

Corvane::GridSize GeometryConfig::getSimpleLayoutGridSize() const {
    return {getProjectorLayoutHeight(), getProjectorLayoutWidth()};
}

void GeometryConfig::setSimpleLayoutGridSize(const Corvane::GridSize& value) {
    XMLConfig::detail::together(*m_configInfo, [&] {
        setProjectorLayoutHeight(value.height);
        setProjectorLayoutWidth(value.width);
    });
}

// Defaults for the application.

Point_2Dim<int> GeometryConfig::getDefaultBoxSize() { return items.boxSize.fallback; }
double GeometryConfig::getDefaultBoxSpacing() { return items.boxSpacing.fallback; }
bool GeometryConfig::getDefaultAutomaticMapperSettingsEnabledState() {
    return items.automaticMapperSettingsEnabled.fallback;
}
std::wstring GeometryConfig::getAutomaticMapperSettingsEnabledXmlTagName() {
    return items.automaticMapperSettingsEnabled.key;
}
