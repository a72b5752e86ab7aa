#include <gtest/gtest.h>

#include "sections/CameraConfig.h"
#include "store/CorvaneException.h"
#include "tests/support/SettingRows.h"
#include "tests/support/StoredItems.h"
#include "tests/support/Thrown.h"

using C = CameraConfig;
using XMLConfig::tests::itemsOf;
using XMLConfig::tests::leavesOf;

using XMLConfig::tests::StoredItems;

namespace {}  // namespace

TEST(CameraEdgeThresholds, SingleNumberIsConverted) {
    ConfigInfo document;
    const C camera(&document, L"1");
    for (const wchar_t* text : {L"55", L" 55 ", L"55,", L",,55"}) {
        StoredItems(document, L"Camera", L"1").put(L"MultiCamEdgeThreshold", text);
        document.setDirty(false);
        EXPECT_EQ(camera.getMultiCamEdgeThreshold(), (std::vector<int>{55, 55, 55, 55}));
        EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"MultiCamEdgeThreshold"), L"55,55,55,55");
        EXPECT_TRUE(document.isDirty());
    }
}

TEST(CameraEdgeThresholds, OtherCountsGiveNoneAndStay) {
    ConfigInfo document;
    const C camera(&document, L"1");
    for (const wchar_t* text : {L"", L",", L"1,2", L"1,2,3", L"1,2,3,4,5"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(text)));
        StoredItems(document, L"Camera", L"1").put(L"MultiCamEdgeThreshold", text);
        document.setDirty(false);
        EXPECT_TRUE(camera.getMultiCamEdgeThreshold().empty());
        EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"MultiCamEdgeThreshold"), text);
        EXPECT_FALSE(document.isDirty());
    }
}

TEST(CameraEdgeThresholds, FourPiecesAreReadAsIntegers) {
    ConfigInfo document;
    const C camera(&document, L"1");
    StoredItems(document, L"Camera", L"1").put(L"MultiCamEdgeThreshold", L"1, 2x,three,99999999999,");
    document.setDirty(false);
    EXPECT_EQ(camera.getMultiCamEdgeThreshold(), (std::vector<int>{1, 2, 0, 2147483647}));
    EXPECT_FALSE(document.isDirty());
}

TEST(CameraEdgeThresholds, FirstFourAreStored) {
    ConfigInfo document;
    C camera(&document, L"1");
    camera.setMultiCamEdgeThreshold({1, 2, 3, 4, 5});
    EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"MultiCamEdgeThreshold"), L"1,2,3,4");
    const int lowest = -2147483647 - 1;
    camera.setMultiCamEdgeThreshold({lowest, lowest, lowest, lowest});
    EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"MultiCamEdgeThreshold"),
              L"-2147483648,-2147483648,-2147483648,-2147483648");
    EXPECT_EQ(camera.getMultiCamEdgeThreshold(), (std::vector<int>{lowest, lowest, lowest, lowest}));
}

TEST(CameraEdgeThresholds, FewerThanFourAreRefused) {
    ConfigInfo document;
    C camera(&document, L"1");
    camera.setMultiCamEdgeThreshold({1, 2, 3, 4});
    document.setDirty(false);
    for (const std::vector<int>& few : {std::vector<int>{}, {9}, {9, 8, 7}}) {
        EXPECT_EQ(messageOf([&] { camera.setMultiCamEdgeThreshold(few); }),
                  L"Error setMultiCamEdgeThreshold: section \"Camera\" \"1\", item "
                  L"\"MultiCamEdgeThreshold\": four values are needed, " +
                      std::wstring(1, static_cast<wchar_t>(L'0' + few.size())) + L" were given");
        EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"MultiCamEdgeThreshold"), L"1,2,3,4");
        EXPECT_FALSE(document.isDirty());
    }
}

TEST(CameraExtrinsics, AreStoredAsTwoPoints) {
    ConfigInfo document;
    C camera(&document, L"1");
    EXPECT_FALSE(camera.doesExplicitExtrinsicsExist());
    camera.setExplicitExtrinsics({0.5, 0.25, -1.0}, {0.125, 0.0, 2.0});
    EXPECT_EQ(itemsOf(document, L"Camera", L"1"),
              (std::vector<std::wstring>{
                  L"ExplicitExtrinsicXYZ = 5.000000000000000e-01, 2.500000000000000e-01, -1.000000000000000e+00",
                  L"ExplicitExtrinsicYPR = 1.250000000000000e-01, 0.000000000000000e+00, 2.000000000000000e+00"}));
    Point_3Dim<double> xyz;
    Point_3Dim<double> ypr;
    EXPECT_TRUE(camera.getExplicitExtrinsics(xyz, ypr));
    EXPECT_TRUE(xyz == Point_3Dim<double>(0.5, 0.25, -1.0));
    EXPECT_TRUE(ypr == Point_3Dim<double>(0.125, 0.0, 2.0));
    EXPECT_TRUE(camera.doesExplicitExtrinsicsExist());
    EXPECT_FALSE(camera.getExplicitExtrinsicsValid()) << "the flag is set by itself";
}

TEST(CameraExtrinsics, StoredOriginCounts) {
    ConfigInfo document;
    const C camera(&document, L"1");
    StoredItems(document, L"Camera", L"1")
        .put(L"ExplicitExtrinsicXYZ", L"0.000000000000000e+00, 0.000000000000000e+00, 0.000000000000000e+00");
    StoredItems(document, L"Camera", L"1").put(L"ExplicitExtrinsicYPR", L"0 0 0");
    Point_3Dim<double> xyz(7, 7, 7);
    Point_3Dim<double> ypr(8, 8, 8);
    EXPECT_TRUE(camera.getExplicitExtrinsics(xyz, ypr));
    EXPECT_TRUE(xyz == Point_3Dim<double>());
    EXPECT_TRUE(ypr == Point_3Dim<double>());
}

TEST(CameraExtrinsics, MissingOrMalformedPointIsLeftAlone) {
    const Point_3Dim<double> seven(7, 7, 7);
    const Point_3Dim<double> eight(8, 8, 8);
    for (const wchar_t* bad : {L"", L"1, 2", L"1, 2, 3, 4"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(bad)));
        ConfigInfo document;
        const C camera(&document, L"1");
        Point_3Dim<double> xyz = seven;
        Point_3Dim<double> ypr = eight;
        EXPECT_FALSE(camera.getExplicitExtrinsics(xyz, ypr));
        EXPECT_TRUE(xyz == seven && ypr == eight);
        EXPECT_FALSE(document.isDirty());

        StoredItems(document, L"Camera", L"1").put(L"ExplicitExtrinsicXYZ", L"1, 2, 3");
        StoredItems(document, L"Camera", L"1").put(L"ExplicitExtrinsicYPR", bad);
        EXPECT_FALSE(camera.getExplicitExtrinsics(xyz, ypr));
        EXPECT_TRUE(xyz == Point_3Dim<double>(1, 2, 3) && ypr == eight);

        StoredItems(document, L"Camera", L"1").put(L"ExplicitExtrinsicXYZ", bad);
        StoredItems(document, L"Camera", L"1").put(L"ExplicitExtrinsicYPR", L"4, 5, 6");
        xyz = seven;
        EXPECT_FALSE(camera.getExplicitExtrinsics(xyz, ypr));
        EXPECT_TRUE(xyz == seven && ypr == Point_3Dim<double>(4, 5, 6));
        EXPECT_TRUE(camera.doesExplicitExtrinsicsExist());
    }
}

TEST(CameraExtrinsics, FlagIsIndependentOfThePoints) {
    ConfigInfo document;
    C camera(&document, L"1");
    camera.setExplicitExtrinsicsValid(true);
    Point_3Dim<double> point;
    EXPECT_FALSE(camera.getExplicitExtrinsics(point, point));
    EXPECT_FALSE(camera.doesExplicitExtrinsicsExist());
}

TEST(CameraInput, SnippetKeepsEscapedMarkup) {
    ConfigInfo document;
    C camera(&document, L"1");
    camera.setDeviceSnippet(L"<camera><mac>&lt;b&gt;&amp;</mac></camera>");
    EXPECT_EQ(StoredItems(document, L"Camera", L"1").text(L"DeviceSnippet|camera|mac"), L"<b>&");
    EXPECT_NE(camera.getDeviceSnippet().find(L"<mac>&lt;b&gt;&amp;</mac>"), std::wstring::npos);
    document.setDirty(false);
    camera.setDeviceSnippet(camera.getDeviceSnippet());
    EXPECT_FALSE(document.isDirty());
}

TEST(CameraInput, SnippetWithRawMarkupIsRefused) {
    ConfigInfo document;
    C camera(&document, L"1");
    camera.setDeviceSnippet(L"<camera>1</camera>");
    document.setDirty(false);
    const auto before = leavesOf(document);
    EXPECT_THROW(camera.setDeviceSnippet(L"<camera><mac><b>&</mac></camera>"), CorvaneException);
    EXPECT_EQ(leavesOf(document), before);
    EXPECT_FALSE(document.isDirty());
    camera.setDeviceSnippet(L"");
    EXPECT_EQ(leavesOf(document), before);
}

TEST(CameraInput, OddIdentifiersAddressTheirOwnSections) {
    const std::wstring ids[] = {L"a b", L"say \"hi\"", L"it's", L"a|b", L"<&>", L"Gr\u00fcn", std::wstring(200, L'i')};
    ConfigInfo document;
    for (const std::wstring& id : ids) C(&document, id).initialize();
    EXPECT_EQ(document.getSectionIDs(L"Camera"), std::vector<std::wstring>(std::begin(ids), std::end(ids)));
    for (const std::wstring& id : ids) EXPECT_EQ(C(&document, id).getName(), L"Camera_" + id);
}

TEST(CameraInput, LongTextsAreKeptWhole) {
    ConfigInfo document;
    C camera(&document, L"1");
    const std::wstring text(200, L'n');
    camera.setIntrinsicFileID(text);
    EXPECT_EQ(camera.getIntrinsicFileID(), text);
}
