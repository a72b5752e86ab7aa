#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "manager/check/Findings.h"
#include "platform/Numbers.h"
#include "sections/CalibrationPoints.h"
#include "sections/EdgeThresholds.h"
#include "sections/ScreenTexts.h"
#include "sections/SystemTexts.h"
#include "store/Tokens.h"

/// Rules on cameras and on measuring.
namespace XMLConfig::detail {
namespace {

void checkPose(Findings& findings, const CheckedSection& camera) {
    if (!findings.read.flag(camera, L"ExplicitExtrinsicValid")) return;
    const auto isRead = [&](const wchar_t* key) {
        const CheckedItem* const item = camera.find(key);
        return item != nullptr && valueOf(*item) != nullptr;
    };
    if (isRead(L"ExplicitExtrinsicXYZ") && isRead(L"ExplicitExtrinsicYPR")) return;
    const Place place = placeOf(camera, L"ExplicitExtrinsicValid");
    findings.add(L"XC601", Severity::Error, place, L"is true, but there is no pose").mend =
        mendBy(MendSafety::Asked, setCommand(place, L"false"));
}

void checkMarkerNumbers(Findings& findings, const CheckedSection& camera, const CalibrationPoints& markers,
                        std::size_t screenPoints) {
    if (markers.empty()) return;
    const Place place = placeOf(camera, L"Camera_Calibration_Points");
    constexpr std::size_t enough = 4;
    if (markers.size() < enough)
        findings.add(L"XC602", Severity::Warning, place, counted(markers.size(), L"marker") + L"; a pose needs 4");
    if (screenPoints == 0) return;
    for (const auto& [number, point] : markers) {
        if (number <= 0 || static_cast<std::size_t>(number) <= screenPoints) continue;
        findings.add(L"XC603", Severity::Warning, place,
                     L"marker " + std::to_wstring(number) + L"; the screen has " + counted(screenPoints, L"point"));
        break;
    }
}

void checkMarkerPlaces(Findings& findings, const CheckedSection& camera, const CalibrationPoints& markers) {
    if (markers.empty()) return;
    const double width = leadingDouble(childText(camera.snippet(), L"resolutionX"));
    const double height = leadingDouble(childText(camera.snippet(), L"resolutionY"));
    if (width <= 0.0 || height <= 0.0) return;
    for (const auto& [number, point] : markers) {
        if (point.x >= 0.0 && point.x <= width && point.y >= 0.0 && point.y <= height) continue;
        findings.add(L"XC604", Severity::Error, placeOf(camera, L"Camera_Calibration_Points"),
                     L"marker " + std::to_wstring(number) + L" at " + shortNumber(point.x) + L", " + shortNumber(point.y) +
                         L" is outside the image of " + shortNumber(width) + L" x " + shortNumber(height));
        break;
    }
}

double medianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 != 0 ? values[middle] : 0.5 * (values[middle - 1] + values[middle]);
}

void checkMoved(Findings& findings, const CheckedSection& camera, const CalibrationPoints& markers) {
    if (markers.empty()) return;
    const CalibrationPoints reference = calibrationPointsFromText(camera.stored(L"Reference_Camera_Calibration_Points"));
    std::vector<double> distances;
    for (const auto& [number, point] : markers) {
        const auto before = reference.find(number);
        if (before != reference.end())
            distances.push_back(std::hypot(point.x - before->second.x, point.y - before->second.y));
    }
    constexpr std::size_t enough = 3;
    constexpr double mostPixels = 10.0;
    if (distances.size() < enough || !(medianOf(distances) > mostPixels)) return;
    findings.add(L"XC605", Severity::Warning, placeOf(camera, L"Camera_Calibration_Points"),
                 L"markers have moved by " + shortNumber(medianOf(distances), 1) + L" pixels since the reference image");
}

void checkThresholds(Findings& findings, const CheckedSection& camera) {
    const EdgeThresholds thresholds = edgeThresholdsFromText(camera.stored(L"MultiCamEdgeThreshold"));
    if (thresholds.pieces == 0 || !thresholds.values.empty()) return;
    findings.add(L"XC606", Severity::Error, placeOf(camera, L"MultiCamEdgeThreshold"),
                 L"holds " + counted(thresholds.pieces, L"number") + L"; reads as none");
}

void checkLensFiles(Findings& findings) {
    std::unordered_map<std::wstring_view, const CheckedSection*> owners;
    const auto& cameras = findings.read.cameras();
    const auto hasFile = [](const CheckedSection* camera) { return !camera->stored(L"IntrinsicFileID").empty(); };
    const bool anyHas = std::any_of(cameras.begin(), cameras.end(), hasFile);
    for (const CheckedSection* camera : cameras) {
        const std::wstring& file = camera->stored(L"IntrinsicFileID");
        const auto place = [&] { return placeOf(*camera, L"IntrinsicFileID"); };
        if (file.empty()) {
            if (anyHas) findings.add(L"XC611", Severity::Warning, place(), L"is empty, other cameras have one");
            continue;
        }
        const auto [owner, isNew] = owners.emplace(file, camera);
        if (!isNew)
            findings.add(L"XC611", Severity::Warning, place(), quoted(file) + L" is also that of " + owner->second->title())
                .places = {otherPlace(placeOf(*owner->second, L"IntrinsicFileID"), file)};
    }
}

void checkNoCameras(Findings& findings) {
    if (!findings.read.flag(L"System", L"Is_Camera_Used") || findings.read.projectors().empty()) return;
    if (findings.read.cameras().empty())
        findings.add(L"XC610", Severity::Error, placeOf(findings, L"System", L"Is_Camera_Used"),
                     L"is true, but there is no camera");
}

void checkLights(Findings& findings) {
    const std::wstring method = findings.read.text(L"System", L"Marker_Location_Method");
    const int units = findings.read.integer(L"System", L"ACT_Count");
    if (method.compare(0, 3, L"act") == 0 && units < 1)
        findings.add(L"XC614", Severity::Error, placeOf(findings, L"System", L"ACT_Count"),
                     L"is " + std::to_wstring(units) + L", but markers are found by ACT units");
    const std::wstring box = findings.read.text(L"System", L"Black_Box_LED_Lights_Comm");
    const bool isLED = method == L"led" || method == L"led-manual";
    if (isLED && !blackBoxPieces(box).empty() && !blackBoxFromText(box).getEnabled())
        findings.add(L"XC614", Severity::Warning, placeOf(findings, L"System", L"Black_Box_LED_Lights_Comm"),
                     L"is not enabled, but markers are found by LEDs");
}

void checkSampleRange(Findings& findings) {
    const CheckedItem* const item = findings.read.section(L"Color").find(L"NormalizedValidExposureSampleRange");
    if (item == nullptr) return;
    const std::vector<double> range = numbersOf(item->text);
    const auto isFinite = [](double number) { return std::isfinite(number); };
    if (range.size() != 2 || !std::all_of(range.begin(), range.end(), isFinite)) return;  // has a finding already
    if (range[0] >= 0.0 && range[0] < range[1] && range[1] <= 1.0) return;
    findings.add(L"XC615", Severity::Error, placeOf(findings.read.section(L"Color"), *item),
                 shortNumber(range[0]) + L" to " + shortNumber(range[1]) + L" is no range");
}

}  // namespace

void checkCameras(Findings& findings) {
    const std::size_t screenPoints =
        calibrationPointsOf(findings.read.section(L"Screen").stored(L"Camera_Calibration_Points")).size();
    for (const CheckedSection* camera : findings.read.cameras()) {
        const CalibrationPoints markers = calibrationPointsFromText(camera->stored(L"Camera_Calibration_Points"));
        checkPose(findings, *camera);
        checkMarkerNumbers(findings, *camera, markers, screenPoints);
        checkMarkerPlaces(findings, *camera, markers);
        checkMoved(findings, *camera, markers);
        checkThresholds(findings, *camera);
    }
    checkLensFiles(findings);
    checkNoCameras(findings);
    checkLights(findings);
    checkSampleRange(findings);
}

}  // namespace XMLConfig::detail
