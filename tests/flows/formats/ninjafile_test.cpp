#include "tests/flows/formats/exportedplan.h"
#include <gtest/gtest.h>

TEST(NinjaFile, CallsTheToolsStepByStep) {
    TBuildPlan plan;
    plan.Folder = "/p/";
    plan.Sources = {{"/p/it's $1.vhd", LANGUAGE_VHDL, "lib", false, {}},
                    {"/p/tb.vhd", LANGUAGE_VHDL, "work", false, {0}},
                    {"/p/t.v", LANGUAGE_VERILOG, "work", false, {}}};
    plan.Tops = {{LANGUAGE_VHDL, "work", "tb", "sim"}, {LANGUAGE_VERILOG, "work", "top", ""}};
    TPlanSettings& verilog = plan.Settings.emplace_back();
    verilog.Language = LANGUAGE_VERILOG;
    verilog.IncludeDirectories = {"/p/my inc"};
    EXPECT_EQ(
        Exported("ninja", plan),
        "ninja_required_version = 1.3\n"
        "rule step\n"
        "  command = $call\n"
        "  description = $title\n"
        "build ninja/done/ghdl/analyse-lib.it_s__1-81559ecf: step it's$ $$1.vhd\n"
        "  call = mkdir -p ninja/done/ghdl ninja/ghdl/libraries && ghdl -a --std=08 "
        "--workdir=ninja/ghdl/libraries -Pninja/ghdl/libraries --work=lib 'it'\\''s $$1.vhd' && "
        "touch ninja/done/ghdl/analyse-lib.it_s__1-81559ecf\n"
        "  title = analyse lib.it's $$1\n"
        "build ninja/done/ghdl/analyse-work.tb-d7ef7f8c: step tb.vhd | "
        "ninja/done/ghdl/analyse-lib.it_s__1-81559ecf || "
        "ninja/done/ghdl/analyse-lib.it_s__1-81559ecf\n"
        "  call = mkdir -p ninja/done/ghdl ninja/ghdl/libraries && ghdl -a --std=08 "
        "--workdir=ninja/ghdl/libraries -Pninja/ghdl/libraries --work=work tb.vhd && "
        "touch ninja/done/ghdl/analyse-work.tb-d7ef7f8c\n"
        "  title = analyse work.tb\n"
        "build ninja/done/ghdl/simulate-work.tb_sim_-c04677a3: step | "
        "ninja/done/ghdl/analyse-lib.it_s__1-81559ecf ninja/done/ghdl/analyse-work.tb-d7ef7f8c\n"
        "  call = mkdir -p ninja/done/ghdl && ghdl --elab-run --std=08 "
        "--workdir=ninja/ghdl/libraries -Pninja/ghdl/libraries --work=work tb sim && "
        "touch ninja/done/ghdl/simulate-work.tb_sim_-c04677a3\n"
        "  title = simulate work.tb(sim)\n"
        "build ninja/done/icarus/compile-work.top-e0e15e25: step t.v\n"
        "  call = mkdir -p ninja/done/icarus ninja/icarus/images && iverilog -o "
        "ninja/icarus/images/work.top-e0e15e25.vvp.part -s top -Ttyp '-Imy inc' t.v && "
        "mv ninja/icarus/images/work.top-e0e15e25.vvp.part "
        "ninja/icarus/images/work.top-e0e15e25.vvp && "
        "touch ninja/done/icarus/compile-work.top-e0e15e25\n"
        "  title = compile work.top\n"
        "build ninja/done/icarus/simulate-work.top-e0e15e25: step | "
        "ninja/done/icarus/compile-work.top-e0e15e25\n"
        "  call = mkdir -p ninja/done/icarus && vvp -n "
        "ninja/icarus/images/work.top-e0e15e25.vvp && "
        "touch ninja/done/icarus/simulate-work.top-e0e15e25\n"
        "  title = simulate work.top\n");
}

TEST(NinjaFile, HoldsNoLineEnds) {
    EXPECT_TRUE(Exported("ninja", MakePlanOf(LANGUAGE_VHDL, "/p/a\nb.vhd"))
                    .starts_with("ninja cannot hold the name \"a\nb.vhd\": a line holds it\n"));
}
