#pragma once

#include <cstddef>
#include <string>

#include "platform/Export.h"

/// The measurement units that the library knows: display name, suffix and factor. Static data and pure functions, which may
/// be called from any thread.
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
        UnitSubType subType;    ///< its row number
        UnitType unitType;      ///< whether it measures lengths or angles
        const wchar_t* name;    ///< display name, as files hold it: "Meters"
        const wchar_t* suffix;  ///< what people write after a number: "m"
        double factor;          ///< how many of this unit make one meter or one radian; Custom counts as meters
    };
    static constexpr std::size_t size = 9;
    static const UnitSubTypeRecord staticConversionsTable[size];

    // Fields of a row. These throw CorvaneException "Invalid UnitSubType enum specified!" for a sub-type outside the table.

    static const wchar_t* getUnitName(const UnitSubType& subType);    ///< display name; lives as long as the process
    static std::wstring getUnitWString(const UnitSubType& subType);   ///< the same as getUnitName()
    static const wchar_t* getUnitSuffix(const UnitSubType& subType);  ///< suffix; lives as long as the process
    static UnitType getUnitType(const UnitSubType& subType);          ///< Length or Angle
    static double getUnitConversion(const UnitSubType& subType);      ///< factor: how many make one of meters or radians

    /// The sub-type of that exact display name, case counts; UnknownUnitSubType when there is none. Suffixes are no names.
    static UnitSubType getUnitSubTypeFromName(const std::wstring& name);
    /// `value`, given in the unit `from`, in the unit `to`: value * (factor(to) / factor(from)). Throws CorvaneException for
    /// a sub-type outside the table, and "Invalid conversion. To/from must be of the same type!" between a length and an
    /// angle.
    static double convertValue(const UnitSubType& from, const UnitSubType& to, const double& value);

private:
    /// Compiles only while the table has one row for each sub-type, in their order.
    static void staticAssertTableSize();
};
