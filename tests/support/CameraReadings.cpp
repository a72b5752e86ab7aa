// What the accessors give for the settings of a camera.

#include <limits>

#include "platform/Words.h"
#include "sections/CameraConfig.h"
#include "tests/support/AccessorReadings.h"

namespace XMLConfig::tests {

namespace {

using Pose = std::pair<Point_3Dim<double>, Point_3Dim<double>>;

/// NaN where the accessor has not given any.
Pose poseOf(CameraConfig& camera) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    Pose pose{{none, none, none}, {none, none, none}};
    camera.getExplicitExtrinsics(pose.first, pose.second);
    return pose;
}

std::wstring thresholdsOf(CameraConfig& camera) {
    std::vector<std::wstring> numbers;
    for (const int threshold : camera.getMultiCamEdgeThreshold()) numbers.push_back(std::to_wstring(threshold));
    return detail::joined(numbers, L",");
}

/// As the accessor's setter stores them.
std::wstring markersOf(CameraConfig& camera, bool reference) {
    ConfigInfo document;
    CameraConfig(&document, readDevice).setCameraCalibrationPoints(reference, camera.getCameraCalibrationPoints(reference));
    const wchar_t* const key = reference ? L"Reference_Camera_Calibration_Points" : L"Camera_Calibration_Points";
    return document.getStringItem(L"Camera", key, L"(none)", readDevice, {}, {});
}

}  // namespace

AccessorReadings readingsOfCameras() {
    using S = CameraConfig;
    Readings<S> readings(L"Camera", readDevice,
                         [](ConfigInfo& document) { return std::make_unique<S>(&document, readDevice); });
    readings.row(L"Name", &S::getName)
        .row(L"DeviceSnippet", &S::getDeviceSnippet)
        .row(L"DeviceSnippetOriginal", &S::getDeviceSnippetOriginal)
        .row(L"Binarization_Threshold", &S::getBinarizationThreshold)
        .row(L"LED_Exposure", &S::getLEDExposure)
        .row(L"MarkedSurface_Exposure", &S::getMarkedSurfaceExposure)
        .row(L"LED_Binarization_Threshold", &S::getLEDBinarizationThreshold)
        .row(L"MarkedSurface_Binarization_Threshold", &S::getMarkedSurfaceBinarizationThreshold)
        .row(L"Marked_Surface_Opacity", &S::getMarkedSurfaceOpacity)
        .row(L"SubliminalExposureWindow", &S::getSubliminalExposureWindow)
        .row(L"Geometry_Exposure", &S::getGeometryExposure)
        .row(L"IntrinsicFileID", &S::getIntrinsicFileID)
        .row(L"MaskingROIScreenAreaPercentage", &S::getMaskingROIScreenAreaPercentage)
        .row(L"Camera_Reference_Image_RESID", &S::getCameraReferenceImageResourceIdentifier)
        .row(L"Camera_Reference_Image_Timestamp", &S::getCameraReferenceImageTimeStamp)
        .row(L"ExplicitExtrinsicValid", &S::getExplicitExtrinsicsValid)
        .row(L"ExplicitExtrinsicXYZ", [](S& s) { return poseOf(s).first; })
        .row(L"ExplicitExtrinsicYPR", [](S& s) { return poseOf(s).second; })
        .row(L"MultiCamEdgeThreshold", thresholdsOf)
        .row(L"Camera_Calibration_Points", [](S& s) { return markersOf(s, false); })
        .row(L"Reference_Camera_Calibration_Points", [](S& s) { return markersOf(s, true); })
        .row(L"OldSectionID", &S::getOldUID)
        .row(L"Automatic_Exposure", &S::isAutomaticExposure)
        .row(L"Marked_Surface_Automatic_Exposure", &S::isMarkedSurfaceAutomaticExposure)
        .row(L"Extended_Contrast", &S::isExtendedContrast)
        .row(L"Camera_Gain", &S::getCameraGain);
    return readings.rows();
}

}  // namespace XMLConfig::tests
