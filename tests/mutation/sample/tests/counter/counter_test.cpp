#include "counter/counter.h"
#include <gtest/gtest.h>

TEST(Counter, CountsToItsLimit) {
    TCounter counter(2);
    counter.Step();
    counter.Step();
    EXPECT_EQ(counter.GetCount(), 2);
}

TEST(Counter, TellsTheBitsOfANumber) {
    EXPECT_EQ(BitsOf(1), 1);
    EXPECT_EQ(BitsOf(5), 3);
}
