#pragma once

#include <string>
#include <vector>

#include "base/BaseConfig.h"
#include "platform/Export.h"
#include "store/ValueTypes.h"

/// What a screen library needs to know of the projection surface. ScreenConfig says what each member gives where nothing is
/// stored. The order of the virtual members is part of the interface.
class XMLCONFIG_API IScreenConfig {
public:
    /// Where the size of the surface comes from; stored: do not change.
    enum ScreenSizeDefinitionEnum : int { SizeManual = 0, SizeAutomatic = 1, SizeFromFile = 2 };

    IScreenConfig() = default;
    IScreenConfig(const IScreenConfig&) = delete;
    IScreenConfig& operator=(const IScreenConfig&) = delete;
    virtual ~IScreenConfig();

    virtual std::vector<Point_3Dim<double>> getCalibrationPoints() = 0;  ///< meters
    virtual std::wstring getShape() = 0;                                 ///< such as "Flat" or "Sphere"
    virtual Point_3Dim<double> getCenterPoint() = 0;                     ///< meters
    virtual double getWidth() const = 0;     ///< meters; negative when unknown, as height and radius
    virtual double getHeight() const = 0;    ///< meters
    virtual double getRadius() const = 0;    ///< meters
    virtual double getMinTheta() const = 0;  ///< radians
    virtual double getMaxTheta() const = 0;  ///< radians
    virtual double getMinPhi() const = 0;    ///< radians
    virtual double getMaxPhi() const = 0;    ///< radians
    virtual std::wstring getMeasuredMeshPath(BaseConfig::FilePathMode mode) = 0;  ///< "" for no file, as the next two
    virtual std::wstring getMeshPath(BaseConfig::FilePathMode mode) = 0;
    virtual std::wstring getPCDPath(BaseConfig::FilePathMode mode) = 0;
    virtual std::wstring getScreenImportAxisForward() = 0;  ///< of an imported model: the axis that points forward
    virtual std::wstring getScreenImportAxisUpward() = 0;   ///< the axis that points up
    virtual void setCalibrationPoints(const std::vector<Point_3Dim<double>>& points) = 0;
    virtual Point_2Dim<int> getMarkedSurfaceImageSize() = 0;  ///< width and height in pixels
    virtual ScreenSizeDefinitionEnum getSizeDefinition() = 0;
    virtual bool isSizeDeterminedManually() const = 0;
    virtual bool isSizeDeterminedAutomatically() const = 0;
    virtual bool isSizeDeterminedFromFile() const = 0;
    virtual std::wstring getScreenFileLengthUnit() = 0;            ///< of an imported model: the name of a unit
    virtual double getScreenFileCustomUnitScaleValue() const = 0;  ///< where that is "Custom"
};
