#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/support/Example.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TerminalRun.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;

const char* const dome = exampleFile;
const std::string first = "Projector[VELDAR***00:0a:0b:0c:0d:01]";
const std::string second = "Projector[VELDAR***00:0a:0b:0c:0d:02]";
const std::string third = "Projector[VELDAR***00:0a:0b:0c:0d:03]";
const std::string fourth = "Projector[VELDAR***00:0a:0b:0c:0d:1f]";

}  // namespace

TEST(GetVerb, DevicesHaveNamesNumbersAndEndings) {
    for (const char* device : {"VELDAR***00:0a:0b:0c:0d:02", "Dome 2", "#2", "02", "0d:02", "00:0a:0b:0c:0d:02"})
        expectRun(runTool({"get", dome, std::string("Projector[") + device + "]/Name"}), 0, "Dome 2\n");
    expectRun(
        runTool({"get", dome, "Projector[*]/Name"}), 0,
        first + "/Name\tDome 1\n" + second + "/Name\tDome 2\n" + third + "/Name\tDome 3\n" + fourth + "/Name\tDome 4\n");
}

TEST(GetVerb, SeveralDevicesAreNeverOne) {
    const std::string devices =
        ": means one of 4 devices: Projector[Dome 1], Projector[Dome 2], Projector[Dome 3], Projector[Dome 4]; "
        "Projector[*] means all\n";
    expectRun(runTool({"get", dome, "Projector/Gamma"}), 1, "", "xmlconfig: Projector/Gamma" + devices);
}

TEST(GetVerb, OriginTellsWhereFrom) {
    expectRun(runTool({"get", "--origin", dome, "Projector[*]/Box_Spacing", "Projector[#1]/Pellinor_Warp_Latency"}), 0,
              "inherited\tGeometry/Box_Spacing:50\t" + first + "/Box_Spacing\t1.500000000000000e+00\n" +
                  "stored\texamples/dome.skorrax:364\t" + second + "/Box_Spacing\t2.000000000000000e+00\n" +
                  "inherited\tGeometry/Box_Spacing:50\t" + third + "/Box_Spacing\t1.500000000000000e+00\n" +
                  "inherited\tGeometry/Box_Spacing:50\t" + fourth + "/Box_Spacing\t1.500000000000000e+00\n" +
                  "default\t-\t" + first + "/Pellinor_Warp_Latency\t0\n");
}

TEST(GetVerb, OriginHasColumnsOnATerminal) {
    const auto run =
        runOnATerminal({"get", "--origin", dome, "Projector[*]/Box_Spacing", "Geometry/Portrait_Mode"}, ToTerminal::Output);
    if (!run) GTEST_SKIP() << "no terminal can be made here";
    EXPECT_EQ(run->status, 0);
    EXPECT_EQ(run->shown, "inherited  Geometry/Box_Spacing:50    " + first +
                              "/Box_Spacing  1.500000000000000e+00\r\n"
                              "stored     examples/dome.skorrax:364  " +
                              second +
                              "/Box_Spacing  2.000000000000000e+00\r\n"
                              "inherited  Geometry/Box_Spacing:50    " +
                              third +
                              "/Box_Spacing  1.500000000000000e+00\r\n"
                              "inherited  Geometry/Box_Spacing:50    " +
                              fourth +
                              "/Box_Spacing  1.500000000000000e+00\r\n"
                              "stored     examples/dome.skorrax:47   "
                              "Geometry/Portrait_Mode                             0\r\n");
}

TEST(GetVerb, EffectiveIsWhatTheApplicationReads) {
    const TemporaryFolder folder;
    const std::string file = folder.at(L"read.skorrax").u8string();
    folder.write(L"read.skorrax",
                 "<ConfigInfo><Version>9.000</Version><Geometry><Box_Size>9, 9</Box_Size></Geometry>"
                 "<Projector ID=\"a\"><Resolution_X>1920</Resolution_X><Box_Size>1, 2, 3</Box_Size>"
                 "<Gamma>2<Own>5</Own></Gamma></Projector><Screen><Auto_Dimensions>yes</Auto_Dimensions></Screen>"
                 "<TargetLocator><Data_Type>Projector Pose</Data_Type></TargetLocator></ConfigInfo>");
    const std::pair<const char*, const char*> values[] = {
        {"Projector[a]/InitialProjectorData/Offset", "9.600000000000000e+02, 5.250000000000000e+02"},
        {"Projector[a]/Box_Size", "21, 21"},
        {"Projector[a]/Gamma", "2.500000000000000e+01"},
        {"Projector[a]/Designed/Frustum/FOVLeft", "0.000000000000000e+00"},
        {"Screen/SizeDefinition", "1"},
        {"TargetLocator/Data_Type", "Projector Centric"},
    };
    for (const auto& [address, value] : values)
        expectRun(runTool({"get", "--effective", file, address}), 0, std::string(value) + "\n");
    expectRun(runTool({"get", "--origin", file, "Projector[a]/Box_Size", "Screen/SizeDefinition"}), 0,
              "default\t-\tProjector[a]/Box_Size\t21, 21\ndefault\t-\tScreen/SizeDefinition\t1\n");
    expectRun(runTool({"get", file, "TargetLocator/Data_Type"}), 0, "Projector Pose\n");
}

TEST(GetVerb, InheritedValueIsNamedAndPrintedOnRequest) {
    expectRun(runTool({"get", dome, "Projector[Dome 1]/Box_Spacing"}), 1, "",
              "xmlconfig: examples/dome.skorrax: holds no " + first +
                  "/Box_Spacing; it inherits \"1.500000000000000e+00\" from Geometry/Box_Spacing (--effective prints it)\n");
    expectRun(runTool({"get", dome, "Projector[Dome 1]/Pellinor_Warp_Latency"}), 1, "",
              "xmlconfig: examples/dome.skorrax: holds no " + first +
                  "/Pellinor_Warp_Latency; its default is \"0\" (--effective prints it)\n");
    expectRun(runTool({"get", "--effective", dome, "Projector[Dome 1]/Box_Spacing"}), 0, "1.500000000000000e+00\n");
    expectRun(runTool({"get", "--effective", dome, "System/Nothing"}), 1, "",
              "xmlconfig: examples/dome.skorrax: holds no System/Nothing\n");
}

TEST(GetVerb, NothingCountsOfADeviceThatIsNotThere) {
    for (const std::string device : {"Projector[#9]", "Projector[Nobody]"})
        for (const char* option : {"--effective", "--origin", "--human"})
            expectRun(
                runTool({"get", option, dome, device + "/Gamma"}), 1, "",
                "xmlconfig: examples/dome.skorrax: holds no " + device +
                    "/Gamma; the file holds Projector[Dome 1], Projector[Dome 2], Projector[Dome 3], Projector[Dome 4]\n");
    const auto json = nlohmann::json::parse(runTool({"get", "--json", dome, "Camera[x]/Camera_Gain"}).output);
    EXPECT_EQ(json["values"][0]["origin"], "missing");
}

TEST(GetVerb, WhatIsMistypedIsAnsweredWithWhatIsNearest) {
    const std::string holds = "xmlconfig: examples/dome.skorrax: holds no ";
    const std::pair<std::string, std::string> faults[] = {
        {"Projector[dome 3]/Gamma", "Projector[dome 3]/Gamma; did you mean \"Dome 3\"?\n"},
        {"Projektor[Dome 3]/Gamma", "Projektor[Dome 3]/Gamma; did you mean \"Projector\"?\n"},
        {"Screen/Shap", "Screen/Shap; did you mean \"Shape\"?\n"}};
    for (const auto& [address, message] : faults) {
        for (const char* verb : {"get", "show"}) expectRun(runTool({verb, dome, address}), 1, "", holds + message);
        expectRun(runTool({"unset", "--dry-run", dome, address}), 1, "", holds + message);
    }
}

TEST(GetVerb, DefaultStandsForWhatIsMissing) {
    expectRun(runTool({"get", "--default", "none", dome, "Projector[Dome 1]/Box_Spacing"}), 0, "none\n");
    expectRun(runTool({"get", "--default", "", dome, "System/Nothing", "System/Length_Unit", "Camera[x]/Name"}), 0,
              "System/Nothing\t\nSystem/Length_Unit\tMeters\nCamera[x]/Name\t\n");
}

TEST(GetVerb, OriginOfWhatTheDefaultStandsForIsMissing) {
    expectRun(
        runTool({"get", "--origin", "--default", "a\tb", dome, "System/Nothing", "Projector[#1]/Pellinor_Warp_Latency"}), 0,
        "missing\t-\tSystem/Nothing\ta\\tb\ndefault\t-\t" + first + "/Pellinor_Warp_Latency\t0\n");
    expectRun(runTool({"get", "--origin", "--default", "none", dome, "Camera[x]/Name"}), 0,
              "missing\t-\tCamera[x]/Name\tnone\n");
}

TEST(GetVerb, TextsInDeviceSnippetsHaveTheAddressesThatShowNames) {
    const std::string snippet = first + "/DeviceSnippet/device";
    expectRun(runTool({"get", dome, "Projector[#1]/DeviceSnippet/device@name"}), 0, "PRJ-1\n");
    expectRun(runTool({"get", "--human", dome, "Projector[Dome 1]/DeviceSnippet/device/connection/port"}), 0, "3002\n");
    expectRun(runTool({"get", dome, "Projector[#1]/DeviceSnippet/device/connection"}), 0,
              snippet + "/connection@type\tETHERNET\n" + snippet + "/connection/address\t192.168.10.11\n" + snippet +
                  "/connection/port\t3002\n");
    expectRun(runTool({"get", "--origin", dome, "Projector[#1]/DeviceSnippet/device/id"}), 0,
              "stored\texamples/dome.skorrax:234\t" + snippet + "/id\t1\n");
    expectRun(runTool({"get", dome, "Camera[*]/DeviceSnippet/device/serialNumber"}), 0,
              "Camera[PGR***02:1c:00:51:00:a0]/DeviceSnippet/device/serialNumber\t17182096\n"
              "Camera[PGR***02:1c:00:51:00:a4]/DeviceSnippet/device/serialNumber\t17182104\n");
    for (const char* part : {"/i", "@nam", "/id/more", "#2", "/connection/port@x"})
        expectRun(runTool({"get", dome, "Projector[#1]/DeviceSnippet/device" + std::string(part)}), 1, "",
                  "xmlconfig: examples/dome.skorrax: holds no " + snippet + part + "\n");
    expectRun(runTool({"get", "--default", "none", dome, "Projector[#1]/DeviceSnippet/device@nam"}), 0, "none\n");
    EXPECT_EQ(runTool({"get", dome, "Projector[#1]/Name/device@name"}).status, 2);
    const std::string name = "Projector[#1]/DeviceSnippet/device@name";
    for (const char* const verb : {"show", "unset"})
        expectRun(runTool({verb, dome, name}), 2, "",
                  "xmlconfig: " + name + ": is in a device snippet; get and set take its single texts\n");
}

TEST(GetVerb, TextsOfTheHeaderAreValues) {
    expectRun(runTool({"get", dome, "Version"}), 0, "9.000\n");
    expectRun(runTool({"get", dome, "BuildNumber", "BuildDate"}), 0, "BuildNumber\t2.1.1.14\nBuildDate\tMar 11 2019\n");
    expectRun(runTool({"get", "--origin", dome, "Version"}), 0, "stored\texamples/dome.skorrax:3\tVersion\t9.000\n");
}

TEST(GetVerb, HumanIsShortAndInTheDocumentsUnits) {
    expectRun(runTool({"get", "--human", dome, "Projector[Dome 3]/Channel_Extents/Heading/Yaw"}), 0, "22.5°\n");
    expectRun(runTool({"get", "--human", dome, "Screen/Screen_Radius", "Projector[Dome 2]/Blend_Left"}), 0,
              "Screen/Screen_Radius\t5.2 m\n" + second + "/Blend_Left\t25 %\n");
    expectRun(runTool({"get", "--human", dome, "Projector[Dome 1]/Channel_Extents/HFOV"}), 0,
              "HFOV\n  Left = -30°\n  Right = 30°\n");
}

TEST(GetVerb, GroupsAreLinesBesideOthers) {
    expectRun(runTool({"get", dome, "Projector[Dome 1]/Channel_Extents/HFOV", "System/Length_Unit"}), 0,
              first + "/Channel_Extents/HFOV/Left\t-5.235987755982988e-01\n" + first +
                  "/Channel_Extents/HFOV/Right\t5.235987755982988e-01\nSystem/Length_Unit\tMeters\n");
    const ToolRun run = runTool({"get", dome, "Projector[*]/DeviceSnippet"});
    EXPECT_THAT(run.output, HasSubstr(first + "/DeviceSnippet\t<device UID=\"VELDAR***00:0a:0b:0c:0d:01\""));
    EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'), 4);
}

TEST(GetVerb, StandardInputHasNoLines) {
    const std::string input = TemporaryFolder::readFile(dome);
    expectRun(runToolReading(input, {"get", "-", "System/Length_Unit"}), 0, "Meters\n");
    expectRun(runToolReading(input, {"get", "--origin", "-", "System/Length_Unit"}), 0,
              "stored\t-\tSystem/Length_Unit\tMeters\n");
}

TEST(GetVerb, OlderFileIsReadAsUpgraded) {
    const std::string file = "examples/history/dome-8.000.skorrax";
    const ToolRun run = runTool({"get", file, "System/Length_Unit"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Feet\n");
    EXPECT_THAT(run.errors, HasSubstr("xmlconfig: " + file +
                                      ": is of file version 8.000; read as it would be after the upgrade, "
                                      "which drops 1 device"));
}

TEST(GetVerb, JsonHasTextsAndValues) {
    const ToolRun run = runTool({"get", "--json", dome, "Projector[#1]/Box_Spacing", "Projector[#1]/Pellinor_Warp_Latency",
                                 "Projector[#2]/Channel_Extents/Heading/Yaw", "Geometry/Box_Size", "System/Is_Camera_Used",
                                 "System/Nothing"});
    EXPECT_EQ(run.status, 1);
    const auto json = nlohmann::json::parse(run.output);
    EXPECT_EQ(json["format"], 1);
    EXPECT_EQ(json["verb"], "get");
    EXPECT_EQ(json["file"], dome);
    EXPECT_EQ(json["exit"], 1);
    const auto& values = json["values"];
    ASSERT_EQ(values.size(), 6u);
    EXPECT_EQ(values[0], nlohmann::json::parse(R"({"address":")" + first + R"(/Box_Spacing","device":"Dome 1",
        "origin":"inherited","from":"Geometry/Box_Spacing","line":50,"text":"1.500000000000000e+00","value":1.5,"unit":""})"));
    EXPECT_EQ(values[1], nlohmann::json::parse(R"({"address":")" + first + R"(/Pellinor_Warp_Latency","device":"Dome 1",
        "origin":"default","from":null,"line":null,"text":"0","value":0,"unit":""})"));
    EXPECT_EQ(values[2]["unit"], "radians");
    EXPECT_DOUBLE_EQ(values[2]["value"], -3.926990816987241e-01);
    EXPECT_EQ(values[3]["value"], nlohmann::json::parse("[25, 25]"));
    EXPECT_EQ(values[4]["value"], true);
    EXPECT_EQ(values[5]["origin"], "missing");
    EXPECT_TRUE(values[5]["text"].is_null());
}
