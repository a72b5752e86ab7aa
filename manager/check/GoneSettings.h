#pragma once

#include <string>
#include <string_view>

namespace XMLConfig::detail {

/// Settings of one section that the upgrade to one file version takes away.
struct GoneSettings {
    const wchar_t* release;  ///< the file version, as people write it
    const wchar_t* section;
    std::wstring_view keys;  ///< between blanks; "*" at an end stands for a number
};

/// History: a step of the upgrade adds rows here, and none changes. A test holds them against what the steps take away.
inline constexpr GoneSettings goneSettings[] = {
    {L"2.005", L"Geometry", L" CalConf* Blob_Width Blob_Height Blob_Close_Enough Edge_Blob_Offset "},
    {L"2.005", L"Camera", L" MaskingROIPixelBuffer "},
    {L"2.005", L"Projector",
     L" Spherical_Angle_Left Spherical_Angle_Right Spherical_Angle_Bottom Spherical_Angle_Top Top_Edge Bottom_Edge "
     L"Left_Edge Right_Edge ID Projector_MAC_Address Protocol Projector_Comm_String Projector_Comm_Long "},
    {L"2.005", L"Screen", L" Eye_Point Screen_RotationRadius "},
    {L"2.005", L"System", L" Use_Frame_Grabber Image_Export_Template Imaging_Library Portrait_Mode "},
    {L"2.005", L"TargetLocator",
     L" Unit AngleUnit Center_Point Height Width Radius RotationRadius MinTheta MaxTheta MinPhi MaxPhi "},
    {L"3.0", L"Camera", L" Camera_Comm_Long Camera_Comm_String "},
    {L"3.0", L"TargetLocator", L" Inset_Border "},
    {L"5.0", L"System", L" Image_Export_Dir "},
    {L"5.0", L"Geometry", L" Warp_Memory_Location Warp_Memory_Name Blend_Memory_Location Blend_Memory_Name "},
    {L"6.0", L"Projector", L" X_Pixel_Size Y_Pixel_Size GeomPnts Sample_Region Edge_Blob_Offset_X Edge_Blob_Offset_Y "},
    {L"6.0", L"Geometry",
     L" InputResolutionX InputResolutionY CalibrationEngine Serial_Run Blob_Location_Algorithm Use_Quick_Cal "
     L"Use_TSAI_Extrapolation Mapper_Box_Size Mapper_Spacing "},
    {L"6.0", L"Camera",
     L" Locate_Screen CalibrationTimeStamp Calibration_Type Camera_Calibration_Engine SensorSize_X SensorSize_Y "
     L"FocalLength_X FocalLength_Y ImageCenter_X ImageCenter_Y RadialDistortion_1 RadialDistortion_2 "
     L"TangentialDistortion_1 TangentialDistortion_2 Aperture Red_Exposure Green_Exposure Blue_Exposure White_Exposure "
     L"Channel_* White_Balance_Coefficients Scale_Factor Kappa Image_Center_TX Image_Center_TY "
     L"LensDropoffPnts_* InterCameraDeltaSample_* Automatic_Binarization "},
    {L"9.0", L"Camera",
     L" CameraType Model SerialNumber Resolution_X Resolution_Y Connection Protocol Bit_Depth Camera_Lens_Name "
     L"ShowOnOffMapperBlobs "},
    {L"9.0", L"Screen", L" Unit AngleUnit GUI_3DPointDistribution Mask_AngleUnit "},
    {L"9.0", L"Geometry", L" IsStacked IsAutoOrderRequired "},
    {L"9.0", L"System", L" Load_Skorra_File "},
    {L"9.0", L"TargetLocator", L" ChannelExtentsAngleUnit Inset_Unit "},
};

/// The file version in which the setting went; null for one that no release had.
const wchar_t* releaseWithout(const std::wstring& section, const std::wstring& key);

}  // namespace XMLConfig::detail
