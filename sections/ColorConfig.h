#pragma once

#include <string>
#include <vector>

#include "base/BaseConfig.h"

/// The "Color" section: how colour and brightness of the projectors are matched, measured by the cameras and optionally by
/// a colorimeter. Holds no state. Values are stored as given, without a check.
/// Its settings: sections/ColorItems.h and, as a page, docs/settings.md#color.
class XMLCONFIG_API ColorConfig : public BaseConfig {
public:
    ColorConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ColorConfig() override;
    /// A new section starts with more rounds (25) and another target size (0) than a missing item gives; it holds no
    /// advanced colour file name and no overlap points.
    void initialize() override;

    /// How many rounds of colour matching are made at most. Missing: 1.
    int getMaxIterationsColor() const;
    void setMaxIterationsColor(int value);
    /// Smallest change of a camera's exposure time (milliseconds). Missing: 1000.
    int getMinCameraExposureDelta() const;
    void setMinCameraExposureDelta(int value);
    /// Whether matching may adjust the projectors' apertures. Missing: true.
    bool getUseProjectorAperture() const;
    void setUseProjectorAperture(bool value);
    /// Brightness difference, as a fraction, at which brightness matching is good enough. Missing: 0.01.
    double getNormalizedThresholdBrightness() const;
    void setNormalizedThresholdBrightness(double value);
    /// Colour difference, as a fraction, at which colour matching is good enough. Missing: 0.01.
    double getNormalizedThresholdColor() const;
    void setNormalizedThresholdColor(double value);
    /// Whether brightness may be adjusted by the power of the lamps. Missing: true.
    bool getBrightnessAdjustViaLampPower() const;
    void setBrightnessAdjustViaLampPower(bool value);
    /// Width of the patch that is measured (pixels). Missing: 124.
    int getTargetSizeX() const;
    void setTargetSizeX(int value);
    /// Height of the patch that is measured (pixels). Missing: 124.
    int getTargetSizeY() const;
    void setTargetSizeY(int value);
    /// Highest lamp power that matching may set, as a fraction of full power. Missing: 1.0.
    double getUserLampPowerCap() const;
    void setUserLampPowerCap(double value);
    /// Serial port of the colorimeter. Missing: "COM1".
    std::wstring getAdvColorCommPort() const;
    void setAdvColorCommPort(const std::wstring& value);
    /// Difference in brightness that is accepted between projectors. Missing: 0.5.
    double getBrightnessTolerance() const;
    void setBrightnessTolerance(double value);
    /// Difference in colour that is accepted between projectors. Missing: 0.001.
    double getColourTolerance() const;
    void setColourTolerance(double value);
    /// Part of the remaining colour difference that one round of matching corrects (fraction). Missing: 0.5.
    double getColourConvergeJump() const;
    void setColourConvergeJump(double value);
    /// IDs of the cameras in the order in which they are used. Without the empty ones. Missing: an empty list.
    std::vector<std::wstring> getCameraOrder() const;
    /// Joined by commas; an ID that holds a blank, a comma, a line feed or a tab reads back as several.
    void setCameraOrder(const std::vector<std::wstring>& ids);
    /// Lowest and highest fraction of a camera's range at which an exposure sample counts. Low and high, as fractions.
    /// Missing: (0, 0).
    Point_2Dim<double> getNormalizedValidExposureSampleRange() const;
    void setNormalizedValidExposureSampleRange(const Point_2Dim<double>& value);
    /// Number of the kind of colorimeter. Missing: 0.
    int getColorimeterType() const;
    void setColorimeterType(int value);
    /// File in which the results of advanced colour matching are saved. As stored; the manager makes it a path that can be
    /// opened. Missing: "SavedAdvancedColor.skorrax".
    std::wstring getAdvancedColorFilename() const;
    void setAdvancedColorFilename(const std::wstring& value);
    /// A point that both cameras see, and a channel for each. (A, B) and (B, A) are different pairs. Leaves the outputs
    /// alone when the item is missing or does not hold exactly five pieces; a piece that is no number reads 0.
    void getCameraOverlapPointAndChannel(const std::wstring& cameraA, const std::wstring& cameraB, Point_3Dim<double>& point,
                                         int& channelA, int& channelB) const;
};
