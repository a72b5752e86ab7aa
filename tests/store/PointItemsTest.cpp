#include <climits>
#include <limits>

#include "tests/store/StoreSupport.h"

namespace storetests {

namespace {

const Point_2Dim<int> noPoint2I(-7, -8);
const Point_2Dim<double> noPoint2D(-7.5, -8.5);
const Point_3Dim<double> noPoint3D(-7.5, -8.5, -9.5);

}  // namespace

TEST(PointItems, AreStoredJoinedByCommaAndBlank) {
    ConfigInfo document;
    document.setPoint2IItem(L"S", L"I", {3, -4}, L"1");
    document.setPoint2DItem(L"S", L"D", {1.5, -0.1}, L"1");
    document.setPoint3DItem(L"S", L"T", {1.5, 2.5, -3e-7}, L"1");
    EXPECT_EQ(get(document, L"S", L"I", L"1"), L"3, -4");
    EXPECT_EQ(get(document, L"S", L"D", L"1"), L"1.500000000000000e+00, -1.000000000000000e-01");
    EXPECT_EQ(get(document, L"S", L"T", L"1"), L"1.500000000000000e+00, 2.500000000000000e+00, -3.000000000000000e-07");
    EXPECT_EQ(document.getPoint2IItem(L"S", L"I", noPoint2I, L"1"), Point_2Dim<int>(3, -4));
    EXPECT_EQ(document.getPoint2DItem(L"S", L"D", noPoint2D, L"1"), Point_2Dim<double>(1.5, -0.1));
    EXPECT_EQ(document.getPoint3DItem(L"S", L"T", noPoint3D, L"1"), Point_3Dim<double>(1.5, 2.5, -3e-7));
}

TEST(PointItems, OfTheGreatestLengthAreNotCut) {
    const double most = -std::numeric_limits<double>::max();
    ConfigInfo document;
    document.setPoint3DItem(L"S", L"T", {most, most, most}, L"");
    EXPECT_EQ(get(document, L"S", L"T"), L"-1.797693134862316e+308, -1.797693134862316e+308, -1.797693134862316e+308");
    document.setPoint2IItem(L"S", L"I", {INT_MIN, INT_MIN}, L"");
    EXPECT_EQ(get(document, L"S", L"I"), L"-2147483648, -2147483648");
}

TEST(Point2IItem, WantsExactlyTwoTokens) {
    for (const wchar_t* text : {L"3 4", L"3,4", L"3, 4", L"\t3\n4 ", L",,3,,4,,", L"3.9 4x", L"3\t4"})
        EXPECT_EQ(holding(text)->getPoint2IItem(L"S", L"A", noPoint2I, L""), Point_2Dim<int>(3, 4)) << text;
    for (const wchar_t* text : {L"", L"3", L"3, 4, 5", L"3;4", L" ,"})
        EXPECT_EQ(holding(text)->getPoint2IItem(L"S", L"A", noPoint2I, L""), noPoint2I) << text;
    EXPECT_EQ(holding(L"a b")->getPoint2IItem(L"S", L"A", noPoint2I, L""), Point_2Dim<int>(0, 0));
    EXPECT_EQ(holding(L"9999999999 -9999999999")->getPoint2IItem(L"S", L"A", noPoint2I, L""),
              Point_2Dim<int>(INT_MAX, INT_MIN));
    EXPECT_EQ(ConfigInfo().getPoint2IItem(L"S", L"A", noPoint2I, L""), noPoint2I);
}

TEST(Point2DItem, WantsExactlyTwoTokens) {
    for (const wchar_t* text : {L"1.5\t2.5", L"1.5,2.5", L" 1.5 , 2.5z"})
        EXPECT_EQ(holding(text)->getPoint2DItem(L"S", L"A", noPoint2D, L""), Point_2Dim<double>(1.5, 2.5)) << text;
    for (const wchar_t* text : {L"", L"1.5", L"3, 4, 5"})
        EXPECT_EQ(holding(text)->getPoint2DItem(L"S", L"A", noPoint2D, L""), noPoint2D) << text;
    EXPECT_EQ(holding(L"x y")->getPoint2DItem(L"S", L"A", noPoint2D, L""), Point_2Dim<double>(0, 0));
    EXPECT_EQ(ConfigInfo().getPoint2DItem(L"S", L"A", noPoint2D, L""), noPoint2D);
}

TEST(Point3DItem, WantsExactlyThreeTokens) {
    for (const wchar_t* text : {L"1.5 2.5 3.5", L"1.5,2.5,3.5", L"1.5\n2.5\t3.5,"})
        EXPECT_EQ(holding(text)->getPoint3DItem(L"S", L"A", noPoint3D, L""), Point_3Dim<double>(1.5, 2.5, 3.5)) << text;
    for (const wchar_t* text : {L"", L"1", L"1 2", L"1 2 3 4"})
        EXPECT_EQ(holding(text)->getPoint3DItem(L"S", L"A", noPoint3D, L""), noPoint3D) << text;
    EXPECT_EQ(ConfigInfo().getPoint3DItem(L"S", L"A", noPoint3D, L""), noPoint3D);
}

}  // namespace storetests
