#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/BaseConfig.h"

/// One camera: identity and device, exposures, thresholds, its pose given by hand, and calibration points, which tie
/// numbered markers to places in its image.
///
/// A getter of a missing item gives the setting's default and creates nothing; a setter stores at once. Only calibration
/// points are kept in the accessor as well.
/// The order of the virtual members is part of the interface.
class XMLCONFIG_API CameraConfig : public BaseConfig {
public:
    /// `configInfo` is borrowed; null gives the accessor a private document. Writes nothing.
    CameraConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~CameraConfig() override;
    /// Writes a new camera's values, named "Camera_" and its identifier.
    void initialize() override;

    /// Markers and their places in pixels: the camera's own, or those of its reference image. Reads the document until it
    /// finds points there, and from then on gives what it found or what was set last.
    virtual std::map<int, Point_2Dim<double>> getCameraCalibrationPoints(bool reference) const;
    /// Stores the points with six decimals; the getter goes on to give them unrounded.
    virtual void setCameraCalibrationPoints(bool reference, const std::map<int, Point_2Dim<double>>& points);
    virtual double getMaskingROIScreenAreaPercentage() const;
    virtual bool isExtendedContrast() const;

    std::wstring getName() const;  ///< "Camera_XX" when missing
    void setName(const std::wstring& name);
    /// XML text of the device's description; empty when there is none.
    std::wstring getDeviceSnippet() const;
    /// Stores one XML element. An empty text leaves a stored description alone. Throws CorvaneException, changing nothing,
    /// for text that is not one well-formed element.
    void setDeviceSnippet(const std::wstring& snippet);
    std::wstring getDeviceSnippetOriginal() const;
    std::wstring getIntrinsicFileID() const;
    void setIntrinsicFileID(const std::wstring& fileID);
    bool isAutomaticExposure() const;
    void setAutomaticExposure(bool automatic);
    bool isMarkedSurfaceAutomaticExposure() const;
    void setMarkedSurfaceAutomaticExposure(bool automatic);
    void setExtendedContrast(bool extended);
    int getCameraGain() const;
    void setCameraGain(int gain);
    int getGeometryExposure() const;
    void setGeometryExposure(int exposure);
    int getLEDExposure() const;
    void setLEDExposure(int exposure);
    int getMarkedSurfaceExposure() const;
    void setMarkedSurfaceExposure(int exposure);
    int getBinarizationThreshold() const;
    void setBinarizationThreshold(int threshold);
    int getLEDBinarizationThreshold() const;
    void setLEDBinarizationThreshold(int threshold);
    int getMarkedSurfaceBinarizationThreshold() const;
    void setMarkedSurfaceBinarizationThreshold(int threshold);
    int getMarkedSurfaceOpacity() const;
    void setMarkedSurfaceOpacity(int opacity);
    int getSubliminalExposureWindow() const;
    void setSubliminalExposureWindow(int window);
    void setMaskingROIScreenAreaPercentage(double percentage);
    std::wstring getCameraReferenceImageResourceIdentifier() const;
    void setCameraReferenceImageResourceIdentifier(const std::wstring& identifier);
    int getCameraReferenceImageTimeStamp() const;
    void setCameraReferenceImageTimeStamp(int timeStamp);

    /// A flag of its own: it says nothing of whether a pose is stored.
    bool getExplicitExtrinsicsValid() const;
    void setExplicitExtrinsicsValid(bool valid);
    /// Position and (yaw, pitch, roll). True when both are stored as three numbers each; a point that is not is left as
    /// the caller had it.
    bool getExplicitExtrinsics(Point_3Dim<double>& xyz, Point_3Dim<double>& ypr) const;
    void setExplicitExtrinsics(const Point_3Dim<double>& xyz, const Point_3Dim<double>& ypr);
    bool doesExplicitExtrinsicsExist() const;  ///< whether a position is stored, readable or not

    /// Four values, or none when the stored list has another length. A single stored number counts as four equal ones
    /// and is rewritten so.
    std::vector<int> getMultiCamEdgeThreshold() const;
    /// Stores the first four values. Throws CorvaneException, and stores nothing, when there are fewer.
    void setMultiCamEdgeThreshold(const std::vector<int>& values);

    std::wstring getOldUID() const;  ///< the identifier before the last rename; "" when never renamed

private:
    void storeEdgeThresholds(const std::vector<int>& values) const;

    mutable std::map<int, Point_2Dim<double>> m_calibrationPoints;
    mutable std::map<int, Point_2Dim<double>> m_referenceCalibrationPoints;
};
