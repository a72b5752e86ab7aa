#include "sections/ScreenConfig.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/AssetManager.h"
#include "sections/ScreenItems.h"
#include "sections/ScreenTexts.h"
#include "store/CorvaneException.h"

namespace items = XMLConfig::detail::screenItems;

namespace {

// Some of the interface's readers are not const; of the accessor itself they change nothing.
IScreenConfig& interfaceOf(const ScreenConfig& screen) { return const_cast<ScreenConfig&>(screen); }

template <std::size_t N>
bool isOneOf(const std::wstring* const (&names)[N], const std::wstring& text) {
    return std::any_of(std::begin(names), std::end(names), [&](const std::wstring* name) { return *name == text; });
}

}  // namespace

ScreenConfig::ScreenConfig(ConfigInfo* configInfo, std::shared_ptr<AssetManager> assetManager, const std::wstring& sectionID)
    : BaseConfig(configInfo, items::sectionName, sectionID), m_assetManager(std::move(assetManager)) {}

ScreenConfig::~ScreenConfig() = default;

void ScreenConfig::initialize() {
    writeInitial(items::shape);
    setMeshPath(items::meshPath.initial, FilePathRelative);
    writeInitial(items::centerPoint);
    writeInitial(items::height);
    writeInitial(items::width);
    writeInitial(items::radius);
    writeInitial(items::minTheta);
    writeInitial(items::maxTheta);
    writeInitial(items::minPhi);
    writeInitial(items::maxPhi);
    writeInitial(items::topMaskEnabled);
    writeInitial(items::topMask);
    writeInitial(items::bottomMaskEnabled);
    writeInitial(items::bottomMask);
    writeInitial(items::leftMaskEnabled);
    writeInitial(items::leftMask);
    writeInitial(items::rightMaskEnabled);
    writeInitial(items::rightMask);
    writeInitial(items::sizeDefinition);
}

std::wstring ScreenConfig::getScreenImportAxisForward() { return read(items::importAxisForward); }
void ScreenConfig::setScreenImportAxisForward(const std::wstring& axis) { write(items::importAxisForward, axis); }

std::wstring ScreenConfig::getScreenImportAxisUpward() { return read(items::importAxisUpward); }
void ScreenConfig::setScreenImportAxisUpward(const std::wstring& axis) { write(items::importAxisUpward, axis); }

Point_3Dim<double> ScreenConfig::getCenterPoint() { return read(items::centerPoint); }
void ScreenConfig::setCenterPoint(const Point_3Dim<double>& point) { write(items::centerPoint, point); }

Point_3Dim<double> ScreenConfig::getProjectionPoint() const { return read(items::projectionPoint); }
void ScreenConfig::setProjectionPoint(const Point_3Dim<double>& point) { write(items::projectionPoint, point); }

double ScreenConfig::getWidth() const { return read(items::width); }
void ScreenConfig::setWidth(double value) { write(items::width, value); }

double ScreenConfig::getHeight() const { return read(items::height); }
void ScreenConfig::setHeight(double value) { write(items::height, value); }

double ScreenConfig::getRadius() const { return read(items::radius); }
void ScreenConfig::setRadius(double value) { write(items::radius, value); }

double ScreenConfig::getMinTheta() const { return read(items::minTheta); }
void ScreenConfig::setMinTheta(double value) { write(items::minTheta, value); }

double ScreenConfig::getMaxTheta() const { return read(items::maxTheta); }
void ScreenConfig::setMaxTheta(double value) { write(items::maxTheta, value); }

double ScreenConfig::getMinPhi() const { return read(items::minPhi); }
void ScreenConfig::setMinPhi(double value) { write(items::minPhi, value); }

double ScreenConfig::getMaxPhi() const { return read(items::maxPhi); }
void ScreenConfig::setMaxPhi(double value) { write(items::maxPhi, value); }

double ScreenConfig::getTopMask() const { return read(items::topMask); }
void ScreenConfig::setTopMask(double value) { write(items::topMask, value); }

double ScreenConfig::getBottomMask() const { return read(items::bottomMask); }
void ScreenConfig::setBottomMask(double value) { write(items::bottomMask, value); }

double ScreenConfig::getLeftMask() const { return read(items::leftMask); }
void ScreenConfig::setLeftMask(double value) { write(items::leftMask, value); }

double ScreenConfig::getRightMask() const { return read(items::rightMask); }
void ScreenConfig::setRightMask(double value) { write(items::rightMask, value); }

bool ScreenConfig::isTopMaskEnabled() const { return read(items::topMaskEnabled); }
void ScreenConfig::setTopMaskEnabled(bool enabled) { write(items::topMaskEnabled, enabled); }

bool ScreenConfig::isBottomMaskEnabled() const { return read(items::bottomMaskEnabled); }
void ScreenConfig::setBottomMaskEnabled(bool enabled) { write(items::bottomMaskEnabled, enabled); }

bool ScreenConfig::isLeftMaskEnabled() const { return read(items::leftMaskEnabled); }
void ScreenConfig::setLeftMaskEnabled(bool enabled) { write(items::leftMaskEnabled, enabled); }

bool ScreenConfig::isRightMaskEnabled() const { return read(items::rightMaskEnabled); }
void ScreenConfig::setRightMaskEnabled(bool enabled) { write(items::rightMaskEnabled, enabled); }

double ScreenConfig::getSampleSpacing() const { return read(items::sampleSpacing); }
void ScreenConfig::setSampleSpacing(double value) { write(items::sampleSpacing, value); }

Point_2Dim<double> ScreenConfig::getScaleCenter() const { return read(items::scaleCenter); }
void ScreenConfig::setScaleCenter(const Point_2Dim<double>& value) { write(items::scaleCenter, value); }

Point_2Dim<double> ScreenConfig::getScaleFactor() const { return read(items::scaleFactor); }
void ScreenConfig::setScaleFactor(const Point_2Dim<double>& value) { write(items::scaleFactor, value); }

Point_2Dim<double> ScreenConfig::getScaleOffset() const { return read(items::scaleOffset); }
void ScreenConfig::setScaleOffset(const Point_2Dim<double>& value) { write(items::scaleOffset, value); }

double ScreenConfig::getScreenFileCustomUnitScaleValue() const { return read(items::fileCustomUnitScale); }
void ScreenConfig::setScreenFileCustomUnitScaleValue(double value) { write(items::fileCustomUnitScale, value); }

double ScreenConfig::getCheckerboardBoxDimension() const { return read(items::checkerboardBoxDimension); }
void ScreenConfig::setCheckerboardBoxDimension(double value) { write(items::checkerboardBoxDimension, value); }

int ScreenConfig::getCheckerboardGridSizeCols() const { return read(items::checkerboardGridSizeCols); }
void ScreenConfig::setCheckerboardGridSizeCols(int value) { write(items::checkerboardGridSizeCols, value); }

int ScreenConfig::getCheckerboardGridSizeRows() const { return read(items::checkerboardGridSizeRows); }
void ScreenConfig::setCheckerboardGridSizeRows(int value) { write(items::checkerboardGridSizeRows, value); }

// Texts of a fixed list: any other is ignored.

std::wstring ScreenConfig::getShape() { return read(items::shape); }
void ScreenConfig::setShape(const std::wstring& shape) {
    const std::wstring* const shapes[] = {&SHAPE_FLAT,   &SHAPE_SPHERE, &SHAPE_CYLINDER, &SHAPE_RULED,
                                          &SHAPE_TOROID, &SHAPE_VRML,   &SHAPE_TEST};
    if (isOneOf(shapes, shape)) write(items::shape, shape);
}

std::wstring ScreenConfig::getScreenFileLengthUnit() { return read(items::fileLengthUnit); }
void ScreenConfig::setScreenFileLengthUnit(const std::wstring& unit) {
    const std::wstring* const units[] = {&UNIT_MILLIMETERS(), &UNIT_CENTIMETERS(), &UNIT_INCHES(),
                                         &UNIT_FEET(),        &UNIT_METERS(),      &UNIT_CUSTOM()};
    if (isOneOf(units, unit)) write(items::fileLengthUnit, unit);
}

// Paths.

std::wstring ScreenConfig::getMeshPath(FilePathMode mode) { return pathIn(mode, read(items::meshPath)); }
void ScreenConfig::setMeshPath(const std::wstring& path, FilePathMode mode) { write(items::meshPath, pathIn(mode, path)); }

std::wstring ScreenConfig::getMeasuredMeshPath(FilePathMode mode) { return pathIn(mode, read(items::measuredMeshPath)); }
void ScreenConfig::setMeasuredMeshPath(const std::wstring& path, FilePathMode mode) {
    write(items::measuredMeshPath, pathIn(mode, path));
}

std::wstring ScreenConfig::getPCDPath(FilePathMode mode) { return pathIn(mode, read(items::pcdPath)); }
void ScreenConfig::setPCDPath(const std::wstring& path, FilePathMode mode) { write(items::pcdPath, pathIn(mode, path)); }

std::wstring ScreenConfig::getMarkedSurfaceFilename(FilePathMode mode) const {
    return pathIn(mode, read(items::markedSurfaceFilename));
}
void ScreenConfig::setMarkedSurfaceFilename(const std::wstring& path, FilePathMode mode) {
    write(items::markedSurfaceFilename, pathIn(mode, path));
}

void ScreenConfig::updateRelativeFilePaths(const std::wstring& previousRoot) {
    for (const auto* item : {&items::meshPath, &items::pcdPath, &items::markedSurfaceFilename, &items::measuredMeshPath}) {
        const std::wstring stored = read(*item);
        if (!stored.empty()) write(*item, assets().relocate(stored, previousRoot));
    }
}

std::wstring ScreenConfig::pathIn(FilePathMode mode, const std::wstring& path) const {
    return path.empty() && !m_assetManager ? path : assets().getPath(path, mode);
}

const AssetManager& ScreenConfig::assets() const {
    if (!m_assetManager) throw CorvaneException(L"Error getPath: the section \"Screen\" has no asset manager");
    return *m_assetManager;
}

// The size definition and its older form.

std::string ScreenConfig::ScreenSizeDefinitionEnumToString(ScreenSizeDefinitionEnum definition) {
    switch (definition) {
        case SizeManual:
            return "Manually";
        case SizeAutomatic:
            return "Automatically";
        case SizeFromFile:
            return "From Image";
    }
    return "";
}

IScreenConfig::ScreenSizeDefinitionEnum ScreenConfig::getSizeDefinition() {
    const int stored = read(items::sizeDefinition);
    if (stored != items::sizeDefinition.fallback) return static_cast<ScreenSizeDefinitionEnum>(stored);
    return getAutoDimensions() ? SizeAutomatic : SizeManual;
}
void ScreenConfig::setSizeDefinition(ScreenSizeDefinitionEnum definition) {
    write(items::sizeDefinition, static_cast<int>(definition));
}

bool ScreenConfig::getAutoDimensions() const { return read(items::autoDimensions); }

bool ScreenConfig::isSizeDeterminedManually() const { return interfaceOf(*this).getSizeDefinition() == SizeManual; }
bool ScreenConfig::isSizeDeterminedAutomatically() const { return interfaceOf(*this).getSizeDefinition() == SizeAutomatic; }
bool ScreenConfig::isSizeDeterminedFromFile() const { return interfaceOf(*this).getSizeDefinition() == SizeFromFile; }

// The marked surface, calibration points and the guess transform.

Point_2Dim<int> ScreenConfig::getMarkedSurfaceImageSize() {
    return {read(items::markedSurfaceImageWidth), read(items::markedSurfaceImageHeight)};
}
void ScreenConfig::setMarkedSurfaceImageSize(const Point_2Dim<int>& size) {
    write(items::markedSurfaceImageWidth, size.x);
    write(items::markedSurfaceImageHeight, size.y);
}

std::vector<Point_3Dim<double>> ScreenConfig::getCalibrationPoints() {
    return XMLConfig::detail::calibrationPointsOf(read(items::calibrationPoints));
}
void ScreenConfig::setCalibrationPoints(const std::vector<Point_3Dim<double>>& points) {
    write(items::calibrationPoints, XMLConfig::detail::calibrationPointsText(points));
}

std::vector<Point_2Dim<double>> ScreenConfig::getMarkedSurfaceCalibrationPoints() const {
    const std::vector<Point_3Dim<double>> points = interfaceOf(*this).getCalibrationPoints();
    const Point_2Dim<int> size = interfaceOf(*this).getMarkedSurfaceImageSize();
    const Point_2Dim<int> middle(size.x / 2, size.y / 2);
    std::vector<Point_2Dim<double>> mapped;
    mapped.reserve(points.size());
    for (const auto& point : points) mapped.emplace_back(middle.x + point.x, middle.y - point.z);
    return mapped;
}

Matrix<double, 4> ScreenConfig::getLocateGuessTransform() const {
    return XMLConfig::detail::transformOf(read(items::locateGuessTransform));
}
void ScreenConfig::setLocateGuessTransform(const Matrix<double, 4>& transform) {
    write(items::locateGuessTransform, XMLConfig::detail::transformText(transform));
}
