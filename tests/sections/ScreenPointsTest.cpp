#include "sections/ScreenConfig.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/sections/ScreenFixture.h"

namespace {

using XMLConfig::tests::itemsOf;
using Points = std::vector<Point_3Dim<double>>;
using Texts = std::vector<std::wstring>;

class ScreenPoints : public XMLConfig::tests::ScreenFixture {};

/// 1, 2, 3 ... row by row.
Matrix<double, 4> countingMatrix() {
    Matrix<double, 4> matrix;
    for (int i = 0; i < 16; ++i) matrix.m[i / 4][i % 4] = i + 1;
    return matrix;
}

}  // namespace

TEST_F(ScreenPoints, SinglePointIsWrittenAsAFirstPoint) {
    screen.setCalibrationPoints({{1, -2.5, 0}});
    EXPECT_EQ(items.text(L"Camera_Calibration_Points"), L"\n\t\t1.000000, -2.500000, 0.000000,\n");
    EXPECT_EQ(screen.getCalibrationPoints(), (Points{{1, -2.5, 0}}));
}

TEST_F(ScreenPoints, ThreePointsHaveAMiddleOne) {
    screen.setCalibrationPoints({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    EXPECT_EQ(
        items.text(L"Camera_Calibration_Points"),
        L"\n\t\t1.000000, 2.000000, 3.000000,\n\t\t4.000000, 5.000000, 6.000000,\n\t\t7.000000, 8.000000, 9.000000\n\n\t");
    EXPECT_EQ(screen.getCalibrationPoints(), (Points{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
}

TEST_F(ScreenPoints, NoPointsAreAnEmptyItem) {
    screen.setCalibrationPoints({{1, 2, 3}});
    screen.setCalibrationPoints({});
    EXPECT_EQ(items.text(L"Camera_Calibration_Points"), L"");
    EXPECT_EQ(screen.getCalibrationPoints(), Points{});
}

TEST_F(ScreenPoints, IncompleteLastPointIsIgnored) {
    items.putClean(L"Camera_Calibration_Points", L" 1\t2\n3,4 5 ,");
    EXPECT_EQ(screen.getCalibrationPoints(), (Points{{1, 2, 3}}));
    items.putClean(L"Camera_Calibration_Points", L"1 2");
    EXPECT_EQ(screen.getCalibrationPoints(), Points{});
    items.putClean(L"Camera_Calibration_Points", L"1 2 3 4");
    EXPECT_EQ(screen.getCalibrationPoints(), (Points{{1, 2, 3}}));
}

TEST_F(ScreenPoints, PointsThatAreNoNumbersReadZero) {
    items.putClean(L"Camera_Calibration_Points", L"a 2mm -1e1 0x3 . -");
    EXPECT_EQ(screen.getCalibrationPoints(), (Points{{0, 2, -10}, {0, 0, 0}}));
}

TEST_F(ScreenPoints, PointsKeepSixDecimals) {
    screen.setCalibrationPoints({{0.1234567, -1e-7, 1e9}, {2.0 / 3.0, 0, 0}});
    EXPECT_EQ(items.text(L"Camera_Calibration_Points"),
              L"\n\t\t0.123457, -0.000000, 1000000000.000000,\n\t\t0.666667, 0.000000, 0.000000\n\n\t");
}

TEST_F(ScreenPoints, NonFinitePointsReadBack) {
    const double infinity = std::numeric_limits<double>::infinity();
    screen.setCalibrationPoints({{infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}});
    EXPECT_EQ(items.text(L"Camera_Calibration_Points"), L"\n\t\tinf, -inf, nan,\n");
    const Points points = screen.getCalibrationPoints();
    ASSERT_EQ(points.size(), 1u);
    EXPECT_EQ(points[0].x, infinity);
    EXPECT_EQ(points[0].y, -infinity);
    EXPECT_NE(points[0].z, points[0].z);
}

TEST_F(ScreenPoints, LineOfAPointIsCutAt127Characters) {
    screen.setCalibrationPoints({{1e150, 2, 3}, {4, 5, 6}});
    const std::wstring stored = items.text(L"Camera_Calibration_Points").value();
    EXPECT_EQ(stored.size(), 127u + std::wstring(L"\t\t4.000000, 5.000000, 6.000000\n\n\t").size());
    EXPECT_EQ(stored.substr(0, 4), L"\n\t\t9");
    EXPECT_EQ(stored.substr(127), L"\t\t4.000000, 5.000000, 6.000000\n\n\t");
    const Points points = screen.getCalibrationPoints();
    ASSERT_EQ(points.size(), 1u);
    EXPECT_EQ(points[0].y, 4.0);
    EXPECT_EQ(points[0].z, 5.0);
}

TEST_F(ScreenPoints, LineOf127CharactersIsNotCut) {
    screen.setCalibrationPoints({{1e95, 2, 3}});  // 3 + (96 + 7) + 2 + 8 + 2 + 8 + 2 = 128: one too long
    EXPECT_EQ(items.text(L"Camera_Calibration_Points")->size(), 127u);
    EXPECT_EQ(items.text(L"Camera_Calibration_Points")->back(), L',');
    screen.setCalibrationPoints({{1e94, 2, 3}});
    EXPECT_EQ(items.text(L"Camera_Calibration_Points")->size(), 127u);
    EXPECT_EQ(items.text(L"Camera_Calibration_Points")->back(), L'\n');
}

TEST_F(ScreenPoints, GuessTransformIsWrittenRowByRow) {
    screen.setLocateGuessTransform(countingMatrix());
    EXPECT_EQ(items.text(L"Locate_Guess_Transform"),
              L"\n\t\t1.000000, 2.000000, 3.000000 ,4.000000,\n"
              L"\t\t5.000000, 6.000000, 7.000000 ,8.000000,\n"
              L"\t\t9.000000, 10.000000, 11.000000 ,12.000000,\n"
              L"\t\t13.000000, 14.000000, 15.000000 ,16.000000\n\n\t");
    EXPECT_EQ(screen.getLocateGuessTransform(), countingMatrix());
}

TEST_F(ScreenPoints, MissingGuessTransformIsTheIdentity) {
    Matrix<double, 4> identity;
    for (int i = 0; i < 4; ++i) identity.m[i][i] = 1.0;
    EXPECT_EQ(screen.getLocateGuessTransform(), identity);
    EXPECT_FALSE(document.doesSectionExist(L"Screen", L""));
    for (const wchar_t* text :
         {L"", L" \n", L"1 2 3", L"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15", L"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17"}) {
        items.putClean(L"Locate_Guess_Transform", text);
        EXPECT_EQ(screen.getLocateGuessTransform(), identity);
    }
}

TEST_F(ScreenPoints, GuessTransformOfSixteenTokensIsRead) {
    items.putClean(L"Locate_Guess_Transform", L"1 2 3 4,5,6,7,8\n9\t10 11 12 13 14 15 16,");
    EXPECT_EQ(screen.getLocateGuessTransform(), countingMatrix());
    items.putClean(L"Locate_Guess_Transform", L"a b c d e f g h i j k l m n o p");
    EXPECT_EQ(screen.getLocateGuessTransform(), (Matrix<double, 4>()));
}

TEST_F(ScreenPoints, ImageSizeIsTwoItems) {
    EXPECT_EQ(screen.getMarkedSurfaceImageSize(), (Point_2Dim<int>{0, 0}));
    EXPECT_FALSE(document.doesSectionExist(L"Screen", L""));
    screen.setMarkedSurfaceImageSize({101, 51});
    EXPECT_EQ(itemsOf(document, L"Screen"),
              (Texts{L"Marked_Surface_Image_Width = 101", L"Marked_Surface_Image_Height = 51"}));
    EXPECT_EQ(screen.getMarkedSurfaceImageSize(), (Point_2Dim<int>{101, 51}));
    document.removeItem(L"Screen", L"Marked_Surface_Image_Width", L"");
    EXPECT_EQ(screen.getMarkedSurfaceImageSize(), (Point_2Dim<int>{0, 51}));
}

TEST_F(ScreenPoints, CalibrationPointsAreMappedIntoTheImage) {
    screen.setMarkedSurfaceImageSize({101, 51});
    screen.setCalibrationPoints({{10, 99, 5}, {-0.5, 0, -25.25}});
    EXPECT_EQ(screen.getMarkedSurfaceCalibrationPoints(), (std::vector<Point_2Dim<double>>{{60, 20}, {49.5, 50.25}}));
}

TEST_F(ScreenPoints, HalfOfANegativeImageSizeIsTruncated) {
    screen.setMarkedSurfaceImageSize({-3, -5});
    screen.setCalibrationPoints({{0, 0, 0}});
    EXPECT_EQ(screen.getMarkedSurfaceCalibrationPoints(), (std::vector<Point_2Dim<double>>{{-1, -2}}));
}

TEST_F(ScreenPoints, MappingAsksTheVirtualGetters) {
    struct Fixed : ScreenConfig {
        using ScreenConfig::ScreenConfig;
        Points getCalibrationPoints() override { return {{1, 2, 3}}; }
        Point_2Dim<int> getMarkedSurfaceImageSize() override { return {20, 10}; }
    };
    const Fixed derived(&document, nullptr, L"");
    EXPECT_EQ(derived.getMarkedSurfaceCalibrationPoints(), (std::vector<Point_2Dim<double>>{{11, 2}}));
}
