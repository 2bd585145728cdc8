#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(SourceTables, ListLibrariesAndPaths) {
    const TBuildPlan plan = MakeSamplePlan();
    const auto losses = [](const std::string& format) {
        return format + " has no words for include directories\n" + format +
               " has no words for library directories\n" + format + " has no words for defines\n" +
               format + " has no words for the run option +go\n" + format +
               " has no words for the language standard\n" + format +
               " has no words for the analysis option -frelaxed\n";
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
        {"\xC3\xA4.vhd", "main,\xC3\xA4.vhd\n", "VHDL\tmain\t/p/\xC3\xA4.vhd\n"},
    };
    for (const auto& row : rows) {
        const TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, std::string("/p/") + row.Name);
        EXPECT_EQ(Exported("vunit-csv", plan), row.Table);
        EXPECT_EQ(Exported("blueprint", plan), row.Blueprint);
    }
}
