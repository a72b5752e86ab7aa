// What the accessors give for the settings of the screen and the target.

#include "sections/ScreenConfig.h"
#include "sections/TargetLocatorConfig.h"
#include "tests/sections/ScreenFixture.h"
#include "tests/support/AccessorReadings.h"

namespace XMLConfig::tests {

namespace {

constexpr auto relative = BaseConfig::FilePathRelative;

std::wstring pointsOf(ScreenConfig& screen) {
    return storedBy(parseAddress(L"Screen/Camera_Calibration_Points"), [&](ConfigInfo& document) {
        ScreenConfig(&document, nullptr, L"").setCalibrationPoints(screen.getCalibrationPoints());
    });
}

std::wstring transformOf(ScreenConfig& screen) {
    return storedBy(parseAddress(L"Screen/Locate_Guess_Transform"), [&](ConfigInfo& document) {
        ScreenConfig(&document, nullptr, L"").setLocateGuessTransform(screen.getLocateGuessTransform());
    });
}

std::wstring tableOf(const std::vector<std::pair<double, double>>& table) {
    return storedBy(parseAddress(L"TargetLocator/Horizontal_Content_Distortion"),
                    [&](ConfigInfo& document) { TargetLocatorConfig(&document, L"").setHorizontalCorrectionTable(table); });
}

}  // namespace

AccessorReadings readingsOfScreen() {
    using S = ScreenConfig;
    Readings<S> readings(L"Screen", L"",
                         [](ConfigInfo& document) { return std::make_unique<S>(&document, assetsOfHall(), L""); });
    readings.row(L"Shape", &S::getShape)
        .row(L"VRML", [](S& s) { return s.getMeshPath(relative); })
        .row(L"MeasuredVRML", [](S& s) { return s.getMeasuredMeshPath(relative); })
        .row(L"PCD", [](S& s) { return s.getPCDPath(relative); })
        .row(L"Marked_Surface_File", [](S& s) { return s.getMarkedSurfaceFilename(relative); })
        .row(L"AxisForward", &S::getScreenImportAxisForward)
        .row(L"AxisUpward", &S::getScreenImportAxisUpward)
        .row(L"Center_Point", &S::getCenterPoint)
        .row(L"Projection_Point", &S::getProjectionPoint)
        .row(L"Screen_Height", &S::getHeight)
        .row(L"Screen_Width", &S::getWidth)
        .row(L"Screen_Radius", &S::getRadius)
        .row(L"Screen_MinTheta", &S::getMinTheta)
        .row(L"Screen_MaxTheta", &S::getMaxTheta)
        .row(L"Screen_MinPhi", &S::getMinPhi)
        .row(L"Screen_MaxPhi", &S::getMaxPhi)
        .row(L"Mask_Top_Enabled", &S::isTopMaskEnabled)
        .row(L"Mask_Top", &S::getTopMask)
        .row(L"Mask_Bottom_Enabled", &S::isBottomMaskEnabled)
        .row(L"Mask_Bottom", &S::getBottomMask)
        .row(L"Mask_Left_Enabled", &S::isLeftMaskEnabled)
        .row(L"Mask_Left", &S::getLeftMask)
        .row(L"Mask_Right_Enabled", &S::isRightMaskEnabled)
        .row(L"Mask_Right", &S::getRightMask)
        .row(L"Sample_Spacing", &S::getSampleSpacing)
        .row(L"Scale_Center", &S::getScaleCenter)
        .row(L"Scale_Factor", &S::getScaleFactor)
        .row(L"Scale_Offset", &S::getScaleOffset)
        .row(L"SizeDefinition", &S::getSizeDefinition)
        .row(L"Auto_Dimensions", &S::isSizeDeterminedAutomatically)
        .row(L"File_Length_Unit", &S::getScreenFileLengthUnit)
        .row(L"File_Unit_Custom_Scale", &S::getScreenFileCustomUnitScaleValue)
        .row(L"Checkerboard_Calibration|Box_Dimension", &S::getCheckerboardBoxDimension)
        .row(L"Checkerboard_Calibration|Grid_Size|Columns", &S::getCheckerboardGridSizeCols)
        .row(L"Checkerboard_Calibration|Grid_Size|Rows", &S::getCheckerboardGridSizeRows)
        .row(L"Marked_Surface_Image_Width", [](S& s) { return s.getMarkedSurfaceImageSize().x; })
        .row(L"Marked_Surface_Image_Height", [](S& s) { return s.getMarkedSurfaceImageSize().y; })
        .row(L"Camera_Calibration_Points", pointsOf)
        .row(L"Locate_Guess_Transform", transformOf);
    return readings.rows();
}

AccessorReadings readingsOfTarget() {
    using S = TargetLocatorConfig;
    Readings<S> readings(L"TargetLocator", L"", [](ConfigInfo& document) { return std::make_unique<S>(&document, L""); });
    readings.row(L"Data_Type", &S::getDataType)
        .row(L"Eye_Point", &S::getEyePoint)
        .row(L"Inset_Left", &S::getLeftInset)
        .row(L"Inset_Right", &S::getRightInset)
        .row(L"Inset_Top", &S::getTopInset)
        .row(L"Inset_Bottom", &S::getBottomInset)
        .row(L"Horizontal_Overlap", &S::getHorizontalOverlap)
        .row(L"Vertical_Overlap", &S::getVerticalOverlap)
        .row(L"Mirror_Rotation", &S::getMirrorRotation)
        .row(L"Mirror_Translation", &S::getMirrorTranslation)
        .row(L"Mirror_Radius", &S::getMirrorRadius)
        .row(L"Horizontal_Content_Distortion", [](S& s) { return tableOf(s.getHorizontalCorrectionTable()); })
        .row(L"Vertical_Content_Distortion", [](S& s) { return tableOf(s.getVerticalCorrectionTable()); })
        .row(L"Overlap_Display_Unit", &S::getOverlapDisplayUnit);
    return readings.rows();
}

}  // namespace XMLConfig::tests
