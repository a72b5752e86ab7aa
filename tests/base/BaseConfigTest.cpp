#include "base/BaseConfig.h"

#include <cmath>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "tests/base/TestSection.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/DocumentTexts.h"
#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlots.h"

using XMLConfig::tests::storedText;

static_assert(std::is_abstract_v<BaseConfig> && std::has_virtual_destructor_v<BaseConfig>);
static_assert(!std::is_copy_constructible_v<BaseConfig> && !std::is_copy_assignable_v<BaseConfig>);
static_assert(!std::is_convertible_v<BaseConfig::Explicit<int>, int>);
static_assert(sizeof(BaseConfig::Explicit<int>) == sizeof(int), "the value and nothing else");

TEST(BaseConfig, VocabularyIsSpelledAsStored) {
    EXPECT_EQ(BaseConfig::AXIS_POS_X, L"X");
    EXPECT_EQ(BaseConfig::AXIS_POS_Y, L"Y");
    EXPECT_EQ(BaseConfig::AXIS_POS_Z, L"Z");
    EXPECT_EQ(BaseConfig::AXIS_NEG_X, L"-X");
    EXPECT_EQ(BaseConfig::AXIS_NEG_Y, L"-Y");
    EXPECT_EQ(BaseConfig::AXIS_NEG_Z, L"-Z");
    EXPECT_EQ(BaseConfig::SHAPE_CYLINDER, L"Cylinder");
    EXPECT_EQ(BaseConfig::SHAPE_FLAT, L"Flat");
    EXPECT_EQ(BaseConfig::SHAPE_RULED, L"Ruled");
    EXPECT_EQ(BaseConfig::SHAPE_SPHERE, L"Sphere");
    EXPECT_EQ(BaseConfig::SHAPE_TEST, L"Test");
    EXPECT_EQ(BaseConfig::SHAPE_TOROID, L"Toroid");
    EXPECT_EQ(BaseConfig::SHAPE_VRML, L"VRML");
    EXPECT_EQ(BaseConfig::TARGET_DATA_3D, L"3D");
    EXPECT_EQ(BaseConfig::TARGET_DATA_CUSTOM_PLANAR, L"Custom Planar");
    EXPECT_EQ(BaseConfig::TARGET_DATA_PLANAR_ADVANCED, L"Planar-advanced");
    EXPECT_EQ(BaseConfig::TARGET_DATA_PLANAR_BASIC, L"Planar-basic");
    EXPECT_EQ(BaseConfig::TARGET_DATA_PROJECTOR_CENTRIC, L"Projector Centric");
    EXPECT_EQ(BaseConfig::TARGET_DATA_PROJECTOR_POSE, L"Projector Pose");
    EXPECT_EQ(BaseConfig::TARGET_DATA_SPHERICAL, L"Spherical");
    EXPECT_EQ(BaseConfig::TARGET_DATA_SPHERICAL_COLLIMATED, L"Collimated");
    EXPECT_EQ(BaseConfig::INPUT_IMAGE_SCALING_MODE_FULLSIZE, 0);
    EXPECT_EQ(BaseConfig::INPUT_IMAGE_SCALING_MODE_NOSCALING, 1);
    EXPECT_EQ(BaseConfig::OUTPUT_DEFAULT, 0);
    EXPECT_EQ(BaseConfig::OUTPUT_MPAC, 2);
    EXPECT_EQ(BaseConfig::FilePathAbsolute, 0);
    EXPECT_EQ(BaseConfig::FilePathRelative, 1);
}

TEST(BaseConfig, UnitNamesAreSpelledAsStored) {
    EXPECT_EQ(BaseConfig::UNIT_METERS(), L"Meters");
    EXPECT_EQ(BaseConfig::UNIT_CENTIMETERS(), L"Centimeters");
    EXPECT_EQ(BaseConfig::UNIT_MILLIMETERS(), L"Millimeters");
    EXPECT_EQ(BaseConfig::UNIT_FEET(), L"Feet");
    EXPECT_EQ(BaseConfig::UNIT_INCHES(), L"Inches");
    EXPECT_EQ(BaseConfig::UNIT_CUSTOM(), L"Custom");
    EXPECT_EQ(BaseConfig::UNIT_DEFAULT(), L"Meters");
    EXPECT_EQ(BaseConfig::UNIT_PERCENT(), L"Percent");
    EXPECT_EQ(BaseConfig::UNIT_PIXELS(), L"Pixels");
    EXPECT_EQ(BaseConfig::ANGLE_UNIT_RADIANS(), L"Radians");
    EXPECT_EQ(BaseConfig::ANGLE_UNIT_DEGREES(), L"Degrees");
    EXPECT_EQ(BaseConfig::ANGLE_UNIT_DEFAULT(), L"Degrees");
    EXPECT_NE(&BaseConfig::UNIT_DEFAULT(), &BaseConfig::UNIT_METERS());
    EXPECT_EQ(&BaseConfig::UNIT_METERS(), &BaseConfig::UNIT_METERS());
}

TEST(BaseConfig, MeasurementsGoThroughMeters) {
    const TestSection section(nullptr);
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Meters", L"Millimeters", 1.5), 1500.0);
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Meters", L"Centimeters", 1.5), 150.0);
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Meters", L"Inches", 2.0), 2.0 * 39.3700787);
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Meters", L"Feet", 2.0), 2.0 * 3.2808399);
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Meters", L"Meters", 2.5), 2.5);
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Feet", L"Meters", 3.2808399), 1.0);
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Feet", L"Inches", 1.7), 1.7 / 3.2808399 * 39.3700787);
}

TEST(BaseConfig, UnknownMeasurementsDivideOrMultiplyByZero) {
    const TestSection section(nullptr);
    EXPECT_TRUE(std::isinf(BaseConfig::convertMeasurement(L"Custom", L"Meters", 1.0)));
    EXPECT_TRUE(std::isnan(BaseConfig::convertMeasurement(L"Custom", L"Meters", 0.0)));
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Meters", L"Custom", 5.0), 0.0);
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Meters", L"Percent", 5.0), 0.0);
    EXPECT_EQ(BaseConfig::convertMeasurement(L"Meters", L"Pixels", 5.0), 0.0);
    EXPECT_TRUE(std::isnan(BaseConfig::convertMeasurement(L"Custom", L"Custom", 5.0)));
}

TEST(BaseConfig, AnglesScaleByTheirPair) {
    const TestSection section(nullptr);
    EXPECT_DOUBLE_EQ(BaseConfig::convertAngle(L"Degrees", L"Radians", 180.0), 3.14159265358979323846);
    EXPECT_EQ(BaseConfig::convertAngle(L"Degrees", L"Radians", 2.0), 2.0 * 0.017453292519943295);
    EXPECT_EQ(BaseConfig::convertAngle(L"Radians", L"Degrees", 1.0), 57.29577951308232);
    EXPECT_EQ(BaseConfig::convertAngle(L"Degrees", L"Degrees", 5.0), 5.0);
    EXPECT_EQ(BaseConfig::convertAngle(L"Radians", L"Radians", 5.0), 5.0);
    EXPECT_EQ(BaseConfig::convertAngle(L"Meters", L"Feet", 1.0), 3.2808399);  // the map knows no kinds
}

TEST(BaseConfig, UnknownPairsOfAnglesGiveZero) {
    const TestSection section(nullptr);
    EXPECT_EQ(BaseConfig::convertAngle(L"Degrees", L"Meters", 5.0), 0.0);
    EXPECT_EQ(BaseConfig::convertAngle(L"degrees", L"Radians", 5.0), 0.0);
    EXPECT_EQ(BaseConfig::convertAngle(L"", L"", 5.0), 0.0);
}

// Run in a process of its own, where no section has been made yet.
TEST(BaseConfigDeathTest, ConversionsBeforeTheFirstSectionKnowNothing) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(
        {
            const bool unknownBefore = BaseConfig::convertAngle(L"Degrees", L"Degrees", 5.0) == 0.0 &&
                                       std::isnan(BaseConfig::convertMeasurement(L"Meters", L"Feet", 5.0));
            const TestSection section(nullptr);
            const bool knownAfter = BaseConfig::convertAngle(L"Degrees", L"Degrees", 5.0) == 5.0 &&
                                    BaseConfig::convertMeasurement(L"Meters", L"Feet", 1.0) == 3.2808399;
            std::_Exit(unknownBefore && knownAfter ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST(BaseConfig, ConstructionWritesNothing) {
    ConfigInfo document;
    const TestSection section(&document, L"2");
    EXPECT_EQ(section.getSectionName(), L"Test");
    EXPECT_EQ(section.getSectionID(), L"2");
    EXPECT_EQ(section.m_configInfo, &document);
    EXPECT_FALSE(document.doesSectionExist(L"Test", L"2"));
    EXPECT_FALSE(document.isDirty());
}

TEST(BaseConfig, WorksOnADocumentOfItsOwnWithoutOne) {
    TestSection first(nullptr);
    TestSection second(nullptr);
    ASSERT_NE(first.m_configInfo, nullptr);
    EXPECT_NE(first.m_configInfo, second.m_configInfo);
    first.set(L"Count", 5);
    EXPECT_EQ(first.get(L"Count", 7).value, 5);
    EXPECT_EQ(second.get(L"Count", 7).value, 7);
    EXPECT_EQ(first.getFileVersion(), XMLConfig::detail::latestFileVersion);
}

TEST(BaseConfig, FileVersionIsTheDocuments) {
    ConfigInfo document;
    document.setVersion(3.25);
    EXPECT_EQ(TestSection(&document).getFileVersion(), 3.25);
}

TEST(BaseConfig, ReadsGiveDefaultsAndCreateNothing) {
    ConfigInfo document;
    const TestSection section(&document);
    EXPECT_EQ(section.get(L"K", 7).value, 7);
    EXPECT_EQ(section.get(L"K", 1.5).value, 1.5);
    EXPECT_EQ(section.get(L"K", true).value, true);
    EXPECT_EQ(section.get(L"K", Point_2Dim<int>(1, 2)).value, (Point_2Dim<int>(1, 2)));
    EXPECT_EQ(section.get(L"K", Point_3Dim<double>(1, 2, 3)).value, (Point_3Dim<double>(1, 2, 3)));
    EXPECT_EQ(section.get(L"K", std::wstring(L"d")).value, L"d");
    EXPECT_EQ(section.get(L"K", L"literal").value, L"literal");
    EXPECT_FALSE(document.doesSectionExist(L"Test", L""));
    EXPECT_FALSE(document.isDirty());
}

TEST(BaseConfig, WritesAreStoredInTheFormsOfTheirTypes) {
    ConfigInfo document;
    TestSection section(&document, L"3");
    section.set(L"I", 12);
    section.set(L"D", 1.5);
    section.set(L"B", true);
    section.set(L"P2", Point_2Dim<int>(3, 4));
    section.set(L"P3", Point_3Dim<double>(1, 2, 3));
    section.set(L"A|B", std::wstring(L"text"));
    EXPECT_EQ(storedText(document, L"Test", L"I", L"3"), L"12");
    EXPECT_EQ(storedText(document, L"Test", L"D", L"3"), L"1.500000000000000e+00");
    EXPECT_EQ(storedText(document, L"Test", L"B", L"3"), L"true");
    EXPECT_EQ(storedText(document, L"Test", L"P2", L"3"), L"3, 4");
    EXPECT_EQ(storedText(document, L"Test", L"P3", L"3"),
              L"1.000000000000000e+00, 2.000000000000000e+00, 3.000000000000000e+00");
    EXPECT_EQ(storedText(document, L"Test", L"A|B", L"3"), L"text");
    EXPECT_TRUE(document.isDirty());
    EXPECT_EQ(section.get(L"I", 0).value, 12);
    EXPECT_EQ(section.get(L"D", 0.0).value, 1.5);
    EXPECT_EQ(section.get(L"B", false).value, true);
    EXPECT_EQ(section.get(L"P2", Point_2Dim<int>()).value, (Point_2Dim<int>(3, 4)));
    EXPECT_EQ(section.get(L"P3", Point_3Dim<double>()).value, (Point_3Dim<double>(1, 2, 3)));
    EXPECT_EQ(section.get(L"A|B", L"").value, L"text");
    EXPECT_EQ(document.getSectionCount(L"Test"), 1);
}

TEST(BaseConfig, RemovedSectionLeavesTheAccessorUsable) {
    ConfigInfo document;
    TestSection section(&document, L"1");
    EXPECT_FALSE(section.removeSection());
    section.set(L"I", 1);
    EXPECT_TRUE(section.removeSection());
    EXPECT_FALSE(document.doesSectionExist(L"Test", L"1"));
    EXPECT_EQ(section.getSectionID(), L"1");
    section.set(L"I", 2);
    EXPECT_EQ(storedText(document, L"Test", L"I", L"1"), L"2");
}

TEST(BaseConfig, MovedSectionSwapsWithItsNeighbour) {
    ConfigInfo document;
    TestSection first(&document, L"1");
    TestSection second(&document, L"2");
    first.set(L"I", 1);
    second.set(L"I", 2);
    EXPECT_FALSE(first.moveSection(-1));
    EXPECT_FALSE(first.moveSection(0));
    EXPECT_FALSE(first.moveSection(2));
    EXPECT_TRUE(first.moveSection(1));
    EXPECT_EQ(document.getSectionIDs(L"Test"), (std::vector<std::wstring>{L"2", L"1"}));
}

TEST(BaseConfig, RenameNotesTheOldID) {
    ConfigInfo document;
    TestSection section(&document, L"1");
    section.set(L"I", 12);
    section.renameSection(L"3");
    EXPECT_EQ(section.getSectionID(), L"3");
    EXPECT_EQ(section.getSectionName(), L"Test");
    EXPECT_EQ(storedText(document, L"Test", L"OldSectionID", L"3"), L"1");
    EXPECT_EQ(storedText(document, L"Test", L"I", L"3"), L"12");
    EXPECT_FALSE(document.doesSectionExist(L"Test", L"1"));
    EXPECT_EQ(TestSection::oldSectionIDTagName(), L"OldSectionID");
}

TEST(BaseConfig, RenameWithoutASectionStillNotesTheOldID) {
    ConfigInfo document;
    TestSection section(&document, L"1");
    section.renameSection(L"3");
    EXPECT_EQ(section.getSectionID(), L"3");
    EXPECT_EQ(storedText(document, L"Test", L"OldSectionID", L"3"), L"1");
    EXPECT_EQ(document.getSectionCount(L"Test"), 1);
}

TEST(BaseConfig, RenameAgainNotesTheLastID) {
    ConfigInfo document;
    TestSection section(&document, L"1");
    section.set(L"I", 12);
    section.renameSection(L"3");
    section.renameSection(section.getSectionID() + L"b");
    EXPECT_EQ(storedText(document, L"Test", L"OldSectionID", L"3b"), L"3");
    EXPECT_EQ(document.getSectionCount(L"Test"), 1);
}

TEST(BaseConfig, RefusedRenameChangesNothing) {
    ConfigInfo document;
    TestSection section(&document, L"1");
    section.set(L"I", 12);
    const std::wstring message = messageOf([&] { section.renameSection(L"a\x0001z"); });
    EXPECT_EQ(message.rfind(L"Error renameSection: ", 0), 0u);
    EXPECT_EQ(section.getSectionID(), L"1");
    EXPECT_EQ(storedText(document, L"Test", L"I", L"1"), L"12");
    EXPECT_EQ(storedText(document, L"Test", L"OldSectionID", L"1"), std::nullopt);
}

#if defined(TESTS_KNOW_VIRTUAL_SLOTS)
TEST(BaseConfig, VirtualMembersStandInOrder) {
    EXPECT_EQ(slotOf(&BaseConfig::initialize), 2);  // after the destructor's two places
    EXPECT_EQ(slotCount<BaseConfig>(), 3);
}
#endif
