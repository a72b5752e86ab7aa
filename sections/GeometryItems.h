#pragma once

#include "base/SettingTable.h"

namespace XMLConfig::detail {

/// The settings of the "Geometry" section.
// clang-format off
struct GeometryItems : SettingTable {
    constexpr GeometryItems() : SettingTable(L"Geometry") {}

    Descriptor<int> projectorCount{*this, L"Projector_Count", {1, 0},
        means(L"number of projectors in the layout").atLeast(0)};
    Descriptor<int> projectorLayoutWidth{*this, L"Projector_Layout_Width", {1, 0},
        means(L"columns of the projector layout").atLeast(0)};
    Descriptor<int> projectorLayoutHeight{*this, L"Projector_Layout_Height", {1, 0},
        means(L"rows of the projector layout").atLeast(0)};
    Descriptor<bool> tilingEnabled{*this, L"TilingEnabled", {false, false},
        means(L"whether the projectors tile one picture")};
    Descriptor<bool> validateWarps{*this, L"Validate_Warps", {true, true},
        means(L"whether computed warps are checked before they are used")};
    Descriptor<int> memoryLocation{*this, L"Memory_Location", {0, 0},
        means(L"number of the projector memory that takes the warps")};
    Descriptor<std::wstring> memoryLocationName{*this, L"Memory_Location_Name", {L""},
        means(L"name of the projector memory that takes the warps")};
    Descriptor<bool> blendRun{*this, L"Blend_Run", {true, true},
        means(L"whether a run computes blends")};
    Descriptor<int> maxGridWidth{*this, L"Max_Grid_Width", {11, 11},
        means(L"most columns of a warp grid").atLeast(2).inOurJudgement()};
    Descriptor<int> maxGridHeight{*this, L"Max_Grid_Height", {11, 11},
        means(L"most rows of a warp grid").atLeast(2).inOurJudgement()};
    Descriptor<double> gridMovementFactor{*this, L"Grid_Movement_Factor", {0.66, 0.66},
        means(L"how far a grid point may move, as a fraction of the grid's spacing").in(Unit::Fraction).within(0, 1)
            .inOurJudgement()};
    Descriptor<bool> useContentMaskingForBlobsForSubliminal{*this, L"Pellinor_Blob_Content_Masking", {true},
        means(L"whether the content's mask is applied to mapper blobs shown within running content")
            .countsWhile(L"System", L"SupportsPellinor", {L"true"})};
    Descriptor<int> pellinorBlobEncoding{*this, L"Pellinor_Blob_Encoding", {0},
        means(L"how Pellinor runs encode their mapper blobs").countsWhile(L"System", L"SupportsPellinor", {L"true"})};
    Descriptor<bool> doPellinorWarpValidation{*this, L"Pellinor_Warp_Validation", {false},
        means(L"whether Pellinor runs check the warps they compute").countsWhile(L"System", L"SupportsPellinor", {L"true"})};
    Descriptor<bool> useBlendUndershootCompensation{*this, L"UseBlendUndershootCompensation", {true},
        means(L"whether blends are compensated where their brightness falls short")};
    Descriptor<bool> persistAllBlendCombinations{*this, L"Persist_All_Blend_Combinations", {false, false},
        means(L"whether the blends of every combination of projectors are kept")};
    Descriptor<int> blobNumHistorical{*this, L"Blob_Number_Historical", {5, 5},
        means(L"number of earlier measurements of mapper blobs that are kept")};
    Descriptor<int> blobNumCalibrationIterations{*this, L"Blob_Number_Calibration_Iterations", {50},
        means(L"most iterations of a calibration from mapper blobs").onlyRead()};
    Descriptor<bool> doIterations{*this, L"Do_Iterations", {false},
        means(L"whether the solve is repeated on its own results").onlyRead()};
    Descriptor<bool> markerless{*this, L"Markerless", {false, false},
        means(L"whether a run goes without markers on the screen")};
    Descriptor<bool> globalOptimization{*this, L"GlobalOptimization", {false, false},
        means(L"whether all projectors are solved for together in a last step")};
    Descriptor<int> autoMaskingType{*this, L"Auto_Masking_Type", {0, 0},
        means(L"how projector areas outside the screen are masked by themselves; 0 for not at all")};
    Descriptor<int> fitOrder{*this, L"Fit_Order", {3, 3},
        means(L"order of the function that is fitted to the mapper blobs").atLeast(1).inOurJudgement()};
    Descriptor<int> fitSolver{*this, L"Fit_Solver", {2, 2},
        means(L"mapper that fits the warps")
            .oneOf({{0, L"linear"}, {1, L"polynomial"}, {2, L"default"}, {5, L"spline"}, {7, L"perspective"},
                    {8, L"hybrid"}})
            .elseCountsAs(L"2")};
    Descriptor<bool> doCalculateBlendsOnlyRun{*this, L"Do_CalculateBlendsOnly_Run", {false, false},
        means(L"whether a run computes the blends only and keeps the warps")};
    Descriptor<double> blackLevelAddedLight{*this, L"BlackLevelAddedLight", {0.0},
        means(L"light added to dark areas to even out the black level").countsWhile(L"System", L"Is_Blb_Used", {L"true"})};
    Descriptor<double> blackLevelSlope{*this, L"BlackLevelSlope", {0.0},
        means(L"slope of the black level's correction").countsWhile(L"System", L"Is_Blb_Used", {L"true"})};
    Descriptor<int> blackLevelMethod{*this, L"BlackLevelMethod", {0},
        means(L"method of black-level blending").countsWhile(L"System", L"Is_Blb_Used", {L"true"})};
    Descriptor<bool> blackLevelPixelSizeCompensation{*this, L"BlackLevelPixelSizeCompensation", {false},
        means(L"whether black-level blending allows for the size of pixels on the screen")
            .countsWhile(L"System", L"Is_Blb_Used", {L"true"})};
    Descriptor<bool> doSphericalBlend{*this, L"Do_Spherical_Blend", {true, true},
        means(L"whether blends are computed spherically")};
    Descriptor<bool> projectorBusyTestPatternEnabled{*this, L"ProjectorBusyTestPatternEnabled", {true, true},
        means(L"whether a projector shows a test pattern while it is busy")};
    Descriptor<bool> doGatherValidation{*this, L"DoGatherValidation", {false},
        means(L"whether gathered camera images are checked")};
    Descriptor<int> gatherTries{*this, L"GatherTries", {2},
        means(L"how often gathering is tried").atLeast(1).inOurJudgement()
            .countsWhile(L"", L"DoGatherValidation", {L"true"})};
    Descriptor<bool> gatherValidationFailsRun{*this, L"FailGatherOnValidationError", {false},
        means(L"whether a failed check of gathered camera images fails the run")
            .countsWhile(L"", L"DoGatherValidation", {L"true"})};
    Descriptor<double> channelCoverageGatherValidationDistanceFactor{*this, L"ChannelCoverageGatherValidationDistanceFactor",
        {4.0},
        means(L"distance between neighbouring blobs, as a multiple of the usual, beyond which a channel counts as not "
              L"covered")
            .atLeast(1).inOurJudgement().countsWhile(L"", L"DoGatherValidation", {L"true"})};
    Descriptor<double> channelCoverageGatherValidationPercentage{*this, L"ChannelCoverageGatherValidationPercentage",
        {20.0},
        means(L"share of a channel that may stay uncovered in a check of gathered camera images").in(Unit::Percent)
            .within(0, 100).inOurJudgement().countsWhile(L"", L"DoGatherValidation", {L"true"})};
    Descriptor<int> portraitMode{*this, L"Portrait_Mode", {0, 0},
        means(L"portrait orientation of projectors without one of their own; 0 for landscape")};
    Descriptor<bool> automaticMapperSettingsEnabled{*this, L"Enable_Automatic_Mapper_Settings", {true, true},
        means(L"whether size and spacing of mapper blobs are chosen by themselves")};
    Descriptor<Point_2Dim<int>> boxSize{*this, L"Box_Size", {{21, 21}, {21, 21}},
        means(L"width and height of mapper blobs of projectors without a size of their own").in(Unit::Pixels)
            .countsWhile(L"", L"Enable_Automatic_Mapper_Settings", {L"false"})};
    Descriptor<double> boxSpacing{*this, L"Box_Spacing", {1.5, 1.5},
        means(L"spacing of mapper blobs, as a multiple of their size, of projectors without one of their own").atLeast(1)
            .inOurJudgement().countsWhile(L"", L"Enable_Automatic_Mapper_Settings", {L"false"})};
    Descriptor<int> useAutoBrightnessUniformity{*this, L"UseAutoBrightnessUniformity", {0, 0},
        means(L"how the brightness of the projectors is evened out by itself; 0 for not at all")};
    Descriptor<bool> blendEdgeResampling{*this, L"BlendEdgeResampling", {false},
        means(L"whether the edges of blends are sampled anew")};
    Descriptor<int> blendUndershootCompensation{*this, L"BlendUndershootCompensation", {40},
        means(L"strength of the compensation of blends whose brightness falls short")
            .countsWhile(L"", L"UseBlendUndershootCompensation", {L"true"})};
    Descriptor<int> imageResolutionX{*this, L"ImageResolution_X", {1400, 1400},
        means(L"image width of projectors without one of their own").in(Unit::Pixels).atLeast(1)};
    Descriptor<int> imageResolutionY{*this, L"ImageResolution_Y", {1050, 1050},
        means(L"image height of projectors without one of their own").in(Unit::Pixels).atLeast(1)};
    Descriptor<int> inputImageScalingMode{*this, L"InputImageScaling_Mode", {0, 0},
        means(L"how projectors without a mode of their own scale their input")
            .oneOf({{0, L"scaled to full size"}, {1, L"not scaled"}})};
    Descriptor<int> userStackHeightOverride{*this, L"UserStackHeightOverride", {-1},
        means(L"number of projectors stacked on one area, against what the layout says; -1 for no override").onlyRead()};
    Descriptor<bool> maskMappersEnabled{*this, L"MaskMappers", {false},
        means(L"whether mapper blobs are masked")};
};
// clang-format on

inline constexpr GeometryItems geometryItems;
static_assert(keysAreDistinct(geometryItems));

}  // namespace XMLConfig::detail
