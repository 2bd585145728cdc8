#include "tests/flows/run/runsample.h"
#include <gtest/gtest.h>

TEST(IcarusRecipe, CompilesAllSourcesForEachTopAndRunsIt) {
    const TBuildPlan plan = SamplePlan();
    TRunWishes wishes = SampleWishes(plan);
    wishes.Launcher.clear();
    TRunScan scan = SampleScan(plan);
    scan.VerilogFiles = {"/b/inc/w.vh", "/b/t.v"};
    EXPECT_EQ(TextOfRun("icarus", plan, wishes, scan),
              "compile work.top\n"
              "  call iverilog|-o|/r/icarus/images/work.top-e0e15e25.vvp.part|-s|top|-Tmax|-Wall|"
              "-DA|-DB=2 3|-I/b/inc|-I/b/my inc|-y/b/lib|-Y.v|-Y.vlib|-Ptop.N=7|-Ptop.S=a b|"
              "-l|/b/cells.v|/b/t.v|-s|hdlbuild_waves|"
              "/r/icarus/images/work.top-e0e15e25-waves.v\n"
              "  in /r/icarus/images\n"
              "  move /r/icarus/images/work.top-e0e15e25.vvp.part to "
              "/r/icarus/images/work.top-e0e15e25.vvp\n"
              "  product /r/icarus/images/work.top-e0e15e25.vvp\n"
              "  source /r/icarus/images/work.top-e0e15e25-waves.v\n"
              "  source /b/t.v\n"
              "  source /b/cells.v\n"
              "  source /b/inc/w.vh\n"
              "simulate work.top\n"
              "  call vvp|-n|/r/icarus/images/work.top-e0e15e25.vvp|+verbose|+x=1\n"
              "  in /r/icarus/work/work.top-e0e15e25\n"
              "  needs compile work.top\n"
              "  limits 60 s, icarus, failure\n"
              "  waves /r/icarus/work/work.top-e0e15e25/waves.vcd\n"
              "/r/icarus/images/work.top-e0e15e25-waves.v:\n"
              "module hdlbuild_waves;\n"
              "  initial begin\n"
              "    $dumpfile(\"/r/icarus/work/work.top-e0e15e25/waves.vcd\");\n"
              "    $dumpvars(0, top);\n"
              "  end\n"
              "endmodule\n"
              "icarus has no words for the analysis option -l\n"
              "icarus has no words for the analysis option +acc\n"
              "icarus has no words for the run option -q\n"
              "icarus has no words for a seed\n");
}

TEST(IcarusRecipe, ChoosesLanguageAndDelays) {
    TBuildPlan plan = SamplePlan();
    plan.Settings[1] = {};
    plan.Settings[1].Language = LANGUAGE_VERILOG;
    plan.Sources.resize(3);
    TRunWishes wishes;
    wishes.Folder = "/r/";
    wishes.Tops = {&plan.Tops[1]};
    const auto call = [&plan, &wishes] {
        const std::string text = TextOfRun("icarus", plan, wishes);
        const std::size_t begin = text.find("|-s|top|");
        return text.substr(begin, text.find('\n', begin) - begin);
    };
    EXPECT_EQ(call(), "|-s|top|-Ttyp|/b/t.v");
    plan.Settings[0].Delay = DELAY_TYPE_MAXIMUM;  // of VHDL
    plan.Settings[1].Delay = DELAY_TYPE_MINIMUM;
    EXPECT_EQ(call(), "|-s|top|-Tmin|/b/t.v");
    plan.Settings[1].Standard = "2005";
    EXPECT_EQ(call(), "|-s|top|-Tmin|-g2005-sv|/b/t.v");
    plan.Settings[1].Standard.clear();
    plan.Sources[2].Path = "/b/t.sv";
    EXPECT_EQ(call(), "|-s|top|-Tmin|-g2012|/b/t.sv");
}
