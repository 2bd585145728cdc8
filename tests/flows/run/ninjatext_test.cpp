#include "flows/run/ninjatext.h"
#include "flows/process/programs.h"
#include <gtest/gtest.h>

TEST(NinjaText, HasAStampOfEachStep) {
    TRunPlan run;
    run.Steps.resize(3);
    run.Steps[0].Name = "ghdl/a";
    run.Steps[0].Record.Title = "analyse work.$a";
    run.Steps[1].Name = "ghdl/b";
    run.Steps[1].Record.Title = "analyse work.b";
    run.Steps[1].After = {0};
    run.Steps[2].Name = "ghdl/c";
    run.Steps[2].Record.Title = "simulate work.c";
    run.Steps[2].Needs = {0, 1};
    EXPECT_EQ(WriteNinja(run, "/opt/my tools/hdlbuild"),
              "# Written by hdlbuild run.\n"
              "ninja_required_version = 1.7\n"
              "rule step\n"
              "  command = " +
                  CommandLineOf({"/opt/my tools/hdlbuild"}) +
                  " step run $record\n"
                  "  description = $title\n"
                  "build done/ghdl/a: step | steps/ghdl/a\n"
                  "  record = steps/ghdl/a\n"
                  "  title = analyse work.$$a\n"
                  "build done/ghdl/b: step | steps/ghdl/b || done/ghdl/a\n"
                  "  record = steps/ghdl/b\n"
                  "  title = analyse work.b\n"
                  "build done/ghdl/c: step | steps/ghdl/c done/ghdl/a done/ghdl/b\n"
                  "  record = steps/ghdl/c\n"
                  "  title = simulate work.c\n"
                  "build all: phony done/ghdl/a done/ghdl/b done/ghdl/c\n"
                  "default all\n");
}

// The processors limit what runs here, and nothing what runs elsewhere.
TEST(NinjaText, HasAPoolForWhatRunsBesideAFarm) {
    TRunPlan run;
    run.JobsHere = 3;
    run.Steps.resize(2);
    run.Steps[0].Name = "icarus/a";
    run.Steps[0].Record.Title = "compile work.a";
    run.Steps[1].Name = "icarus/b";
    run.Steps[1].Record.Title = "simulate work.a";
    run.Steps[1].Record.Farm = "slurm";
    run.Steps[1].Needs = {0};
    const std::string program = CommandLineOf({"/opt/hdlbuild"});
    EXPECT_EQ(WriteNinja(run, "/opt/hdlbuild"),
              "# Written by hdlbuild run.\n"
              "ninja_required_version = 1.7\n"
              "pool here\n"
              "  depth = 3\n"
              "rule step\n"
              "  command = " +
                  program +
                  " step run $record\n"
                  "  description = $title\n"
                  "  pool = here\n"
                  "build done/icarus/a: step | steps/icarus/a\n"
                  "  record = steps/icarus/a\n"
                  "  title = compile work.a\n"
                  "build done/icarus/b: step | steps/icarus/b done/icarus/a\n"
                  "  record = steps/icarus/b\n"
                  "  title = simulate work.a\n"
                  "  pool =\n"
                  "build all: phony done/icarus/a done/icarus/b\n"
                  "default all\n");
}

// Ninja knows no escape for it.
TEST(NinjaText, TakesTheBarOfAPathOutOfAVariable) {
    EXPECT_EQ(NinjaPath("a|b$c"), "a${bar}b$$c");
    std::string file = "ninja_required_version = 1.7\nbuild x: y a${bar}b\n";
    DefineNinjaBar(&file);
    EXPECT_EQ(file, "ninja_required_version = 1.7\nbar = |\nbuild x: y a${bar}b\n");
    std::string plain = "ninja_required_version = 1.7\nbuild x: y a$ b\n";
    DefineNinjaBar(&plain);
    EXPECT_EQ(plain, "ninja_required_version = 1.7\nbuild x: y a$ b\n");
}
