#pragma once

#include <tuple>

#include "base/Items.h"
#include "sections/SystemConfig.h"

/// The settings of the "System" section.
namespace XMLConfig::detail::systemItems {

inline constexpr const wchar_t* sectionName = L"System";

// clang-format off
inline constexpr auto runType = Item<std::wstring>{L"RunType", L"ClassicRun"}.holds(L"run type")
    .means(L"kind of calibration run: ClassicRun, CinemaRun or Palvex3DRun");
inline constexpr auto lengthUnit = Item<std::wstring>{L"Length_Unit", L"Meters", L"Meters"}.holds(L"length unit")
    .means(L"unit in which the application shows and takes lengths");
inline constexpr auto angleUnit = Item<std::wstring>{L"AngleUnit", L"Degrees", L"Degrees"}.holds(L"angle unit")
    .means(L"unit in which the application shows and takes angles");
inline constexpr auto markerLocationMethod =
    Item<std::wstring>{L"Marker_Location_Method", L"manual", L"manual"}.holds(L"marker location method")
    .means(L"how the markers are found in the camera images; \"-prompt\" at the end asks the user before an automatic one");
inline constexpr auto skorraFile = Item<std::wstring>{L"Skorra_File", L"untitled.skorrax"}
    .means(L"name of the warp file that a run produces");
inline constexpr auto areBlindersUsed = Item<bool>{L"Are_Blinders_Used", false, false}
    .means(L"whether blinders keep stray projector light off the screen");
inline constexpr auto isBlbUsed = Item<bool>{L"Is_Blb_Used", false}
    .means(L"whether black-level blending is used");
inline constexpr auto isCameraUsed = Item<bool>{L"Is_Camera_Used", true, true}
    .means(L"whether a run measures with cameras");
inline constexpr auto isReferenceOverlayMaskingEnabled = Item<bool>{L"Is_Reference_Overlay_Masking_Enabled", true}
    .means(L"whether what lies outside the screen surface is masked in the camera images");
inline constexpr auto poseBlenderIgnoresShadows = Item<bool>{L"PoseBlenderIgnoresShadows", false}
    .means(L"whether blending from projector poses leaves shadowed (occluded) areas out of account");
inline constexpr auto parallelizeSends = Item<bool>{L"Parallelize_Sends", false, true}
    .means(L"whether warps are sent to all projectors at the same time");
inline constexpr auto oneShotMappers = Item<bool>{L"One_Shot_Mappers", false}
    .means(L"whether all mapper blobs are shown in one image instead of a sequence");
inline constexpr auto supportsPellinor = Item<bool>{L"SupportsPellinor", false}
    .means(L"whether the installation supports Pellinor runs");
inline constexpr auto glareThresholdPercentage =
    Item<int>{L"Glare_Threshold_Percentage", SystemConfig::kDefaultGlareThreshold,
              SystemConfig::kDefaultGlareThreshold}.in(L"percent")
    .means(L"brightness from which a camera pixel counts as glare; 100 finds none");
inline constexpr auto markedSurfaceMaskingExpansionPercentage =
    Item<int>{L"Marked_Surface_Masking_Expansion_Percentage", SystemConfig::kDefaultMarkedSurfaceMaskingExpansionPct,
              SystemConfig::kDefaultMarkedSurfaceMaskingExpansionPct}.in(L"percent")
    .means(L"how far the mask around the marked surface is widened");
inline constexpr auto referenceMappingsTimestamp = Item<int>{L"Reference_Mappings_Timestamp", 0}.in(L"seconds")
    .means(L"when the reference mappings were taken; 0 for never");
inline constexpr auto availableBlackBoxPowerPorts = Item<int>{L"Available_BlackBox_Power_Ports", 2, 4}
    .means(L"number of power ports a black box offers");
inline constexpr auto blackBoxCamerasComm = Item<std::wstring>{L"Black_Box_Cameras_Comm", L""}.holds(L"black box")
    .means(L"black box that powers the cameras: enabled, protocol, address, port, power port, other power ports");
inline constexpr auto blackBoxLEDLightsComm = Item<std::wstring>{L"Black_Box_LED_Lights_Comm", L""}.holds(L"black box")
    .means(L"black box that powers the LED lights: enabled, protocol, address, port, power port, other power ports");
inline constexpr auto motoBlendInitCommand = Item<std::wstring>{L"MotoBlend_Init_Command", L""}
    .means(L"command that prepares the motorised blend plates of projectors without a command of their own");
inline constexpr auto motoBlendOpenCommand = Item<std::wstring>{L"MotoBlend_Open_Command", L""}
    .means(L"command that opens the motorised blend plates of projectors without a command of their own");
inline constexpr auto motoBlendCloseCommand = Item<std::wstring>{L"MotoBlend_Close_Command", L""}
    .means(L"command that closes the motorised blend plates of projectors without a command of their own");
inline constexpr auto actCount = Item<int>{L"ACT_Count", 0, 0}
    .means(L"number of ACT units");
inline constexpr auto actAddress = Item<std::wstring>{L"ACT_Address_%d", L""}
    .means(L"address of the ACT unit of that number, counted from 0");
inline constexpr auto actRelayAssociations = Item<std::wstring>{L"ACT_Relay_Associations_%d", L""}.holds(L"integer pairs")
    .means(L"relay associations of the ACT unit of that number: two integers a line");
inline constexpr auto actBlobDetectionMethod = Item<std::wstring>{L"ACT_Blob_Detection_Method", L"basic"}
    .means(L"how ACT calibration detects blobs in the camera images");
inline constexpr auto actBlobMinArea = Item<double>{L"ACT_Blob_Min_Area", 2.0}.in(L"square pixels")
    .means(L"smallest area of a blob in ACT calibration");
inline constexpr auto actBlobMaxArea = Item<double>{L"ACT_Blob_Max_Area", 2500.0}.in(L"square pixels").onlyRead()
    .means(L"largest area of a blob in ACT calibration");
inline constexpr auto actBlobClusteringDistance = Item<double>{L"ACT_Blob_Clustering_Distance", 5.0}.in(L"pixels").onlyRead()
    .means(L"distance within which detections are gathered to one blob in ACT calibration");
inline constexpr auto actBlobMinSeparationDistance =
    Item<double>{L"ACT_Blob_Min_Separation_Distance", 5.0}.in(L"pixels").onlyRead()
    .means(L"smallest distance between two blobs in ACT calibration");
inline constexpr auto actBlobIntensityJumpThreshold = Item<int>{L"ACT_Blob_Intensity_Jump_Threshold", 50}.onlyRead()
    .means(L"step of brightness that marks a light being switched in ACT calibration");
inline constexpr auto actBlobMaxObservations = Item<int>{L"ACT_Blob_Max_Observations", 100}.onlyRead()
    .means(L"most observations of a blob that ACT calibration takes into account");
inline constexpr auto cinemaFrame = Item<std::wstring>{L"Cinema|Frame", L"Flat"}.holds(L"cinema frame")
    .means(L"picture format of a cinema run: Flat or Scope");
inline constexpr auto cinemaKeystoneValue = Item<double>{L"Cinema|Keystone_Value", 0.0}
    .means(L"keystone correction of the cinema picture");
inline constexpr auto cinemaVerticalShift = Item<double>{L"Cinema|Vertical_Shift", 0.0}
    .means(L"vertical shift of the cinema picture");
inline constexpr auto cinemaVerticalStretch = Item<double>{L"Cinema|Vertical_Stretch", 0.0}
    .means(L"vertical stretch of the cinema picture");
// clang-format on

inline constexpr auto all = std::tuple(
    runType, lengthUnit, angleUnit, markerLocationMethod, skorraFile, areBlindersUsed, isBlbUsed, isCameraUsed,
    isReferenceOverlayMaskingEnabled, poseBlenderIgnoresShadows, parallelizeSends, oneShotMappers, supportsPellinor,
    glareThresholdPercentage, markedSurfaceMaskingExpansionPercentage, referenceMappingsTimestamp,
    availableBlackBoxPowerPorts, blackBoxCamerasComm, blackBoxLEDLightsComm, motoBlendInitCommand, motoBlendOpenCommand,
    motoBlendCloseCommand, actCount, actAddress, actRelayAssociations, actBlobDetectionMethod, actBlobMinArea,
    actBlobMaxArea, actBlobClusteringDistance, actBlobMinSeparationDistance, actBlobIntensityJumpThreshold,
    actBlobMaxObservations, cinemaFrame, cinemaKeystoneValue, cinemaVerticalShift, cinemaVerticalStretch);
static_assert(keysAreDistinct(all));

}  // namespace XMLConfig::detail::systemItems
