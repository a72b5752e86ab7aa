#pragma once

#include <cstdint>
#include <string>
#include <vector>

class ConfigInfo;

namespace tool {

/// What matters most of a configuration, as the library reads it. Angles are in degrees.
struct Summary {
    struct Projector {
        std::wstring id;
        std::wstring name;
        int resolutionX = 0;
        int resolutionY = 0;
        double yaw = 0.0;
        double pitch = 0.0;
        double roll = 0.0;
        double fieldAcross = 0.0;
        double fieldUpright = 0.0;
        double blends[4] = {};  ///< left, right, top, bottom; -1 when unknown
    };
    struct Camera {
        std::wstring id;
        std::wstring name;
        bool automaticExposure = false;
        int exposure = 0;
        int gain = 0;
    };
    struct Screen {
        std::wstring shape;
        std::wstring unit;    ///< of the lengths
        double width = -1.0;  ///< negative when unknown, as height and radius
        double height = -1.0;
        double radius = -1.0;
        double minTheta = 0.0;
        double maxTheta = 0.0;
        double minPhi = 0.0;
        double maxPhi = 0.0;
    };
    struct Slot {
        std::wstring id;
        std::wstring name;
    };

    std::vector<Projector> projectors;
    int columns = 0;
    int rows = 0;
    std::vector<Camera> cameras;
    Screen screen;
    std::wstring target;
    int successfulRuns = 0;
    int failedRuns = 0;
    std::int32_t lastRun = 0;  ///< seconds since 1970-01-01 UTC; 0 for never
    std::vector<Slot> approvedSlots;
    int currentSlot = -1;  ///< -1 for none
};

/// Gathers it through the accessors of the sections, on an open document of the latest version.
Summary summarize(ConfigInfo& document);
/// The summary as tables.
std::wstring summaryText(const Summary& summary);

}  // namespace tool
