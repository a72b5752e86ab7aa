#include "sections/ColorConfig.h"

#include <gtest/gtest.h>

#include <limits>

#include "sections/ColorItems.h"
#include "tests/support/SettingRows.h"
#include "tests/support/StoredItems.h"
#include "tests/support/VirtualSlots.h"

namespace {

using XMLConfig::tests::itemsOf;
using XMLConfig::tests::storedText;
using Rows = XMLConfig::tests::SettingRows<ColorConfig>;
using Texts = std::vector<std::wstring>;

Rows colorRows() {
    using C = ColorConfig;
    Rows rows([](ConfigInfo* document) { return std::make_unique<C>(document, L""); });
    rows.row(&C::getMaxIterationsColor, &C::setMaxIterationsColor, L"MaxIterationsColor", {1, L"1"}, {40, L"40"}, L"25");
    rows.row(&C::getMinCameraExposureDelta, &C::setMinCameraExposureDelta, L"MinCameraExposureDeltaInMS", {1000, L"1000"},
             {250, L"250"}, L"1000");
    rows.row(&C::getUseProjectorAperture, &C::setUseProjectorAperture, L"UseProjectorAperture", {true, L"true"},
             {false, L"false"}, L"true");
    rows.row(&C::getNormalizedThresholdBrightness, &C::setNormalizedThresholdBrightness, L"NormalizedThresholdForBrightness",
             {0.01, L"1.000000000000000e-02"}, {0.5, L"5.000000000000000e-01"}, L"1.000000000000000e-02");
    rows.row(&C::getNormalizedThresholdColor, &C::setNormalizedThresholdColor, L"NormalizedThresholdForColor",
             {0.01, L"1.000000000000000e-02"}, {0.25, L"2.500000000000000e-01"}, L"1.000000000000000e-02");
    rows.row(&C::getBrightnessAdjustViaLampPower, &C::setBrightnessAdjustViaLampPower, L"UseBrightnessAdjustViaLampPower",
             {true, L"true"}, {false, L"false"}, L"true");
    rows.row(&C::getTargetSizeX, &C::setTargetSizeX, L"AdvColor_TargetSizeX", {124, L"124"}, {64, L"64"}, L"0");
    rows.row(&C::getTargetSizeY, &C::setTargetSizeY, L"AdvColor_TargetSizeY", {124, L"124"}, {-7, L"-7"}, L"0");
    rows.row(&C::getUserLampPowerCap, &C::setUserLampPowerCap, L"UserLampPowerCap", {1.0, L"1.000000000000000e+00"},
             {0.75, L"7.500000000000000e-01"}, L"1.000000000000000e+00");
    rows.row(&C::getAdvColorCommPort, &C::setAdvColorCommPort, L"AdvColor_ComPort", {L"COM1", L"COM1"}, {L"COM12", L"COM12"},
             L"COM1");
    rows.row(&C::getBrightnessTolerance, &C::setBrightnessTolerance, L"Brightness_Tolerance",
             {0.5, L"5.000000000000000e-01"}, {2.0, L"2.000000000000000e+00"}, L"5.000000000000000e-01");
    rows.row(&C::getColourTolerance, &C::setColourTolerance, L"Colour_Tolerance", {0.001, L"1.000000000000000e-03"},
             {0.125, L"1.250000000000000e-01"}, L"1.000000000000000e-03");
    rows.row(&C::getColourConvergeJump, &C::setColourConvergeJump, L"Colour_Converge_Jump", {0.5, L"5.000000000000000e-01"},
             {-1.5, L"-1.500000000000000e+00"}, L"5.000000000000000e-01");
    rows.row(&C::getCameraOrder, &C::setCameraOrder, L"CameraOrder", {{}, L""}, {{L"2", L"1", L"3"}, L"2,1,3"}, L"");
    rows.row(&C::getNormalizedValidExposureSampleRange, &C::setNormalizedValidExposureSampleRange,
             L"NormalizedValidExposureSampleRange", {{0.0, 0.0}, L"0.000000000000000e+00, 0.000000000000000e+00"},
             {{0.25, 0.75}, L"2.500000000000000e-01, 7.500000000000000e-01"},
             L"9.850000000000000e-01, 9.900000000000000e-01");
    rows.row(&C::getColorimeterType, &C::setColorimeterType, L"Colorimeter_Type", {0, L"0"}, {17, L"17"}, L"0");
    rows.row(&C::getAdvancedColorFilename, &C::setAdvancedColorFilename, L"Advanced_Color_Filename",
             {L"SavedAdvancedColor.skorrax", L"SavedAdvancedColor.skorrax"}, {L"färbung.skorrax", L"färbung.skorrax"});
    rows.catalogued(L"CameraOverlapPoint_%s_%s", L"", {}, true);
    return rows;
}

class Color : public testing::Test {
protected:
    ConfigInfo document;
    XMLConfig::tests::StoredItems items{document, L"Color"};
    ColorConfig color{&document, L""};
};

/// What a reading of an overlap point left in the caller's variables.
struct Overlap {
    Point_3Dim<double> point{-1.0, -2.0, -3.0};
    int channelA = -4;
    int channelB = -5;
};
Overlap overlapOf(const ColorConfig& color, const std::wstring& cameraA, const std::wstring& cameraB) {
    Overlap overlap;
    color.getCameraOverlapPointAndChannel(cameraA, cameraB, overlap.point, overlap.channelA, overlap.channelB);
    return overlap;
}
void expectUntouched(const Overlap& overlap) {
    EXPECT_EQ(overlap.point, (Point_3Dim<double>{-1.0, -2.0, -3.0}));
    EXPECT_EQ(overlap.channelA, -4);
    EXPECT_EQ(overlap.channelB, -5);
}

}  // namespace

TEST(ColorConfig, SettingsKeepToTheirRows) { colorRows().check(); }

TEST(ColorConfig, TableEqualsTheRows) { colorRows().checkTable(XMLConfig::detail::colorItems); }

TEST(ColorConfig, NewSectionHoldsTheRowsInOrder) { colorRows().checkInitialize(); }

TEST_F(Color, SectionHasItsNameAndTheGivenID) {
    EXPECT_EQ(color.getSectionName(), L"Color");
    EXPECT_EQ(color.getSectionID(), L"");
    EXPECT_EQ(ColorConfig(&document, L"7").getSectionID(), L"7");
}

TEST_F(Color, InitialValuesDifferFromThoseOfMissingItems) {
    EXPECT_EQ(color.getMaxIterationsColor(), 1);
    EXPECT_EQ(color.getTargetSizeX(), 124);
    EXPECT_EQ(color.getTargetSizeY(), 124);
    color.initialize();
    EXPECT_EQ(color.getMaxIterationsColor(), 25);
    EXPECT_EQ(color.getTargetSizeX(), 0);
    EXPECT_EQ(color.getTargetSizeY(), 0);
    EXPECT_EQ(color.getCameraOrder(), Texts{});
    EXPECT_EQ(color.getAdvancedColorFilename(), L"SavedAdvancedColor.skorrax");
}

TEST_F(Color, OtherSectionIDsKeepTheirOwnValues) {
    ColorConfig first(&document, L"1");
    ColorConfig other(&document, L"2");
    other.setTargetSizeX(8);
    first.initialize();
    EXPECT_EQ(first.getTargetSizeX(), 0);
    EXPECT_EQ(other.getTargetSizeX(), 8);
    EXPECT_EQ(storedText(document, L"Color", L"AdvColor_TargetSizeX", L"2"), L"8");
}

TEST_F(Color, CameraOrderIsSplitAtAnySeparator) {
    items.putClean(L"CameraOrder", L"2, 1\n3");
    EXPECT_EQ(color.getCameraOrder(), (Texts{L"2", L"1", L"3"}));
    items.putClean(L"CameraOrder", L",\t 2,,1 \n3, ");
    EXPECT_EQ(color.getCameraOrder(), (Texts{L"2", L"1", L"3"}));
    EXPECT_FALSE(document.isDirty());
}

TEST_F(Color, CameraOrderKeepsEmptyIDsInTheTextOnly) {
    color.setCameraOrder({L"", L"4", L""});
    EXPECT_EQ(storedText(document, L"Color", L"CameraOrder"), L",4,");
    EXPECT_EQ(color.getCameraOrder(), (Texts{L"4"}));
}

TEST_F(Color, CameraOrderOfNothingAndOfOneEmptyIDIsEmptyText) {
    color.setCameraOrder({L"1"});
    color.setCameraOrder({});
    EXPECT_EQ(storedText(document, L"Color", L"CameraOrder"), L"");
    color.setCameraOrder({L"1"});
    color.setCameraOrder({L""});
    EXPECT_EQ(storedText(document, L"Color", L"CameraOrder"), L"");
}

TEST_F(Color, CameraOrderIsNeverCut) {
    const Texts ids(100, L"camera");
    color.setCameraOrder(ids);
    EXPECT_EQ(storedText(document, L"Color", L"CameraOrder")->size(), 699u);
    EXPECT_EQ(color.getCameraOrder(), ids);
}

TEST_F(Color, OverlapPointOfAPairIsRead) {
    items.putClean(L"CameraOverlapPoint_1_2", L"0.5, 0.25, 1.0, 2, 3");
    const Overlap overlap = overlapOf(color, L"1", L"2");
    EXPECT_EQ(overlap.point, (Point_3Dim<double>{0.5, 0.25, 1.0}));
    EXPECT_EQ(overlap.channelA, 2);
    EXPECT_EQ(overlap.channelB, 3);
    EXPECT_FALSE(document.isDirty());
}

TEST_F(Color, OverlapPointOfTheReversePairIsAnotherItem) {
    items.putClean(L"CameraOverlapPoint_1_2", L"0.5, 0.25, 1.0, 2, 3");
    expectUntouched(overlapOf(color, L"2", L"1"));
    items.putClean(L"CameraOverlapPoint_2_1", L"9\t8\n7 6,5,");
    EXPECT_EQ(overlapOf(color, L"2", L"1").point, (Point_3Dim<double>{9.0, 8.0, 7.0}));
    EXPECT_EQ(overlapOf(color, L"1", L"2").channelB, 3);
}

TEST_F(Color, OverlapPointWithAWrongCountLeavesTheOutputs) {
    for (const wchar_t* text : {L"0.5, 0.25, 1.0, 2", L"0.5, 0.25, 1.0, 2, 3, 4", L"", L" ,\n", L"5"}) {
        items.putClean(L"CameraOverlapPoint_1_2", text);
        expectUntouched(overlapOf(color, L"1", L"2"));
    }
}

TEST_F(Color, MissingOverlapPointLeavesTheOutputsAndCreatesNothing) {
    expectUntouched(overlapOf(color, L"1", L"2"));
    EXPECT_FALSE(document.doesSectionExist(L"Color", L""));
    EXPECT_FALSE(document.isDirty());
}

TEST_F(Color, OverlapPointThatIsNoNumberReadsZero) {
    items.putClean(L"CameraOverlapPoint_1_2", L"x 1.5m -inf 2.9 none");
    const Overlap overlap = overlapOf(color, L"1", L"2");
    EXPECT_EQ(overlap.point, (Point_3Dim<double>{0.0, 1.5, -std::numeric_limits<double>::infinity()}));
    EXPECT_EQ(overlap.channelA, 2);
    EXPECT_EQ(overlap.channelB, 0);
}

TEST_F(Color, OverlapPointTakesAnyIDs) {
    items.putClean(L"CameraOverlapPoint_links_ö-2", L"1 2 3 4 5");
    EXPECT_EQ(overlapOf(color, L"links", L"ö-2").channelA, 4);
    items.putClean(L"CameraOverlapPoint__", L"1 2 3 6 7");
    EXPECT_EQ(overlapOf(color, L"", L"").channelB, 7);
    expectUntouched(overlapOf(color, L"%s", L"%s"));
    EXPECT_FALSE(document.isDirty());
}

TEST_F(Color, OverlapPointKeyIsCutAt127Characters) {
    const std::wstring longID(200, L'c');
    const std::wstring key = L"CameraOverlapPoint_" + std::wstring(108, L'c');
    ASSERT_EQ(key.size(), 127u);
    items.putClean(key, L"1 2 3 4 5");
    EXPECT_EQ(overlapOf(color, longID, L"2").channelB, 5);
    EXPECT_EQ(overlapOf(color, longID.substr(0, 108), L"2").channelB, 5);
    expectUntouched(overlapOf(color, longID.substr(0, 107), L"2"));
}

TEST_F(Color, ExposureRangeWithAWrongCountReadsZero) {
    items.putClean(L"NormalizedValidExposureSampleRange", L"0.5 0.6 0.7");
    EXPECT_EQ(color.getNormalizedValidExposureSampleRange(), (Point_2Dim<double>{0.0, 0.0}));
    items.putClean(L"NormalizedValidExposureSampleRange", L"0.5");
    EXPECT_EQ(color.getNormalizedValidExposureSampleRange(), (Point_2Dim<double>{0.0, 0.0}));
}

TEST_F(Color, NonFiniteNumbersReadBack) {
    color.setUserLampPowerCap(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(storedText(document, L"Color", L"UserLampPowerCap"), L"nan");
    EXPECT_NE(color.getUserLampPowerCap(), color.getUserLampPowerCap());
}

#ifdef TESTS_KNOW_VIRTUAL_SLOTS
TEST(ColorConfig, AddsNoVirtualMembersAndNoState) {
    EXPECT_EQ(slotOf(&ColorConfig::initialize), slotOf(&BaseConfig::initialize));
    EXPECT_EQ(slotCount<ColorConfig>(), 3);
    EXPECT_EQ(sizeof(ColorConfig), sizeof(BaseConfig));
}
#endif
