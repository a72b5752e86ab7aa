#include "sections/CalibrationPoints.h"

#include <gtest/gtest.h>

#include <limits>

#include "sections/CameraConfig.h"
#include "store/ConfigInfo.h"
#include "tests/support/StoredItems.h"

using XMLConfig::detail::CalibrationPoints;
using XMLConfig::detail::calibrationPointsFromText;
using XMLConfig::detail::calibrationPointsToText;

using XMLConfig::tests::StoredItems;

namespace {

const wchar_t* const twoEntries = L"\n\t\t1, 10.000000, 20.000000,\n\t\t2, 30.000000, 40.000000\n";
const CalibrationPoints twoPoints = {{1, {10, 20}}, {2, {30, 40}}};

}  // namespace

TEST(CalibrationPoints, EntriesStandOnLinesOfTheirOwn) {
    EXPECT_EQ(calibrationPointsToText({}), L"");
    EXPECT_EQ(calibrationPointsToText({{3, {12.5, 7}}}), L"\n\t\t3, 12.500000, 7.000000\n");
    EXPECT_EQ(calibrationPointsToText(twoPoints), twoEntries);
    EXPECT_EQ(calibrationPointsToText({{10, {0.0000004, -0.5}}, {-2, {1, 2}}}),
              L"\n\t\t-2, 1.000000, 2.000000,\n\t\t10, 0.000000, -0.500000\n");
}

TEST(CalibrationPoints, NumbersHaveAtLeastFourCharacters) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(calibrationPointsToText({{1, {nan, infinity}}}), L"\n\t\t1,  nan,  inf\n");
    EXPECT_EQ(calibrationPointsToText({{1, {0, -infinity}}}), L"\n\t\t1, 0.000000, -inf\n");
}

TEST(CalibrationPoints, LongEntryIsCutAt127Characters) {
    // Prefix of 3, "1, ", 201 digits: 121 of these are left, and of a later entry with its prefix of 4, 120.
    const double big = 1e200;
    const std::wstring text = calibrationPointsToText({{1, {big, 2}}, {2, {big, 2}}});
    ASSERT_EQ(text.size(), 127u + 127u + 1u);
    EXPECT_EQ(text.substr(0, 7), L"\n\t\t1, 9");
    EXPECT_EQ(text.substr(127, 8), L",\n\t\t2, 9");
    EXPECT_EQ(text.back(), L'\n');
}

TEST(CalibrationPoints, PiecesAreReadInThrees) {
    EXPECT_EQ(calibrationPointsFromText(L""), CalibrationPoints());
    EXPECT_EQ(calibrationPointsFromText(L" ,\n\t"), CalibrationPoints());
    EXPECT_EQ(calibrationPointsFromText(twoEntries), twoPoints);
    EXPECT_EQ(calibrationPointsFromText(L"1 10 20 2,30\t40"), twoPoints);
    EXPECT_EQ(calibrationPointsFromText(L"1,,10,,,20\n\n2 , 30 , 40 ,"), twoPoints);
    EXPECT_EQ(calibrationPointsFromText(L"-7, 1.5e1, -.25"), (CalibrationPoints{{-7, {15, -0.25}}}));
}

TEST(CalibrationPoints, IncompleteGroupAtTheEndIsIgnored) {
    EXPECT_EQ(calibrationPointsFromText(L"1, 10, 20, 2, 30, 40, 3"), twoPoints);
    EXPECT_EQ(calibrationPointsFromText(L"1, 10, 20, 2, 30, 40, 3, 4"), twoPoints);
    EXPECT_EQ(calibrationPointsFromText(L"1, 10"), CalibrationPoints());
}

TEST(CalibrationPoints, RepeatedMarkerKeepsItsFirstPlace) {
    EXPECT_EQ(calibrationPointsFromText(L"1, 10, 20, 1, 5, 6, 2, 30, 40"), twoPoints);
}

TEST(CalibrationPoints, WordsReadZero) {
    EXPECT_EQ(calibrationPointsFromText(L"one, two, 3"), (CalibrationPoints{{0, {0, 3}}}));
    EXPECT_EQ(calibrationPointsFromText(L"99999999999 1;5 2"), (CalibrationPoints{{2147483647, {1, 2}}}));
}

TEST(CameraCalibrationPoints, AreWrittenBackAsRead) {
    ConfigInfo document;
    StoredItems(document, L"Camera", L"1").put(L"Camera_Calibration_Points", twoEntries);
    document.setDirty(false);
    CameraConfig camera(&document, L"1");
    EXPECT_EQ(camera.getCameraCalibrationPoints(false), twoPoints);
    camera.setCameraCalibrationPoints(false, twoPoints);
    EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"Camera_Calibration_Points"), twoEntries);
    EXPECT_FALSE(document.isDirty());
}

TEST(CameraCalibrationPoints, OwnAndReferencePointsAreApart) {
    ConfigInfo document;
    CameraConfig camera(&document, L"1");
    const CalibrationPoints others = {{9, {1, 2}}};
    camera.setCameraCalibrationPoints(true, others);
    EXPECT_EQ(camera.getCameraCalibrationPoints(false), CalibrationPoints());
    EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"Camera_Calibration_Points"), std::nullopt);
    EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"Reference_Camera_Calibration_Points"),
              L"\n\t\t9, 1.000000, 2.000000\n");
    camera.setCameraCalibrationPoints(false, twoPoints);
    EXPECT_EQ(camera.getCameraCalibrationPoints(true), others);
    EXPECT_EQ(CameraConfig(&document, L"1").getCameraCalibrationPoints(true), others);
    EXPECT_EQ(CameraConfig(&document, L"1").getCameraCalibrationPoints(false), twoPoints);
}

TEST(CameraCalibrationPoints, FilledCacheHidesTheDocument) {
    ConfigInfo document;
    StoredItems(document, L"Camera", L"1").put(L"Camera_Calibration_Points", twoEntries);
    const CameraConfig camera(&document, L"1");
    EXPECT_EQ(camera.getCameraCalibrationPoints(false), twoPoints);
    StoredItems(document, L"Camera", L"1").put(L"Camera_Calibration_Points", L"5, 6, 7");
    EXPECT_EQ(camera.getCameraCalibrationPoints(false), twoPoints);
    EXPECT_EQ(CameraConfig(&document, L"1").getCameraCalibrationPoints(false), (CalibrationPoints{{5, {6, 7}}}));
}

TEST(CameraCalibrationPoints, EmptyCacheAsksTheDocumentAgain) {
    ConfigInfo document;
    const CameraConfig camera(&document, L"1");
    EXPECT_EQ(camera.getCameraCalibrationPoints(true), CalibrationPoints());
    EXPECT_FALSE(document.isDirty());
    StoredItems(document, L"Camera", L"1").put(L"Reference_Camera_Calibration_Points", twoEntries);
    EXPECT_EQ(camera.getCameraCalibrationPoints(true), twoPoints);
}

TEST(CameraCalibrationPoints, SettingNoneStoresEmptyTextAndEmptiesOneCache) {
    ConfigInfo document;
    CameraConfig camera(&document, L"1");
    camera.setCameraCalibrationPoints(false, twoPoints);
    camera.setCameraCalibrationPoints(true, twoPoints);
    camera.setCameraCalibrationPoints(false, {});
    EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"Camera_Calibration_Points"), L"");
    EXPECT_EQ(camera.getCameraCalibrationPoints(false), CalibrationPoints());
    EXPECT_EQ(camera.getCameraCalibrationPoints(true), twoPoints);
    StoredItems(document, L"Camera", L"1").put(L"Reference_Camera_Calibration_Points", L"");
    EXPECT_EQ(camera.getCameraCalibrationPoints(true), twoPoints) << "the reference cache is still filled";
}

TEST(CameraCalibrationPoints, CacheKeepsWhatTheTextRounds) {
    ConfigInfo document;
    CameraConfig camera(&document, L"1");
    const CalibrationPoints fine = {{1, {0.123456789, 2}}};
    camera.setCameraCalibrationPoints(false, fine);
    EXPECT_EQ(camera.getCameraCalibrationPoints(false), fine);
    EXPECT_EQ(CameraConfig(&document, L"1").getCameraCalibrationPoints(false), (CalibrationPoints{{1, {0.123457, 2}}}));
}

TEST(CameraCalibrationPoints, CallerGetsACopy) {
    ConfigInfo document;
    CameraConfig camera(&document, L"1");
    camera.setCameraCalibrationPoints(false, twoPoints);
    camera.getCameraCalibrationPoints(false).clear();
    EXPECT_EQ(camera.getCameraCalibrationPoints(false), twoPoints);
}

TEST(CameraCalibrationPoints, ManyPointsAreNotCut) {
    ConfigInfo document;
    CameraConfig camera(&document, L"1");
    CalibrationPoints many;
    for (int marker = 0; marker < 1000; ++marker) many[marker] = {marker + 0.5, marker + 0.25};
    camera.setCameraCalibrationPoints(true, many);
    EXPECT_EQ(CameraConfig(&document, L"1").getCameraCalibrationPoints(true), many);
}
