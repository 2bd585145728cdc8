#include "services/base/rope.h"
#include <gtest/gtest.h>

TEST(Rope, TakesNullForTheEmptyText) {
    const TRope null(nullptr);
    EXPECT_EQ(null.Str(), "");
    EXPECT_TRUE(null.IsEmpty());
    EXPECT_EQ(null.Length(), 0u);
    EXPECT_TRUE(null == TRope());
}

TEST(Rope, HoldsAndComparesBytes) {
    const TRope rope("ab");
    EXPECT_STREQ(rope.c_str(), "ab");
    EXPECT_EQ(rope.Length(), 2u);
    EXPECT_FALSE(rope.IsEmpty());
    EXPECT_TRUE(rope == TRope(std::string("ab")));
    EXPECT_FALSE(rope == TRope("aB"));
    EXPECT_TRUE(TRope("aB") < rope);
}
