#include "flows/plan/toolwords.h"
#include <gtest/gtest.h>

using TWords = std::vector<std::string>;

TEST(ToolWords, AreKnownByTheirBeginnings) {
    EXPECT_TRUE(BeginsWithOne("-Wall", kWordsOfIcarus));
    EXPECT_TRUE(BeginsWithOne("-Wall", kWordsOfVerilator));
    EXPECT_FALSE(BeginsWithOne("--trace", kWordsOfIcarus));
    EXPECT_TRUE(BeginsWithOne("--trace", kWordsOfVerilator));
    EXPECT_TRUE(BeginsWithOne("+seed=1", kWordsWithPlus));
    EXPECT_FALSE(BeginsWithOne("", kWordsOfGhdl));
}

TEST(ToolWords, KeepTheirOperands) {
    EXPECT_EQ(WithOperands({"a", "b", "-P", "c=1", "+d", "--e", "f", "g"}),
              (std::vector<TWords>{{"a", "b"}, {"-P", "c=1"}, {"+d"}, {"--e", "f", "g"}}));
    EXPECT_EQ(WithOperands({}), std::vector<TWords>());
}
