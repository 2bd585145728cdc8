#include "flows/scan/verilogdefines.h"
#include <gtest/gtest.h>

TEST(VerilogDefines, TellWhatIsKnown) {
    const std::vector<TScanDefine> given = {{"GIVEN", "text"}, {"EMPTY", ""}};
    TVerilogDefines defines(given);
    EXPECT_EQ(defines.Find("GIVEN"), TVerilogDefined::Yes);
    EXPECT_EQ(defines.FindText("GIVEN"), "text");
    EXPECT_FALSE(defines.IsEmpty("GIVEN"));
    EXPECT_TRUE(defines.IsEmpty("EMPTY"));
    EXPECT_EQ(defines.Find("OTHER"), TVerilogDefined::Maybe);
    EXPECT_FALSE(defines.IsEmpty("OTHER"));
    defines.Define("F", "x", true);
    EXPECT_EQ(defines.Find("F"), TVerilogDefined::Yes);
    EXPECT_EQ(defines.FindText("F"), "");
    EXPECT_FALSE(defines.IsEmpty("F"));
    defines.Assume("GIVEN", TVerilogDefined::No);
    EXPECT_EQ(defines.Find("GIVEN"), TVerilogDefined::No);
    defines.Forget();
    EXPECT_EQ(defines.Find("GIVEN"), TVerilogDefined::Maybe);
}

TEST(VerilogDefines, ForgetWhatDiffersBehindACondition) {
    const std::vector<TScanDefine> given;
    TVerilogDefines defines(given);
    defines.Define("SAME", "a", false);
    defines.Define("TEXT", "a", false);
    defines.Define("GONE", "a", false);
    const std::size_t begun = defines.Begin();
    defines.Define("SAME", "a", false);
    defines.Define("TEXT", "b", false);
    defines.Assume("GONE", TVerilogDefined::No);
    defines.Define("NEW", "a", false);
    EXPECT_EQ(defines.FindText("TEXT"), "b");
    defines.End(begun);
    EXPECT_EQ(defines.FindText("SAME"), "a");
    EXPECT_EQ(defines.Find("TEXT"), TVerilogDefined::Yes);
    EXPECT_EQ(defines.FindText("TEXT"), "");
    EXPECT_EQ(defines.Find("GONE"), TVerilogDefined::Maybe);
    EXPECT_EQ(defines.Find("NEW"), TVerilogDefined::Maybe);
}
