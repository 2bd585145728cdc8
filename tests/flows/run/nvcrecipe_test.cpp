#include "tests/flows/run/runsample.h"
#include <gtest/gtest.h>

TEST(NvcRecipe, AnalysesOneBehindTheOtherAndRunsTheTops) {
    const TBuildPlan plan = SamplePlan();
    TRunWishes wishes = SampleWishes(plan);
    wishes.Launcher.clear();
    EXPECT_EQ(TextOfRun("nvc", plan, wishes),
              "analyse Util.p\n"
              "  call nvc|--std=2008|-L|/r/nvc/libraries|--work=Util:/r/nvc/libraries/Util|-a|"
              "--warn-unused|/b/my rtl/p.vhd\n"
              "  in /r/nvc/libraries\n"
              "  source /b/my rtl/p.vhd\n"
              "analyse work.tb\n"
              "  call nvc|--std=2008|-L|/r/nvc/libraries|--work=work:/r/nvc/libraries/work|-a|"
              "--warn-unused|/b/tb.vhd\n"
              "  in /r/nvc/libraries\n"
              "  source /b/tb.vhd\n"
              "  needs analyse Util.p\n"
              "  after analyse Util.p\n"
              "simulate work.tb(sim)\n"
              "  call nvc|--std=2008|-L|/r/nvc/libraries|--work=work:/r/nvc/libraries/work|-e|"
              "--jit|--no-save|-gN=7|-gS=a b|tb-sim|-r|--stop-time=1us|"
              "--wave=/r/nvc/work/work.tb_sim_-c04677a3/waves.fst|+x=1|tb-sim\n"
              "  in /r/nvc/work/work.tb_sim_-c04677a3\n"
              "  needs analyse Util.p\n"
              "  needs analyse work.tb\n"
              "  after analyse work.tb\n"
              "  limits 60 s, nvc, failure\n"
              "  waves /r/nvc/work/work.tb_sim_-c04677a3/waves.fst\n"
              "nvc has no words for the analysis option -frelaxed\n"
              "nvc has no words for the analysis option plain\n"
              "nvc has no words for a seed\n");
}
