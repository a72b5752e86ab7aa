#include "manager/upgrade/MostFrequent.h"

#include <limits>

#include <gtest/gtest.h>

using XMLConfig::detail::mostFrequent;

namespace {

// Counts how often it is compared.
struct Counted {
    int value;
    static std::size_t comparisons;

    friend bool isSame(const Counted& left, const Counted& right) { return ++comparisons, left.value == right.value; }
    friend bool isBefore(const Counted& left, const Counted& right) { return ++comparisons, left.value < right.value; }
};
std::size_t Counted::comparisons = 0;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

}  // namespace

TEST(MostFrequent, IsTheValueMetFirstOnATie) {
    EXPECT_EQ(mostFrequent(std::vector<int>{7}), 7);
    EXPECT_EQ(mostFrequent(std::vector<int>{3, 1, 2, 1, 2}), 1);
    EXPECT_EQ(mostFrequent(std::vector<Point_2Dim<int>>{{1, 2}, {2, 1}, {2, 1}}), (Point_2Dim<int>{2, 1}));
    EXPECT_EQ(mostFrequent(std::vector<Point_2Dim<int>>{{1, 2}, {1, 1}}), (Point_2Dim<int>{1, 2}));
}

TEST(MostFrequent, IsFoundWhateverTheOrderOfTheValues) {
    EXPECT_EQ(mostFrequent(std::vector<int>{2, 1, 3, 1}), 1);
    EXPECT_EQ(mostFrequent(std::vector<double>{2.0, 1.0, 3.0, 1.0}), 1.0);
    EXPECT_EQ(mostFrequent(std::vector<Point_2Dim<int>>{{2, 2}, {2, 1}, {1, 3}, {3, 0}, {2, 3}, {2, 1}}),
              (Point_2Dim<int>{2, 1}));
}

TEST(MostFrequent, NearValueBelongsToTheEarliestFounder) {
    // The third lies near both, the second not near the first.
    EXPECT_EQ(mostFrequent(std::vector<double>{1.0, 1.00000000015, 1.00000000008, 9.0}), 1.0);
    EXPECT_EQ(mostFrequent(std::vector<double>{1.00000000015, 1.0, 1.00000000008, 9.0}), 1.00000000015);
    // The third is near the second alone, which founded nothing.
    EXPECT_EQ(mostFrequent(std::vector<double>{1.0, 1.00000000008, 1.00000000016, 1.00000000016}), 1.0);
    EXPECT_EQ(mostFrequent(std::vector<double>{1.0, 1.00000000016, 1.00000000016}), 1.00000000016);
}

TEST(MostFrequent, WhatIsNotTheSameAsItselfStandsAlone) {
    EXPECT_EQ(mostFrequent(std::vector<double>{notANumber, notANumber, infinity, infinity, 2.0, notANumber, 3.0, 2.0}), 2.0);
    EXPECT_TRUE(std::isnan(mostFrequent(std::vector<double>{notANumber, 2.0, infinity})));
}

TEST(MostFrequent, ManyDifferentValuesAreNotComparedWithAllOthers) {
    constexpr int count = 10000;
    std::vector<Counted> values;
    for (int i = 0; i < count; ++i) values.push_back({(i * 7919) % count});
    Counted::comparisons = 0;
    EXPECT_EQ(mostFrequent(values).value, 0);
    EXPECT_LT(Counted::comparisons, 60u * count);
}
