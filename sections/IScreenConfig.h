#pragma once

#include <string>
#include <vector>

#include "base/BaseConfig.h"
#include "platform/Export.h"
#include "store/ValueTypes.h"

/// What a screen library needs to know of the projection surface. Where nothing is stored, a size or an angle is -1 and a
/// path is empty; ScreenConfig says what the others give. The order of the virtual members is part of the interface.
class XMLCONFIG_API IScreenConfig {
public:
    /// Where the size of the surface comes from; stored: do not change.
    enum ScreenSizeDefinitionEnum : int { SizeManual = 0, SizeAutomatic = 1, SizeFromFile = 2 };

    IScreenConfig() = default;
    IScreenConfig(const IScreenConfig&) = delete;
    IScreenConfig& operator=(const IScreenConfig&) = delete;
    virtual ~IScreenConfig();

    /// Points of the surface by which cameras are calibrated, one a line in the file. The library gives them no unit.
    virtual std::vector<Point_3Dim<double>> getCalibrationPoints() = 0;
    virtual std::wstring getShape() = 0;              ///< shape of the surface: one of BaseConfig::SHAPE_..., such as "Flat"
    virtual Point_3Dim<double> getCenterPoint() = 0;  ///< centre of the surface (meters)
    virtual double getWidth() const = 0;              ///< width of the surface; negative when unknown (meters)
    virtual double getHeight() const = 0;             ///< height of the surface; negative when unknown (meters)
    virtual double getRadius() const = 0;             ///< radius of a curved surface; negative when unknown (meters)
    virtual double getMinTheta() const = 0;           ///< lower limit of the surface's angle theta (radians)
    virtual double getMaxTheta() const = 0;           ///< upper limit of the surface's angle theta (radians)
    virtual double getMinPhi() const = 0;             ///< lower limit of the surface's angle phi (radians)
    virtual double getMaxPhi() const = 0;             ///< upper limit of the surface's angle phi (radians)
    /// File with the mesh of the surface as it was measured, in the form that `mode` names.
    virtual std::wstring getMeasuredMeshPath(BaseConfig::FilePathMode mode) = 0;
    /// File with the mesh of the surface, in the form that `mode` names.
    virtual std::wstring getMeshPath(BaseConfig::FilePathMode mode) = 0;
    /// File with the point cloud of the surface, in the form that `mode` names.
    virtual std::wstring getPCDPath(BaseConfig::FilePathMode mode) = 0;
    /// Axis of an imported model that points forward: one of BaseConfig::AXIS_..., such as "Y".
    virtual std::wstring getScreenImportAxisForward() = 0;
    /// Axis of an imported model that points up: one of BaseConfig::AXIS_..., such as "Z".
    virtual std::wstring getScreenImportAxisUpward() = 0;
    /// Stores the points that getCalibrationPoints() gives.
    virtual void setCalibrationPoints(const std::vector<Point_3Dim<double>>& points) = 0;
    /// Width and height of the image of the marked surface (pixels).
    virtual Point_2Dim<int> getMarkedSurfaceImageSize() = 0;
    virtual ScreenSizeDefinitionEnum getSizeDefinition() = 0;  ///< where the size of the surface comes from
    virtual bool isSizeDeterminedManually() const = 0;         ///< whether getSizeDefinition() gives SizeManual
    virtual bool isSizeDeterminedAutomatically() const = 0;    ///< whether getSizeDefinition() gives SizeAutomatic
    virtual bool isSizeDeterminedFromFile() const = 0;         ///< whether getSizeDefinition() gives SizeFromFile
    /// Unit of an imported model: the name of a length unit, such as "Meters".
    virtual std::wstring getScreenFileLengthUnit() = 0;
    /// Scale of an imported model whose unit is Custom.
    virtual double getScreenFileCustomUnitScaleValue() const = 0;
};
