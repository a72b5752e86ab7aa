#include "sections/ColorConfig.h"

#include <string_view>

#include "platform/Numbers.h"
#include "sections/ColorItems.h"
#include "store/Tokens.h"

static constexpr auto& items = XMLConfig::detail::colorItems;
using XMLConfig::detail::leadingDouble;
using XMLConfig::detail::leadingInteger;
using XMLConfig::detail::tokensOf;

namespace {

constexpr std::size_t maxKeyLength = 127;

// The key of a pair of cameras: each ID in the place of a "%s".
std::wstring pairKey(std::wstring_view pattern, const std::wstring& first, const std::wstring& second) {
    const std::size_t firstPlace = pattern.find(L"%s");
    const std::size_t secondPlace = pattern.find(L"%s", firstPlace + 2);
    std::wstring key(pattern.substr(0, firstPlace));
    key += first;
    key += pattern.substr(firstPlace + 2, secondPlace - firstPlace - 2);
    key += second;
    key += pattern.substr(secondPlace + 2);
    return key.substr(0, maxKeyLength);
}

}  // namespace

ColorConfig::ColorConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, items.section, sectionID) {}

ColorConfig::~ColorConfig() = default;

void ColorConfig::initialize() { writeInitialValues(items); }

int ColorConfig::getMaxIterationsColor() const { return read(items.maxIterationsColor).value; }
void ColorConfig::setMaxIterationsColor(int value) { write(items.maxIterationsColor, value); }

int ColorConfig::getMinCameraExposureDelta() const { return read(items.minCameraExposureDelta).value; }
void ColorConfig::setMinCameraExposureDelta(int value) { write(items.minCameraExposureDelta, value); }

bool ColorConfig::getUseProjectorAperture() const { return read(items.useProjectorAperture).value; }
void ColorConfig::setUseProjectorAperture(bool value) { write(items.useProjectorAperture, value); }

double ColorConfig::getNormalizedThresholdBrightness() const { return read(items.normalizedThresholdBrightness).value; }
void ColorConfig::setNormalizedThresholdBrightness(double value) { write(items.normalizedThresholdBrightness, value); }

double ColorConfig::getNormalizedThresholdColor() const { return read(items.normalizedThresholdColor).value; }
void ColorConfig::setNormalizedThresholdColor(double value) { write(items.normalizedThresholdColor, value); }

bool ColorConfig::getBrightnessAdjustViaLampPower() const { return read(items.brightnessAdjustViaLampPower).value; }
void ColorConfig::setBrightnessAdjustViaLampPower(bool value) { write(items.brightnessAdjustViaLampPower, value); }

int ColorConfig::getTargetSizeX() const { return read(items.targetSizeX).value; }
void ColorConfig::setTargetSizeX(int value) { write(items.targetSizeX, value); }

int ColorConfig::getTargetSizeY() const { return read(items.targetSizeY).value; }
void ColorConfig::setTargetSizeY(int value) { write(items.targetSizeY, value); }

double ColorConfig::getUserLampPowerCap() const { return read(items.userLampPowerCap).value; }
void ColorConfig::setUserLampPowerCap(double value) { write(items.userLampPowerCap, value); }

std::wstring ColorConfig::getAdvColorCommPort() const { return read(items.advColorCommPort).value; }
void ColorConfig::setAdvColorCommPort(const std::wstring& value) { write(items.advColorCommPort, value); }

double ColorConfig::getBrightnessTolerance() const { return read(items.brightnessTolerance).value; }
void ColorConfig::setBrightnessTolerance(double value) { write(items.brightnessTolerance, value); }

double ColorConfig::getColourTolerance() const { return read(items.colourTolerance).value; }
void ColorConfig::setColourTolerance(double value) { write(items.colourTolerance, value); }

double ColorConfig::getColourConvergeJump() const { return read(items.colourConvergeJump).value; }
void ColorConfig::setColourConvergeJump(double value) { write(items.colourConvergeJump, value); }

Point_2Dim<double> ColorConfig::getNormalizedValidExposureSampleRange() const {
    return read(items.normalizedValidExposureSampleRange).value;
}
void ColorConfig::setNormalizedValidExposureSampleRange(const Point_2Dim<double>& value) {
    write(items.normalizedValidExposureSampleRange, value);
}

int ColorConfig::getColorimeterType() const { return read(items.colorimeterType).value; }
void ColorConfig::setColorimeterType(int value) { write(items.colorimeterType, value); }

std::wstring ColorConfig::getAdvancedColorFilename() const { return read(items.advancedColorFilename).value; }
void ColorConfig::setAdvancedColorFilename(const std::wstring& value) { write(items.advancedColorFilename, value); }

// Lists in one item.

std::vector<std::wstring> ColorConfig::getCameraOrder() const { return tokensOf(read(items.cameraOrder).value); }

void ColorConfig::setCameraOrder(const std::vector<std::wstring>& ids) {
    std::wstring text;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (i > 0) text += L',';
        text += ids[i];
    }
    write(items.cameraOrder, text);
}

void ColorConfig::getCameraOverlapPointAndChannel(const std::wstring& cameraA, const std::wstring& cameraB,
                                                  Point_3Dim<double>& point, int& channelA, int& channelB) const {
    const std::wstring key = pairKey(items.cameraOverlapPoint.key, cameraA, cameraB);
    const std::vector<std::wstring> tokens = tokensOf(get(key, items.cameraOverlapPoint.fallback).value);
    if (tokens.size() != 5) return;
    point = {leadingDouble(tokens[0]), leadingDouble(tokens[1]), leadingDouble(tokens[2])};
    channelA = leadingInteger(tokens[3]);
    channelB = leadingInteger(tokens[4]);
}
