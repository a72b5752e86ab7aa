#include "sections/GeometryConfig.h"

#include "base/Items.h"
#include "sections/GeometryItems.h"

namespace items = XMLConfig::detail::geometryItems;

namespace {

/// The number of a mapper the solve knows; the default mapper's for any other.
constexpr int knownMapper(int number) {
    return number == 0 || number == 1 || number == 5 || number == 7 || number == 8 ? number : 2;
}

}  // namespace

GeometryConfig::GeometryConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, items::sectionName, sectionID) {}

GeometryConfig::~GeometryConfig() = default;

void GeometryConfig::initialize() {
    setProjectorCount(items::projectorCount.initial);
    setProjectorLayoutWidth(items::projectorLayoutWidth.initial);
    setProjectorLayoutHeight(items::projectorLayoutHeight.initial);
    setTilingEnabled(items::tilingEnabled.initial);
    setValidateWarps(items::validateWarps.initial);
    setMemoryLocation(items::memoryLocation.initial);
    setBlendRun(items::blendRun.initial);
    setMaxGridWidth(items::maxGridWidth.initial);
    setMaxGridHeight(items::maxGridHeight.initial);
    setGridMovementFactor(items::gridMovementFactor.initial);
    setPersistAllBlendCombinations(items::persistAllBlendCombinations.initial);
    setBlobNumHistorical(items::blobNumHistorical.initial);
    setMarkerless(items::markerless.initial);
    setGlobalOptimization(items::globalOptimization.initial);
    setAutoMaskingType(items::autoMaskingType.initial);
    setFitOrder(items::fitOrder.initial);
    setFitSolver(static_cast<FitSolver>(items::fitSolver.initial));
    setDoCalculateBlendsOnlyRun(items::doCalculateBlendsOnlyRun.initial);
    setDoSphericalBlend(items::doSphericalBlend.initial);
    setProjectorBusyTestPatternEnabled(items::projectorBusyTestPatternEnabled.initial);
    setPortraitMode(items::portraitMode.initial);
    setAutomaticMapperSettingsEnabled(items::automaticMapperSettingsEnabled.initial);
    setBoxSize(getDefaultBoxSize());
    setBoxSpacing(items::boxSpacing.initial);
    setUseAutoBrightnessUniformity(items::useAutoBrightnessUniformity.initial);
    setImageResolutionX(items::imageResolutionX.initial);
    setImageResolutionY(items::imageResolutionY.initial);
    setInputImageScalingMode(items::inputImageScalingMode.initial);
}

int GeometryConfig::getProjectorCount() const { return read(items::projectorCount); }
void GeometryConfig::setProjectorCount(int value) { write(items::projectorCount, value); }
int GeometryConfig::getProjectorLayoutWidth() const { return read(items::projectorLayoutWidth); }
void GeometryConfig::setProjectorLayoutWidth(int value) { write(items::projectorLayoutWidth, value); }
int GeometryConfig::getProjectorLayoutHeight() const { return read(items::projectorLayoutHeight); }
void GeometryConfig::setProjectorLayoutHeight(int value) { write(items::projectorLayoutHeight, value); }
bool GeometryConfig::getTilingEnabled() const { return read(items::tilingEnabled); }
void GeometryConfig::setTilingEnabled(bool value) { write(items::tilingEnabled, value); }
bool GeometryConfig::getValidateWarps() const { return read(items::validateWarps); }
void GeometryConfig::setValidateWarps(bool value) { write(items::validateWarps, value); }
int GeometryConfig::getMemoryLocation() const { return read(items::memoryLocation); }
void GeometryConfig::setMemoryLocation(int value) { write(items::memoryLocation, value); }
std::wstring GeometryConfig::getMemoryLocationName() const { return read(items::memoryLocationName); }
void GeometryConfig::setMemoryLocationName(const std::wstring& value) { write(items::memoryLocationName, value); }
int GeometryConfig::getMaxGridWidth() const { return read(items::maxGridWidth); }
void GeometryConfig::setMaxGridWidth(int value) { write(items::maxGridWidth, value); }
int GeometryConfig::getMaxGridHeight() const { return read(items::maxGridHeight); }
void GeometryConfig::setMaxGridHeight(int value) { write(items::maxGridHeight, value); }
double GeometryConfig::getGridMovementFactor() const { return read(items::gridMovementFactor); }
void GeometryConfig::setGridMovementFactor(double value) { write(items::gridMovementFactor, value); }
bool GeometryConfig::getUseContentMaskingForBlobsForSubliminal() const {
    return read(items::useContentMaskingForBlobsForSubliminal);
}
void GeometryConfig::setUseContentMaskingForBlobsForSubliminal(bool value) {
    write(items::useContentMaskingForBlobsForSubliminal, value);
}
GeometryConfig::PellinorBlobEncodingMethod GeometryConfig::getPellinorBlobEncoding() const {
    return static_cast<PellinorBlobEncodingMethod>(read(items::pellinorBlobEncoding).value);
}
void GeometryConfig::setPellinorBlobEncoding(PellinorBlobEncodingMethod value) {
    write(items::pellinorBlobEncoding, static_cast<int>(value));
}
bool GeometryConfig::getUseBlendUndershootCompensation() const { return read(items::useBlendUndershootCompensation); }
void GeometryConfig::setUseBlendUndershootCompensation(bool value) { write(items::useBlendUndershootCompensation, value); }
int GeometryConfig::getUseAutoBrightnessUniformity() const { return read(items::useAutoBrightnessUniformity); }
void GeometryConfig::setUseAutoBrightnessUniformity(int value) { write(items::useAutoBrightnessUniformity, value); }
bool GeometryConfig::getBlendEdgeResampling() const { return read(items::blendEdgeResampling); }
void GeometryConfig::setBlendEdgeResampling(bool value) { write(items::blendEdgeResampling, value); }
int GeometryConfig::getBlendUndershootCompensation() const { return read(items::blendUndershootCompensation); }
void GeometryConfig::setBlendUndershootCompensation(int value) { write(items::blendUndershootCompensation, value); }
bool GeometryConfig::getPersistAllBlendCombinations() const { return read(items::persistAllBlendCombinations); }
void GeometryConfig::setPersistAllBlendCombinations(bool value) { write(items::persistAllBlendCombinations, value); }
bool GeometryConfig::getBlendRun() const { return read(items::blendRun); }
void GeometryConfig::setBlendRun(bool value) { write(items::blendRun, value); }
int GeometryConfig::getAutoMaskingType() const { return read(items::autoMaskingType); }
void GeometryConfig::setAutoMaskingType(int value) { write(items::autoMaskingType, value); }
int GeometryConfig::getBlobNumHistorical() const { return read(items::blobNumHistorical); }
void GeometryConfig::setBlobNumHistorical(int value) { write(items::blobNumHistorical, value); }
int GeometryConfig::getBlobNumCalibrationIterations() const { return read(items::blobNumCalibrationIterations); }
bool GeometryConfig::getDoIterations() const { return read(items::doIterations); }
bool GeometryConfig::getMarkerless() const { return read(items::markerless); }
void GeometryConfig::setMarkerless(bool value) { write(items::markerless, value); }
bool GeometryConfig::getGlobalOptimization() const { return read(items::globalOptimization); }
void GeometryConfig::setGlobalOptimization(bool value) { write(items::globalOptimization, value); }
bool GeometryConfig::getDoSphericalBlend() const { return read(items::doSphericalBlend); }
void GeometryConfig::setDoSphericalBlend(bool value) { write(items::doSphericalBlend, value); }
int GeometryConfig::getFitOrder() const { return read(items::fitOrder); }
void GeometryConfig::setFitOrder(int value) { write(items::fitOrder, value); }
bool GeometryConfig::getDoCalculateBlendsOnlyRun() const { return read(items::doCalculateBlendsOnlyRun); }
void GeometryConfig::setDoCalculateBlendsOnlyRun(bool value) { write(items::doCalculateBlendsOnlyRun, value); }
double GeometryConfig::getBlackLevelAddedLight() const { return read(items::blackLevelAddedLight); }
void GeometryConfig::setBlackLevelAddedLight(double value) { write(items::blackLevelAddedLight, value); }
double GeometryConfig::getBlackLevelSlope() const { return read(items::blackLevelSlope); }
void GeometryConfig::setBlackLevelSlope(double value) { write(items::blackLevelSlope, value); }
BlackLevelBlending::BlackLevelMethod GeometryConfig::getBlackLevelMethod() const {
    return static_cast<BlackLevelBlending::BlackLevelMethod>(read(items::blackLevelMethod).value);
}
void GeometryConfig::setBlackLevelMethod(BlackLevelBlending::BlackLevelMethod value) {
    write(items::blackLevelMethod, static_cast<int>(value));
}
bool GeometryConfig::getBlackLevelPixelSizeCompensation() const { return read(items::blackLevelPixelSizeCompensation); }
void GeometryConfig::setBlackLevelPixelSizeCompensation(bool value) { write(items::blackLevelPixelSizeCompensation, value); }
int GeometryConfig::getPortraitMode() const { return read(items::portraitMode); }
void GeometryConfig::setPortraitMode(int value) { write(items::portraitMode, value); }
bool GeometryConfig::getAutomaticMapperSettingsEnabled() const { return read(items::automaticMapperSettingsEnabled); }
void GeometryConfig::setAutomaticMapperSettingsEnabled(bool value) { write(items::automaticMapperSettingsEnabled, value); }
Point_2Dim<int> GeometryConfig::getBoxSize() const { return read(items::boxSize); }
void GeometryConfig::setBoxSize(const Point_2Dim<int>& value) { write(items::boxSize, value); }
double GeometryConfig::getBoxSpacing() const { return read(items::boxSpacing); }
void GeometryConfig::setBoxSpacing(double value) { write(items::boxSpacing, value); }
int GeometryConfig::getImageResolutionX() const { return read(items::imageResolutionX); }
void GeometryConfig::setImageResolutionX(int value) { write(items::imageResolutionX, value); }
int GeometryConfig::getImageResolutionY() const { return read(items::imageResolutionY); }
void GeometryConfig::setImageResolutionY(int value) { write(items::imageResolutionY, value); }
int GeometryConfig::getInputImageScalingMode() const { return read(items::inputImageScalingMode); }
void GeometryConfig::setInputImageScalingMode(int value) { write(items::inputImageScalingMode, value); }
int GeometryConfig::getUserStackHeightOverride() const { return read(items::userStackHeightOverride); }
bool GeometryConfig::getMaskMappersEnabled() const { return read(items::maskMappersEnabled); }
void GeometryConfig::setMaskMappersEnabled(bool value) { write(items::maskMappersEnabled, value); }
bool GeometryConfig::getProjectorBusyTestPatternEnabled() const { return read(items::projectorBusyTestPatternEnabled); }
void GeometryConfig::setProjectorBusyTestPatternEnabled(bool value) { write(items::projectorBusyTestPatternEnabled, value); }
bool GeometryConfig::getDoGatherValidation() const { return read(items::doGatherValidation); }
void GeometryConfig::setDoGatherValidation(bool value) { write(items::doGatherValidation, value); }
int GeometryConfig::getGatherTries() const { return read(items::gatherTries); }
void GeometryConfig::setGatherTries(int value) { write(items::gatherTries, value); }
bool GeometryConfig::getGatherValidationFailsRun() const { return read(items::gatherValidationFailsRun); }
void GeometryConfig::setGatherValidationFailsRun(bool value) { write(items::gatherValidationFailsRun, value); }
double GeometryConfig::getChannelCoverageGatherValidationDistanceFactor() const {
    return read(items::channelCoverageGatherValidationDistanceFactor);
}
void GeometryConfig::setChannelCoverageGatherValidationDistanceFactor(double value) {
    write(items::channelCoverageGatherValidationDistanceFactor, value);
}
double GeometryConfig::getChannelCoverageGatherValidationPercentage() const {
    return read(items::channelCoverageGatherValidationPercentage);
}
void GeometryConfig::setChannelCoverageGatherValidationPercentage(double value) {
    write(items::channelCoverageGatherValidationPercentage, value);
}

bool GeometryConfig::getDoPellinorWarpValidation() const { return read(items::doPellinorWarpValidation); }
void GeometryConfig::setDoPellinorWarpValidation(bool value) { write(items::doPellinorWarpValidation, value); }

// The solver: any number can be stored, only known ones are given.

GeometryConfig::FitSolver GeometryConfig::getFitSolver() const {
    return mapperTypeToGeoConfigFitSolver(static_cast<MapperType>(read(items::fitSolver).value));
}
void GeometryConfig::setFitSolver(FitSolver value) { write(items::fitSolver, static_cast<int>(value)); }

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
    setProjectorLayoutHeight(value.height);
    setProjectorLayoutWidth(value.width);
}

// Defaults for the application.

Point_2Dim<int> GeometryConfig::getDefaultBoxSize() { return items::boxSize.fallback; }
double GeometryConfig::getDefaultBoxSpacing() { return items::boxSpacing.fallback; }
bool GeometryConfig::getDefaultAutomaticMapperSettingsEnabledState() {
    return items::automaticMapperSettingsEnabled.fallback;
}
std::wstring GeometryConfig::getAutomaticMapperSettingsEnabledXmlTagName() {
    return items::automaticMapperSettingsEnabled.key;
}
