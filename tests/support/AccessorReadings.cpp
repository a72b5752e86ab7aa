#include "tests/support/AccessorReadings.h"

#include "sections/ColorConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/MediaServerConfig.h"
#include "sections/ProjectorApprovedSlotsConfig.h"
#include "sections/ReprojectionAccuracy.h"
#include "sections/SiteAnalyticsConfig.h"
#include "sections/SystemConfig.h"
#include "sections/SystemTexts.h"
#include "store/Document.h"
#include "store/DocumentWriter.h"

namespace XMLConfig::tests {

namespace {

// Values that no single getter gives, as the library stores them.

std::wstring overlapPointOf(ColorConfig& color) {
    constexpr int untouched = -77;
    Point_3Dim<double> point;
    int first = untouched;
    int second = untouched;
    color.getCameraOverlapPointAndChannel(L"left", L"right", point, first, second);
    if (first == untouched && second == untouched) return L"";
    return formOf(point) + L", " + formOf(first) + L", " + formOf(second);
}

std::wstring orderOf(ColorConfig& color) {
    return storedBy(parseAddress(L"Color/CameraOrder"),
                    [&](ConfigInfo& document) { ColorConfig(&document, L"").setCameraOrder(color.getCameraOrder()); });
}

std::wstring relaysOf(SystemConfig& system) {
    return storedBy(parseAddress(L"System/ACT_Relay_Associations_2"), [&](ConfigInfo& document) {
        SystemConfig(&document, nullptr, L"").setACTRelayAssociations(2, system.getACTRelayAssociations(2));
    });
}

/// The text of the method; with what asks for a prompt where the method can have it.
std::wstring markerMethodOf(SystemConfig& system) {
    const auto method = system.getMarkerLocationMethod();
    const bool asks =
        system.isAutomaticCameraCalibrationEnabled() && system.getPromptUserForAutomaticCameraCalibrationEnabledState();
    return storedBy(parseAddress(L"System/Marker_Location_Method"), [&](ConfigInfo& document) {
        SystemConfig other(&document, nullptr, L"");
        other.setPromptUserForAutomaticCameraCalibrationEnabledState(asks);
        other.setMarkerLocationMethod(method);
    });
}

/// The accessor of results takes its document for good, and so gets a copy.
std::unique_ptr<ReprojectionAccuracy> resultsIn(ConfigInfo& document) {
    using namespace XMLConfig::detail;
    const std::string text = gather([&](const ByteSink& sink) { writeDocument(Document::of(document).tree(), sink); });
    return std::make_unique<ReprojectionAccuracy>(ConfigInfo::fromText(text, L"copy").release(), L"");
}

AccessorReadings readingsOfColor() {
    using S = ColorConfig;
    Readings<S> readings(L"Color", L"", [](ConfigInfo& document) { return std::make_unique<S>(&document, L""); });
    readings.row(L"MaxIterationsColor", &S::getMaxIterationsColor)
        .row(L"MinCameraExposureDeltaInMS", &S::getMinCameraExposureDelta)
        .row(L"UseProjectorAperture", &S::getUseProjectorAperture)
        .row(L"NormalizedThresholdForBrightness", &S::getNormalizedThresholdBrightness)
        .row(L"NormalizedThresholdForColor", &S::getNormalizedThresholdColor)
        .row(L"UseBrightnessAdjustViaLampPower", &S::getBrightnessAdjustViaLampPower)
        .row(L"AdvColor_TargetSizeX", &S::getTargetSizeX)
        .row(L"AdvColor_TargetSizeY", &S::getTargetSizeY)
        .row(L"UserLampPowerCap", &S::getUserLampPowerCap)
        .row(L"AdvColor_ComPort", &S::getAdvColorCommPort)
        .row(L"Brightness_Tolerance", &S::getBrightnessTolerance)
        .row(L"Colour_Tolerance", &S::getColourTolerance)
        .row(L"Colour_Converge_Jump", &S::getColourConvergeJump)
        .row(L"CameraOrder", orderOf)
        .row(L"NormalizedValidExposureSampleRange", &S::getNormalizedValidExposureSampleRange)
        .row(L"Colorimeter_Type", &S::getColorimeterType)
        .row(L"Advanced_Color_Filename", &S::getAdvancedColorFilename)
        .oneOfMany(L"CameraOverlapPoint_%s_%s", L"CameraOverlapPoint_left_right", overlapPointOf);
    return readings.rows();
}

AccessorReadings readingsOfGeometry() {
    using S = GeometryConfig;
    Readings<S> readings(L"Geometry", L"", [](ConfigInfo& document) { return std::make_unique<S>(&document, L""); });
    readings.row(L"Projector_Count", &S::getProjectorCount)
        .row(L"Projector_Layout_Width", &S::getProjectorLayoutWidth)
        .row(L"Projector_Layout_Height", &S::getProjectorLayoutHeight)
        .row(L"TilingEnabled", &S::getTilingEnabled)
        .row(L"Validate_Warps", &S::getValidateWarps)
        .row(L"Memory_Location", &S::getMemoryLocation)
        .row(L"Memory_Location_Name", &S::getMemoryLocationName)
        .row(L"Blend_Run", &S::getBlendRun)
        .row(L"Max_Grid_Width", &S::getMaxGridWidth)
        .row(L"Max_Grid_Height", &S::getMaxGridHeight)
        .row(L"Grid_Movement_Factor", &S::getGridMovementFactor)
        .row(L"Pellinor_Blob_Content_Masking", &S::getUseContentMaskingForBlobsForSubliminal)
        .row(L"Pellinor_Blob_Encoding", &S::getPellinorBlobEncoding)
        .row(L"Pellinor_Warp_Validation", &S::getDoPellinorWarpValidation)
        .row(L"UseBlendUndershootCompensation", &S::getUseBlendUndershootCompensation)
        .row(L"Persist_All_Blend_Combinations", &S::getPersistAllBlendCombinations)
        .row(L"Blob_Number_Historical", &S::getBlobNumHistorical)
        .row(L"Blob_Number_Calibration_Iterations", &S::getBlobNumCalibrationIterations)
        .row(L"Do_Iterations", &S::getDoIterations)
        .row(L"Markerless", &S::getMarkerless)
        .row(L"GlobalOptimization", &S::getGlobalOptimization)
        .row(L"Auto_Masking_Type", &S::getAutoMaskingType)
        .row(L"Fit_Order", &S::getFitOrder)
        .row(L"Fit_Solver", &S::getFitSolver)
        .row(L"Do_CalculateBlendsOnly_Run", &S::getDoCalculateBlendsOnlyRun)
        .row(L"BlackLevelAddedLight", &S::getBlackLevelAddedLight)
        .row(L"BlackLevelSlope", &S::getBlackLevelSlope)
        .row(L"BlackLevelMethod", &S::getBlackLevelMethod)
        .row(L"BlackLevelPixelSizeCompensation", &S::getBlackLevelPixelSizeCompensation)
        .row(L"Do_Spherical_Blend", &S::getDoSphericalBlend)
        .row(L"ProjectorBusyTestPatternEnabled", &S::getProjectorBusyTestPatternEnabled)
        .row(L"DoGatherValidation", &S::getDoGatherValidation)
        .row(L"GatherTries", &S::getGatherTries)
        .row(L"FailGatherOnValidationError", &S::getGatherValidationFailsRun)
        .row(L"ChannelCoverageGatherValidationDistanceFactor", &S::getChannelCoverageGatherValidationDistanceFactor)
        .row(L"ChannelCoverageGatherValidationPercentage", &S::getChannelCoverageGatherValidationPercentage)
        .row(L"Portrait_Mode", &S::getPortraitMode)
        .row(L"Enable_Automatic_Mapper_Settings", &S::getAutomaticMapperSettingsEnabled)
        .row(L"Box_Size", &S::getBoxSize)
        .row(L"Box_Spacing", &S::getBoxSpacing)
        .row(L"UseAutoBrightnessUniformity", &S::getUseAutoBrightnessUniformity)
        .row(L"BlendEdgeResampling", &S::getBlendEdgeResampling)
        .row(L"BlendUndershootCompensation", &S::getBlendUndershootCompensation)
        .row(L"ImageResolution_X", &S::getImageResolutionX)
        .row(L"ImageResolution_Y", &S::getImageResolutionY)
        .row(L"InputImageScaling_Mode", &S::getInputImageScalingMode)
        .row(L"UserStackHeightOverride", &S::getUserStackHeightOverride)
        .row(L"MaskMappers", &S::getMaskMappersEnabled);
    return readings.rows();
}

AccessorReadings readingsOfSystem() {
    using S = SystemConfig;
    Readings<S> readings(L"System", L"", [](ConfigInfo& document) { return std::make_unique<S>(&document, nullptr, L""); });
    readings.row(L"RunType", &S::getRunType)
        .row(L"Are_Blinders_Used", &S::getAreBlindersUsed)
        .row(L"Is_Blb_Used", &S::getIsBlbUsed)
        .row(L"Is_Camera_Used", &S::getIsCameraUsed)
        .row(L"Is_Reference_Overlay_Masking_Enabled", &S::isUseScreenAsMaskEnabled)
        .row(L"PoseBlenderIgnoresShadows", &S::getPoseBlenderIgnoresOcclusions)
        .row(L"Available_BlackBox_Power_Ports", &S::getNumAvailableBlackBoxPowerPorts)
        .row(L"Black_Box_Cameras_Comm", [](S& s) { return detail::blackBoxText(s.getBlackBoxCamerasComm()); })
        .row(L"Black_Box_LED_Lights_Comm", [](S& s) { return detail::blackBoxText(s.getBlackBoxLEDLightsComm()); })
        .row(L"MotoBlend_Init_Command", &S::getMotoBlendInitCommand)
        .row(L"MotoBlend_Open_Command", &S::getMotoBlendOpenCommand)
        .row(L"MotoBlend_Close_Command", &S::getMotoBlendCloseCommand)
        .row(L"Parallelize_Sends", &S::getParallelizeSends)
        .row(L"One_Shot_Mappers", &S::getOneShotMappersEnabled)
        .row(L"SupportsPellinor", &S::getSupportsPellinor)
        .row(L"ACT_Count", &S::getACTCount)
        .oneOfMany(L"ACT_Address_%d", L"ACT_Address_2", [](S& s) { return s.getACTAddress(2); })
        .oneOfMany(L"ACT_Relay_Associations_%d", L"ACT_Relay_Associations_2", relaysOf)
        .row(L"ACT_Blob_Detection_Method", &S::getACTBlobDetectionMethod)
        .row(L"ACT_Blob_Min_Area", &S::getACTBlobMinArea)
        .row(L"ACT_Blob_Max_Area", &S::getACTBlobMaxArea)
        .row(L"ACT_Blob_Clustering_Distance", &S::getACTBlobClusteringDistance)
        .row(L"ACT_Blob_Min_Separation_Distance", &S::getACTBlobMinSeparationDistance)
        .row(L"ACT_Blob_Intensity_Jump_Threshold", &S::getACTBlobIntensityJumpThreshold)
        .row(L"ACT_Blob_Max_Observations", &S::getACTBlobMaxObservations)
        .row(L"Cinema|Frame", &S::getCinemaFrameType)
        .row(L"Cinema|Keystone_Value", &S::getCinemaKeystoneValue)
        .row(L"Cinema|Vertical_Shift", &S::getCinemaVerticalShift)
        .row(L"Cinema|Vertical_Stretch", &S::getCinemaVerticalStretch)
        .row(L"Glare_Threshold_Percentage", &S::getGlareThreshold)
        .row(L"Marked_Surface_Masking_Expansion_Percentage", &S::getMarkedSurfaceMaskingExpansionPct)
        .row(L"Reference_Mappings_Timestamp", &S::getReferenceMappingsTimeStamp)
        .row(L"Marker_Location_Method", markerMethodOf)
        .row(L"Skorra_File", &S::getSkorraFilename)
        .row(L"Length_Unit", &S::getLengthUnit)
        .row(L"AngleUnit", &S::getAngleUnit);
    return readings.rows();
}

AccessorReadings readingsOfSlots() {
    using S = ProjectorApprovedSlotsConfig;
    Readings<S> readings(L"ProjectorApprovedSlots", L"",
                         [](ConfigInfo& document) { return std::make_unique<S>(&document, L""); });
    readings.row(L"CurrentSlotID", &S::getCurrentSlotID)
        .row(L"TimeOfLastRun", &S::getTimeOfLastRun)
        .row(L"LastRunDiagFolder", &S::getDiagnosticsFolderOfLastRun)
        .oneOfMany(L"Slot[%d]|Name", L"Slot[3]/Name", [](S& s) { return s.getSlotName(3); });
    return readings.rows();
}

AccessorReadings readingsOfAnalytics() {
    using S = SiteAnalyticsConfig;
    Readings<S> readings(L"SiteAnalytics", L"", [](ConfigInfo& document) { return std::make_unique<S>(&document, L""); });
    readings.row(L"SuccessfulRunNumber", &S::getSuccessfulRunNumber)
        .row(L"FailedRunNumber", &S::getFailedRunNumber)
        .row(L"LastRunTimestamp", &S::getLastRunTimestamp)
        .row(L"VisitTimestamp", &S::getVisitTimestamp);
    return readings.rows();
}

AccessorReadings readingsOfMediaServer() {
    using S = MediaServerConfig;
    Readings<S> readings(L"MediaServer", L"", [](ConfigInfo& document) { return std::make_unique<S>(&document, L""); });
    readings.row(L"outputFile", [](S& s) {
        std::wstring file;
        s.get(L"outputFile", file);
        return file;
    });
    return readings.rows();
}

AccessorReadings readingsOfResults() {
    using S = ReprojectionAccuracy;
    Readings<S> readings(L"global", L"", [](ConfigInfo& document) { return resultsIn(document); });
    readings.row(L"ReprojectionError_Max", [](S& s) { return s.getMaxError(); })
        .row(L"ReprojectionError_RMS", [](S& s) { return s.getRMSError(); })
        .row(L"ReprojectionError_OverlapPercent", [](S& s) { return s.getOverlapPercentage(); });
    return readings.rows();
}

}  // namespace

AccessorReadings accessorReadings() {
    AccessorReadings all;
    for (const auto& readings :
         {readingsOfColor, readingsOfGeometry, readingsOfScreen, readingsOfSystem, readingsOfTarget, readingsOfSlots,
          readingsOfAnalytics, readingsOfMediaServer, readingsOfProjectors, readingsOfCameras, readingsOfResults}) {
        const AccessorReadings rows = readings();
        all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
}

}  // namespace XMLConfig::tests
