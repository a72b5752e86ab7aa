#pragma once

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// The settings of a projector.
// clang-format off
struct ProjectorItems : SettingTable {
    constexpr ProjectorItems() : SettingTable(L"Projector") {}

    Descriptor<std::wstring> name{*this, L"Name", {L"", L"Channel_%s"},
        means(L"name people give the projector").of(SettingClass::Identity)};
    Descriptor<XmlElement> deviceSnippet{*this, L"DeviceSnippet", {L"", L""},
        means(L"how the projector is connected, as its driver describes it").of(SettingClass::Identity)};
    Descriptor<XmlElement> deviceSnippetOriginal{*this, L"DeviceSnippetOriginal", {L""},
        means(L"the original device snippet, kept by other tools and only read here").onlyRead().of(SettingClass::Identity)};
    Descriptor<std::wstring> associatedCameraId1{*this, L"Associated_Camera_Id_1", {L""},
        means(L"identifier of the first camera that observes the projector").of(SettingClass::Place)};
    Descriptor<std::wstring> associatedCameraId2{*this, L"Associated_Camera_Id_2", {L""},
        means(L"identifier of the second camera that observes the projector").of(SettingClass::Place)};
    Descriptor<int> resolutionX{*this, L"Resolution_X", {1400, 1400},
        means(L"native width of the projector").in(Unit::Pixels).atLeast(1)};
    Descriptor<int> resolutionY{*this, L"Resolution_Y", {1050, 1050},
        means(L"native height of the projector").in(Unit::Pixels).atLeast(1)};
    Descriptor<int> imageResolutionX{*this, L"ImageResolution_X", {1400},
        means(L"width of the image that is fed to the projector").in(Unit::Pixels).inheritedFrom(L"Geometry").atLeast(1)};
    Descriptor<int> imageResolutionY{*this, L"ImageResolution_Y", {1050},
        means(L"height of the image that is fed to the projector").in(Unit::Pixels).inheritedFrom(L"Geometry")
            .atLeast(1)};
    Descriptor<int> inputImageScalingMode{*this, L"InputImageScaling_Mode", {0},
        means(L"how the input image is fitted to the projector").inheritedFrom(L"Geometry")
            .oneOf({{0, L"scaled to full size"}, {1, L"not scaled"}})};
    Descriptor<int> portraitMode{*this, L"Portrait_Mode", {0},
        means(L"orientation of the image; 0 is landscape").inheritedFrom(L"Geometry")};
    Descriptor<Point_2Dim<int>> boxSize{*this, L"Box_Size", {{21, 21}},
        means(L"width and height of a box of the mapper's pattern").in(Unit::Pixels).inheritedFrom(L"Geometry")
            .countsWhile(L"Geometry", L"Enable_Automatic_Mapper_Settings", {L"false"})};
    Descriptor<double> boxSpacing{*this, L"Box_Spacing", {1.5},
        means(L"distance between the boxes of the mapper's pattern").inheritedFrom(L"Geometry").atLeast(1)
            .inOurJudgement().countsWhile(L"Geometry", L"Enable_Automatic_Mapper_Settings", {L"false"})};
    Descriptor<double> gamma{*this, L"Gamma", {2.2, 2.2},
        means(L"exponent of the projector's brightness response").within(1, 4).inOurJudgement()};
    Descriptor<double> lampPower{*this, L"Lamp_Power", {100.0, 100.0},
        means(L"power the lamps are run at").in(Unit::Percent).within(0, 100).inOurJudgement()};
    Descriptor<int> colourUser{*this, L"Colour_User", {1, 1},
        means(L"number of the projector's user colour setting")};
    Descriptor<std::wstring> lampMode{*this, L"Lamp_Mode", {L"", L""},
        means(L"lamps in use").oneOf({L"", L"Single1", L"Single2", L"Dual"}).elseCountsAs(L"")};
    Descriptor<double> blendPercentTop{*this, L"Blend_Top", {-1.0, 0.0},
        means(L"part of the image taken by the blend at its top edge; -1 when unknown").in(Unit::Percent)
            .of(SettingClass::Place)};
    Descriptor<double> blendPercentBottom{*this, L"Blend_Bottom", {-1.0, 0.0},
        means(L"part of the image taken by the blend at its bottom edge; -1 when unknown").in(Unit::Percent)
            .of(SettingClass::Place)};
    Descriptor<double> blendPercentRight{*this, L"Blend_Right", {-1.0, 0.0},
        means(L"part of the image taken by the blend at its right edge; -1 when unknown").in(Unit::Percent)
            .of(SettingClass::Place)};
    Descriptor<double> blendPercentLeft{*this, L"Blend_Left", {-1.0, 0.0},
        means(L"part of the image taken by the blend at its left edge; -1 when unknown").in(Unit::Percent)
            .of(SettingClass::Place)};
    Descriptor<double> headingYaw{*this, L"Channel_Extents|Heading|Yaw", {0.0, 0.0},
        means(L"yaw of the image channel's line of sight").in(Unit::Radians).of(SettingClass::Channel)};
    Descriptor<double> headingPitch{*this, L"Channel_Extents|Heading|Pitch", {0.0, 0.0},
        means(L"pitch of the image channel's line of sight").in(Unit::Radians).of(SettingClass::Channel)};
    Descriptor<double> headingRoll{*this, L"Channel_Extents|Heading|Roll", {0.0, 0.0},
        means(L"roll of the image channel about its line of sight").in(Unit::Radians).of(SettingClass::Channel)};
    Descriptor<double> vfovTop{*this, L"Channel_Extents|VFOV|Top", {0.0, fromDegrees(20.0)},
        means(L"vertical angle from the line of sight to the channel's top edge").in(Unit::Radians)
            .of(SettingClass::Channel)};
    Descriptor<double> vfovBottom{*this, L"Channel_Extents|VFOV|Bottom", {0.0, fromDegrees(-20.0)},
        means(L"vertical angle from the line of sight to the channel's bottom edge").in(Unit::Radians)
            .of(SettingClass::Channel)};
    Descriptor<double> hfovLeft{*this, L"Channel_Extents|HFOV|Left", {0.0, fromDegrees(-30.0)},
        means(L"horizontal angle from the line of sight to the channel's left edge").in(Unit::Radians)
            .of(SettingClass::Channel)};
    Descriptor<double> hfovRight{*this, L"Channel_Extents|HFOV|Right", {0.0, fromDegrees(30.0)},
        means(L"horizontal angle from the line of sight to the channel's right edge").in(Unit::Radians)
            .of(SettingClass::Channel)};
    Descriptor<Point_3Dim<double>> eyePoint{*this, L"Channel_Extents|Eye_Point", {Point_3Dim<double>{}},
        means(L"where the viewer of the image channel is (x, y, z)").in(Unit::Meters).of(SettingClass::Channel)};
    Descriptor<Frustum> designedFrustum{*this, L"Designed|Frustum", {AllZeros{}},
        means(L"pose, angles (radians) and resolution the installation's design gives the projector")
            .of(SettingClass::Channel)};
    Descriptor<double> designedLumens{*this, L"Designed|Lumens", {0.0},
        means(L"brightness the installation's design gives the projector").in(Unit::Lumens).of(SettingClass::Channel)};
    Descriptor<Point_3Dim<double>> initialYPR{*this, L"InitialProjectorData|YPR", {Point_3Dim<double>{}},
        means(L"yaw, pitch and roll the pose solver starts from").onlyRead().of(SettingClass::Channel)};
    Descriptor<Point_3Dim<double>> initialXYZ{*this, L"InitialProjectorData|XYZ", {Point_3Dim<double>{}},
        means(L"position the pose solver starts from; found automatically when missing").onlyRead().in(Unit::Meters)
            .of(SettingClass::Channel)};
    Descriptor<double> initialF{*this, L"InitialProjectorData|F", {24.0},
        means(L"focal length the pose solver starts from; lens values are found automatically when missing").onlyRead()
            .of(SettingClass::Channel)};
    Descriptor<double> initialAspectRatio{*this, L"InitialProjectorData|Aspect_Ratio", {1.0},
        means(L"width of a pixel against its height, as the pose solver starts").onlyRead().of(SettingClass::Channel)};
    Descriptor<Point_2Dim<double>> initialOffset{*this, L"InitialProjectorData|Offset",
        {{0.5 * resolutionX.fallback, 0.5 * resolutionY.fallback}},
        means(L"image point of the optical axis the pose solver starts from; the image centre when missing")
            .in(Unit::Pixels).onlyRead().of(SettingClass::Channel)
            .missingMeans(L"half of Resolution_X, half of Resolution_Y")};
    Descriptor<std::wstring> oldUID{*this, L"OldSectionID", {L""},
        means(L"identifier the section had before it was last renamed").onlyRead().of(SettingClass::Identity)};
    Descriptor<double> screenAreaLeft{*this, L"Screen_Area_Left", {-1000.0, 0.0},
        means(L"left edge of the projector's part of the screen, a fraction of its width; -1000 when unknown")
            .in(Unit::Fraction).of(SettingClass::Place)};
    Descriptor<double> screenAreaRight{*this, L"Screen_Area_Right", {-1000.0, 1.0},
        means(L"right edge of the projector's part of the screen, a fraction of its width; -1000 when unknown")
            .in(Unit::Fraction).of(SettingClass::Place)};
    Descriptor<double> screenAreaTop{*this, L"Screen_Area_Top", {-1000.0, 0.0},
        means(L"top edge of the projector's part of the screen, a fraction of its height; -1000 when unknown")
            .in(Unit::Fraction).of(SettingClass::Place)};
    Descriptor<double> screenAreaBottom{*this, L"Screen_Area_Bottom", {-1000.0, 1.0},
        means(L"bottom edge of the projector's part of the screen, a fraction of its height; -1000 when unknown")
            .in(Unit::Fraction).of(SettingClass::Place)};
    Descriptor<double> blackLevel{*this, L"Black_Level", {0.0},
        means(L"light the projector emits when it shows black").atLeast(0).inOurJudgement()};
    Descriptor<double> blackLevelBoostFactor{*this, L"Black_Level_Boost", {1.0},
        means(L"factor on the light that is added to even out the black level").above(0).inOurJudgement()};
    Descriptor<int> blackLevelTint{*this, L"Black_Level_Tint", {0},
        means(L"tint of the light that is added to even out the black level; 0 is neutral")};
    Descriptor<BlackLevelBlending::PondOfMirrors> pondOfMirrors{*this, L"Pond_Of_Mirrors", {AllZeros{}},
        means(L"flags of the image edges (top, bottom, left, right) whose black level is mirrored").of(SettingClass::Place)};
    Descriptor<std::wstring> motoBlendInitCommand{*this, L"MotoBlend_Init_Command", {L""},
        means(L"command that readies the motorised blend plates").inheritedFrom(L"System").of(SettingClass::Place)};
    Descriptor<std::wstring> motoBlendOpenCommand{*this, L"MotoBlend_Open_Command", {L""},
        means(L"command that opens the motorised blend plates").inheritedFrom(L"System").of(SettingClass::Place)};
    Descriptor<std::wstring> motoBlendCloseCommand{*this, L"MotoBlend_Close_Command", {L""},
        means(L"command that closes the motorised blend plates").inheritedFrom(L"System").of(SettingClass::Place)};
    Descriptor<int> fitOrder{*this, L"Fit_Order", {0},
        means(L"order of the polynomial fitted to the projector's points")};
    Descriptor<std::wstring> projectionModelFilename{*this, L"Projection_Model_File", {L""},
        means(L"file of the projector's projection model")};
    Descriptor<std::wstring> projectionModelScript{*this, L"Projection_Model_Script", {L""},
        means(L"script that makes the projector's projection model")};
    Descriptor<std::wstring> projectionLayoutFilename{*this, L"Projection_Layout_File", {L""},
        means(L"file of the layout the projection model is part of")};
    Descriptor<std::wstring> solverType{*this, L"SolverType", {L""},
        means(L"name of the solver to use for the projector").onlyRead()};
    Descriptor<std::wstring> redGreenAlignmentImageName{*this, L"Red_Green_Alignment_Image", {L""},
        means(L"name of the red and green image the projector shows for alignment").of(SettingClass::Place)};
    Descriptor<int> pellinorWarpLatency{*this, L"Pellinor_Warp_Latency", {0},
        means(L"delay between sending a warp to the projector's warper and its effect").atLeast(0).inOurJudgement()};
};
// clang-format on

inline constexpr ProjectorItems projectorItems;
static_assert(keysAreDistinct(projectorItems));

}  // namespace XMLConfig::detail
