#include "base/UnitConversionTable.h"

#include "store/CorvaneException.h"

// Names are stored in files: do not change.
constexpr UnitConversionTable::UnitSubTypeRecord UnitConversionTable::staticConversionsTable[size] = {
    {Meters, Length, L"Meters", L"m", 1.0},
    {Centimeters, Length, L"Centimeters", L"cm", 100.0},
    {Millimeters, Length, L"Millimeters", L"mm", 1000.0},
    {Feet, Length, L"Feet", L"ft", 3.2808399},
    {Inches, Length, L"Inches", L"in", 39.3700787},
    {Custom, Length, L"Custom", L"u", 1.0},
    {Radians, Angle, L"Radians", L"rad", 1.0},
    {Degrees, Angle, L"Degrees", L"\u00B0", 57.29577951308232},
    {ArcMinutes, Angle, L"Arc Minutes", L"min", 3437.7467707849396},
};

namespace {

using Table = UnitConversionTable;

const Table::UnitSubTypeRecord& rowOf(Table::UnitSubType subType) {
    if (static_cast<unsigned>(subType) >= Table::size) throw CorvaneException(L"Invalid UnitSubType enum specified!");
    return Table::staticConversionsTable[subType];
}

constexpr bool isRow(const Table::UnitSubTypeRecord& row, std::size_t index) {
    return static_cast<std::size_t>(row.subType) == index && row.name != nullptr && row.suffix != nullptr &&
           row.factor > 0.0;
}

}  // namespace

void UnitConversionTable::staticAssertTableSize() {
    static_assert(size == UnknownUnitSubType, "one row for each sub-type");
    static_assert(sizeof(staticConversionsTable) == UnknownUnitSubType * sizeof(UnitSubTypeRecord),
                  "one row for each sub-type");
    static_assert(isRow(staticConversionsTable[0], 0) && isRow(staticConversionsTable[1], 1) &&
                      isRow(staticConversionsTable[2], 2) && isRow(staticConversionsTable[3], 3) &&
                      isRow(staticConversionsTable[4], 4) && isRow(staticConversionsTable[5], 5) &&
                      isRow(staticConversionsTable[6], 6) && isRow(staticConversionsTable[7], 7) &&
                      isRow(staticConversionsTable[8], 8),
                  "a row's place is its sub-type");
}

const wchar_t* UnitConversionTable::getUnitName(const UnitSubType& subType) { return rowOf(subType).name; }

std::wstring UnitConversionTable::getUnitWString(const UnitSubType& subType) { return rowOf(subType).name; }

const wchar_t* UnitConversionTable::getUnitSuffix(const UnitSubType& subType) { return rowOf(subType).suffix; }

UnitConversionTable::UnitType UnitConversionTable::getUnitType(const UnitSubType& subType) {
    return rowOf(subType).unitType;
}

double UnitConversionTable::getUnitConversion(const UnitSubType& subType) { return rowOf(subType).factor; }

UnitConversionTable::UnitSubType UnitConversionTable::getUnitSubTypeFromName(const std::wstring& name) {
    for (const UnitSubTypeRecord& row : staticConversionsTable)
        if (name == row.name) return row.subType;
    return UnknownUnitSubType;
}

double UnitConversionTable::convertValue(const UnitSubType& from, const UnitSubType& to, const double& value) {
    if (getUnitType(from) != getUnitType(to))
        throw CorvaneException(L"Invalid conversion. To/from must be of the same type!");
    return value * (getUnitConversion(to) / getUnitConversion(from));
}
