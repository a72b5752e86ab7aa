#pragma once

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// The settings of the "TargetLocator" section.
// clang-format off
struct TargetLocatorItems : SettingTable {
    constexpr TargetLocatorItems() : SettingTable(L"TargetLocator") {}

    Descriptor<std::wstring> dataType{*this, L"Data_Type", {L"Planar-basic", L"Planar-basic"},
        means(L"how the target is described")
            .oneOf({L"Planar-basic", L"Planar-advanced", L"Spherical", L"Collimated", L"Projector Centric",
                    L"Custom Planar", L"3D"})
            .formerly(L"Projector Pose", L"Projector Centric")};
    Descriptor<Point_3Dim<double>> eyePoint{*this, L"Eye_Point", {Point_3Dim<double>{}, Point_3Dim<double>{}},
        means(L"where the viewer's eye is").in(Unit::Meters)};
    Descriptor<double> leftInset{*this, L"Inset_Left", {0.0, 0.0},
        means(L"how far the target stays inside the left edge")};
    Descriptor<double> rightInset{*this, L"Inset_Right", {0.0, 0.0},
        means(L"how far the target stays inside the right edge")};
    Descriptor<double> topInset{*this, L"Inset_Top", {0.0, 0.0},
        means(L"how far the target stays inside the top edge")};
    Descriptor<double> bottomInset{*this, L"Inset_Bottom", {0.0, 0.0},
        means(L"how far the target stays inside the bottom edge")};
    Descriptor<double> horizontalOverlap{*this, L"Horizontal_Overlap", {0.0, 0.05},
        means(L"wanted overlap of projectors side by side, as a fraction").in(Unit::Fraction).within(0, 0.9)
            .inOurJudgement()};
    Descriptor<double> verticalOverlap{*this, L"Vertical_Overlap", {0.0, 0.05},
        means(L"wanted overlap of projectors one above the other, as a fraction").in(Unit::Fraction).within(0, 0.9)
            .inOurJudgement()};
    Descriptor<Point_3Dim<double>> mirrorRotation{*this, L"Mirror_Rotation", {Point_3Dim<double>{}, Point_3Dim<double>{}},
        means(L"how the mirror is turned")};
    Descriptor<Point_3Dim<double>> mirrorTranslation{*this, L"Mirror_Translation",
        {Point_3Dim<double>{}, Point_3Dim<double>{}},
        means(L"where the mirror is").in(Unit::Meters)};
    Descriptor<double> mirrorRadius{*this, L"Mirror_Radius", {0.0, 0.0},
        means(L"radius of the mirror").in(Unit::Meters)};
    Descriptor<Special<SettingType::AxisTable>> horizontalCorrectionTable{*this, L"Horizontal_Content_Distortion", {L""},
        means(L"pairs of a measured and a corrected horizontal angle, one pair a line")
            .in(Unit::Degrees)};
    Descriptor<Special<SettingType::AxisTable>> verticalCorrectionTable{*this, L"Vertical_Content_Distortion", {L""},
        means(L"pairs of a measured and a corrected vertical angle, one pair a line")
            .in(Unit::Degrees)};
    Descriptor<std::wstring> overlapDisplayUnit{*this, L"Overlap_Display_Unit", {L"Percent", L"Percent"},
        means(L"unit in which a user interface shows the overlaps")};
};
// clang-format on

inline constexpr TargetLocatorItems targetLocatorItems;
static_assert(keysAreDistinct(targetLocatorItems));

}  // namespace XMLConfig::detail
