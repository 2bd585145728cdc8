#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(TclScripts, CompileAndRunWithVsim) {
    TBuildPlan plan = MakeSamplePlan();
    plan.Sources.insert(plan.Sources.begin() + 1, {"/p/ip.v", LANGUAGE_VERILOG, "ip", false, {}});
    plan.Settings[0].Delay = DELAY_TYPE_MAXIMUM;
    plan.Settings[0].Standard = "2012";
    plan.Settings[1].Options[STEP_RUN] = {"-t", "1 ps"};
    const std::string options =
        " -sv +incdir+inc +define+TAPS=16 +define+FAST -y lib +libext+.v +libext+.sv ";
    EXPECT_EQ(Exported("vsim", plan),
              "vlib main\n"
              "vlib ip\n"
              "vlib sensor\n"
              "vlib work\n"
              "vlog -work main" +
                  options +
                  "rtl/adc.v\n"
                  "vlog -work ip" +
                  options +
                  "ip.v\n"
                  "vlog -work main" +
                  options +
                  "-v lib/cells.v\n"
                  "vcom -work sensor -2008 -frelaxed rtl/adc_pkg.vhd\n"
                  "vcom -work work -2008 -frelaxed /q/tb.vhd\n"
                  "vsim -c +maxdelays +go main.adc\n"
                  "run -all\n"
                  "vsim -c -t 1\\ ps work.tb(sim)\n"
                  "run -all\n");
}

TEST(TclScripts, CompileVerilogOfOneLibraryInOneCall) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VERILOG, "/p/a.v");
    plan.Sources.push_back({"/p/b.v", LANGUAGE_VERILOG, "main", false, {}});
    plan.Sources.push_back({"/p/c.v", LANGUAGE_VERILOG, "main", true, {}});
    EXPECT_EQ(Exported("vsim", plan),
              "vlib main\n"
              "vlog -work main a.v \\\n"
              "    b.v \\\n"
              "    -v c.v\n");
}

TEST(TclScripts, EscapeWhatTclReads) {
    TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, "/p/a b\"$x[y]{z};#\\\n.vhd");
    plan.Sources[0].Library = "";
    plan.Settings = {TPlanSettings()};
    plan.Settings[0].Language = LANGUAGE_VHDL;
    plan.Settings[0].Standard = "1993";
    EXPECT_EQ(Exported("vsim", plan),
              "vlib {}\n"
              "vcom -work {} -93 a\\ b\\\"\\$x\\[y\\]\\{z\\}\\;\\#\\\\\\n.vhd\n");
}

TEST(TclScripts, EscapeLineEndsAndOptions) {
    const TBuildPlan plan = MakePlanOf(LANGUAGE_VHDL, "/p/-o\r\v\f.vhd");
    EXPECT_EQ(Exported("vsim", plan),
              "vlib main\n"
              "vcom -work main ./-o\\r\\v\\f.vhd\n");
    EXPECT_EQ(Exported("osvvm", plan),
              "library main\n"
              "analyze ./-o\\r\\v\\f.vhd\n");
    EXPECT_EQ(Exported("vsim", MakePlanOf(LANGUAGE_VERILOG, "/p/-y.v")),
              "vlib main\n"
              "vlog -work main ./-y.v\n");
}

TEST(TclScripts, AnalyzeAndSimulateWithOsvvm) {
    const TBuildPlan plan = MakeSamplePlan();
    const std::string losses =
        "osvvm has no words for include directories\n"
        "osvvm has no words for library directories\n"
        "osvvm has no words for defines\n"
        "osvvm has no words for the mark of library files\n"
        "osvvm has no words for the run option +go\n"
        "osvvm has no words for the analysis option -frelaxed\n";
    const std::string analysis =
        "SetVHDLVersion 2008\n"
        "library main\n"
        "analyze rtl/adc.v\n"
        "analyze lib/cells.v\n"
        "library sensor\n"
        "analyze rtl/adc_pkg.vhd\n"
        "library work\n"
        "analyze /q/tb.vhd\n";
    EXPECT_EQ(Exported("osvvm", plan), losses + analysis +
                                           "library main\n"
                                           "simulate adc\n"
                                           "library work\n"
                                           "simulate tb\n");
    EXPECT_EQ(Exported("osvvm", plan, &plan.Tops[1]), losses + analysis + "simulate tb\n");
}
