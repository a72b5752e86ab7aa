#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/ElementView.h"
#include "store/FilePlaces.h"
#include "tools/Json.h"
#include "tools/Showing.h"

class ConfigInfo;

namespace tool {

/// What matters most of a configuration, as the library reads it. Angles are in radians, lengths in meters.
struct Summary {
    /// How a projector is reached; texts as its device snippet has them, empty where it has none.
    struct Connection {
        std::wstring type;
        std::wstring address;
        std::wstring port;
        std::wstring baud;
    };
    struct Projector {
        std::wstring id;
        std::wstring name;
        XMLConfig::ElementView element;
        int resolutionX = 0;
        int resolutionY = 0;
        double yaw = 0.0;
        double pitch = 0.0;
        double roll = 0.0;
        double fieldAcross = 0.0;
        double fieldUpright = 0.0;
        double blends[4] = {};              ///< left, right, top, bottom; -1 when unknown
        std::vector<std::wstring> cameras;  ///< IDs
        Connection connection;
    };
    struct Camera {
        std::wstring id;
        std::wstring name;
        bool automaticExposure = false;
        int exposure = 0;
        int gain = 0;
        std::wstring address;       ///< as its device snippet has it
        std::wstring serialNumber;  ///< as its device snippet has it
    };
    struct Screen {
        std::wstring shape;
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

    std::wstring version;    ///< of the file
    std::wstring buildDate;  ///< as stored, like the next one
    std::wstring buildNumber;
    // What a check finds.
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t notes = 0;
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
/// `file` is where the document stands; "" where it has none. `storedVersion` is that of the file where the document was
/// brought up to date.
Summary summarize(ConfigInfo& document, const std::wstring& file, std::optional<double> storedVersion);
/// The summary as tables; the name of the file is shown as given.
std::wstring summaryText(const Summary& summary, const std::wstring& file, const Showing& showing);
/// The members of the answer that stand for the summary; lines come from the places, which may be null.
Json summaryJson(const Summary& summary, const XMLConfig::FilePlaces* places);

}  // namespace tool
