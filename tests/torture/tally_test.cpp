#include "tests/torture/tally.h"
#include "tests/support/environmentvariable.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

TEST(Tally, AddsItsCountsToTheTable) {
    const TemporaryFolder folder;
    const EnvironmentVariable table("HDLBUILDFILE_TORTURE_TABLE", folder.Write("t", "a\t1\t1\n"));
    {
        TTally tally("b c");
        EXPECT_TRUE(tally.Count(true));
        EXPECT_FALSE(tally.Count(false));
        EXPECT_TRUE(tally.Count(true));
        EXPECT_EQ(tally.GetTries(), 3u);
        EXPECT_EQ(tally.GetSurvived(), 2u);
    }
    { const TTally none("d"); }
    EXPECT_EQ(folder.Read("t"), "a\t1\t1\nb c\t3\t2\nd\t0\t0\n");
}

TEST(Tally, TakesTheFullFormWhenTheEnvironmentAsksForIt) {
    const struct {
        const char* Value;
        bool IsFull;
    } rows[] = {{"full", true}, {"", false}, {"FULL", false}};
    for (const auto& row : rows) {
        const EnvironmentVariable torture("HDLBUILDFILE_TORTURE", row.Value);
        EXPECT_EQ(IsFullTorture(), row.IsFull) << row.Value;
        EXPECT_EQ(OfTorture(3, 40), row.IsFull ? 40u : 3u) << row.Value;
    }
}
