#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(VhdlLs, HasTheVhdlSourcesByLibrary) {
    EXPECT_EQ(Exported("vhdl-ls", MakeSamplePlan()),
              "vhdl-ls has no words for the library name work\n"
              "vhdl-ls has no words for sources in Verilog\n"
              "vhdl-ls has no words for the analysis option -frelaxed\n"
              "standard = \"2008\"\n"
              "[libraries]\n"
              "\"sensor\".files = [\n"
              "  \"rtl/adc_pkg.vhd\",\n"
              "]\n"
              "\"work_lib\".files = [\n"
              "  \"/q/tb.vhd\",\n"
              "]\n");
}

TEST(VhdlLs, HasNoStandardThatTheServerDoesNotKnow) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, "/p/a.vhd");
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VHDL;
    plan.Settings[0].Standard = "1987";
    EXPECT_EQ(Exported("vhdl-ls", plan),
              "vhdl-ls has no words for the standard 1987\n"
              "[libraries]\n\"main\".files = [\n  \"a.vhd\",\n]\n");
}

TEST(VhdlLs, EscapesOrRefusesNames) {
    EXPECT_EQ(Exported("vhdl-ls", MakePlanOf(LANGUAGE_VHDL, "/p/a\"\\\x01 b.vhd")),
              "[libraries]\n\"main\".files = [\n  \"a\\\"\\\\\\u0001 b.vhd\",\n]\n");
    for (const std::string name : {"a*.vhd", "a?.vhd", "a[b].vhd", "$a.vhd", "%a%.vhd"}) {
        const std::string told = Exported("vhdl-ls", MakePlanOf(LANGUAGE_VHDL, "/p/" + name));
        EXPECT_EQ(told.substr(0, told.find('\n')),
                  "vhdl-ls cannot hold the name \"/p/" + name + "\": it reads as a pattern");
    }
}
