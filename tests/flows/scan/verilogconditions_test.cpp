#include "flows/scan/verilogconditions.h"
#include <gtest/gtest.h>

using TStep = TVerilogConditions::TStep;

TEST(VerilogConditions, AreOpenUntilOneIsCertainlyTaken) {
    const std::vector<TScanDefine> given = {{"YES", ""}};
    TVerilogDefines defines(given);
    TVerilogConditions conditions(&defines);
    EXPECT_EQ(conditions.If("A", true), TStep::Fork);
    EXPECT_FALSE(conditions.IsCertain());
    EXPECT_EQ(defines.Find("A"), TVerilogDefined::Yes);
    EXPECT_EQ(conditions.Elsif("B"), TStep::Turn);
    EXPECT_EQ(defines.Find("A"), TVerilogDefined::Maybe);
    EXPECT_EQ(conditions.Elsif("YES"), TStep::Turn);
    EXPECT_FALSE(conditions.IsSkipping());
    EXPECT_EQ(conditions.Else(), TStep::None);
    EXPECT_TRUE(conditions.IsSkipping());
    EXPECT_EQ(conditions.End(), TStep::Join);
    EXPECT_TRUE(conditions.IsCertain());
    EXPECT_EQ(conditions.Depth(), 0u);
}

TEST(VerilogConditions, AreDecidedByDefines) {
    const std::vector<TScanDefine> given = {{"YES", ""}};
    TVerilogDefines defines(given);
    TVerilogConditions conditions(&defines);
    EXPECT_EQ(conditions.If("YES", false), TStep::None);
    EXPECT_TRUE(conditions.IsSkipping());
    EXPECT_EQ(conditions.If("A", true), TStep::None);
    EXPECT_TRUE(conditions.IsSkipping());
    EXPECT_EQ(conditions.End(), TStep::None);
    EXPECT_EQ(conditions.Else(), TStep::None);
    EXPECT_FALSE(conditions.IsSkipping());
    EXPECT_TRUE(conditions.IsCertain());
    EXPECT_EQ(conditions.End(), TStep::None);
    EXPECT_EQ(conditions.End(), TStep::None);
    EXPECT_EQ(conditions.Else(), TStep::None);
    EXPECT_EQ(conditions.Elsif("YES"), TStep::None);
}
