#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(Edam, NamesTheSourcesWithTheirTypesInOrder) {
    EXPECT_EQ(Exported("edam-yaml", MakeSamplePlan()),
              "edam-yaml has no words for the architecture sim\n"
              "edam-yaml has no words for library directories\n"
              "edam-yaml has no words for the run option +go\n"
              "edam-yaml has no words for the analysis option -frelaxed\n"
              "edam-yaml has no words for the mark of library files\n"
              "version: \"0.2.1\"\n"
              "name: soc\n"
              "toplevel: \"adc tb\"\n"
              "files:\n"
              "  - name: inc\n"
              "    file_type: verilogSource\n"
              "    is_include_file: true\n"
              "    include_path: inc\n"
              "  - name: rtl/adc.v\n"
              "    file_type: verilogSource\n"
              "    logical_name: main\n"
              "  - name: lib/cells.v\n"
              "    file_type: verilogSource\n"
              "    logical_name: main\n"
              "  - name: rtl/adc_pkg.vhd\n"
              "    file_type: vhdlSource-2008\n"
              "    logical_name: sensor\n"
              "  - name: \"/q/tb.vhd\"\n"
              "    file_type: vhdlSource-2008\n"
              "parameters:\n"
              "  TAPS:\n"
              "    datatype: int\n"
              "    default: 16\n"
              "    paramtype: vlogdefine\n"
              "  FAST:\n"
              "    datatype: bool\n"
              "    default: true\n"
              "    paramtype: vlogdefine\n");
}

TEST(Edam, IsTheSameTreeAsJson) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, "/p/a.vhd");
    plan.Name = "one";
    plan.Tops = {{LANGUAGE_VHDL, "main", "a", ""}, {LANGUAGE_VHDL, "main", "b", ""}};
    EXPECT_EQ(Exported("edam-json", plan, &plan.Tops[1]),
              "{\n"
              "  \"version\": \"0.2.1\",\n"
              "  \"name\": \"one\",\n"
              "  \"toplevel\": \"main.b\",\n"
              "  \"files\": [\n"
              "    {\n"
              "      \"name\": \"a.vhd\",\n"
              "      \"file_type\": \"vhdlSource\",\n"
              "      \"logical_name\": \"main\"\n"
              "    }\n"
              "  ]\n"
              "}\n");
}

TEST(Edam, HasATypeForEachLanguageButBluespec) {
    const struct {
        THdlLanguage Language;
        const char* Standard;
        const char* Path;
        const char* Type;  // "": told
    } rows[] = {
        {LANGUAGE_VHDL, "1987", "a.vhd", "vhdlSource-87"},
        {LANGUAGE_VHDL, "1993", "a.vhd", "vhdlSource-93"},
        {LANGUAGE_VHDL, "2019", "a.vhd", "vhdlSource-2019"},
        {LANGUAGE_VERILOG, "", "a.v", "verilogSource"},
        {LANGUAGE_VERILOG, "2012", "a.v", "systemVerilogSource"},
        {LANGUAGE_VERILOG, "", "a.sv", "systemVerilogSource"},
        {LANGUAGE_CPLUSPLUS, "", "a.cc", "cppSource"},
        {LANGUAGE_CPLUSPLUS, "", "a.c", "cSource"},
        {LANGUAGE_SYSTEMC, "", "a.sc", "systemCSource"},
        {LANGUAGE_BLUESPECVERILOG, "", "a.bsv", ""},
    };
    for (const auto& row : rows) {
        TBuildPlan plan = MakePlanOf(row.Language, std::string("/p/") + row.Path);
        plan.Settings = {TPlanSettings()};
        plan.Settings[0].Language = row.Language;
        plan.Settings[0].Standard = row.Standard;
        const std::string type = row.Type;
        EXPECT_EQ(Exported("edam-yaml", plan),
                  type.empty() ? "edam-yaml has no words for sources in Bluespec Verilog\n"
                                 "version: \"0.2.1\"\nname: \"\"\nfiles:\n  []\n"
                               : "version: \"0.2.1\"\nname: \"\"\nfiles:\n  - name: " +
                                     std::string(row.Path) + "\n    file_type: " + type +
                                     "\n    logical_name: main\n")
            << row.Path;
    }
}

TEST(Edam, TellsOfAStandardWithoutAType) {
    TBuildPlan plan;
    plan.Name = "soc";
    plan.Sources = {{"/p/a.vhd", LANGUAGE_VHDL, "work", false, {}}};
    plan.Settings.resize(2);
    plan.Settings[0].Language = LANGUAGE_VHDL;
    plan.Settings[0].Standard = "2002";
    plan.Settings[1].Language = LANGUAGE_VERILOG;
    plan.Settings[1].Delay = DELAY_TYPE_MAXIMUM;
    EXPECT_EQ(Exported("edam-yaml", plan),
              "edam-yaml has no words for the standard 2002\n"
              "edam-yaml has no words for the choice of delays\n"
              "version: \"0.2.1\"\n"
              "name: soc\n"
              "files:\n"
              "  - name: a.vhd\n"
              "    file_type: vhdlSource\n");
}

TEST(Edam, KeepsTheTextOfADefine) {
    const struct {
        const char* Value;
        const char* Parameter;
    } rows[] = {
        {"-3", "datatype: int\n    default: -3"},
        {"007", "datatype: str\n    default: \"007\""},
        {"99999999999999999999", "datatype: str\n    default: \"99999999999999999999\""},
        {"8'hFF", "datatype: str\n    default: \"8'hFF\""},
        {"true", "datatype: str\n    default: \"true\""},
    };
    for (const auto& row : rows) {
        TBuildPlan plan;
        plan.Settings = {TPlanSettings()};
        plan.Settings[0].Language = LANGUAGE_VERILOG;
        plan.Settings[0].Defines = {{"D", row.Value}};
        EXPECT_EQ(Exported("edam-yaml", plan),
                  "version: \"0.2.1\"\nname: \"\"\nfiles:\n  []\nparameters:\n  D:\n    " +
                      std::string(row.Parameter) + "\n    paramtype: vlogdefine\n");
    }
}

TEST(Edam, RefusesWhatItCannotHold) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/\xFF.v");
    plan.Tops = {{LANGUAGE_VERILOG, "work", "a b", ""}};
    const TExported exported = FindExportFormat("edam-json")->Write({plan, "/p/", nullptr});
    ASSERT_EQ(exported.Losses.size(), 2u);
    EXPECT_EQ(GetDiagnosticText(exported.Losses[0]),
              "edam-json cannot hold the name \"a b\": a blank or point ends the name");
    EXPECT_EQ(GetDiagnosticText(exported.Losses[1]),
              "edam-json cannot hold the name \"\xFF.v\": it is no UTF-8");
}
