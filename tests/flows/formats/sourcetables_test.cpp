#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(SourceTables, ListLibrariesAndPaths) {
    const TBuildPlan plan = MakeSamplePlan();
    const auto losses = [](const std::string& format) {
        return format + " has no words for include directories\n" + format +
               " has no words for library directories\n" + format + " has no words for defines\n" +
               format + " has no words for the run option +go\n" + format +
               " has no words for the language standard\n" + format +
               " has no words for the analysis option -frelaxed\n" + format +
               " has no words for the mark of library files\n";
    };
    EXPECT_EQ(Exported("blueprint", plan), losses("blueprint") +
                                               "VLOG\tmain\t/p/rtl/adc.v\n"
                                               "VLOG\tmain\t/p/lib/cells.v\n"
                                               "VHDL\tsensor\t/p/rtl/adc_pkg.vhd\n"
                                               "VHDL\twork\t/q/tb.vhd\n");
    EXPECT_EQ(Exported("vunit-csv", plan), losses("vunit-csv") +
                                               "main,rtl/adc.v\n"
                                               "main,lib/cells.v\n"
                                               "sensor,rtl/adc_pkg.vhd\n"
                                               "work,/q/tb.vhd\n");
}

TEST(SourceTables, QuoteOrRefuseNames) {
    const struct {
        const char* Name;
        const char* Table;
        const char* Blueprint;
    } rows[] = {
        {"a,b.vhd", "main,\"a,b.vhd\"\n", "VHDL\tmain\t/p/a,b.vhd\n"},
        {"a\"b.vhd", "main,\"a\"\"b.vhd\"\n", "VHDL\tmain\t/p/a\"b.vhd\n"},
        {"a b.vhd", "main,\"a b.vhd\"\n", "VHDL\tmain\t/p/a b.vhd\n"},
        {"a\tb.vhd", "main,a\tb.vhd\n",
         "blueprint cannot hold the name \"/p/a\tb.vhd\": a tabulator or line end ends the "
         "field\n"},
        {"a\xFF.vhd",
         "vunit-csv cannot hold the name \"a\xFF.vhd\": it is no UTF-8\nmain,a\xFF.vhd\n",
         "VHDL\tmain\t/p/a\xFF.vhd\n"},
        {"\xC3\xA4.vhd", "main,\xC3\xA4.vhd\n", "VHDL\tmain\t/p/\xC3\xA4.vhd\n"},
    };
    for (const auto& row : rows) {
        const TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, std::string("/p/") + row.Name);
        EXPECT_EQ(Exported("vunit-csv", plan), row.Table);
        EXPECT_EQ(Exported("blueprint", plan), row.Blueprint);
    }
}

TEST(SourceTables, NameAllSourcesInARule) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_CPLUSPLUS, "/p/a b$#.cpp");
    plan.Name = "my soc";
    plan.Sources.push_back({"/q/x.v", LANGUAGE_VERILOG, "main", false, {}});
    EXPECT_EQ(Exported("depfile", plan), "my\\ soc: \\\n  a\\ b$$\\#.cpp \\\n  /q/x.v\n");
}

TEST(SourceTables, RefuseNamesThatMakeCannotSay) {
    const std::string special = "make reads one of its characters as something else";
    const struct {
        std::string Name;
        std::string Reason;
    } rows[] = {
        {"a\tb", "a tabulator or line end ends it"},
        {"~a", "make reads it as somebody's home"},
        {"a:b", special},
        {"a*", special},
        {"we%ird", special},
        {"a\\b", special},
        {"p.v;ls;b.v", special},
        {"a=b", special},
        {"a|b", special},
        {"a&b", special},
        {"$(a)", special},
    };
    for (const auto& row : rows) {
        const std::string told =
            "depfile cannot hold the name \"" + row.Name + "\": " + row.Reason + "\n";
        const auto lossesOf = [](const TBuildPlan& plan) {
            const std::string text = Exported("depfile", plan);
            return text.substr(0, text.find("\n") + 1);
        };
        TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, "/p/" + row.Name);
        EXPECT_EQ(lossesOf(plan), told);
        plan.Sources[0].Path = "/p/a.vhd";
        plan.Name = row.Name;
        EXPECT_EQ(lossesOf(plan), told);
    }
}

TEST(SourceTables, MapLibraries) {
    EXPECT_EQ(Exported("libmap", MakeSamplePlan()),
              "libmap has no words for library directories\n"
              "libmap has no words for defines\n"
              "libmap has no words for the mark of library files\n"
              "libmap has no words for sources in VHDL\n"
              "libmap has no words for the run option +go\n"
              "library main\n  rtl/adc.v,\n  lib/cells.v\n  -incdir inc;\n");
    EXPECT_EQ(Exported("libmap", MakePlanOf(LANGUAGE_VERILOG, "/p/a.v")), "library main\n  a.v;\n");
    for (const std::string name : {"a b.v", "a,b.v", "a;.v", "*.v", "a?.v", "x...v", "$a.v"}) {
        const std::string told = Exported("libmap", MakePlanOf(LANGUAGE_VERILOG, "/p/" + name));
        EXPECT_EQ(told.substr(0, told.find('\n')),
                  "libmap cannot hold the name \"" + name +
                      "\": a library map reads one of its characters as something else");
    }
}
