#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

TEST(DependencyFiles, AreRulesOfMake) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("depfile",
                              "o/a.vvp o/b: rtl/a.v inc/t.vh \\\r\n"
                              "  lib/my\\ core.v h\\#i.vhd c$$d.v # x\n"
                              "inc/t.vh:\n"
                              "\n"
                              "C:/o/x.vvp : rtl/a.v \\\n"
                              " inc/u.svh e.cpp"),
              "in/list:1:14 Verilog  in/rtl/a.v\n"
              "in/list:2:3 Verilog  in/lib/my core.v\n"
              "in/list:2:18 VHDL  in/h#i.vhd\n"
              "in/list:2:27 Verilog  in/c$d.v\n"
              "in/list:6:12 C++  in/e.cpp\n"
              "in/list:1:22 include in/inc\n");
}

TEST(DependencyFiles, TellWhatIsNoRule) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText("depfile",
                        "a: b.v $(X)/c.v d.txt /usr/bin/verilator_bin e.f\n\ttouch a\nno rule\n"
                        "# a comment\n"),
        "in/list:1:4 Verilog  in/b.v\n"
        "in/list:1:8 HB701 a build has no words for the variable in $(X)/c.v\n"
        "in/list:2:1 HB701 a build has no words for a command\n"
        "in/list:3:1 HB708 not of the format: a line that is no rule\n"
        "in/list:1:17 HB703 no language has the extension of in/d.txt\n");
}

TEST(DependencyFiles, AreLinesOfIcarus) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("icarus-deps",
                              "M my d/top.v\nI inc/w.vh\nM lib/cell_a.v\nM lib/cell_a.v\n"),
              "in/list:1:1 Verilog  in/my d/top.v\n"
              "in/list:3:1 Verilog  in/lib/cell_a.v\n"
              "in/list:2:1 include in/inc\n");
    EXPECT_EQ(folder.ReadText("icarus-deps", "my d/top.v\r\ninc/w.vh\ninc/v.svh\nx.inc\n"),
              "in/list:1:1 Verilog  in/my d/top.v\n"
              "in/list:4:1 Verilog  in/x.inc\n"
              "in/list:2:1 include in/inc\n");
}

TEST(DependencyFiles, MayIncludeFilesOfTheOutermostFolder) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("icarus-deps", "I /x.vh\nM a.v\n"),
              "in/list:2:1 Verilog  in/a.v\nin/list:1:1 include /\n");
}

// Prerequisites that only have to be there are some all the same; what follows is for the shell.
TEST(DependencyFiles, AreRulesOfMakeWithAllOfTheirParts) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("depfile", "o: a.v | b.v ; touch x.v\np:: c.v\n"),
              "in/list:1:4 Verilog  in/a.v\n"
              "in/list:1:10 Verilog  in/b.v\n"
              "in/list:2:5 Verilog  in/c.v\n"
              "in/list:1:14 HB701 a build has no words for a command\n");
}

TEST(DependencyFiles, EndPrerequisitesWithoutBlanks) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("depfile",
                              "o: a.v;touch b.v\np: c.v|d.v|e\\|f.v g\\;h.v;\n"
                              "X := i.v\nY ::= j.v\nq:: k.v\n"),
              "in/list:1:4 Verilog  in/a.v\n"
              "in/list:2:4 Verilog  in/c.v\n"
              "in/list:2:8 Verilog  in/d.v\n"
              "in/list:2:12 Verilog  in/e|f.v\n"
              "in/list:2:19 Verilog  in/g;h.v\n"
              "in/list:5:5 Verilog  in/k.v\n"
              "in/list:1:7 HB701 a build has no words for a command\n"
              "in/list:2:25 HB701 a build has no words for a command\n"
              "in/list:3:1 HB708 not of the format: a line that is no rule\n"
              "in/list:4:1 HB708 not of the format: a line that is no rule\n");
}
