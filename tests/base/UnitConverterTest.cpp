#include "base/UnitConverter.h"

#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "store/CorvaneException.h"
#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlots.h"

using Table = UnitConversionTable;

namespace {

const std::wstring foreignSubType = L"Invalid IUnitConverter::UnitSubType given to this Converter!";
const std::wstring badOrder = L"Invalid Order given to this Converter!";

template <typename Converter>
std::wstring constructing(int subType, int order) {
    return messageOf([&] { Converter(static_cast<Table::UnitSubType>(subType), order); });
}

}  // namespace

static_assert(std::is_same_v<LengthConverter, UnitConverter<5, 0, 5>>);
static_assert(std::is_same_v<AngleConverter, UnitConverter<8, 6, 8>>);
static_assert(std::has_virtual_destructor_v<IUnitConverter>);

TEST(UnitConverter, ReportsWhatItWasBuiltWith) {
    UnitConverter<5, 0, 5> lengths(Table::Feet, 3);
    EXPECT_EQ(lengths.getNativeUnitType(), 5);
    EXPECT_EQ(lengths.getNativeUnitSubType(), 3);
    EXPECT_EQ(lengths.getUnitOrder(), 3);
    EXPECT_EQ((UnitConverter<5, 0, 5>::m_nativeType), 5);
    UnitConverter<8, 6, 8> angles(Table::ArcMinutes, 1);
    EXPECT_EQ(angles.getNativeUnitType(), 8);
    EXPECT_EQ(angles.getNativeUnitSubType(), 8);
    EXPECT_EQ(angles.getUnitOrder(), 1);
    EXPECT_EQ((UnitConverter<8, 6, 8>::m_nativeType), 8);
}

TEST(UnitConverter, LinearValuesScaleOnce) {
    const LengthConverter meters(Table::Meters, 1);
    EXPECT_DOUBLE_EQ(meters.getNativeFromTarget(250.0, Table::Centimeters), 2.5);
    EXPECT_DOUBLE_EQ(meters.getTargetFromNative(2.5, Table::Centimeters), 250.0);
    const AngleConverter degrees(Table::Degrees, 1);
    EXPECT_DOUBLE_EQ(degrees.getNativeFromTarget(90.0, Table::ArcMinutes), 1.5);
    EXPECT_DOUBLE_EQ(degrees.getTargetFromNative(180.0, Table::Radians), 3.14159265358979323846);
}

TEST(UnitConverter, SquaresScaleTwice) {
    const LengthConverter meters(Table::Meters, 2);
    EXPECT_DOUBLE_EQ(meters.getNativeFromTarget(10000.0, Table::Centimeters), 1.0);
    EXPECT_EQ(meters.getTargetFromNative(1.0, Table::Centimeters), 10000.0);
    const double ratio = 39.3700787 / 3.2808399;
    EXPECT_EQ(LengthConverter(Table::Feet, 2).getTargetFromNative(1.7, Table::Inches), ratio * ratio * 1.7);
}

TEST(UnitConverter, HigherOrdersArePowers) {
    EXPECT_DOUBLE_EQ(LengthConverter(Table::Meters, 3).getTargetFromNative(2.0, Table::Centimeters), 2.0e6);
    EXPECT_DOUBLE_EQ(LengthConverter(Table::Meters, 3).getNativeFromTarget(2.0e6, Table::Centimeters), 2.0);
    EXPECT_DOUBLE_EQ(LengthConverter(Table::Meters, 4).getTargetFromNative(2.0, Table::Centimeters), 2.0e8);
    EXPECT_DOUBLE_EQ(LengthConverter(Table::Meters, 4).getNativeFromTarget(2.0e8, Table::Centimeters), 2.0);
}

TEST(UnitConverter, ConstructionRefusesForeignUnits) {
    for (const int subType : {6, 7, 8, 9, -1})
        EXPECT_EQ(constructing<LengthConverter>(subType, 1), foreignSubType) << subType;
    for (const int subType : {0, 5, 9, -1}) EXPECT_EQ(constructing<AngleConverter>(subType, 1), foreignSubType) << subType;
    for (const int subType : {0, 1, 2, 3, 4, 5})
        EXPECT_NO_THROW(LengthConverter(static_cast<Table::UnitSubType>(subType), 1));
    for (const int subType : {6, 7, 8}) EXPECT_NO_THROW(AngleConverter(static_cast<Table::UnitSubType>(subType), 1));
}

TEST(UnitConverter, ConstructionRefusesOrdersOutsideOneToFour) {
    for (const int order : {0, 5, -1}) EXPECT_EQ(constructing<AngleConverter>(7, order), badOrder) << order;
    for (const int order : {1, 2, 3, 4}) EXPECT_NO_THROW(AngleConverter(Table::Degrees, order)) << order;
}

TEST(UnitConverter, ForeignUnitIsReportedBeforeBadOrder) { EXPECT_EQ(constructing<AngleConverter>(0, 0), foreignSubType); }

TEST(UnitConverter, ConversionsRefuseForeignTargets) {
    const AngleConverter angles(Table::Degrees, 1);
    EXPECT_EQ(messageOf([&] { angles.getNativeFromTarget(1.0, Table::Meters); }), foreignSubType);
    EXPECT_EQ(messageOf([&] { angles.getTargetFromNative(1.0, Table::Meters); }), foreignSubType);
    const LengthConverter lengths(Table::Meters, 2);
    EXPECT_EQ(messageOf([&] { lengths.getNativeFromTarget(1.0, Table::Radians); }), foreignSubType);
    EXPECT_EQ(messageOf([&] { lengths.getTargetFromNative(1.0, Table::UnknownUnitSubType); }), foreignSubType);
}

TEST(UnitConverter, DestroysThroughTheInterface) {
    const std::unique_ptr<IUnitConverter> converter = std::make_unique<LengthConverter>(Table::Inches, 1);
    EXPECT_EQ(converter->getNativeUnitSubType(), 4);
}

#if defined(TESTS_KNOW_VIRTUAL_SLOTS)
TEST(UnitConverter, VirtualMembersStandInOrder) {
    EXPECT_EQ(
        misplacedSlots(0, {NAMED_SLOT(IUnitConverter, getNativeFromTarget), NAMED_SLOT(IUnitConverter, getTargetFromNative),
                           NAMED_SLOT(IUnitConverter, getNativeUnitType), NAMED_SLOT(IUnitConverter, getNativeUnitSubType),
                           NAMED_SLOT(IUnitConverter, getUnitOrder)}),
        "");
    EXPECT_EQ(slotCount<IUnitConverter>(), 7);  // the destructor's two places come last
}
#endif
