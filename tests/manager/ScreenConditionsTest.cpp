#include <gtest/gtest.h>

#include "tests/support/FoundBy.h"

// The rules on the screen and on the target's tables, just inside and just outside of their conditions.

namespace {

std::string screen(const std::string& items) { return "<Screen>" + items + "</Screen>"; }
std::string item(const std::string& key, const std::string& text) { return "<" + key + ">" + text + "</" + key + ">"; }

Lines ofScreen(const std::vector<std::wstring>& keys) {
    Lines places;
    for (const std::wstring& key : keys) places.push_back(L"Screen/" + key);
    return places;
}

TEST(ScreenConditions, EachShapeNeedsItsOwnSizes) {
    const auto lacking = [](const std::string& shape) {
        std::string items = item("Shape", shape);
        for (const char* const key : {"Radius", "Width", "Height", "MinTheta", "MaxTheta", "MinPhi", "MaxPhi"})
            items += item(std::string("Screen_") + key, "0");
        return placesOf(L"XC501", screen(items));
    };
    EXPECT_EQ(lacking("Sphere"), ofScreen({L"Screen_Radius", L"Screen_MinTheta", L"Screen_MinPhi"}));
    EXPECT_EQ(lacking("Cylinder"), ofScreen({L"Screen_Radius", L"Screen_MinTheta", L"Screen_Height"}));
    EXPECT_EQ(lacking("Toroid"), ofScreen({L"Screen_Radius"}));
    EXPECT_EQ(lacking("Flat"), ofScreen({L"Screen_Width", L"Screen_Height"}));
    EXPECT_EQ(lacking("Ruled"), Lines());
    EXPECT_EQ(lacking("VRML"), ofScreen({L"VRML"}));
}

TEST(ScreenConditions, LimitsThatDoNotRiseAreShownInTheUnitOfTheDocument) {
    const auto limits = [](const std::string& unit) {
        return foundBy(
            L"XC501", "<System>" + item("AngleUnit", unit) + "</System>" +
                          screen(item("Shape", "Cylinder") + item("Screen_MinTheta", "0.5") +
                                 item("Screen_MaxTheta", "0.25") + item("Screen_Radius", "2") + item("Screen_Height", "2")));
    };
    const std::wstring line = L"Screen/Screen_MinTheta: is not below Screen_MaxTheta ";
    EXPECT_EQ(limits("Degrees"), (Lines{line + L"(28.65\u00b0 to 14.32\u00b0)"}));
    EXPECT_EQ(limits("Radians"), (Lines{line + L"(0.5 rad to 0.25 rad)"}));
}

TEST(ScreenConditions, ASphereIsNoMoreThanOne) {
    const auto beyond = [](const std::string& shape, const std::string& key, const std::string& angle) {
        return !placesOf(L"XC502", screen(item("Shape", shape) + item(key, angle))).empty();
    };
    for (const std::string key : {"Screen_MinTheta", "Screen_MaxTheta"}) {
        EXPECT_FALSE(beyond("Sphere", key, "3.141592653589793")) << key;
        EXPECT_TRUE(beyond("Sphere", key, "3.1416")) << key;
        EXPECT_FALSE(beyond("Cylinder", key, "3.1416")) << key;
    }
    for (const std::string key : {"Screen_MinPhi", "Screen_MaxPhi"}) {
        EXPECT_FALSE(beyond("Sphere", key, "-1.570796326794897")) << key;
        EXPECT_TRUE(beyond("Sphere", key, "-1.5708")) << key;
        EXPECT_TRUE(beyond("Sphere", key, "6.283")) << key;
        EXPECT_FALSE(beyond("Sphere", key, "6.284")) << "these are degrees, which another rule finds";
    }
}

TEST(ScreenConditions, AModelLiesAlongTwoAxes) {
    const auto along = [](const std::string& forward, const std::string& upward, const std::string& model) {
        return placesOf(L"XC504", screen(item("VRML", model) + item("AxisForward", forward) + item("AxisUpward", upward)));
    };
    EXPECT_EQ(along("X", "Z", "dome.obj"), Lines());
    EXPECT_EQ(along("X", "-X", "dome.obj"), ofScreen({L"AxisUpward"}));
    EXPECT_EQ(along("X", "-X", ""), Lines());
    EXPECT_EQ(placesOf(L"XC504", screen(item("VRML", "dome.obj"))), Lines());
}

TEST(ScreenConditions, OnlyAUnitOfItsOwnNeedsAScale) {
    const auto scaled = [](const std::string& unit, const std::string& scale) {
        return placesOf(L"XC505", screen(item("File_Length_Unit", unit) + item("File_Unit_Custom_Scale", scale)));
    };
    EXPECT_EQ(scaled("Custom", "0.001"), Lines());
    EXPECT_EQ(scaled("Custom", "0"), ofScreen({L"File_Unit_Custom_Scale"}));
    EXPECT_EQ(scaled("Millimeters", "0"), Lines());
}

TEST(ScreenConditions, EachMaskThatIsEnabledHasASize) {
    for (const std::string side : {"Mask_Top", "Mask_Bottom", "Mask_Left", "Mask_Right"}) {
        const auto masked = [&](const std::string& isEnabled, const std::string& size) {
            return placesOf(L"XC506", screen(item(side + "_Enabled", isEnabled) + item(side, size))).size();
        };
        EXPECT_EQ(masked("true", "0.1"), 0U) << side;
        EXPECT_EQ(masked("true", "0"), 1U) << side;
        EXPECT_EQ(masked("false", "0"), 0U) << side;
    }
}

TEST(ScreenConditions, MarkersOnASurfaceNeedItsPicture) {
    const auto marked = [](const std::string& method, const std::string& file, const std::string& width,
                           const std::string& height) {
        return placesOf(L"XC507", "<System>" + item("Marker_Location_Method", method) + "</System>" +
                                      screen(item("Marked_Surface_File", file) + item("Marked_Surface_Image_Width", width) +
                                             item("Marked_Surface_Image_Height", height)));
    };
    for (const std::string method : {"marked-surface-automatic", "marked-surface-automatic-prompt"}) {
        EXPECT_EQ(marked(method, "a.png", "1", "1"), Lines()) << method;
        EXPECT_EQ(marked(method, "a.png", "0", "0"),
                  ofScreen({L"Marked_Surface_Image_Width", L"Marked_Surface_Image_Height"}));
        EXPECT_EQ(marked(method, "", "0", "0"), ofScreen({L"Marked_Surface_File"})) << method;
    }
    EXPECT_EQ(marked("act", "", "0", "0"), Lines());
}

TEST(ScreenConditions, ACheckerboardHasBoxesInTwoRows) {
    const auto board = [](const std::string& method, const std::string& size, const std::string& columns,
                          const std::string& rows) {
        return placesOf(L"XC508", "<System>" + item("Marker_Location_Method", method) + "</System>" +
                                      screen(item("Checkerboard_Calibration",
                                                  item("Box_Dimension", size) +
                                                      item("Grid_Size", item("Columns", columns) + item("Rows", rows)))))
            .size();
    };
    EXPECT_EQ(board("checkerboard", "0.01", "2", "2"), 0U);
    EXPECT_EQ(board("checkerboard", "0", "2", "2"), 1U);
    EXPECT_EQ(board("checkerboard", "0.01", "1", "2"), 1U);
    EXPECT_EQ(board("checkerboard", "0.01", "2", "1"), 1U);
    EXPECT_EQ(board("act", "0", "1", "1"), 0U);
}

TEST(ScreenConditions, TablesRiseWithinTheirLimits) {
    const auto table = [](const std::string& key, const std::string& numbers) {
        return foundBy(L"XC509", "<TargetLocator>" + item(key, numbers) + "</TargetLocator>");
    };
    const std::string vertical = "Vertical_Content_Distortion";
    const std::string horizontal = "Horizontal_Content_Distortion";
    EXPECT_EQ(table(vertical, "-90 -90 90 90"), Lines());
    EXPECT_EQ(table(horizontal, "-180 -180 180 180"), Lines());
    EXPECT_EQ(table(vertical, "-90 -90 0 90.5"),
              (Lines{L"TargetLocator/Vertical_Content_Distortion: 90.5 is beyond -90 to 90"}));
    EXPECT_EQ(table(horizontal, "-180.5 -90 0 90"),
              (Lines{L"TargetLocator/Horizontal_Content_Distortion: -180.5 is beyond -180 to 180"}));
    EXPECT_EQ(table(vertical, "-90 -90 0 10 0 20 90 90"),
              (Lines{L"TargetLocator/Vertical_Content_Distortion: 0 -> 10, then 0 -> 20: does not rise"}));
    EXPECT_EQ(table(vertical, "-90 -90 0 10 20 10 90 90"),
              (Lines{L"TargetLocator/Vertical_Content_Distortion: 0 -> 10, then 20 -> 10: does not rise"}));
}

TEST(ScreenConditions, ATransformTurnsAndDoesNothingElse) {
    const auto transform = [](const std::string& rows) {
        return placesOf(L"XC511", screen(item("Locate_Guess_Transform", rows))).size();
    };
    EXPECT_EQ(transform(""), 0U);
    EXPECT_EQ(transform("1 0 0 7 0 1 0 8 0 0 1 9 0 0 0 1"), 0U);
    EXPECT_EQ(transform("0 1 0 0 0 0 1 0 1 0 0 0 0 0 0 1"), 0U);
    EXPECT_EQ(transform("0 1 0 0 1 0 0 0 0 0 1 0 0 0 0 1"), 1U) << "a mirror";
    EXPECT_EQ(transform("1 0 0 0 0 0 1 0 0 1 0 0 0 0 0 1"), 1U) << "another mirror";
    EXPECT_EQ(transform("1 0 0 0 0 -1 0 0 0 0 -1 0 0 0 0 1"), 0U) << "half a turn";
    EXPECT_EQ(transform("1.0004 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1"), 0U);
    EXPECT_EQ(transform("1.0006 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1"), 1U);
    EXPECT_EQ(transform("1 0 0 0 0 1 0 0 0 0.1 1 0 0 0 0 1"), 1U) << "rows that are not at right angles";
    EXPECT_EQ(transform("0.8 0 -0.6 0 0 1 0 0 0.6 0 0.8 0 0 0 0 1"), 0U);
    EXPECT_EQ(transform("1 0 0 0 0 1 0 0 0 0 1 0 0 0 0"), 1U);
    EXPECT_EQ(transform("nan 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1"), 1U);
}

TEST(ScreenConditions, EyesAreInsideOfASphere) {
    const auto outside = [](const std::string& shape, const std::string& point, const std::string& centre) {
        return placesOf(L"XC513", screen(item("Shape", shape) + item("Screen_Radius", "5") + item("Center_Point", centre) +
                                         item("Projection_Point", point)) +
                                      "<TargetLocator>" + item("Eye_Point", centre) + "</TargetLocator>");
    };
    EXPECT_EQ(outside("Sphere", "3, 0, 3.9", "0, 0, 0"), Lines());
    EXPECT_EQ(outside("Sphere", "3, 0, 4", "0, 0, 0"), ofScreen({L"Projection_Point"}));
    EXPECT_EQ(outside("Sphere", "3, 4, 0", "0, 0, 0"), ofScreen({L"Projection_Point"}));
    EXPECT_EQ(outside("Sphere", "3, 4, 1", "3, 4, 0"), Lines());
    EXPECT_EQ(outside("Cylinder", "3, 0, 4", "0, 0, 0"), Lines());
}

}  // namespace
