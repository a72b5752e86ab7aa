#include <gtest/gtest.h>

#include "tests/support/DeviceSections.h"
#include "tests/support/FoundBy.h"

// The rules on cameras, their markers and what is counted, just inside and just outside of their conditions.

namespace {

std::string item(const std::string& key, const std::string& text) { return "<" + key + ">" + text + "</" + key + ">"; }
std::string section(const std::string& tag, const std::string& items) { return item(tag, items); }
std::string markers(const std::string& text) { return item("Camera_Calibration_Points", text); }

TEST(CameraConditions, APoseNeedsFourMarkers) {
    const auto marked = [](const std::string& text) { return foundBy(L"XC602", camera("1", markers(text))); };
    EXPECT_EQ(marked(""), Lines());
    EXPECT_EQ(marked("1 0 0"), (Lines{L"Camera[1]/Camera_Calibration_Points: 1 marker; a pose needs 4"}));
    EXPECT_EQ(marked("1 0 0 2 0 0 3 0 0").size(), 1U);
    EXPECT_EQ(marked("1 0 0 2 0 0 3 0 0 4 0 0"), Lines());
}

TEST(CameraConditions, MarkersAreNumberedAsThePointsOfTheScreen) {
    const auto numbered = [](const std::string& number, const std::string& points) {
        return foundBy(L"XC603", section("Screen", markers(points)) + camera("1", markers(number + " 0 0"))).size();
    };
    const std::string two = "0, 0, 0\n1, 0, 0";
    EXPECT_EQ(numbered("1", two), 0U);
    EXPECT_EQ(numbered("2", two), 0U);
    EXPECT_EQ(numbered("3", two), 1U);
    EXPECT_EQ(numbered("0", two), 0U);
    EXPECT_EQ(numbered("-1", two), 0U);
    EXPECT_EQ(numbered("3", ""), 0U) << "without points of the screen nothing can be told";
}

TEST(CameraConditions, MarkersLieInTheImage) {
    const auto outside = [](const std::string& point, const std::string& width, const std::string& height) {
        return foundBy(L"XC604", camera("1", snippet(item("resolutionX", width) + item("resolutionY", height)) +
                                                 markers("1 5 5 2 " + point)));
    };
    for (const char* const point : {"0 0", "640 480", "0 480", "640 0"})
        EXPECT_EQ(outside(point, "640", "480"), Lines()) << point;
    for (const char* const point : {"-0.5 0", "0 -0.5", "640.5 0", "0 480.5"})
        EXPECT_EQ(outside(point, "640", "480").size(), 1U) << point;
    EXPECT_EQ(outside("641 0", "640", "480"),
              (Lines{L"Camera[1]/Camera_Calibration_Points: marker 2 at 641, 0 is outside the image of 640 x 480"}));
    EXPECT_EQ(outside("641 0", "0", "480"), Lines()) << "an image of unknown size";
    EXPECT_EQ(outside("641 0", "640", "0"), Lines());
}

TEST(CameraConditions, MarkersHaveMovedWhereTheMiddleOneHas) {
    const auto moved = [](const std::string& now) {
        return foundBy(L"XC605",
                       camera("1", markers(now) + item("Reference_Camera_Calibration_Points", "1 0 0 2 0 0 3 0 0 4 0 0")))
            .size();
    };
    EXPECT_EQ(moved("1 0 10 2 0 10 3 0 10"), 0U) << "10 pixels are not too many";
    EXPECT_EQ(moved("1 0 10.1 2 0 10.1 3 0 10.1"), 1U);
    EXPECT_EQ(moved("1 6 8.1 2 6 8.1 3 6 8.1"), 1U) << "in both directions together";
    EXPECT_EQ(moved("1 0 99 2 0 99"), 0U) << "two are too few";
    EXPECT_EQ(moved("1 0 99 2 0 99 9 0 99"), 0U) << "one that was not there does not count";
    EXPECT_EQ(moved("1 0 99 2 0 0 3 0 0"), 0U) << "one may have been found wrongly";
    EXPECT_EQ(moved("1 0 8 2 0 0 3 0 12.1 4 0 99"), 1U) << "half way between the two in the middle";
    EXPECT_EQ(moved("1 0 8 2 0 0 3 0 11.9 4 0 99"), 0U);
}

TEST(CameraConditions, EachCameraHasALensFileOfItsOwnOrNoneHas) {
    const auto file = [](const std::string& id, const std::string& name) {
        return camera(id, item("IntrinsicFileID", name));
    };
    EXPECT_EQ(foundBy(L"XC611", file("1", "a") + file("2", "b")), Lines());
    EXPECT_EQ(foundBy(L"XC611", file("1", "") + camera("2", "")), Lines());
    EXPECT_EQ(foundBy(L"XC611", file("1", "a") + file("2", "")),
              (Lines{L"Camera[2]/IntrinsicFileID: is empty, other cameras have one"}));
    EXPECT_EQ(foundBy(L"XC611", file("1", "a") + file("2", "a")),
              (Lines{L"Camera[2]/IntrinsicFileID: \"a\" is also that of \"1\""}));
}

TEST(CameraConditions, CamerasAreMissedOnlyWhereTheyAreUsed) {
    const auto missed = [](const std::string& isUsed, const std::string& devices) {
        return foundBy(L"XC610", section("System", item("Is_Camera_Used", isUsed)) + devices).size();
    };
    EXPECT_EQ(missed("true", projector("1", "")), 1U);
    EXPECT_EQ(missed("false", projector("1", "")), 0U);
    EXPECT_EQ(missed("true", ""), 0U) << "nothing is set up yet";
    EXPECT_EQ(missed("true", projector("1", "") + camera("1", "")), 0U);
}

TEST(CameraConditions, WhatLightsTheMarkersIsThere) {
    const auto lit = [](const std::string& method, const std::string& units, const std::string& box) {
        return foundBy(L"XC614", section("System", item("Marker_Location_Method", method) + item("ACT_Count", units) +
                                                       item("Black_Box_LED_Lights_Comm", box)))
            .size();
    };
    for (const char* const method : {"act", "act-prompt"}) {
        EXPECT_EQ(lit(method, "1", ""), 0U) << method;
        EXPECT_EQ(lit(method, "0", ""), 1U) << method;
    }
    for (const char* const method : {"led", "led-manual"}) {
        EXPECT_EQ(lit(method, "0", "true,serial,COM1,9600,1"), 0U) << method;
        EXPECT_EQ(lit(method, "0", "false,serial,COM1,9600,1"), 1U) << method;
        EXPECT_EQ(lit(method, "0", ""), 0U) << method;
    }
    EXPECT_EQ(lit("manual", "0", "false,serial,COM1,9600,1"), 0U);
}

TEST(CameraConditions, TheRangeOfSamplesIsWithinZeroToOne) {
    const auto ranged = [](const std::string& text) {
        return foundBy(L"XC615", section("Color", item("NormalizedValidExposureSampleRange", text))).size();
    };
    EXPECT_EQ(ranged("0, 1"), 0U);
    EXPECT_EQ(ranged("0.2, 0.8"), 0U);
    EXPECT_EQ(ranged("0.5, 0.5"), 1U);
    EXPECT_EQ(ranged("0.8, 0.2"), 1U);
    EXPECT_EQ(ranged("-0.1, 0.5"), 1U);
    EXPECT_EQ(ranged("0.5, 1.1"), 1U);
    EXPECT_EQ(ranged("nan, 0.5"), 0U) << "has a finding already";
    EXPECT_EQ(ranged("0.5"), 0U);
}

TEST(CountConditions, EachACTUnitIsDescribedAndCounted) {
    const auto units = [](const std::string& count, const std::string& items) {
        return foundBy(L"XC215", section("System", item("ACT_Count", count) + items));
    };
    const std::string first = item("ACT_Address_0", "10.0.0.1");
    const std::string second = item("ACT_Address_1", "10.0.0.2");
    const std::wstring place = L"System/ACT_Count: ";
    EXPECT_EQ(units("2", first + second), Lines());
    EXPECT_EQ(units("0", ""), Lines());
    EXPECT_EQ(units("2", first), (Lines{place + L"is 2, but unit 1 has no address"}));
    EXPECT_EQ(units("2", ""), (Lines{place + L"is 2, but unit 0 has no address"}));
    EXPECT_EQ(units("1", first + second), (Lines{place + L"is 1, but unit 1 is described; set System/ACT_Count=2"}));
    EXPECT_EQ(units("-1", first), (Lines{place + L"is -1, but unit 0 is described; set System/ACT_Count=1"}));
    EXPECT_EQ(units("1", first + item("ACT_Relay_Associations_4", "1 2")),
              (Lines{place + L"is 1, but unit 4 is described; set System/ACT_Count=5"}));
}

TEST(CountConditions, ProjectorsAreCounted) {
    const auto counted = [](const std::string& geometry, const std::string& projectors) {
        return foundBy(L"XC217", section("Geometry", geometry) + projectors);
    };
    const std::string one = projector("1", "");
    const std::wstring place = L"Geometry/Projector_Count: reads ";
    EXPECT_EQ(counted(item("Projector_Count", "1"), one), Lines());
    EXPECT_EQ(counted(item("Projector_Count", "2"), one),
              (Lines{place + L"2, but there is 1 projector; set Geometry/Projector_Count=1"}));
    EXPECT_EQ(counted(item("Projector_Count", "-1"), one),
              (Lines{place + L"-1, but there is 1 projector; set Geometry/Projector_Count=1"}));
    EXPECT_EQ(counted(item("Projector_Count", "1"), one + projector("2", "")),
              (Lines{place + L"1, but there are 2 projectors; set Geometry/Projector_Count=2"}));
    EXPECT_EQ(counted("", ""), Lines());
}

TEST(CountConditions, TheLayoutHasRoomForAllAndNoMore) {
    const auto roomy = [](const std::string& width, const std::string& height, const std::string& stack) {
        return foundBy(L"XC218",
                       section("Geometry", item("Projector_Layout_Width", width) + item("Projector_Layout_Height", height) +
                                               item("UserStackHeightOverride", stack)) +
                           projector("1", "") + projector("2", "") + projector("3", "") + projector("4", ""));
    };
    const std::wstring place = L"Geometry/Projector_Layout_Width: the layout of ";
    EXPECT_EQ(roomy("4", "1", "1"), Lines());
    EXPECT_EQ(roomy("2", "2", "0"), Lines());
    EXPECT_EQ(roomy("2", "1", "2"), Lines());
    EXPECT_EQ(roomy("3", "1", "1"), (Lines{place + L"3 x 1 has room for 3, but there are 4 projectors"}));
    EXPECT_EQ(roomy("5", "1", "1"), (Lines{place + L"5 x 1 has room for 5, but there are 4 projectors"}));
    EXPECT_EQ(roomy("2", "1", "3"), (Lines{place + L"2 x 1, 3 high, has room for 6, but there are 4 projectors"}));
    EXPECT_EQ(foundBy(L"XC218", section("Geometry", "")), Lines());
    EXPECT_EQ(foundBy(L"XC218", section("Geometry", item("Projector_Layout_Height", "2"))).size(), 1U);
}

}  // namespace
