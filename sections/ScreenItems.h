#pragma once

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// The settings of the "Screen" section.
// clang-format off
struct ScreenItems : SettingTable {
    constexpr ScreenItems() : SettingTable(L"Screen") {}

    Descriptor<std::wstring> shape{*this, L"Shape", {L"Flat", L"Flat"},
        means(L"shape of the surface").oneOf({L"Flat", L"Sphere", L"Cylinder", L"Ruled", L"Toroid", L"VRML", L"Test"})};
    Descriptor<Special<SettingType::Path>> meshPath{*this, L"VRML", {L"", L""},
        means(L"file with the mesh of the surface")};
    Descriptor<Special<SettingType::Path>> measuredMeshPath{*this, L"MeasuredVRML", {L""},
        means(L"file with the mesh of the surface as it was measured")};
    Descriptor<Special<SettingType::Path>> pcdPath{*this, L"PCD", {L""},
        means(L"file with the point cloud of the surface")};
    Descriptor<Special<SettingType::Path>> markedSurfaceFilename{*this, L"Marked_Surface_File", {L""},
        means(L"file with the image of the marked surface")};
    Descriptor<std::wstring> importAxisForward{*this, L"AxisForward", {L"Y"},
        means(L"axis of an imported model that points forward").oneOf({L"X", L"Y", L"Z", L"-X", L"-Y", L"-Z"})};
    Descriptor<std::wstring> importAxisUpward{*this, L"AxisUpward", {L"Z"},
        means(L"axis of an imported model that points up").oneOf({L"X", L"Y", L"Z", L"-X", L"-Y", L"-Z"})};
    Descriptor<Point_3Dim<double>> centerPoint{*this, L"Center_Point", {{0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}},
        means(L"centre of the surface").in(Unit::Meters)};
    Descriptor<Point_3Dim<double>> projectionPoint{*this, L"Projection_Point", {{0.0, 0.0, 0.0}},
        means(L"point from which content is projected onto the surface").in(Unit::Meters)};
    Descriptor<double> height{*this, L"Screen_Height", {-1.0, 1.0},
        means(L"height of the surface; negative when unknown").in(Unit::Meters).countsUnless(L"", L"Shape", {L"Sphere"})};
    Descriptor<double> width{*this, L"Screen_Width", {-1.0, 1.0},
        means(L"width of the surface; negative when unknown").in(Unit::Meters)
            .countsUnless(L"", L"Shape", {L"Sphere", L"Cylinder", L"Toroid"})};
    Descriptor<double> radius{*this, L"Screen_Radius", {-1.0, 2.1},
        means(L"radius of a curved surface; negative when unknown").in(Unit::Meters).countsUnless(L"", L"Shape", {L"Flat"})};
    Descriptor<double> minTheta{*this, L"Screen_MinTheta", {-1.0, fromDegrees(-45.0)},
        means(L"lower limit of the surface's angle theta").in(Unit::Radians).countsUnless(L"", L"Shape", {L"Flat"})};
    Descriptor<double> maxTheta{*this, L"Screen_MaxTheta", {-1.0, fromDegrees(45.0)},
        means(L"upper limit of the surface's angle theta").in(Unit::Radians).countsUnless(L"", L"Shape", {L"Flat"})};
    Descriptor<double> minPhi{*this, L"Screen_MinPhi", {-1.0, fromDegrees(-18.0)},
        means(L"lower limit of the surface's angle phi").in(Unit::Radians).countsUnless(L"", L"Shape", {L"Flat"})};
    Descriptor<double> maxPhi{*this, L"Screen_MaxPhi", {-1.0, fromDegrees(18.0)},
        means(L"upper limit of the surface's angle phi").in(Unit::Radians).countsUnless(L"", L"Shape", {L"Flat"})};
    Descriptor<bool> topMaskEnabled{*this, L"Mask_Top_Enabled", {false, false},
        means(L"whether the top edge is masked")};
    Descriptor<double> topMask{*this, L"Mask_Top", {-1.0, 0.0},
        means(L"size of the mask at the top edge")};
    Descriptor<bool> bottomMaskEnabled{*this, L"Mask_Bottom_Enabled", {false, false},
        means(L"whether the bottom edge is masked")};
    Descriptor<double> bottomMask{*this, L"Mask_Bottom", {-1.0, 0.0},
        means(L"size of the mask at the bottom edge")};
    Descriptor<bool> leftMaskEnabled{*this, L"Mask_Left_Enabled", {false, false},
        means(L"whether the left edge is masked")};
    Descriptor<double> leftMask{*this, L"Mask_Left", {-1.0, 0.0},
        means(L"size of the mask at the left edge")};
    Descriptor<bool> rightMaskEnabled{*this, L"Mask_Right_Enabled", {false, false},
        means(L"whether the right edge is masked")};
    Descriptor<double> rightMask{*this, L"Mask_Right", {-1.0, 0.0},
        means(L"size of the mask at the right edge")};
    Descriptor<double> sampleSpacing{*this, L"Sample_Spacing", {15.0},
        means(L"distance between neighbouring samples of the surface")};
    Descriptor<Point_2Dim<double>> scaleCenter{*this, L"Scale_Center", {{0.5, 0.5}},
        means(L"point that stays in place when the content is scaled, as fractions of width and height").in(Unit::Fraction)};
    Descriptor<Point_2Dim<double>> scaleFactor{*this, L"Scale_Factor", {{1.0, 1.0}},
        means(L"factors by which the content is scaled, across and down").above(0).inOurJudgement()};
    Descriptor<Point_2Dim<double>> scaleOffset{*this, L"Scale_Offset", {{0.0, 0.0}},
        means(L"how far the content is shifted when it is scaled, across and down")};
    Descriptor<int> sizeDefinition{*this, L"SizeDefinition", {3, 1},
        means(L"where the size of the surface comes from")
            .oneOf({{0, L"entered by hand"}, {1, L"determined automatically"}, {2, L"that of the model file"}, {3,
                    L"as Auto_Dimensions says"}})
            .missingMeans(L"1 while Auto_Dimensions is true, else 0")};
    Descriptor<bool> autoDimensions{*this, L"Auto_Dimensions", {false},
        means(L"older form of SizeDefinition, used in its absence: whether the size is determined automatically")
            .onlyRead().countsWhile(L"", L"SizeDefinition", {L"3"})};
    Descriptor<std::wstring> fileLengthUnit{*this, L"File_Length_Unit", {L"Meters"},
        means(L"unit of an imported model")
            .oneOf({L"Millimeters", L"Centimeters", L"Inches", L"Feet", L"Meters", L"Custom"})};
    Descriptor<double> fileCustomUnitScale{*this, L"File_Unit_Custom_Scale", {1.0},
        means(L"scale of an imported model whose unit is Custom").countsWhile(L"", L"File_Length_Unit", {L"Custom"})};
    Descriptor<double> checkerboardBoxDimension{*this, L"Checkerboard_Calibration|Box_Dimension", {0.0},
        means(L"edge length of a box of the calibration checkerboard").in(Unit::Meters)};
    Descriptor<int> checkerboardGridSizeCols{*this, L"Checkerboard_Calibration|Grid_Size|Columns", {0},
        means(L"columns of the calibration checkerboard")};
    Descriptor<int> checkerboardGridSizeRows{*this, L"Checkerboard_Calibration|Grid_Size|Rows", {0},
        means(L"rows of the calibration checkerboard")};
    Descriptor<int> markedSurfaceImageWidth{*this, L"Marked_Surface_Image_Width", {0},
        means(L"width of the image of the marked surface").in(Unit::Pixels)};
    Descriptor<int> markedSurfaceImageHeight{*this, L"Marked_Surface_Image_Height", {0},
        means(L"height of the image of the marked surface").in(Unit::Pixels)};
    Descriptor<Special<SettingType::PointList>> calibrationPoints{*this, L"Camera_Calibration_Points", {L""},
        means(L"points of the surface by which cameras are calibrated, one a line")};
    Descriptor<Special<SettingType::Matrix>> locateGuessTransform{*this, L"Locate_Guess_Transform", {L""},
        means(L"first guess of where the surface is, row by row; the identity when there are not sixteen numbers")
            .missingMeans(L"the identity")};
};
// clang-format on

inline constexpr ScreenItems screenItems;
static_assert(keysAreDistinct(screenItems));

}  // namespace XMLConfig::detail
