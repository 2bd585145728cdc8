#include "flows/scan/vhdlconditions.h"
#include <gtest/gtest.h>
#include <string>

namespace {

const std::vector<TScanDefine> kDefines = {
    {"TOOL_TYPE", "SIMULATION"}, {"vhdl_version", "2008"}, {"QUOTE", "a\"b"}};

/// "T" for a condition that holds, "F" for one that does not, "?" for one that may.
std::string Truth(std::string_view condition) {
    TVhdlConditions conditions(kDefines);
    conditions.If(condition);
    const bool isTaken = !conditions.IsSkipping();
    conditions.Else();
    const bool isOtherTaken = !conditions.IsSkipping();
    return isTaken && isOtherTaken ? "?" : isTaken ? "T" : isOtherTaken ? "F" : "none";
}

}  // namespace

TEST(VhdlConditions, AreDecidedByTheDefines) {
    const struct {
        const char* Condition;
        const char* Truth;
    } rows[] = {
        {" TOOL_TYPE = \"SIMULATION\" then", "T"},
        {" tool_type=\"SIMULATION\"then -- then", "T"},
        {" TOOL_TYPE = \"simulation\" then", "F"},
        {" TOOL_TYPE /= \"SIMULATION\" then", "F"},
        {" VHDL_VERSION >= \"2008\" then", "T"},
        {" VHDL_VERSION > \"2008\" then", "F"},
        {" VHDL_VERSION < \"2019\" then", "T"},
        {" VHDL_VERSION <= \"1993\" then", "F"},
        {" QUOTE = \"a\"\"b\" then", "T"},
        {" TOOL_NAME = \"x\" then", "?"},
        {" not TOOL_NAME = \"x\" then", "?"},
        {" not (TOOL_TYPE = \"x\") then", "T"},
        {" not not (TOOL_TYPE = \"x\") then", "F"},
        {" TOOL_TYPE = \"x\" and TOOL_NAME = \"x\" then", "F"},
        {" TOOL_NAME = \"x\" and TOOL_TYPE = \"SIMULATION\" then", "?"},
        {" TOOL_NAME = \"x\" or TOOL_TYPE = \"SIMULATION\" then", "T"},
        {" TOOL_NAME = \"x\" xor TOOL_TYPE = \"x\" then", "?"},
        {" TOOL_TYPE = \"x\" xor QUOTE = \"x\" then", "F"},
        {" TOOL_TYPE = \"x\" xnor QUOTE = \"x\" then", "T"},
        {" (TOOL_TYPE = \"x\" or VHDL_VERSION = \"2008\") and not (QUOTE = \"x\") then", "T"},
        {" TOOL_TYPE = \"x\"", "F"},  // as far as the line goes
        {" then", "?"},
        {"", "?"},
        {" TOOL_TYPE then", "?"},
        {" TOOL_TYPE = \"x then", "?"},
        {" TOOL_TYPE = x then", "?"},
        {" (TOOL_TYPE = \"x\" then", "?"},
        {" TOOL_TYPE = \"x\") then", "?"},
        {" () then", "?"},
        {" TOOL_TYPE = \"x\" QUOTE = \"x\" then", "?"},
        {" TOOL_TYPE = \"x\" and then", "?"},
        {" ~{|}\xC3\xA4 then", "?"},
    };
    for (const auto& row : rows) EXPECT_EQ(Truth(row.Condition), row.Truth) << row.Condition;
}

TEST(VhdlConditions, TakeOnePartThatCertainlyHolds) {
    const struct {
        const char* If;
        const char* Elsif;
        const char* Taken;  // of if, elsif, elsif, else
    } rows[] = {
        {"QUOTE = \"\" then", "QUOTE = \"\" then", "...+"},
        {"QUOTE = \"\" then", "QUOTE /= \"\" then", ".+.."},
        {"QUOTE /= \"\" then", "QUOTE /= \"\" then", "+..."},
        {"FOO = \"\" then", "QUOTE = \"\" then", "+..+"},
        {"FOO = \"\" then", "QUOTE /= \"\" then", "++.."},
        {"FOO = \"\" then", "FOO = \"1\" then", "++++"},
    };
    for (const auto& row : rows) {
        TVhdlConditions conditions(kDefines);
        std::string taken;
        const auto note = [&] { taken += conditions.IsSkipping() ? '.' : '+'; };
        conditions.If(row.If), note();
        conditions.Elsif(row.Elsif), note();
        conditions.Elsif(row.Elsif), note();
        conditions.Else(), note();
        EXPECT_EQ(taken, row.Taken) << row.If << " " << row.Elsif;
        conditions.End();
        EXPECT_FALSE(conditions.IsSkipping());
    }
}

TEST(VhdlConditions, AreNested) {
    TVhdlConditions conditions(kDefines);
    conditions.If("QUOTE = \"\" then");
    conditions.If("QUOTE /= \"\" then");
    EXPECT_TRUE(conditions.IsSkipping());
    conditions.Else();
    EXPECT_TRUE(conditions.IsSkipping());
    conditions.End();
    EXPECT_TRUE(conditions.IsSkipping());
    conditions.Else();
    EXPECT_FALSE(conditions.IsSkipping());
}

// Where none may follow any more.
TEST(VhdlConditions, LeaveOutWhatFollowsElse) {
    TVhdlConditions conditions(kDefines);
    conditions.If("UNKNOWN = \"\" then");
    conditions.Else();
    EXPECT_FALSE(conditions.IsSkipping());
    conditions.Elsif("UNKNOWN = \"\" then");
    EXPECT_TRUE(conditions.IsSkipping());
    conditions.Else();
    EXPECT_TRUE(conditions.IsSkipping());
    conditions.End();
    EXPECT_FALSE(conditions.IsSkipping());
}

TEST(VhdlConditions, NeedAnOpenOne) {
    TVhdlConditions conditions(kDefines);
    conditions.Elsif("QUOTE = \"\" then");
    conditions.Else();
    conditions.End();
    EXPECT_FALSE(conditions.IsSkipping());
}
