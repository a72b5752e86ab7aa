#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/BaseConfig.h"
#include "sections/IScreenConfig.h"

class AssetManager;

/// The "Screen" section: the surface that the projectors are warped onto.
///
/// A getter of a missing item gives the default that its comment names, and creates nothing; a setter stores at once and
/// checks nothing, where its comment says no more. Setters store a path in the form that their mode names, and getters give
/// it in the form that theirs names; an empty path stays empty. This needs the asset manager: without one a path that is not
/// empty throws CorvaneException, and everything else works. The order of the virtual members is part of the interface.
///
/// Its settings: sections/ScreenItems.h and, as a page, docs/settings.md#screen.
class XMLCONFIG_API ScreenConfig : public IScreenConfig, public BaseConfig {
public:
    /// What a user reads: "Manually", "Automatically" or "From Image"; empty for a value that is no enumerator.
    static std::string ScreenSizeDefinitionEnumToString(ScreenSizeDefinitionEnum definition);

    /// Borrows the document (null: a private one), shares the asset manager (null is accepted). Writes nothing.
    ScreenConfig(ConfigInfo* configInfo, std::shared_ptr<AssetManager> assetManager, const std::wstring& sectionID);
    ~ScreenConfig() override;
    /// Writes a flat surface of 1 by 1 meters whose size is determined automatically, with a radius of 2.1 meters, 45
    /// degrees to the left and right and 18 up and down, without mesh or masks. All is written, or nothing where memory runs
    /// out.
    void initialize() override;

    /// Shape of the surface, as stored: one of SHAPE_..., unless another program stored something else. Missing: "Flat".
    std::wstring getShape() override;
    /// Stores one of SHAPE_...; any other text is ignored without a word.
    void setShape(const std::wstring& shape);

    // Files, as paths in the form that `mode` names.

    std::wstring getMeshPath(FilePathMode mode) override;  ///< file with the mesh of the surface; empty when missing
    void setMeshPath(const std::wstring& path, FilePathMode mode);
    /// File with the mesh of the surface as it was measured; empty when missing.
    std::wstring getMeasuredMeshPath(FilePathMode mode) override;
    void setMeasuredMeshPath(const std::wstring& path, FilePathMode mode);
    std::wstring getPCDPath(FilePathMode mode) override;  ///< file with the point cloud of the surface; empty when missing
    void setPCDPath(const std::wstring& path, FilePathMode mode);
    /// File with the image of the marked surface; empty when missing.
    std::wstring getMarkedSurfaceFilename(FilePathMode mode) const;
    void setMarkedSurfaceFilename(const std::wstring& path, FilePathMode mode);
    /// Rewrites the four stored paths, which are relative to the folder `previousRoot`, so that they name the same files
    /// from the asset manager's present root. Empty ones are left alone. All are rewritten, or none where anything is
    /// thrown.
    void updateRelativeFilePaths(const std::wstring& previousRoot);

    /// Axis of an imported model that points forward: one of AXIS_..., or any other stored text. Missing: "Y".
    std::wstring getScreenImportAxisForward() override;
    void setScreenImportAxisForward(const std::wstring& axis);
    /// Axis of an imported model that points up: one of AXIS_..., or any other stored text. Missing: "Z".
    std::wstring getScreenImportAxisUpward() override;
    void setScreenImportAxisUpward(const std::wstring& axis);

    // Points.

    Point_3Dim<double> getCenterPoint() override;  ///< centre of the surface (meters); (0, 0, 0) when missing
    void setCenterPoint(const Point_3Dim<double>& point);
    /// Point from which content is projected onto the surface (meters); (0, 0, 0) when missing.
    Point_3Dim<double> getProjectionPoint() const;
    void setProjectionPoint(const Point_3Dim<double>& point);

    // Sizes and limits.

    double getWidth() const override;  ///< width of the surface; negative when unknown (meters); -1 when missing
    void setWidth(double value);
    double getHeight() const override;  ///< height of the surface; negative when unknown (meters); -1 when missing
    void setHeight(double value);
    double getRadius() const override;  ///< radius of a curved surface; negative when unknown (meters); -1 when missing
    void setRadius(double value);
    double getMinTheta() const override;  ///< lower limit of the surface's angle theta (radians); -1 when missing
    void setMinTheta(double value);
    double getMaxTheta() const override;  ///< upper limit of the surface's angle theta (radians); -1 when missing
    void setMaxTheta(double value);
    double getMinPhi() const override;  ///< lower limit of the surface's angle phi (radians); -1 when missing
    void setMinPhi(double value);
    double getMaxPhi() const override;  ///< upper limit of the surface's angle phi (radians); -1 when missing
    void setMaxPhi(double value);

    // Masks at the edges. The library gives their sizes no unit.

    double getTopMask() const;  ///< size of the mask at the top edge; -1 when missing
    void setTopMask(double value);
    double getBottomMask() const;  ///< size of the mask at the bottom edge; -1 when missing
    void setBottomMask(double value);
    double getLeftMask() const;  ///< size of the mask at the left edge; -1 when missing
    void setLeftMask(double value);
    double getRightMask() const;  ///< size of the mask at the right edge; -1 when missing
    void setRightMask(double value);
    bool isTopMaskEnabled() const;  ///< whether the top edge is masked; false when missing
    void setTopMaskEnabled(bool enabled);
    bool isBottomMaskEnabled() const;  ///< whether the bottom edge is masked; false when missing
    void setBottomMaskEnabled(bool enabled);
    bool isLeftMaskEnabled() const;  ///< whether the left edge is masked; false when missing
    void setLeftMaskEnabled(bool enabled);
    bool isRightMaskEnabled() const;  ///< whether the right edge is masked; false when missing
    void setRightMaskEnabled(bool enabled);

    /// Distance between neighbouring samples of the surface. The library gives it no unit. Missing: 15.
    double getSampleSpacing() const;
    void setSampleSpacing(double value);
    /// Point that stays in place when the content is scaled, as fractions of width and height. Missing: (0.5, 0.5).
    Point_2Dim<double> getScaleCenter() const;
    void setScaleCenter(const Point_2Dim<double>& value);
    /// Factors by which the content is scaled, across and down. Missing: (1, 1).
    Point_2Dim<double> getScaleFactor() const;
    void setScaleFactor(const Point_2Dim<double>& value);
    /// How far the content is shifted when it is scaled, across and down. The library gives it no unit. Missing: (0, 0).
    Point_2Dim<double> getScaleOffset() const;
    void setScaleOffset(const Point_2Dim<double>& value);

    /// Where the size of the surface comes from, as stored, without a check. Missing, or 3: the older item "Auto_Dimensions"
    /// tells, SizeAutomatic for true, and SizeManual for false and without it.
    ScreenSizeDefinitionEnum getSizeDefinition() override;
    void setSizeDefinition(ScreenSizeDefinitionEnum definition);
    bool isSizeDeterminedManually() const override;       ///< whether getSizeDefinition() gives SizeManual
    bool isSizeDeterminedAutomatically() const override;  ///< whether getSizeDefinition() gives SizeAutomatic
    bool isSizeDeterminedFromFile() const override;       ///< whether getSizeDefinition() gives SizeFromFile

    /// Unit of an imported model: one of UNIT_..., or any other stored text. Missing: "Meters".
    std::wstring getScreenFileLengthUnit() override;
    /// Stores the name of a length unit or UNIT_CUSTOM(); any other text is ignored without a word.
    void setScreenFileLengthUnit(const std::wstring& unit);
    /// Scale of an imported model whose unit is Custom; of no account with another unit. Missing: 1.
    double getScreenFileCustomUnitScaleValue() const override;
    void setScreenFileCustomUnitScaleValue(double value);

    // The calibration checkerboard.

    /// Edge length of a box of the calibration checkerboard (meters); 0 when missing.
    double getCheckerboardBoxDimension() const;
    void setCheckerboardBoxDimension(double value);
    int getCheckerboardGridSizeCols() const;  ///< columns of the calibration checkerboard; 0 when missing
    void setCheckerboardGridSizeCols(int value);
    int getCheckerboardGridSizeRows() const;  ///< rows of the calibration checkerboard; 0 when missing
    void setCheckerboardGridSizeRows(int value);

    /// Width and height of the image of the marked surface (pixels). Missing: 0 for each.
    Point_2Dim<int> getMarkedSurfaceImageSize() override;
    void setMarkedSurfaceImageSize(const Point_2Dim<int>& size);
    /// Points of the surface by which cameras are calibrated, one a line in the file; the library gives them no unit. Three
    /// numbers make a point, one or two at the end are ignored, and what is no number reads 0. Missing: no points.
    std::vector<Point_3Dim<double>> getCalibrationPoints() override;
    /// Stores six decimals of each number, and of a point with its separators 127 characters.
    void setCalibrationPoints(const std::vector<Point_3Dim<double>>& points) override;
    /// The calibration points in the image of the marked surface (pixels), where one of their units is a pixel: x to the
    /// right of the image's middle and z above it, so that (x, y, z) becomes (width / 2 + x, height / 2 - z). Half a pixel
    /// of the middle is cut off.
    std::vector<Point_2Dim<double>> getMarkedSurfaceCalibrationPoints() const;
    /// First guess of where the surface is, row by row; the identity when there are not sixteen numbers, or the item is
    /// missing. A piece of the text that is no number reads 0. The library gives the shift no unit.
    Matrix<double, 4> getLocateGuessTransform() const;
    /// Stores six decimals of each number, and of a row with its separators 127 characters.
    void setLocateGuessTransform(const Matrix<double, 4>& transform);

private:
    /// Older form of SizeDefinition, used in its absence: whether the size is determined automatically.
    bool getAutoDimensions() const;
    std::wstring pathIn(FilePathMode mode, const std::wstring& path) const;
    const AssetManager& assets() const;

    std::shared_ptr<AssetManager> m_assetManager;
};
