#include "sections/ScreenConfig.h"

#include <utility>

#include "base/AssetManager.h"
#include "sections/ScreenItems.h"
#include "sections/ScreenTexts.h"
#include "store/CorvaneException.h"
#include "store/Together.h"

static constexpr auto& items = XMLConfig::detail::screenItems;

namespace {

// Some readers are not const in the interface, although they change nothing in the accessor.
IScreenConfig& interfaceOf(const ScreenConfig& screen) { return const_cast<ScreenConfig&>(screen); }

}  // namespace

ScreenConfig::ScreenConfig(ConfigInfo* configInfo, std::shared_ptr<AssetManager> assetManager, const std::wstring& sectionID)
    : BaseConfig(configInfo, items.section, sectionID), m_assetManager(std::move(assetManager)) {}

ScreenConfig::~ScreenConfig() = default;

void ScreenConfig::initialize() { writeInitialValues(items); }

std::wstring ScreenConfig::getScreenImportAxisForward() { return read(items.importAxisForward).value; }
void ScreenConfig::setScreenImportAxisForward(const std::wstring& axis) { write(items.importAxisForward, axis); }

std::wstring ScreenConfig::getScreenImportAxisUpward() { return read(items.importAxisUpward).value; }
void ScreenConfig::setScreenImportAxisUpward(const std::wstring& axis) { write(items.importAxisUpward, axis); }

Point_3Dim<double> ScreenConfig::getCenterPoint() { return read(items.centerPoint).value; }
void ScreenConfig::setCenterPoint(const Point_3Dim<double>& point) { write(items.centerPoint, point); }

Point_3Dim<double> ScreenConfig::getProjectionPoint() const { return read(items.projectionPoint).value; }
void ScreenConfig::setProjectionPoint(const Point_3Dim<double>& point) { write(items.projectionPoint, point); }

double ScreenConfig::getWidth() const { return read(items.width).value; }
void ScreenConfig::setWidth(double value) { write(items.width, value); }

double ScreenConfig::getHeight() const { return read(items.height).value; }
void ScreenConfig::setHeight(double value) { write(items.height, value); }

double ScreenConfig::getRadius() const { return read(items.radius).value; }
void ScreenConfig::setRadius(double value) { write(items.radius, value); }

double ScreenConfig::getMinTheta() const { return read(items.minTheta).value; }
void ScreenConfig::setMinTheta(double value) { write(items.minTheta, value); }

double ScreenConfig::getMaxTheta() const { return read(items.maxTheta).value; }
void ScreenConfig::setMaxTheta(double value) { write(items.maxTheta, value); }

double ScreenConfig::getMinPhi() const { return read(items.minPhi).value; }
void ScreenConfig::setMinPhi(double value) { write(items.minPhi, value); }

double ScreenConfig::getMaxPhi() const { return read(items.maxPhi).value; }
void ScreenConfig::setMaxPhi(double value) { write(items.maxPhi, value); }

double ScreenConfig::getTopMask() const { return read(items.topMask).value; }
void ScreenConfig::setTopMask(double value) { write(items.topMask, value); }

double ScreenConfig::getBottomMask() const { return read(items.bottomMask).value; }
void ScreenConfig::setBottomMask(double value) { write(items.bottomMask, value); }

double ScreenConfig::getLeftMask() const { return read(items.leftMask).value; }
void ScreenConfig::setLeftMask(double value) { write(items.leftMask, value); }

double ScreenConfig::getRightMask() const { return read(items.rightMask).value; }
void ScreenConfig::setRightMask(double value) { write(items.rightMask, value); }

bool ScreenConfig::isTopMaskEnabled() const { return read(items.topMaskEnabled).value; }
void ScreenConfig::setTopMaskEnabled(bool enabled) { write(items.topMaskEnabled, enabled); }

bool ScreenConfig::isBottomMaskEnabled() const { return read(items.bottomMaskEnabled).value; }
void ScreenConfig::setBottomMaskEnabled(bool enabled) { write(items.bottomMaskEnabled, enabled); }

bool ScreenConfig::isLeftMaskEnabled() const { return read(items.leftMaskEnabled).value; }
void ScreenConfig::setLeftMaskEnabled(bool enabled) { write(items.leftMaskEnabled, enabled); }

bool ScreenConfig::isRightMaskEnabled() const { return read(items.rightMaskEnabled).value; }
void ScreenConfig::setRightMaskEnabled(bool enabled) { write(items.rightMaskEnabled, enabled); }

double ScreenConfig::getSampleSpacing() const { return read(items.sampleSpacing).value; }
void ScreenConfig::setSampleSpacing(double value) { write(items.sampleSpacing, value); }

Point_2Dim<double> ScreenConfig::getScaleCenter() const { return read(items.scaleCenter).value; }
void ScreenConfig::setScaleCenter(const Point_2Dim<double>& value) { write(items.scaleCenter, value); }

Point_2Dim<double> ScreenConfig::getScaleFactor() const { return read(items.scaleFactor).value; }
void ScreenConfig::setScaleFactor(const Point_2Dim<double>& value) { write(items.scaleFactor, value); }

Point_2Dim<double> ScreenConfig::getScaleOffset() const { return read(items.scaleOffset).value; }
void ScreenConfig::setScaleOffset(const Point_2Dim<double>& value) { write(items.scaleOffset, value); }

double ScreenConfig::getScreenFileCustomUnitScaleValue() const { return read(items.fileCustomUnitScale).value; }
void ScreenConfig::setScreenFileCustomUnitScaleValue(double value) { write(items.fileCustomUnitScale, value); }

double ScreenConfig::getCheckerboardBoxDimension() const { return read(items.checkerboardBoxDimension).value; }
void ScreenConfig::setCheckerboardBoxDimension(double value) { write(items.checkerboardBoxDimension, value); }

int ScreenConfig::getCheckerboardGridSizeCols() const { return read(items.checkerboardGridSizeCols).value; }
void ScreenConfig::setCheckerboardGridSizeCols(int value) { write(items.checkerboardGridSizeCols, value); }

int ScreenConfig::getCheckerboardGridSizeRows() const { return read(items.checkerboardGridSizeRows).value; }
void ScreenConfig::setCheckerboardGridSizeRows(int value) { write(items.checkerboardGridSizeRows, value); }

// Texts of a fixed list: any other is ignored.

std::wstring ScreenConfig::getShape() { return read(items.shape).value; }
void ScreenConfig::setShape(const std::wstring& shape) {
    if (items.shape.facts.hasWord(shape)) write(items.shape, shape);
}

std::wstring ScreenConfig::getScreenFileLengthUnit() { return read(items.fileLengthUnit).value; }
void ScreenConfig::setScreenFileLengthUnit(const std::wstring& unit) {
    if (items.fileLengthUnit.facts.hasWord(unit)) write(items.fileLengthUnit, unit);
}

// Paths.

std::wstring ScreenConfig::getMeshPath(FilePathMode mode) { return pathIn(mode, read(items.meshPath).value); }
void ScreenConfig::setMeshPath(const std::wstring& path, FilePathMode mode) { write(items.meshPath, pathIn(mode, path)); }

std::wstring ScreenConfig::getMeasuredMeshPath(FilePathMode mode) {
    return pathIn(mode, read(items.measuredMeshPath).value);
}
void ScreenConfig::setMeasuredMeshPath(const std::wstring& path, FilePathMode mode) {
    write(items.measuredMeshPath, pathIn(mode, path));
}

std::wstring ScreenConfig::getPCDPath(FilePathMode mode) { return pathIn(mode, read(items.pcdPath).value); }
void ScreenConfig::setPCDPath(const std::wstring& path, FilePathMode mode) { write(items.pcdPath, pathIn(mode, path)); }

std::wstring ScreenConfig::getMarkedSurfaceFilename(FilePathMode mode) const {
    return pathIn(mode, read(items.markedSurfaceFilename).value);
}
void ScreenConfig::setMarkedSurfaceFilename(const std::wstring& path, FilePathMode mode) {
    write(items.markedSurfaceFilename, pathIn(mode, path));
}

void ScreenConfig::updateRelativeFilePaths(const std::wstring& previousRoot) {
    struct Path {
        decltype(&items.meshPath) item;
        std::wstring text;
    };
    std::vector<Path> paths;
    for (const auto* item : {&items.meshPath, &items.pcdPath, &items.markedSurfaceFilename, &items.measuredMeshPath}) {
        const std::wstring stored = read(*item).value;
        if (!stored.empty()) paths.push_back({item, assets().relocate(stored, previousRoot)});
    }
    XMLConfig::detail::Together changes(*m_configInfo);
    try {
        for (const Path& path : paths) write(*path.item, path.text);
    } catch (...) {
        changes.undo();
        throw;
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
    const int stored = read(items.sizeDefinition).value;
    if (stored != items.sizeDefinition.fallback) return static_cast<ScreenSizeDefinitionEnum>(stored);
    return getAutoDimensions() ? SizeAutomatic : SizeManual;
}
void ScreenConfig::setSizeDefinition(ScreenSizeDefinitionEnum definition) {
    write(items.sizeDefinition, static_cast<int>(definition));
}

bool ScreenConfig::getAutoDimensions() const { return read(items.autoDimensions).value; }

bool ScreenConfig::isSizeDeterminedManually() const { return interfaceOf(*this).getSizeDefinition() == SizeManual; }
bool ScreenConfig::isSizeDeterminedAutomatically() const { return interfaceOf(*this).getSizeDefinition() == SizeAutomatic; }
bool ScreenConfig::isSizeDeterminedFromFile() const { return interfaceOf(*this).getSizeDefinition() == SizeFromFile; }

// The marked surface, calibration points and the guess transform.

Point_2Dim<int> ScreenConfig::getMarkedSurfaceImageSize() {
    return {read(items.markedSurfaceImageWidth).value, read(items.markedSurfaceImageHeight).value};
}
void ScreenConfig::setMarkedSurfaceImageSize(const Point_2Dim<int>& size) {
    XMLConfig::detail::together(*m_configInfo, [&] {
        write(items.markedSurfaceImageWidth, size.x);
        write(items.markedSurfaceImageHeight, size.y);
    });
}

std::vector<Point_3Dim<double>> ScreenConfig::getCalibrationPoints() {
    return XMLConfig::detail::calibrationPointsOf(read(items.calibrationPoints).value);
}
void ScreenConfig::setCalibrationPoints(const std::vector<Point_3Dim<double>>& points) {
    write(items.calibrationPoints, XMLConfig::detail::calibrationPointsText(points));
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
    return XMLConfig::detail::transformOf(read(items.locateGuessTransform).value);
}
void ScreenConfig::setLocateGuessTransform(const Matrix<double, 4>& transform) {
    write(items.locateGuessTransform, XMLConfig::detail::transformText(transform));
}
