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
/// Its settings: sections/ScreenItems.h and, as a page, docs/settings.md#screen.
class XMLCONFIG_API ScreenConfig : public IScreenConfig, public BaseConfig {
public:
    /// "Manually", "Automatically" or "From Image"; empty for any other value.
    static std::string ScreenSizeDefinitionEnumToString(ScreenSizeDefinitionEnum definition);

    /// Shares the asset manager, which may be null.
    ScreenConfig(ConfigInfo* configInfo, std::shared_ptr<AssetManager> assetManager, const std::wstring& sectionID);
    ~ScreenConfig() override;
    /// A flat surface of size 1 whose size is determined automatically, without mesh or masks.
    void initialize() override;

    /// Shape of the surface. Stored as it is, or one of the SHAPE_ texts. Missing: "Flat".
    std::wstring getShape() override;
    /// Ignores a text that is none of the SHAPE_ texts.
    void setShape(const std::wstring& shape);

    // Files. Missing: empty.

    std::wstring getMeshPath(FilePathMode mode) override;  ///< file with the mesh of the surface
    void setMeshPath(const std::wstring& path, FilePathMode mode);
    std::wstring getMeasuredMeshPath(FilePathMode mode) override;  ///< file with the mesh of the surface as it was measured
    void setMeasuredMeshPath(const std::wstring& path, FilePathMode mode);
    std::wstring getPCDPath(FilePathMode mode) override;  ///< file with the point cloud of the surface
    void setPCDPath(const std::wstring& path, FilePathMode mode);
    std::wstring getMarkedSurfaceFilename(FilePathMode mode) const;  ///< file with the image of the marked surface
    void setMarkedSurfaceFilename(const std::wstring& path, FilePathMode mode);
    /// Carries the stored paths, relative to the folder `previousRoot`, over to the asset manager's present root. Empty
    /// ones are left alone.
    void updateRelativeFilePaths(const std::wstring& previousRoot);

    /// Axis of an imported model that points forward. Any text. Missing: "Y".
    std::wstring getScreenImportAxisForward() override;
    void setScreenImportAxisForward(const std::wstring& axis);
    /// Axis of an imported model that points up. Any text. Missing: "Z".
    std::wstring getScreenImportAxisUpward() override;
    void setScreenImportAxisUpward(const std::wstring& axis);

    // Points. Missing: (0, 0, 0).

    Point_3Dim<double> getCenterPoint() override;  ///< centre of the surface (meters)
    void setCenterPoint(const Point_3Dim<double>& point);
    Point_3Dim<double> getProjectionPoint() const;  ///< point from which content is projected onto the surface (meters)
    void setProjectionPoint(const Point_3Dim<double>& point);

    // Sizes; angles are in radians. Missing: -1.

    double getWidth() const override;  ///< width of the surface; negative when unknown (meters)
    void setWidth(double value);
    double getHeight() const override;  ///< height of the surface; negative when unknown (meters)
    void setHeight(double value);
    double getRadius() const override;  ///< radius of a curved surface; negative when unknown (meters)
    void setRadius(double value);
    double getMinTheta() const override;  ///< lower limit of the surface's angle theta (radians)
    void setMinTheta(double value);
    double getMaxTheta() const override;  ///< upper limit of the surface's angle theta (radians)
    void setMaxTheta(double value);
    double getMinPhi() const override;  ///< lower limit of the surface's angle phi (radians)
    void setMinPhi(double value);
    double getMaxPhi() const override;  ///< upper limit of the surface's angle phi (radians)
    void setMaxPhi(double value);

    // Masks at the edges. Missing: -1, and not enabled.

    double getTopMask() const;  ///< size of the mask at the top edge
    void setTopMask(double value);
    double getBottomMask() const;  ///< size of the mask at the bottom edge
    void setBottomMask(double value);
    double getLeftMask() const;  ///< size of the mask at the left edge
    void setLeftMask(double value);
    double getRightMask() const;  ///< size of the mask at the right edge
    void setRightMask(double value);
    bool isTopMaskEnabled() const;  ///< whether the top edge is masked
    void setTopMaskEnabled(bool enabled);
    bool isBottomMaskEnabled() const;  ///< whether the bottom edge is masked
    void setBottomMaskEnabled(bool enabled);
    bool isLeftMaskEnabled() const;  ///< whether the left edge is masked
    void setLeftMaskEnabled(bool enabled);
    bool isRightMaskEnabled() const;  ///< whether the right edge is masked
    void setRightMaskEnabled(bool enabled);

    /// Distance between neighbouring samples of the surface. Missing: 15.
    double getSampleSpacing() const;
    void setSampleSpacing(double value);
    /// Point that stays in place when the content is scaled, as fractions of width and height. Missing: (0.5, 0.5).
    Point_2Dim<double> getScaleCenter() const;
    void setScaleCenter(const Point_2Dim<double>& value);
    /// Factors by which the content is scaled, across and down. Missing: (1, 1).
    Point_2Dim<double> getScaleFactor() const;
    void setScaleFactor(const Point_2Dim<double>& value);
    /// How far the content is shifted when it is scaled, across and down. Missing: (0, 0).
    Point_2Dim<double> getScaleOffset() const;
    void setScaleOffset(const Point_2Dim<double>& value);

    /// Where the size of the surface comes from. As stored, without a check. Missing, or 3: what the older "Auto_Dimensions"
    /// says, SizeManual without it.
    ScreenSizeDefinitionEnum getSizeDefinition() override;
    void setSizeDefinition(ScreenSizeDefinitionEnum definition);
    // These ask getSizeDefinition() through the interface.
    bool isSizeDeterminedManually() const override;
    bool isSizeDeterminedAutomatically() const override;
    bool isSizeDeterminedFromFile() const override;

    /// Unit of an imported model. A unit name. Missing: "Meters".
    std::wstring getScreenFileLengthUnit() override;
    /// Ignores a text that is none of the six length units.
    void setScreenFileLengthUnit(const std::wstring& unit);
    /// Scale of an imported model whose unit is Custom. Serves with the unit "Custom". Missing: 1.
    double getScreenFileCustomUnitScaleValue() const override;
    void setScreenFileCustomUnitScaleValue(double value);

    // The calibration checkerboard. Missing: 0.

    double getCheckerboardBoxDimension() const;  ///< edge length of a box of the calibration checkerboard (meters)
    void setCheckerboardBoxDimension(double value);
    int getCheckerboardGridSizeCols() const;  ///< columns of the calibration checkerboard
    void setCheckerboardGridSizeCols(int value);
    int getCheckerboardGridSizeRows() const;  ///< rows of the calibration checkerboard
    void setCheckerboardGridSizeRows(int value);

    /// Width and height in pixels. Missing: 0.
    Point_2Dim<int> getMarkedSurfaceImageSize() override;
    void setMarkedSurfaceImageSize(const Point_2Dim<int>& size);
    /// Points of the surface by which cameras are calibrated, one a line. Up to the last complete point. Missing: no points.
    std::vector<Point_3Dim<double>> getCalibrationPoints() override;
    /// Keeps six decimals, and of a point with its separators 127 characters.
    void setCalibrationPoints(const std::vector<Point_3Dim<double>>& points) override;
    /// The calibration points in the marked surface's image: x to the right of its middle, z above it.
    std::vector<Point_2Dim<double>> getMarkedSurfaceCalibrationPoints() const;
    /// First guess of where the surface is, row by row; the identity when there are not sixteen numbers. Missing, or not
    /// sixteen pieces: the identity. A piece that is no number reads 0.
    Matrix<double, 4> getLocateGuessTransform() const;
    /// Keeps six decimals, and of a row with its separators 127 characters.
    void setLocateGuessTransform(const Matrix<double, 4>& transform);

private:
    /// Older form of SizeDefinition, used in its absence: whether the size is determined automatically.
    bool getAutoDimensions() const;
    std::wstring pathIn(FilePathMode mode, const std::wstring& path) const;
    const AssetManager& assets() const;

    std::shared_ptr<AssetManager> m_assetManager;
};
