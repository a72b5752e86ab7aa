#pragma once

#include <string>
#include <vector>

#include "manager/Layout.h"
#include "manager/layout/Vector.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "store/ConfigInfo.h"

/// Installations made for a test, on documents in memory.

/// A channel to be; angles in degrees.
struct RigChannel {
    double yaw = 0.0;
    double pitch = 0.0;
    double roll = 0.0;
    double left = -30.0;
    double right = 30.0;
    double top = 20.0;
    double bottom = -20.0;
};

inline void put(ConfigInfo& document, const std::wstring& id, const RigChannel& channel) {
    constexpr double degree = XMLConfig::detail::degree;
    ProjectorConfig projector(&document, id);
    projector.setName(L"P" + id);
    projector.setChannelExtentsFromViewport(
        Viewport(projector.getEyePoint(), {channel.yaw * degree, channel.pitch * degree, channel.roll * degree},
                 channel.left * degree, channel.right * degree, channel.top * degree, channel.bottom * degree, 1, 1));
}

/// Projectors "1", "2" and so on.
inline void put(ConfigInfo& document, const std::vector<RigChannel>& channels) {
    for (std::size_t i = 0; i < channels.size(); ++i) put(document, std::to_wstring(i + 1), channels[i]);
}

inline XMLConfig::Layout layoutOf(const std::vector<RigChannel>& channels) {
    ConfigInfo document;
    put(document, channels);
    return XMLConfig::layout(document);
}

/// A sphere around the eye points, its limits in degrees.
inline void putSphere(ConfigInfo& document, double minTheta, double maxTheta, double minPhi, double maxPhi) {
    constexpr double degree = XMLConfig::detail::degree;
    ScreenConfig screen(&document, nullptr, L"");
    screen.setShape(BaseConfig::SHAPE_SPHERE);
    screen.setRadius(5.0);
    screen.setMinTheta(minTheta * degree);
    screen.setMaxTheta(maxTheta * degree);
    screen.setMinPhi(minPhi * degree);
    screen.setMaxPhi(maxPhi * degree);
}

/// The six sides of a cube around the eye, a hair wider than 90 degrees.
inline std::vector<RigChannel> cube() {
    constexpr double half = 45.0001;
    const RigChannel side{0.0, 0.0, 0.0, -half, half, half, -half};
    std::vector<RigChannel> sides(6, side);
    for (std::size_t i = 0; i < 4; ++i) sides[i].yaw = 90.0 * static_cast<double>(i);
    sides[4].pitch = 90.0;
    sides[5].pitch = -90.0;
    return sides;
}
