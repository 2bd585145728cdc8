#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(LanguageServers, GetAListForVerible) {
    EXPECT_EQ(Exported("verible", MakeSamplePlan()),
              "verible has no words for the define FAST without a value\n"
              "verible has no words for library directories\n"
              "verible has no words for the mark of library files\n"
              "verible has no words for sources in VHDL\n"
              "verible has no words for the run option +go\n"
              "+incdir+inc\n"
              "+define+TAPS=16\n"
              "rtl/adc.v\n"
              "lib/cells.v\n");
}

TEST(LanguageServers, GetNoNameThatTheListCannotHold) {
    const struct {
        const char* Name;
        const char* Reason;  // "": none
    } rows[] = {
        {"a b.v", ""},
        {"a\nb.v", "a line holds one name"},
        {" a.v", "blanks at the ends of a line are lost"},
        {"#a.v", "it reads as a comment"},
        {"-a.v", "it reads as an option"},
        {"+a.v", "it reads as an option"},
    };
    for (const auto& row : rows) {
        const std::string reason = row.Reason;
        EXPECT_EQ(Exported("verible", MakePlanOf(LANGUAGE_VERILOG, std::string("/p/") + row.Name)),
                  reason.empty() ? std::string(row.Name) + "\n"
                                 : "verible cannot hold the name \"" + std::string(row.Name) +
                                       "\": " + reason + "\n");
    }
}

TEST(LanguageServers, GetTheIncludeDirectoriesForSvls) {
    EXPECT_EQ(Exported("svls", MakeSamplePlan()),
              "svls has no words for defines\n"
              "svls has no words for library directories\n"
              "svls has no words for sources in VHDL\n"
              "svls has no words for the run option +go\n"
              "[verilog]\n"
              "include_paths = [\n"
              "  \"inc\",\n"
              "]\n");
}
