#include <cmath>

#include "tests/store/StoreSupport.h"

namespace storetests {

TEST(FrustumItem, IsStoredAsEightItemsInOrder) {
    ConfigInfo document;
    document.setFrustum(L"P", L"Designed|Frustum", Frustum({1, 2, 3}, {0.1, 0.2, 0.3}, -0.5, 0.5, -0.25, 0.25, 1920, -1),
                        L"1");
    EXPECT_CONTAINS(
        savedText(document),
        "  <P ID=\"1\">\n    <Designed>\n      <Frustum>\n"
        "        <Offset>1.000000000000000e+00, 2.000000000000000e+00, 3.000000000000000e+00</Offset>\n"
        "        <RotationYPR>1.000000000000000e-01, 2.000000000000000e-01, 3.000000000000000e-01</RotationYPR>\n"
        "        <FOVLeft>-5.000000000000000e-01</FOVLeft>\n        <FOVRight>5.000000000000000e-01</FOVRight>\n"
        "        <FOVTop>-2.500000000000000e-01</FOVTop>\n        <FOVBottom>2.500000000000000e-01</FOVBottom>\n"
        "        <ResolutionX>1920</ResolutionX>\n        <ResolutionY>-1</ResolutionY>\n"
        "      </Frustum>\n    </Designed>\n  </P>\n");
}

TEST(FrustumItem, IsRebuiltFromItsFields) {
    ConfigInfo document;
    const Frustum stored({1, 2, 3}, {0.1, 0.2, 0.3}, -0.5, 0.5, -0.25, 0.25, 1920, 1080);
    document.setFrustum(L"P", L"F", stored, L"1");
    const Frustum read = document.getFrustum(L"P", L"F", Frustum(), L"1");
    EXPECT_EQ(read.Offset, stored.Offset);
    EXPECT_EQ(read.RotationYPR, stored.RotationYPR);
    EXPECT_EQ(read.FOVLeft, stored.FOVLeft);
    EXPECT_EQ(read.FOVRight, stored.FOVRight);
    EXPECT_EQ(read.FOVTop, stored.FOVTop);
    EXPECT_EQ(read.FOVBottom, stored.FOVBottom);
    EXPECT_EQ(read.ResolutionX, 1920);
    EXPECT_EQ(read.ResolutionY, 1080);
    EXPECT_EQ(read.Width, stored.Width);
    EXPECT_EQ(read.RotationMatrix, stored.RotationMatrix);
    EXPECT_EQ(read.InverseRotationMatrix, stored.InverseRotationMatrix);
}

TEST(FrustumItem, TakesEachMissingFieldFromTheDefault) {
    const Document document =
        load("<ConfigInfo><P><F><FOVLeft>-0.5</FOVLeft><Offset>1 2</Offset><ResolutionX/></F></P></ConfigInfo>");
    Frustum fallback({1, 2, 3}, {0.1, 0.2, 0.3}, 9, 0.5, -0.25, 0.25, 1920, 1080);
    fallback.TanTop = 77;
    const Frustum read = document->getFrustum(L"P", L"F", fallback, L"");
    EXPECT_EQ(read.Offset, Point_3Dim<double>(1, 2, 3));
    EXPECT_EQ(read.RotationYPR, Point_3Dim<double>(0.1, 0.2, 0.3));
    EXPECT_EQ(read.FOVLeft, -0.5);
    EXPECT_EQ(read.FOVRight, 0.5);
    EXPECT_EQ(read.ResolutionX, 0);
    EXPECT_EQ(read.ResolutionY, 1080);
    EXPECT_DOUBLE_EQ(read.TanLeft, std::tan(-0.5));
    EXPECT_DOUBLE_EQ(read.TanTop, std::tan(-0.25));
    EXPECT_DOUBLE_EQ(read.Width, 2 * std::tan(0.5));
    const Frustum none = ConfigInfo().getFrustum(L"P", L"F", fallback, L"");
    EXPECT_EQ(none.FOVLeft, 9);
    EXPECT_DOUBLE_EQ(none.TanLeft, std::tan(9.0));
    EXPECT_FALSE(document->isDirty());
}

TEST(PondOfMirrorsItem, IsStoredAsFourIntegersInOrder) {
    ConfigInfo document;
    document.setPondOfMirrors(L"P", L"Pond", {1, 0, 255, 2}, L"");
    EXPECT_CONTAINS(savedText(document),
                    "    <Pond>\n      <Top>1</Top>\n      <Bottom>0</Bottom>\n      <Left>255</Left>\n      "
                    "<Right>2</Right>\n    </Pond>\n");
    BlackLevelBlending::PondOfMirrors pond;
    document.getPondOfMirrors(L"P", L"Pond", pond, L"");
    EXPECT_EQ(pond.Top, 1);
    EXPECT_EQ(pond.Bottom, 0);
    EXPECT_EQ(pond.Left, 255);
    EXPECT_EQ(pond.Right, 2);
}

TEST(PondOfMirrorsItem, IsCutToEightBitsAndKeepsMissingFields) {
    const Document document = load("<ConfigInfo><P><M><Top>300</Top><Bottom>-1</Bottom><Left>x</Left></M></P></ConfigInfo>");
    BlackLevelBlending::PondOfMirrors pond{7, 7, 7, 7};
    document->getPondOfMirrors(L"P", L"M", pond, L"");
    EXPECT_EQ(pond.Top, 44);
    EXPECT_EQ(pond.Bottom, 255);
    EXPECT_EQ(pond.Left, 0);
    EXPECT_EQ(pond.Right, 7);
    document->getPondOfMirrors(L"P", L"None", pond, L"");
    EXPECT_EQ(pond.Top, 44);
}

TEST(VectorItems, AreOneItemAnElementTheFirstIndexFastest) {
    ConfigInfo document;
    document.setDoubleVector(L"S", L"Gain", 2, 3, {1, 2, 3, 4, 5, 6}, L"1");
    EXPECT_CONTAINS(
        savedText(document),
        "  <S ID=\"1\">\n    <Gain_0_0>1.000000000000000e+00</Gain_0_0>\n    <Gain_1_0>2.000000000000000e+00</Gain_1_0>\n"
        "    <Gain_0_1>3.000000000000000e+00</Gain_0_1>\n    <Gain_1_1>4.000000000000000e+00</Gain_1_1>\n"
        "    <Gain_0_2>5.000000000000000e+00</Gain_0_2>\n    <Gain_1_2>6.000000000000000e+00</Gain_1_2>\n  </S>\n");
    std::vector<double> values;
    document.getDoubleVector(L"S", L"Gain", 2, 3, values, L"1");
    EXPECT_EQ(values, (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(VectorItems, OfPointsAreStoredInTheirForms) {
    ConfigInfo document;
    document.setPoint2IVector(L"S", L"I", 1, 2, {{1, 2}, {3, 4}}, L"");
    document.setPoint2DVector(L"S", L"D", 2, 1, {{1, 2}, {3, 4}}, L"");
    document.setPoint3DVector(L"S", L"T", 1, 1, {{1, 2, 3}}, L"");
    EXPECT_EQ(get(document, L"S", L"I_0_1"), L"3, 4");
    EXPECT_EQ(get(document, L"S", L"D_1_0"), L"3.000000000000000e+00, 4.000000000000000e+00");
    EXPECT_EQ(get(document, L"S", L"T_0_0"), L"1.000000000000000e+00, 2.000000000000000e+00, 3.000000000000000e+00");
    std::vector<Point_2Dim<int>> whole;
    std::vector<Point_2Dim<double>> flat;
    std::vector<Point_3Dim<double>> solid;
    document.getPoint2IVector(L"S", L"I", 1, 2, whole, L"");
    document.getPoint2DVector(L"S", L"D", 2, 1, flat, L"");
    document.getPoint3DVector(L"S", L"T", 1, 1, solid, L"");
    EXPECT_EQ(whole, (std::vector<Point_2Dim<int>>{{1, 2}, {3, 4}}));
    EXPECT_EQ(flat, (std::vector<Point_2Dim<double>>{{1, 2}, {3, 4}}));
    EXPECT_EQ(solid, (std::vector<Point_3Dim<double>>{{1, 2, 3}}));
}

TEST(VectorItems, AppendPlaceholdersForWhatCannotBeRead) {
    const Document document = load(
        "<ConfigInfo><S><K_0_0>5</K_0_0><E_0_0/><T_0_0>1 2</T_0_0><W_0_0>abc</W_0_0><P_0_0>1 2 3</P_0_0></S></ConfigInfo>");
    std::vector<double> doubles{9};
    document->getDoubleVector(L"S", L"K", 2, 1, doubles, L"");
    EXPECT_EQ(doubles, (std::vector<double>{9, 5, -1}));
    document->getDoubleVector(L"S", L"E", 1, 1, doubles, L"");
    document->getDoubleVector(L"S", L"T", 1, 1, doubles, L"");
    document->getDoubleVector(L"S", L"W", 1, 1, doubles, L"");
    document->getDoubleVector(L"X", L"K", 1, 1, doubles, L"");
    EXPECT_EQ(doubles, (std::vector<double>{9, 5, -1, -1, -1, 0, -1}));
    std::vector<Point_2Dim<int>> whole{{8, 9}};
    document->getPoint2IVector(L"S", L"T", 1, 1, whole, L"");
    document->getPoint2IVector(L"S", L"P", 1, 1, whole, L"");
    EXPECT_EQ(whole, (std::vector<Point_2Dim<int>>{{8, 9}, {1, 2}, {-1000, -1000}}));
    std::vector<Point_2Dim<double>> flat;
    document->getPoint2DVector(L"S", L"T", 1, 2, flat, L"");
    EXPECT_EQ(flat, (std::vector<Point_2Dim<double>>{{1, 2}, {-1000, -1000}}));
    std::vector<Point_3Dim<double>> solid;
    document->getPoint3DVector(L"S", L"P", 2, 1, solid, L"");
    EXPECT_EQ(solid, (std::vector<Point_3Dim<double>>{{1, 2, 3}, {-1000, -1000, -1000}}));
}

TEST(VectorItems, AreRefusedWhenTooFew) {  // "diamensions" is misspelt on purpose, in three of the four
    ConfigInfo document;
    const Untouched before(document);
    EXPECT_EQ(messageOf([&] {
                  document.setDoubleVector(L"S", L"K", 2, 2, {1, 2, 3}, L"");
              }),
              L"Error: ConfigInfo::setDoubleVector: Passed buffer is too small to support dimensions");
    EXPECT_EQ(messageOf([&] { document.setPoint2DVector(L"S", L"K", 1, 1, {}, L""); }),
              L"Error: ConfigInfo::setPoint2DVector: Passed buffer is too small to support diamensions");
    EXPECT_EQ(messageOf([&] {
                  document.setPoint2IVector(L"S", L"K", 3, 1, {{1, 2}}, L"");
              }),
              L"Error: ConfigInfo::setPoint2IVector: Passed buffer is too small to support diamensions");
    EXPECT_EQ(messageOf([&] {
                  document.setPoint3DVector(L"S", L"K", 1, 2, {{1, 2, 3}}, L"");
              }),
              L"Error: ConfigInfo::setPoint3DVector: Passed buffer is too small to support diamensions");
    EXPECT_TRUE(before.unchanged());
}

TEST(VectorItems, IgnoreSurplusElements) {
    ConfigInfo document;
    document.setDoubleVector(L"S", L"K", 1, 1, {1, 2, 3}, L"");
    EXPECT_TRUE(document.doesItemExist(L"S", L"K_0_0", L""));
    EXPECT_FALSE(document.doesItemExist(L"S", L"K_1_0", L""));
    EXPECT_FALSE(document.doesItemExist(L"S", L"K_0_1", L""));
}

TEST(VectorItems, OfNoExtentWriteAndReadNothing) {
    ConfigInfo document;
    const Untouched before(document);
    std::vector<double> values{4};
    for (const auto& [n, m] : {std::pair{0, 5}, std::pair{5, 0}, std::pair{0, 0}}) {
        document.setDoubleVector(L"S", L"K", n, m, {1, 2}, L"");
        document.getDoubleVector(L"S", L"K", n, m, values, L"");
    }
    document.getDoubleVector(L"S", L"K", -1, 1, values, L"");
    document.getDoubleVector(L"S", L"K", 1, -1, values, L"");
    EXPECT_EQ(values, (std::vector<double>{4}));
    EXPECT_TRUE(before.unchanged());
}

TEST(VectorItems, CutTheirKeysAt127Characters) {
    const std::wstring key(126, L'K');
    ConfigInfo document;
    document.setDoubleVector(L"S", key, 2, 1, {1, 2}, L"");
    EXPECT_TRUE(document.doesItemExist(L"S", key + L"_", L""));
    EXPECT_FALSE(document.doesItemExist(L"S", key + L"_0_0", L""));
    std::vector<double> values;
    document.getDoubleVector(L"S", key, 2, 1, values, L"");
    EXPECT_EQ(values, (std::vector<double>{2, 2}));
    document.setDoubleVector(L"S", std::wstring(200, L'L'), 1, 1, {1}, L"");
    EXPECT_TRUE(document.doesItemExist(L"S", std::wstring(127, L'L'), L""));
}

}  // namespace storetests
