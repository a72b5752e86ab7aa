#include "sections/AxisDistortionCorrection.h"

#include <gtest/gtest.h>

#include <ios>
#include <limits>

#include "tests/support/GermanLocale.h"

using namespace AxisDistortionCorrection;

namespace {

using Table = std::vector<std::pair<double, double>>;

const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinity = std::numeric_limits<double>::infinity();
const int fixedNotation = static_cast<int>(std::ios_base::fixed);
const int scientificNotation = static_cast<int>(std::ios_base::scientific);

std::string serialized(const Table& table, int flags, long long precision) {
    std::string text = "what was there before";
    serializeTableToDelimitedString(text, table, flags, precision);
    return text;
}

Table deserialized(const std::string& text, Table table = {}) {
    deserializeTableFromDelimitedString(table, text);
    return table;
}

struct Cleaned {
    bool usable;
    Table table;
};
Cleaned cleaned(const Table& in, Table out = {}, double minValue = -90.0, double maxValue = 90.0) {
    const bool usable = cleanData(out, in, minValue, maxValue);
    return {usable, out};
}

}  // namespace

TEST(AxisDistortionCorrection, LimitsAreThoseOfTheAxes) {
    EXPECT_EQ(minValueInDegreesPitch(), -90.0);
    EXPECT_EQ(maxValueInDegreesPitch(), 90.0);
    EXPECT_EQ(minValueInDegreesYaw(), -180.0);
    EXPECT_EQ(maxValueInDegreesYaw(), 180.0);
}

TEST(AxisDistortionCorrection, FixedNotationKeepsThePrecision) {
    EXPECT_EQ(serialized({{-90, -90}, {0, 1.5}, {90, 90}}, fixedNotation, 2), "-90.00\t-90.00\n0.00\t1.50\n90.00\t90.00");
}

TEST(AxisDistortionCorrection, ScientificNotationKeepsThePrecision) {
    EXPECT_EQ(serialized({{-90, 0.125}}, scientificNotation, 15), "-9.000000000000000e+01\t1.250000000000000e-01");
}

TEST(AxisDistortionCorrection, DefaultNotationIsGeneral) {
    EXPECT_EQ(serialized({{1.5, 1e-9}, {123456.75, 2}}, 0, 6), "1.5\t1e-09\n123457\t2");
}

TEST(AxisDistortionCorrection, FlagsAreAddedToTheDefaultOnes) {
    EXPECT_EQ(serialized({{1, -2}}, fixedNotation | static_cast<int>(std::ios_base::showpos), 1), "+1.0\t-2.0");
}

TEST(AxisDistortionCorrection, EmptyTableReplacesTextByNothing) { EXPECT_EQ(serialized({}, fixedNotation, 2), ""); }

TEST(AxisDistortionCorrection, GlobalLocaleChangesNoForm) {
    const GermanLocale german;
    EXPECT_EQ(serialized({{12345.5, -0.25}}, fixedNotation, 2), "12345.50\t-0.25");
    EXPECT_EQ(deserialized("12345.50\t-0.25"), (Table{{12345.5, -0.25}}));
}

TEST(AxisDistortionCorrection, WrittenTableReadsBack) {
    const Table table{{-180, -179.875}, {0.1, 1.0 / 3.0}, {180, 180}};
    EXPECT_EQ(deserialized(serialized(table, scientificNotation, 17)), table);
}

TEST(AxisDistortionCorrection, NonFiniteNumbersReadBack) {
    const Table table = deserialized(serialized({{-infinity, infinity}, {notANumber, 1}}, scientificNotation, 15));
    ASSERT_EQ(table.size(), 2u);
    EXPECT_EQ(table[0], std::make_pair(-infinity, infinity));
    EXPECT_NE(table[1].first, table[1].first);
    EXPECT_EQ(table[1].second, 1.0);
}

TEST(AxisDistortionCorrection, AnySeparatorsServeAndAnOddTokenIsIgnored) {
    EXPECT_EQ(deserialized("1,2 3\t4\n5"), (Table{{1, 2}, {3, 4}}));
}

TEST(AxisDistortionCorrection, LeadingAndTrailingSeparatorsAreNoTokens) {
    EXPECT_EQ(deserialized(" ,\n\t1,,2\t \n3, 4,\n\t\t"), (Table{{1, 2}, {3, 4}}));
}

TEST(AxisDistortionCorrection, FewerThanTwoTokensLeaveTheTable) {
    EXPECT_EQ(deserialized("7", {{8, 9}}), (Table{{8, 9}}));
    EXPECT_EQ(deserialized("", {{8, 9}}), (Table{{8, 9}}));
    EXPECT_EQ(deserialized(" \t\n,", {{8, 9}}), (Table{{8, 9}}));
}

TEST(AxisDistortionCorrection, PairsAreAppended) { EXPECT_EQ(deserialized("1 2", {{8, 9}}), (Table{{8, 9}, {1, 2}})); }

TEST(AxisDistortionCorrection, WhatIsNoNumberReadsZero) {
    EXPECT_EQ(deserialized("abc 1.5deg 0x10 -"), (Table{{0.0, 1.5}, {0.0, 0.0}}));
}

TEST(AxisDistortionCorrection, IllFormedUtf8HoldsNoPairs) {
    EXPECT_EQ(deserialized("1 2 \xff 3", {{8, 9}}), (Table{{8, 9}}));
    EXPECT_EQ(deserialized("1 2 \xc3"), Table{});
}

TEST(AxisDistortionCorrection, OtherBlanksSeparateNothing) {
    EXPECT_EQ(deserialized("1\xc2\xa0"
                           "2 3"),
              (Table{{1, 3}}));
    EXPECT_EQ(deserialized("1;2 3\r\n4 5"), (Table{{1, 3}, {4, 5}}));
}

TEST(CleanData, BothAnchorsAreAdded) {
    const Cleaned result = cleaned({{0, 0.5}});
    EXPECT_TRUE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, -90}, {0, 0.5}, {90, 90}}));
}

TEST(CleanData, ClampedPairServesAsTheLowerAnchor) {
    const Cleaned result = cleaned({{-95, -91}, {10, 12}});
    EXPECT_TRUE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, -90}, {10, 12}, {90, 90}}));
}

TEST(CleanData, TwoPairsBeyondOneLimitMakeItUnusable) {
    const Cleaned result = cleaned({{-100, 5}, {-95, 6}});
    EXPECT_FALSE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, 5}, {-90, 6}, {90, 90}}));
}

TEST(CleanData, EmptyInputAddsNothing) {
    EXPECT_TRUE(cleaned({}).usable);
    EXPECT_EQ(cleaned({}).table, Table{});
    EXPECT_TRUE(cleaned({}, {{5, 1}, {4, 1}}).usable);
    EXPECT_EQ(cleaned({}, {{5, 1}, {4, 1}}).table, (Table{{5, 1}, {4, 1}}));
}

TEST(CleanData, PairsBeyondTheUpperLimitAreClamped) {
    const Cleaned result = cleaned({{95, 120}, {-10, -8}});
    EXPECT_TRUE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, -90}, {-10, -8}, {90, 90}}));
}

TEST(CleanData, PairsAreSorted) {
    const Cleaned result = cleaned({{20, 2}, {-20, -2}, {0, 0}});
    EXPECT_TRUE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, -90}, {-20, -2}, {0, 0}, {20, 2}, {90, 90}}));
}

TEST(CleanData, EqualAnglesAreSortedByTheCorrectedOneAndUnusable) {
    const Cleaned result = cleaned({{10, 7}, {10, 5}});
    EXPECT_FALSE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, -90}, {10, 5}, {10, 7}, {90, 90}}));
}

TEST(CleanData, FallingCorrectionIsUnusable) {
    const Cleaned result = cleaned({{10, 7}, {20, 5}});
    EXPECT_FALSE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, -90}, {10, 7}, {20, 5}, {90, 90}}));
}

TEST(CleanData, EqualCorrectionsAreUnusable) { EXPECT_FALSE(cleaned({{10, 7}, {20, 7}}).usable); }

TEST(CleanData, CorrectionAtTheLimitCollidesWithTheAnchor) {
    const Cleaned result = cleaned({{10, 95}});
    EXPECT_FALSE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, -90}, {10, 90}, {90, 90}}));
}

TEST(CleanData, AngleNearTheLimitServesAsAnAnchor) {
    EXPECT_EQ(cleaned({{-89.99995, -89}, {89.99995, 89}}).table, (Table{{-89.99995, -89}, {89.99995, 89}}));
    EXPECT_EQ(cleaned({{-89.9998, -89}, {89.9998, 89}}).table,
              (Table{{-90, -90}, {-89.9998, -89}, {89.9998, 89}, {90, 90}}));
}

TEST(CleanData, AnchorNeedsTheSignOfItsLimit) {
    EXPECT_EQ(cleaned({{90, 90}}).table, (Table{{-90, -90}, {90, 90}}));
    EXPECT_EQ(cleaned({{-90, -90}}).table, (Table{{-90, -90}, {90, 90}}));
    EXPECT_EQ(cleaned({{0, 0}}, {}, 0.0, 0.0).table, (Table{{0, 0}, {0, 0}, {0, 0}}));
}

TEST(CleanData, YawLimitsServeAsWell) {
    const Cleaned result = cleaned({{-200, -170}, {200, 170}}, {}, minValueInDegreesYaw(), maxValueInDegreesYaw());
    EXPECT_TRUE(result.usable);
    EXPECT_EQ(result.table, (Table{{-180, -170}, {180, 170}}));
}

TEST(CleanData, WhatTheOutputHeldBecomesPartOfTheTable) {
    const Cleaned result = cleaned({{0, 0.5}}, {{50, 51}});
    EXPECT_TRUE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, -90}, {0, 0.5}, {50, 51}, {90, 90}}));
}

TEST(CleanData, NaNIsUnusableAndSortsAfterNumbers) {
    Table in;
    for (int i = 0; i < 40; ++i) in.emplace_back(i % 3 == 0 ? notANumber : 40.0 - i, i);
    const Cleaned result = cleaned(in);
    EXPECT_FALSE(result.usable);
    ASSERT_EQ(result.table.size(), in.size() + 2);
    EXPECT_EQ(result.table.front(), std::make_pair(-90.0, -90.0));
    EXPECT_EQ(result.table.back(), std::make_pair(90.0, 90.0));
    EXPECT_EQ(result.table[26].first, 39.0);
    EXPECT_NE(result.table[27].first, result.table[27].first);
    EXPECT_FALSE(cleaned({{0, notANumber}}).usable);
}

TEST(CleanData, InfinitiesAreClamped) {
    const Cleaned result = cleaned({{-infinity, -infinity}, {infinity, infinity}});
    EXPECT_TRUE(result.usable);
    EXPECT_EQ(result.table, (Table{{-90, -90}, {90, 90}}));
}
