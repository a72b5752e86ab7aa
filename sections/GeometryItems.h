#pragma once

#include <tuple>

#include "base/Items.h"

/// The settings of the "Geometry" section.
namespace XMLConfig::detail::geometryItems {

inline constexpr const wchar_t* sectionName = L"Geometry";

// clang-format off
inline constexpr auto projectorCount = Item<int>{L"Projector_Count", 1, 0}
    .means(L"number of projectors in the layout");
inline constexpr auto projectorLayoutWidth = Item<int>{L"Projector_Layout_Width", 1, 0}
    .means(L"columns of the projector layout");
inline constexpr auto projectorLayoutHeight = Item<int>{L"Projector_Layout_Height", 1, 0}
    .means(L"rows of the projector layout");
inline constexpr auto tilingEnabled = Item<bool>{L"TilingEnabled", false, false}
    .means(L"whether the projectors tile one picture");
inline constexpr auto validateWarps = Item<bool>{L"Validate_Warps", true, true}
    .means(L"whether computed warps are checked before they are used");
inline constexpr auto memoryLocation = Item<int>{L"Memory_Location", 0, 0}
    .means(L"number of the projector memory that takes the warps");
inline constexpr auto memoryLocationName = Item<std::wstring>{L"Memory_Location_Name", L""}
    .means(L"name of the projector memory that takes the warps");
inline constexpr auto maxGridWidth = Item<int>{L"Max_Grid_Width", 11, 11}
    .means(L"most columns of a warp grid");
inline constexpr auto maxGridHeight = Item<int>{L"Max_Grid_Height", 11, 11}
    .means(L"most rows of a warp grid");
inline constexpr auto gridMovementFactor = Item<double>{L"Grid_Movement_Factor", 0.66, 0.66}
    .means(L"how far a grid point may move, as a fraction of the grid's spacing");
inline constexpr auto useContentMaskingForBlobsForSubliminal = Item<bool>{L"Pellinor_Blob_Content_Masking", true}
    .means(L"whether the content's mask is applied to mapper blobs shown within running content");
inline constexpr auto pellinorBlobEncoding = Item<int>{L"Pellinor_Blob_Encoding", 0}
    .means(L"how Pellinor runs encode their mapper blobs");
inline constexpr auto doPellinorWarpValidation = Item<bool>{L"Pellinor_Warp_Validation", false}
    .means(L"whether Pellinor runs check the warps they compute");
inline constexpr auto useBlendUndershootCompensation = Item<bool>{L"UseBlendUndershootCompensation", true}
    .means(L"whether blends are compensated where their brightness falls short");
inline constexpr auto useAutoBrightnessUniformity = Item<int>{L"UseAutoBrightnessUniformity", 0, 0}
    .means(L"how the brightness of the projectors is evened out by itself; 0 for not at all");
inline constexpr auto blendEdgeResampling = Item<bool>{L"BlendEdgeResampling", false}
    .means(L"whether the edges of blends are sampled anew");
inline constexpr auto blendUndershootCompensation = Item<int>{L"BlendUndershootCompensation", 40}
    .means(L"strength of the compensation of blends whose brightness falls short");
inline constexpr auto persistAllBlendCombinations = Item<bool>{L"Persist_All_Blend_Combinations", false, false}
    .means(L"whether the blends of every combination of projectors are kept");
inline constexpr auto blendRun = Item<bool>{L"Blend_Run", true, true}
    .means(L"whether a run computes blends");
inline constexpr auto autoMaskingType = Item<int>{L"Auto_Masking_Type", 0, 0}
    .means(L"how projector areas outside the screen are masked by themselves; 0 for not at all");
inline constexpr auto blobNumHistorical = Item<int>{L"Blob_Number_Historical", 5, 5}
    .means(L"number of earlier measurements of mapper blobs that are kept");
inline constexpr auto blobNumCalibrationIterations = Item<int>{L"Blob_Number_Calibration_Iterations", 50}.onlyRead()
    .means(L"most iterations of a calibration from mapper blobs");
inline constexpr auto doIterations = Item<bool>{L"Do_Iterations", false}.onlyRead()
    .means(L"whether the solve is repeated on its own results");
inline constexpr auto markerless = Item<bool>{L"Markerless", false, false}
    .means(L"whether a run goes without markers on the screen");
inline constexpr auto globalOptimization = Item<bool>{L"GlobalOptimization", false, false}
    .means(L"whether all projectors are solved for together in a last step");
inline constexpr auto doSphericalBlend = Item<bool>{L"Do_Spherical_Blend", true, true}
    .means(L"whether blends are computed spherically");
inline constexpr auto fitOrder = Item<int>{L"Fit_Order", 3, 3}
    .means(L"order of the function that is fitted to the mapper blobs");
inline constexpr auto fitSolver = Item<int>{L"Fit_Solver", 2, 2}
    .means(L"mapper that fits the warps: 0, 1, 2, 5, 7 or 8; any other number counts as 2");
inline constexpr auto doCalculateBlendsOnlyRun = Item<bool>{L"Do_CalculateBlendsOnly_Run", false, false}
    .means(L"whether a run computes the blends only and keeps the warps");
inline constexpr auto blackLevelAddedLight = Item<double>{L"BlackLevelAddedLight", 0.0}
    .means(L"light added to dark areas to even out the black level");
inline constexpr auto blackLevelSlope = Item<double>{L"BlackLevelSlope", 0.0}
    .means(L"slope of the black level's correction");
inline constexpr auto blackLevelMethod = Item<int>{L"BlackLevelMethod", 0}
    .means(L"method of black-level blending");
inline constexpr auto blackLevelPixelSizeCompensation = Item<bool>{L"BlackLevelPixelSizeCompensation", false}
    .means(L"whether black-level blending allows for the size of pixels on the screen");
inline constexpr auto portraitMode = Item<int>{L"Portrait_Mode", 0, 0}
    .means(L"portrait orientation of projectors without one of their own; 0 for landscape");
inline constexpr auto automaticMapperSettingsEnabled = Item<bool>{L"Enable_Automatic_Mapper_Settings", true, true}
    .means(L"whether size and spacing of mapper blobs are chosen by themselves");
inline constexpr auto boxSize = Item<Point_2Dim<int>>{L"Box_Size", {21, 21}, {21, 21}}.in(L"pixels")
    .means(L"width and height of mapper blobs of projectors without a size of their own");
inline constexpr auto boxSpacing = Item<double>{L"Box_Spacing", 1.5, 1.5}
    .means(L"spacing of mapper blobs, as a multiple of their size, of projectors without one of their own");
inline constexpr auto imageResolutionX = Item<int>{L"ImageResolution_X", 1400, 1400}.in(L"pixels")
    .means(L"image width of projectors without one of their own");
inline constexpr auto imageResolutionY = Item<int>{L"ImageResolution_Y", 1050, 1050}.in(L"pixels")
    .means(L"image height of projectors without one of their own");
inline constexpr auto inputImageScalingMode = Item<int>{L"InputImageScaling_Mode", 0, 0}
    .means(L"how projectors without a mode of their own scale their input: 0 to full size, 1 not at all");
inline constexpr auto userStackHeightOverride = Item<int>{L"UserStackHeightOverride", -1}.onlyRead()
    .means(L"number of projectors stacked on one area, against what the layout says; -1 for no override");
inline constexpr auto maskMappersEnabled = Item<bool>{L"MaskMappers", false}
    .means(L"whether mapper blobs are masked");
inline constexpr auto projectorBusyTestPatternEnabled = Item<bool>{L"ProjectorBusyTestPatternEnabled", true, true}
    .means(L"whether a projector shows a test pattern while it is busy");
inline constexpr auto doGatherValidation = Item<bool>{L"DoGatherValidation", false}
    .means(L"whether gathered camera images are checked");
inline constexpr auto gatherTries = Item<int>{L"GatherTries", 2}
    .means(L"how often gathering is tried");
inline constexpr auto gatherValidationFailsRun = Item<bool>{L"FailGatherOnValidationError", false}
    .means(L"whether a failed check of gathered camera images fails the run");
inline constexpr auto channelCoverageGatherValidationDistanceFactor =
    Item<double>{L"ChannelCoverageGatherValidationDistanceFactor", 4.0}
    .means(L"distance between neighbouring blobs, as a multiple of the usual, beyond which a channel counts as not covered");
inline constexpr auto channelCoverageGatherValidationPercentage =
    Item<double>{L"ChannelCoverageGatherValidationPercentage", 20.0}.in(L"percent")
    .means(L"share of a channel that may stay uncovered in a check of gathered camera images");
// clang-format on

inline constexpr auto all = std::tuple(
    projectorCount, projectorLayoutWidth, projectorLayoutHeight, tilingEnabled, validateWarps, memoryLocation,
    memoryLocationName, maxGridWidth, maxGridHeight, gridMovementFactor, useContentMaskingForBlobsForSubliminal,
    pellinorBlobEncoding, doPellinorWarpValidation, useBlendUndershootCompensation, useAutoBrightnessUniformity,
    blendEdgeResampling, blendUndershootCompensation, persistAllBlendCombinations, blendRun, autoMaskingType,
    blobNumHistorical, blobNumCalibrationIterations, doIterations, markerless, globalOptimization, doSphericalBlend,
    fitOrder, fitSolver, doCalculateBlendsOnlyRun, blackLevelAddedLight, blackLevelSlope, blackLevelMethod,
    blackLevelPixelSizeCompensation, portraitMode, automaticMapperSettingsEnabled, boxSize, boxSpacing, imageResolutionX,
    imageResolutionY, inputImageScalingMode, userStackHeightOverride, maskMappersEnabled, projectorBusyTestPatternEnabled,
    doGatherValidation, gatherTries, gatherValidationFailsRun, channelCoverageGatherValidationDistanceFactor,
    channelCoverageGatherValidationPercentage);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::geometryItems
