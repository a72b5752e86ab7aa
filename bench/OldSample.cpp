#include "OldSample.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <stdexcept>

#include "Sample.h"
#include "manager/Upgrade.h"
#include "store/ConfigInfo.h"

namespace bench {
namespace {

// "@n" stands for a number, "@mac" for the end of an address that no other device of the kind has.
constexpr const char* head = R"(<?xml version="1.0" encoding="UTF-8" standalone="no" ?>
<ConfigInfo>
  <Version>1.500</Version>
  <DevelopedBy>Ulvano</DevelopedBy>
  <System>
    <Site_Name>Planetarium &amp; Dome</Site_Name>
    <Use_Frame_Grabber>false</Use_Frame_Grabber>
    <Image_Export_Template>img_%03d.bmp</Image_Export_Template>
    <Imaging_Library>MIL</Imaging_Library>
    <Portrait_Mode>1</Portrait_Mode>
    <Image_Export_Dir>C:\dome\export</Image_Export_Dir>
    <Load_Skorra_File>dome.skorra</Load_Skorra_File>
    <Door_Controller>10.0.0.7:4001</Door_Controller>
  </System>
)";
constexpr const char* projector = R"(  <Projector ID="@n">
    <Name>Channel @n</Name>
    <ID>@n</ID>
    <Protocol>serial</Protocol>
    <Projector_MAC_Address>00:0a:@mac</Projector_MAC_Address>
    <Projector_Comm_String>COM4</Projector_Comm_String>
    <Projector_Comm_Long>19200</Projector_Comm_Long>
    <Spherical_Angle_Left>-9.000000000000000e-01</Spherical_Angle_Left>
    <Spherical_Angle_Right>-3.000000000000000e-01</Spherical_Angle_Right>
    <Spherical_Angle_Bottom>-2.000000000000000e-01</Spherical_Angle_Bottom>
    <Spherical_Angle_Top>6.000000000000000e-01</Spherical_Angle_Top>
    <Top_Edge>0</Top_Edge>
    <Bottom_Edge>1</Bottom_Edge>
    <Left_Edge>0</Left_Edge>
    <Right_Edge>1</Right_Edge>
    <Resolution_X>1400</Resolution_X>
    <Resolution_Y>1050</Resolution_Y>
    <Gamma>2.200000000000000e+00</Gamma>
    <Blend_Top>0.000000000000000e+00</Blend_Top>
    <Blend_Bottom>5.000000000000000e+00</Blend_Bottom>
    <Blend_Left>1.200000000000000e+01</Blend_Left>
    <Blend_Right>1.200000000000000e+01</Blend_Right>
    <Lamp_Mode>Dual</Lamp_Mode>
    <X_Pixel_Size>1.2</X_Pixel_Size>
    <Y_Pixel_Size>1.2</Y_Pixel_Size>
    <GeomPnts>121</GeomPnts>
    <Sample_Region>12</Sample_Region>
  </Projector>
)";
constexpr const char* camera = R"(  <Camera ID="@n">
    <Name>Camera @n</Name>
    <CameraType>0</CameraType>
    <SerialNumber>@n</SerialNumber>
    <Model>Ranger 1400M</Model>
    <Resolution_X>1384</Resolution_X>
    <Resolution_Y>1032</Resolution_Y>
    <Protocol>ieee1394</Protocol>
    <Bit_Depth>8</Bit_Depth>
    <Camera_Lens_Name>Fisheye 1.8</Camera_Lens_Name>
    <Camera_Comm_String>00:b0:@mac,[192.168.20.11]</Camera_Comm_String>
    <Camera_Comm_Long>0</Camera_Comm_Long>
    <MaskingROIPixelBuffer>12</MaskingROIPixelBuffer>
    <Locate_Screen>manual</Locate_Screen>
    <CalibrationTimeStamp>1131530400</CalibrationTimeStamp>
    <Calibration_Type>1</Calibration_Type>
    <Camera_Calibration_Engine>TSAI</Camera_Calibration_Engine>
    <SensorSize_X>6.4</SensorSize_X>
    <SensorSize_Y>4.8</SensorSize_Y>
    <FocalLength_X>812.5</FocalLength_X>
    <FocalLength_Y>811.9</FocalLength_Y>
    <ImageCenter_X>691.5</ImageCenter_X>
    <ImageCenter_Y>516.2</ImageCenter_Y>
    <RadialDistortion_1>-0.21</RadialDistortion_1>
    <RadialDistortion_2>0.06</RadialDistortion_2>
    <TangentialDistortion_1>0.001</TangentialDistortion_1>
    <TangentialDistortion_2>-0.0004</TangentialDistortion_2>
    <Aperture>8</Aperture>
    <Red_Exposure>40000</Red_Exposure>
    <Green_Exposure>42000</Green_Exposure>
    <Blue_Exposure>61000</Blue_Exposure>
    <White_Exposure>30000</White_Exposure>
    <Channel_0>0</Channel_0>
    <Channel_1>3</Channel_1>
    <Channel_2>6</Channel_2>
    <Channel_49>147</Channel_49>
    <Channel_50>no step knows the fiftieth</Channel_50>
    <White_Balance_Coefficients>1.0,0.92,1.31</White_Balance_Coefficients>
    <Scale_Factor>1.0</Scale_Factor>
    <Kappa>0.00012</Kappa>
    <Image_Center_TX>692</Image_Center_TX>
    <Image_Center_TY>516</Image_Center_TY>
    <LensDropoffPnts_0>0.0, 1.0</LensDropoffPnts_0>
    <LensDropoffPnts_1>0.1, 1.0</LensDropoffPnts_1>
    <LensDropoffPnts_2>0.2, 1.0</LensDropoffPnts_2>
    <LensDropoffPnts_3>0.3, 1.0</LensDropoffPnts_3>
    <InterCameraDeltaSample_0>0.00</InterCameraDeltaSample_0>
    <InterCameraDeltaSample_1>0.01</InterCameraDeltaSample_1>
    <InterCameraDeltaSample_2>0.02</InterCameraDeltaSample_2>
    <InterCameraDeltaSample_3>0.03</InterCameraDeltaSample_3>
    <Geometry_Exposure>100000</Geometry_Exposure>
  </Camera>
)";
constexpr const char* tail = R"(  <Geometry>
    <Projector_Count>@n</Projector_Count>
    <Blob_Width>9</Blob_Width>
    <Blob_Height>9</Blob_Height>
    <Blob_Close_Enough>3</Blob_Close_Enough>
    <Edge_Blob_Offset>15</Edge_Blob_Offset>
    <CalConf1>day</CalConf1>
    <CalConf2>night</CalConf2>
    <CalConf3>gala</CalConf3>
    <CalConf5>left over</CalConf5>
    <CalibrationEngine>SINGLE-CAMERA</CalibrationEngine>
    <Blob_Location_Algorithm>2</Blob_Location_Algorithm>
    <Serial_Run>true</Serial_Run>
    <Use_Quick_Cal>true</Use_Quick_Cal>
    <Use_TSAI_Extrapolation>true</Use_TSAI_Extrapolation>
    <Mapper_Box_Size>15</Mapper_Box_Size>
    <Mapper_Spacing>2.5</Mapper_Spacing>
    <Warp_Memory_Location>3</Warp_Memory_Location>
    <Warp_Memory_Name>Evening show</Warp_Memory_Name>
    <Blend_Memory_Location>4</Blend_Memory_Location>
    <Blend_Memory_Name>Evening blend</Blend_Memory_Name>
    <IsStacked>false</IsStacked>
    <IsAutoOrderRequired>false</IsAutoOrderRequired>
    <Markerless>false</Markerless>
  </Geometry>
  <Screen>
    <Shape>Sphere</Shape>
    <Eye_Point>0, 0, 0</Eye_Point>
    <Screen_RotationRadius>0</Screen_RotationRadius>
    <GUI_3DPointDistribution>5</GUI_3DPointDistribution>
    <Mask_AngleUnit>Degrees</Mask_AngleUnit>
    <Unit>Feet</Unit>
    <AngleUnit>Radians</AngleUnit>
    <Screen_Radius>6.500000000000000e+00</Screen_Radius>
    <Screen_MinTheta>-1.570796326794897e+00</Screen_MinTheta>
    <Screen_MaxTheta>1.570796326794897e+00</Screen_MaxTheta>
    <Screen_MinPhi>0.000000000000000e+00</Screen_MinPhi>
    <Screen_MaxPhi>1.396263401595464e+00</Screen_MaxPhi>
  </Screen>
  <TargetLocator>
    <Unit>Meters</Unit>
    <AngleUnit>Degrees</AngleUnit>
    <Center_Point>0, 0, 0</Center_Point>
    <Height>12</Height>
    <Width>12</Width>
    <Radius>6</Radius>
    <RotationRadius>0</RotationRadius>
    <MinTheta>0</MinTheta>
    <MaxTheta>360</MaxTheta>
    <MinPhi>0</MinPhi>
    <MaxPhi>90</MaxPhi>
    <Inset_Border>2</Inset_Border>
    <ChannelExtentsAngleUnit>Degrees</ChannelExtentsAngleUnit>
    <Inset_Unit>Percent</Inset_Unit>
    <Target_Data>Spherical</Target_Data>
  </TargetLocator>
  <Color>
    <MaxIterationsColor>40</MaxIterationsColor>
    <AdvColor_TargetSizeX>124</AdvColor_TargetSizeX>
    <AdvColor_TargetSizeY>124</AdvColor_TargetSizeY>
    <Brightness_Tolerance>0.9</Brightness_Tolerance>
    <House_Note>colours by hand</House_Note>
  </Color>
  <Lighting_Desk>
    <Cue number="12">fade &amp; hold</Cue>
  </Lighting_Desk>
</ConfigInfo>
)";

void replaceAll(std::string& text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
}

std::string numbered(std::string text, int number) {
    char mac[16];
    const auto bits = static_cast<unsigned>(number);
    std::snprintf(mac, sizeof mac, "%02x:%02x:%02x:%02x", bits >> 24 & 255U, bits >> 16 & 255U, bits >> 8 & 255U,
                  bits & 255U);
    replaceAll(text, "@n", std::to_string(number));
    replaceAll(text, "@mac", mac);
    return text;
}

std::string oldText(int projectors) {
    std::string out = head;
    for (int i = 1; i <= projectors; ++i) out += numbered(projector, i);
    for (int i = 1; i <= projectors / 2; ++i) out += numbered(camera, i);
    return out + numbered(tail, projectors);
}

void upgrade(const std::string& from, const std::string& to, int projectors) {
    ConfigInfo document(widened(from));
    const bool isUpgraded = XMLConfig::upgradeDocument(document) == XMLConfig::Upgraded;
    const bool isWhole = document.getSectionIDs(L"Projector").size() == static_cast<std::size_t>(projectors) &&
                         document.getSectionIDs(L"Camera").size() == static_cast<std::size_t>(projectors / 2);
    if (!isUpgraded || !isWhole) throw std::runtime_error("the upgrade of " + from + " lost a device");
    document.save(widened(to));
}

}  // namespace

int devicesOf(int projectors) { return projectors + projectors / 2; }

std::string oldFile(int projectors) {
    static std::map<int, std::string> written;
    std::string& path = written[projectors];
    if (path.empty()) {
        path = sampleFolder() + "/old-" + std::to_string(projectors) + ".skorra";
        std::ofstream(path, std::ios::binary) << oldText(projectors);
    }
    return path;
}

std::string upgradedFile(int projectors) {
    static std::map<int, std::string> written;
    std::string& path = written[projectors];
    if (path.empty()) {
        const std::string made = sampleFolder() + "/upgraded-" + std::to_string(projectors) + ".skorrax";
        upgrade(oldFile(projectors), made, projectors);
        path = made;
    }
    return path;
}

}  // namespace bench
