#pragma once

#include <cstddef>
#include <string>

#include "platform/Export.h"

/// The measurement units the system knows: display name, suffix and factor. Static data and pure functions.
class XMLCONFIG_API UnitConversionTable {
public:
    /// Row numbers of the table; the last value stands for an unknown name.
    enum UnitSubType : int {
        Meters,
        Centimeters,
        Millimeters,
        Feet,
        Inches,
        Custom,
        Radians,
        Degrees,
        ArcMinutes,
        UnknownUnitSubType
    };
    /// Each type has the value of its last sub-type.
    enum UnitType : int { Length = 5, Angle = 8 };

    struct UnitSubTypeRecord {
        UnitSubType subType;
        UnitType unitType;
        const wchar_t* name;
        const wchar_t* suffix;
        double factor;  ///< how many of this unit make one meter or one radian
    };
    static constexpr std::size_t size = 9;
    static const UnitSubTypeRecord staticConversionsTable[size];

    // Fields of a row. Throw CorvaneException "Invalid UnitSubType enum specified!" for a sub-type outside the table.
    static const wchar_t* getUnitName(const UnitSubType& subType);
    static std::wstring getUnitWString(const UnitSubType& subType);
    static const wchar_t* getUnitSuffix(const UnitSubType& subType);
    static UnitType getUnitType(const UnitSubType& subType);
    static double getUnitConversion(const UnitSubType& subType);

    /// The sub-type of that exact display name; UnknownUnitSubType when there is none. Suffixes do not count.
    static UnitSubType getUnitSubTypeFromName(const std::wstring& name);
    /// value * (factor(to) / factor(from)). Throws CorvaneException for a sub-type outside the table, and
    /// "Invalid conversion. To/from must be of the same type!" between a length and an angle.
    static double convertValue(const UnitSubType& from, const UnitSubType& to, const double& value);

private:
    /// Compiles only while the table has one row for each sub-type, in their order.
    static void staticAssertTableSize();
};
