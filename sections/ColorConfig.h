#pragma once

#include <string>
#include <vector>

#include "base/BaseConfig.h"

/// The "Color" section: how colour and brightness of the projectors are matched, measured by the cameras and optionally by
/// a colorimeter. Holds no state. Values are stored as given, without a check.
class XMLCONFIG_API ColorConfig : public BaseConfig {
public:
    ColorConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ColorConfig() override;
    /// A new section starts with more rounds (25) and another target size (0) than a missing item gives; it holds no
    /// advanced colour file name and no overlap points.
    void initialize() override;

    /// Missing: 1.
    int getMaxIterationsColor() const;
    void setMaxIterationsColor(int value);
    /// Milliseconds. Missing: 1000.
    int getMinCameraExposureDelta() const;
    void setMinCameraExposureDelta(int value);
    /// Missing: true.
    bool getUseProjectorAperture() const;
    void setUseProjectorAperture(bool value);
    /// A fraction. Missing: 0.01.
    double getNormalizedThresholdBrightness() const;
    void setNormalizedThresholdBrightness(double value);
    /// A fraction. Missing: 0.01.
    double getNormalizedThresholdColor() const;
    void setNormalizedThresholdColor(double value);
    /// Missing: true.
    bool getBrightnessAdjustViaLampPower() const;
    void setBrightnessAdjustViaLampPower(bool value);
    /// Missing: 124.
    int getTargetSizeX() const;
    void setTargetSizeX(int value);
    /// Missing: 124.
    int getTargetSizeY() const;
    void setTargetSizeY(int value);
    /// Missing: 1.0.
    double getUserLampPowerCap() const;
    void setUserLampPowerCap(double value);
    /// Missing: "COM1".
    std::wstring getAdvColorCommPort() const;
    void setAdvColorCommPort(const std::wstring& value);
    /// Missing: 0.5.
    double getBrightnessTolerance() const;
    void setBrightnessTolerance(double value);
    /// Missing: 0.001.
    double getColourTolerance() const;
    void setColourTolerance(double value);
    /// Missing: 0.5.
    double getColourConvergeJump() const;
    void setColourConvergeJump(double value);
    /// Without the empty ones. Missing: an empty list.
    std::vector<std::wstring> getCameraOrder() const;
    /// Joined by commas; an ID that holds a blank, a comma, a line feed or a tab reads back as several.
    void setCameraOrder(const std::vector<std::wstring>& ids);
    /// Low and high, as fractions. Missing: (0, 0).
    Point_2Dim<double> getNormalizedValidExposureSampleRange() const;
    void setNormalizedValidExposureSampleRange(const Point_2Dim<double>& value);
    /// Missing: 0.
    int getColorimeterType() const;
    void setColorimeterType(int value);
    /// As stored; the manager makes it a path that can be opened. Missing: "SavedAdvancedColor.skorrax".
    std::wstring getAdvancedColorFilename() const;
    void setAdvancedColorFilename(const std::wstring& value);
    /// A point that both cameras see, and a channel for each. (A, B) and (B, A) are different pairs. Leaves the outputs
    /// alone when the item is missing or does not hold exactly five pieces; a piece that is no number reads 0.
    void getCameraOverlapPointAndChannel(const std::wstring& cameraA, const std::wstring& cameraB, Point_3Dim<double>& point,
                                         int& channelA, int& channelB) const;
};
