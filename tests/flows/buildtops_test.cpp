#include "flows/buildtops.h"
#include "buildfile/hdlbuildfile.h"
#include <gtest/gtest.h>

namespace {

std::string ListedIn(const THdlBuildFile& build) {
    std::string text;
    for (const TBuildTop& top : ListTops(build))
        text += std::string(GetStringFromHdlLanguage(top.Language)) + "|" + top.Library + "|" +
                top.Entity + "|" + top.Architecture + "\n";
    return text;
}

}  // namespace

TEST(BuildTops, AreListedByLanguageInEscapedForm) {
    THdlBuildFile build;
    EXPECT_TRUE(AddTop(build, {LANGUAGE_VHDL, "work", "Top", "rtl"}));
    EXPECT_TRUE(AddTop(build, {LANGUAGE_VHDL, "work", "a+b", ""}));
    EXPECT_TRUE(AddTop(build, {LANGUAGE_VERILOG, "ip", "a+b", ""}));
    EXPECT_FALSE(AddTop(build, {LANGUAGE_VHDL, "work", "TOP", "RTL"}));
    EXPECT_EQ(ListedIn(build),
              "Verilog|ip|\\a+b |\n"
              "VHDL|work|Top|rtl\n"
              "VHDL|work|\\a+b\\|\n");
}

TEST(BuildTops, GoByTheRuleOfTheirLanguage) {
    THdlBuildFile build;
    for (const char* const entity : {"a", "b", "c"})
        AddTop(build, {LANGUAGE_VHDL, "work", entity, "rtl"});
    AddTop(build, {LANGUAGE_VERILOG, "work", "b", ""});
    EXPECT_FALSE(RemoveTop(build, {LANGUAGE_VHDL, "WORK", "b", "rtl"}));
    EXPECT_FALSE(RemoveTop(build, {LANGUAGE_VHDL, "work", "b", ""}));
    EXPECT_FALSE(RemoveTop(build, {LANGUAGE_VERILOG, "work", "B", ""}));
    EXPECT_FALSE(RemoveTop(build, {LANGUAGE_CPLUSPLUS, "work", "b", ""}));
    EXPECT_TRUE(RemoveTop(build, {LANGUAGE_VHDL, "work", "B", "RTL"}));
    EXPECT_EQ(ListedIn(build), "Verilog|work|b|\nVHDL|work|a|rtl\nVHDL|work|c|rtl\n");
    EXPECT_TRUE(AddTop(build, {LANGUAGE_VHDL, "work", "b", "rtl"}));
    EXPECT_EQ(ListedIn(build),
              "Verilog|work|b|\nVHDL|work|a|rtl\nVHDL|work|c|rtl\nVHDL|work|b|rtl\n");
}

TEST(BuildTops, HavePlainNamesForCommandLines) {
    EXPECT_EQ(PlainNameOf({LANGUAGE_VERILOG, "work", "\\my-top ", ""}), "my-top");
    EXPECT_EQ(PlainNameOf({LANGUAGE_VERILOG, "work", "\\my-top", ""}), "my-top");
    EXPECT_EQ(PlainNameOf({LANGUAGE_VERILOG, "work", "\\a\\b ", ""}), "a\\b");
    EXPECT_EQ(PlainNameOf({LANGUAGE_VERILOG, "work", "top", ""}), "top");
    EXPECT_EQ(PlainNameOf({LANGUAGE_VHDL, "work", "\\my top\\", ""}), "\\my top\\");
}
