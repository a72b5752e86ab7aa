#pragma once

#include "base/UnitConversionTable.h"
#include "platform/Export.h"

/// Converts quantities of one kind to and from one native unit. The order of the virtual members is part of the interface.
class XMLCONFIG_API IUnitConverter {
public:
    using UnitSubType = UnitConversionTable::UnitSubType;
    using UnitType = UnitConversionTable::UnitType;

    /// A value in the target unit, given back in the native unit. Throws CorvaneException for a unit of another kind.
    virtual double getNativeFromTarget(const double& value, const UnitSubType& targetSubType) const = 0;
    /// A value in the native unit, given back in the target unit. Throws CorvaneException for a unit of another kind.
    virtual double getTargetFromNative(const double& value, const UnitSubType& targetSubType) const = 0;
    virtual UnitType getNativeUnitType() = 0;        ///< the kind: Length or Angle
    virtual UnitSubType getNativeUnitSubType() = 0;  ///< the native unit
    virtual int getUnitOrder() const = 0;            ///< power of the unit: 1 for lengths, 2 for areas, 3 for volumes, 4
    virtual ~IUnitConverter();
};

/// The converter of one kind of quantity: N is the unit type, M the first and K the last sub-type of that type. The order is
/// 1 for lengths (or angles), 2 for their squares, 3 for cubes, 4 for fourth powers. There are the two instances at the end
/// of this header.
template <int N, int M, int K>
class XMLCONFIG_API UnitConverter : public IUnitConverter {
public:
    static constexpr UnitType m_nativeType = static_cast<UnitType>(N);

    /// Throws CorvaneException "Invalid IUnitConverter::UnitSubType given to this Converter!" for a sub-type outside
    /// M..K, then "Invalid Order given to this Converter!" for an order outside 1..4.
    UnitConverter(const UnitSubType& nativeSubType, int order);

    /// A value in the target unit, given back in the native unit. Throws as the constructor for a foreign sub-type.
    double getNativeFromTarget(const double& value, const UnitSubType& targetSubType) const override;
    /// A value in the native unit, given back in the target unit. Throws as the constructor for a foreign sub-type.
    double getTargetFromNative(const double& value, const UnitSubType& targetSubType) const override;
    UnitType getNativeUnitType() override;        ///< N
    UnitSubType getNativeUnitSubType() override;  ///< what the constructor was given
    int getUnitOrder() const override;            ///< power of the unit, as the constructor was given it

private:
    int m_order;
    UnitSubType m_nativeSubType;
};

/// Converts lengths, areas, ...: meters to Custom, which counts as meters.
using LengthConverter = UnitConverter<UnitConversionTable::Length, UnitConversionTable::Meters, UnitConversionTable::Custom>;
/// Converts angles and their powers.
using AngleConverter =
    UnitConverter<UnitConversionTable::Angle, UnitConversionTable::Radians, UnitConversionTable::ArcMinutes>;

extern template class UnitConverter<5, 0, 5>;
extern template class UnitConverter<8, 6, 8>;
