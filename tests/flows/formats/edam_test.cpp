#include "tests/flows/formats/exportedplan.h"
#include "tests/support/growth.h"
#include <gtest/gtest.h>

TEST(Edam, NamesTheSourcesWithTheirTypesInOrder) {
    EXPECT_EQ(Exported("edam-yaml", MakeSamplePlan()),
              "edam-yaml has no words for the architecture sim\n"
              "edam-yaml has no words for libraries of library files\n"
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
              "    paramtype: vlogdefine\n"
              "  go:\n"
              "    datatype: bool\n"
              "    default: true\n"
              "    paramtype: plusarg\n"
              "tool_options:\n"
              "  icarus:\n"
              "    iverilog_options:\n"
              "      - \"-y\"\n"
              "      - lib\n"
              "      - \"-Y\"\n"
              "      - \".v\"\n"
              "      - \"-Y\"\n"
              "      - \".sv\"\n"
              "      - \"-l\"\n"
              "      - lib/cells.v\n"
              "  verilator:\n"
              "    mode: binary\n"
              "    verilator_options:\n"
              "      - \"-y\"\n"
              "      - lib\n"
              "      - \"+libext+.v\"\n"
              "      - \"+libext+.sv\"\n"
              "      - \"-v\"\n"
              "      - lib/cells.v\n"
              "  ghdl:\n"
              "    analyze_options:\n"
              "      - \"-frelaxed\"\n");
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
        const char* Tools = "";
    } rows[] = {
        {LANGUAGE_VHDL, "1987", "a.vhd", "vhdlSource-87"},
        {LANGUAGE_VHDL, "1993", "a.vhd", "vhdlSource-93"},
        {LANGUAGE_VHDL, "2019", "a.vhd", "vhdlSource-2019"},
        {LANGUAGE_VHDL, "2002", "a.vhd", "vhdlSource",
         "tool_options:\n  ghdl:\n    analyze_options:\n      - \"--std=02\"\n"},
        {LANGUAGE_VERILOG, "", "a.v", "verilogSource",
         "tool_options:\n  verilator:\n    mode: binary\n"},
        {LANGUAGE_VERILOG, "2012", "a.v", "systemVerilogSource",
         "tool_options:\n  icarus:\n    iverilog_options:\n      - \"-g2012\"\n  verilator:\n    "
         "mode: "
         "binary\n"},
        {LANGUAGE_VERILOG, "", "a.sv", "systemVerilogSource",
         "tool_options:\n  icarus:\n    iverilog_options:\n      - \"-g2012\"\n  verilator:\n    "
         "mode: "
         "binary\n"},
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
        const std::string tools = row.Tools;
        EXPECT_EQ(Exported("edam-yaml", plan),
                  type.empty() ? "edam-yaml has no words for sources in Bluespec Verilog\n"
                                 "version: \"0.2.1\"\nname: \"\"\nfiles:\n  []\n"
                               : "version: \"0.2.1\"\nname: \"\"\nfiles:\n  - name: " +
                                     std::string(row.Path) + "\n    file_type: " + type +
                                     "\n    logical_name: main\n" + tools)
            << row.Path << " " << row.Standard;
    }
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

TEST(Edam, GivesEachToolTheWordsThatItKnows) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/a.v");
    plan.Settings.resize(2);
    TPlanSettings& verilog = plan.Settings[0];
    verilog.Language = LANGUAGE_VERILOG;
    verilog.Standard = "2009";
    verilog.Delay = DELAY_TYPE_MINIMUM;
    verilog.LibraryDirectories = {"/p/my cells"};
    verilog.Options = {{{"--trace", "--threads", "4", "-Wall", "-quiet", "x", "-CFLAGS", "-O2"},
                        {"-gspecify", "-P", "tb.N=3", "-Wtimescale", "-Wno-timescale"},
                        {"+seed=7", "-n", "+seed=8", "+a+b", "+empty=", "+text=a b"}}};
    TPlanSettings& vhdl = plan.Settings[1];
    vhdl.Language = LANGUAGE_VHDL;
    vhdl.Standard = "2000";
    vhdl.Options = {{{"-fsynopsys", "-nolint"}, {"-Wl,-lm"}, {"--stop-time=1us", "-gN=2"}}};
    EXPECT_EQ(Exported("edam-yaml", plan),
              "edam-yaml has no words for the run option -n\n"
              "edam-yaml has no words for the run option +seed=8\n"
              "edam-yaml has no words for the run option +a+b\n"
              "edam-yaml has no words for the run option +empty=\n"
              "edam-yaml has no words for the run option +text=a b\n"
              "edam-yaml has no words for the analysis option -quiet\n"
              "edam-yaml has no words for the analysis option x\n"
              "edam-yaml has no words for the analysis option -nolint\n"
              "edam-yaml has no words for the elaboration option -Wl,-lm\n"
              "version: \"0.2.1\"\n"
              "name: \"\"\n"
              "files:\n"
              "  - name: a.v\n"
              "    file_type: systemVerilogSource\n"
              "    logical_name: main\n"
              "parameters:\n"
              "  seed:\n"
              "    datatype: int\n"
              "    default: 7\n"
              "    paramtype: plusarg\n"
              "tool_options:\n"
              "  icarus:\n"
              "    iverilog_options:\n"
              "      - \"-g2009\"\n"
              "      - \"-Tmin\"\n"
              "      - \"-y\"\n"
              "      - \"\\\"my cells\\\"\"\n"
              "      - \"-Wall\"\n"
              "      - \"-gspecify\"\n"
              "      - \"-P\"\n"
              "      - \"tb.N=3\"\n"
              "      - \"-Wtimescale\"\n"
              "      - \"-Wno-timescale\"\n"
              "  verilator:\n"
              "    mode: binary\n"
              "    verilator_options:\n"
              "      - \"-y\"\n"
              "      - \"\\\"my cells\\\"\"\n"
              "      - \"--trace\"\n"
              "      - \"--threads\"\n"
              "      - \"4\"\n"
              "      - \"-Wall\"\n"
              "      - \"-CFLAGS\"\n"
              "      - \"-O2\"\n"
              "  ghdl:\n"
              "    analyze_options:\n"
              "      - \"--std=00\"\n"
              "      - \"-fsynopsys\"\n"
              "    run_options:\n"
              "      - \"--stop-time=1us\"\n"
              "      - \"-gN=2\"\n");
}

TEST(Edam, HasNoWordsThatAMakefileOrShellChanges) {
    TBuildPlan plan;
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].LibraryDirectories = {"/p/d$d", "/p/#h", "/p/it's"};
    plan.Settings[0].LibraryExtensions = {".v+"};
    plan.Settings[0].Options[STEP_ANALYSE] = {"-Wall", "$x", "--trace", "-Pa=\\b", "-g\xFF"};
    const TExported exported = FindExportFormat("edam-yaml")->Write({plan, "/p/", nullptr});
    std::string losses;
    for (const TDiagnostic& loss : exported.Losses)
        losses += GetDiagnosticId(loss.Code) + " " + GetDiagnosticText(loss) + "\n";
    EXPECT_EQ(losses,
              "HB603 edam-yaml cannot hold the name \"d$d\": a makefile or shell takes it for "
              "something else\n"
              "HB603 edam-yaml cannot hold the name \"#h\": a makefile or shell takes it for "
              "something else\n"
              "HB603 edam-yaml cannot hold the name \"it's\": a makefile or shell takes it for "
              "something else\n"
              "HB603 edam-yaml cannot hold the name \".v+\": a plus ends the word\n"
              "HB602 edam-yaml has no words for the analysis option $x\n"
              "HB602 edam-yaml has no words for the analysis option -Pa=\\b\n"
              "HB602 edam-yaml has no words for the analysis option -g\xFF\n");
}

TEST(Edam, LeavesTheModeOfVerilatorToProgramsInCpp) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/a.v");
    plan.Sources.push_back({"/p/main.cpp", LANGUAGE_CPLUSPLUS, "work", false, {}});
    EXPECT_EQ(Exported("edam-yaml", plan),
              "version: \"0.2.1\"\n"
              "name: \"\"\n"
              "files:\n"
              "  - name: a.v\n"
              "    file_type: verilogSource\n"
              "    logical_name: main\n"
              "  - name: main.cpp\n"
              "    file_type: cppSource\n");
}

TEST(Edam, HasTheLastDefineOfANameAtThePlaceOfTheFirst) {
    TBuildPlan plan;
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VERILOG;
    plan.Settings[0].Defines = {{"A", "1"}, {"B", {}}, {"A", "2"}};
    const std::string text = Exported("edam-json", plan);
    EXPECT_EQ(text.substr(text.find("\"parameters\"")),
              "\"parameters\": {\n"
              "    \"A\": {\n"
              "      \"datatype\": \"int\",\n"
              "      \"default\": 2,\n"
              "      \"paramtype\": \"vlogdefine\"\n"
              "    },\n"
              "    \"B\": {\n"
              "      \"datatype\": \"bool\",\n"
              "      \"default\": true,\n"
              "      \"paramtype\": \"vlogdefine\"\n"
              "    }\n"
              "  }\n"
              "}\n");
}

TEST(Edam, GoesByTheNumberOfDefines) {
    const auto write = [](int count) {
        TBuildPlan plan;
        plan.Settings = {TPlanSettings()};
        plan.Settings[0].Language = LANGUAGE_VERILOG;
        for (int number = 0; number < count; ++number)
            plan.Settings[0].Defines.push_back({"D" + std::to_string(number), "1"});
        EXPECT_FALSE(Exported("edam-json", plan).empty());
    };
    EXPECT_LT(GrowthOf(write, 1000), kLargestLinearGrowth);
}

TEST(Edam, NamesVerilogTopsPlainly) {
    TBuildPlan plan;
    plan.Tops = {{LANGUAGE_VERILOG, "work", "\\my-top ", ""}};
    EXPECT_EQ(Exported("edam-json", plan),
              "{\n"
              "  \"version\": \"0.2.1\",\n"
              "  \"name\": \"\",\n"
              "  \"toplevel\": \"my-top\",\n"
              "  \"files\": []\n"
              "}\n");
}
