#include "sections/SystemConfig.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sections/SystemItems.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "tests/support/SettingRows.h"
#include "tests/support/StoredItems.h"
#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlots.h"

namespace {

using XMLConfig::tests::itemsOf;
using XMLConfig::tests::leavesOf;
using XMLConfig::tests::SettingRows;
using XMLConfig::tests::storedText;
using Strings = std::vector<std::wstring>;
using S = SystemConfig;

std::unique_ptr<SystemConfig> systemOf(ConfigInfo* document) {
    return std::make_unique<SystemConfig>(document, nullptr, L"");
}

SettingRows<SystemConfig> systemRows() {
    SettingRows<SystemConfig> rows(systemOf);
    rows.row(&S::getRunType, &S::setRunType, L"RunType", {RunType::ClassicRun, L"ClassicRun"},
             {RunType::CinemaRun, L"CinemaRun"})
        .row(&S::getAreBlindersUsed, &S::setAreBlindersUsed, L"Are_Blinders_Used", {false, L"false"}, {true, L"true"},
             L"false")
        .row(&S::getIsBlbUsed, &S::setIsBlbUsed, L"Is_Blb_Used", {false, L"false"}, {true, L"true"})
        .row(&S::getIsCameraUsed, &S::setIsCameraUsed, L"Is_Camera_Used", {true, L"true"}, {false, L"false"}, L"true")
        .row(&S::isUseScreenAsMaskEnabled, &S::enableUseScreenAsMask, L"Is_Reference_Overlay_Masking_Enabled",
             {true, L"true"}, {false, L"false"})
        .row(&S::getPoseBlenderIgnoresOcclusions, &S::setPoseBlenderIgnoresOcclusions, L"PoseBlenderIgnoresShadows",
             {false, L"false"}, {true, L"true"})
        .row(&S::getNumAvailableBlackBoxPowerPorts, &S::setNumAvailableBlackBoxPowerPorts, L"Available_BlackBox_Power_Ports",
             {2, L"2"}, {8, L"8"}, L"4")
        .catalogued(L"Black_Box_Cameras_Comm", L"")
        .catalogued(L"Black_Box_LED_Lights_Comm", L"")
        .row(&S::getMotoBlendInitCommand, &S::setMotoBlendInitCommand, L"MotoBlend_Init_Command", {L"", L""},
             {L"i 1", L"i 1"})
        .row(&S::getMotoBlendOpenCommand, &S::setMotoBlendOpenCommand, L"MotoBlend_Open_Command", {L"", L""},
             {L"o&<", L"o&<"})
        .row(&S::getMotoBlendCloseCommand, &S::setMotoBlendCloseCommand, L"MotoBlend_Close_Command", {L"", L""},
             {L"zu \u65e5\u672c", L"zu \u65e5\u672c"})
        .row(&S::getParallelizeSends, &S::setParallelizeSends, L"Parallelize_Sends", {false, L"false"}, {true, L"true"},
             L"true")
        .row(&S::getOneShotMappersEnabled, &S::setOneShotMappersEnabled, L"One_Shot_Mappers", {false, L"false"},
             {true, L"true"})
        .row(&S::getSupportsPellinor, &S::setSupportsPellinor, L"SupportsPellinor", {false, L"false"}, {true, L"true"})
        .row(&S::getACTCount, &S::setACTCount, L"ACT_Count", {0, L"0"}, {3, L"3"}, L"0")
        .row([](S& system) { return system.getACTAddress(12); },
             [](S& system, const std::wstring& address) { system.setACTAddress(12, address); }, L"ACT_Address_12",
             {L"", L""}, {L"10.0.0.7", L"10.0.0.7"})
        .as(L"ACT_Address_%d")
        .catalogued(L"ACT_Relay_Associations_%d", L"")
        .row(&S::getACTBlobDetectionMethod, &S::setACTBlobDetectionMethod, L"ACT_Blob_Detection_Method",
             {L"basic", L"basic"}, {L"fine", L"fine"})
        .row(&S::getACTBlobMinArea, &S::setACTBlobMinArea, L"ACT_Blob_Min_Area", {2.0, L"2.000000000000000e+00"},
             {0.1, L"1.000000000000000e-01"})
        .readOnly(&S::getACTBlobMaxArea, L"ACT_Blob_Max_Area", {2500.0, L"2.500000000000000e+03"}, {1.5, L"1.5"})
        .readOnly(&S::getACTBlobClusteringDistance, L"ACT_Blob_Clustering_Distance", {5.0, L"5.000000000000000e+00"},
                  {6.0, L"6"})
        .readOnly(&S::getACTBlobMinSeparationDistance, L"ACT_Blob_Min_Separation_Distance", {5.0, L"5.000000000000000e+00"},
                  {7.0, L"7"})
        .readOnly(&S::getACTBlobIntensityJumpThreshold, L"ACT_Blob_Intensity_Jump_Threshold", {50, L"50"}, {20, L"20"})
        .readOnly(&S::getACTBlobMaxObservations, L"ACT_Blob_Max_Observations", {100, L"100"}, {10, L"10"})
        .row(&S::getCinemaFrameType, &S::setCinemaFrameType, L"Cinema|Frame", {Cinema::Frame::Flat, L"Flat"},
             {Cinema::Frame::Scope, L"Scope"})
        .row(&S::getCinemaKeystoneValue, &S::setCinemaKeystoneValue, L"Cinema|Keystone_Value",
             {0.0, L"0.000000000000000e+00"}, {-0.25, L"-2.500000000000000e-01"})
        .row(&S::getCinemaVerticalShift, &S::setCinemaVerticalShift, L"Cinema|Vertical_Shift",
             {0.0, L"0.000000000000000e+00"}, {12.0, L"1.200000000000000e+01"})
        .row(&S::getCinemaVerticalStretch, &S::setCinemaVerticalStretch, L"Cinema|Vertical_Stretch",
             {0.0, L"0.000000000000000e+00"}, {1.5, L"1.500000000000000e+00"})
        .row(&S::getGlareThreshold, &S::setGlareThreshold, L"Glare_Threshold_Percentage", {100, L"100"}, {85, L"85"}, L"100")
        .row(&S::getMarkedSurfaceMaskingExpansionPct, &S::setMarkedSurfaceMaskingExpansionPct,
             L"Marked_Surface_Masking_Expansion_Percentage", {0, L"0"}, {-3, L"-3"}, L"0")
        .row(&S::getReferenceMappingsTimeStamp, &S::setReferenceMappingsTimeStamp, L"Reference_Mappings_Timestamp",
             {0, L"0"}, {2147483647, L"2147483647"})
        .row(&S::getMarkerLocationMethod, &S::setMarkerLocationMethod, L"Marker_Location_Method",
             {S::MarkerLocationManual, L"manual"}, {S::MarkerLocationLedManual, L"led-manual"}, L"manual")
        .row(&S::getSkorraFilename, &S::setSkorraFilename, L"Skorra_File", {L"untitled.skorrax", L"untitled.skorrax"},
             {L"dome.skorrax", L"dome.skorrax"})
        .row(&S::getLengthUnit, &S::setLengthUnit, L"Length_Unit", {L"Meters", L"Meters"}, {L"Inches", L"Inches"}, L"Meters")
        .row(&S::getAngleUnit, &S::setAngleUnit, L"AngleUnit", {L"Degrees", L"Degrees"}, {L"Radians", L"Radians"},
             L"Degrees");
    return rows;
}

/// A document with a "System" accessor.
class SystemConfigTest : public testing::Test {
protected:
    ConfigInfo document;
    XMLConfig::tests::StoredItems items{document, L"System"};
    SystemConfig system{&document, nullptr, L""};
};

}  // namespace

TEST(SystemConfig, SettingsKeepToTheirRows) { systemRows().check(); }

TEST(SystemConfig, TableEqualsTheRows) { systemRows().checkTable(XMLConfig::detail::systemItems); }

TEST(SystemConfig, NewSectionHoldsTheRowsInOrder) { systemRows().checkInitialize(); }

#ifdef TESTS_KNOW_VIRTUAL_SLOTS
TEST(SystemConfig, VirtualMembersKeepTheirPlaces) {
    EXPECT_EQ(misplacedSlots(
                  2, {NAMED_SLOT(SystemConfig, initialize), NAMED_SLOT(SystemConfig, getMarkerLocationMethod),
                      NAMED_SLOT(SystemConfig, getLengthUnit), NAMED_SLOT(SystemConfig, getCinemaKeystoneValue),
                      NAMED_SLOT(SystemConfig, getSupportsPellinor), NAMED_SLOT(SystemConfig, getOneShotMappersEnabled)}),
              "");
    EXPECT_EQ(slotCount<SystemConfig>(), 8);
}
#endif

TEST(SystemConfig, ConstantsHaveTheirValues) {
    EXPECT_EQ(SystemConfig::DEFAULT_FILE_BASENAME, L"untitled");
    EXPECT_EQ(SystemConfig::DEFAULT_SKORRA_FILE_EXTENSION, L".skorrax");
    EXPECT_EQ(SystemConfig::kDefaultGlareThreshold, 100);
    EXPECT_EQ(SystemConfig::kDefaultMarkedSurfaceMaskingExpansionPct, 0);
}

TEST_F(SystemConfigTest, ConstructionWritesNothing) {
    EXPECT_FALSE(document.doesSectionExist(L"System", L""));
    EXPECT_FALSE(document.isDirty());
    EXPECT_EQ(system.getSectionName(), L"System");
    EXPECT_EQ(system.getSectionID(), L"");
}

TEST(SystemConfig, WithoutDocumentWorksOnAPrivateOne) {
    SystemConfig system(nullptr, nullptr, L"");
    system.setGlareThreshold(7);
    EXPECT_EQ(system.getGlareThreshold(), 7);
}

TEST_F(SystemConfigTest, InitializeRemovesTheUnitsOfAnUsedSection) {
    system.setACTCount(1);
    system.setACTAddress(0, L"10.0.0.1");
    system.setMarkerLocationMethod(SystemConfig::MarkerLocationLed);
    system.initialize();
    EXPECT_EQ(items.text(L"ACT_Count"), L"0");
    EXPECT_EQ(items.text(L"ACT_Address_0"), std::nullopt);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"manual");
}

// Units.

TEST_F(SystemConfigTest, LengthUnitTakesFiveNamesOnly) {
    for (const wchar_t* name : {L"Millimeters", L"Centimeters", L"Inches", L"Feet", L"Meters"}) {
        system.setLengthUnit(name);
        EXPECT_EQ(items.text(L"Length_Unit"), name);
    }
    for (const wchar_t* name : {L"Custom", L"Degrees", L"meters", L" Meters", L"m", L"", L"\u30e1\u30fc\u30c8\u30eb"}) {
        system.setLengthUnit(name);
        EXPECT_EQ(items.text(L"Length_Unit"), L"Meters");
    }
}

TEST_F(SystemConfigTest, AngleUnitTakesTwoNamesOnly) {
    for (const wchar_t* name : {L"Degrees", L"Radians"}) {
        system.setAngleUnit(name);
        EXPECT_EQ(items.text(L"AngleUnit"), name);
    }
    for (const wchar_t* name : {L"Arc Minutes", L"Meters", L"degrees", L""}) {
        system.setAngleUnit(name);
        EXPECT_EQ(items.text(L"AngleUnit"), L"Radians");
    }
}

TEST_F(SystemConfigTest, RefusedUnitCreatesNothing) {
    const Strings before = leavesOf(document);
    system.setLengthUnit(L"Parsec");
    system.setAngleUnit(L"Gon");
    system.setLengthUnitByEnum(UnitConversionTable::Millimeters);
    system.setAngleUnitByEnum(UnitConversionTable::ArcMinutes);
    EXPECT_EQ(leavesOf(document), before);
    EXPECT_FALSE(document.isDirty());
}

TEST_F(SystemConfigTest, LengthUnitByEnumTakesFourSubTypes) {
    using Units = UnitConversionTable;
    for (const auto& [subType, name] :
         std::vector<std::pair<Units::UnitSubType, std::wstring>>{{Units::Meters, L"Meters"},
                                                                  {Units::Centimeters, L"Centimeters"},
                                                                  {Units::Feet, L"Feet"},
                                                                  {Units::Inches, L"Inches"}}) {
        system.setLengthUnitByEnum(subType);
        EXPECT_EQ(items.text(L"Length_Unit"), name);
        EXPECT_EQ(system.getLengthUnitByEnum(), subType);
    }
    for (const int subType : {-1, 2, 5, 6, 7, 8, 9, 10}) {
        system.setLengthUnitByEnum(static_cast<Units::UnitSubType>(subType));
        EXPECT_EQ(items.text(L"Length_Unit"), L"Inches") << subType;
    }
}

TEST_F(SystemConfigTest, MillimetersAreStoredByNameOnly) {
    system.setLengthUnit(L"Feet");
    system.setLengthUnitByEnum(UnitConversionTable::Millimeters);
    EXPECT_EQ(items.text(L"Length_Unit"), L"Feet");
    system.setLengthUnit(L"Millimeters");
    EXPECT_EQ(items.text(L"Length_Unit"), L"Millimeters");
    EXPECT_EQ(system.getLengthUnitByEnum(), UnitConversionTable::Millimeters);
}

TEST_F(SystemConfigTest, AngleUnitByEnumTakesTwoSubTypes) {
    system.setAngleUnitByEnum(UnitConversionTable::Radians);
    EXPECT_EQ(items.text(L"AngleUnit"), L"Radians");
    EXPECT_EQ(system.getAngleUnitByEnum(), UnitConversionTable::Radians);
    system.setAngleUnitByEnum(UnitConversionTable::Degrees);
    EXPECT_EQ(items.text(L"AngleUnit"), L"Degrees");
    for (const int subType : {-1, 0, 4, 5, 8, 9}) {
        system.setAngleUnitByEnum(static_cast<UnitConversionTable::UnitSubType>(subType));
        EXPECT_EQ(items.text(L"AngleUnit"), L"Degrees") << subType;
    }
}

TEST_F(SystemConfigTest, StoredUnitOutsideTheTableReadsAsItStands) {
    items.put(L"Length_Unit", L"Parsec");
    EXPECT_EQ(system.getLengthUnit(), L"Parsec");
    EXPECT_EQ(system.getLengthUnitByEnum(), UnitConversionTable::UnknownUnitSubType);
    items.put(L"AngleUnit", L"");
    EXPECT_EQ(system.getAngleUnit(), L"");
    EXPECT_EQ(system.getAngleUnitByEnum(), UnitConversionTable::UnknownUnitSubType);
}

// Marker location method.

TEST_F(SystemConfigTest, MarkerMethodsHaveTheirTexts) {
    const std::vector<std::tuple<int, std::wstring, std::string>> methods = {
        {0, L"manual", "Manual"},
        {1, L"led", "LED Automatic"},
        {2, L"led-manual", "LED Manual"},
        {3, L"act", "ACT Calibration"},
        {4, L"marked-surface-automatic", "Image-Based Calibration"},
        {5, L"structured-light", "Structured Light Calibration"},
        {6, L"checkerboard", ""}};
    for (const auto& [number, text, display] : methods) {
        const auto method = static_cast<SystemConfig::MarkerLocationMethodEnum>(number);
        system.setMarkerLocationMethod(method);
        EXPECT_EQ(items.text(L"Marker_Location_Method"), text);
        EXPECT_EQ(system.getMarkerLocationMethod(), number);
        EXPECT_EQ(system.markerLocationMethodEnumFromString(text), number);
        EXPECT_EQ(SystemConfig::MarkerLocationMethodEnumToString(method), display);
        EXPECT_EQ(system.isAutomaticCameraCalibrationEnabled(), number == 3 || number == 4);
    }
}

TEST_F(SystemConfigTest, UnknownMethodTextReadsAsManual) {
    for (const wchar_t* text : {L"ACT", L"", L" act", L"led-prompt", L"act-prompt-prompt", L"3", L"\u00e4ct"}) {
        items.put(L"Marker_Location_Method", text);
        EXPECT_EQ(system.getMarkerLocationMethod(), 0);
        EXPECT_EQ(system.markerLocationMethodEnumFromString(text), 0);
        EXPECT_FALSE(system.isAutomaticCameraCalibrationEnabled());
    }
}

TEST_F(SystemConfigTest, MethodOutsideTheEnumerationIsRefused) {
    system.setMarkerLocationMethod(SystemConfig::MarkerLocationLed);
    document.setDirty(false);
    for (const int number : {-1, 7, 1000}) {
        const auto method = static_cast<SystemConfig::MarkerLocationMethodEnum>(number);
        EXPECT_EQ(messageOf([&] { system.setMarkerLocationMethod(method); }), L"Unexpected marker location enum") << number;
        EXPECT_EQ(SystemConfig::MarkerLocationMethodEnumToString(method), "");
    }
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"led");
    EXPECT_FALSE(document.isDirty());
}

TEST_F(SystemConfigTest, PromptTextsReadAsTheirMethods) {
    items.put(L"Marker_Location_Method", L"act-prompt");
    EXPECT_EQ(system.getMarkerLocationMethod(), 3);
    EXPECT_TRUE(system.getPromptUserForAutomaticCameraCalibrationEnabledState());
    EXPECT_TRUE(system.isAutomaticCameraCalibrationEnabled());
    items.put(L"Marker_Location_Method", L"marked-surface-automatic-prompt");
    EXPECT_EQ(system.getMarkerLocationMethod(), 4);
    EXPECT_TRUE(system.getPromptUserForAutomaticCameraCalibrationEnabledState());
    items.put(L"Marker_Location_Method", L"x-promptly");
    EXPECT_TRUE(system.getPromptUserForAutomaticCameraCalibrationEnabledState());
    items.put(L"Marker_Location_Method", L"act-Prompt");
    EXPECT_FALSE(system.getPromptUserForAutomaticCameraCalibrationEnabledState());
}

TEST_F(SystemConfigTest, PromptFlagMarksAutomaticMethodsOnly) {
    system.setPromptUserForAutomaticCameraCalibrationEnabledState(true);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"manual");
    EXPECT_FALSE(system.getPromptUserForAutomaticCameraCalibrationEnabledState());
    system.setMarkerLocationMethod(SystemConfig::MarkerLocationMarkedSurfaceAutomatic);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"marked-surface-automatic-prompt");
    system.setMarkerLocationMethod(SystemConfig::MarkerLocationAct);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"act-prompt");
    system.setMarkerLocationMethod(SystemConfig::MarkerLocationLed);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"led");
    system.setMarkerLocationMethod(SystemConfig::MarkerLocationCheckerboard);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"checkerboard");
}

TEST_F(SystemConfigTest, PromptFlagRewritesThePresentMethod) {
    items.put(L"Marker_Location_Method", L"act");
    system.setPromptUserForAutomaticCameraCalibrationEnabledState(true);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"act-prompt");
    system.setPromptUserForAutomaticCameraCalibrationEnabledState(false);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"act");
    items.put(L"Marker_Location_Method", L"nonsense");
    system.setPromptUserForAutomaticCameraCalibrationEnabledState(true);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"manual");
}

TEST_F(SystemConfigTest, PromptFlagIsDroppedAfterLoad) {
    items.put(L"Marker_Location_Method", L"act-prompt");
    SystemConfig loaded(&document, nullptr, L"");
    EXPECT_TRUE(loaded.getPromptUserForAutomaticCameraCalibrationEnabledState());
    loaded.setMarkerLocationMethod(SystemConfig::MarkerLocationAct);
    EXPECT_EQ(items.text(L"Marker_Location_Method"), L"act");
    EXPECT_FALSE(loaded.getPromptUserForAutomaticCameraCalibrationEnabledState());
}

TEST(SystemConfig, OverriddenMethodGetterDecides) {
    struct AlwaysAct : SystemConfig {
        using SystemConfig::SystemConfig;
        MarkerLocationMethodEnum getMarkerLocationMethod() const override { return MarkerLocationAct; }
    };
    ConfigInfo document;
    AlwaysAct system(&document, nullptr, L"");
    EXPECT_TRUE(system.isAutomaticCameraCalibrationEnabled());
    system.setPromptUserForAutomaticCameraCalibrationEnabledState(true);
    EXPECT_EQ(storedText(document, L"System", L"Marker_Location_Method"), L"act-prompt");
}

// Run type, picture format, warp file.

TEST_F(SystemConfigTest, RunTypesAndFramesAreTexts) {
    system.setRunType(RunType::Palvex3DRun);
    EXPECT_EQ(items.text(L"RunType"), L"Palvex3DRun");
    EXPECT_EQ(system.getRunType(), RunType::Palvex3DRun);
    for (const wchar_t* text : {L"cinemarun", L"", L"1"}) {
        items.put(L"RunType", text);
        items.put(L"Cinema|Frame", text);
        EXPECT_EQ(system.getRunType(), RunType::ClassicRun);
        EXPECT_EQ(system.getCinemaFrameType(), Cinema::Frame::Flat);
    }
}

TEST_F(SystemConfigTest, SkorraFilenameGetsItsExtensionOnce) {
    EXPECT_EQ(system.getSkorraFilename(), L"untitled.skorrax");
    const std::vector<std::pair<std::wstring, std::wstring>> names = {
        {L"warp", L"warp.skorrax"},
        {L"warp.skorrax", L"warp.skorrax"},
        {L"warp.SKORRAX", L"warp.SKORRAX.skorrax"},
        {L"x.skorrax.bak", L"x.skorrax.bak.skorrax"},
        {L"..\\hall/w\u00e4rp", L"..\\hall/w\u00e4rp.skorrax"},
        {L"skorrax", L"skorrax.skorrax"},
        {L" .skorrax", L" .skorrax"},
        {std::wstring(200, L'n'), std::wstring(200, L'n') + L".skorrax"}};
    for (const auto& [name, wanted] : names) {
        system.setSkorraFilename(name);
        EXPECT_EQ(items.text(L"Skorra_File"), wanted);
        EXPECT_EQ(system.getSkorraFilename(), wanted);
    }
}

TEST_F(SystemConfigTest, EmptySkorraFilenamesAreIgnored) {
    const Strings before = leavesOf(document);
    system.setSkorraFilename(L"");
    system.setSkorraFilename(L".skorrax");
    EXPECT_EQ(leavesOf(document), before);
    system.setSkorraFilename(L"kept");
    system.setSkorraFilename(L".skorrax");
    EXPECT_EQ(items.text(L"Skorra_File"), L"kept.skorrax");
}

// What is stored may be anything.

TEST_F(SystemConfigTest, NumbersThatAreNoneReadZero) {
    for (const wchar_t* text : {L"", L"abc", L"-", L"x12"}) {
        items.put(L"Glare_Threshold_Percentage", text);
        items.put(L"ACT_Blob_Min_Area", text);
        items.put(L"ACT_Count", text);
        EXPECT_EQ(system.getGlareThreshold(), 0);
        EXPECT_EQ(system.getACTBlobMinArea(), 0.0);
        EXPECT_EQ(system.getACTCount(), 0);
    }
    items.put(L"Glare_Threshold_Percentage", L" 12abc");
    EXPECT_EQ(system.getGlareThreshold(), 12);
    items.put(L"Glare_Threshold_Percentage", L"99999999999");
    EXPECT_EQ(system.getGlareThreshold(), 2147483647);
}

TEST_F(SystemConfigTest, SwitchesThatAreNoneReadTheirDefault) {
    for (const wchar_t* text : {L"", L" true", L"2", L"ja"}) {
        items.put(L"Is_Camera_Used", text);
        items.put(L"Are_Blinders_Used", text);
        EXPECT_TRUE(system.getIsCameraUsed());
        EXPECT_FALSE(system.getAreBlindersUsed());
    }
}

TEST_F(SystemConfigTest, TextThatXmlCannotHoldIsRefused) {
    system.setMotoBlendInitCommand(L"before");
    document.setDirty(false);
    EXPECT_THROW(system.setMotoBlendInitCommand(L"a\x01z"), CorvaneException);
    EXPECT_THROW(system.setACTAddress(0, L"\x1f"), CorvaneException);
    EXPECT_EQ(itemsOf(document, L"System"), (Strings{L"MotoBlend_Init_Command = before"}));
    EXPECT_FALSE(document.isDirty());
}

TEST_F(SystemConfigTest, LongTextsAreKeptWhole) {
    const std::wstring text(200, L'\u00fc');
    system.setMotoBlendCloseCommand(text);
    system.setACTAddress(0, text);
    EXPECT_EQ(system.getMotoBlendCloseCommand(), text);
    EXPECT_EQ(system.getACTAddress(0), text);
}
