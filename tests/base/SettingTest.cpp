#include "base/Setting.h"

#include <cmath>

#include <gtest/gtest.h>

using XMLConfig::Range;
using XMLConfig::Setting;

TEST(Setting, TypesUnitsAndClassesHaveNames) {
    EXPECT_STREQ(nameOf(XMLConfig::SettingType::Bool), L"bool");
    EXPECT_STREQ(nameOf(XMLConfig::SettingType::Element), L"XML element");
    EXPECT_STREQ(nameOf(XMLConfig::SettingType::Path), L"path");
    EXPECT_STREQ(nameOf(XMLConfig::SettingType::MarkerPlaces), L"calibration points");
    EXPECT_STREQ(nameOf(XMLConfig::SettingType::AxisTable), L"axis table");
    EXPECT_STREQ(nameOf(XMLConfig::Unit::None), L"");
    EXPECT_STREQ(nameOf(XMLConfig::Unit::Radians), L"radians");
    EXPECT_STREQ(nameOf(XMLConfig::Unit::Pixels), L"pixels");
    EXPECT_STREQ(nameOf(XMLConfig::Unit::EpochSeconds), L"seconds since 1970-01-01 UTC");
    EXPECT_STREQ(nameOf(XMLConfig::Unit::Lumens), L"lumens");
    EXPECT_STREQ(nameOf(XMLConfig::SettingClass::Rest), L"rest");
    EXPECT_STREQ(nameOf(XMLConfig::SettingClass::Identity), L"identity");
    EXPECT_STREQ(nameOf(XMLConfig::SettingClass::Channel), L"channel");
    EXPECT_STREQ(nameOf(XMLConfig::SettingClass::Place), L"place");
}

TEST(Setting, NumbersAreTheTypesOfOneNumberAndOfPoints) {
    using XMLConfig::SettingType;
    for (const SettingType type :
         {SettingType::Int, SettingType::Double, SettingType::IntPoint2, SettingType::Point2, SettingType::Point3})
        EXPECT_TRUE(isNumbers(type)) << static_cast<int>(type);
    for (const SettingType type : {SettingType::Bool, SettingType::Text, SettingType::Frustum, SettingType::FourIntegers,
                                   SettingType::IntegerPairs, SettingType::AxisTable})
        EXPECT_FALSE(isNumbers(type)) << static_cast<int>(type);
}

TEST(Setting, RangesHoldTheirEndsUnlessTheyAreOpen) {
    const Range closed{0.0, 0.9, false, false};
    EXPECT_TRUE(contains(closed, 0.0) && contains(closed, 0.9) && contains(closed, 0.5));
    EXPECT_FALSE(contains(closed, -1e-9) || contains(closed, 0.91));
    const Range open{0.0, 1.0, true, false};
    EXPECT_FALSE(contains(open, 0.0));
    EXPECT_TRUE(contains(open, 1e-300) && contains(open, 1.0));
    EXPECT_FALSE(contains(closed, std::nan("")) || contains(Range{}, std::nan("")));
    EXPECT_TRUE(contains(Range{}, -1e308) && contains(Range{}, 1e308));
}

TEST(Setting, RangesAreReadable) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(textOf(Range{0.0, 100.0, false, false}), L"0 to 100");
    EXPECT_EQ(textOf(Range{0.0, 0.9, false, false}), L"0 to 0.9");
    EXPECT_EQ(textOf(Range{0.0, 1.0, true, false}), L"above 0 to 1");
    EXPECT_EQ(textOf(Range{1.0, infinity, false, false}), L"1 and more");
    EXPECT_EQ(textOf(Range{0.0, infinity, true, false}), L"above 0");
}

TEST(Setting, ValuesAreReadable) {
    Setting setting;
    EXPECT_EQ(valuesText(setting), L"");
    setting.words = {L"", L"Single1", L"Dual"};
    EXPECT_EQ(valuesText(setting), L"\"\", Single1, Dual");
    setting.othersCountAs = L"";
    EXPECT_EQ(valuesText(setting), L"\"\", Single1, Dual; any other counts as \"\"");
    Setting solver;
    solver.numbers = {{0, L"linear"}, {2, L"default"}};
    solver.othersCountAs = L"2";
    EXPECT_EQ(valuesText(solver), L"0 linear, 2 default; any other counts as 2");
    Setting gamma;
    gamma.range = Range{1.0, 4.0, false, false};
    EXPECT_EQ(valuesText(gamma), L"1 to 4");
    gamma.range->ownJudgement = true;
    EXPECT_EQ(valuesText(gamma), L"1 to 4 is usual");
}

TEST(Setting, ConditionsAreReadable) {
    Setting setting;
    setting.section = L"Screen";
    EXPECT_EQ(conditionText(setting), L"");
    setting.countsWhile = XMLConfig::EffectCondition{L"", L"Shape", {L"Sphere", L"Toroid"}, false};
    EXPECT_EQ(conditionText(setting), L"Screen/Shape is not Sphere or Toroid");
    setting.countsWhile = XMLConfig::EffectCondition{L"System", L"RunType", {L"CinemaRun"}, true};
    EXPECT_EQ(conditionText(setting), L"System/RunType is CinemaRun");
}
