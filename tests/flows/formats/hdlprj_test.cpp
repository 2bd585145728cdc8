#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(HdlPrj, ListsTheSourcesAndTheWordsOfGhdl) {
    EXPECT_EQ(Exported("hdl-prj", MakeSamplePlan()),
              "hdl-prj has no words for include directories\n"
              "hdl-prj has no words for library directories\n"
              "hdl-prj has no words for defines\n"
              "hdl-prj has no words for the run option +go\n"
              "hdl-prj has no words for the mark of library files\n"
              "{\n"
              "  \"options\": {\n"
              "    \"ghdl_analysis\": [\n"
              "      \"--std=08\",\n"
              "      \"-frelaxed\"\n"
              "    ]\n"
              "  },\n"
              "  \"files\": [\n"
              "    {\n"
              "      \"file\": \"rtl/adc.v\",\n"
              "      \"language\": \"verilog\",\n"
              "      \"library\": \"main\"\n"
              "    },\n"
              "    {\n"
              "      \"file\": \"lib/cells.v\",\n"
              "      \"language\": \"verilog\",\n"
              "      \"library\": \"main\"\n"
              "    },\n"
              "    {\n"
              "      \"file\": \"rtl/adc_pkg.vhd\",\n"
              "      \"language\": \"vhdl\",\n"
              "      \"library\": \"sensor\"\n"
              "    },\n"
              "    {\n"
              "      \"file\": \"/q/tb.vhd\",\n"
              "      \"language\": \"vhdl\"\n"
              "    }\n"
              "  ]\n"
              "}\n");
}

TEST(HdlPrj, RefusesNamesThatAreNoUtf8) {
    const std::string text = Exported("hdl-prj", MakePlanOf(LANGUAGE_VHDL, "/p/\xFF.vhd"));
    EXPECT_EQ(text.substr(0, text.find('\n')),
              "hdl-prj cannot hold the name \"\xFF.vhd\": it is no UTF-8");
}
