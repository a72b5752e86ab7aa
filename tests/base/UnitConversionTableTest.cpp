#include "base/UnitConversionTable.h"

#include <string>

#include <gtest/gtest.h>

#include "store/CorvaneException.h"
#include "tests/support/Thrown.h"

using Table = UnitConversionTable;

namespace {

struct Row {
    int subType;
    const wchar_t* name;
    const wchar_t* suffix;
    int unitType;
    double factor;
};

const Row rows[] = {
    {0, L"Meters", L"m", 5, 1.0},
    {1, L"Centimeters", L"cm", 5, 100.0},
    {2, L"Millimeters", L"mm", 5, 1000.0},
    {3, L"Feet", L"ft", 5, 3.2808399},
    {4, L"Inches", L"in", 5, 39.3700787},
    {5, L"Custom", L"u", 5, 1.0},
    {6, L"Radians", L"rad", 8, 1.0},
    {7, L"Degrees", L"\x00B0", 8, 57.29577951308232},
    {8, L"Arc Minutes", L"min", 8, 3437.7467707849396},
};

Table::UnitSubType subType(int value) { return static_cast<Table::UnitSubType>(value); }

const std::wstring invalidSubType = L"Invalid UnitSubType enum specified!";

}  // namespace

TEST(UnitConversionTable, EveryRowIsAsPublished) {
    ASSERT_EQ(std::size(Table::staticConversionsTable), std::size(rows));
    for (const Row& row : rows) {
        SCOPED_TRACE(row.subType);
        const Table::UnitSubTypeRecord& record = Table::staticConversionsTable[row.subType];
        EXPECT_EQ(record.subType, row.subType);
        EXPECT_EQ(record.unitType, row.unitType);
        EXPECT_EQ(std::wstring(record.name), row.name);
        EXPECT_EQ(std::wstring(record.suffix), row.suffix);
        EXPECT_EQ(record.factor, row.factor);
    }
}

TEST(UnitConversionTable, AccessorsGiveTheFieldsOfTheRow) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.subType);
        const Table::UnitSubType unit = subType(row.subType);
        EXPECT_EQ(std::wstring(Table::getUnitName(unit)), row.name);
        EXPECT_EQ(Table::getUnitWString(unit), row.name);
        EXPECT_EQ(std::wstring(Table::getUnitSuffix(unit)), row.suffix);
        EXPECT_EQ(Table::getUnitType(unit), row.unitType);
        EXPECT_EQ(Table::getUnitConversion(unit), row.factor);
        EXPECT_EQ(Table::getUnitSubTypeFromName(row.name), row.subType);
    }
}

TEST(UnitConversionTable, EnumeratorsHaveTheirNumbers) {
    EXPECT_EQ(Table::Meters, 0);
    EXPECT_EQ(Table::Centimeters, 1);
    EXPECT_EQ(Table::Millimeters, 2);
    EXPECT_EQ(Table::Feet, 3);
    EXPECT_EQ(Table::Inches, 4);
    EXPECT_EQ(Table::Custom, 5);
    EXPECT_EQ(Table::Radians, 6);
    EXPECT_EQ(Table::Degrees, 7);
    EXPECT_EQ(Table::ArcMinutes, 8);
    EXPECT_EQ(Table::UnknownUnitSubType, 9);
    EXPECT_EQ(Table::Length, 5);
    EXPECT_EQ(Table::Angle, 8);
}

TEST(UnitConversionTable, NamesAreComparedExactly) {
    EXPECT_EQ(Table::getUnitSubTypeFromName(L"Meters"), 0);
    EXPECT_EQ(Table::getUnitSubTypeFromName(L"Arc Minutes"), 8);
    for (const wchar_t* name : {L"meters", L"m", L"", L" Meters", L"Meters ", L"Meter", L"Arc", L"Percent"})
        EXPECT_EQ(Table::getUnitSubTypeFromName(name), 9) << std::string(name, name + std::wcslen(name));
    EXPECT_EQ(Table::getUnitSubTypeFromName(std::wstring(L"Meters\0", 7)), 9);
}

TEST(UnitConversionTable, AccessorsRefuseWhatIsNoRow) {
    for (const int value : {9, 10, -1, 2147483647, -2147483647 - 1}) {
        SCOPED_TRACE(value);
        const Table::UnitSubType unit = subType(value);
        EXPECT_EQ(messageOf([&] { Table::getUnitName(unit); }), invalidSubType);
        EXPECT_EQ(messageOf([&] { Table::getUnitWString(unit); }), invalidSubType);
        EXPECT_EQ(messageOf([&] { Table::getUnitSuffix(unit); }), invalidSubType);
        EXPECT_EQ(messageOf([&] { Table::getUnitType(unit); }), invalidSubType);
        EXPECT_EQ(messageOf([&] { Table::getUnitConversion(unit); }), invalidSubType);
        EXPECT_EQ(messageOf([&] { Table::convertValue(unit, Table::Meters, 1.0); }), invalidSubType);
        EXPECT_EQ(messageOf([&] { Table::convertValue(Table::Degrees, unit, 1.0); }), invalidSubType);
    }
}

TEST(UnitConversionTable, ValuesAreConvertedWithinTheirType) {
    EXPECT_EQ(Table::convertValue(Table::Meters, Table::Millimeters, 1.25), 1250.0);
    EXPECT_EQ(Table::convertValue(Table::Feet, Table::Inches, 2.0), 2.0 * (39.3700787 / 3.2808399));
    EXPECT_EQ(Table::convertValue(Table::Custom, Table::Centimeters, 3.0), 300.0);
    EXPECT_DOUBLE_EQ(Table::convertValue(Table::Degrees, Table::Radians, 180.0), 3.14159265358979323846);
    EXPECT_DOUBLE_EQ(Table::convertValue(Table::Degrees, Table::ArcMinutes, 1.5), 90.0);
    for (const Row& row : rows) EXPECT_EQ(Table::convertValue(subType(row.subType), subType(row.subType), 0.7), 0.7);
}

TEST(UnitConversionTable, LengthsAndAnglesDoNotMix) {
    const std::wstring message = L"Invalid conversion. To/from must be of the same type!";
    EXPECT_EQ(messageOf([] { Table::convertValue(Table::Meters, Table::Degrees, 1.0); }), message);
    EXPECT_EQ(messageOf([] { Table::convertValue(Table::ArcMinutes, Table::Custom, 1.0); }), message);
}
