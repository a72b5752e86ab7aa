#include "manager/Diff.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "store/ElementView.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/DeviceSections.h"
#include "tests/support/Example.h"
#include "tests/support/TestDocument.h"

namespace {

using XMLConfig::Difference;
using XMLConfig::DiffOptions;
using XMLConfig::SettingDifference;

Difference diffOf(const std::string& old, const std::string& now, const DiffOptions& options = {}) {
    const TestDocument oldDocument(old);
    const TestDocument newDocument(now);
    return XMLConfig::diff(*oldDocument, *newDocument, options);
}

Difference diffOfItems(const std::string& section, const std::string& old, const std::string& now,
                       const DiffOptions& options = {}) {
    const auto inSection = [&](const std::string& items) {
        return currentFile("<" + section + ">" + items + "</" + section + ">");
    };
    return diffOf(inSection(old), inSection(now), options);
}

std::vector<std::wstring> addresses(const std::vector<SettingDifference>& differences) {
    std::vector<std::wstring> all;
    for (const SettingDifference& difference : differences) all.push_back(difference.address);
    return all;
}
using Addresses = std::vector<std::wstring>;

TEST(Diff, EqualDocumentsDifferInNothing) {
    const Difference difference = diffOf(exampleText(), exampleText());
    EXPECT_TRUE(difference.isNothing());
    EXPECT_TRUE(difference.runs.empty());
    EXPECT_TRUE(difference.sameInEffect.empty());
    EXPECT_TRUE(difference.sameInValue.empty());
}

TEST(Diff, ChangedSettingIsToldWithBothTextsAndItsDevice) {
    const Difference difference = diffOfItems("System", "<Site_Name>Hall</Site_Name>", "<Site_Name>Dome</Site_Name>");
    ASSERT_EQ(addresses(difference.changed), Addresses{L"System/Site_Name"});
    EXPECT_EQ(difference.changed[0].old, L"Hall");
    EXPECT_EQ(difference.changed[0].now, L"Dome");
    EXPECT_EQ(difference.changed[0].device, L"");
    EXPECT_FALSE(difference.isNothing());
}

TEST(Diff, AddedAndGoneTextsAreTold) {
    const Difference difference = diffOfItems("System", "<Site_Name>Hall</Site_Name>", "<Own>x</Own>");
    ASSERT_EQ(addresses(difference.changed), (Addresses{L"System/Own", L"System/Site_Name"}));
    EXPECT_EQ(difference.changed[0].old, std::nullopt);
    EXPECT_EQ(difference.changed[0].now, L"x");
    EXPECT_EQ(difference.changed[1].old, L"Hall");
    EXPECT_EQ(difference.changed[1].now, std::nullopt);
}

TEST(Diff, ChangedProjectorOfTheDomeIsToldByItsName) {
    const std::string yaw = "3.926990816987241e-01";
    const Difference difference =
        diffOf(exampleText(), replaced(exampleText(), "<Yaw>" + yaw, "<Yaw>4.188790204786391e-01"));
    ASSERT_EQ(addresses(difference.changed),
              Addresses{L"Projector[VELDAR***00:0a:0b:0c:0d:03]/Channel_Extents/Heading/Yaw"});
    EXPECT_EQ(difference.changed[0].device, L"Dome 3");
    EXPECT_EQ(difference.changed[0].old, L"3.926990816987241e-01");
}

TEST(Diff, SwappedProjectorIsKnownByTheIDItHad) {
    const std::string now = replaced(exampleText(), "0c:0d:02", "0c:0d:77");
    const std::string remembered =
        replaced(now, "<Name>Dome 2</Name>", "<Name>Dome 2</Name><OldSectionID>VELDAR***00:0a:0b:0c:0d:02</OldSectionID>");
    const Difference difference = diffOf(exampleText(), remembered);
    ASSERT_EQ(difference.renamed.size(), 1U);
    EXPECT_EQ(difference.renamed[0].name, L"Dome 2");
    EXPECT_EQ(difference.renamed[0].oldID, L"VELDAR***00:0a:0b:0c:0d:02");
    EXPECT_EQ(difference.renamed[0].newID, L"VELDAR***00:0a:0b:0c:0d:77");
    EXPECT_EQ(difference.renamed[0].by, L"OldSectionID");
    EXPECT_EQ(addresses(difference.changed), Addresses{});
    const Difference backwards = diffOf(remembered, exampleText());
    ASSERT_EQ(backwards.renamed.size(), 1U);
    EXPECT_EQ(backwards.renamed[0].by, L"OldSectionID");
}

struct Stage {
    const char* name;
    const wchar_t* by;
    std::string old;
    std::string now;
};

class DeviceStage : public testing::TestWithParam<Stage> {};

TEST_P(DeviceStage, TellsTheSameDevice) {
    const Stage& stage = GetParam();
    const Difference difference = diffOf(currentFile(projector("a", stage.old)), currentFile(projector("b", stage.now)));
    ASSERT_EQ(difference.renamed.size(), 1U);
    EXPECT_EQ(difference.renamed[0].by, stage.by);
    EXPECT_TRUE(difference.added.empty());
    EXPECT_TRUE(difference.removed.empty());
}

TEST_P(DeviceStage, TellsNothingWhereItIsNotUnique) {
    const Stage& stage = GetParam();
    const Difference difference =
        diffOf(currentFile(projector("a", stage.old)), currentFile(projector("b", stage.now) + projector("c", stage.now)));
    EXPECT_TRUE(difference.renamed.empty());
    EXPECT_EQ(difference.added.size(), 2U);
    ASSERT_EQ(difference.removed.size(), 1U);
    EXPECT_EQ(difference.removed[0].id, L"a");
}

const char* const channel =
    "<Channel_Extents><Heading><Yaw>1.0</Yaw><Pitch>0.1</Pitch></Heading><HFOV><Left>-0.5</Left><Right>0.5</Right></HFOV>"
    "<VFOV><Top>0.4</Top><Bottom>-0.4</Bottom></VFOV></Channel_Extents>";
const char* const nearlyThatChannel =
    "<Channel_Extents><Heading><Yaw>1.015</Yaw><Pitch>0.1</Pitch></Heading><HFOV><Left>-0.5</Left><Right>0.501</Right></"
    "HFOV>"
    "<VFOV><Top>0.4</Top><Bottom>-0.4</Bottom></VFOV></Channel_Extents>";

INSTANTIATE_TEST_SUITE_P(
    All, DeviceStage,
    testing::Values(Stage{"MacAddress", L"MAC address", snippetWithUID("a", "<macAddress>02:1C:00:51:00:a0</macAddress>"),
                          snippetWithUID("b", "<macAddress>02-1c-00-51-00-A0</macAddress>")},
                    Stage{"OldMacAddress", L"MAC address", "<Projector_MAC_Address>021c005100a0</Projector_MAC_Address>",
                          "<Connection><MAC_Address>02:1c:00:51:00:a0</MAC_Address></Connection>"},
                    Stage{"SerialNumber", L"serial number", snippetWithUID("a", "<serialNumber>17</serialNumber>"),
                          snippetWithUID("b", "<serialNumber>17</serialNumber>")},
                    Stage{"Name", L"name", "<Name>Front</Name>", "<Name>Front</Name>"},
                    Stage{"Connection", L"place",
                          snippetWithUID("a", "<id>1</id><connection><address>10.0.0.1</address></connection>"),
                          snippetWithUID("b", "<id>1</id><connection><address>10.0.0.1</address></connection>")},
                    Stage{"Channel", L"place", channel, nearlyThatChannel}),
    [](const testing::TestParamInfo<Stage>& stage) { return stage.param.name; });

/// A projector of that channel, in radians.
std::string channelOf(const std::string& id, const std::array<double, 6>& angles) {
    std::array<std::string, 6> texts;
    std::transform(angles.begin(), angles.end(), texts.begin(), [](double angle) { return std::to_string(angle); });
    const auto& [yaw, pitch, left, right, top, bottom] = texts;
    return projector(id, "<Channel_Extents><Heading><Yaw>" + yaw + "</Yaw><Pitch>" + pitch +
                             "</Pitch></Heading><HFOV><Left>" + left + "</Left><Right>" + right +
                             "</Right></HFOV><VFOV><Top>" + top + "</Top><Bottom>" + bottom +
                             "</Bottom></VFOV></Channel_Extents>");
}

TEST(Diff, ChannelsAreTheSameWithinADegreeAndATenthOfOneAtTheirEdges) {
    const std::array<double, 6> here = {1.0, 0.1, -0.5, 0.5, 0.4, -0.4};
    for (std::size_t i = 0; i < here.size(); ++i)
        for (const double sign : {-1.0, 1.0}) {
            const auto isOneWithin = [&](double distance) {
                std::array<double, 6> there = here;
                there[i] += sign * distance;
                return diffOf(currentFile(channelOf("a", here)), currentFile(channelOf("b", there))).renamed.size() == 1;
            };
            EXPECT_TRUE(isOneWithin(i < 2 ? 0.0174 : 0.00174)) << i;
            EXPECT_FALSE(isOneWithin(i < 2 ? 0.0176 : 0.00176)) << i;
        }
}

TEST(Diff, ChannelsAboveOneAnotherAreToldApart) {
    const std::array<double, 6> low = {1.0, 0.1, -0.5, 0.5, 0.4, -0.4};
    const std::array<double, 6> high = {1.0, 0.8, -0.5, 0.5, 0.4, -0.4};
    const Difference difference = diffOf(currentFile(channelOf("a", low) + channelOf("b", high)),
                                         currentFile(channelOf("c", high) + channelOf("d", low)));
    ASSERT_EQ(difference.renamed.size(), 2U);
    for (const auto& renamed : difference.renamed) EXPECT_EQ(renamed.oldID, renamed.newID == L"c" ? L"b" : L"a");
}

TEST(Diff, NamesThatNewDevicesGetTellNothing) {
    const Difference difference =
        diffOf(currentFile(projector("a", "<Name>Channel_1</Name>")), currentFile(projector("b", "<Name>Channel_1</Name>")));
    EXPECT_TRUE(difference.renamed.empty());
}

TEST(Diff, AddedAndRemovedDevicesAreToldAsAWhole) {
    const Difference difference =
        diffOf(currentFile(projector("a", "<Name>A</Name>")), currentFile(projector("b", "<Name>B</Name><Gamma>2</Gamma>")));
    ASSERT_EQ(difference.added.size(), 1U);
    EXPECT_EQ(difference.added[0].section, L"Projector");
    EXPECT_EQ(difference.added[0].id, L"b");
    EXPECT_EQ(difference.added[0].name, L"B");
    EXPECT_EQ(difference.added[0].settings, 2U);
    EXPECT_EQ(difference.removed.size(), 1U);
    EXPECT_TRUE(difference.changed.empty());
}

TEST(Diff, OtherFormsOfOneValueAreTheSameInValue) {
    const Difference difference =
        diffOfItems("Geometry", "<Box_Spacing>1.500000000000000e+00</Box_Spacing><Blend_Run>true</Blend_Run>",
                    "<Box_Spacing>1.5</Box_Spacing><Blend_Run>YES</Blend_Run>");
    EXPECT_TRUE(difference.isNothing());
    EXPECT_EQ(addresses(difference.sameInValue), (Addresses{L"Geometry/Box_Spacing", L"Geometry/Blend_Run"}));
}

TEST(Diff, WhatIsReadAlikeIsTheSameInValue) {
    const auto isSameInValue = [](const std::string& section, const std::string& key, const std::string& old,
                                  const std::string& now, const std::string& beside = "") {
        const std::string start = "<" + key + ">";
        const std::string end = "</" + key + ">" + beside;
        const Difference difference = diffOfItems(section, start + old + end, start + now + end);
        EXPECT_EQ(difference.changed.size() + difference.sameInValue.size(), 1U) << key;
        return !difference.sameInValue.empty();
    };
    EXPECT_TRUE(isSameInValue("TargetLocator", "Data_Type", "Projector Pose", "Projector Centric"));
    EXPECT_FALSE(isSameInValue("TargetLocator", "Data_Type", "Projector Pose", "Spherical"));
    EXPECT_FALSE(isSameInValue("TargetLocator", "Data_Type", "projector pose", "Projector Centric"));
    EXPECT_TRUE(isSameInValue("Geometry", "Fit_Solver", "3", "2"));
    EXPECT_FALSE(isSameInValue("Geometry", "Fit_Solver", "3", "1"));
    EXPECT_TRUE(isSameInValue("System", "Is_Camera_Used", "perhaps", "true"));
    EXPECT_FALSE(isSameInValue("System", "Is_Camera_Used", "perhaps", "false"));
    EXPECT_TRUE(isSameInValue("Screen", "SizeDefinition", "3", "1", "<Auto_Dimensions>true</Auto_Dimensions>"));
    EXPECT_FALSE(isSameInValue("Screen", "SizeDefinition", "3", "1"));
    EXPECT_FALSE(isSameInValue("Screen", "Camera_Calibration_Points", "1 2 3", "1 2 4"));
}

TEST(Diff, MissingIsComparedAsItIsRead) {
    const auto isWithoutEffect = [](const std::string& items, const std::string& item) {
        const Difference difference = diffOf(currentFile(projector("a", items)), currentFile(projector("a", items + item)));
        EXPECT_EQ(difference.changed.size() + difference.sameInEffect.size(), 1U) << item;
        return !difference.sameInEffect.empty();
    };
    const std::string panel = "<Resolution_X>1920</Resolution_X><Resolution_Y>1200</Resolution_Y>";
    const auto offset = [](const std::string& text) {
        return "<InitialProjectorData><Offset>" + text + "</Offset></InitialProjectorData>";
    };
    EXPECT_TRUE(isWithoutEffect(panel, offset("960, 600")));
    EXPECT_FALSE(isWithoutEffect(panel, offset("700, 525")));
    EXPECT_TRUE(isWithoutEffect("", offset("700, 525")));
    EXPECT_TRUE(isWithoutEffect("", "<Box_Size>1, 2, 3</Box_Size>"));
    EXPECT_TRUE(diffOfItems("Screen", "<Auto_Dimensions>true</Auto_Dimensions>",
                            "<Auto_Dimensions>true</Auto_Dimensions><SizeDefinition>1</SizeDefinition>")
                    .isNothing());
    EXPECT_FALSE(diffOfItems("Screen", "<Own>x</Own>", "<Own>x</Own><SizeDefinition>1</SizeDefinition>").isNothing());
    EXPECT_TRUE(diffOfItems("System", "<Own>x</Own>", "<Own>x</Own><Black_Box_Cameras_Comm/>").isNothing());
}

TEST(Diff, DoublesDifferBeyondTheTwelfthDigit) {
    EXPECT_TRUE(
        diffOfItems("Geometry", "<Box_Spacing>1</Box_Spacing>", "<Box_Spacing>1.0000000000009</Box_Spacing>").isNothing());
    EXPECT_FALSE(
        diffOfItems("Geometry", "<Box_Spacing>1</Box_Spacing>", "<Box_Spacing>1.000000000002</Box_Spacing>").isNothing());
}

TEST(Diff, ToleranceReplacesTheUsualOne) {
    DiffOptions options;
    options.tolerance = 0.01;
    EXPECT_TRUE(
        diffOfItems("Geometry", "<Box_Spacing>1</Box_Spacing>", "<Box_Spacing>1.009</Box_Spacing>", options).isNothing());
    EXPECT_FALSE(
        diffOfItems("Geometry", "<Box_Spacing>1</Box_Spacing>", "<Box_Spacing>1.02</Box_Spacing>", options).isNothing());
}

TEST(Diff, WordsAreComparedExactly) {
    EXPECT_FALSE(diffOfItems("Screen", "<Shape>Sphere</Shape>", "<Shape>sphere</Shape>").isNothing());
}

TEST(Diff, StoringTheInheritedValueHasNoEffect) {
    const std::string geometry = "<Geometry><Portrait_Mode>0</Portrait_Mode></Geometry>";
    const Difference difference = diffOf(currentFile(geometry + projector("a", "<Portrait_Mode>0</Portrait_Mode>")),
                                         currentFile(geometry + projector("a", "")));
    EXPECT_TRUE(difference.isNothing());
    ASSERT_EQ(addresses(difference.sameInEffect), Addresses{L"Projector[a]/Portrait_Mode"});
    EXPECT_EQ(difference.sameInEffect[0].why, L"inherited");
    EXPECT_EQ(difference.sameInEffect[0].old, L"0");
    EXPECT_EQ(difference.sameInEffect[0].now, std::nullopt);
}

TEST(Diff, StoringTheDefaultHasNoEffect) {
    const Difference difference = diffOfItems("Geometry", "", "<Fit_Solver>2</Fit_Solver>");
    ASSERT_EQ(difference.sameInEffect.size(), 1U);
    EXPECT_EQ(difference.sameInEffect[0].why, L"default");
    EXPECT_EQ(addresses(diffOfItems("Geometry", "", "<Fit_Solver>5</Fit_Solver>").changed),
              Addresses{L"Geometry/Fit_Solver"});
}

TEST(Diff, PartsOfASnippetAreToldOneByOne) {
    const Difference difference = diffOf(currentFile(projector("a", snippetWithUID("a", "\n  <id>1</id> <type>x</type>"))),
                                         currentFile(projector("a", snippetWithUID("a", "<id> 2 </id><type>x</type>"))));
    ASSERT_EQ(addresses(difference.changed), Addresses{L"Projector[a]/DeviceSnippet/device/id"});
    EXPECT_TRUE(difference.changed[0].inSnippet);
    EXPECT_EQ(difference.changed[0].old, L"1");
    EXPECT_EQ(difference.changed[0].now, L"2");
}

TEST(Diff, AttributesOfASnippetAreComparedByName) {
    const auto device = [](const std::string& attributes) {
        return currentFile(projector("a", "<DeviceSnippet><device " + attributes + "/></DeviceSnippet>"));
    };
    EXPECT_TRUE(diffOf(device("UID=\"a\" name=\"n\""), device("name=\"n\" UID=\"a\"")).isNothing());
    EXPECT_EQ(addresses(diffOf(device("UID=\"a\""), device("UID=\"b\"")).changed),
              Addresses{L"Projector[a]/DeviceSnippet/device@UID"});
}

TEST(Diff, ReferencesFollowARenamedCamera) {
    const auto rig = [](const std::string& id) {
        return currentFile("<Color><CameraOrder>" + id + "</CameraOrder></Color><Camera ID=\"" + id +
                           "\"><Name>Left</Name></Camera>" +
                           projector("p", "<Associated_Camera_Id_1>" + id + "</Associated_Camera_Id_1>"));
    };
    const Difference difference = diffOf(rig("c1"), rig("c2"));
    EXPECT_EQ(difference.renamed.size(), 1U);
    EXPECT_EQ(addresses(difference.changed), Addresses{});
    EXPECT_EQ(difference.sameInValue.size(), 2U);
}

TEST(Diff, OrderOfCamerasCounts) {
    EXPECT_EQ(addresses(diffOfItems("Color", "<CameraOrder>a, b</CameraOrder>", "<CameraOrder>b, a</CameraOrder>").changed),
              Addresses{L"Color/CameraOrder"});
}

TEST(Diff, PointOfTwoCamerasIsKnownInEitherOrder) {
    const Difference difference =
        diffOfItems("Color", "<CameraOverlapPoint_a_b>1.0, 2.0, 3.0, 0, 1</CameraOverlapPoint_a_b>",
                    "<CameraOverlapPoint_b_a>1.0, 2.0, 3.0, 1, 0</CameraOverlapPoint_b_a>");
    EXPECT_TRUE(difference.isNothing());
    EXPECT_EQ(difference.sameInValue.size(), 1U);
    EXPECT_FALSE(diffOfItems("Color", "<CameraOverlapPoint_a_b>1.0, 2.0, 3.0, 0, 1</CameraOverlapPoint_a_b>",
                             "<CameraOverlapPoint_b_a>1.0, 2.0, 3.0, 0, 1</CameraOverlapPoint_b_a>")
                     .isNothing());
}

TEST(Diff, PointsOfTwoCamerasInBothOrdersAreTwo) {
    const std::string one = "<CameraOverlapPoint_a_b>1, 2, 3, 0, 1</CameraOverlapPoint_a_b>";
    const std::string both = one + "<CameraOverlapPoint_b_a>4, 5, 6, 1, 0</CameraOverlapPoint_b_a>";
    const Difference added = diffOfItems("Color", one, both);
    ASSERT_EQ(added.changed.size(), 1U);
    EXPECT_FALSE(added.changed[0].old.has_value());
    const Difference gone = diffOfItems("Color", both, one);
    ASSERT_EQ(gone.changed.size(), 1U);
    EXPECT_EQ(gone.changed[0].address, L"Color/CameraOverlapPoint_b_a");
    EXPECT_FALSE(gone.changed[0].now.has_value());
}

TEST(Diff, AnEndlessNameOfAPointHasOneOrder) {
    const auto point = [](const std::string& pair, const std::string& channels) {
        return "<CameraOverlapPoint_" + pair + ">1, 2, 3, " + channels + "</CameraOverlapPoint_" + pair + ">";
    };
    for (const auto& [length, isSame] : {std::pair(998, true), std::pair(999, false)}) {
        const std::string id(static_cast<std::size_t>(length), 'c');
        EXPECT_EQ(diffOfItems("Color", point(id + "_b", "0, 1"), point("b_" + id, "1, 0")).isNothing(), isSame) << length;
    }
}

TEST(Diff, MarkersAreKnownByTheirNumbers) {
    const auto camera = [](const std::string& points) {
        return currentFile("<Camera ID=\"c\"><Camera_Calibration_Points>" + points +
                           "</Camera_Calibration_Points></Camera>");
    };
    EXPECT_TRUE(diffOf(camera("1, 10.0, 20.0, 2, 30.0, 40.0"), camera("2, 30.0, 40.0, 1, 10.0000004, 20.0")).isNothing());
    EXPECT_FALSE(diffOf(camera("1, 10.0, 20.0"), camera("1, 10.000001, 20.0")).isNothing());
    EXPECT_FALSE(diffOf(camera("1, 10.0, 20.0"), camera("2, 10.0, 20.0")).isNothing());
}

TEST(Diff, OrderOfDevicesIsOneLine) {
    const std::string a = projector("a", "<Name>A</Name>");
    const std::string b = projector("b", "");
    const std::string c = projector("c", "<Name>C</Name>");
    const Difference difference = diffOf(currentFile(a + b + c), currentFile(a + c + b));
    ASSERT_EQ(difference.order.size(), 1U);
    EXPECT_EQ(difference.order[0].section, L"Projector");
    EXPECT_EQ(difference.order[0].old, (Addresses{L"A", L"b", L"C"}));
    EXPECT_EQ(difference.order[0].now, (Addresses{L"A", L"C", L"b"}));
    EXPECT_TRUE(difference.changed.empty());
}

TEST(Diff, SectionWithTheIDOfAnEarlierOneHasNoPlaceAmongDevices) {
    const std::string devices = projector("a", "") + projector("b", "") + projector("a", "");
    EXPECT_TRUE(diffOf(currentFile(devices), currentFile(devices)).isNothing());
}

TEST(Diff, OrderOfSettingsAndSectionsCountsForNothing) {
    EXPECT_TRUE(diffOf(currentFile("<System><A>1</A><B>2</B></System><Screen/>"),
                       currentFile("<Screen/><System><B>2</B><A>1</A></System>"))
                    .isNothing());
}

TEST(Diff, WhatRunsWriteIsToldApart) {
    const Difference difference = diffOf(currentFile("<BuildDate>a</BuildDate><SiteAnalytics><SuccessfulRunNumber>27"
                                                     "</SuccessfulRunNumber></SiteAnalytics>"),
                                         currentFile("<BuildDate>b</BuildDate><SiteAnalytics><SuccessfulRunNumber>28"
                                                     "</SuccessfulRunNumber></SiteAnalytics>"));
    EXPECT_TRUE(difference.isNothing());
    EXPECT_EQ(addresses(difference.runs), (Addresses{L"BuildDate", L"SiteAnalytics/SuccessfulRunNumber"}));
}

TEST(Diff, WhatAnotherReleaseCountsAmongTheRunsIsOfThemToo) {
    const auto counted = [](const std::string& number) {
        return currentFile("<SiteAnalytics><AbortedRunNumber>" + number + "</AbortedRunNumber></SiteAnalytics>");
    };
    const Difference difference = diffOf(counted("1"), counted("2"));
    EXPECT_TRUE(difference.isNothing());
    EXPECT_EQ(addresses(difference.runs), (Addresses{L"SiteAnalytics/AbortedRunNumber"}));
    EXPECT_EQ(addresses(diffOf(currentFile(""), counted("2")).runs), (Addresses{L"SiteAnalytics/AbortedRunNumber"}));
}

TEST(Diff, HiddenItemsDoNotCount) { EXPECT_TRUE(diffOfItems("System", "<A>1</A><A>2</A>", "<A>1</A><A>3</A>").isNothing()); }

TEST(Diff, SubsectionsAreKnownByTheirIDs) {
    const auto slots = [](const std::string& name) {
        return currentFile("<ProjectorApprovedSlots><Slot ID=\"1\"><Name>" + name +
                           "</Name></Slot></ProjectorApprovedSlots>");
    };
    EXPECT_EQ(addresses(diffOf(slots("a"), slots("b")).changed), Addresses{L"ProjectorApprovedSlots/Slot[1]/Name"});
}

TEST(Diff, EqualContentsAreTheSameElementsAttributesAndTexts) {
    const auto areEqual = [](const std::string& one, const std::string& other) {
        const TestDocument first(currentFile("<System ID=\"a\">" + one + "</System>"));
        const TestDocument second(currentFile("<System ID=\"b\">" + other + "</System>"));
        return haveEqualContents(XMLConfig::sectionElements(*first, L"System")[0],
                                 XMLConfig::sectionElements(*second, L"System")[0]);
    };
    EXPECT_TRUE(areEqual("<A x=\"1\" y=\"2\">t</A><B><C/></B>", "\n<A y=\"2\" x=\"1\">t</A> <B>\n<C></C></B>"));
    EXPECT_FALSE(areEqual("<A>t</A>", "<A>u</A>"));
    EXPECT_FALSE(areEqual("<A>t</A>", "<B>t</B>"));
    EXPECT_FALSE(areEqual("<A x=\"1\"/>", "<A x=\"2\"/>"));
    EXPECT_FALSE(areEqual("<A x=\"1\"/>", "<A y=\"1\"/>"));
    EXPECT_FALSE(areEqual("<A/>", "<A x=\"1\"/>"));
    EXPECT_FALSE(areEqual("<A/>", "<A/><B/>"));
    EXPECT_FALSE(areEqual("<A/><B/>", "<A/>"));
    EXPECT_FALSE(areEqual("<A><B/></A>", "<A>t</A>"));
    EXPECT_FALSE(areEqual("<A/><B/>", "<B/><A/>"));
}

// Comments.

TEST(Diff, CountsCommentsThatDifferAndNothingElseOfThem) {
    const auto commentsIn = [](const std::string& old, const std::string& now) {
        const Difference difference = diffOf(currentFile(old), currentFile(now));
        EXPECT_TRUE(difference.isNothing());
        return difference.comments;
    };
    EXPECT_EQ(commentsIn("<!-- a --><System><!-- b --></System>", "<!--a--><System><!--b--></System>"), 0U);
    EXPECT_EQ(commentsIn("<System><Cinema/></System>", "<!-- a --><System><!-- b --><Cinema><!-- c --></Cinema></System>"),
              3U);
    EXPECT_EQ(commentsIn("<System><!-- a --></System>", "<System/>"), 1U);
    EXPECT_EQ(commentsIn("<System><!-- a --></System>", "<System><!-- b --></System>"), 1U);
    EXPECT_EQ(commentsIn("<System><!-- a --><!-- b --></System>", "<System><!-- b --><!-- a --></System>"), 0U);
    EXPECT_EQ(commentsIn("<System><!-- a --></System><Color/>", "<System/><Color><!-- a --></Color>"), 2U);
    EXPECT_EQ(commentsIn("<System><!-- a --></System><Screen/>", "<!-- a --><System/><Screen/>"), 2U);
    EXPECT_EQ(commentsIn("<System/><System/>", "<System/><System><!-- a --></System>"), 0U);
}

TEST(Diff, CommentsFollowTheirDevice) {
    const std::string kept = "<OldSectionID>1</OldSectionID>";
    EXPECT_EQ(diffOf(currentFile(camera("1", "<!-- a -->")), currentFile(camera("2", kept + "<!-- a -->"))).comments, 0U);
    EXPECT_EQ(diffOf(currentFile(camera("1", "<!-- a -->")), currentFile(camera("2", kept + "<!-- b -->"))).comments, 1U);
    EXPECT_EQ(diffOf(currentFile(camera("1", "<!-- a -->")), currentFile(camera("2", "<!-- b -->"))).comments, 0U);
}

// Numbers that are none, and turns.

TEST(Diff, InfinityIsNoOtherNumber) {
    const auto differ = [](const std::string& old, const std::string& now) {
        const auto radius = [](const std::string& text) { return "<Screen_Radius>" + text + "</Screen_Radius>"; };
        return !diffOfItems("Screen", radius(old), radius(now)).changed.empty();
    };
    EXPECT_TRUE(differ("inf", "5"));
    EXPECT_TRUE(differ("5", "inf"));
    EXPECT_TRUE(differ("inf", "-inf"));
    EXPECT_TRUE(differ("nan", "0"));
    EXPECT_FALSE(differ("inf", "INFINITY"));
    EXPECT_FALSE(differ("nan", "NaN"));
}

TEST(Diff, MarkersWithoutANumberAreOne) {
    const auto markers = [](const std::string& text) {
        return currentFile("<Camera ID=\"1\"><Camera_Calibration_Points>" + text + "</Camera_Calibration_Points></Camera>");
    };
    EXPECT_TRUE(diffOf(markers("nan 1 2 1 3 4 nan 5 6"), markers("1 3 4 nan 1 2")).changed.empty());
    EXPECT_EQ(diffOf(markers("nan 1 2 1 3 4"), markers("1 3 4 2 1 2")).changed.size(), 1U);
}

TEST(Diff, ProjectorsAreKnownByTheirChannelsAcrossHalfATurn) {
    const auto projector = [](const std::string& id, const std::string& yaw) {
        return currentFile(
            "<Projector ID=\"" + id + "\"><Channel_Extents><Heading><Yaw>" + yaw +
            "</Yaw><Pitch>0</Pitch></Heading><HFOV><Left>-0.4</Left><Right>0.4</Right></HFOV><VFOV><Top>0.3</Top>"
            "<Bottom>-0.3</Bottom></VFOV></Channel_Extents></Projector>");
    };
    EXPECT_EQ(diffOf(projector("a", "3.138"), projector("b", "-3.138")).renamed.size(), 1U);
    EXPECT_EQ(diffOf(projector("a", "-3.138"), projector("b", "3.138")).renamed.size(), 1U);
    EXPECT_EQ(diffOf(projector("a", "0"), projector("b", "6.283185307179586")).renamed.size(), 1U);
    EXPECT_EQ(diffOf(projector("a", "3.13"), projector("b", "-3.13")).renamed.size(), 0U);
    EXPECT_EQ(diffOf(projector("a", "nan"), projector("b", "nan")).renamed.size(), 0U);
}

}  // namespace
