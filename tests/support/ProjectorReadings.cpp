// What the accessors give for the settings of a projector.

#include "sections/ProjectorConfig.h"
#include "tests/support/AccessorReadings.h"

namespace XMLConfig::tests {

namespace {

std::wstring recordOfZeros(ProjectorConfig& /*projector*/) { return L"all zeros"; }  // its parts have rows of their own

}  // namespace

AccessorReadings readingsOfProjectors() {
    using S = ProjectorConfig;
    Readings<S> readings(L"Projector", readDevice,
                         [](ConfigInfo& document) { return std::make_unique<S>(&document, readDevice); });
    readings.row(L"Name", &S::getName)
        .row(L"DeviceSnippet", &S::getDeviceSnippet)
        .row(L"DeviceSnippetOriginal", &S::getDeviceSnippetOriginal)
        .row(L"Associated_Camera_Id_1", &S::getAssociatedCameraId1)
        .row(L"Associated_Camera_Id_2", &S::getAssociatedCameraId2)
        .row(L"Resolution_X", &S::getResolutionX)
        .row(L"Resolution_Y", &S::getResolutionY)
        .row(L"ImageResolution_X", &S::getImageResolutionX)
        .row(L"ImageResolution_Y", &S::getImageResolutionY)
        .row(L"InputImageScaling_Mode", &S::getInputImageScalingMode)
        .row(L"Portrait_Mode", &S::getPortraitMode)
        .row(L"Box_Size", &S::getBoxSize)
        .row(L"Box_Spacing", &S::getBoxSpacing)
        .row(L"Gamma", &S::getGamma)
        .row(L"Lamp_Power", &S::getLampPower)
        .row(L"Colour_User", &S::getColourUser)
        .row(L"Lamp_Mode", &S::getLampMode)
        .row(L"Blend_Top", &S::getBlendPercentTop)
        .row(L"Blend_Bottom", &S::getBlendPercentBottom)
        .row(L"Blend_Right", &S::getBlendPercentRight)
        .row(L"Blend_Left", &S::getBlendPercentLeft)
        .row(L"Channel_Extents|Heading|Yaw", &S::getChannelExtentHeadingYaw)
        .row(L"Channel_Extents|Heading|Pitch", &S::getChannelExtentHeadingPitch)
        .row(L"Channel_Extents|Heading|Roll", &S::getChannelExtentHeadingRoll)
        .row(L"Channel_Extents|VFOV|Top", &S::getChannelExtentVFOVTop)
        .row(L"Channel_Extents|VFOV|Bottom", &S::getChannelExtentVFOVBottom)
        .row(L"Channel_Extents|HFOV|Left", &S::getChannelExtentHFOVLeft)
        .row(L"Channel_Extents|HFOV|Right", &S::getChannelExtentHFOVRight)
        .row(L"Channel_Extents|Eye_Point", &S::getEyePoint)
        .row(L"Designed|Frustum", recordOfZeros)
        .part(L"Designed|Frustum|Offset", [](S& s) { return s.getDesignedFrustum().Offset; })
        .part(L"Designed|Frustum|RotationYPR", [](S& s) { return s.getDesignedFrustum().RotationYPR; })
        .part(L"Designed|Frustum|FOVLeft", [](S& s) { return s.getDesignedFrustum().FOVLeft; })
        .part(L"Designed|Frustum|FOVRight", [](S& s) { return s.getDesignedFrustum().FOVRight; })
        .part(L"Designed|Frustum|FOVTop", [](S& s) { return s.getDesignedFrustum().FOVTop; })
        .part(L"Designed|Frustum|FOVBottom", [](S& s) { return s.getDesignedFrustum().FOVBottom; })
        .part(L"Designed|Frustum|ResolutionX", [](S& s) { return s.getDesignedFrustum().ResolutionX; })
        .part(L"Designed|Frustum|ResolutionY", [](S& s) { return s.getDesignedFrustum().ResolutionY; })
        .row(L"Designed|Lumens", &S::getDesignedLumens)
        .row(L"InitialProjectorData|YPR", &S::getInitialYPR)
        .row(L"InitialProjectorData|XYZ", &S::getInitialXYZ)
        .row(L"InitialProjectorData|F", &S::getInitialF)
        .row(L"InitialProjectorData|Aspect_Ratio", &S::getInitialAspectRatio)
        .row(L"InitialProjectorData|Offset", &S::getInitialOffset)
        .row(L"OldSectionID", &S::getOldUID)
        .row(L"Screen_Area_Left", &S::getScreenAreaLeft)
        .row(L"Screen_Area_Right", &S::getScreenAreaRight)
        .row(L"Screen_Area_Top", &S::getScreenAreaTop)
        .row(L"Screen_Area_Bottom", &S::getScreenAreaBottom)
        .row(L"Black_Level", &S::getBlackLevel)
        .row(L"Black_Level_Boost", &S::getBlackLevelBoostFactor)
        .row(L"Black_Level_Tint", &S::getBlackLevelTint)
        .row(L"Pond_Of_Mirrors", recordOfZeros)
        .part(L"Pond_Of_Mirrors|Top", [](S& s) { return int(s.getPondOfMirrors().Top); })
        .part(L"Pond_Of_Mirrors|Bottom", [](S& s) { return int(s.getPondOfMirrors().Bottom); })
        .part(L"Pond_Of_Mirrors|Left", [](S& s) { return int(s.getPondOfMirrors().Left); })
        .part(L"Pond_Of_Mirrors|Right", [](S& s) { return int(s.getPondOfMirrors().Right); })
        .row(L"MotoBlend_Init_Command", &S::getMotoBlendInitCommand)
        .row(L"MotoBlend_Open_Command", &S::getMotoBlendOpenCommand)
        .row(L"MotoBlend_Close_Command", &S::getMotoBlendCloseCommand)
        .row(L"Fit_Order", &S::getFitOrder)
        .row(L"Projection_Model_File", &S::getProjectionModelFilename)
        .row(L"Projection_Model_Script", &S::getProjectionModelScript)
        .row(L"Projection_Layout_File", &S::getProjectionLayoutFilename)
        .row(L"SolverType", &S::getSolverType)
        .row(L"Red_Green_Alignment_Image", &S::getRedGreenAlignmentImageName)
        .row(L"Pellinor_Warp_Latency", &S::getPellinorWarpLatency);
    return readings.rows();
}

}  // namespace XMLConfig::tests
