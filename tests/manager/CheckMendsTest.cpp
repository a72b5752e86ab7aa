#include <gtest/gtest.h>

#include "tests/support/DeviceSections.h"
#include "tests/support/FoundBy.h"

// The commands that findings tell: each mends its finding, and none is told that could not.

namespace {

std::string orderOf(const std::string& ids) { return "<Color><CameraOrder>" + ids + "</CameraOrder></Color>"; }
std::string oldID(const std::string& id) { return "<OldSectionID>" + id + "</OldSectionID>"; }

std::size_t withCommand(const Lines& lines) {
    std::size_t count = 0;
    for (const std::wstring& line : lines) count += line.find(L"; set ") != std::wstring::npos ? 1 : 0;
    return count;
}

TEST(CheckMends, AllRenamedCamerasOfTheOrderAreFollowedAtOnce) {
    const std::string cameras = camera("a", oldID("1")) + camera("b", oldID("2")) + camera("c", "");
    const std::wstring command = L"; set Color/CameraOrder=a,c,b,x";
    EXPECT_EQ(foundBy(L"XC208", orderOf("1,c,2,x") + cameras),
              (Lines{L"Color/CameraOrder: there is no camera \"1\"; \"a\" was 1 before" + command,
                     L"Color/CameraOrder: there is no camera \"2\"; \"b\" was 2 before" + command,
                     L"Color/CameraOrder: there is no camera \"x\""}));
}

TEST(CheckMends, ARenamedCameraIsNotRepeatedInTheOrder) {
    EXPECT_EQ(foundBy(L"XC208", orderOf("1,a,1") + camera("a", oldID("1"))),
              (Lines{L"Color/CameraOrder: there is no camera \"1\"; \"a\" was 1 before; set Color/CameraOrder=a"}));
}

TEST(CheckMends, NoOrderIsToldThatWouldBeReadAsAnother) {
    EXPECT_EQ(foundBy(L"XC209", orderOf("a") + camera("a", "") + camera("b c", "")),
              (Lines{L"Color/CameraOrder: leaves out \"b c\""}));
    EXPECT_EQ(foundBy(L"XC208", orderOf("1") + camera("b,c", oldID("1"))),
              (Lines{L"Color/CameraOrder: there is no camera \"1\"; \"b,c\" was 1 before"}));
}

TEST(CheckMends, OfVeryManyFaultsOfTheOrderOnlySomeTellTheWholeOrder) {
    std::string cameras;
    std::string old = "0";
    for (int i = 0; i < 200; ++i) cameras += camera("c" + std::to_string(i), oldID(std::to_string(i)));
    for (int i = 1; i < 200; ++i) old += "," + std::to_string(i);
    for (const auto& [rule, order] : {std::pair(L"XC208", old), std::pair(L"XC209", std::string("c0,c0"))}) {
        const Lines lines = foundBy(rule, orderOf(order) + cameras);
        EXPECT_EQ(lines.size(), 200U);
        EXPECT_EQ(withCommand(lines), 64U);
    }
}

TEST(CheckMends, NoUnknownCameraIsMovedUp) {
    const auto found = [](const std::string& id) {
        return foundBy(L"XC210", camera("a", oldID("1")) +
                                     projector("p", "<Associated_Camera_Id_2>" + id + "</Associated_Camera_Id_2>"));
    };
    const std::wstring text = L"Projector[p]/Associated_Camera_Id_2: a second camera without a first";
    EXPECT_EQ(found("x"), (Lines{text}));
    EXPECT_EQ(found("1"), (Lines{text}));
    EXPECT_EQ(found("a"), (Lines{text + L"; set Projector[p]/Associated_Camera_Id_1=a; unset Projector[p]/"
                                        L"Associated_Camera_Id_2"}));
}

TEST(CheckMends, AnEdgeIsSwappedWithOneThatIsNotStored) {
    const Lines lines = foundBy(L"XC303", projector("p",
                                                    "<Channel_Extents><HFOV><Left>0.5</Left></HFOV><VFOV><Top>0.2</Top>"
                                                    "</VFOV></Channel_Extents>"));
    const std::wstring edge = L"Projector[p]/Channel_Extents/HFOV/";
    EXPECT_EQ(lines, (Lines{edge + L"Left: Left (28.65\u00b0) is not left of Right (0\u00b0); set " + edge +
                            L"Left=0.000000000000000e+00; set " + edge + L"Right=0.5"}));
}

TEST(CheckMends, WhatIsMoreThanAFullTurnInDegreesIsNoAngleInDegrees) {
    const auto found = [](const std::string& yaw) { return foundBy(L"XC305", projectorAt("1", yaw, "0", "")); };
    const std::wstring yaw = L"Projector[1]/Channel_Extents/Heading/Yaw";
    EXPECT_EQ(found("-360"),
              (Lines{yaw + L": -360 radians are 57.3 turns; it looks like degrees; set " + yaw + L"=-360deg"}));
    EXPECT_EQ(found("361"), (Lines{yaw + L": 361 radians are 57.5 turns; it looks like degrees"}));
    EXPECT_EQ(found("-1e300"), (Lines{yaw + L": -1e+300 radians are 1.591549430918954e+299 turns; it looks like degrees"}));
}

TEST(CheckMends, NoEdgeIsAQuarterTurnInDegrees) {
    const auto found = [](const std::string& edge) {
        return withCommand(
            foundBy(L"XC305", projector("p", "<Channel_Extents><HFOV><Left>" + edge + "</Left></HFOV></Channel_Extents>")));
    };
    EXPECT_EQ(found("-89"), 1U);
    EXPECT_EQ(found("-90"), 0U);
}

TEST(CheckMends, NoTextIsSetWhereElementsStand) {
    const auto found = [](const std::string& count) {
        return foundBy(L"XC217",
                       "<Geometry><Projector_Count>" + count + "</Projector_Count></Geometry>" + projector("p", ""));
    };
    EXPECT_EQ(found("2"), (Lines{L"Geometry/Projector_Count: reads 2, but there is 1 projector; set Geometry/"
                                 L"Projector_Count=1"}));
    EXPECT_EQ(found("2<b/>"), (Lines{L"Geometry/Projector_Count: reads 2, but there is 1 projector"}));
}

TEST(CheckMends, ABlendIsNotWidenedOverTheOppositeOne) {
    const auto found = [](const std::string& oppositeBlend) {
        const std::string blends = "<Blend_Left>10</Blend_Left><Blend_Right>" + oppositeBlend + "</Blend_Right>";
        return withCommand(foundBy(L"XC312", projectorAt("1", "0", "0", blends) + projectorAt("2", "-0.15", "0", "")));
    };
    EXPECT_EQ(found("22"), 1U);
    EXPECT_EQ(found("23"), 0U);
    EXPECT_EQ(found("-1"), 1U);
}

TEST(CheckMends, TheOddOneInheritsOnlyWhatTheOthersHave) {
    const auto found = [](const std::string& inherited) {
        std::string content = "<Geometry><Portrait_Mode>" + inherited + "</Portrait_Mode></Geometry>";
        for (const char* const mode : {"1", "1", "1", "2"})
            content += projector(std::to_string(content.size()), std::string("<Portrait_Mode>") + mode + "</Portrait_Mode>");
        const Lines lines = foundBy(L"XC408", content);
        return lines.empty() ? L"" : lines[0].substr(lines[0].find(L';'));
    };
    EXPECT_EQ(found("1").substr(0, 8), L"; unset ");
    EXPECT_EQ(found("0").substr(0, 6), L"; set ");
}

}  // namespace
