#include "tests/flows/run/runsample.h"
#include <gtest/gtest.h>

TEST(GhdlRecipe, AnalysesOneBehindTheOtherAndRunsTheTops) {
    const TBuildPlan plan = SamplePlan();
    EXPECT_EQ(TextOfRun("ghdl", plan, SampleWishes(plan)),
              "analyse Util.p\n"
              "  call nice|-n|19|/opt/ghdl|-a|--std=08|--workdir=/r/ghdl/libraries|"
              "-P/r/ghdl/libraries|--work=Util|-frelaxed|--warn-unused|/b/my rtl/p.vhd\n"
              "  in /r/ghdl/libraries\n"
              "  guarded /r/ghdl/libraries/util-obj08.cf\n"
              "  product /r/ghdl/libraries/util-obj08.cf\n"
              "  source /b/my rtl/p.vhd\n"
              "  program /opt/ghdl\n"
              "analyse work.tb\n"
              "  call nice|-n|19|/opt/ghdl|-a|--std=08|--workdir=/r/ghdl/libraries|"
              "-P/r/ghdl/libraries|--work=work|-frelaxed|--warn-unused|/b/tb.vhd\n"
              "  in /r/ghdl/libraries\n"
              "  guarded /r/ghdl/libraries/work-obj08.cf\n"
              "  product /r/ghdl/libraries/work-obj08.cf\n"
              "  source /b/tb.vhd\n"
              "  program /opt/ghdl\n"
              "  needs analyse Util.p\n"
              "  after analyse Util.p\n"
              "simulate work.tb(sim)\n"
              "  call nice|-n|19|/opt/ghdl|--elab-run|--std=08|--workdir=/r/ghdl/libraries|"
              "-P/r/ghdl/libraries|--work=work|tb|sim|--stop-time=1us|-gN=7|-gS=a b|"
              "--wave=/r/ghdl/work/work.tb_sim_-c04677a3/waves.ghw|+x=1\n"
              "  in /r/ghdl/work/work.tb_sim_-c04677a3\n"
              "  program /opt/ghdl\n"
              "  needs analyse Util.p\n"
              "  needs analyse work.tb\n"
              "  after analyse work.tb\n"
              "  limits 60 s, ghdl, failure\n"
              "  waves /r/ghdl/work/work.tb_sim_-c04677a3/waves.ghw\n"
              "ghdl has no words for the analysis option plain\n"
              "ghdl has no words for a seed\n");
}

TEST(GhdlRecipe, RunsATopAgainForThatWhichItNeeds) {
    const TBuildPlan plan = SamplePlan();
    TRunScan scan = SampleScan(plan);
    scan.Needs[1] = {};
    scan.TopNeeds[0] = {1, 2};  // the second one is in Verilog
    TRunPlan run;
    AddRun(*FindRunTool("ghdl"), plan, SampleWishes(plan), scan, &run);
    std::string text;
    for (const TRunStep& step : run.Steps) {
        text += step.Record.Title + ":";
        for (const std::size_t need : step.Needs) text += " needs " + std::to_string(need);
        for (const std::size_t former : step.After) text += " after " + std::to_string(former);
        text += "\n";
    }
    EXPECT_EQ(text,
              "analyse Util.p:\n"
              "analyse work.tb: after 0\n"
              "simulate work.tb(sim): needs 1 after 1\n");
}

TEST(GhdlRecipe, TakesTheStandardOfTheOptionsFirst) {
    TBuildPlan plan = SamplePlan();
    plan.Sources.resize(1);
    plan.Tops.clear();
    TRunWishes wishes;
    wishes.Folder = "/r/";
    const struct {
        const char* Settings;
        const char* Wish;
        const char* Option;
        const char* Library;
    } rows[] = {{"", "2008", "--std=08", "obj08"},
                {"1993", "2008", "--std=93", "obj93"},
                {"", "2002", "--std=02", "obj93"},
                {"1987", "1993", "--std=87", "obj87"}};
    for (const auto& row : rows) {
        plan.Settings[0].Standard = row.Settings;
        wishes.VhdlStandard = row.Wish;
        TRunPlan run;
        AddRun(*FindRunTool("ghdl"), plan, wishes, SampleScan(plan), &run);
        EXPECT_EQ(run.Steps[0].Record.Commands[0][2], row.Option);
        EXPECT_EQ(run.Steps[0].Record.GuardedFiles[0],
                  std::string("/r/ghdl/libraries/util-") + row.Library + ".cf");
    }
}
