#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "manager/upgrade/UpgradeChain.h"
#include "tests/manager/TestManager.h"
#include "tests/support/DeviceSections.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SteppedDocument.h"
#include "tests/support/TestDocument.h"

using testing::ElementsAre;
using XMLConfig::detail::toVersion4;
using XMLConfig::detail::toVersion5;
using XMLConfig::detail::toVersion6;
using XMLConfig::detail::toVersion8;
using XMLConfig::detail::toVersion9;

namespace {

TestDocument stepped(Step step, const std::string& sections) { return ::stepped(step, sections, "3.000"); }

// Projectors "1", "2", ... that each hold one of these texts.
std::string projectors(const std::string& key, const std::vector<std::string>& texts) {
    std::string xml;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        xml += "<Projector ID=\"" + std::to_string(i + 1) + "\">";
        if (!texts[i].empty()) xml += "<" + key + ">" + texts[i] + "</" + key + ">";
        xml += "</Projector>";
    }
    return xml;
}

// What the geometry section and then each projector holds after version 9.0.
std::vector<std::wstring> shared(const std::string& key, const std::vector<std::string>& texts) {
    const TestDocument document = stepped(&toVersion9, projectors(key, texts));
    const std::wstring wideKey(key.begin(), key.end());
    std::vector<std::wstring> found{document.item(L"Geometry", wideKey)};
    for (const std::wstring& id : document->getSectionIDs(L"Projector"))
        found.push_back(document.item(L"Projector", wideKey, id));
    return found;
}

std::wstring markerMethod(const std::string& first, const std::string& second) {
    const TestDocument document = stepped(&toVersion6, camera("1", "<Locate_Screen>" + first + "</Locate_Screen>") +
                                                           camera("2", "<Locate_Screen>" + second + "</Locate_Screen>"));
    EXPECT_EQ(document.item(L"Camera", L"Locate_Screen", L"1"), L"(none)");
    EXPECT_EQ(document.item(L"Camera", L"Locate_Screen", L"2"), L"(none)");
    return document.item(L"System", L"Marker_Location_Method");
}

}  // namespace

TEST(ToVersion4, ImageTakesThePanelsResolution) {
    const TestDocument document = stepped(&toVersion4,
                                          "<Projector ID=\"1\"><Resolution_X>1920</Resolution_X>"
                                          "<Resolution_Y>1200</Resolution_Y></Projector><Projector ID=\"2\"/>");
    EXPECT_EQ(document.item(L"Projector", L"ImageResolution_X", L"1"), L"1920");
    EXPECT_EQ(document.item(L"Projector", L"ImageResolution_Y", L"1"), L"1200");
    EXPECT_EQ(document.item(L"Projector", L"InputImageScaling_Mode", L"1"), L"0");
    EXPECT_EQ(document.item(L"Projector", L"ImageResolution_X", L"2"), L"1400");
    EXPECT_EQ(document.item(L"Projector", L"ImageResolution_Y", L"2"), L"1050");
}

TEST(ToVersion4, RestOfTheStep) {
    const TestDocument document = stepped(&toVersion4, camera("1", "<Automatic_Binarization>true</Automatic_Binarization>"));
    EXPECT_EQ(document.item(L"Camera", L"Automatic_Binarization", L"1"), L"false");
    EXPECT_EQ(document.item(L"Camera", L"ShowOnOffMapperBlobs", L"1"), L"true");
    EXPECT_EQ(document.item(L"Geometry", L"Fit_Order"), L"3");
    EXPECT_EQ(document.item(L"Color", L"Colorimeter_Type"), L"0");
}

TEST(ToVersion5, MemoryIsCarriedOver) {
    const TestDocument document =
        stepped(&toVersion5,
                "<System><Image_Export_Dir>d</Image_Export_Dir></System><Geometry>"
                "<Warp_Memory_Location>3</Warp_Memory_Location><Warp_Memory_Name>Show</Warp_Memory_Name>"
                "<Blend_Memory_Location>4</Blend_Memory_Location><Blend_Memory_Name>Blend</Blend_Memory_Name></Geometry>");
    EXPECT_EQ(document.item(L"Geometry", L"Memory_Location"), L"3");
    EXPECT_EQ(document.item(L"Geometry", L"Memory_Location_Name"), L"Show");
    for (const wchar_t* key : {L"Warp_Memory_Location", L"Warp_Memory_Name", L"Blend_Memory_Location", L"Blend_Memory_Name"})
        EXPECT_EQ(document.item(L"Geometry", key), L"(none)");
    EXPECT_EQ(document.item(L"System", L"Image_Export_Dir"), L"(none)");
}

TEST(ToVersion5, DefaultsWithoutMemory) {
    const TestDocument document = stepped(&toVersion5, camera("1", ""));
    EXPECT_EQ(document.item(L"Geometry", L"Memory_Location"), L"0");
    EXPECT_EQ(document.item(L"Geometry", L"Memory_Location_Name"), L"Ulvano");
    EXPECT_EQ(document.item(L"Geometry", L"TilingEnabled"), L"false");
    EXPECT_EQ(document.item(L"Geometry", L"InputResolutionX"), L"1920");
    EXPECT_EQ(document.item(L"Geometry", L"InputResolutionY"), L"1080");
    EXPECT_EQ(document.item(L"Geometry", L"Do_Spherical_Blend"), L"false");
    EXPECT_EQ(document.item(L"Geometry", L"Do_CalculateBlendsOnly_Run"), L"false");
    EXPECT_EQ(document.item(L"Camera", L"Automatic_Exposure", L"1"), L"false");
}

TEST(ToVersion6, BoxSpacingComesFromTheMisspeltSection) {
    const TestDocument usual =
        stepped(&toVersion6, "<Projector ID=\"1\"/><Geometry><Mapper_Spacing>7</Mapper_Spacing></Geometry>");
    EXPECT_EQ(usual.item(L"Projector", L"Box_Spacing", L"1"), L"1.500000000000000e+00");
    const TestDocument odd =
        stepped(&toVersion6, "<Projector ID=\"1\"/><Geomtry><Mapper_Spacing>7</Mapper_Spacing></Geomtry>");
    EXPECT_EQ(odd.item(L"Projector", L"Box_Spacing", L"1"), L"7.000000000000000e+00");
    EXPECT_EQ(odd.item(L"Geomtry", L"Mapper_Spacing"), L"7");
}

TEST(ToVersion6, OneLedCameraDecidesTheMethod) {
    EXPECT_EQ(markerMethod("led", "manual"), L"led-manual");
    EXPECT_EQ(markerMethod("manual", "led"), L"led-manual");
    EXPECT_EQ(markerMethod("manual", "manual"), L"manual");
    EXPECT_EQ(markerMethod("LED", " led"), L"manual");
    EXPECT_EQ(stepped(&toVersion6, "").item(L"System", L"Marker_Location_Method"), L"manual");
}

TEST(ToVersion6, NumberedItemsGoUpToTheirLast) {
    const TestDocument document =
        stepped(&toVersion6, camera("1",
                                    "<Channel_0>0</Channel_0><Channel_49>49</Channel_49><Channel_50>50</Channel_50>"
                                    "<LensDropoffPnts_3>3</LensDropoffPnts_3><LensDropoffPnts_4>4</LensDropoffPnts_4>"
                                    "<InterCameraDeltaSample_3>3</InterCameraDeltaSample_3>"
                                    "<InterCameraDeltaSample_4>4</InterCameraDeltaSample_4><Channel_007>7</Channel_007>"));
    for (const wchar_t* key : {L"Channel_0", L"Channel_49", L"LensDropoffPnts_3", L"InterCameraDeltaSample_3"})
        EXPECT_EQ(document.item(L"Camera", key, L"1"), L"(none)");
    for (const wchar_t* key : {L"Channel_50", L"LensDropoffPnts_4", L"InterCameraDeltaSample_4", L"Channel_007"})
        EXPECT_NE(document.item(L"Camera", key, L"1"), L"(none)");
}

TEST(ToVersion8, SolverAndUnitAreSet) {
    const TestDocument document = stepped(&toVersion8, "<Geometry><Fit_Solver>7</Fit_Solver></Geometry>");
    EXPECT_EQ(document.item(L"Geometry", L"Fit_Solver"), L"1");
    EXPECT_EQ(document.item(L"TargetLocator", L"Overlap_Display_Unit"), L"Percent");
}

TEST(ToVersion9, CameraIsDescribed) {
    const TestDocument document = stepped(
        &toVersion9,
        camera(
            "1",
            "<CameraType>1</CameraType><SerialNumber>S&amp;1</SerialNumber><Model>M \"x\"</Model>"
            "<Resolution_X>1384</Resolution_X><Resolution_Y>1032</Resolution_Y><Protocol>p</Protocol>"
            "<Bit_Depth>8</Bit_Depth><Camera_Lens_Name>l</Camera_Lens_Name><ShowOnOffMapperBlobs>true</ShowOnOffMapperBlobs>"
            "<Connection><MAC_Address>a:b</MAC_Address><DHCP>true</DHCP><IP_Address>10.0.0.1</IP_Address>"
            "<Subnet_Mask>255.0.0.0</Subnet_Mask><Other/></Connection><Camera_Gain>3</Camera_Gain>"));
    EXPECT_EQ(
        document->getStringItemAsDOMElement(L"Camera", L"DeviceSnippet", L"(none)", L"PGR***a:b"),
        L"<device UID=\"PGR***a:b\" name=\"\" password=\"\" type=\"PGR\" version=\"1.0\">\n"
        L"  <bayerPattern>0</bayerPattern>\n  <cameraType>1</cameraType>\n  <defaultGateway/>\n  <dhcp>true</dhcp>\n"
        L"  <firmware/>\n  <ipAddress>10.0.0.1</ipAddress>\n  <macAddress>a:b</macAddress>\n  <model>M \"x\"</model>\n"
        L"  <resolutionX>1384</resolutionX>\n  <resolutionY>1032</resolutionY>\n  <serialNumber>S&amp;1</serialNumber>\n"
        L"  <subnetMask>255.0.0.0</subnetMask>\n</device>");
    for (const wchar_t* key : {L"CameraType", L"SerialNumber", L"Model", L"Resolution_X", L"Resolution_Y", L"Protocol",
                               L"Bit_Depth", L"Camera_Lens_Name", L"ShowOnOffMapperBlobs", L"Connection"})
        EXPECT_EQ(document.item(L"Camera", key, L"PGR***a:b"), L"(none)");
    EXPECT_EQ(document.item(L"Camera", L"Camera_Gain", L"PGR***a:b"), L"3");
    EXPECT_EQ(document->getSectionIDs(L"Camera"), std::vector<std::wstring>{L"PGR***a:b"});
}

TEST(ToVersion9, MissingItemsOfACameraHaveDefaults) {
    const TestDocument document = stepped(&toVersion9, camera("1", "<CameraType>0</CameraType>"));
    const std::wstring snippet = document->getStringItemAsDOMElement(L"Camera", L"DeviceSnippet", L"", L"PGR***");
    EXPECT_NE(snippet.find(L"<dhcp>false</dhcp>"), std::wstring::npos);
    EXPECT_NE(snippet.find(L"<resolutionX>0</resolutionX>"), std::wstring::npos);
    EXPECT_NE(snippet.find(L"<model/>"), std::wstring::npos);
}

TEST(ToVersion9, CamerasOfUnknownTypeAreRemovedAndLogged) {
    const LogCapture log;
    const TestDocument document =
        stepped(&toVersion9, camera("1", "<CameraType>-1</CameraType>") + camera("2", "") +
                                 camera("3", "<CameraType>2</CameraType>") + camera("4", "<CameraType>0</CameraType>"));
    EXPECT_EQ(document->getSectionIDs(L"Camera"), std::vector<std::wstring>{L"PGR***"});
    const auto line = [](const char* number) {  // "encounterd" is misspelt on purpose
        return LogLine{"Ulvano.XMLConfig.VersionUpgrade", "ERROR",
                       std::string("Unknown camera type encounterd (") + number + "), removing this section"};
    };
    EXPECT_THAT(log.lines(), ElementsAre(line("-1"), line("-1"), line("2")));
}

TEST(ToVersion9, ObsoleteItemsGo) {
    const TestDocument document = stepped(
        &toVersion9,
        "<Screen><GUI_3DPointDistribution>1</GUI_3DPointDistribution><Mask_AngleUnit>x</Mask_AngleUnit></Screen>"
        "<Geometry><IsStacked>1</IsStacked><IsAutoOrderRequired>1</IsAutoOrderRequired></Geometry>"
        "<System><Load_Skorra_File>x</Load_Skorra_File></System>"
        "<TargetLocator><ChannelExtentsAngleUnit>x</ChannelExtentsAngleUnit><Inset_Unit>x</Inset_Unit></TargetLocator>");
    EXPECT_EQ(document.item(L"Screen", L"GUI_3DPointDistribution"), L"(none)");
    EXPECT_EQ(document.item(L"Screen", L"Mask_AngleUnit"), L"(none)");
    EXPECT_EQ(document.item(L"Geometry", L"IsStacked"), L"(none)");
    EXPECT_EQ(document.item(L"Geometry", L"IsAutoOrderRequired"), L"(none)");
    EXPECT_EQ(document.item(L"System", L"Load_Skorra_File"), L"(none)");
    EXPECT_EQ(document.item(L"TargetLocator", L"ChannelExtentsAngleUnit"), L"(none)");
    EXPECT_EQ(document.item(L"TargetLocator", L"Inset_Unit"), L"(none)");
}

TEST(ToVersion9, UnitsMoveToTheSystemSection) {
    const TestDocument document = stepped(&toVersion9, "<Screen><Unit>Feet</Unit><AngleUnit>Radians</AngleUnit></Screen>");
    EXPECT_EQ(document.item(L"System", L"Length_Unit"), L"Feet");
    EXPECT_EQ(document.item(L"System", L"AngleUnit"), L"Radians");
    EXPECT_EQ(document.item(L"Screen", L"Unit"), L"(none)");
    EXPECT_EQ(document.item(L"Screen", L"AngleUnit"), L"(none)");
    const TestDocument without = stepped(&toVersion9, "");
    EXPECT_EQ(without.item(L"System", L"Length_Unit"), L"Meters");
    EXPECT_EQ(without.item(L"System", L"AngleUnit"), L"Degrees");
}

TEST(ToVersion9, WithoutProjectorsTheGeometrySectionGetsFixedValues) {
    for (const char* sections : {"", "<Projector><Portrait_Mode>1</Portrait_Mode></Projector>"}) {
        const TestDocument document = stepped(&toVersion9, sections);
        EXPECT_EQ(document.item(L"Geometry", L"Portrait_Mode"), L"0");
        EXPECT_EQ(document.item(L"Geometry", L"Box_Size"), L"21, 21");
        EXPECT_EQ(document.item(L"Geometry", L"Box_Spacing"), L"1.500000000000000e+00");
        EXPECT_EQ(document.item(L"Geometry", L"ImageResolution_X"), L"1400");
        EXPECT_EQ(document.item(L"Geometry", L"ImageResolution_Y"), L"1050");
        EXPECT_EQ(document.item(L"Geometry", L"InputImageScaling_Mode"), L"0");
    }
}

TEST(ToVersion9, ValueOfMostProjectorsIsShared) {
    EXPECT_THAT(shared("ImageResolution_X", {"1920", "1920", "1280"}), ElementsAre(L"1920", L"(none)", L"(none)", L"1280"));
    EXPECT_THAT(shared("ImageResolution_Y", {"1200", "1080", "1080"}), ElementsAre(L"1080", L"1200", L"(none)", L"(none)"));
    EXPECT_THAT(shared("Portrait_Mode", {"0", "1", "1"}), ElementsAre(L"1", L"0", L"(none)", L"(none)"));
    EXPECT_THAT(shared("InputImageScaling_Mode", {"1"}), ElementsAre(L"1", L"(none)"));
    EXPECT_THAT(shared("Box_Size", {"31, 21", "31, 31", "31,31"}), ElementsAre(L"31, 31", L"31, 21", L"(none)", L"(none)"));
}

TEST(ToVersion9, OnATieTheValueMetFirstIsShared) {
    EXPECT_THAT(shared("Box_Spacing", {"1.5", "2.0"}), ElementsAre(L"1.500000000000000e+00", L"(none)", L"2.0"));
    EXPECT_THAT(shared("Box_Spacing", {"2.0", "1.5", "1.5", "2.0"}),
                ElementsAre(L"2.000000000000000e+00", L"(none)", L"1.5", L"1.5", L"(none)"));
    EXPECT_THAT(shared("ImageResolution_X", {"3", "2", "1", "2", "1"}),
                ElementsAre(L"2", L"3", L"(none)", L"1", L"(none)", L"1"));
}

TEST(ToVersion9, NearlyEqualSpacingsVoteTogether) {
    EXPECT_THAT(shared("Box_Spacing", {"2.0", "1.5", "1.50000000005"}),
                ElementsAre(L"1.500000000000000e+00", L"2.0", L"(none)", L"(none)"));
    EXPECT_THAT(shared("Box_Spacing", {"2.0", "1.5", "1.5000000002"}),
                ElementsAre(L"2.000000000000000e+00", L"(none)", L"1.5", L"1.5000000002"));
}

TEST(ToVersion9, SpacingThatIsNoNumberIsKeptWhereItIsNotShared) {
    EXPECT_THAT(shared("Box_Spacing", {"nan", "2", "2"}),
                ElementsAre(L"2.000000000000000e+00", L"nan", L"(none)", L"(none)"));
}

TEST(ToVersion9, ProjectorsWithoutAValueVoteForTheOneTheyInherit) {
    const TestDocument document = stepped(
        &toVersion9, "<Geometry><Portrait_Mode>2</Portrait_Mode></Geometry>" + projectors("Portrait_Mode", {"1", "", ""}));
    EXPECT_EQ(document.item(L"Geometry", L"Portrait_Mode"), L"2");
    EXPECT_EQ(document.item(L"Projector", L"Portrait_Mode", L"1"), L"1");
    EXPECT_EQ(document.item(L"Projector", L"Portrait_Mode", L"2"), L"(none)");
}
