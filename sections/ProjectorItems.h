#pragma once

#include <tuple>

#include "base/Items.h"

/// The settings of a projector, in the order of the section's reference; "%s" in a new value is the section's identifier.
namespace XMLConfig::detail::projectorItems {

using Point2I = Point_2Dim<int>;
using Point2D = Point_2Dim<double>;
using Point3D = Point_3Dim<double>;
using PondOfMirrors = BlackLevelBlending::PondOfMirrors;

inline constexpr const wchar_t* sectionName = L"Projector";
inline constexpr const wchar_t* geometrySection = L"Geometry";
inline constexpr const wchar_t* systemSection = L"System";

// A table: each item above its meaning.
// clang-format off
inline constexpr auto name = Item<std::wstring>{L"Name", L"", L"Channel_%s"}
    .means(L"name people give the projector");
inline constexpr auto deviceSnippet = Item<Fragment>{L"DeviceSnippet", L"", L""}
    .means(L"how the projector is connected, as its driver describes it");
inline constexpr auto deviceSnippetOriginal = Item<Fragment>{L"DeviceSnippetOriginal", L""}.onlyRead()
    .means(L"the original device snippet, kept by other tools and only read here");
inline constexpr auto associatedCameraId1 = Item<std::wstring>{L"Associated_Camera_Id_1", L""}
    .means(L"identifier of the first camera that observes the projector");
inline constexpr auto associatedCameraId2 = Item<std::wstring>{L"Associated_Camera_Id_2", L""}
    .means(L"identifier of the second camera that observes the projector");
inline constexpr auto resolutionX = Item<int>{L"Resolution_X", 1400, 1400}.in(L"pixels")
    .means(L"native width of the projector");
inline constexpr auto resolutionY = Item<int>{L"Resolution_Y", 1050, 1050}.in(L"pixels")
    .means(L"native height of the projector");
inline constexpr auto imageResolutionX = Item<int>{L"ImageResolution_X", 1400}.in(L"pixels").inheritsFrom(geometrySection)
    .means(L"width of the image that is fed to the projector");
inline constexpr auto imageResolutionY = Item<int>{L"ImageResolution_Y", 1050}.in(L"pixels").inheritsFrom(geometrySection)
    .means(L"height of the image that is fed to the projector");
inline constexpr auto inputImageScalingMode = Item<int>{L"InputImageScaling_Mode", 0}.inheritsFrom(geometrySection)
    .means(L"how the input image is fitted to the projector: 0 scaled to full size, 1 not scaled");
inline constexpr auto portraitMode = Item<int>{L"Portrait_Mode", 0}.inheritsFrom(geometrySection)
    .means(L"orientation of the image; 0 is landscape");
inline constexpr auto boxSize = Item<Point2I>{L"Box_Size", {21, 21}}.inheritsFrom(geometrySection)
    .means(L"width and height of a box of the mapper's pattern");
inline constexpr auto boxSpacing = Item<double>{L"Box_Spacing", 1.5}.inheritsFrom(geometrySection)
    .means(L"distance between the boxes of the mapper's pattern");
inline constexpr auto gamma = Item<double>{L"Gamma", 2.2, 2.2}
    .means(L"exponent of the projector's brightness response");
inline constexpr auto lampPower = Item<double>{L"Lamp_Power", 100.0, 100.0}.in(L"percent")
    .means(L"power the lamps are run at");
inline constexpr auto colourUser = Item<int>{L"Colour_User", 1, 1}
    .means(L"number of the projector's user colour setting");
inline constexpr auto lampMode = Item<std::wstring>{L"Lamp_Mode", L"", L""}
    .means(L"lamps in use: Single1, Single2 or Dual; any other text counts as empty");
inline constexpr auto blendPercentTop = Item<double>{L"Blend_Top", -1.0, 0.0}.in(L"percent")
    .means(L"part of the image taken by the blend at its top edge; -1 when unknown");
inline constexpr auto blendPercentBottom = Item<double>{L"Blend_Bottom", -1.0, 0.0}.in(L"percent")
    .means(L"part of the image taken by the blend at its bottom edge; -1 when unknown");
inline constexpr auto blendPercentRight = Item<double>{L"Blend_Right", -1.0, 0.0}.in(L"percent")
    .means(L"part of the image taken by the blend at its right edge; -1 when unknown");
inline constexpr auto blendPercentLeft = Item<double>{L"Blend_Left", -1.0, 0.0}.in(L"percent")
    .means(L"part of the image taken by the blend at its left edge; -1 when unknown");
inline constexpr auto screenAreaLeft = Item<double>{L"Screen_Area_Left", -1000.0, 0.0}
    .means(L"left edge of the projector's part of the screen, a fraction of its width; -1000 when unknown");
inline constexpr auto screenAreaRight = Item<double>{L"Screen_Area_Right", -1000.0, 1.0}
    .means(L"right edge of the projector's part of the screen, a fraction of its width; -1000 when unknown");
inline constexpr auto screenAreaTop = Item<double>{L"Screen_Area_Top", -1000.0, 0.0}
    .means(L"top edge of the projector's part of the screen, a fraction of its height; -1000 when unknown");
inline constexpr auto screenAreaBottom = Item<double>{L"Screen_Area_Bottom", -1000.0, 1.0}
    .means(L"bottom edge of the projector's part of the screen, a fraction of its height; -1000 when unknown");
inline constexpr auto blackLevel = Item<double>{L"Black_Level", 0.0}
    .means(L"light the projector emits when it shows black");
inline constexpr auto blackLevelBoostFactor = Item<double>{L"Black_Level_Boost", 1.0}
    .means(L"factor on the light that is added to even out the black level");
inline constexpr auto blackLevelTint = Item<int>{L"Black_Level_Tint", 0}
    .means(L"tint of the light that is added to even out the black level; 0 is neutral");
inline constexpr auto pondOfMirrors = Item<PondOfMirrors>{L"Pond_Of_Mirrors", {}}
    .means(L"flags of the image edges (top, bottom, left, right) whose black level is mirrored");
inline constexpr auto motoBlendInitCommand = Item<std::wstring>{L"MotoBlend_Init_Command", L""}.inheritsFrom(systemSection)
    .means(L"command that readies the motorised blend plates");
inline constexpr auto motoBlendOpenCommand = Item<std::wstring>{L"MotoBlend_Open_Command", L""}.inheritsFrom(systemSection)
    .means(L"command that opens the motorised blend plates");
inline constexpr auto motoBlendCloseCommand = Item<std::wstring>{L"MotoBlend_Close_Command", L""}.inheritsFrom(systemSection)
    .means(L"command that closes the motorised blend plates");
inline constexpr auto fitOrder = Item<int>{L"Fit_Order", 0}
    .means(L"order of the polynomial fitted to the projector's points");
inline constexpr auto projectionModelFilename = Item<std::wstring>{L"Projection_Model_File", L""}
    .means(L"file of the projector's projection model");
inline constexpr auto projectionModelScript = Item<std::wstring>{L"Projection_Model_Script", L""}
    .means(L"script that makes the projector's projection model");
inline constexpr auto projectionLayoutFilename = Item<std::wstring>{L"Projection_Layout_File", L""}
    .means(L"file of the layout the projection model is part of");
inline constexpr auto solverType = Item<std::wstring>{L"SolverType", L""}.onlyRead()
    .means(L"name of the solver to use for the projector");
inline constexpr auto redGreenAlignmentImageName = Item<std::wstring>{L"Red_Green_Alignment_Image", L""}
    .means(L"name of the red and green image the projector shows for alignment");
inline constexpr auto pellinorWarpLatency = Item<int>{L"Pellinor_Warp_Latency", 0}
    .means(L"delay between sending a warp to the projector's warper and its effect");

inline constexpr auto headingYaw = Item<double>{L"Channel_Extents|Heading|Yaw", 0.0, 0.0}.in(L"radians")
    .means(L"yaw of the image channel's line of sight");
inline constexpr auto headingPitch = Item<double>{L"Channel_Extents|Heading|Pitch", 0.0, 0.0}.in(L"radians")
    .means(L"pitch of the image channel's line of sight");
inline constexpr auto headingRoll = Item<double>{L"Channel_Extents|Heading|Roll", 0.0, 0.0}.in(L"radians")
    .means(L"roll of the image channel about its line of sight");
inline constexpr auto vfovTop = Item<double>{L"Channel_Extents|VFOV|Top", 0.0, degrees(20.0)}.in(L"radians")
    .means(L"vertical angle from the line of sight to the channel's top edge");
inline constexpr auto vfovBottom = Item<double>{L"Channel_Extents|VFOV|Bottom", 0.0, degrees(-20.0)}.in(L"radians")
    .means(L"vertical angle from the line of sight to the channel's bottom edge");
inline constexpr auto hfovLeft = Item<double>{L"Channel_Extents|HFOV|Left", 0.0, degrees(-30.0)}.in(L"radians")
    .means(L"horizontal angle from the line of sight to the channel's left edge");
inline constexpr auto hfovRight = Item<double>{L"Channel_Extents|HFOV|Right", 0.0, degrees(30.0)}.in(L"radians")
    .means(L"horizontal angle from the line of sight to the channel's right edge");
inline constexpr auto eyePoint = Item<Point3D>{L"Channel_Extents|Eye_Point", {}}
    .means(L"where the viewer of the image channel is (x, y, z)");
inline constexpr auto designedFrustum = Item<Frustum>{L"Designed|Frustum", {}}
    .means(L"pose, angles (radians) and resolution the installation's design gives the projector");
inline constexpr auto designedLumens = Item<double>{L"Designed|Lumens", 0.0}.in(L"lumens")
    .means(L"brightness the installation's design gives the projector");
inline constexpr auto initialYPR = Item<Point3D>{L"InitialProjectorData|YPR", {}}.onlyRead()
    .means(L"yaw, pitch and roll the pose solver starts from");
inline constexpr auto initialXYZ = Item<Point3D>{L"InitialProjectorData|XYZ", {}}.onlyRead()
    .means(L"position the pose solver starts from; found automatically when missing");
inline constexpr auto initialF = Item<double>{L"InitialProjectorData|F", 24.0}.onlyRead()
    .means(L"focal length the pose solver starts from; lens values are found automatically when missing");
inline constexpr auto initialAspectRatio = Item<double>{L"InitialProjectorData|Aspect_Ratio", 1.0}.onlyRead()
    .means(L"width of a pixel against its height, as the pose solver starts");
inline constexpr auto initialOffset =
    Item<Point2D>{L"InitialProjectorData|Offset", {0.5 * resolutionX.fallback, 0.5 * resolutionY.fallback}}
    .in(L"pixels").onlyRead()
    .means(L"image point of the optical axis the pose solver starts from; the image centre when missing");
inline constexpr auto oldUID = Item<std::wstring>{L"OldSectionID", L""}.onlyRead()
    .means(L"identifier the section had before it was last renamed");
// clang-format on

inline constexpr auto all = std::tuple(
    name, deviceSnippet, deviceSnippetOriginal, associatedCameraId1, associatedCameraId2, resolutionX, resolutionY,
    imageResolutionX, imageResolutionY, inputImageScalingMode, portraitMode, boxSize, boxSpacing, gamma, lampPower,
    colourUser, lampMode, blendPercentTop, blendPercentBottom, blendPercentRight, blendPercentLeft, screenAreaLeft,
    screenAreaRight, screenAreaTop, screenAreaBottom, blackLevel, blackLevelBoostFactor, blackLevelTint, pondOfMirrors,
    motoBlendInitCommand, motoBlendOpenCommand, motoBlendCloseCommand, fitOrder, projectionModelFilename,
    projectionModelScript, projectionLayoutFilename, solverType, redGreenAlignmentImageName, pellinorWarpLatency, headingYaw,
    headingPitch, headingRoll, vfovTop, vfovBottom, hfovLeft, hfovRight, eyePoint, designedFrustum, designedLumens,
    initialYPR, initialXYZ, initialF, initialAspectRatio, initialOffset, oldUID);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::projectorItems
