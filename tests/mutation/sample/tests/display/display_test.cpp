#include "display/display.h"
#include <gtest/gtest.h>

TEST(Display, TellsWhereTheCounterIs) {
    TCounter counter(1);
    EXPECT_EQ(TextOf(counter, 1), "0");
    counter.Step();
    EXPECT_EQ(TextOf(counter, 1), "1full");
    counter.Step();
    EXPECT_EQ(TextOf(counter, 1), "0");
}
