#include "tests/cli/run/runbuild.h"
#include "tests/cli/shell.h"
#include <gtest/gtest.h>
#include <regex>

// A note passes; what fails is told by the message that failed it.
TEST(RanBuilds, FailUnderEveryToolByErrorsAndTime) {
    const struct {
        const char* Tool;
        const char* Program;
        const char* Language;
        const char* Text;  // of the top "t", around what it does
        const char* Body;
        const char* Options;
        const char* Reason;  // "" for one that passes
    } rows[] = {
        {"ghdl", "ghdl", "VHDL", "entity t is end;\narchitecture s of t is begin process begin\n",
         "report \"x\" severity warning; wait;", "", ""},
        {"ghdl", "ghdl", "VHDL", "entity t is end;\narchitecture s of t is begin process begin\n",
         "report \"x\" severity warning; wait;", "--fail-on warning",
         "warning: ./t:3:1:@0ms:(report warning): x"},
        {"ghdl", "ghdl", "VHDL", "entity t is end;\narchitecture s of t is begin process begin\n",
         "report \"x\" severity error; wait;", "", "error: ./t:3:1:@0ms:(report error): x"},
        {"ghdl", "ghdl", "VHDL",
         "use std.textio.all; entity t is end;\narchitecture s of t is begin process procedure p "
         "is "
         "begin write(output, \"so far \"); end; begin\n",
         "p; report \"x\" severity error; wait;", "",
         "error: so far ./t:3:4:@0ms:(report error): x"},
        {"ghdl", "ghdl", "VHDL", "entity t is end;\narchitecture s of t is begin process begin\n",
         "report \"x\" severity error; wait;", "--fail-on failure", ""},
        {"ghdl", "ghdl", "VHDL", "entity t is end;\narchitecture s of t is begin process begin\n",
         "report \"x\" severity failure; wait;", "--fail-on failure",
         "failure: ./t:3:1:@0ms:(report failure): x"},
        {"ghdl", "ghdl", "VHDL", "entity t is end;\narchitecture s of t is begin process begin\n",
         "loop end loop;", "--timeout 1", "not done after 1 s"},
        {"icarus", "iverilog", "Verilog", "module t; initial begin\n", "$display(\"x\");", "", ""},
        {"icarus", "iverilog", "Verilog", "module t; initial begin\n", "$warning(\"x\");",
         "--fail-on warning", "warning: WARNING: ./t:2: x"},
        {"icarus", "iverilog", "Verilog", "module t; initial begin\n", "$error(\"x\");", "",
         "error: ERROR: ./t:2: x"},
        {"icarus", "iverilog", "Verilog", "module t; initial begin\n",
         "$write(\"so far \"); $error(\"x\");", "", "error: so far ERROR: ./t:2: x"},
        {"icarus", "iverilog", "Verilog", "module t; initial begin\n", "$error(\"x\");",
         "--fail-on failure", ""},
        {"icarus", "iverilog", "Verilog", "module t; initial begin\n", "$fatal(1, \"x\");",
         "--fail-on failure", "failure: FATAL: ./t:2: x"},
        {"icarus", "iverilog", "Verilog", "module t; initial begin\n", "forever;", "--timeout 1",
         "not done after 1 s"},
    };
    std::string missing;
    for (const auto& row : rows) {
        if (!IsInstalled(row.Program)) {
            missing += std::string(" ") + row.Program;
            continue;
        }
        const WorkingFolder folder;
        const bool isVhdl = std::string(row.Language) == "VHDL";
        folder.Write("t", row.Text + std::string(row.Body) +
                              (isVhdl ? "\nend process; end;\n" : "\nend endmodule\n"));
        folder.Write("my build.xml",
                     BuildText(TopsText(row.Language, {{"t", isVhdl ? "s" : ""}}) +
                               "<ProjectLanguageConfigurationList><LanguageSettings Language="
                               "\"Verilog\"><BuildOptions>-sv</BuildOptions></LanguageSettings>"
                               "</ProjectLanguageConfigurationList>\n<SourceFileGroup Language=\"" +
                               row.Language + "\">\n" + SourceText("t") + "</SourceFileGroup>\n"));
        const std::string result =
            Ran(std::string("-o out --with ") + row.Tool + " " + row.Options);
        const bool passes = *row.Reason == '\0';
        const std::string top = isVhdl ? "work.t(s)" : "work.t";
        EXPECT_EQ(result.substr(0, 2), passes ? "si" : "1\n") << row.Tool << row.Body << result;
        EXPECT_NE(result.find(passes ? "1 passed, 0 failed, 0 not run\n"
                                     : "0 passed, 1 failed, 0 not run\n"),
                  std::string::npos)
            << row.Tool << row.Body << result;
        if (!passes) {
            EXPECT_TRUE(result.ends_with("simulate " + top + " failed: " + row.Reason + "\n"))
                << row.Tool << row.Body << result;
        }
    }
    if (!missing.empty()) GTEST_SKIP() << "not installed:" << missing;
}

TEST(RanBuilds, ShareNoFolder) {
    const WorkingFolder folder;
    WriteVhdlBuild(folder);
    folder.Write("bin/ninja", "#!/bin/sh\n: >running\nuntil test -e go; do sleep 0.02; done\n");
    folder.Write("bin/ghdl", "#!/bin/sh\n");
    for (const char* program : {"bin/ninja", "bin/ghdl"}) MakeProgram(program);
    const std::string command = HDLBUILD_PROGRAM " run 'my build.xml' --with ghdl --tool-path bin";
    const auto [status, text] =
        Shell(command + " >first 2>&1 & until test -e running; do sleep 0.02; done; " + command +
              " 2>&1; s=$?; >go; wait; exit $s");
    EXPECT_EQ(WEXITSTATUS(status), 3);
    EXPECT_EQ(std::regex_replace(text, std::regex("\"/.*/my build.run/.*.lock\""), "L"),
              "hdlbuild: error: my build.run/build.ninja: it is being changed elsewhere: L stayed "
              "locked for 10 seconds\n");
}

// Names are words of a file for ninja, which calls commands.
TEST(RanBuilds, CallNothingThatANameNames) {
    const WorkingFolder folder;
    const std::string source = std::string(240, 'a') + ".v";  // hardly a byte more has room
    folder.Write(source, "module t; endmodule\n");
    folder.Write("lib/a\n  command = touch broken\nb.v", "");
    folder.Write("my build.xml",
                 BuildText("<TopLevelComponents><ComponentList Language=\"Verilog\">"
                           "<Component Library=\"work&#10;  command = touch broken #\">t$x"
                           "</Component></ComponentList></TopLevelComponents>\n"
                           "<ProjectLanguageConfigurationList><LanguageSettings Language="
                           "\"Verilog\"><LibraryDirectories><Directory>lib</Directory>"
                           "</LibraryDirectories></LanguageSettings>"
                           "</ProjectLanguageConfigurationList>\n"
                           "<SourceFileGroup Language=\"Verilog\">\n" +
                           SourceText(source) + "</SourceFileGroup>\n"));
    folder.Write("bin/iverilog",
                 "#!/bin/sh\nwhile test \"$1\" != -o; do shift; done\necho made >\"$2\"\n");
    folder.Write("bin/vvp", "#!/bin/sh\n");
    for (const char* program : {"bin/iverilog", "bin/vvp"}) MakeProgram(program);
    EXPECT_EQ(Ran("--with icarus --tool-path bin -o out"),
              "simulation  result  time  log\n"
              "work\\n  command = touch broken #.t$x  passed  T s  "
              "out/logs/icarus/simulate-work___command___touch_broken__.t_x-D.log\n"
              "1 passed, 0 failed, 0 not run\n"
              "[1/2] compile work\\n  command = touch broken #.t$x\n"
              "[2/2] simulate work\\n  command = touch broken #.t$x\n");
    EXPECT_EQ(Shell("find . -name broken").second, "");
}

TEST(RanBuilds, ReplaceNoFileOfOthers) {
    const WorkingFolder folder;
    WriteVhdlBuild(folder);
    folder.Write("build.ninja", "# mine, written by hand\n");
    for (const char* program : {"bin/ninja", "bin/ghdl"}) {
        folder.Write(program, "#!/bin/sh\n");
        MakeProgram(program);
    }
    EXPECT_EQ(Ran("--with ghdl --tool-path bin -o ."),
              "3\nhdlbuild: error: ./build.ninja: the file is not of a run; choose another folder "
              "with --output\n");
    EXPECT_EQ(folder.Read("build.ninja"), "# mine, written by hand\n");
    EXPECT_EQ(folder.List(),
              "a.vhd\nb.vhd\nbin\nbuild.ninja\nerr\nit's here\nmy build.xml\nq.vhd\n");
}

TEST(RanBuilds, TellOfBothLanguagesWithWavesAndAReport) {
    if (!IsInstalled("ghdl") || !IsInstalled("iverilog")) GTEST_SKIP() << "not installed";
    const WorkingFolder folder;
    folder.Write("a.vhd",
                 "entity a is end;\narchitecture s of a is signal x : bit; begin x <= '1';\n"
                 "  assert x = '1' report \"<&>\" severity error; end;\n");
    folder.Write("t.v", "module t; reg x; initial begin x = 0; #1 x = 1; end endmodule\n");
    folder.Write("launch",
                 "#!/bin/sh\necho ${1##*/} >>'" + folder.Path("calls") + "'\nexec \"$@\"\n");
    MakeProgram("launch");
    std::string tops = TopsText("VHDL", {{"a", "s"}}) + TopsText("Verilog", {{"t", ""}});
    const std::string between = "</TopLevelComponents>\n<TopLevelComponents>";
    tops.erase(tops.find(between), between.size());
    folder.Write("my build.xml",
                 BuildText(tops + "<SourceFileGroup Language=\"VHDL\">\n" + SourceText("a.vhd") +
                           "</SourceFileGroup>\n<SourceFileGroup Language=\"Verilog\">\n" +
                           SourceText("t.v") + "</SourceFileGroup>\n"));
    const std::string result =
        Ran("--with ghdl --with icarus --waves --keep-going --jobs 1 --junit report.xml "
            "--launcher " +
            folder.Path("launch"));
    EXPECT_EQ(result.substr(0, result.find("[1/")),
              "1\n"
              "simulation  result  time  log  waves\n"
              "work.a(s)  failed  T s  my build.run/logs/ghdl/simulate-work.a_s_-D.log  "
              "my build.run/ghdl/work/work.a_s_-D/waves.ghw\n"
              "work.t  passed  T s  my build.run/logs/icarus/simulate-work.t-D.log  "
              "my build.run/icarus/work/work.t-D/waves.vcd\n"
              "1 passed, 1 failed, 0 not run\n");
    EXPECT_EQ(
        Shell("sort calls; ls 'my build.run'/*/work/* | grep waves; grep -c 'var reg' 'my "
              "build.run'/icarus/work/*/waves.vcd"),
        std::make_pair(0, std::string("ghdl\nghdl\niverilog\nvvp\nwaves.ghw\nwaves.vcd\n1\n")));
    EXPECT_EQ(Shell("/usr/bin/python3 -c \"import xml.etree.ElementTree as t; "
                    "s = t.parse('report.xml').getroot(); print(s.attrib['tests'], "
                    "s.attrib['failures']); print([(c.attrib['classname'], c.attrib['name'], "
                    "[f.text.count('<&>') for f in c]) for c in s.iter('testcase')])\""),
              std::make_pair(0, std::string("2 1\n[('ghdl.work', 'a(s)', [1]), ('icarus.work', "
                                            "'t', [])]\n")));
}

TEST(RanBuilds, AreNotBegunBehindAnInterruption) {
    const WorkingFolder folder;
    folder.Write("t.v", "module t; endmodule\n");
    folder.Write("build.xml", VerilogBuildText("t.v"));
    folder.Write("bin/ninja", "#!/bin/sh\n");
    folder.Write("bin/verilator", "#!/bin/sh\n: >begun\nsleep 30\n");
    for (const char* program : {"bin/ninja", "bin/verilator"}) MakeProgram(program);
    EXPECT_EQ(Shell(HDLBUILD_PROGRAM " run build.xml --with verilator --tool-path bin 2>&1 & p=$!; "
                                     "until test -e begun; do sleep 0.05; done; kill -INT $p; "
                                     "wait $p; echo $?; ls")
                  .second,
              "hdlbuild: error: interrupted\n1\nbegun\nbin\nbuild.xml\nt.v\n");
}

// Nothing that was running outlives the tool, and what was done is not done again.
TEST(RanBuilds, GoOnBehindAnInterruption) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    folder.Write("p.vhd", "package p is constant c : natural := 16; end package;\n");
    folder.Write("t.vhd",
                 "use std.textio.all;\nuse work.p.all;\nentity t is end;\n"
                 "architecture s of t is begin process\n  file f : text open write_mode is \"" +
                     folder.Path("begun") +
                     "\";\nbegin loop wait for 1 ns; end loop; end process; end;\n");
    folder.Write(
        "my build.xml",
        BuildText(TopsText("VHDL", {{"t", "s"}}) + "<SourceFileGroup Language=\"VHDL\">\n" +
                  SourceText("p.vhd") + SourceText("t.vhd", {"p.vhd"}) + "</SourceFileGroup>\n"));
    const std::string command = HDLBUILD_PROGRAM " run 'my build.xml' --with ghdl";
    EXPECT_EQ(Shell(command + " >out 2>err & p=$!; until test -e begun; do sleep 0.05; done; "
                              "kill -INT $p; wait $p; echo $?; cat out err; "
                              "ls -l /proc/[0-9]*/cwd 2>/dev/null | grep -c 'my build.run/ghdl'")
                  .second,
              "1\n"
              "simulation  result   time  log\n"
              "work.t(s)   not run  -     -\n"
              "0 passed, 0 failed, 1 not run\n"
              "[1/3] analyse work.p\n[2/3] analyse work.t\n"
              "hdlbuild: error: interrupted\n"
              "0\n");
    const std::string again = Ran("--with ghdl --timeout 1");
    EXPECT_TRUE(
        again.ends_with("0 passed, 1 failed, 0 not run\n[1/1] simulate work.t(s)\n"
                        "simulate work.t(s) failed: not done after 1 s\n"))
        << again;
}

TEST(RanBuilds, SayWhatIsMissing) {
    const WorkingFolder folder;
    WriteVhdlBuild(folder);
    folder.Write("bin/ninja", "#!/bin/sh\n");
    EXPECT_EQ(Shell("PATH= " HDLBUILD_PROGRAM " run 'my build.xml' --with ghdl").second,
              "hdlbuild: error: ninja was not found: install Debian's package ninja-build, or name "
              "its folder with --tool-path\n"
              "hdlbuild: error: ghdl was not found: install Debian's package ghdl, or name its "
              "folder with --tool-path\n");
    MakeProgram("bin/ninja");
    const auto [status, text] =
        Shell("PATH= " HDLBUILD_PROGRAM " run 'my build.xml' --with nvc --tool-path bin");
    EXPECT_EQ(WEXITSTATUS(status), 3);
    EXPECT_EQ(text,
              "hdlbuild: error: nvc was not found: install it, or name its folder with "
              "--tool-path\n");
    for (const char* program : {"bin/ninja", "bin/ghdl", "bin/squeue"}) {
        folder.Write(program, "#!/bin/sh\n");
        MakeProgram(program);
    }
    const auto [farmStatus, farmText] = Shell(
        "PATH= " HDLBUILD_PROGRAM " run 'my build.xml' --with ghdl --farm slurm --tool-path bin");
    EXPECT_EQ(WEXITSTATUS(farmStatus), 3);
    EXPECT_EQ(farmText,
              "hdlbuild: error: srun was not found: install Debian's package slurm-client, or name "
              "its folder with --tool-path\n"
              "hdlbuild: error: scancel was not found: install Debian's package slurm-client, or "
              "name its folder with --tool-path\n");
    EXPECT_FALSE(folder.Exists("my build.run"));
}
