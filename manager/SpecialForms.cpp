#include "manager/SpecialForms.h"

#include "platform/Numbers.h"
#include "platform/Words.h"
#include "sections/CalibrationPoints.h"
#include "sections/CorrectionTables.h"
#include "sections/EdgeThresholds.h"
#include "sections/ScreenTexts.h"
#include "sections/SystemTexts.h"
#include "store/TextForms.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

/// Three coordinates and two channels; "" for another count of pieces.
std::wstring overlapPointAsRead(const std::wstring& stored) {
    constexpr std::size_t pieces = 5;
    const std::vector<std::wstring> tokens = tokensOf(stored);
    if (tokens.size() != pieces) return {};
    const Point_3Dim<double> point(leadingDouble(tokens[0]), leadingDouble(tokens[1]), leadingDouble(tokens[2]));
    return textOf(point) + L", " + textOf(static_cast<int>(leadingInteger(tokens[3]))) + L", " +
           textOf(static_cast<int>(leadingInteger(tokens[4])));
}

}  // namespace

// Without a default the compiler names the type that is missing.
std::optional<std::wstring> specialFormAsRead(const std::wstring& stored, SettingType type) {
    switch (type) {
        case SettingType::CameraIDs:
            return joined(tokensOf(stored), L",");
        case SettingType::OverlapPoint:
            return overlapPointAsRead(stored);
        case SettingType::BlackBox:
            return blackBoxText(blackBoxFromText(stored));
        case SettingType::IntegerPairs:
            return relayAssociationsText(relayAssociationsFromText(stored));
        case SettingType::FourIntegers:
            return edgeThresholdsText(edgeThresholdsFromText(stored).values);
        case SettingType::MarkerPlaces:
            return calibrationPointsToText(calibrationPointsFromText(stored));
        case SettingType::PointList:
            return calibrationPointsText(calibrationPointsOf(stored));
        case SettingType::Matrix:
            return transformText(transformOf(stored));
        case SettingType::AxisTable:
            return correctionTableText(correctionTableFromText(stored));
        case SettingType::Bool:
        case SettingType::Int:
        case SettingType::Double:
        case SettingType::IntPoint2:
        case SettingType::Point2:
        case SettingType::Point3:
        case SettingType::Text:
        case SettingType::Element:
        case SettingType::Frustum:
        case SettingType::PondOfMirrors:
        case SettingType::Path:
            break;
    }
    return std::nullopt;
}

}  // namespace XMLConfig::detail
