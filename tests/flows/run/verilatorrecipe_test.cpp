#include "tests/flows/run/runsample.h"
#include <gtest/gtest.h>

TEST(VerilatorRecipe, MakesAProgramOfEachTopAndRunsIt) {
    const TBuildPlan plan = SamplePlan();
    TRunWishes wishes = SampleWishes(plan);
    wishes.Launcher = {"nice"};
    EXPECT_EQ(TextOfRun("verilator", plan, wishes),
              "compile work.top\n"
              "  call nice|verilator|--binary|-o|simulation|--timing|--no-MMD|--Mdir|.|"
              "-Wno-fatal|--top-module|hdlbuild_waves|"
              "--trace|-Wall|-DA|-DB=2 3|-I/b/inc|-I/b/my inc|-y|/b/lib|+libext+.v+.vlib|"
              "-v|/b/cells.v|/b/t.v|/r/verilator/waves/work.top-e0e15e25.v\n"
              "  in /r/verilator/objects/work.top-e0e15e25\n"
              "  fresh /r/verilator/objects/work.top-e0e15e25\n"
              "  product /r/verilator/objects/work.top-e0e15e25/simulation\n"
              "  source /r/verilator/waves/work.top-e0e15e25.v\n"
              "  source /b/t.v\n"
              "  source /b/cells.v\n"
              "simulate work.top\n"
              "  call nice|/r/verilator/objects/work.top-e0e15e25/simulation|"
              "+verilator+seed+42|+verbose|+x=1\n"
              "  in /r/verilator/work/work.top-e0e15e25\n"
              "  needs compile work.top\n"
              "  limits 60 s, verilator, failure\n"
              "  waves /r/verilator/work/work.top-e0e15e25/waves.vcd\n"
              "/r/verilator/waves/work.top-e0e15e25.v:\n"
              "module hdlbuild_waves;\n"
              "  top #(.N(7), .S(a b)) top();\n"
              "  initial begin\n"
              "    $dumpfile(\"/r/verilator/work/work.top-e0e15e25/waves.vcd\");\n"
              "    $dumpvars(0, top);\n"
              "  end\n"
              "endmodule\n"
              "verilator has no words for the analysis option -l\n"
              "verilator has no words for the analysis option +acc\n"
              "verilator has no words for the run option -q\n"
              "verilator has no words for the choice of delays\n"
              "verilator has no words for errors that do not end a simulation\n");
}

TEST(VerilatorRecipe, ChecksATopWithoutMakingAProgram) {
    const TBuildPlan plan = SamplePlan();
    TRunWishes wishes;
    wishes.Folder = "/r/";
    wishes.Tops = {&plan.Tops[1]};
    wishes.Generics = {{"N", "7"}};
    wishes.OnlyCompile = true;
    wishes.Waves = true;
    const std::string text = TextOfRun("verilator", plan, wishes);
    EXPECT_EQ(text.substr(0, text.find("\n  source")),
              "lint work.top\n"
              "  call verilator|--lint-only|--timing|--no-MMD|--Mdir|.|"
              "-Wno-fatal|--top-module|top|-Wall|-DA|"
              "-DB=2 3|-I/b/inc|-I/b/my inc|-y|/b/lib|+libext+.v+.vlib|-GN=7|-v|/b/cells.v|/b/t.v\n"
              "  in /r/verilator/lint/work.top-e0e15e25\n"
              "  fresh /r/verilator/lint/work.top-e0e15e25");
}

TEST(VerilatorRecipe, HasAMainForAnOldVersion) {
    const TBuildPlan plan = SamplePlan();
    TRunWishes wishes;
    wishes.Folder = "/r/";
    wishes.Tops = {&plan.Tops[1]};
    wishes.Versions = {{"verilator", 4}};
    const std::string text = TextOfRun("verilator", plan, wishes);
    EXPECT_EQ(text.substr(0, text.find("\n  in")),
              "compile work.top\n"
              "  call verilator|--cc|--exe|--build|--prefix|Vsimulation|-o|simulation|--no-MMD|"
              "--Mdir|.|-Wno-fatal|--top-module|top|-Wall|-DA|-DB=2 3|-I/b/inc|-I/b/my inc|"
              "-y|/b/lib|+libext+.v+.vlib|-v|/b/cells.v|/b/t.v|"
              "/r/verilator/mains/work.top-e0e15e25.cpp");
    const std::string name = "/r/verilator/mains/work.top-e0e15e25.cpp:\n";
    EXPECT_EQ(text.substr(text.find(name)),
              name +
                  "#include \"Vsimulation.h\"\n"
                  "#include \"verilated.h\"\n"
                  "\n"
                  "double sc_time_stamp() { return 0; }\n"
                  "\n"
                  "int main(int argc, char** argv) {\n"
                  "  Verilated::commandArgs(argc, argv);\n"
                  "  Verilated::traceEverOn(false);\n"
                  "  Vsimulation top;\n"
                  "  top.eval();\n"
                  "  top.final();\n"
                  "}\n"
                  "verilator has no words for the analysis option -l\n"
                  "verilator has no words for the analysis option +acc\n"
                  "verilator has no words for the run option -q\n"
                  "verilator has no words for the choice of delays\n"
                  "verilator has no words for delays before version 5\n");
    wishes.Waves = true;
    EXPECT_NE(TextOfRun("verilator", plan, wishes).find("traceEverOn(true)"), std::string::npos);
    wishes.OnlyCompile = true;
    const std::string lint = TextOfRun("verilator", plan, wishes);
    EXPECT_EQ(lint.substr(0, lint.find("|-Wall")),
              "lint work.top\n"
              "  call verilator|--lint-only|--no-MMD|--Mdir|.|-Wno-fatal|--top-module|top");
    EXPECT_EQ(lint.find("main"), std::string::npos);
    for (const int version : {0, 5, 6}) {
        wishes.Versions = {{"verilator", version}};
        EXPECT_NE(TextOfRun("verilator", plan, wishes).find("|--timing|"), std::string::npos);
    }
}

TEST(VerilatorRecipe, HasTheOperandsOfOptions) {
    TBuildPlan plan = SamplePlan();
    plan.Settings[1] = {};
    plan.Settings[1].Language = LANGUAGE_VERILOG;
    plan.Settings[1].Options[STEP_ANALYSE] = {"--threads", "4", "-Wtimescale", "-CFLAGS", "-O2 -g",
                                              "-x1",       "y"};
    TRunWishes wishes;
    wishes.Folder = "/r/";
    wishes.Tops = {&plan.Tops[1]};
    wishes.OnlyCompile = true;
    const std::string text = TextOfRun("verilator", plan, wishes);
    EXPECT_EQ(text.substr(0, text.find("\n  in")),
              "lint work.top\n"
              "  call verilator|--lint-only|--timing|--no-MMD|--Mdir|.|-Wno-fatal|--top-module|top|"
              "--threads|4|-CFLAGS|-O2 -g|-v|/b/cells.v|/b/t.v");
    EXPECT_EQ(text.substr(text.find("verilator has")),
              "verilator has no words for the analysis option -Wtimescale\n"
              "verilator has no words for the analysis option -x1\n"
              "verilator has no words for the analysis option y\n");
}
