#pragma once

#include "base/Items.h"

/// The settings of the "Screen" section.
namespace XMLConfig::detail::screenItems {

inline constexpr const wchar_t* sectionName = L"Screen";
using Text = Item<std::wstring>;
using Number = Item<double>;
using Flag = Item<bool>;
using Point2D = Item<Point_2Dim<double>>;
using Point3D = Item<Point_3Dim<double>>;

inline constexpr auto shape =
    Text{L"Shape", L"Flat", L"Flat"}.means(L"shape of the surface: Flat, Sphere, Cylinder, Ruled, Toroid, VRML or Test");
inline constexpr auto meshPath = Text{L"VRML", L"", L""}.holds(L"path").means(L"file with the mesh of the surface");
inline constexpr auto measuredMeshPath =
    Text{L"MeasuredVRML", L""}.holds(L"path").means(L"file with the mesh of the surface as it was measured");
inline constexpr auto pcdPath = Text{L"PCD", L""}.holds(L"path").means(L"file with the point cloud of the surface");
inline constexpr auto markedSurfaceFilename =
    Text{L"Marked_Surface_File", L""}.holds(L"path").means(L"file with the image of the marked surface");
inline constexpr auto importAxisForward =
    Text{L"AxisForward", L"Y"}.means(L"axis of an imported model that points forward: X, Y, Z, -X, -Y or -Z");
inline constexpr auto importAxisUpward =
    Text{L"AxisUpward", L"Z"}.means(L"axis of an imported model that points up: X, Y, Z, -X, -Y or -Z");
inline constexpr auto centerPoint =
    Point3D{L"Center_Point", {0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}}.means(L"centre of the surface");
inline constexpr auto projectionPoint =
    Point3D{L"Projection_Point", {0.0, 0.0, 0.0}}.means(L"point from which content is projected onto the surface");
inline constexpr auto width = Number{L"Screen_Width", -1.0, 1.0}.means(L"width of the surface; negative when unknown");
inline constexpr auto height = Number{L"Screen_Height", -1.0, 1.0}.means(L"height of the surface; negative when unknown");
inline constexpr auto radius =
    Number{L"Screen_Radius", -1.0, 2.1}.means(L"radius of a curved surface; negative when unknown");
inline constexpr auto minTheta =
    Number{L"Screen_MinTheta", -1.0, degrees(-45.0)}.in(L"radians").means(L"lower limit of the surface's angle theta");
inline constexpr auto maxTheta =
    Number{L"Screen_MaxTheta", -1.0, degrees(45.0)}.in(L"radians").means(L"upper limit of the surface's angle theta");
inline constexpr auto minPhi =
    Number{L"Screen_MinPhi", -1.0, degrees(-18.0)}.in(L"radians").means(L"lower limit of the surface's angle phi");
inline constexpr auto maxPhi =
    Number{L"Screen_MaxPhi", -1.0, degrees(18.0)}.in(L"radians").means(L"upper limit of the surface's angle phi");
inline constexpr auto topMask = Number{L"Mask_Top", -1.0, 0.0}.means(L"size of the mask at the top edge");
inline constexpr auto bottomMask = Number{L"Mask_Bottom", -1.0, 0.0}.means(L"size of the mask at the bottom edge");
inline constexpr auto leftMask = Number{L"Mask_Left", -1.0, 0.0}.means(L"size of the mask at the left edge");
inline constexpr auto rightMask = Number{L"Mask_Right", -1.0, 0.0}.means(L"size of the mask at the right edge");
inline constexpr auto topMaskEnabled = Flag{L"Mask_Top_Enabled", false, false}.means(L"whether the top edge is masked");
inline constexpr auto bottomMaskEnabled =
    Flag{L"Mask_Bottom_Enabled", false, false}.means(L"whether the bottom edge is masked");
inline constexpr auto leftMaskEnabled = Flag{L"Mask_Left_Enabled", false, false}.means(L"whether the left edge is masked");
inline constexpr auto rightMaskEnabled =
    Flag{L"Mask_Right_Enabled", false, false}.means(L"whether the right edge is masked");
inline constexpr auto sampleSpacing =
    Number{L"Sample_Spacing", 15.0}.means(L"distance between neighbouring samples of the surface");
inline constexpr auto scaleCenter = Point2D{L"Scale_Center", {0.5, 0.5}}.means(
    L"point that stays in place when the content is scaled, as fractions of width and height");
inline constexpr auto scaleFactor =
    Point2D{L"Scale_Factor", {1.0, 1.0}}.means(L"factors by which the content is scaled, across and down");
inline constexpr auto scaleOffset =
    Point2D{L"Scale_Offset", {0.0, 0.0}}.means(L"how far the content is shifted when it is scaled, across and down");
inline constexpr auto sizeDefinition = Item<int>{L"SizeDefinition", 3, 1}.means(
    L"where the size comes from: 0 entered by hand, 1 determined automatically, 2 the model file; 3 asks Auto_Dimensions");
inline constexpr auto autoDimensions = Flag{L"Auto_Dimensions", false}.onlyRead().means(
    L"older form of SizeDefinition, used in its absence: whether the size is determined automatically");
inline constexpr auto fileLengthUnit = Text{L"File_Length_Unit", L"Meters"}.means(
    L"unit of an imported model: Millimeters, Centimeters, Inches, Feet, Meters or Custom");
inline constexpr auto fileCustomUnitScale =
    Number{L"File_Unit_Custom_Scale", 1.0}.means(L"scale of an imported model whose unit is Custom");
inline constexpr auto checkerboardBoxDimension =
    Number{L"Checkerboard_Calibration|Box_Dimension", 0.0}.means(L"edge length of a box of the calibration checkerboard");
inline constexpr auto checkerboardGridSizeCols =
    Item<int>{L"Checkerboard_Calibration|Grid_Size|Columns", 0}.means(L"columns of the calibration checkerboard");
inline constexpr auto checkerboardGridSizeRows =
    Item<int>{L"Checkerboard_Calibration|Grid_Size|Rows", 0}.means(L"rows of the calibration checkerboard");
inline constexpr auto markedSurfaceImageWidth =
    Item<int>{L"Marked_Surface_Image_Width", 0}.in(L"pixels").means(L"width of the image of the marked surface");
inline constexpr auto markedSurfaceImageHeight =
    Item<int>{L"Marked_Surface_Image_Height", 0}.in(L"pixels").means(L"height of the image of the marked surface");
inline constexpr auto calibrationPoints = Text{L"Camera_Calibration_Points", L""}
                                              .holds(L"list of 3-D points")
                                              .means(L"points of the surface by which cameras are calibrated, one a line");
inline constexpr auto locateGuessTransform =
    Text{L"Locate_Guess_Transform", L""}
        .holds(L"4 x 4 matrix")
        .means(L"first guess of where the surface is, row by row; the identity when there are not sixteen numbers");

inline constexpr auto all =
    std::tuple(shape, meshPath, measuredMeshPath, pcdPath, markedSurfaceFilename, importAxisForward, importAxisUpward,
               centerPoint, projectionPoint, width, height, radius, minTheta, maxTheta, minPhi, maxPhi, topMask, bottomMask,
               leftMask, rightMask, topMaskEnabled, bottomMaskEnabled, leftMaskEnabled, rightMaskEnabled, sampleSpacing,
               scaleCenter, scaleFactor, scaleOffset, sizeDefinition, autoDimensions, fileLengthUnit, fileCustomUnitScale,
               checkerboardBoxDimension, checkerboardGridSizeCols, checkerboardGridSizeRows, markedSurfaceImageWidth,
               markedSurfaceImageHeight, calibrationPoints, locateGuessTransform);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::screenItems
