#include "bench/runner/comparison.h"
#include <gtest/gtest.h>

TEST(Comparison, TakesTheMediansAndTheSpreadOfTheRatios) {
    const TComparison odd = Compare({{30, 10}, {10, 10}, {40, 20}});
    EXPECT_EQ(odd.Ours, 30);
    EXPECT_EQ(odd.Anchor, 10);
    EXPECT_EQ(odd.Ratio, 2);
    EXPECT_EQ(odd.Lowest, 1);
    EXPECT_EQ(odd.Highest, 3);
}

TEST(Comparison, TakesTheMiddleOfAnEvenNumber) {
    const TComparison even = Compare({{8, 1}, {2, 1}, {6, 1}, {3, 1}});
    EXPECT_EQ(even.Ours, 4.5);
    EXPECT_EQ(even.Ratio, 4.5);
    EXPECT_EQ(even.Lowest, 2);
    EXPECT_EQ(even.Highest, 8);
}

TEST(Comparison, TakesRatiosPairByPair) {
    // The medians of the sides are equal, yet ours took twice as long in most pairs.
    const TComparison figures = Compare({{2, 1}, {4, 2}, {1, 4}});
    EXPECT_EQ(figures.Ours, figures.Anchor);
    EXPECT_EQ(figures.Ratio, 2);
}
