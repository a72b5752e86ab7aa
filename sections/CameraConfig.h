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
/// Its settings: sections/CameraItems.h and, as a page, docs/settings.md#camera.
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
    /// Smallest region of interest that masking keeps, as a share of the screen's area in the image (fraction).
    virtual double getMaskingROIScreenAreaPercentage() const;
    virtual bool isExtendedContrast() const;  ///< whether images are taken with extended contrast

    std::wstring getName() const;  ///< name people give the camera; "Camera_XX" when missing
    void setName(const std::wstring& name);
    /// How the camera is connected, as its driver describes it. An XML text; empty when there is none.
    std::wstring getDeviceSnippet() const;
    /// Stores one XML element. An empty text leaves a stored description alone. Throws CorvaneException, changing nothing,
    /// for text that is not one well-formed element.
    void setDeviceSnippet(const std::wstring& snippet);
    std::wstring getDeviceSnippetOriginal() const;  ///< the original device snippet, kept by other tools and only read here
    std::wstring getIntrinsicFileID() const;        ///< identifier of the file with the lens calibration
    void setIntrinsicFileID(const std::wstring& fileID);
    bool isAutomaticExposure() const;  ///< whether the exposure for geometry captures is found automatically
    void setAutomaticExposure(bool automatic);
    /// Whether the exposure for captures of the marked surface is found automatically.
    bool isMarkedSurfaceAutomaticExposure() const;
    void setMarkedSurfaceAutomaticExposure(bool automatic);
    void setExtendedContrast(bool extended);
    int getCameraGain() const;  ///< gain of the camera's sensor
    void setCameraGain(int gain);
    int getGeometryExposure() const;  ///< exposure time for captures of the projected patterns
    void setGeometryExposure(int exposure);
    int getLEDExposure() const;  ///< exposure time for captures of the LED markers
    void setLEDExposure(int exposure);
    int getMarkedSurfaceExposure() const;  ///< exposure time for captures of the marked surface
    void setMarkedSurfaceExposure(int exposure);
    int getBinarizationThreshold() const;  ///< brightness that parts light from dark in captures of the projected patterns
    void setBinarizationThreshold(int threshold);
    int getLEDBinarizationThreshold() const;  ///< brightness that parts light from dark in captures of the LED markers
    void setLEDBinarizationThreshold(int threshold);
    /// Brightness that parts light from dark in captures of the marked surface.
    int getMarkedSurfaceBinarizationThreshold() const;
    void setMarkedSurfaceBinarizationThreshold(int threshold);
    /// Opacity of the marked surface where it is drawn over the camera's image (percent).
    int getMarkedSurfaceOpacity() const;
    void setMarkedSurfaceOpacity(int opacity);
    int getSubliminalExposureWindow() const;  ///< exposure window for patterns shown subliminally
    void setSubliminalExposureWindow(int window);
    void setMaskingROIScreenAreaPercentage(double percentage);
    std::wstring getCameraReferenceImageResourceIdentifier() const;  ///< resource identifier of the camera's reference image
    void setCameraReferenceImageResourceIdentifier(const std::wstring& identifier);
    /// When the camera's reference image was taken; 0 when there is none (seconds since 1970-01-01 UTC).
    int getCameraReferenceImageTimeStamp() const;
    void setCameraReferenceImageTimeStamp(int timeStamp);

    /// Whether the explicit camera pose is to be used. A flag of its own: it says nothing of whether a pose is stored.
    bool getExplicitExtrinsicsValid() const;
    void setExplicitExtrinsicsValid(bool valid);
    /// Position and (yaw, pitch, roll). True when both are stored as three numbers each; a point that is not is left as
    /// the caller had it.
    bool getExplicitExtrinsics(Point_3Dim<double>& xyz, Point_3Dim<double>& ypr) const;
    void setExplicitExtrinsics(const Point_3Dim<double>& xyz, const Point_3Dim<double>& ypr);
    bool doesExplicitExtrinsicsExist() const;  ///< whether a position is stored, readable or not

    /// Edge thresholds where the images of several cameras meet; a single number stands for all four. Four values, or none
    /// when the stored list has another length. A single stored number counts as four equal ones and is rewritten so.
    std::vector<int> getMultiCamEdgeThreshold() const;
    /// Stores the first four values. Throws CorvaneException, and stores nothing, when there are fewer.
    void setMultiCamEdgeThreshold(const std::vector<int>& values);

    std::wstring getOldUID() const;  ///< identifier the section had before it was last renamed; "" when never renamed

private:
    void storeEdgeThresholds(const std::vector<int>& values) const;

    mutable std::map<int, Point_2Dim<double>> m_calibrationPoints;
    mutable std::map<int, Point_2Dim<double>> m_referenceCalibrationPoints;
};
