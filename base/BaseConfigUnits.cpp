#include <mutex>

#include "base/BaseConfig.h"
#include "base/UnitConversionTable.h"
#include "platform/Early.h"

XMLCONFIG_EARLY std::map<std::wstring, double> BaseConfig::m_conversionMap;
bool BaseConfig::m_conversionMapSetup = false;

namespace {

using Table = UnitConversionTable;

// Accessors of different documents may be made in different threads at the same time, and each fills the map.
std::mutex& conversionMapLock() {
    static std::mutex lock;
    return lock;
}

std::wstring pairOf(const std::wstring& fromUnit, const std::wstring& toUnit) { return fromUnit + L":" + toUnit; }

}  // namespace

const std::wstring& BaseConfig::UNIT_METERS() {
    static const std::wstring name = Table::getUnitName(Table::Meters);
    return name;
}

const std::wstring& BaseConfig::UNIT_CENTIMETERS() {
    static const std::wstring name = Table::getUnitName(Table::Centimeters);
    return name;
}

const std::wstring& BaseConfig::UNIT_MILLIMETERS() {
    static const std::wstring name = Table::getUnitName(Table::Millimeters);
    return name;
}

const std::wstring& BaseConfig::UNIT_FEET() {
    static const std::wstring name = Table::getUnitName(Table::Feet);
    return name;
}

const std::wstring& BaseConfig::UNIT_INCHES() {
    static const std::wstring name = Table::getUnitName(Table::Inches);
    return name;
}

const std::wstring& BaseConfig::UNIT_CUSTOM() {
    static const std::wstring name = Table::getUnitName(Table::Custom);
    return name;
}

const std::wstring& BaseConfig::UNIT_DEFAULT() {
    static const std::wstring name = UNIT_METERS();
    return name;
}

const std::wstring& BaseConfig::UNIT_PERCENT() {
    static const std::wstring name = L"Percent";
    return name;
}

const std::wstring& BaseConfig::UNIT_PIXELS() {
    static const std::wstring name = L"Pixels";
    return name;
}

const std::wstring& BaseConfig::ANGLE_UNIT_RADIANS() {
    static const std::wstring name = Table::getUnitName(Table::Radians);
    return name;
}

const std::wstring& BaseConfig::ANGLE_UNIT_DEGREES() {
    static const std::wstring name = Table::getUnitName(Table::Degrees);
    return name;
}

const std::wstring& BaseConfig::ANGLE_UNIT_DEFAULT() {
    static const std::wstring name = ANGLE_UNIT_DEGREES();
    return name;
}

double BaseConfig::convertAngle(const std::wstring& fromUnit, const std::wstring& toUnit, double value) {
    const std::lock_guard<std::mutex> guard(conversionMapLock());
    return value * m_conversionMap[pairOf(fromUnit, toUnit)];
}

double BaseConfig::convertMeasurement(const std::wstring& fromUnit, const std::wstring& toUnit, double value) {
    const std::lock_guard<std::mutex> guard(conversionMapLock());
    const double metersToSource = m_conversionMap[pairOf(UNIT_METERS(), fromUnit)];
    const double metersToTarget = m_conversionMap[pairOf(UNIT_METERS(), toUnit)];
    return value / metersToSource * metersToTarget;
}

void BaseConfig::setupConversionMap() {
    const std::lock_guard<std::mutex> guard(conversionMapLock());
    if (m_conversionMapSetup) return;
    m_conversionMap[pairOf(UNIT_METERS(), UNIT_MILLIMETERS())] = 1000.0;
    m_conversionMap[pairOf(UNIT_METERS(), UNIT_CENTIMETERS())] = 100.0;
    m_conversionMap[pairOf(UNIT_METERS(), UNIT_INCHES())] = 39.3700787;
    m_conversionMap[pairOf(UNIT_METERS(), UNIT_FEET())] = 3.2808399;
    m_conversionMap[pairOf(UNIT_METERS(), UNIT_METERS())] = 1.0;
    m_conversionMap[pairOf(ANGLE_UNIT_DEGREES(), ANGLE_UNIT_DEGREES())] = 1.0;
    m_conversionMap[pairOf(ANGLE_UNIT_RADIANS(), ANGLE_UNIT_RADIANS())] = 1.0;
    m_conversionMap[pairOf(ANGLE_UNIT_DEGREES(), ANGLE_UNIT_RADIANS())] = 0.017453292519943295;
    m_conversionMap[pairOf(ANGLE_UNIT_RADIANS(), ANGLE_UNIT_DEGREES())] = 57.29577951308232;
    m_conversionMapSetup = true;
}
