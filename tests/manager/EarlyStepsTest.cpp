#include <algorithm>

#include <gtest/gtest.h>

#include "manager/upgrade/UpgradeChain.h"
#include "tests/manager/TestManager.h"
#include "tests/support/DeviceSections.h"
#include "tests/support/SteppedDocument.h"
#include "tests/support/TestDocument.h"

using XMLConfig::detail::toVersion2;
using XMLConfig::detail::toVersion2005;
using XMLConfig::detail::toVersion3;

namespace {

TestDocument stepped(Step step, const std::string& sections) { return ::stepped(step, sections, "1.000"); }

// Without the line breaks and indentation that reading an element back puts in.
std::wstring compact(const std::wstring& xml) {
    std::wstring text;
    for (std::size_t i = 0; i < xml.size(); ++i) {
        if (xml[i] != L'\n') text += xml[i];
        else i = std::min(xml.find_first_not_of(L' ', i + 1), xml.size()) - 1;
    }
    return text;
}

std::wstring snippetOf(const std::string& items, const std::wstring& newID) {
    const TestDocument document = stepped(&toVersion2005, projector("7", items));
    return compact(document->getStringItemAsDOMElement(L"Projector", L"DeviceSnippet", L"(none)", newID));
}

std::wstring thresholdsAfter(const std::string& items) {
    return stepped(&toVersion2005, camera("1", items)).item(L"Camera", L"MultiCamEdgeThreshold", L"1");
}

// The connection that a camera's old communication text gives: MAC, IP.
std::pair<std::wstring, std::wstring> connectionOf(const std::string& text) {
    const TestDocument document = stepped(&toVersion3, camera("1", "<Camera_Comm_String>" + text + "</Camera_Comm_String>"));
    EXPECT_EQ(document.item(L"Camera", L"Connection|DHCP", L"1"), L"true");
    EXPECT_EQ(document.item(L"Camera", L"Connection|Subnet_Mask", L"1"), L"255.255.255.0");
    return {document.item(L"Camera", L"Connection|MAC_Address", L"1"),
            document.item(L"Camera", L"Connection|IP_Address", L"1")};
}

}  // namespace

TEST(ToVersion2, AnglesBecomeChannelExtents) {
    const TestDocument document = stepped(
        &toVersion2,
        projector("1",
                  "<Spherical_Angle_Left>-0.5</Spherical_Angle_Left><Spherical_Angle_Right>1.5</Spherical_Angle_Right>"
                  "<Spherical_Angle_Bottom>-0.25</Spherical_Angle_Bottom><Spherical_Angle_Top>0.75</Spherical_Angle_Top>"));
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|Heading|Yaw", L"1"), L"5.000000000000000e-01");
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|Heading|Pitch", L"1"), L"2.500000000000000e-01");
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|Heading|Roll", L"1"), L"0.000000000000000e+00");
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|VFOV|Top", L"1"), L"5.000000000000000e-01");
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|VFOV|Bottom", L"1"), L"-5.000000000000000e-01");
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|HFOV|Left", L"1"), L"-1.000000000000000e+00");
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|HFOV|Right", L"1"), L"1.000000000000000e+00");
    EXPECT_EQ(document.item(L"Projector", L"Spherical_Angle_Left", L"1"), L"-0.5");
    EXPECT_EQ(document.item(L"Projector", L"Spherical_Angle_Top", L"1"), L"0.75");
}

TEST(ToVersion2, MissingAnglesCountAsMinusOne) {
    const TestDocument document = stepped(&toVersion2, projector("1", "<Spherical_Angle_Right>1</Spherical_Angle_Right>"));
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|Heading|Yaw", L"1"), L"0.000000000000000e+00");
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|Heading|Pitch", L"1"), L"-1.000000000000000e+00");
    EXPECT_EQ(document.item(L"Projector", L"Channel_Extents|HFOV|Right", L"1"), L"1.000000000000000e+00");
    EXPECT_EQ(document.item(L"Projector", L"Spherical_Angle_Left", L"1"), L"(none)");
}

TEST(ToVersion2005, EdgeThresholdsAreCompletedWhereThereAreNone) {
    EXPECT_EQ(thresholdsAfter(""), L"40,40,40,40");
    EXPECT_EQ(thresholdsAfter("<MultiCamEdgeThreshold/>"), L"40,40,40,40");
    EXPECT_EQ(thresholdsAfter("<MultiCamEdgeThreshold>,,</MultiCamEdgeThreshold>"), L"40,40,40,40");
}

TEST(ToVersion2005, EdgeThresholdsThatAreThereStay) {
    EXPECT_EQ(thresholdsAfter("<MultiCamEdgeThreshold>1,2,3,4</MultiCamEdgeThreshold>"), L"1,2,3,4");
    EXPECT_EQ(thresholdsAfter("<MultiCamEdgeThreshold>30,35</MultiCamEdgeThreshold>"), L"30,35");
    EXPECT_EQ(thresholdsAfter("<MultiCamEdgeThreshold>1,2,3,4,5</MultiCamEdgeThreshold>"), L"1,2,3,4,5");
    EXPECT_EQ(thresholdsAfter("<MultiCamEdgeThreshold>55</MultiCamEdgeThreshold>"), L"55,55,55,55");
}

TEST(ToVersion2005, SerialSnippet) {
    EXPECT_EQ(
        snippetOf("<ID>3</ID><Protocol>serial</Protocol><Projector_MAC_Address>00:0a:0b:0c:0d:0e</Projector_MAC_Address>"
                  "<Projector_Comm_String>COM4</Projector_Comm_String><Projector_Comm_Long>19200</Projector_Comm_Long>",
                  L"VELDAR***00:0a:0b:0c:0d:0e"),
        L"<device UID=\"VELDAR***00:0a:0b:0c:0d:0e\" name=\"PRJ-3\" type=\"VELDAR\" version=\"1.0\"><id>3</id>"
        L"<connection type=\"SERIAL\"><port>COM4</port><baud>19200</baud></connection></device>");
}

TEST(ToVersion2005, SnippetHoldsOneTabAndNoOtherLayout) {
    const TestDocument document = stepped(&toVersion2005, projector("7", "<ID>3</ID>"));
    EXPECT_EQ(document.item(L"Projector", L"DeviceSnippet", L"VELDAR***"), L"\t3COM19600");
}

TEST(ToVersion2005, EthernetSnippet) {
    EXPECT_EQ(
        snippetOf("<ID>4</ID><Protocol>ethernet</Protocol><Projector_MAC_Address>m</Projector_MAC_Address>"
                  "<Projector_Comm_String>10.0.0.4</Projector_Comm_String><Projector_Comm_Long>1025</Projector_Comm_Long>",
                  L"VELDAR***m"),
        L"<device UID=\"VELDAR***m\" name=\"PRJ-4\" type=\"VELDAR\" version=\"1.0\"><id>4</id>"
        L"<connection type=\"ETHERNET\"><address>10.0.0.4</address><port>1025</port></connection></device>");
}

TEST(ToVersion2005, ProtocolIsComparedWithItsCase) {
    for (const char* protocol : {"Serial", "SERIAL", " serial", ""}) {
        const std::wstring snippet = snippetOf(std::string("<Protocol>") + protocol + "</Protocol>", L"VELDAR***");
        EXPECT_NE(snippet.find(L"<connection type=\"ETHERNET\"><address>COM1</address><port>9600</port>"),
                  std::wstring::npos);
    }
}

TEST(ToVersion2005, SnippetOfAProjectorWithoutAnything) {
    EXPECT_EQ(snippetOf("", L"VELDAR***"),
              L"<device UID=\"VELDAR***\" name=\"PRJ--1\" type=\"VELDAR\" version=\"1.0\"><id>-1</id>"
              L"<connection type=\"SERIAL\"><port>COM1</port><baud>9600</baud></connection></device>");
}

TEST(ToVersion2005, MarkupInValuesIsEscaped) {
    const std::wstring snippet = snippetOf(
        "<Projector_Comm_String>&lt;\"&amp;&gt;</Projector_Comm_String>"
        "<Projector_MAC_Address>a\"&amp;&lt;b</Projector_MAC_Address>",
        L"VELDAR***a\"&<b");
    EXPECT_NE(snippet.find(L"<device UID=\"VELDAR***a&quot;&amp;&lt;b\" "), std::wstring::npos);
    EXPECT_NE(snippet.find(L"<port>&lt;\"&amp;&gt;</port>"), std::wstring::npos);
}

TEST(ToVersion2005, ExistingSnippetIsKeptAndTheSectionRenamed) {
    EXPECT_EQ(snippetOf("<DeviceSnippet><device UID=\"x\"/></DeviceSnippet><Projector_MAC_Address>m</Projector_MAC_Address>",
                        L"VELDAR***m"),
              L"<device UID=\"x\"/>");
    EXPECT_EQ(snippetOf("<DeviceSnippet/>", L"VELDAR***").rfind(L"<device UID=\"VELDAR***\"", 0), 0u);
}

TEST(ToVersion2005, EqualAddressesGiveEqualIdentifiers) {
    const TestDocument document =
        stepped(&toVersion2005, projector("1", "<Projector_MAC_Address>m</Projector_MAC_Address><ID>1</ID>") +
                                    projector("2", "<Projector_MAC_Address>m</Projector_MAC_Address><ID>2</ID>"));
    EXPECT_EQ(document->getSectionIDs(L"Projector"), (std::vector<std::wstring>{L"VELDAR***m", L"VELDAR***m"}));
    EXPECT_NE(document.text().find("name=\"PRJ-2\""), std::string::npos);
}

TEST(ToVersion2005, PortraitModeIsSpreadAndLeavesTheSystemSection) {
    const TestDocument document =
        stepped(&toVersion2005,
                "<System><Portrait_Mode>2</Portrait_Mode></System>" +
                    projector("1", "<Projector_MAC_Address>a</Projector_MAC_Address>") +
                    projector("2", "<Projector_MAC_Address>b</Projector_MAC_Address><Portrait_Mode>5</Portrait_Mode>"));
    EXPECT_EQ(document.item(L"Projector", L"Portrait_Mode", L"VELDAR***a"), L"2");
    EXPECT_EQ(document.item(L"Projector", L"Portrait_Mode", L"VELDAR***b"), L"2");
    EXPECT_EQ(document.item(L"System", L"Portrait_Mode"), L"(none)");
}

TEST(ToVersion2005, FixedSectionsGetTheirValues) {
    const TestDocument document = stepped(&toVersion2005, "");
    EXPECT_EQ(document.item(L"Geometry", L"CalibrationEngine"), L"MULTI-CAMERA");
    EXPECT_EQ(document.item(L"Geometry", L"Blob_Location_Algorithm"), L"0");
    EXPECT_EQ(document.item(L"Geometry", L"Blob_Number_Historical"), L"5");
    EXPECT_EQ(document.item(L"Geometry", L"Grid_Movement_Factor"), L"6.600000000000000e-01");
    EXPECT_EQ(document.item(L"Geometry", L"Auto_Masking_Type"), L"0");
    EXPECT_EQ(document.item(L"Geometry", L"Use_Quick_Cal"), L"false");
    EXPECT_EQ(document.item(L"Geometry", L"Use_TSAI_Extrapolation"), L"false");
    EXPECT_EQ(document.item(L"Geometry", L"Mapper_Box_Size"), L"21");
    EXPECT_EQ(document.item(L"Geometry", L"Mapper_Spacing"), L"1.500000000000000e+00");
    EXPECT_EQ(document.item(L"Color", L"MaxIterationsColor"), L"25");
    EXPECT_EQ(document.item(L"Color", L"AdvColor_TargetSizeX"), L"0");
    EXPECT_EQ(document.item(L"Color", L"AdvColor_TargetSizeY"), L"0");
    EXPECT_EQ(document.item(L"Color", L"Brightness_Tolerance"), L"5.000000000000000e-01");
    EXPECT_EQ(document.item(L"Color", L"Colour_Tolerance"), L"1.000000000000000e-03");
    EXPECT_EQ(document.item(L"Color", L"Colour_Converge_Jump"), L"5.000000000000000e-01");
    EXPECT_EQ(document.item(L"System", L"Parallelize_Sends"), L"true");
    EXPECT_EQ(document.item(L"Screen", L"SizeDefinition"), L"0");
    EXPECT_EQ(document->getSectionCount(L"Projector"), 0);
}

TEST(ToVersion2005, CalibrationConfigurationsGoUpToTheFirstGap) {
    const TestDocument document = stepped(
        &toVersion2005,
        "<Geometry><CalConf1>a</CalConf1><CalConf2>b</CalConf2><CalConf3>c</CalConf3><CalConf5>e</CalConf5></Geometry>");
    for (const wchar_t* key : {L"CalConf1", L"CalConf2", L"CalConf3"}) EXPECT_EQ(document.item(L"Geometry", key), L"(none)");
    EXPECT_EQ(document.item(L"Geometry", L"CalConf5"), L"e");
}

TEST(ToVersion2005, EmptyCalibrationConfigurationIsAGap) {
    const TestDocument document = stepped(&toVersion2005, "<Geometry><CalConf1/><CalConf2>b</CalConf2></Geometry>");
    EXPECT_EQ(document.item(L"Geometry", L"CalConf1"), L"");
    EXPECT_EQ(document.item(L"Geometry", L"CalConf2"), L"b");
}

TEST(ToVersion2005, FiftyCalibrationConfigurationsGo) {
    std::string items;
    for (int n = 1; n <= 51; ++n) items += "<CalConf" + std::to_string(n) + ">x</CalConf" + std::to_string(n) + ">";
    const TestDocument document = stepped(&toVersion2005, "<Geometry>" + items + "</Geometry>");
    EXPECT_EQ(document.item(L"Geometry", L"CalConf50"), L"(none)");
    EXPECT_EQ(document.item(L"Geometry", L"CalConf51"), L"x");
}

TEST(ToVersion2005, EdgeOffsetsAreForProjectorsOnly) {
    const TestDocument document = stepped(&toVersion2005, projector("1", ""));
    EXPECT_EQ(document.item(L"Projector", L"Edge_Blob_Offset_X", L"VELDAR***"), L"1.500000000000000e+01");
    EXPECT_EQ(document.item(L"Projector", L"Edge_Blob_Offset_Y", L"VELDAR***"), L"1.500000000000000e+01");
}

TEST(ToVersion3, CommunicationTextIsSplit) {
    using Parts = std::pair<std::wstring, std::wstring>;
    EXPECT_EQ(connectionOf("00:b0,[10.0.0.1]"), (Parts{L"00:b0", L"10.0.0.1"}));
    EXPECT_EQ(connectionOf("00:b0,10.0.0.1"), (Parts{L"00:b0", L"10.0.0.1"}));
    EXPECT_EQ(connectionOf(" 00:b0 , 10.0.0.1 "), (Parts{L" 00:b0 ", L" 10.0.0.1 "}));
    EXPECT_EQ(connectionOf("m,[1"), (Parts{L"m", L"[1"}));
    EXPECT_EQ(connectionOf("m,1]"), (Parts{L"m", L"1]"}));
    EXPECT_EQ(connectionOf("m,]1[2"), (Parts{L"m", L"]1[2"}));
    EXPECT_EQ(connectionOf("m,x[1]y[2]"), (Parts{L"m", L"1"}));
    EXPECT_EQ(connectionOf("[a],b"), (Parts{L"[a]", L"b"}));
    EXPECT_EQ(connectionOf("m,1,2"), (Parts{L"m", L"1,2"}));
    EXPECT_EQ(connectionOf(","), (Parts{L"", L""}));
}

TEST(ToVersion3, TextWithoutCommaGivesNoConnection) {
    for (const std::string& items : {std::string(), std::string("<Camera_Comm_String>COM3</Camera_Comm_String>")}) {
        const TestDocument document = stepped(&toVersion3, camera("1", items + "<Camera_Comm_Long>9600</Camera_Comm_Long>"));
        EXPECT_EQ(document.item(L"Camera", L"Connection", L"1"), L"(none)");
        EXPECT_EQ(document.item(L"Camera", L"Camera_Comm_String", L"1"), L"(none)");
        EXPECT_EQ(document.item(L"Camera", L"Camera_Comm_Long", L"1"), L"(none)");
    }
}

TEST(ToVersion3, RestOfTheStep) {
    const TestDocument document =
        stepped(&toVersion3, camera("1", "<MaskingROIScreenAreaPercentage>5</MaskingROIScreenAreaPercentage>") +
                                 "<TargetLocator><Inset_Border>2</Inset_Border></TargetLocator>"
                                 "<Geometry><Auto_Masking_Type>1</Auto_Masking_Type></Geometry>");
    EXPECT_EQ(document.item(L"Camera", L"MaskingROIScreenAreaPercentage", L"1"), L"1.000000000000000e-04");
    EXPECT_EQ(document.item(L"TargetLocator", L"Inset_Border"), L"(none)");
    EXPECT_EQ(document.item(L"Geometry", L"Auto_Masking_Type"), L"0");
}
