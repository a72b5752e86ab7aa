#pragma once

#include "base/Items.h"

/// The settings of the "TargetLocator" section.
namespace XMLConfig::detail::targetLocatorItems {

inline constexpr const wchar_t* sectionName = L"TargetLocator";
using Point = Point_3Dim<double>;

inline constexpr auto dataType = Item<std::wstring>{L"Data_Type", L"Planar-basic", L"Planar-basic"}.means(
    L"how the target is described: Planar-basic, Planar-advanced, Spherical, Collimated, Projector Centric, Custom Planar "
    L"or 3D");
inline constexpr auto eyePoint = Item<Point>{L"Eye_Point", Point{}, Point{}}.means(L"where the viewer's eye is");
inline constexpr auto leftInset =
    Item<double>{L"Inset_Left", 0.0, 0.0}.means(L"how far the target stays inside the left edge");
inline constexpr auto rightInset =
    Item<double>{L"Inset_Right", 0.0, 0.0}.means(L"how far the target stays inside the right edge");
inline constexpr auto topInset = Item<double>{L"Inset_Top", 0.0, 0.0}.means(L"how far the target stays inside the top edge");
inline constexpr auto bottomInset =
    Item<double>{L"Inset_Bottom", 0.0, 0.0}.means(L"how far the target stays inside the bottom edge");
inline constexpr auto horizontalOverlap =
    Item<double>{L"Horizontal_Overlap", 0.0, 0.05}.means(L"wanted overlap of projectors side by side, as a fraction");
inline constexpr auto verticalOverlap =
    Item<double>{L"Vertical_Overlap", 0.0, 0.05}.means(L"wanted overlap of projectors one above the other, as a fraction");
inline constexpr auto overlapDisplayUnit = Item<std::wstring>{L"Overlap_Display_Unit", L"Percent", L"Percent"}.means(
    L"unit in which a user interface shows the overlaps");
inline constexpr auto mirrorRotation = Item<Point>{L"Mirror_Rotation", Point{}, Point{}}.means(L"how the mirror is turned");
inline constexpr auto mirrorTranslation = Item<Point>{L"Mirror_Translation", Point{}, Point{}}.means(L"where the mirror is");
inline constexpr auto mirrorRadius = Item<double>{L"Mirror_Radius", 0.0, 0.0}.means(L"radius of the mirror");
inline constexpr auto horizontalCorrectionTable =
    Item<std::wstring>{L"Horizontal_Content_Distortion", L""}
        .holds(L"axis table")
        .in(L"degrees")
        .means(L"pairs of a measured and a corrected horizontal angle, one pair a line");
inline constexpr auto verticalCorrectionTable =
    Item<std::wstring>{L"Vertical_Content_Distortion", L""}
        .holds(L"axis table")
        .in(L"degrees")
        .means(L"pairs of a measured and a corrected vertical angle, one pair a line");

inline constexpr auto all = std::tuple(dataType, eyePoint, leftInset, rightInset, topInset, bottomInset, horizontalOverlap,
                                       verticalOverlap, overlapDisplayUnit, mirrorRotation, mirrorTranslation, mirrorRadius,
                                       horizontalCorrectionTable, verticalCorrectionTable);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::targetLocatorItems
