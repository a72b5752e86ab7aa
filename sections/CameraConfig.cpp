#include "sections/CameraConfig.h"

#include <cmath>

#include "platform/Numbers.h"
#include "sections/CalibrationPoints.h"
#include "sections/CameraItems.h"
#include "sections/EdgeThresholds.h"
#include "store/CorvaneException.h"
#include "store/Together.h"

static constexpr auto& items = XMLConfig::detail::cameraItems;
using XMLConfig::detail::ValueTrait;

namespace {

bool wasRead(const Point_3Dim<double>& point) {
    return !(std::isnan(point.x) && std::isnan(point.y) && std::isnan(point.z));
}

const auto& calibrationItem(bool reference) {
    return reference ? items.referenceCalibrationPoints : items.calibrationPoints;
}

}  // namespace

CameraConfig::CameraConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, items.section, sectionID) {}

CameraConfig::~CameraConfig() = default;

void CameraConfig::initialize() { writeInitialValues(items); }

std::wstring CameraConfig::getName() const { return read(items.name).value; }
void CameraConfig::setName(const std::wstring& value) { write(items.name, value); }
std::wstring CameraConfig::getDeviceSnippet() const { return read(items.deviceSnippet).value; }
void CameraConfig::setDeviceSnippet(const std::wstring& value) { write(items.deviceSnippet, value); }
std::wstring CameraConfig::getDeviceSnippetOriginal() const { return read(items.deviceSnippetOriginal).value; }
std::wstring CameraConfig::getIntrinsicFileID() const { return read(items.intrinsicFileID).value; }
void CameraConfig::setIntrinsicFileID(const std::wstring& value) { write(items.intrinsicFileID, value); }

bool CameraConfig::isAutomaticExposure() const { return read(items.automaticExposure).value; }
void CameraConfig::setAutomaticExposure(bool value) { write(items.automaticExposure, value); }
bool CameraConfig::isMarkedSurfaceAutomaticExposure() const { return read(items.markedSurfaceAutomaticExposure).value; }
void CameraConfig::setMarkedSurfaceAutomaticExposure(bool value) { write(items.markedSurfaceAutomaticExposure, value); }
bool CameraConfig::isExtendedContrast() const { return read(items.extendedContrast).value; }
void CameraConfig::setExtendedContrast(bool value) { write(items.extendedContrast, value); }
int CameraConfig::getCameraGain() const { return read(items.cameraGain).value; }
void CameraConfig::setCameraGain(int value) { write(items.cameraGain, value); }
int CameraConfig::getGeometryExposure() const { return read(items.geometryExposure).value; }
void CameraConfig::setGeometryExposure(int value) { write(items.geometryExposure, value); }
int CameraConfig::getLEDExposure() const { return read(items.ledExposure).value; }
void CameraConfig::setLEDExposure(int value) { write(items.ledExposure, value); }
int CameraConfig::getMarkedSurfaceExposure() const { return read(items.markedSurfaceExposure).value; }
void CameraConfig::setMarkedSurfaceExposure(int value) { write(items.markedSurfaceExposure, value); }
int CameraConfig::getBinarizationThreshold() const { return read(items.binarizationThreshold).value; }
void CameraConfig::setBinarizationThreshold(int value) { write(items.binarizationThreshold, value); }
int CameraConfig::getLEDBinarizationThreshold() const { return read(items.ledBinarizationThreshold).value; }
void CameraConfig::setLEDBinarizationThreshold(int value) { write(items.ledBinarizationThreshold, value); }
int CameraConfig::getMarkedSurfaceBinarizationThreshold() const {
    return read(items.markedSurfaceBinarizationThreshold).value;
}
void CameraConfig::setMarkedSurfaceBinarizationThreshold(int value) {
    write(items.markedSurfaceBinarizationThreshold, value);
}
int CameraConfig::getMarkedSurfaceOpacity() const { return read(items.markedSurfaceOpacity).value; }
void CameraConfig::setMarkedSurfaceOpacity(int value) { write(items.markedSurfaceOpacity, value); }
int CameraConfig::getSubliminalExposureWindow() const { return read(items.subliminalExposureWindow).value; }
void CameraConfig::setSubliminalExposureWindow(int value) { write(items.subliminalExposureWindow, value); }
double CameraConfig::getMaskingROIScreenAreaPercentage() const { return read(items.maskingROIScreenAreaPercentage).value; }
void CameraConfig::setMaskingROIScreenAreaPercentage(double value) { write(items.maskingROIScreenAreaPercentage, value); }

std::wstring CameraConfig::getCameraReferenceImageResourceIdentifier() const {
    return read(items.referenceImageResource).value;
}
void CameraConfig::setCameraReferenceImageResourceIdentifier(const std::wstring& value) {
    write(items.referenceImageResource, value);
}
int CameraConfig::getCameraReferenceImageTimeStamp() const { return read(items.referenceImageTimeStamp).value; }
void CameraConfig::setCameraReferenceImageTimeStamp(int value) { write(items.referenceImageTimeStamp, value); }
bool CameraConfig::getExplicitExtrinsicsValid() const { return read(items.explicitExtrinsicsValid).value; }
void CameraConfig::setExplicitExtrinsicsValid(bool value) { write(items.explicitExtrinsicsValid, value); }
std::wstring CameraConfig::getOldUID() const { return read(items.oldUID).value; }

// Calibration points. Once they are cached, the document is no longer asked.

std::map<int, Point_2Dim<double>> CameraConfig::getCameraCalibrationPoints(bool reference) const {
    auto& cache = reference ? m_referenceCalibrationPoints : m_calibrationPoints;
    if (cache.empty()) cache = XMLConfig::detail::calibrationPointsFromText(read(calibrationItem(reference)).value);
    return cache;
}
void CameraConfig::setCameraCalibrationPoints(bool reference, const std::map<int, Point_2Dim<double>>& points) {
    std::map<int, Point_2Dim<double>> kept = points;
    write(calibrationItem(reference), XMLConfig::detail::calibrationPointsToText(points));
    (reference ? m_referenceCalibrationPoints : m_calibrationPoints).swap(kept);
}

// A pose given by hand.

bool CameraConfig::getExplicitExtrinsics(Point_3Dim<double>& xyz, Point_3Dim<double>& ypr) const {
    const Point_3Dim<double> position = read(items.explicitExtrinsicsXYZ).value;
    const Point_3Dim<double> rotation = read(items.explicitExtrinsicsYPR).value;
    if (wasRead(position)) xyz = position;
    if (wasRead(rotation)) ypr = rotation;
    return wasRead(position) && wasRead(rotation);
}
void CameraConfig::setExplicitExtrinsics(const Point_3Dim<double>& xyz, const Point_3Dim<double>& ypr) {
    XMLConfig::detail::together(*m_configInfo, [&] {
        write(items.explicitExtrinsicsXYZ, xyz);
        write(items.explicitExtrinsicsYPR, ypr);
    });
}
bool CameraConfig::doesExplicitExtrinsicsExist() const {
    return m_configInfo->doesItemExist(getSectionName(), items.explicitExtrinsicsXYZ.key, getSectionID());
}

// Edge thresholds: four numbers, or one in documents of older releases.

std::vector<int> CameraConfig::getMultiCamEdgeThreshold() const {
    const auto thresholds = XMLConfig::detail::edgeThresholdsFromText(read(items.multiCamEdgeThreshold).value);
    if (thresholds.isOfOlderForm) storeEdgeThresholds(thresholds.values);
    return thresholds.values;
}
void CameraConfig::setMultiCamEdgeThreshold(const std::vector<int>& values) {
    if (values.size() < XMLConfig::detail::edgeThresholdCount)
        throw CorvaneException(L"Error setMultiCamEdgeThreshold: section \"" + getSectionName() + L"\" \"" + getSectionID() +
                               L"\", item \"" + items.multiCamEdgeThreshold.key + L"\": four values are needed, " +
                               XMLConfig::detail::formatInteger(static_cast<long long>(values.size())) + L" were given");
    storeEdgeThresholds(values);
}

void CameraConfig::storeEdgeThresholds(const std::vector<int>& values) const {
    ValueTrait<std::wstring>::write(*m_configInfo, {getSectionName(), getSectionID(), items.multiCamEdgeThreshold.key},
                                    XMLConfig::detail::edgeThresholdsText(values));
}
