#include "base/UnitConverter.h"

#include <cmath>

#include "store/CorvaneException.h"

namespace {

double factorOf(UnitConversionTable::UnitSubType subType) { return UnitConversionTable::getUnitConversion(subType); }

// A square is multiplied out, because pow() need not round in the same way.
double scaled(double ratio, int order, double value) {
    return order == 2 ? ratio * ratio * value : std::pow(ratio, order) * value;
}

void requireWithin(int subType, int first, int last) {
    if (subType < first || subType > last)
        throw CorvaneException(L"Invalid IUnitConverter::UnitSubType given to this Converter!");
}

}  // namespace

IUnitConverter::~IUnitConverter() = default;

template <int N, int M, int K>
UnitConverter<N, M, K>::UnitConverter(const UnitSubType& nativeSubType, int order)
    : m_order(order), m_nativeSubType(nativeSubType) {
    requireWithin(nativeSubType, M, K);
    if (order < 1 || order > 4) throw CorvaneException(L"Invalid Order given to this Converter!");
}

template <int N, int M, int K>
double UnitConverter<N, M, K>::getNativeFromTarget(const double& value, const UnitSubType& targetSubType) const {
    requireWithin(targetSubType, M, K);
    return scaled(factorOf(m_nativeSubType) / factorOf(targetSubType), m_order, value);
}

template <int N, int M, int K>
double UnitConverter<N, M, K>::getTargetFromNative(const double& value, const UnitSubType& targetSubType) const {
    requireWithin(targetSubType, M, K);
    return scaled(factorOf(targetSubType) / factorOf(m_nativeSubType), m_order, value);
}

template <int N, int M, int K>
IUnitConverter::UnitType UnitConverter<N, M, K>::getNativeUnitType() {
    return m_nativeType;
}

template <int N, int M, int K>
IUnitConverter::UnitSubType UnitConverter<N, M, K>::getNativeUnitSubType() {
    return m_nativeSubType;
}

template <int N, int M, int K>
int UnitConverter<N, M, K>::getUnitOrder() const {
    return m_order;
}

template class UnitConverter<5, 0, 5>;
template class UnitConverter<8, 6, 8>;
