#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/BaseConfig.h"

/// One camera: identity and device, exposures, thresholds, its pose given by hand, and calibration points, which tie
/// numbered markers to places in its image.
///
/// A getter of a missing item gives the default that its comment names, and creates nothing; a setter stores at once and
/// checks nothing, where its comment says no more. Only calibration points are kept in the accessor as well. Exposure times
/// are numbers that the camera's driver understands; the library gives them no unit. The order of the virtual members is
/// part of the interface.
///
/// Its settings: sections/CameraItems.h and, as a page, docs/settings.md#camera.
class XMLCONFIG_API CameraConfig : public BaseConfig {
public:
    /// `configInfo` is borrowed; null gives the accessor a private document. Writes nothing.
    CameraConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~CameraConfig() override;
    /// Writes a new camera's values, named "Camera_" and its identifier.
    void initialize() override;

    /// Numbers of markers, and where the camera's image, or its reference image, shows them (pixels); no markers when
    /// missing. Reads the document until it finds points there. From then on it gives what it found, or what was set last,
    /// and does not see what others store.
    virtual std::map<int, Point_2Dim<double>> getCameraCalibrationPoints(bool reference) const;
    /// Stores the points with six decimals; the getter of this accessor goes on to give them unrounded.
    virtual void setCameraCalibrationPoints(bool reference, const std::map<int, Point_2Dim<double>>& points);
    /// Smallest region of interest that masking keeps, as a share of the screen's area in the image (fraction);
    /// 0.0001 when missing.
    virtual double getMaskingROIScreenAreaPercentage() const;
    virtual bool isExtendedContrast() const;  ///< whether images are taken with extended contrast; false when missing

    std::wstring getName() const;  ///< name people give the camera; "Camera_XX" when missing
    void setName(const std::wstring& name);
    /// How the camera is connected, as its driver describes it: an XML element as text; empty when missing.
    std::wstring getDeviceSnippet() const;
    /// Stores one XML element. An empty text leaves a stored description alone. Throws CorvaneException for a text that is
    /// not one well-formed element, and changes nothing then.
    void setDeviceSnippet(const std::wstring& snippet);
    /// The original device snippet, kept by other tools and only read here; empty when missing.
    std::wstring getDeviceSnippetOriginal() const;
    std::wstring getIntrinsicFileID() const;  ///< identifier of the file with the lens calibration; empty when missing
    void setIntrinsicFileID(const std::wstring& fileID);
    /// Whether the exposure for geometry captures is found automatically; true when missing.
    bool isAutomaticExposure() const;
    void setAutomaticExposure(bool automatic);
    /// Whether the exposure for captures of the marked surface is found automatically; true when missing.
    bool isMarkedSurfaceAutomaticExposure() const;
    void setMarkedSurfaceAutomaticExposure(bool automatic);
    void setExtendedContrast(bool extended);
    int getCameraGain() const;  ///< gain of the camera's sensor; 0 when missing
    void setCameraGain(int gain);
    int getGeometryExposure() const;  ///< exposure time for captures of the projected patterns; 100000 when missing
    void setGeometryExposure(int exposure);
    int getLEDExposure() const;  ///< exposure time for captures of the LED markers; 100000 when missing
    void setLEDExposure(int exposure);
    int getMarkedSurfaceExposure() const;  ///< exposure time for captures of the marked surface; 100000 when missing
    void setMarkedSurfaceExposure(int exposure);
    /// Brightness that parts light from dark in captures of the projected patterns; 75 when missing.
    int getBinarizationThreshold() const;
    void setBinarizationThreshold(int threshold);
    /// Brightness that parts light from dark in captures of the LED markers; 75 when missing.
    int getLEDBinarizationThreshold() const;
    void setLEDBinarizationThreshold(int threshold);
    /// Brightness that parts light from dark in captures of the marked surface; 75 when missing.
    int getMarkedSurfaceBinarizationThreshold() const;
    void setMarkedSurfaceBinarizationThreshold(int threshold);
    /// Opacity of the marked surface where it is drawn over the camera's image (percent); 20 when missing.
    int getMarkedSurfaceOpacity() const;
    void setMarkedSurfaceOpacity(int opacity);
    int getSubliminalExposureWindow() const;  ///< exposure window for patterns shown subliminally; 75 when missing
    void setSubliminalExposureWindow(int window);
    void setMaskingROIScreenAreaPercentage(double percentage);  ///< a fraction, not a percentage, in spite of its name
    /// Resource identifier of the camera's reference image; empty when missing.
    std::wstring getCameraReferenceImageResourceIdentifier() const;
    void setCameraReferenceImageResourceIdentifier(const std::wstring& identifier);
    /// When the camera's reference image was taken; 0 when there is none (seconds since 1970-01-01 UTC); 0 when missing.
    int getCameraReferenceImageTimeStamp() const;
    void setCameraReferenceImageTimeStamp(int timeStamp);

    /// Whether the explicit camera pose is to be used; false when missing. A flag of its own: it does not tell whether a
    /// pose is stored.
    bool getExplicitExtrinsicsValid() const;
    void setExplicitExtrinsicsValid(bool valid);
    /// The camera's pose given by hand: its position (meters), and yaw, pitch and roll, to which the library gives no unit.
    /// True when both are stored as three numbers each; a point that is not so stored is left as the caller had it.
    bool getExplicitExtrinsics(Point_3Dim<double>& xyz, Point_3Dim<double>& ypr) const;
    /// Stores both, or nothing where memory runs out.
    void setExplicitExtrinsics(const Point_3Dim<double>& xyz, const Point_3Dim<double>& ypr);
    bool doesExplicitExtrinsicsExist() const;  ///< whether a position is stored, readable or not

    /// Edge thresholds where the images of several cameras meet; a single number stands for all four. Gives four values, or
    /// none when the item is missing or its list has another length. A single number, the form of older releases, is
    /// replaced by four in the document too, which makes it dirty.
    std::vector<int> getMultiCamEdgeThreshold() const;
    /// Stores the first four values. Throws CorvaneException, and stores nothing, when there are fewer.
    void setMultiCamEdgeThreshold(const std::vector<int>& values);

    std::wstring getOldUID() const;  ///< identifier the section had before it was last renamed; empty when missing

private:
    void storeEdgeThresholds(const std::vector<int>& values) const;

    mutable std::map<int, Point_2Dim<double>> m_calibrationPoints;
    mutable std::map<int, Point_2Dim<double>> m_referenceCalibrationPoints;
};
