#include "sections/ScreenConfig.h"

#include <gtest/gtest.h>

#include "base/UnitConversionTable.h"
#include "sections/ScreenItems.h"
#include "tests/sections/ScreenFixture.h"
#include "tests/support/SettingRows.h"
#include "tests/support/VirtualSlots.h"

namespace {

using XMLConfig::tests::assetsOfHall;
using XMLConfig::tests::itemsOf;
using XMLConfig::tests::storedText;
using Rows = XMLConfig::tests::SettingRows<ScreenConfig>;
using Points = std::vector<Point_3Dim<double>>;
using Texts = std::vector<std::wstring>;

constexpr auto absolute = BaseConfig::FilePathAbsolute;
constexpr auto relative = BaseConfig::FilePathRelative;
const wchar_t* const zero = L"0.000000000000000e+00";
const wchar_t* const one = L"1.000000000000000e+00";
const wchar_t* const minusOne = L"-1.000000000000000e+00";
const wchar_t* const origin = L"0.000000000000000e+00, 0.000000000000000e+00, 0.000000000000000e+00";
const wchar_t* const somewhereText = L"1.500000000000000e+00, -2.000000000000000e+00, 3.000000000000000e+00";
const Point_3Dim<double> somewhere(1.5, -2.0, 3.0);

Rows emptyRows() {
    return Rows([](ConfigInfo* document) { return std::make_unique<ScreenConfig>(document, assetsOfHall(), L""); });
}

void addSurfaceRows(Rows& rows) {
    using S = ScreenConfig;
    rows.row(&S::getShape, &S::setShape, L"Shape", {L"Flat", L"Flat"}, {L"Toroid", L"Toroid"}, L"Flat");
    rows.row([](S& s) { return s.getMeshPath(relative); },
             [](S& s, const std::wstring& path) { s.setMeshPath(path, relative); }, L"VRML", {L"", L""},
             {L"meshes/dome.wrl", L"meshes/dome.wrl"}, L"");
    rows.row([](S& s) { return s.getMeasuredMeshPath(relative); },
             [](S& s, const std::wstring& path) { s.setMeasuredMeshPath(path, relative); }, L"MeasuredVRML", {L"", L""},
             {L"../measured.wrl", L"../measured.wrl"});
    rows.row([](S& s) { return s.getPCDPath(absolute); },
             [](S& s, const std::wstring& path) { s.setPCDPath(path, absolute); }, L"PCD", {L"", L""},
             {L"/shows/cloud.pcd", L"/shows/cloud.pcd"});
    rows.row([](S& s) { return s.getMarkedSurfaceFilename(relative); },
             [](S& s, const std::wstring& path) { s.setMarkedSurfaceFilename(path, relative); }, L"Marked_Surface_File",
             {L"", L""}, {L"bühne.png", L"bühne.png"});
    rows.row(&S::getScreenImportAxisForward, &S::setScreenImportAxisForward, L"AxisForward", {L"Y", L"Y"}, {L"-X", L"-X"});
    rows.row(&S::getScreenImportAxisUpward, &S::setScreenImportAxisUpward, L"AxisUpward", {L"Z", L"Z"},
             {L"sideways", L"sideways"});
    rows.row(&S::getCenterPoint, &S::setCenterPoint, L"Center_Point", {{}, origin}, {somewhere, somewhereText}, origin);
    rows.row(&S::getProjectionPoint, &S::setProjectionPoint, L"Projection_Point", {{}, origin}, {somewhere, somewhereText});
}

void addSizeRows(Rows& rows) {
    using S = ScreenConfig;
    const XMLConfig::tests::Sample<double> missing{-1.0, minusOne};
    const XMLConfig::tests::Sample<bool> off{false, L"false"};
    const XMLConfig::tests::Sample<bool> on{true, L"true"};
    rows.row(&S::getHeight, &S::setHeight, L"Screen_Height", missing, {0.0, zero}, one);
    rows.row(&S::getWidth, &S::setWidth, L"Screen_Width", missing, {2.5, L"2.500000000000000e+00"}, one);
    rows.row(&S::getRadius, &S::setRadius, L"Screen_Radius", missing, {7.0, L"7.000000000000000e+00"},
             L"2.100000000000000e+00");
    rows.row(&S::getMinTheta, &S::setMinTheta, L"Screen_MinTheta", missing, {-0.5, L"-5.000000000000000e-01"},
             L"-7.853981633974483e-01");
    rows.row(&S::getMaxTheta, &S::setMaxTheta, L"Screen_MaxTheta", missing, {0.5, L"5.000000000000000e-01"},
             L"7.853981633974483e-01");
    rows.row(&S::getMinPhi, &S::setMinPhi, L"Screen_MinPhi", missing, {-0.25, L"-2.500000000000000e-01"},
             L"-3.141592653589793e-01");
    rows.row(&S::getMaxPhi, &S::setMaxPhi, L"Screen_MaxPhi", missing, {0.25, L"2.500000000000000e-01"},
             L"3.141592653589793e-01");
    rows.row(&S::isTopMaskEnabled, &S::setTopMaskEnabled, L"Mask_Top_Enabled", off, on, L"false");
    rows.row(&S::getTopMask, &S::setTopMask, L"Mask_Top", missing, {0.125, L"1.250000000000000e-01"}, zero);
    rows.row(&S::isBottomMaskEnabled, &S::setBottomMaskEnabled, L"Mask_Bottom_Enabled", off, on, L"false");
    rows.row(&S::getBottomMask, &S::setBottomMask, L"Mask_Bottom", missing, {0.25, L"2.500000000000000e-01"}, zero);
    rows.row(&S::isLeftMaskEnabled, &S::setLeftMaskEnabled, L"Mask_Left_Enabled", off, on, L"false");
    rows.row(&S::getLeftMask, &S::setLeftMask, L"Mask_Left", missing, {12.0, L"1.200000000000000e+01"}, zero);
    rows.row(&S::isRightMaskEnabled, &S::setRightMaskEnabled, L"Mask_Right_Enabled", off, on, L"false");
    rows.row(&S::getRightMask, &S::setRightMask, L"Mask_Right", missing, {-3.0, L"-3.000000000000000e+00"}, zero);
}

void addModelRows(Rows& rows) {
    using S = ScreenConfig;
    rows.row(&S::getSampleSpacing, &S::setSampleSpacing, L"Sample_Spacing", {15.0, L"1.500000000000000e+01"},
             {4.0, L"4.000000000000000e+00"});
    rows.row(&S::getScaleCenter, &S::setScaleCenter, L"Scale_Center",
             {{0.5, 0.5}, L"5.000000000000000e-01, 5.000000000000000e-01"},
             {{0.25, 0.75}, L"2.500000000000000e-01, 7.500000000000000e-01"});
    rows.row(&S::getScaleFactor, &S::setScaleFactor, L"Scale_Factor",
             {{1.0, 1.0}, L"1.000000000000000e+00, 1.000000000000000e+00"},
             {{0.25, 0.75}, L"2.500000000000000e-01, 7.500000000000000e-01"});
    rows.row(&S::getScaleOffset, &S::setScaleOffset, L"Scale_Offset",
             {{0.0, 0.0}, L"0.000000000000000e+00, 0.000000000000000e+00"},
             {{0.25, -0.75}, L"2.500000000000000e-01, -7.500000000000000e-01"});
    rows.row(&S::getSizeDefinition, &S::setSizeDefinition, L"SizeDefinition", {S::SizeManual, L"3"}, {S::SizeFromFile, L"2"},
             L"1");
    rows.readOnly(&S::isSizeDeterminedAutomatically, L"Auto_Dimensions", {false, L"false"}, {true, L"true"});
    rows.row(&S::getScreenFileLengthUnit, &S::setScreenFileLengthUnit, L"File_Length_Unit", {L"Meters", L"Meters"},
             {L"Custom", L"Custom"});
    rows.row(&S::getScreenFileCustomUnitScaleValue, &S::setScreenFileCustomUnitScaleValue, L"File_Unit_Custom_Scale",
             {1.0, one}, {0.5, L"5.000000000000000e-01"});
    rows.row(&S::getCheckerboardBoxDimension, &S::setCheckerboardBoxDimension, L"Checkerboard_Calibration|Box_Dimension",
             {0.0, zero}, {1.5, L"1.500000000000000e+00"});
    rows.row(&S::getCheckerboardGridSizeCols, &S::setCheckerboardGridSizeCols, L"Checkerboard_Calibration|Grid_Size|Columns",
             {0, L"0"}, {9, L"9"});
    rows.row(&S::getCheckerboardGridSizeRows, &S::setCheckerboardGridSizeRows, L"Checkerboard_Calibration|Grid_Size|Rows",
             {0, L"0"}, {6, L"6"});
    rows.catalogued(L"Marked_Surface_Image_Width", L"0");
    rows.catalogued(L"Marked_Surface_Image_Height", L"0");
    rows.row(&S::getCalibrationPoints, &S::setCalibrationPoints, L"Camera_Calibration_Points", {{}, L""},
             {{{1, 2, 3}, {4, 5, 6}}, L"\n\t\t1.000000, 2.000000, 3.000000,\n\t\t4.000000, 5.000000, 6.000000\n\n\t"});
    rows.catalogued(L"Locate_Guess_Transform", L"");
}

Rows screenRows() {
    Rows rows = emptyRows();
    addSurfaceRows(rows);
    addSizeRows(rows);
    addModelRows(rows);
    return rows;
}

class Screen : public XMLConfig::tests::ScreenFixture {};

}  // namespace

TEST(ScreenConfig, SettingsKeepToTheirRows) { screenRows().check(); }

TEST(ScreenConfig, TableEqualsTheRows) { screenRows().checkTable(XMLConfig::detail::screenItems); }

TEST(ScreenConfig, NewSectionHoldsTheRowsInOrder) { screenRows().checkInitialize(); }

TEST_F(Screen, NewSectionReadsItsInitialValues) {
    screen.initialize();
    EXPECT_EQ(screen.getShape(), L"Flat");
    EXPECT_EQ(screen.getWidth(), 1.0);
    EXPECT_EQ(screen.getRadius(), 2.1);
    EXPECT_EQ(screen.getMinTheta(), -0.7853981633974483);
    EXPECT_EQ(screen.getSizeDefinition(), ScreenConfig::SizeAutomatic);
    EXPECT_FALSE(screen.isTopMaskEnabled());
    EXPECT_EQ(screen.getTopMask(), 0.0);
    EXPECT_EQ(screen.getMeshPath(absolute), L"");
}

TEST_F(Screen, InitialAnglesAreThoseOfTheUnitTable) {
    screen.initialize();
    const auto radians = [](double degrees) {
        return UnitConversionTable::convertValue(UnitConversionTable::Degrees, UnitConversionTable::Radians, degrees);
    };
    EXPECT_EQ(screen.getMinTheta(), radians(-45.0));
    EXPECT_EQ(screen.getMaxTheta(), radians(45.0));
    EXPECT_EQ(screen.getMinPhi(), radians(-18.0));
    EXPECT_EQ(screen.getMaxPhi(), radians(18.0));
}

TEST_F(Screen, UnknownShapesAreIgnored) {
    screen.setShape(L"flat");
    EXPECT_FALSE(document.doesSectionExist(L"Screen", L""));
    screen.setShape(L"Sphere");
    document.setDirty(false);
    for (const wchar_t* shape : {L"flat", L"", L"Flat ", L"TOROID", L"Cube"}) screen.setShape(shape);
    EXPECT_EQ(items.text(L"Shape"), L"Sphere");
    EXPECT_FALSE(document.isDirty());
}

TEST_F(Screen, SevenShapesAreStored) {
    for (const wchar_t* shape : {L"Test", L"VRML", L"Toroid", L"Ruled", L"Cylinder", L"Sphere", L"Flat"}) {
        screen.setShape(shape);
        EXPECT_EQ(items.text(L"Shape"), shape);
        EXPECT_EQ(screen.getShape(), shape);
    }
}

TEST_F(Screen, UnknownStoredShapeIsGivenAsItIs) {
    items.putClean(L"Shape", L"Cube");
    EXPECT_EQ(screen.getShape(), L"Cube");
}

TEST_F(Screen, UnknownLengthUnitsAreIgnored) {
    screen.setScreenFileLengthUnit(L"Pixels");
    EXPECT_FALSE(document.doesSectionExist(L"Screen", L""));
    EXPECT_EQ(screen.getScreenFileLengthUnit(), L"Meters");
    screen.setScreenFileLengthUnit(L"Feet");
    for (const wchar_t* unit : {L"Pixels", L"Percent", L"Degrees", L"Radians", L"Arc Minutes", L"feet", L"ft", L""})
        screen.setScreenFileLengthUnit(unit);
    EXPECT_EQ(items.text(L"File_Length_Unit"), L"Feet");
}

TEST_F(Screen, SixLengthUnitsAreStored) {
    for (const wchar_t* unit : {L"Millimeters", L"Centimeters", L"Inches", L"Feet", L"Meters", L"Custom"}) {
        screen.setScreenFileLengthUnit(unit);
        EXPECT_EQ(items.text(L"File_Length_Unit"), unit);
        EXPECT_EQ(screen.getScreenFileLengthUnit(), unit);
    }
}

TEST_F(Screen, DefaultsEqualTheVocabulary) {
    EXPECT_EQ(screen.getShape(), BaseConfig::SHAPE_FLAT);
    EXPECT_EQ(screen.getScreenImportAxisForward(), BaseConfig::AXIS_POS_Y);
    EXPECT_EQ(screen.getScreenImportAxisUpward(), BaseConfig::AXIS_POS_Z);
    EXPECT_EQ(screen.getScreenFileLengthUnit(), BaseConfig::UNIT_DEFAULT());
}

TEST_F(Screen, CheckerboardItemsAreNested) {
    screen.setCheckerboardGridSizeRows(6);
    screen.setCheckerboardGridSizeCols(9);
    screen.setCheckerboardBoxDimension(0.5);
    EXPECT_EQ(itemsOf(document, L"Screen"),
              (Texts{L"Checkerboard_Calibration = <Grid_Size><Rows>6</Rows><Columns>9</Columns></Grid_Size>"
                     L"<Box_Dimension>5.000000000000000e-01</Box_Dimension>"}));
}

TEST_F(Screen, AccessorUsesTheGivenSectionID) {
    ScreenConfig first(&document, assets, L"1");
    ScreenConfig second(&document, assets, L"2");
    second.setShape(L"Ruled");
    second.setMeshPath(L"/shows/b.wrl", relative);
    second.setCalibrationPoints({{1, 2, 3}});
    second.setSizeDefinition(ScreenConfig::SizeFromFile);
    first.initialize();
    EXPECT_EQ(first.getShape(), L"Flat");
    EXPECT_EQ(storedText(document, L"Screen", L"VRML", L"2"), L"b.wrl");
    EXPECT_EQ(second.getShape(), L"Ruled");
    EXPECT_EQ(second.getCalibrationPoints().size(), 1u);
    EXPECT_TRUE(second.isSizeDeterminedFromFile());
    EXPECT_TRUE(first.getCalibrationPoints().empty());
}

TEST_F(Screen, InterfaceReachesTheSection) {
    IScreenConfig& surface = screen;
    surface.setCalibrationPoints({{1, 2, 3}});
    screen.setHeight(4.0);
    EXPECT_EQ(surface.getCalibrationPoints(), (Points{{1, 2, 3}}));
    EXPECT_EQ(surface.getHeight(), 4.0);
    EXPECT_EQ(surface.getShape(), L"Flat");
}

#ifdef TESTS_KNOW_VIRTUAL_SLOTS
TEST(IScreenConfig, VirtualMembersStandInTheirOrder) {
    using I = IScreenConfig;
    EXPECT_EQ(misplacedSlots(2, {NAMED_SLOT(I, getCalibrationPoints),
                                 NAMED_SLOT(I, getShape),
                                 NAMED_SLOT(I, getCenterPoint),
                                 NAMED_SLOT(I, getWidth),
                                 NAMED_SLOT(I, getHeight),
                                 NAMED_SLOT(I, getRadius),
                                 NAMED_SLOT(I, getMinTheta),
                                 NAMED_SLOT(I, getMaxTheta),
                                 NAMED_SLOT(I, getMinPhi),
                                 NAMED_SLOT(I, getMaxPhi),
                                 NAMED_SLOT(I, getMeasuredMeshPath),
                                 NAMED_SLOT(I, getMeshPath),
                                 NAMED_SLOT(I, getPCDPath),
                                 NAMED_SLOT(I, getScreenImportAxisForward),
                                 NAMED_SLOT(I, getScreenImportAxisUpward),
                                 NAMED_SLOT(I, setCalibrationPoints),
                                 NAMED_SLOT(I, getMarkedSurfaceImageSize),
                                 NAMED_SLOT(I, getSizeDefinition),
                                 NAMED_SLOT(I, isSizeDeterminedManually),
                                 NAMED_SLOT(I, isSizeDeterminedAutomatically),
                                 NAMED_SLOT(I, isSizeDeterminedFromFile),
                                 NAMED_SLOT(I, getScreenFileLengthUnit),
                                 NAMED_SLOT(I, getScreenFileCustomUnitScaleValue)}),
              "");
    EXPECT_EQ(slotCount<I>(), 25);
}

TEST(ScreenConfig, OwnMembersAreNotVirtual) {
    EXPECT_EQ(slotOf(&ScreenConfig::setShape), -1);
    EXPECT_EQ(slotOf(&ScreenConfig::getTopMask), -1);
    EXPECT_EQ(slotOf(&ScreenConfig::getMarkedSurfaceFilename), -1);
    EXPECT_EQ(slotOf(&ScreenConfig::updateRelativeFilePaths), -1);
    EXPECT_EQ(slotOf(&ScreenConfig::getMarkedSurfaceCalibrationPoints), -1);
    EXPECT_EQ(slotCount<ScreenConfig>(), 26) << "initialize() is the only one beside the interface's";
}

TEST(ScreenConfig, InterfaceComesFirst) {
    ScreenConfig screen(nullptr, nullptr, L"");
    EXPECT_EQ(static_cast<void*>(static_cast<IScreenConfig*>(&screen)), static_cast<void*>(&screen));
    EXPECT_EQ(sizeof(ScreenConfig), sizeof(IScreenConfig) + sizeof(BaseConfig) + sizeof(std::shared_ptr<AssetManager>));
}
#endif
