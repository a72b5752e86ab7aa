#pragma once

#include <string>
#include <vector>

#include "base/BaseConfig.h"

/// The "Color" section: how colour and brightness of the projectors are matched, measured by the cameras and optionally by
/// a colorimeter. The accessor keeps no values. A getter of a missing item gives the default that its comment names, and
/// creates nothing; setters store values as given, without a check.
///
/// Its settings: sections/ColorItems.h and, as a page, docs/settings.md#color.
class XMLCONFIG_API ColorConfig : public BaseConfig {
public:
    /// Borrows the document (null: a private one). Writes nothing.
    ColorConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ColorConfig() override;
    /// Writes the values of a new section: 25 rounds, a target size of 0, a range of exposure samples of (0.985, 0.99), and
    /// for the rest what a missing item gives. The advanced colour file name and overlap points are not written.
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
    /// IDs of the cameras in the order in which they are used; empty ones are left out. Missing: an empty list.
    std::vector<std::wstring> getCameraOrder() const;
    /// Stores the IDs joined by commas; an ID that holds a blank, a comma, a line feed or a tab reads back as several.
    void setCameraOrder(const std::vector<std::wstring>& ids);
    /// Lowest and highest fraction of a camera's range at which an exposure sample counts: x is the lowest, y the highest.
    /// Missing: (0, 0).
    Point_2Dim<double> getNormalizedValidExposureSampleRange() const;
    void setNormalizedValidExposureSampleRange(const Point_2Dim<double>& value);
    /// Number of the kind of colorimeter. Missing: 0.
    int getColorimeterType() const;
    void setColorimeterType(int value);
    /// File in which the results of advanced colour matching are saved, as stored:
    /// XMLConfigManager::getAdvancedColorFilename gives it as a path that can be opened. Missing:
    /// "SavedAdvancedColor.skorrax".
    std::wstring getAdvancedColorFilename() const;
    void setAdvancedColorFilename(const std::wstring& value);
    /// Point seen by both cameras of a pair, by their IDs, and the channel that shows it to each: numbers without a unit of
    /// the library's. (A, B) and (B, A) are different pairs. Leaves all three outputs alone when the item is missing or does
    /// not hold exactly five pieces; a piece that is no number reads 0. Other tools store these points: there is no setter.
    void getCameraOverlapPointAndChannel(const std::wstring& cameraA, const std::wstring& cameraB, Point_3Dim<double>& point,
                                         int& channelA, int& channelB) const;
};
