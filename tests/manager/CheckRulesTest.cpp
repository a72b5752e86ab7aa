#include "manager/CheckRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>

#include "platform/Utf8.h"
#include "store/ConfigInfo.h"
#include "store/FilePlaces.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/TemporaryFolder.h"

// Each rule finds nothing in the example, and exactly one thing where the example is changed in one way.

namespace {

using XMLConfig::Finding;
using XMLConfig::Severity;

const std::string P1 = "<Projector ID=\"VELDAR***00:0a:0b:0c:0d:01\"";
const std::string P2 = "<Projector ID=\"VELDAR***00:0a:0b:0c:0d:02\"";
const std::string P3 = "<Projector ID=\"VELDAR***00:0a:0b:0c:0d:03\"";
const std::string P4 = "<Projector ID=\"VELDAR***00:0a:0b:0c:0d:1f\"";
const std::string C1 = "<Camera ID=\"PGR***02:1c:00:51:00:a0\"";
const std::string C2 = "<Camera ID=\"PGR***02:1c:00:51:00:a4\"";
const std::wstring p1 = L"Projector[VELDAR***00:0a:0b:0c:0d:01]";
const std::wstring p2 = L"Projector[VELDAR***00:0a:0b:0c:0d:02]";
const std::wstring p3 = L"Projector[VELDAR***00:0a:0b:0c:0d:03]";
const std::wstring p4 = L"Projector[VELDAR***00:0a:0b:0c:0d:1f]";
const std::wstring c1 = L"Camera[PGR***02:1c:00:51:00:a0]";
const std::wstring c2 = L"Camera[PGR***02:1c:00:51:00:a4]";

/// After the text `after`, what begins with `from` and, where that is given, goes up to the end of `to` becomes `text`.
struct Edit {
    std::string after;
    std::string from;
    std::string text;
    std::string to = {};
};

struct Case {
    std::wstring rule;
    Severity severity;
    std::vector<Edit> edits;
    std::wstring address;
    std::wstring message;
    std::vector<std::wstring> besides = {};  ///< rules that the same edit cannot help breaking
    std::string line = {};                   ///< what stands in the line after the first edit's `after`; else its text
};

std::size_t placeOf(const std::string& content, const Edit& edit) {
    const std::size_t after = content.find(edit.after);
    EXPECT_NE(after, std::string::npos) << edit.after;
    const std::size_t at = content.find(edit.from, after);
    EXPECT_NE(at, std::string::npos) << edit.from;
    return at;
}

std::string changed(std::string content, const Edit& edit) {
    const std::size_t at = placeOf(content, edit);
    const std::size_t length = edit.to.empty() ? edit.from.size() : content.find(edit.to, at) + edit.to.size() - at;
    return content.replace(at, length, edit.text);
}

unsigned long long lineOf(const std::string& content, const Case& row) {
    const Edit& first = row.edits[0];
    const std::string wanted = row.line.empty() ? first.text : row.line;
    const std::size_t at = content.find(wanted, content.find(first.after));
    EXPECT_NE(at, std::string::npos) << wanted;
    return 1 + static_cast<unsigned long long>(
                   std::count(content.begin(), content.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

std::wstring textOf(const Finding& finding) {
    return std::wstring(nameOf(finding.severity)) + L"[" + finding.rule + L"] " + finding.address + L": " + finding.message;
}

/// What an edit brings.
class Changed {
public:
    explicit Changed(const Case& row) : m_content(TemporaryFolder::readFile("examples/dome.skorrax")) {
        std::multiset<std::wstring> known;
        const ConfigInfo sound(L"examples/dome.skorrax");
        for (const Finding& finding : XMLConfig::check(sound)) known.insert(textOf(finding));
        for (const Edit& edit : row.edits) m_content = changed(m_content, edit);
        m_file = m_folder.write(L"dome.skorrax", m_content);
        m_document = std::make_unique<ConfigInfo>(m_file);
        for (const Finding& finding : XMLConfig::check(*m_document)) {
            const auto same = known.find(textOf(finding));
            if (same != known.end()) known.erase(same);
            else findings.push_back(finding);
        }
    }
    [[nodiscard]] unsigned long long lineOf(const Finding& finding) const {
        const XMLConfig::FilePlaces places(*m_document, m_file);
        const auto place = places.find(finding.element);
        return place ? place->line : 0;
    }
    [[nodiscard]] const std::string& content() const { return m_content; }

    std::vector<Finding> findings;

private:
    const TemporaryFolder m_folder;
    std::string m_content;
    std::wstring m_file;
    std::unique_ptr<ConfigInfo> m_document;
};

const std::vector<Case>& cases() {
    constexpr Severity E = Severity::Error;
    constexpr Severity W = Severity::Warning;
    constexpr Severity N = Severity::Note;
    static const std::string blendRun = "<Blend_Run>true</Blend_Run>";
    static const std::vector<Case> rows = {
        {L"XC103",
         E,
         {{P1, "<Gamma>2.200000000000000e+00", "<Gamma>2,2"}},
         p1 + L"/Gamma",
         L"\"2,2\" is not of type double; the application reads 2",
         {L"XC408"}},
        {L"XC104",
         W,
         {{"", blendRun, "<Blend_Rum>true</Blend_Rum>"}},
         L"Geometry/Blend_Rum",
         L"there is no such setting; did you mean \"Blend_Run\"?"},
        {L"XC104", N, {{"", blendRun, blendRun + "<Lights/>"}}, L"Geometry/Lights", L"there is no such setting"},
        {L"XC105",
         W,
         {{"", "<Color>", "<Colour/>\n  <Color>"}},
         L"Colour",
         L"there is no such section; did you mean \"Color\"?"},
        {L"XC106",
         W,
         {{"", blendRun, blendRun + "\n<Blend_Run>false</Blend_Run>"}},
         L"Geometry/Blend_Run",
         L"is hidden by an earlier one",
         {},
         "<Blend_Run>false"},
        {L"XC106",
         W,
         {{"", blendRun, blendRun + "\n<Blend_Run >true</Blend_Run>"}},
         L"Geometry/Blend_Run",
         L"is hidden by an earlier one",
         {},
         "<Blend_Run >"},
        {L"XC106", E, {{"", C2, C1 + "/>\n" + C2}}, c1, L"is hidden by an earlier one", {}, C1 + "/>"},
        {L"XC107", E, {{"", C2, "<Camera/>\n" + C2}}, L"Camera", L"a camera has no ID"},
        {L"XC108",
         E,
         {{P1, "<Gamma>2.200000000000000e+00", "<Gamma><x/>"}},
         p1 + L"/Gamma",
         L"holds elements instead of a value",
         {L"XC408"}},
        {L"XC109",
         E,
         {{"", "<Shape>Sphere", "<Shape>sphere"}},
         L"Screen/Shape",
         L"\"sphere\" is none of Flat, Sphere, Cylinder, Ruled, Toroid, VRML, Test"},
        {L"XC109",
         E,
         {{"", "<Marker_Location_Method>act", "<Marker_Location_Method>lamp"}},
         L"System/Marker_Location_Method",
         L"\"lamp\" is none of manual, led, led-manual, act, act-prompt, marked-surface-automatic, "
         L"marked-surface-automatic-prompt, structured-light, checkerboard; counts as manual"},
        {L"XC109",
         E,
         {{P1, "<Lamp_Mode>Dual", "<Lamp_Mode>lamp"}},
         p1 + L"/Lamp_Mode",
         L"\"lamp\" is none of Single1, Single2, Dual; counts as empty",
         {L"XC408"}},
        {L"XC110", W, {{"", "<Fit_Solver>5", "<Fit_Solver>3"}}, L"Geometry/Fit_Solver", L"3 is no mapper and counts as 2"},
        {L"XC111",
         E,
         {{P4, "<Gamma>",
           "<!-- xmlconfig conflict Projector[VELDAR***00:0a:0b:0c:0d:1f]/Gamma base=2.2 ours=2.3 "
           "theirs=2.400000000000000e+00 -->\n<Gamma>"}},
         p4 + L"/Gamma",
         L"is not settled: ours 2.3, theirs 2.4",
         {},
         "<Gamma>"},
        {L"XC112",
         N,
         {{"", blendRun, blendRun + "\n<Serial_Run>true</Serial_Run>"}},
         L"Geometry/Serial_Run",
         L"has been gone since 6.0",
         {},
         "<Serial_Run>"},
        {L"XC112",
         N,
         {{"", "<Data_Type>Spherical", "<Data_Type>Projector Pose"}},
         L"TargetLocator/Data_Type",
         L"\"Projector Pose\" is the older name of \"Projector Centric\""},
        {L"XC113",
         E,
         {{"", "<Sample_Spacing>1.200000000000000e+01", "<Sample_Spacing>nan"}},
         L"Screen/Sample_Spacing",
         L"is not a number"},
        {L"XC114", W, {{"", "<GatherTries>3", "<GatherTries>0"}}, L"Geometry/GatherTries", L"0 is outside 1 and more"},
        {L"XC114",
         W,
         {{"", "<ChannelCoverageGatherValidationPercentage>2.500000000000000e+01",
           "<ChannelCoverageGatherValidationPercentage>120"}},
         L"Geometry/ChannelCoverageGatherValidationPercentage",
         L"120 is outside 0 to 100"},
        {L"XC114",
         E,
         {{"", "<ImageResolution_X>1920", "<ImageResolution_X>0"}},
         L"Geometry/ImageResolution_X",
         L"0 is outside 1 and more",
         {L"XC411"}},

        {L"XC201",
         E,
         {{P2, "UID=\"VELDAR***00:0a:0b:0c:0d:02\"", "UID=\"VELDAR***00:0a:0b:0c:0d:0f\""}},
         p2 + L"/DeviceSnippet",
         L"UID \"VELDAR***00:0a:0b:0c:0d:0f\" in the device snippet is not the section's ID",
         {},
         "<DeviceSnippet>"},
        {L"XC202",
         W,
         {{P1, "<DeviceSnippet>", "<DeviceSnippet/>", "</DeviceSnippet>"}},
         p1 + L"/DeviceSnippet",
         L"\"Dome 1\" has no device snippet"},
        {L"XC203",
         W,
         {{P1, "type=\"VELDAR\"", "type=\"PGR\""}},
         p1 + L"/DeviceSnippet",
         L"the type \"PGR\" is not that of the UID",
         {},
         "<DeviceSnippet>"},
        {L"XC204",
         W,
         {{C1, "<macAddress>02:1c:00:51:00:a0", "<macAddress>02:1c:00:51:00:a9"}},
         c1 + L"/DeviceSnippet",
         L"02:1c:00:51:00:a9 is not the MAC address in the ID",
         {},
         "<DeviceSnippet>"},
        {L"XC205",
         E,
         {{C1, "<macAddress>02:1c:00:51:00:a0", "<macAddress>02-1C-00-51-00-A4"}},
         c2,
         L"02:1c:00:51:00:a4 is that of \"Dome left\" and \"Dome right\"",
         {L"XC204"},
         C2},
        {L"XC206",
         W,
         {{"", "<Name>Dome 2", "<Name>Dome 1"}},
         p2 + L"/Name",
         L"\"Dome 1\" is also the name of " + p1,
         {},
         "<Name>Dome 1</Name>\n    <DeviceSnippet>\n      <device "
         "UID=\"VELDAR***00:0a:0b:0c:0d:02"},
        {L"XC208",
         E,
         {{P1, "<Associated_Camera_Id_1>PGR***02:1c:00:51:00:a0", "<Associated_Camera_Id_1>PGR***x"}},
         p1 + L"/Associated_Camera_Id_1",
         L"there is no camera \"PGR***x\""},
        {L"XC208",
         E,
         {{P1, "<Associated_Camera_Id_1>PGR***02:1c:00:51:00:a0", "<Associated_Camera_Id_1>PGR***x"},
          {C2, "<Binarization_Threshold>", "<OldSectionID>PGR***x</OldSectionID><Binarization_Threshold>"}},
         p1 + L"/Associated_Camera_Id_1",
         L"there is no camera \"PGR***x\"; \"PGR***02:1c:00:51:00:a4\" was PGR***x before"},
        {L"XC209",
         W,
         {{"", ",PGR***02:1c:00:51:00:a4</CameraOrder>", "</CameraOrder>"}},
         L"Color/CameraOrder",
         L"leaves out \"Dome right\""},
        {L"XC210",
         W,
         {{P1, "<Designed>", "<Associated_Camera_Id_2>PGR***02:1c:00:51:00:a0</Associated_Camera_Id_2>\n<Designed>"}},
         p1 + L"/Associated_Camera_Id_2",
         L"is the first camera again"},
        {L"XC210",
         W,
         {{P1, "<Associated_Camera_Id_1>", "<Associated_Camera_Id_2>PGR***02:1c:00:51:00:a0</Associated_Camera_Id_2>",
           "</Associated_Camera_Id_1>"}},
         p1 + L"/Associated_Camera_Id_2",
         L"a second camera without a first"},
        {L"XC211",
         W,
         {{P1, "<Associated_Camera_Id_1>", "", "</Associated_Camera_Id_1>"}},
         p1,
         L"has no camera, other projectors have",
         {},
         P1},
        {L"XC212",
         N,
         {{"", C2, "<Camera ID=\"spare\"><Name>Spare</Name></Camera>\n" + C2}},
         L"Camera[spare]",
         L"no projector and no camera order names \"Spare\"",
         {L"XC202", L"XC209", L"XC611"},
         "<Camera ID=\"spare\""},
        {L"XC213",
         W,
         {{P1, "<Resolution_X>", "<OldSectionID>VELDAR***00:0a:0b:0c:0d:02</OldSectionID><Resolution_X>"}},
         p1 + L"/OldSectionID",
         L"\"VELDAR***00:0a:0b:0c:0d:02\" is there as well"},
        {L"XC215", W, {{"", "<ACT_Count>2", "<ACT_Count>1"}}, L"System/ACT_Count", L"is 1, but unit 1 is described"},
        {L"XC215", W, {{"", "<ACT_Count>2", "<ACT_Count>3"}}, L"System/ACT_Count", L"is 3, but unit 2 has no address"},
        {L"XC216",
         N,
         {{"", "<CurrentSlotID>3", "<CurrentSlotID>7"}},
         L"ProjectorApprovedSlots/CurrentSlotID",
         L"slot 7 is none of the approved slots (1, 2)"},
        {L"XC217",
         W,
         {{"", "<Projector_Count>4", "<Projector_Count>6"}},
         L"Geometry/Projector_Count",
         L"reads 6, but there are 4 projectors"},
        {L"XC218",
         W,
         {{"", "<Projector_Layout_Width>4", "<Projector_Layout_Width>5"}},
         L"Geometry/Projector_Layout_Width",
         L"the layout of 5 x 1 has room for 5, but there are 4 projectors"},
        {L"XC219",
         N,
         {{"", "<Colorimeter_Type>", "<CameraOverlapPoint_1_2>0, 0, 1, 1, 2</CameraOverlapPoint_1_2>\n<Colorimeter_Type>"}},
         L"Color/CameraOverlapPoint_1_2",
         L"names no two cameras"},

        {L"XC300",
         N,
         {{P1, "<Left>-5.235987755982988e-01", "<Left>0.6"}},
         p1 + L"/Channel_Extents",
         L"neighbours, blends and coverage are not checked before \"Dome 1\" is in order",
         {L"XC303"},
         "<Channel_Extents>"},
        {L"XC301",
         W,
         {{P3, "<Yaw>3.926990816987241e-01", "<Yaw>7.417649320975901e-01"}},
         p3 + L"/Channel_Extents/Heading/Yaw",
         L"5\u00b0 gap between \"Dome 2\" and \"Dome 3\"",
         {L"XC311", L"XC312", L"XC315", L"XC321"}},
        {L"XC303",
         E,
         {{P1, "<Left>-5.235987755982988e-01", "<Left>5.235987755982988e-01"},
          {P1, "<Right>5.235987755982988e-01", "<Right>-5.235987755982988e-01"}},
         p1 + L"/Channel_Extents/HFOV/Left",
         L"Left (30\u00b0) is not left of Right (-30\u00b0)",
         {L"XC300"}},
        {L"XC304",
         W,
         {{P1, "<Right>5.235987755982988e-01", "<Right>1.6"}},
         p1 + L"/Channel_Extents/HFOV/Right",
         L"an edge 91.67\u00b0 off the line of sight",
         {L"XC300"}},
        {L"XC305",
         E,
         {{P1, "<Yaw>-1.178097245096172e+00", "<Yaw>-67.5"}},
         p1 + L"/Channel_Extents/Heading/Yaw",
         L"-67.5 radians are 10.7 turns; it looks like degrees",
         {L"XC300"}},
        {L"XC306",
         N,
         {{P1, "<Yaw>-1.178097245096172e+00", "<Yaw>5.105088062083414e+00"}},
         p1 + L"/Channel_Extents/Heading/Yaw",
         L"292.5\u00b0 is more than half a turn"},
        {L"XC306",
         W,
         {{P1, "<Pitch>3.839724354387525e-01", "<Pitch>2"}},
         p1 + L"/Channel_Extents/Heading/Pitch",
         L"114.59\u00b0 is more than a quarter turn",
         {L"XC313", L"XC319", L"XC321", L"XC322"}},
        {L"XC307",
         N,
         {{P1, "<Left>-5.235987755982988e-01", "<Left>0.1"}},
         p1 + L"/Channel_Extents/HFOV",
         L"does not hold its own line of sight",
         {L"XC311", L"XC312", L"XC315", L"XC321", L"XC403"},
         "<HFOV>"},
        {L"XC308",
         W,
         {{P2, "<Yaw>-3.926990816987241e-01", "<Yaw>-1.178097245096172e+00"}},
         p2,
         L"shows the same area as \"Dome 1\" (100 %)",
         {L"XC301", L"XC311", L"XC312", L"XC313", L"XC315", L"XC319", L"XC321", L"XC317"},
         P2},
        {L"XC309",
         E,
         {{P1, "<VFOV>", "", "</VFOV>"}, {P1, "<HFOV>", "", "</HFOV>"}},
         p1 + L"/Channel_Extents",
         L"has no channel yet",
         {L"XC300"},
         "<Channel_Extents>"},
        {L"XC310",
         N,
         {{"<TargetLocator>", "<Eye_Point>0.000000000000000e+00, 0.000000000000000e+00, 1.650000000000000e+00",
           "<Eye_Point>0, 0, 1.5"}},
         L"TargetLocator/Eye_Point",
         L"channels are seen from 0, 0, 1.65 m, the target from 0, 0, 1.5 m"},
        {L"XC311",
         W,
         {{P1, "<Blend_Right>2.500000000000000e+01", "<Blend_Right>60"}},
         p1 + L"/Blend_Right",
         L"blend takes 60 %, but \"Dome 2\" overlaps 41 % at most"},
        {L"XC312",
         W,
         {{P1, "<Blend_Right>2.500000000000000e+01", "<Blend_Right>10"}},
         p1 + L"/Blend_Right",
         L"blend takes 10 %, but \"Dome 2\" overlaps 22 % at least"},
        {L"XC313",
         W,
         {{P1, "<Blend_Left>0.000000000000000e+00", "<Blend_Left>12"}},
         p1 + L"/Blend_Left",
         L"12 % blend at the left edge, where no channel overlaps"},
        {L"XC314",
         E,
         {{P1, "<Blend_Left>0.000000000000000e+00", "<Blend_Left>120"}},
         p1 + L"/Blend_Left",
         L"120 % is no part of the image"},
        {L"XC314",
         E,
         {{P1, "<Blend_Left>0.000000000000000e+00", "<Blend_Left>80"}},
         p1 + L"/Blend_Left",
         L"Left and Right blends take 105 % together",
         {L"XC313"}},
        {L"XC315",
         N,
         {{"", "<Horizontal_Overlap>2.500000000000000e-01", "<Horizontal_Overlap>0.6"}},
         p1,
         L"overlap with \"Dome 2\" is 22 to 41 %, wanted 60 %",
         {L"XC315"},
         P1},
        {L"XC316",
         W,
         {{P1, "<Screen_Area_Left>0.000000000000000e+00", "<Screen_Area_Left>0.5"}},
         p1 + L"/Screen_Area_Left",
         L"0.5 to 0.28 is no part of the screen"},
        {L"XC316",
         W,
         {{P2, "<Screen_Area_Left>2.200000000000000e-01", "<Screen_Area_Left>-1000"},
          {P2, "<Screen_Area_Right>5.3", "<Screen_Area_Right>15.3"}},
         p2 + L"/Screen_Area_Left",
         L"? to 1.53 is no part of the screen"},
        {L"XC317",
         W,
         {{P1, "<Screen_Area_Left>0.000000000000000e+00", "<Screen_Area_Left>0.25"}},
         p2 + L"/Screen_Area_Left",
         L"lies left of \"Dome 1\", its channel right of it",
         {},
         "<Screen_Area_Left>2.200000000000000e-01"},
        {L"XC318",
         W,
         {{P2, "<Screen_Area_Left>2.200000000000000e-01", "<Screen_Area_Left>0.3"}},
         p2 + L"/Screen_Area_Left",
         L"starts at 0.3, \"Dome 1\" ends at 0.28"},
        {L"XC319",
         N,
         {{P1, "<Left>0</Left>", "<Left>1</Left>"}},
         p1 + L"/Pond_Of_Mirrors/Left",
         L"Left is 1, but no channel overlaps that edge"},
        {L"XC321",
         N,
         {{"", "<Screen_MaxPhi>1.047197551196598e+00", "<Screen_MaxPhi>0.8726646259971648"}},
         L"Screen",
         L"13 % of the screen is in no channel; all of -10\u00b0 to -7\u00b0 and 44\u00b0 to 50\u00b0 up",
         {},
         "<Screen>"},
        {L"XC321",
         W,
         {{"", "<Screen_MinTheta>-1.570796326794897e+00", "<Screen_MinTheta>-0.35"},
          {"", "<Screen_MaxTheta>1.570796326794897e+00", "<Screen_MaxTheta>0.35"},
          {"", "<Screen_MinPhi>-1.745329251994329e-01", "<Screen_MinPhi>-0.35"},
          {"", "<Screen_MaxPhi>1.047197551196598e+00", "<Screen_MaxPhi>0.35"},
          {P1, "<Yaw>-1.178097245096172e+00", "<Yaw>-0.7"},
          {P1, "<Pitch>3.839724354387525e-01", "<Pitch>0"},
          {P2, "<Yaw>-3.926990816987241e-01", "<Yaw>0"},
          {P2, "<Pitch>3.839724354387525e-01", "<Pitch>0.7"},
          {P3, "<Yaw>3.926990816987241e-01", "<Yaw>0.7"},
          {P3, "<Pitch>3.839724354387525e-01", "<Pitch>0"},
          {P4, "<Yaw>1.178097245096172e+00", "<Yaw>0"},
          {P4, "<Pitch>3.839724354387525e-01", "<Pitch>-0.7"}},
         L"Screen",
         L"38 % of the screen is in no channel; a hole at -10\u00b0 to 10\u00b0 around, -19\u00b0 to 11\u00b0 up",
         {L"XC301", L"XC313", L"XC318", L"XC319", L"XC322"},
         "<Screen>"},
        {L"XC322",
         W,
         {{P1, "<Yaw>-1.178097245096172e+00", "<Yaw>3.0"}},
         p1,
         L"100 % of \"Dome 1\" is beside the screen",
         {L"XC301", L"XC313", L"XC319", L"XC321", L"XC317"},
         P1},

        {L"XC401",
         W,
         {{P1, "<Resolution_X>1920", "<Resolution_X>1400"}, {"", "<InputImageScaling_Mode>0", "<InputImageScaling_Mode>1"}},
         p1 + L"/Resolution_X",
         L"image of 1920 x 1200 is not scaled to the panel of 1400 x 1200 and is cut",
         {L"XC405", L"XC408"}},
        {L"XC402",
         N,
         {{P1, "<Resolution_Y>1200", "<Resolution_Y>1080"}},
         p1 + L"/Resolution_X",
         L"image of 1920 x 1200 is stretched to the panel of 1920 x 1080",
         {L"XC405", L"XC408"},
         "<Resolution_X>"},
        {L"XC403",
         N,
         {{P4, "<Portrait_Mode>0", "<Portrait_Mode>1"}},
         p4 + L"/Portrait_Mode",
         L"is 1, but the channel is wide (60\u00b0 x 50\u00b0)",
         {L"XC408"}},
        {L"XC403",
         N,
         {{P4, "<Top>4.537856055185257e-01", "<Top>0.9"}},
         p4 + L"/Portrait_Mode",
         L"is 0, but the channel is upright (60\u00b0 x 75.57\u00b0)",
         {L"XC321"},
         "<Portrait_Mode>"},
        {L"XC405",
         N,
         {{P1, "<ResolutionX>1920", "<ResolutionX>1400"}},
         p1 + L"/Designed/Frustum",
         L"was designed for 1400 x 1200",
         {},
         "<Frustum>"},
        {L"XC407",
         N,
         {{P1, "<Lamp_Power>8.500000000000000e+01", "<Lamp_Power>95"}},
         p1 + L"/Lamp_Power",
         L"95 % is above the cap of 90 %",
         {L"XC408"}},
        {L"XC408",
         N,
         {{P1, "<Gamma>2.200000000000000e+00", "<Gamma>2.4"}},
         p1 + L"/Gamma",
         L"2.4, the other 3 projectors have 2.2"},
        {L"XC409",
         N,
         {{P1, "<Gamma>", "<Portrait_Mode>0</Portrait_Mode>\n<Gamma>"}},
         p1 + L"/Portrait_Mode",
         L"says again what it would inherit (0)"},
        {L"XC411",
         W,
         {{P1, "<Gamma>", "<Box_Size>400, 25</Box_Size>\n<Gamma>"}},
         p1 + L"/Box_Size",
         L"fewer than 4 blobs fit across the image",
         {L"XC408", L"XC901"}},

        {L"XC501",
         E,
         {{"", "<Screen_Radius>5.200000000000000e+00", "<Screen_Radius>-1"}},
         L"Screen/Screen_Radius",
         L"a Sphere needs it (-1)"},
        {L"XC502",
         W,
         {{"", "<Screen_MinTheta>-1.570796326794897e+00", "<Screen_MinTheta>-3.5"}},
         L"Screen/Screen_MinTheta",
         L"-200.54\u00b0 around is more than a sphere",
         {L"XC321"}},
        {L"XC503",
         E,
         {{"", "<SizeDefinition>0", "<SizeDefinition>2"}, {"", "<VRML>meshes\\dome.obj", "<VRML>"}},
         L"Screen/SizeDefinition",
         L"the size is to come from a model file, but there is none"},
        {L"XC504", E, {{"", "<AxisUpward>Z", "<AxisUpward>-Y"}}, L"Screen/AxisUpward", L"is along AxisForward"},
        {L"XC505",
         E,
         {{"", "<File_Unit_Custom_Scale>1.000000000000000e+00", "<File_Unit_Custom_Scale>0"},
          {"", "<File_Length_Unit>Millimeters", "<File_Length_Unit>Custom"}},
         L"Screen/File_Unit_Custom_Scale",
         L"must be above 0"},
        {L"XC506",
         N,
         {{"", "<Mask_Top_Enabled>false", "<Mask_Top_Enabled>true"}},
         L"Screen/Mask_Top_Enabled",
         L"is enabled, but has no size"},
        {L"XC507",
         E,
         {{"", "<Marked_Surface_File>images\\dome-marks.png", "<Marked_Surface_File>"},
          {"", "<Marker_Location_Method>act", "<Marker_Location_Method>marked-surface-automatic"}},
         L"Screen/Marked_Surface_File",
         L"is empty, but markers are found by it"},
        {L"XC507",
         W,
         {{"", "<Marked_Surface_Image_Width>2400", "<Marked_Surface_Image_Width>0"},
          {"", "<Marker_Location_Method>act", "<Marker_Location_Method>marked-surface-automatic"}},
         L"Screen/Marked_Surface_Image_Width",
         L"is 0, but markers are found by that image"},
        {L"XC508",
         E,
         {{"", "<Rows>6", "<Rows>1"}, {"", "<Marker_Location_Method>act", "<Marker_Location_Method>checkerboard"}},
         L"Screen/Checkerboard_Calibration",
         L"is not described",
         {},
         "<Checkerboard_Calibration>"},
        {L"XC509",
         E,
         {{"", "9.000000000000000e+01\t9.000000000000000e+01</V", "90\t0</V"}},
         L"TargetLocator/Vertical_Content_Distortion",
         L"0 -> 0, then 90 -> 0: does not rise",
         {},
         "<Vertical_Content_Distortion>"},
        {L"XC510",
         E,
         {{"", "9.000000000000000e+01\t9.000000000000000e+01</V", "90</V"}},
         L"TargetLocator/Vertical_Content_Distortion",
         L"holds 5 numbers, not pairs",
         {},
         "<Vertical_Content_Distortion>"},
        {L"XC511",
         W,
         {{"<Locate_Guess_Transform>", "1.000000, 0.000000, 0.000000 ,0.000000,", "1, 0, 0,"}},
         L"Screen/Locate_Guess_Transform",
         L"holds 15 numbers; the identity is used",
         {},
         "<Locate_Guess_Transform>"},
        {L"XC511",
         W,
         {{"<Locate_Guess_Transform>", "1.000000, 0.000000, 0.000000 ,0.000000,", "-1, 0, 0, 0,"}},
         L"Screen/Locate_Guess_Transform",
         L"does not turn alone, it stretches or mirrors",
         {},
         "<Locate_Guess_Transform>"},
        {L"XC513",
         W,
         {{"", "<Projection_Point>0.000000000000000e+00, 0.000000000000000e+00, 1.650000000000000e+00",
           "<Projection_Point>0, 0, 9"}},
         L"Screen/Projection_Point",
         L"is outside the sphere"},

        {L"XC601",
         E,
         {{C1, "<ExplicitExtrinsicXYZ>", "", "</ExplicitExtrinsicXYZ>"}},
         c1 + L"/ExplicitExtrinsicValid",
         L"is true, but there is no pose",
         {},
         "<ExplicitExtrinsicValid>"},
        {L"XC602",
         W,
         {{C1, "4, 1652.250000", "", "5, 2099.500000, 1480.125000"}},
         c1 + L"/Camera_Calibration_Points",
         L"3 markers; a pose needs 4",
         {},
         "<Camera_Calibration_Points>"},
        {L"XC603",
         W,
         {{C1, "5, 2099.500000", "9, 2099.500000"}},
         c1 + L"/Camera_Calibration_Points",
         L"marker 9; the screen has 8 points",
         {},
         "<Camera_Calibration_Points>"},
        {L"XC604",
         E,
         {{C1, "5, 2099.500000", "5, 2600.000000"}},
         c1 + L"/Camera_Calibration_Points",
         L"marker 5 at 2600, 1480.125 is outside the image of 2448 x 2048",
         {},
         "<Camera_Calibration_Points>"},
        {L"XC605",
         W,
         {{C1, "1, 310.500000", "1, 362.000000"},
          {C1, "2, 757.750000", "2, 809.250000"},
          {C1, "3, 1205.000000", "3, 1256.500000"}},
         c1 + L"/Camera_Calibration_Points",
         L"markers have moved by 50 pixels since the reference image",
         {},
         "<Camera_Calibration_Points>"},
        {L"XC606",
         E,
         {{C1, "<MultiCamEdgeThreshold>40,40,40,40", "<MultiCamEdgeThreshold>40,40,40"}},
         c1 + L"/MultiCamEdgeThreshold",
         L"holds 3 numbers; reads as none"},
        {L"XC610",
         E,
         {{"", C1, "", "</Camera>"}, {"", C2, "", "</Camera>"}},
         L"System/Is_Camera_Used",
         L"is true, but there is no camera",
         {L"XC208"},
         "<Is_Camera_Used>"},
        {L"XC611",
         W,
         {{C2, "<IntrinsicFileID>intrinsics-17182104", "<IntrinsicFileID>intrinsics-17182096"}},
         c2 + L"/IntrinsicFileID",
         L"\"intrinsics-17182096\" is also that of \"Dome left\""},
        {L"XC611",
         W,
         {{C1, "<IntrinsicFileID>intrinsics-17182096", "<IntrinsicFileID>"}},
         c1 + L"/IntrinsicFileID",
         L"is empty, other cameras have one"},
        {L"XC614",
         E,
         {{"", "<ACT_Count>2", "<ACT_Count>0"}},
         L"System/ACT_Count",
         L"is 0, but markers are found by ACT units",
         {L"XC215"}},
        {L"XC614",
         W,
         {{"", "<Black_Box_LED_Lights_Comm>true", "<Black_Box_LED_Lights_Comm>false"},
          {"", "<Marker_Location_Method>act", "<Marker_Location_Method>led"}},
         L"System/Black_Box_LED_Lights_Comm",
         L"is not enabled, but markers are found by LEDs"},
        {L"XC615",
         E,
         {{"", "9.850000000000000e-01, 9.900000000000000e-01", "0.99, 0.98"}},
         L"Color/NormalizedValidExposureSampleRange",
         L"0.99 to 0.98 is no range"},

        {L"XC701",
         W,
         {{P2, "<address>192.168.10.12", "<address>192.168.10.11"}},
         p2 + L"/DeviceSnippet",
         L"192.168.10.11 is used by \"Dome 1\" and \"Dome 2\"",
         {},
         "<DeviceSnippet>"},
        {L"XC701",
         E,
         {{C1, "<ipAddress>192.168.10.41", "<ipAddress>192.168.10.11"}},
         c1 + L"/DeviceSnippet",
         L"192.168.10.11 is used by \"Dome 1\" and \"Dome left\"",
         {},
         "<DeviceSnippet>"},
        {L"XC702",
         E,
         {{"", "<AdvColor_ComPort>COM5", "<AdvColor_ComPort>COM4"}},
         L"Color/AdvColor_ComPort",
         L"COM4 is used by \"Dome 4\" and the colorimeter"},
        {L"XC703",
         W,
         {{P1, "<address>192.168.10.11", "<address>COM7"}},
         p1 + L"/DeviceSnippet",
         L"\"COM7\" is no IPv4 address",
         {},
         "<DeviceSnippet>"},
        {L"XC704",
         N,
         {{P1, "<address>192.168.10.11", "<address>192.168.20.13"}},
         p1 + L"/DeviceSnippet",
         L"192.168.20.13 is in none of the cameras' networks",
         {},
         "<DeviceSnippet>"},
        {L"XC705",
         E,
         {{C1, "<ipAddress>192.168.10.41", "<ipAddress>"}},
         c1 + L"/DeviceSnippet",
         L"has no DHCP and no address",
         {},
         "<DeviceSnippet>"},
        {L"XC705",
         W,
         {{C1, "<defaultGateway>192.168.10.1", "<defaultGateway>10.0.0.1"}},
         c1 + L"/DeviceSnippet",
         L"the gateway 10.0.0.1 is outside its network",
         {},
         "<DeviceSnippet>"},
        {L"XC706",
         E,
         {{"", "<Black_Box_LED_Lights_Comm>true, serial, COM3, 9600, 2",
           "<Black_Box_LED_Lights_Comm>true, serial, COM3, 9600, 1"}},
         L"System/Black_Box_LED_Lights_Comm",
         L"is at power port 1 of the box, as the cameras are"},
        {L"XC706",
         W,
         {{"", "<Black_Box_LED_Lights_Comm>true, serial, COM3, 9600, 2",
           "<Black_Box_LED_Lights_Comm>true, serial, COM3, 9600, 6"}},
         L"System/Black_Box_LED_Lights_Comm",
         L"power port 6; there are 4"},
        {L"XC706",
         E,
         {{"", "<Black_Box_LED_Lights_Comm>true, serial, COM3, 9600, 2",
           "<Black_Box_LED_Lights_Comm>true serial COM3 9600 2"}},
         L"System/Black_Box_LED_Lights_Comm",
         L"holds 1 part; it needs five"},
        {L"XC706",
         W,
         {{"", "<Black_Box_LED_Lights_Comm>true, serial, COM3, 9600, 2", "<Black_Box_LED_Lights_Comm>false, , , 0, -1"}},
         L"System/Black_Box_LED_Lights_Comm",
         L"power port -1; there are 4"},
        {L"XC707",
         W,
         {{P4, "<connection type=\"SERIAL\">", "", "</connection>"}},
         p4 + L"/DeviceSnippet",
         L"has no connection yet",
         {},
         "<DeviceSnippet>"},
        {L"XC708",
         W,
         {{P4, "type=\"SERIAL\"", "type=\"VIRTUAL\""}},
         p4 + L"/DeviceSnippet",
         L"is a virtual device",
         {},
         "<DeviceSnippet>"},

        {L"XC901",
         N,
         {{"", "<Box_Spacing>1.500000000000000e+00", "<Box_Spacing>1.7"}},
         L"Geometry/Box_Spacing",
         L"has no effect now: Geometry/Enable_Automatic_Mapper_Settings is true",
         {L"XC408"}},
        {L"XC903",
         N,
         {{"", "<TimeOfLastRun>2019-03-11", "<TimeOfLastRun>2019-03-13"}},
         L"ProjectorApprovedSlots/TimeOfLastRun",
         L"2019-03-13 14:05:09, but SiteAnalytics says 2019-03-11 14:05:09"},
        {L"XC904",
         W,
         {{C1, "<Camera_Reference_Image_Timestamp>1552304460", "<Camera_Reference_Image_Timestamp>1552309999"}},
         c1 + L"/Camera_Reference_Image_Timestamp",
         L"the reference image is newer than the reference mappings"},
        {L"XC907",
         E,
         {{"", "<Do_CalculateBlendsOnly_Run>false", "<Do_CalculateBlendsOnly_Run>true"},
          {"", blendRun, "<Blend_Run>false</Blend_Run>"}},
         L"Geometry/Do_CalculateBlendsOnly_Run",
         L"a run computes nothing"},
        {L"XC908",
         E,
         {{"", "<Advanced_Color_Filename>dome-colour", "<Advanced_Color_Filename>dome-warp"}},
         L"Color/Advanced_Color_Filename",
         L"names the file of System/Skorra_File; one overwrites the other"},
        {L"XC910",
         N,
         {{P4, "<Gamma>", "<!-- xmlconfig accepts XC407: by hand -->\n<Gamma>"}},
         p4,
         L"accepts XC407, which is not found any more",
         {},
         P4},
    };
    return rows;
}

class CheckRule : public ::testing::TestWithParam<Case> {};

TEST_P(CheckRule, FindsThatAndNothingElse) {
    const Case& row = GetParam();
    const Changed document(row);
    std::size_t hits = 0;
    for (const Finding& finding : document.findings) {
        const std::wstring text = textOf(finding);
        if (finding.rule == row.rule && finding.address == row.address && finding.message == row.message) {
            ++hits;
            EXPECT_EQ(finding.severity, row.severity);
            EXPECT_EQ(document.lineOf(finding), lineOf(document.content(), row)) << XMLConfig::utf8FromWide(text);
            EXPECT_EQ(finding.name, XMLConfig::findRule(row.rule)->name);
            continue;
        }
        EXPECT_THAT(row.besides, ::testing::Contains(finding.rule)) << XMLConfig::utf8FromWide(text);
    }
    EXPECT_EQ(hits, 1u) << XMLConfig::utf8FromWide(row.message);
}

INSTANTIATE_TEST_SUITE_P(Each, CheckRule, ::testing::ValuesIn(cases()), [](const auto& each) {
    return XMLConfig::utf8FromWide(each.param.rule) + "_" + std::to_string(each.index);
});

/// "XC103 asked: set FILE ADDRESS=VALUE; ...".
std::string mendOf(const Finding& finding) {
    std::wstring text = finding.rule + L" " + nameOf(finding.mend.safety) + L":";
    for (const std::vector<std::wstring>& command : finding.mend.commands) {
        if (&command != &finding.mend.commands.front()) text += L";";
        for (const std::wstring& word : command) text += L" " + word;
    }
    return XMLConfig::utf8FromWide(text);
}

/// What is said to mend the findings of all cases, where that is known, in their order.
const std::vector<std::string>& mends() {
    // clang-format off
    static const std::vector<std::string> all = {
        "XC103 asked: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Gamma=2.2",
        "XC104 asked: set FILE Geometry/Blend_Run=true; unset FILE Geometry/Blend_Rum",
        "XC106 safe: unset FILE Geometry/Blend_Run",
        "XC109 safe: set FILE Screen/Shape=Sphere",
        "XC111 none: set FILE Projector[VELDAR***00:0a:0b:0c:0d:1f]/Gamma=2.3",
        "XC112 asked: unset FILE Geometry/Serial_Run",
        "XC112 safe: set FILE TargetLocator/Data_Type=Projector Centric",
        "XC208 safe: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Associated_Camera_Id_1=PGR***02:1c:00:51:00:a4",
        "XC209 asked: set FILE Color/CameraOrder=PGR***02:1c:00:51:00:a0,PGR***02:1c:00:51:00:a4",
        "XC210 safe: unset FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Associated_Camera_Id_2",
        "XC210 safe: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Associated_Camera_Id_1=PGR***02:1c:00:51:00:a0; unset FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Associated_Camera_Id_2",
        "XC215 asked: set FILE System/ACT_Count=2",
        "XC217 asked: set FILE Geometry/Projector_Count=4",
        "XC219 asked: unset FILE Color/CameraOverlapPoint_1_2",
        "XC303 asked: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Channel_Extents/HFOV/Left=-5.235987755982988e-01; set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Channel_Extents/HFOV/Right=5.235987755982988e-01",
        "XC305 asked: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Channel_Extents/Heading/Yaw=-67.5deg",
        "XC306 safe: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Channel_Extents/Heading/Yaw=-67.5deg",
        "XC310 asked: set FILE TargetLocator/Eye_Point=0.000000000000000e+00, 0.000000000000000e+00, 1.650000000000000e+00",
        "XC311 asked: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Blend_Right=32.7",
        "XC312 asked: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Blend_Right=32.7",
        "XC313 asked: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Blend_Left=0",
        "XC316 asked: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Screen_Area_Left=2.800000000000000e-01; set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Screen_Area_Right=0.5",
        "XC319 asked: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Pond_Of_Mirrors/Left=0",
        "XC408 none: set FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Gamma=2.200000000000000e+00",
        "XC409 safe: unset FILE Projector[VELDAR***00:0a:0b:0c:0d:01]/Portrait_Mode",
        "XC601 asked: set FILE Camera[PGR***02:1c:00:51:00:a0]/ExplicitExtrinsicValid=false",
        "XC910 safe: check --fix --only XC910 FILE",
    };
    // clang-format on
    return all;
}

TEST(CheckRules, SayWhatMendsWhatTheyFind) {
    std::vector<std::string> said;
    for (const Case& row : cases())
        for (const Finding& finding : Changed(row).findings)
            if (finding.rule == row.rule && finding.address == row.address && finding.message == row.message &&
                (finding.mend.safety != XMLConfig::MendSafety::None || !finding.mend.commands.empty()))
                said.push_back(mendOf(finding));
    EXPECT_EQ(said, mends());
}

/// "XC301 Projector[...]/...: text" for each other place.
std::vector<std::string> placesOf(const Finding& finding) {
    std::vector<std::string> places;
    for (const XMLConfig::FindingPlace& place : finding.places)
        places.push_back(XMLConfig::utf8FromWide(finding.rule + L" " + place.address +
                                                 (place.text ? L": " + *place.text : std::wstring(L" has no text"))));
    return places;
}

TEST(CheckRules, OtherPlacesHaveTheTextThatStandsThere) {
    std::set<std::string> places;
    for (const Case& row : cases())
        for (const Finding& finding : Changed(row).findings)
            if (finding.rule == row.rule)
                for (const std::string& place : placesOf(finding)) places.insert(place);
    // clang-format off
    EXPECT_THAT(places, ::testing::ElementsAre(
        "XC106 Camera[PGR***02:1c:00:51:00:a0] has no text",
        "XC106 Geometry/Blend_Run: true",
        "XC205 Camera[PGR***02:1c:00:51:00:a0] has no text",
        "XC206 Projector[VELDAR***00:0a:0b:0c:0d:01]/Name: Dome 1",
        "XC208 Camera[PGR***02:1c:00:51:00:a4] has no text",
        "XC213 Projector[VELDAR***00:0a:0b:0c:0d:02] has no text",
        "XC301 Projector[VELDAR***00:0a:0b:0c:0d:02]/Channel_Extents/Heading/Yaw: -3.926990816987241e-01",
        "XC308 Projector[VELDAR***00:0a:0b:0c:0d:01] has no text",
        "XC409 Geometry/Portrait_Mode: 0",
        "XC611 Camera[PGR***02:1c:00:51:00:a0]/IntrinsicFileID: intrinsics-17182096",
        "XC701 Projector[VELDAR***00:0a:0b:0c:0d:01]/DeviceSnippet has no text",
        "XC702 Projector[VELDAR***00:0a:0b:0c:0d:1f]/DeviceSnippet has no text",
        "XC901 Geometry/Enable_Automatic_Mapper_Settings: true",
        "XC910 Projector[VELDAR***00:0a:0b:0c:0d:1f]:  xmlconfig accepts XC407: by hand "));
    // clang-format on
}

TEST(CheckRules, EachHasACase) {
    std::set<std::wstring> tried = {L"XC101", L"XC102", L"XC902"};  // of versions and of files on the disk: tried elsewhere
    for (const Case& row : cases()) tried.insert(row.rule);
    for (const XMLConfig::CheckRule& rule : XMLConfig::checkRules())
        EXPECT_EQ(tried.count(rule.id), 1u) << XMLConfig::utf8FromWide(rule.id);
    EXPECT_EQ(tried.size(), XMLConfig::checkRules().size());
}

TEST(CheckRules, AreInOrderOfTheirIDs) {
    const auto isBefore = [](const auto& a, const auto& b) { return std::wstring(a.id) < b.id; };
    EXPECT_TRUE(std::is_sorted(XMLConfig::checkRules().begin(), XMLConfig::checkRules().end(), isBefore));
    EXPECT_EQ(XMLConfig::findRule(L"XC999"), nullptr);
}

// Files on the disk.

class NamedFiles : public ::testing::Test {
protected:
    std::vector<std::wstring> found() {
        const std::wstring file =
            folder.write(L"hall.skorrax", currentFile("<Screen><VRML>meshes\\dome.obj</VRML><PCD>scan.pcd</PCD>"
                                                      "<SizeDefinition>1</SizeDefinition></Screen>"));
        const ConfigInfo document(file);
        XMLConfig::CheckOptions options;
        options.file = file;
        options.onlyRules = {L"XC902"};
        std::vector<std::wstring> texts;
        for (const Finding& finding : XMLConfig::check(document, options)) texts.push_back(textOf(finding));
        return texts;
    }
    void make(const std::filesystem::path& name) const {
        std::filesystem::create_directories((folder.path() / name).parent_path());
        std::ofstream(folder.path() / name) << "x";
    }

    TemporaryFolder folder;
};

TEST_F(NamedFiles, AreNotedOnceWhereNoneIsThere) {
    EXPECT_EQ(found(),
              (std::vector<std::wstring>{L"note[XC902] : none of the 2 files that it names is here; is this a copy?"}));
}

TEST_F(NamedFiles, AreAnErrorWhereOneIsMissing) {
    make("scan.pcd");
    EXPECT_EQ(found(), (std::vector<std::wstring>{L"error[XC902] Screen/VRML: there is no meshes/dome.obj"}));
    make("meshes/dome.obj");
    EXPECT_TRUE(found().empty());
}

TEST_F(NamedFiles, MayLieBelowMoreFoldersThanAnySystemHas) {
    make("scan.pcd");
    std::string name;
    for (int i = 0; i < 100'000; ++i) name += "./";
    const std::wstring file =
        folder.write(L"hall.skorrax", currentFile("<Screen><VRML>" + name + "x</VRML><PCD>scan.pcd</PCD></Screen>"));
    const ConfigInfo document(file);
    XMLConfig::CheckOptions options;
    options.file = file;
    options.onlyRules = {L"XC902"};
    ASSERT_EQ(XMLConfig::check(document, options).size(), 1u);
    EXPECT_EQ(XMLConfig::check(document, options)[0].severity, XMLConfig::Severity::Error);
}

#ifndef _WIN32
TEST_F(NamedFiles, AreAWarningWhereTheCaseDiffers) {
    make("scan.pcd");
    make("Meshes/Dome.obj");
    EXPECT_EQ(found(),
              (std::vector<std::wstring>{L"warning[XC902] Screen/VRML: there is no meshes/dome.obj, but Meshes/Dome.obj"}));
}
#endif

TEST(CheckRules, ARunMayNotOverwriteTheConfiguration) {
    const TemporaryFolder folder;
    const std::wstring file = folder.write(L"hall.skorrax", currentFile("<System><Skorra_File>.\\hall.skorrax"
                                                                        "</Skorra_File></System>"));
    const ConfigInfo document(file);
    XMLConfig::CheckOptions options;
    options.file = file;
    const std::vector<Finding> findings = XMLConfig::check(document, options);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(textOf(findings[0]), L"error[XC908] System/Skorra_File: names this configuration; a run would overwrite it");
}

}  // namespace
