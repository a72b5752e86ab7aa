#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/BaseConfig.h"
#include "sections/IScreenConfig.h"

class AssetManager;

/// The "Screen" section: the surface that the projectors are warped onto.
///
/// Path items are stored in the form that the setter's mode names and given in the form that the getter's mode names; an
/// empty path stays empty. They need the asset manager: without one a path that is not empty throws CorvaneException,
/// and everything else works. The order of the virtual members is part of the interface.
class XMLCONFIG_API ScreenConfig : public IScreenConfig, public BaseConfig {
public:
    /// "Manually", "Automatically" or "From Image"; empty for any other value.
    static std::string ScreenSizeDefinitionEnumToString(ScreenSizeDefinitionEnum definition);

    /// Shares the asset manager, which may be null.
    ScreenConfig(ConfigInfo* configInfo, std::shared_ptr<AssetManager> assetManager, const std::wstring& sectionID);
    ~ScreenConfig() override;
    /// A flat surface of size 1 whose size is determined automatically, without mesh or masks.
    void initialize() override;

    /// Stored as it is, or one of the SHAPE_ texts. Missing: "Flat".
    std::wstring getShape() override;
    /// Ignores a text that is none of the SHAPE_ texts.
    void setShape(const std::wstring& shape);

    // Files. Missing: empty.

    std::wstring getMeshPath(FilePathMode mode) override;
    void setMeshPath(const std::wstring& path, FilePathMode mode);
    std::wstring getMeasuredMeshPath(FilePathMode mode) override;
    void setMeasuredMeshPath(const std::wstring& path, FilePathMode mode);
    std::wstring getPCDPath(FilePathMode mode) override;
    void setPCDPath(const std::wstring& path, FilePathMode mode);
    std::wstring getMarkedSurfaceFilename(FilePathMode mode) const;
    void setMarkedSurfaceFilename(const std::wstring& path, FilePathMode mode);
    /// Carries the stored paths, relative to the folder `previousRoot`, over to the asset manager's root of now. Empty
    /// ones are left alone.
    void updateRelativeFilePaths(const std::wstring& previousRoot);

    /// Any text. Missing: "Y".
    std::wstring getScreenImportAxisForward() override;
    void setScreenImportAxisForward(const std::wstring& axis);
    /// Any text. Missing: "Z".
    std::wstring getScreenImportAxisUpward() override;
    void setScreenImportAxisUpward(const std::wstring& axis);

    // Points. Missing: (0, 0, 0).

    Point_3Dim<double> getCenterPoint() override;
    void setCenterPoint(const Point_3Dim<double>& point);
    Point_3Dim<double> getProjectionPoint() const;
    void setProjectionPoint(const Point_3Dim<double>& point);

    // Sizes; angles are in radians. Missing: -1.

    double getWidth() const override;
    void setWidth(double value);
    double getHeight() const override;
    void setHeight(double value);
    double getRadius() const override;
    void setRadius(double value);
    double getMinTheta() const override;
    void setMinTheta(double value);
    double getMaxTheta() const override;
    void setMaxTheta(double value);
    double getMinPhi() const override;
    void setMinPhi(double value);
    double getMaxPhi() const override;
    void setMaxPhi(double value);

    // Masks at the edges. Missing: -1, and not enabled.

    double getTopMask() const;
    void setTopMask(double value);
    double getBottomMask() const;
    void setBottomMask(double value);
    double getLeftMask() const;
    void setLeftMask(double value);
    double getRightMask() const;
    void setRightMask(double value);
    bool isTopMaskEnabled() const;
    void setTopMaskEnabled(bool enabled);
    bool isBottomMaskEnabled() const;
    void setBottomMaskEnabled(bool enabled);
    bool isLeftMaskEnabled() const;
    void setLeftMaskEnabled(bool enabled);
    bool isRightMaskEnabled() const;
    void setRightMaskEnabled(bool enabled);

    /// Missing: 15.
    double getSampleSpacing() const;
    void setSampleSpacing(double value);
    /// Missing: (0.5, 0.5).
    Point_2Dim<double> getScaleCenter() const;
    void setScaleCenter(const Point_2Dim<double>& value);
    /// Missing: (1, 1).
    Point_2Dim<double> getScaleFactor() const;
    void setScaleFactor(const Point_2Dim<double>& value);
    /// Missing: (0, 0).
    Point_2Dim<double> getScaleOffset() const;
    void setScaleOffset(const Point_2Dim<double>& value);

    /// As stored, without a check. Missing, or 3: what the older "Auto_Dimensions" says, SizeManual without it.
    ScreenSizeDefinitionEnum getSizeDefinition() override;
    void setSizeDefinition(ScreenSizeDefinitionEnum definition);
    // These ask getSizeDefinition() through the interface.
    bool isSizeDeterminedManually() const override;
    bool isSizeDeterminedAutomatically() const override;
    bool isSizeDeterminedFromFile() const override;

    /// A unit name. Missing: "Meters".
    std::wstring getScreenFileLengthUnit() override;
    /// Ignores a text that is none of the six length units.
    void setScreenFileLengthUnit(const std::wstring& unit);
    /// Serves with the unit "Custom". Missing: 1.
    double getScreenFileCustomUnitScaleValue() const override;
    void setScreenFileCustomUnitScaleValue(double value);

    // The calibration checkerboard. Missing: 0.

    double getCheckerboardBoxDimension() const;
    void setCheckerboardBoxDimension(double value);
    int getCheckerboardGridSizeCols() const;
    void setCheckerboardGridSizeCols(int value);
    int getCheckerboardGridSizeRows() const;
    void setCheckerboardGridSizeRows(int value);

    /// Width and height in pixels. Missing: 0.
    Point_2Dim<int> getMarkedSurfaceImageSize() override;
    void setMarkedSurfaceImageSize(const Point_2Dim<int>& size);
    /// Up to the last complete point. Missing: no points.
    std::vector<Point_3Dim<double>> getCalibrationPoints() override;
    /// Keeps six decimals, and of a point with its separators 127 characters.
    void setCalibrationPoints(const std::vector<Point_3Dim<double>>& points) override;
    /// The calibration points in the marked surface's image: x to the right of its middle, z above it.
    std::vector<Point_2Dim<double>> getMarkedSurfaceCalibrationPoints() const;
    /// Missing, or not sixteen pieces: the identity. A piece that is no number reads 0.
    Matrix<double, 4> getLocateGuessTransform() const;
    /// Keeps six decimals, and of a row with its separators 127 characters.
    void setLocateGuessTransform(const Matrix<double, 4>& transform);

private:
    bool getAutoDimensions() const;
    std::wstring pathIn(FilePathMode mode, const std::wstring& path) const;
    const AssetManager& assets() const;

    std::shared_ptr<AssetManager> m_assetManager;
};
