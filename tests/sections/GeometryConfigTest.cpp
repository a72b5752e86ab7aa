#include "sections/GeometryConfig.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sections/GeometryItems.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "tests/support/SettingRows.h"
#include "tests/support/StoredItems.h"
#include "tests/support/VirtualSlots.h"

namespace {

using XMLConfig::tests::itemsOf;
using XMLConfig::tests::SettingRows;
using XMLConfig::tests::storedText;
using Strings = std::vector<std::wstring>;
using G = GeometryConfig;

SettingRows<GeometryConfig> geometryRows() {
    SettingRows<GeometryConfig> rows([](ConfigInfo* document) { return std::make_unique<GeometryConfig>(document, L""); });
    rows.row(&G::getProjectorCount, &G::setProjectorCount, L"Projector_Count", {1, L"1"}, {101, L"101"}, L"0")
        .row(&G::getProjectorLayoutWidth, &G::setProjectorLayoutWidth, L"Projector_Layout_Width", {1, L"1"}, {102, L"102"},
             L"0")
        .row(&G::getProjectorLayoutHeight, &G::setProjectorLayoutHeight, L"Projector_Layout_Height", {1, L"1"},
             {103, L"103"}, L"0")
        .row(&G::getTilingEnabled, &G::setTilingEnabled, L"TilingEnabled", {false, L"false"}, {true, L"true"}, L"false")
        .row(&G::getValidateWarps, &G::setValidateWarps, L"Validate_Warps", {true, L"true"}, {false, L"false"}, L"true")
        .row(&G::getMemoryLocation, &G::setMemoryLocation, L"Memory_Location", {0, L"0"}, {106, L"106"}, L"0")
        .row(&G::getMemoryLocationName, &G::setMemoryLocationName, L"Memory_Location_Name", {L"", L""},
             {L"Show \u65e5", L"Show \u65e5"})
        .row(&G::getBlendRun, &G::setBlendRun, L"Blend_Run", {true, L"true"}, {false, L"false"}, L"true")
        .row(&G::getMaxGridWidth, &G::setMaxGridWidth, L"Max_Grid_Width", {11, L"11"}, {108, L"108"}, L"11")
        .row(&G::getMaxGridHeight, &G::setMaxGridHeight, L"Max_Grid_Height", {11, L"11"}, {109, L"109"}, L"11")
        .row(&G::getGridMovementFactor, &G::setGridMovementFactor, L"Grid_Movement_Factor", {0.66, L"6.600000000000000e-01"},
             {10.25, L"1.025000000000000e+01"}, L"6.600000000000000e-01")
        .row(&G::getUseContentMaskingForBlobsForSubliminal, &G::setUseContentMaskingForBlobsForSubliminal,
             L"Pellinor_Blob_Content_Masking", {true, L"true"}, {false, L"false"})
        .row(&G::getPellinorBlobEncoding, &G::setPellinorBlobEncoding, L"Pellinor_Blob_Encoding",
             {static_cast<G::PellinorBlobEncodingMethod>(0), L"0"},
             {static_cast<G::PellinorBlobEncodingMethod>(112), L"112"})
        .row(&G::getDoPellinorWarpValidation, &G::setDoPellinorWarpValidation, L"Pellinor_Warp_Validation",
             {false, L"false"}, {true, L"true"})
        .row(&G::getUseBlendUndershootCompensation, &G::setUseBlendUndershootCompensation, L"UseBlendUndershootCompensation",
             {true, L"true"}, {false, L"false"})
        .row(&G::getPersistAllBlendCombinations, &G::setPersistAllBlendCombinations, L"Persist_All_Blend_Combinations",
             {false, L"false"}, {true, L"true"}, L"false")
        .row(&G::getBlobNumHistorical, &G::setBlobNumHistorical, L"Blob_Number_Historical", {5, L"5"}, {121, L"121"}, L"5")
        .readOnly(&G::getBlobNumCalibrationIterations, L"Blob_Number_Calibration_Iterations", {50, L"50"}, {122, L"122"})
        .readOnly(&G::getDoIterations, L"Do_Iterations", {false, L"false"}, {true, L"true"})
        .row(&G::getMarkerless, &G::setMarkerless, L"Markerless", {false, L"false"}, {true, L"true"}, L"false")
        .row(&G::getGlobalOptimization, &G::setGlobalOptimization, L"GlobalOptimization", {false, L"false"}, {true, L"true"},
             L"false")
        .row(&G::getAutoMaskingType, &G::setAutoMaskingType, L"Auto_Masking_Type", {0, L"0"}, {120, L"120"}, L"0")
        .row(&G::getFitOrder, &G::setFitOrder, L"Fit_Order", {3, L"3"}, {127, L"127"}, L"3")
        .row(&G::getFitSolver, &G::setFitSolver, L"Fit_Solver", {G::FitSolverDefault, L"2"}, {G::FitSolverHybrid, L"8"},
             L"2")
        .row(&G::getDoCalculateBlendsOnlyRun, &G::setDoCalculateBlendsOnlyRun, L"Do_CalculateBlendsOnly_Run",
             {false, L"false"}, {true, L"true"}, L"false")
        .row(&G::getBlackLevelAddedLight, &G::setBlackLevelAddedLight, L"BlackLevelAddedLight",
             {0.0, L"0.000000000000000e+00"}, {30.25, L"3.025000000000000e+01"})
        .row(&G::getBlackLevelSlope, &G::setBlackLevelSlope, L"BlackLevelSlope", {0.0, L"0.000000000000000e+00"},
             {31.25, L"3.125000000000000e+01"})
        .row(&G::getBlackLevelMethod, &G::setBlackLevelMethod, L"BlackLevelMethod",
             {static_cast<BlackLevelBlending::BlackLevelMethod>(0), L"0"},
             {static_cast<BlackLevelBlending::BlackLevelMethod>(132), L"132"})
        .row(&G::getBlackLevelPixelSizeCompensation, &G::setBlackLevelPixelSizeCompensation,
             L"BlackLevelPixelSizeCompensation", {false, L"false"}, {true, L"true"})
        .row(&G::getDoSphericalBlend, &G::setDoSphericalBlend, L"Do_Spherical_Blend", {true, L"true"}, {false, L"false"},
             L"true")
        .row(&G::getProjectorBusyTestPatternEnabled, &G::setProjectorBusyTestPatternEnabled,
             L"ProjectorBusyTestPatternEnabled", {true, L"true"}, {false, L"false"}, L"true")
        .row(&G::getDoGatherValidation, &G::setDoGatherValidation, L"DoGatherValidation", {false, L"false"}, {true, L"true"})
        .row(&G::getGatherTries, &G::setGatherTries, L"GatherTries", {2, L"2"}, {145, L"145"})
        .row(&G::getGatherValidationFailsRun, &G::setGatherValidationFailsRun, L"FailGatherOnValidationError",
             {false, L"false"}, {true, L"true"})
        .row(&G::getChannelCoverageGatherValidationDistanceFactor, &G::setChannelCoverageGatherValidationDistanceFactor,
             L"ChannelCoverageGatherValidationDistanceFactor", {4.0, L"4.000000000000000e+00"},
             {47.25, L"4.725000000000000e+01"})
        .row(&G::getChannelCoverageGatherValidationPercentage, &G::setChannelCoverageGatherValidationPercentage,
             L"ChannelCoverageGatherValidationPercentage", {20.0, L"2.000000000000000e+01"},
             {48.25, L"4.825000000000000e+01"})
        .row(&G::getPortraitMode, &G::setPortraitMode, L"Portrait_Mode", {0, L"0"}, {134, L"134"}, L"0")
        .row(&G::getAutomaticMapperSettingsEnabled, &G::setAutomaticMapperSettingsEnabled,
             L"Enable_Automatic_Mapper_Settings", {true, L"true"}, {false, L"false"}, L"true")
        .row(&G::getBoxSize, &G::setBoxSize, L"Box_Size", {Point_2Dim<int>(21, 21), L"21, 21"},
             {Point_2Dim<int>(33, 17), L"33, 17"}, L"21, 21")
        .row(&G::getBoxSpacing, &G::setBoxSpacing, L"Box_Spacing", {1.5, L"1.500000000000000e+00"},
             {37.25, L"3.725000000000000e+01"}, L"1.500000000000000e+00")
        .row(&G::getUseAutoBrightnessUniformity, &G::setUseAutoBrightnessUniformity, L"UseAutoBrightnessUniformity",
             {0, L"0"}, {115, L"115"}, L"0")
        .row(&G::getBlendEdgeResampling, &G::setBlendEdgeResampling, L"BlendEdgeResampling", {false, L"false"},
             {true, L"true"})
        .row(&G::getBlendUndershootCompensation, &G::setBlendUndershootCompensation, L"BlendUndershootCompensation",
             {40, L"40"}, {117, L"117"})
        .row(&G::getImageResolutionX, &G::setImageResolutionX, L"ImageResolution_X", {1400, L"1400"}, {138, L"138"}, L"1400")
        .row(&G::getImageResolutionY, &G::setImageResolutionY, L"ImageResolution_Y", {1050, L"1050"}, {139, L"139"}, L"1050")
        .row(&G::getInputImageScalingMode, &G::setInputImageScalingMode, L"InputImageScaling_Mode", {0, L"0"}, {140, L"140"},
             L"0")
        .readOnly(&G::getUserStackHeightOverride, L"UserStackHeightOverride", {-1, L"-1"}, {141, L"141"})
        .row(&G::getMaskMappersEnabled, &G::setMaskMappersEnabled, L"MaskMappers", {false, L"false"}, {true, L"true"});
    return rows;
}

class GeometryConfigTest : public testing::Test {
protected:
    ConfigInfo document;
    XMLConfig::tests::StoredItems items{document, L"Geometry"};
    GeometryConfig geometry{&document, L""};
};

/// Counts the calls that reach the layout through its virtual members.
struct CountingGeometry : GeometryConfig {
    using GeometryConfig::GeometryConfig;
    int getProjectorLayoutWidth() const override { return ++calls, 40; }
    void setProjectorLayoutWidth(int value) override { ++calls, GeometryConfig::setProjectorLayoutWidth(value + 1); }
    int getProjectorLayoutHeight() const override { return ++calls, 20; }
    void setProjectorLayoutHeight(int value) override { ++calls, GeometryConfig::setProjectorLayoutHeight(value + 2); }
    mutable int calls = 0;
};

}  // namespace

TEST(GeometryConfig, SettingsKeepToTheirRows) { geometryRows().check(); }

TEST(GeometryConfig, TableEqualsTheRows) { geometryRows().checkTable(XMLConfig::detail::geometryItems); }

TEST(GeometryConfig, NewSectionHoldsTheRowsInOrder) { geometryRows().checkInitialize(); }

#ifdef TESTS_KNOW_VIRTUAL_SLOTS
TEST(GeometryConfig, VirtualMembersKeepTheirPlaces) {
    EXPECT_EQ(misplacedSlots(2, {NAMED_SLOT(GeometryConfig, initialize),
                                 NAMED_SLOT(GeometryConfig, getProjectorCount),
                                 NAMED_SLOT(GeometryConfig, setProjectorCount),
                                 NAMED_SLOT(GeometryConfig, getProjectorLayoutWidth),
                                 NAMED_SLOT(GeometryConfig, setProjectorLayoutWidth),
                                 NAMED_SLOT(GeometryConfig, getProjectorLayoutHeight),
                                 NAMED_SLOT(GeometryConfig, setProjectorLayoutHeight),
                                 NAMED_SLOT(GeometryConfig, getTilingEnabled),
                                 NAMED_SLOT(GeometryConfig, setTilingEnabled),
                                 NAMED_SLOT(GeometryConfig, getValidateWarps),
                                 NAMED_SLOT(GeometryConfig, setValidateWarps),
                                 NAMED_SLOT(GeometryConfig, getMemoryLocation),
                                 NAMED_SLOT(GeometryConfig, setMemoryLocation),
                                 NAMED_SLOT(GeometryConfig, getMemoryLocationName),
                                 NAMED_SLOT(GeometryConfig, setMemoryLocationName),
                                 NAMED_SLOT(GeometryConfig, getMaxGridWidth),
                                 NAMED_SLOT(GeometryConfig, setMaxGridWidth),
                                 NAMED_SLOT(GeometryConfig, getMaxGridHeight),
                                 NAMED_SLOT(GeometryConfig, setMaxGridHeight),
                                 NAMED_SLOT(GeometryConfig, getGridMovementFactor),
                                 NAMED_SLOT(GeometryConfig, setGridMovementFactor),
                                 NAMED_SLOT(GeometryConfig, getUseContentMaskingForBlobsForSubliminal),
                                 NAMED_SLOT(GeometryConfig, setUseContentMaskingForBlobsForSubliminal),
                                 NAMED_SLOT(GeometryConfig, getPellinorBlobEncoding),
                                 NAMED_SLOT(GeometryConfig, setPellinorBlobEncoding),
                                 NAMED_SLOT(GeometryConfig, getUseBlendUndershootCompensation),
                                 NAMED_SLOT(GeometryConfig, setUseBlendUndershootCompensation),
                                 NAMED_SLOT(GeometryConfig, getUseAutoBrightnessUniformity),
                                 NAMED_SLOT(GeometryConfig, setUseAutoBrightnessUniformity),
                                 NAMED_SLOT(GeometryConfig, getBlendEdgeResampling),
                                 NAMED_SLOT(GeometryConfig, setBlendEdgeResampling),
                                 NAMED_SLOT(GeometryConfig, getBlendUndershootCompensation),
                                 NAMED_SLOT(GeometryConfig, setBlendUndershootCompensation),
                                 NAMED_SLOT(GeometryConfig, getPersistAllBlendCombinations),
                                 NAMED_SLOT(GeometryConfig, setPersistAllBlendCombinations),
                                 NAMED_SLOT(GeometryConfig, getBlendRun),
                                 NAMED_SLOT(GeometryConfig, setBlendRun),
                                 NAMED_SLOT(GeometryConfig, getAutoMaskingType),
                                 NAMED_SLOT(GeometryConfig, setAutoMaskingType),
                                 NAMED_SLOT(GeometryConfig, getBlobNumHistorical),
                                 NAMED_SLOT(GeometryConfig, setBlobNumHistorical),
                                 NAMED_SLOT(GeometryConfig, getBlobNumCalibrationIterations),
                                 NAMED_SLOT(GeometryConfig, getDoIterations),
                                 NAMED_SLOT(GeometryConfig, getMarkerless),
                                 NAMED_SLOT(GeometryConfig, setMarkerless),
                                 NAMED_SLOT(GeometryConfig, getGlobalOptimization),
                                 NAMED_SLOT(GeometryConfig, setGlobalOptimization),
                                 NAMED_SLOT(GeometryConfig, getDoSphericalBlend),
                                 NAMED_SLOT(GeometryConfig, setDoSphericalBlend),
                                 NAMED_SLOT(GeometryConfig, getFitOrder),
                                 NAMED_SLOT(GeometryConfig, setFitOrder),
                                 NAMED_SLOT(GeometryConfig, getFitSolver),
                                 NAMED_SLOT(GeometryConfig, setFitSolver),
                                 NAMED_SLOT(GeometryConfig, getDoCalculateBlendsOnlyRun),
                                 NAMED_SLOT(GeometryConfig, setDoCalculateBlendsOnlyRun),
                                 NAMED_SLOT(GeometryConfig, getBlackLevelAddedLight),
                                 NAMED_SLOT(GeometryConfig, setBlackLevelAddedLight),
                                 NAMED_SLOT(GeometryConfig, getBlackLevelSlope),
                                 NAMED_SLOT(GeometryConfig, setBlackLevelSlope),
                                 NAMED_SLOT(GeometryConfig, getBlackLevelMethod),
                                 NAMED_SLOT(GeometryConfig, setBlackLevelMethod),
                                 NAMED_SLOT(GeometryConfig, getBlackLevelPixelSizeCompensation),
                                 NAMED_SLOT(GeometryConfig, setBlackLevelPixelSizeCompensation),
                                 NAMED_SLOT(GeometryConfig, getPortraitMode),
                                 NAMED_SLOT(GeometryConfig, setPortraitMode),
                                 NAMED_SLOT(GeometryConfig, getAutomaticMapperSettingsEnabled),
                                 NAMED_SLOT(GeometryConfig, setAutomaticMapperSettingsEnabled),
                                 NAMED_SLOT(GeometryConfig, getBoxSize),
                                 NAMED_SLOT(GeometryConfig, setBoxSize),
                                 NAMED_SLOT(GeometryConfig, getBoxSpacing),
                                 NAMED_SLOT(GeometryConfig, setBoxSpacing),
                                 NAMED_SLOT(GeometryConfig, getImageResolutionX),
                                 NAMED_SLOT(GeometryConfig, setImageResolutionX),
                                 NAMED_SLOT(GeometryConfig, getImageResolutionY),
                                 NAMED_SLOT(GeometryConfig, setImageResolutionY),
                                 NAMED_SLOT(GeometryConfig, getInputImageScalingMode),
                                 NAMED_SLOT(GeometryConfig, setInputImageScalingMode),
                                 NAMED_SLOT(GeometryConfig, getUserStackHeightOverride),
                                 NAMED_SLOT(GeometryConfig, getMaskMappersEnabled),
                                 NAMED_SLOT(GeometryConfig, setMaskMappersEnabled),
                                 NAMED_SLOT(GeometryConfig, getProjectorBusyTestPatternEnabled),
                                 NAMED_SLOT(GeometryConfig, setProjectorBusyTestPatternEnabled),
                                 NAMED_SLOT(GeometryConfig, getDoGatherValidation),
                                 NAMED_SLOT(GeometryConfig, setDoGatherValidation),
                                 NAMED_SLOT(GeometryConfig, getGatherTries),
                                 NAMED_SLOT(GeometryConfig, setGatherTries),
                                 NAMED_SLOT(GeometryConfig, getGatherValidationFailsRun),
                                 NAMED_SLOT(GeometryConfig, setGatherValidationFailsRun),
                                 NAMED_SLOT(GeometryConfig, getChannelCoverageGatherValidationDistanceFactor),
                                 NAMED_SLOT(GeometryConfig, setChannelCoverageGatherValidationDistanceFactor),
                                 NAMED_SLOT(GeometryConfig, getChannelCoverageGatherValidationPercentage),
                                 NAMED_SLOT(GeometryConfig, setChannelCoverageGatherValidationPercentage)}),
              "");
    EXPECT_EQ(slotCount<GeometryConfig>(), 94);
    EXPECT_EQ(slotOf(&GeometryConfig::getDoPellinorWarpValidation), -1);
    EXPECT_EQ(slotOf(&GeometryConfig::setDoPellinorWarpValidation), -1);
    EXPECT_EQ(slotOf(&GeometryConfig::getSimpleLayoutGridSize), -1);
    EXPECT_EQ(slotOf(&GeometryConfig::setSimpleLayoutGridSize), -1);
}
#endif

TEST_F(GeometryConfigTest, ConstructionWritesNothing) {
    EXPECT_FALSE(document.doesSectionExist(L"Geometry", L""));
    EXPECT_FALSE(document.isDirty());
    EXPECT_EQ(geometry.getSectionName(), L"Geometry");
    EXPECT_EQ(geometry.getSectionID(), L"");
}

TEST(GeometryConfig, WithoutDocumentWorksOnAPrivateOne) {
    GeometryConfig geometry(nullptr, L"");
    geometry.setProjectorCount(7);
    EXPECT_EQ(geometry.getProjectorCount(), 7);
}

TEST(GeometryConfig, InitializeGoesThroughTheVirtualSetters) {
    ConfigInfo document;
    CountingGeometry geometry(&document, L"");
    geometry.initialize();
    EXPECT_EQ(geometry.calls, 2);
    EXPECT_EQ(storedText(document, L"Geometry", L"Projector_Layout_Width"), L"1");
    EXPECT_EQ(storedText(document, L"Geometry", L"Projector_Layout_Height"), L"2");
}

TEST_F(GeometryConfigTest, NewDocumentHasNoProjectorsButAMissingItemReadsOne) {
    EXPECT_EQ(geometry.getProjectorCount(), 1);
    EXPECT_EQ(geometry.getProjectorLayoutWidth(), 1);
    EXPECT_EQ(geometry.getProjectorLayoutHeight(), 1);
    geometry.initialize();
    EXPECT_EQ(geometry.getProjectorCount(), 0);
    EXPECT_EQ(geometry.getProjectorLayoutWidth(), 0);
    EXPECT_EQ(geometry.getProjectorLayoutHeight(), 0);
}

TEST(GeometryConfig, StaticDefaultsAreThoseOfTheItems) {
    EXPECT_EQ(GeometryConfig::getDefaultBoxSize(), (Point_2Dim<int>(21, 21)));
    EXPECT_EQ(GeometryConfig::getDefaultBoxSpacing(), 1.5);
    EXPECT_TRUE(GeometryConfig::getDefaultAutomaticMapperSettingsEnabledState());
    EXPECT_EQ(GeometryConfig::getAutomaticMapperSettingsEnabledXmlTagName(), L"Enable_Automatic_Mapper_Settings");
}

// The solver.

TEST(GeometryConfig, SolversAndMappersHaveTheSameNumbers) {
    for (const int number : {0, 1, 2, 5, 7, 8}) {
        EXPECT_EQ(static_cast<int>(G::mapperTypeToGeoConfigFitSolver(static_cast<MapperType>(number))), number);
        EXPECT_EQ(static_cast<int>(G::geoConfigFitSolverToMapperType(static_cast<G::FitSolver>(number))), number);
    }
    for (const int number : {-2147483647 - 1, -1, 3, 4, 6, 9, 2147483647}) {
        EXPECT_EQ(static_cast<int>(G::mapperTypeToGeoConfigFitSolver(static_cast<MapperType>(number))), 2) << number;
        EXPECT_EQ(static_cast<int>(G::geoConfigFitSolverToMapperType(static_cast<G::FitSolver>(number))), 2) << number;
    }
}

TEST_F(GeometryConfigTest, UnknownSolverIsStoredButReadsAsTheDefault) {
    geometry.setFitSolver(static_cast<GeometryConfig::FitSolver>(3));
    EXPECT_EQ(items.text(L"Fit_Solver"), L"3");
    EXPECT_EQ(geometry.getFitSolver(), 2);
    for (const wchar_t* text : {L"4", L"6", L"-1", L"9", L"99999999999"}) {
        items.put(L"Fit_Solver", text);
        EXPECT_EQ(geometry.getFitSolver(), 2);
    }
    items.put(L"Fit_Solver", L"no number");
    EXPECT_EQ(geometry.getFitSolver(), 0);
}

// The layout as one value.

TEST_F(GeometryConfigTest, LayoutIsHeightThenWidth) {
    geometry.setProjectorLayoutWidth(4);
    geometry.setProjectorLayoutHeight(2);
    const auto [first, second] = geometry.getSimpleLayoutGridSize();
    EXPECT_EQ(first, 2);
    EXPECT_EQ(second, 4);
    geometry.setSimpleLayoutGridSize({3, 5});
    EXPECT_EQ(items.text(L"Projector_Layout_Height"), L"3");
    EXPECT_EQ(items.text(L"Projector_Layout_Width"), L"5");
}

TEST(GeometryConfig, LayoutGoesThroughTheVirtualMembers) {
    ConfigInfo document;
    CountingGeometry geometry(&document, L"");
    EXPECT_EQ(geometry.getSimpleLayoutGridSize().height, 20);
    EXPECT_EQ(geometry.getSimpleLayoutGridSize().width, 40);
    EXPECT_EQ(geometry.calls, 4);
    geometry.setSimpleLayoutGridSize({3, 5});
    EXPECT_EQ(itemsOf(document, L"Geometry"), (Strings{L"Projector_Layout_Height = 5", L"Projector_Layout_Width = 6"}));
}

TEST_F(GeometryConfigTest, StackHeightOverrideIsReadFromAnotherTool) {
    EXPECT_EQ(geometry.getUserStackHeightOverride(), -1);
    geometry.initialize();
    EXPECT_EQ(geometry.getUserStackHeightOverride(), -1);
    items.put(L"UserStackHeightOverride", L"3");
    EXPECT_EQ(geometry.getUserStackHeightOverride(), 3);
}

TEST_F(GeometryConfigTest, AnyNumberMayStandForAnEnumeration) {
    items.put(L"BlackLevelMethod", L"-77");
    items.put(L"Pellinor_Blob_Encoding", L"123456");
    EXPECT_EQ(static_cast<int>(geometry.getBlackLevelMethod()), -77);
    EXPECT_EQ(static_cast<int>(geometry.getPellinorBlobEncoding()), 123456);
}

// What is stored may be anything.

TEST_F(GeometryConfigTest, NumbersThatAreNoneReadZero) {
    for (const wchar_t* text : {L"", L"abc", L"-", L"\u0663", L"x12"}) {
        items.put(L"Projector_Count", text);
        items.put(L"Grid_Movement_Factor", text);
        EXPECT_EQ(geometry.getProjectorCount(), 0);
        EXPECT_EQ(geometry.getGridMovementFactor(), 0.0);
    }
    items.put(L"Projector_Count", L"\t12abc");
    EXPECT_EQ(geometry.getProjectorCount(), 12);
    items.put(L"Projector_Count", L"0x10");
    EXPECT_EQ(geometry.getProjectorCount(), 0);
    items.put(L"Projector_Count", L"-99999999999");
    EXPECT_EQ(geometry.getProjectorCount(), -2147483647 - 1);
    items.put(L"Grid_Movement_Factor", L"1,5");
    EXPECT_EQ(geometry.getGridMovementFactor(), 1.0);
}

TEST_F(GeometryConfigTest, BoxSizeOfAnotherCountReadsTheDefault) {
    for (const wchar_t* text : {L"", L"5", L"1, 2, 3", L", ,", L"7x9"}) {
        items.put(L"Box_Size", text);
        EXPECT_EQ(geometry.getBoxSize(), (Point_2Dim<int>(21, 21)));
    }
    for (const wchar_t* text : {L"3 4", L"3,4", L"3\t4", L"\n3,\n4\n"}) {
        items.put(L"Box_Size", text);
        EXPECT_EQ(geometry.getBoxSize(), (Point_2Dim<int>(3, 4)));
    }
    items.put(L"Box_Size", L"a, b");
    EXPECT_EQ(geometry.getBoxSize(), (Point_2Dim<int>(0, 0)));
}

TEST_F(GeometryConfigTest, SwitchesThatAreNoneReadTheirDefault) {
    for (const wchar_t* text : {L"", L" false", L"2", L"nein"}) {
        items.put(L"Validate_Warps", text);
        items.put(L"Markerless", text);
        EXPECT_TRUE(geometry.getValidateWarps());
        EXPECT_FALSE(geometry.getMarkerless());
    }
    items.put(L"Validate_Warps", L"NO");
    EXPECT_FALSE(geometry.getValidateWarps());
}

TEST_F(GeometryConfigTest, LongNameIsKeptWholeAndUnstorableOneRefused) {
    const std::wstring name(200, L'\u00fc');
    geometry.setMemoryLocationName(name);
    EXPECT_EQ(geometry.getMemoryLocationName(), name);
    EXPECT_THROW(geometry.setMemoryLocationName(L"a\x02"), CorvaneException);
    EXPECT_EQ(geometry.getMemoryLocationName(), name);
}
