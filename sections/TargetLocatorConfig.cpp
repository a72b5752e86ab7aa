#include "sections/TargetLocatorConfig.h"

#include "sections/CorrectionTables.h"
#include "sections/TargetLocatorItems.h"
#include "store/Together.h"

static constexpr auto& items = XMLConfig::detail::targetLocatorItems;
using XMLConfig::detail::correctionTableFromText;
using XMLConfig::detail::correctionTableText;

namespace {

// The reader of the data type is not const in the interface, although it changes nothing in the accessor.
std::wstring dataTypeOf(const TargetLocatorConfig& config) { return const_cast<TargetLocatorConfig&>(config).getDataType(); }

}  // namespace

TargetLocatorConfig::TargetLocatorConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, items.section, sectionID) {}

TargetLocatorConfig::~TargetLocatorConfig() = default;

// Calls the setters one by one, because a subclass may have replaced some of them.
void TargetLocatorConfig::initialize() {
    XMLConfig::detail::together(*m_configInfo, [&] {
        setDataType(items.dataType.initial);
        setEyePoint(items.eyePoint.initial);
        setLeftInset(items.leftInset.initial);
        setRightInset(items.rightInset.initial);
        setTopInset(items.topInset.initial);
        setBottomInset(items.bottomInset.initial);
        setHorizontalOverlap(items.horizontalOverlap.initial);
        setVerticalOverlap(items.verticalOverlap.initial);
        setMirrorRotation(items.mirrorRotation.initial);
        setMirrorTranslation(items.mirrorTranslation.initial);
        setMirrorRadius(items.mirrorRadius.initial);
        setOverlapDisplayUnit(items.overlapDisplayUnit.initial);
    });
}

Point_3Dim<double> TargetLocatorConfig::getEyePoint() { return read(items.eyePoint).value; }
void TargetLocatorConfig::setEyePoint(const Point_3Dim<double>& value) { write(items.eyePoint, value); }

double TargetLocatorConfig::getLeftInset() const { return read(items.leftInset).value; }
void TargetLocatorConfig::setLeftInset(double value) { write(items.leftInset, value); }

double TargetLocatorConfig::getRightInset() const { return read(items.rightInset).value; }
void TargetLocatorConfig::setRightInset(double value) { write(items.rightInset, value); }

double TargetLocatorConfig::getTopInset() const { return read(items.topInset).value; }
void TargetLocatorConfig::setTopInset(double value) { write(items.topInset, value); }

double TargetLocatorConfig::getBottomInset() const { return read(items.bottomInset).value; }
void TargetLocatorConfig::setBottomInset(double value) { write(items.bottomInset, value); }

double TargetLocatorConfig::getHorizontalOverlap() const { return read(items.horizontalOverlap).value; }
void TargetLocatorConfig::setHorizontalOverlap(double value) { write(items.horizontalOverlap, value); }

double TargetLocatorConfig::getVerticalOverlap() const { return read(items.verticalOverlap).value; }
void TargetLocatorConfig::setVerticalOverlap(double value) { write(items.verticalOverlap, value); }

std::wstring TargetLocatorConfig::getOverlapDisplayUnit() { return read(items.overlapDisplayUnit).value; }
void TargetLocatorConfig::setOverlapDisplayUnit(const std::wstring& value) { write(items.overlapDisplayUnit, value); }

Point_3Dim<double> TargetLocatorConfig::getMirrorRotation() { return read(items.mirrorRotation).value; }
void TargetLocatorConfig::setMirrorRotation(const Point_3Dim<double>& value) { write(items.mirrorRotation, value); }

Point_3Dim<double> TargetLocatorConfig::getMirrorTranslation() { return read(items.mirrorTranslation).value; }
void TargetLocatorConfig::setMirrorTranslation(const Point_3Dim<double>& value) { write(items.mirrorTranslation, value); }

double TargetLocatorConfig::getMirrorRadius() const { return read(items.mirrorRadius).value; }
void TargetLocatorConfig::setMirrorRadius(double value) { write(items.mirrorRadius, value); }

// The data type: an older name is replaced on reading, an unknown one refused on writing.

std::wstring TargetLocatorConfig::getDataType() {
    std::wstring type = read(items.dataType).value;
    if (type != TARGET_DATA_PROJECTOR_POSE) return type;
    write(items.dataType, TARGET_DATA_PROJECTOR_CENTRIC);
    return TARGET_DATA_PROJECTOR_CENTRIC;
}

bool TargetLocatorConfig::setDataType(const std::wstring& type) {
    if (!items.dataType.facts.hasWord(type)) return false;
    write(items.dataType, type);
    return true;
}

bool TargetLocatorConfig::isTargetDataSpherical() const {
    const std::wstring type = dataTypeOf(*this);
    return type == TARGET_DATA_SPHERICAL || type == TARGET_DATA_SPHERICAL_COLLIMATED;
}

bool TargetLocatorConfig::isTargetDataProjectorCentric() const { return dataTypeOf(*this) == TARGET_DATA_PROJECTOR_CENTRIC; }

bool TargetLocatorConfig::isTargetDataCustomPlanar() const { return dataTypeOf(*this) == TARGET_DATA_CUSTOM_PLANAR; }

// Correction tables.

std::vector<std::pair<double, double>> TargetLocatorConfig::getHorizontalCorrectionTable() {
    return correctionTableFromText(read(items.horizontalCorrectionTable).value);
}
void TargetLocatorConfig::setHorizontalCorrectionTable(const std::vector<std::pair<double, double>>& table) {
    write(items.horizontalCorrectionTable, correctionTableText(table));
}

std::vector<std::pair<double, double>> TargetLocatorConfig::getVerticalCorrectionTable() {
    return correctionTableFromText(read(items.verticalCorrectionTable).value);
}
void TargetLocatorConfig::setVerticalCorrectionTable(const std::vector<std::pair<double, double>>& table) {
    write(items.verticalCorrectionTable, correctionTableText(table));
}
