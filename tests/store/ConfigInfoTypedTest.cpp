#include <climits>
#include <cmath>
#include <limits>

#include "store/TextForms.h"
#include "tests/store/StoreSupport.h"

namespace storetests {

namespace {

const double infinity = std::numeric_limits<double>::infinity();

}  // namespace

TEST(BoolItem, IsStoredAsTrueOrFalse) {
    ConfigInfo document;
    document.setBoolItem(L"S", L"A", true, L"1");
    document.setBoolItem(L"S", L"B", false, L"1");
    EXPECT_EQ(get(document, L"S", L"A", L"1"), L"true");
    EXPECT_EQ(get(document, L"S", L"B", L"1"), L"false");
    EXPECT_TRUE(document.getBoolItem(L"S", L"A", false, L"1"));
    EXPECT_FALSE(document.getBoolItem(L"S", L"B", true, L"1"));
}

TEST(BoolItem, ReadsTenWordsInAnyCase) {
    for (const wchar_t* text : {L"true", L"t", L"1", L"yes", L"y", L"TRUE", L"True", L"T", L"YES", L"Yes", L"Y", L"tRuE"})
        EXPECT_TRUE(holding(text)->getBoolItem(L"S", L"A", false, L"")) << text;
    for (const wchar_t* text : {L"false", L"f", L"0", L"no", L"n", L"FALSE", L"False", L"F", L"NO", L"No", L"N"})
        EXPECT_FALSE(holding(text)->getBoolItem(L"S", L"A", true, L"")) << text;
}

TEST(BoolItem, GivesTheDefaultForEveryOtherText) {
    for (const wchar_t* text : {L"", L" true", L"true ", L"2", L"-1", L"on", L"off", L"truee", L"\n1", L"01", L"ye"}) {
        const Document document = holding(text);
        EXPECT_TRUE(document->getBoolItem(L"S", L"A", true, L"")) << text;
        EXPECT_FALSE(document->getBoolItem(L"S", L"A", false, L"")) << text;
    }
    const ConfigInfo empty;
    EXPECT_TRUE(empty.getBoolItem(L"S", L"A", true, L""));
    EXPECT_FALSE(empty.getBoolItem(L"S", L"A", false, L""));
}

TEST(IntegerItem, IsStoredInDecimal) {
    ConfigInfo document;
    const std::pair<int, const wchar_t*> rows[] = {
        {0, L"0"}, {42, L"42"}, {-7, L"-7"}, {INT_MAX, L"2147483647"}, {INT_MIN, L"-2147483648"}};
    for (const auto& [value, text] : rows) {
        document.setIntegerItem(L"S", L"A", value, L"");
        EXPECT_EQ(get(document, L"S", L"A"), text);
        EXPECT_EQ(document.getIntegerItem(L"S", L"A", 5, L""), value);
    }
}

TEST(IntegerItem, IsTheLongestLeadingNumber) {
    const std::pair<const wchar_t*, int> rows[] = {{L"12abc", 12},
                                                   {L"abc", 0},
                                                   {L"", 0},
                                                   {L"  42", 42},
                                                   {L"\t\n\r -7 8", -7},
                                                   {L"+5", 5},
                                                   {L"007", 7},
                                                   {L"1.9", 1},
                                                   {L"1e3", 1},
                                                   {L"0x10", 0},
                                                   {L"- 5", 0},
                                                   {L"--5", 0},
                                                   {L"nan", 0},
                                                   {L"inf", 0},
                                                   {L"2147483647", INT_MAX},
                                                   {L"2147483648", INT_MAX},
                                                   {L"99999999999999999999999", INT_MAX},
                                                   {L"-2147483648", INT_MIN},
                                                   {L"-2147483649", INT_MIN},
                                                   {L"-99999999999999999999999", INT_MIN}};
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(holding(text)->getIntegerItem(L"S", L"A", 99, L""), expected) << text;
}

TEST(IntegerItem, GivesTheDefaultOnlyWhenMissing) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A>3<B>4</B></A></S></ConfigInfo>");
    EXPECT_EQ(document->getIntegerItem(L"S", L"X", 99, L"1"), 99);
    EXPECT_EQ(document->getIntegerItem(L"S", L"A", 99, L"2"), 99);
    EXPECT_EQ(document->getIntegerItem(L"X", L"A", 99, L""), 99);
    EXPECT_EQ(document->getIntegerItem(L"S", L"A", 99, L"1"), 34);
    EXPECT_EQ(document->getIntegerItem(L"S", L"A|B", 99, L"1"), 4);
    EXPECT_FALSE(document->isDirty());
}

TEST(DoubleItem, IsStoredWithSixteenDigits) {
    const std::pair<double, const wchar_t*> rows[] = {{1.5, L"1.500000000000000e+00"},
                                                      {0.1, L"1.000000000000000e-01"},
                                                      {0.0, L"0.000000000000000e+00"},
                                                      {-0.0, L"-0.000000000000000e+00"},
                                                      {-1234.5, L"-1.234500000000000e+03"},
                                                      {1e300, L"1.000000000000000e+300"},
                                                      {1e-300, L"1.000000000000000e-300"},
                                                      {1.0 / 3.0, L"3.333333333333333e-01"},
                                                      {std::numeric_limits<double>::max(), L"1.797693134862316e+308"},
                                                      {infinity, L"inf"},
                                                      {-infinity, L"-inf"},
                                                      {std::numeric_limits<double>::quiet_NaN(), L"nan"}};
    for (const auto& [value, text] : rows) {
        ConfigInfo document;
        document.setDoubleItem(L"S", L"A", value, L"");
        EXPECT_EQ(get(document, L"S", L"A"), text);
    }
}

TEST(DoubleItem, ReadsBackWhatWasStored) {
    ConfigInfo document;
    for (const double value : {0.1, 1.5, -2.25, 1e22, 5e-324, 3.0, -0.0, infinity, -infinity}) {
        document.setDoubleItem(L"S", L"A", value, L"");
        const double read = reloaded(document)->getDoubleItem(L"S", L"A", 99, L"");
        EXPECT_EQ(read, value);
        EXPECT_EQ(std::signbit(read), std::signbit(value));
    }
    document.setDoubleItem(L"S", L"A", std::nan(""), L"");
    EXPECT_TRUE(std::isnan(document.getDoubleItem(L"S", L"A", 99, L"")));
}

TEST(DoubleItem, IsTheLongestLeadingNumber) {
    const std::pair<const wchar_t*, double> rows[] = {{L"1.5", 1.5},
                                                      {L" \t\n1.5 2", 1.5},
                                                      {L"1,5", 1.0},
                                                      {L"1e3", 1000.0},
                                                      {L"1E+3x", 1000.0},
                                                      {L"1e", 1.0},
                                                      {L"1e+", 1.0},
                                                      {L".5", 0.5},
                                                      {L"5.", 5.0},
                                                      {L"-.5e-1x", -0.05},
                                                      {L"+2", 2.0},
                                                      {L".", 0.0},
                                                      {L"-", 0.0},
                                                      {L"e5", 0.0},
                                                      {L"abc", 0.0},
                                                      {L"", 0.0},
                                                      {L"0x10", 0.0},
                                                      {L"1d5", 1.0},
                                                      {L"inf", infinity},
                                                      {L"-INF", -infinity},
                                                      {L"Infinity", infinity},
                                                      {L"+infinit", infinity},
                                                      {L"1e999", infinity},
                                                      {L"-1e999", -infinity},
                                                      {L"1e-999", 0.0},
                                                      {L"1.5.5", 1.5},
                                                      {L"--1", 0.0},
                                                      {L"1 000", 1.0},
                                                      {L"i", 0.0},
                                                      {L"n", 0.0}};
    for (const auto& [text, expected] : rows) EXPECT_EQ(holding(text)->getDoubleItem(L"S", L"A", 99, L""), expected) << text;
    for (const wchar_t* text : {L"nan", L"NaN", L"-nan", L"+NAN"})
        EXPECT_TRUE(std::isnan(holding(text)->getDoubleItem(L"S", L"A", 99, L""))) << text;
}

TEST(DoubleItem, GivesTheDefaultOnlyWhenMissing) {
    const Document document = load("<ConfigInfo><S ID=\"1\"><A>3<B>.5</B></A></S></ConfigInfo>");
    EXPECT_EQ(document->getDoubleItem(L"S", L"X", 99.5, L"1"), 99.5);
    EXPECT_EQ(document->getDoubleItem(L"S", L"A", 99.5, L"2"), 99.5);
    EXPECT_EQ(document->getDoubleItem(L"X", L"A", 99.5, L""), 99.5);
    EXPECT_EQ(document->getDoubleItem(L"S", L"A", 99.5, L"1"), 3.5);
    EXPECT_FALSE(document->isDirty());
}

TEST(TypedItems, AreDirtyOnlyWhenTheTextChanges) {
    ConfigInfo document;
    const auto setAll = [&document](int n) {
        document.setBoolItem(L"S", L"Bool", n == 1, L"");
        document.setIntegerItem(L"S", L"Integer", n, L"");
        document.setDoubleItem(L"S", L"Double", n, L"");
        document.setPoint2IItem(L"S", L"P2I", {n, 0}, L"");
        document.setPoint2DItem(L"S", L"P2D", {0.0, static_cast<double>(n)}, L"");
        document.setPoint3DItem(L"S", L"P3D", {0, 0, static_cast<double>(n)}, L"");
        document.setFrustum(L"S", L"F", Frustum({0, 0, 0}, {0, 0, 0}, 0, 0, 0, 0, 0, n), L"");
        document.setPondOfMirrors(L"S", L"M", {0, 0, 0, static_cast<std::uint8_t>(n)}, L"");
        document.setDoubleVector(L"S", L"V", 1, 1, {static_cast<double>(n)}, L"");
    };
    setAll(1);
    document.setDirty(false);
    setAll(1);
    EXPECT_FALSE(document.isDirty());
    document.setIntegerItem(L"S", L"Integer", 2, L"");
    EXPECT_TRUE(document.isDirty());
}

TEST(TypedItems, EqualInValueButNotInTextAreRewritten) {
    const Document document = load("<ConfigInfo><S><A>1.5</A></S></ConfigInfo>");
    document->setDoubleItem(L"S", L"A", 1.5, L"");
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(get(*document, L"S", L"A"), L"1.500000000000000e+00");
}

TEST(TypedItems, DoNotCutTheCallersKeyElsewhere) {
    const std::wstring key(200, L'K');
    ConfigInfo document;
    document.setIntegerItem(L"S", key, 1, L"");
    EXPECT_TRUE(document.doesItemExist(L"S", key, L""));
}

TEST(TextForms, AreWhatTheSettersStore) {
    namespace detail = XMLConfig::detail;
    EXPECT_EQ(detail::textOf(true), L"true");
    EXPECT_EQ(detail::textOf(false), L"false");
    EXPECT_EQ(detail::textOf(-12), L"-12");
    EXPECT_EQ(detail::textOf(1.5), L"1.500000000000000e+00");
    EXPECT_EQ(detail::textOf(Point_2Dim<int>(1, -2)), L"1, -2");
    EXPECT_EQ(detail::textOf(Point_2Dim<double>(1, -2)), L"1.000000000000000e+00, -2.000000000000000e+00");
    EXPECT_EQ(detail::textOf(Point_3Dim<double>(0, 0.5, -2)),
              L"0.000000000000000e+00, 5.000000000000000e-01, -2.000000000000000e+00");
}

}  // namespace storetests
