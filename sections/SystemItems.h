#pragma once

#include "base/SettingTable.h"
#include "sections/SystemConfig.h"

namespace XMLConfig::detail {

/// The settings of the "System" section.
// clang-format off
struct SystemItems : SettingTable {
    constexpr SystemItems() : SettingTable(L"System") {}

    Descriptor<std::wstring> runType{*this, L"RunType", {L"ClassicRun"},
        means(L"kind of calibration run").oneOf({L"ClassicRun", L"CinemaRun", L"Palvex3DRun"}).elseCountsAs(L"ClassicRun")};
    Descriptor<bool> areBlindersUsed{*this, L"Are_Blinders_Used", {false, false},
        means(L"whether blinders keep stray projector light off the screen")};
    Descriptor<bool> isBlbUsed{*this, L"Is_Blb_Used", {false},
        means(L"whether black-level blending is used")};
    Descriptor<bool> isCameraUsed{*this, L"Is_Camera_Used", {true, true},
        means(L"whether a run measures with cameras")};
    Descriptor<bool> isReferenceOverlayMaskingEnabled{*this, L"Is_Reference_Overlay_Masking_Enabled", {true},
        means(L"whether what lies outside the screen surface is masked in the camera images")};
    Descriptor<bool> poseBlenderIgnoresShadows{*this, L"PoseBlenderIgnoresShadows", {false},
        means(L"whether blending from projector poses leaves shadowed (occluded) areas out of account")};
    Descriptor<int> availableBlackBoxPowerPorts{*this, L"Available_BlackBox_Power_Ports", {2, 4},
        means(L"number of power ports a black box offers")};
    Descriptor<Special<SettingType::BlackBox>> blackBoxCamerasComm{*this, L"Black_Box_Cameras_Comm", {L""},
        means(L"black box that powers the cameras: enabled, protocol, address, port, power port, other power ports")};
    Descriptor<Special<SettingType::BlackBox>> blackBoxLEDLightsComm{*this, L"Black_Box_LED_Lights_Comm", {L""},
        means(L"black box that powers the LED lights: enabled, protocol, address, port, power port, other power ports")};
    Descriptor<std::wstring> motoBlendInitCommand{*this, L"MotoBlend_Init_Command", {L""},
        means(L"command that prepares the motorised blend plates of projectors without a command of their own")};
    Descriptor<std::wstring> motoBlendOpenCommand{*this, L"MotoBlend_Open_Command", {L""},
        means(L"command that opens the motorised blend plates of projectors without a command of their own")};
    Descriptor<std::wstring> motoBlendCloseCommand{*this, L"MotoBlend_Close_Command", {L""},
        means(L"command that closes the motorised blend plates of projectors without a command of their own")};
    Descriptor<bool> parallelizeSends{*this, L"Parallelize_Sends", {false, true},
        means(L"whether warps are sent to all projectors at the same time")};
    Descriptor<bool> oneShotMappers{*this, L"One_Shot_Mappers", {false},
        means(L"whether all mapper blobs are shown in one image instead of a sequence")};
    Descriptor<bool> supportsPellinor{*this, L"SupportsPellinor", {false},
        means(L"whether the installation supports Pellinor runs")};
    Descriptor<int> actCount{*this, L"ACT_Count", {0, 0},
        means(L"number of ACT units").atLeast(0)};
    Descriptor<std::wstring> actAddress{*this, L"ACT_Address_%d", {L""},
        means(L"address of the ACT unit of that number, counted from 0")};
    Descriptor<Special<SettingType::IntegerPairs>> actRelayAssociations{*this, L"ACT_Relay_Associations_%d", {L""},
        means(L"relay associations of the ACT unit of that number: two integers a line")};
    Descriptor<std::wstring> actBlobDetectionMethod{*this, L"ACT_Blob_Detection_Method", {L"basic"},
        means(L"how ACT calibration detects blobs in the camera images")};
    Descriptor<double> actBlobMinArea{*this, L"ACT_Blob_Min_Area", {2.0},
        means(L"smallest area of a blob in ACT calibration").in(Unit::SquarePixels)};
    Descriptor<double> actBlobMaxArea{*this, L"ACT_Blob_Max_Area", {2500.0},
        means(L"largest area of a blob in ACT calibration").in(Unit::SquarePixels).onlyRead()};
    Descriptor<double> actBlobClusteringDistance{*this, L"ACT_Blob_Clustering_Distance", {5.0},
        means(L"distance within which detections are gathered to one blob in ACT calibration").in(Unit::Pixels).onlyRead()};
    Descriptor<double> actBlobMinSeparationDistance{*this, L"ACT_Blob_Min_Separation_Distance", {5.0},
        means(L"smallest distance between two blobs in ACT calibration").in(Unit::Pixels).onlyRead()};
    Descriptor<int> actBlobIntensityJumpThreshold{*this, L"ACT_Blob_Intensity_Jump_Threshold", {50},
        means(L"step of brightness that marks a light being switched in ACT calibration").onlyRead()};
    Descriptor<int> actBlobMaxObservations{*this, L"ACT_Blob_Max_Observations", {100},
        means(L"most observations of a blob that ACT calibration takes into account").onlyRead()};
    Descriptor<std::wstring> cinemaFrame{*this, L"Cinema|Frame", {L"Flat"},
        means(L"picture format of a cinema run").oneOf({L"Flat", L"Scope"}).elseCountsAs(L"Flat")
            .countsWhile(L"", L"RunType", {L"CinemaRun"})};
    Descriptor<double> cinemaKeystoneValue{*this, L"Cinema|Keystone_Value", {0.0},
        means(L"keystone correction of the cinema picture").countsWhile(L"", L"RunType", {L"CinemaRun"})};
    Descriptor<double> cinemaVerticalShift{*this, L"Cinema|Vertical_Shift", {0.0},
        means(L"vertical shift of the cinema picture").countsWhile(L"", L"RunType", {L"CinemaRun"})};
    Descriptor<double> cinemaVerticalStretch{*this, L"Cinema|Vertical_Stretch", {0.0},
        means(L"vertical stretch of the cinema picture").countsWhile(L"", L"RunType", {L"CinemaRun"})};
    Descriptor<int> glareThresholdPercentage{*this, L"Glare_Threshold_Percentage",
        {SystemConfig::kDefaultGlareThreshold, SystemConfig::kDefaultGlareThreshold},
        means(L"brightness from which a camera pixel counts as glare; 100 finds none").in(Unit::Percent).within(1, 100)
            .inOurJudgement()};
    Descriptor<int> markedSurfaceMaskingExpansionPercentage{*this, L"Marked_Surface_Masking_Expansion_Percentage",
        {SystemConfig::kDefaultMarkedSurfaceMaskingExpansionPct, SystemConfig::kDefaultMarkedSurfaceMaskingExpansionPct},
        means(L"how far the mask around the marked surface is widened").in(Unit::Percent).within(0, 100).inOurJudgement()};
    Descriptor<int> referenceMappingsTimestamp{*this, L"Reference_Mappings_Timestamp", {0},
        means(L"when the reference mappings were taken; 0 for never").in(Unit::EpochSeconds).byRuns()};
    Descriptor<std::wstring> markerLocationMethod{*this, L"Marker_Location_Method", {L"manual", L"manual"},
        means(L"how the markers are found in the camera images; \"-prompt\" at the end asks the user before an "
              L"automatic one")
            .oneOf({L"manual", L"led", L"led-manual", L"act", L"act-prompt", L"marked-surface-automatic",
                    L"marked-surface-automatic-prompt", L"structured-light", L"checkerboard"})
            .elseCountsAs(L"manual")};
    Descriptor<std::wstring> skorraFile{*this, L"Skorra_File", {L"untitled.skorrax"},
        means(L"name of the warp file that a run produces")};
    Descriptor<std::wstring> lengthUnit{*this, L"Length_Unit", {L"Meters", L"Meters"},
        means(L"unit in which the application shows and takes lengths")
            .oneOf({L"Millimeters", L"Centimeters", L"Inches", L"Feet", L"Meters"})};
    Descriptor<std::wstring> angleUnit{*this, L"AngleUnit", {L"Degrees", L"Degrees"},
        means(L"unit in which the application shows and takes angles").oneOf({L"Degrees", L"Radians"})};
};
// clang-format on

inline constexpr SystemItems systemItems;
static_assert(keysAreDistinct(systemItems));

}  // namespace XMLConfig::detail
