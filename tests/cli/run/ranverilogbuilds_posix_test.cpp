#include "tests/cli/run/runbuild.h"
#include "tests/cli/shell.h"
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <regex>

namespace {

/// Settings of a build.
constexpr const char* kSystemVerilog =
    "<ProjectLanguageConfigurationList><LanguageSettings Language=\"Verilog\">"
    "<BuildOptions>-sv</BuildOptions></LanguageSettings></ProjectLanguageConfigurationList>\n";

}  // namespace

// One program that is told what to do: it takes long to make. Verilator cuts names at blanks when
// it tells of places.
TEST(RanVerilogBuilds, FailUnderVerilatorByErrorsAndTime) {
    if (!IsInstalled("verilator")) GTEST_SKIP() << "verilator is not installed";
    const WorkingFolder folder;
    folder.Write("my rtl/t.v",
                 "module t;\n  initial begin\n"
                 "    if ($test$plusargs(\"warning\")) $warning(\"x\");\n"
                 "    if ($test$plusargs(\"error\")) $error(\"x\");\n"
                 "    if ($test$plusargs(\"fatal\")) $fatal(1, \"x\");\n"
                 "    if (!$test$plusargs(\"forever\")) $finish;\n  end\n"
                 "  always #1;\nendmodule\n");
    folder.Write("my build.xml", VerilogBuildText("my rtl/t.v", kSystemVerilog));
    const std::string head = "simulation  result  time  log\nwork.t  ";
    const std::string tail = "  T s  out/logs/verilator/simulate-work.t-D.log\n";
    EXPECT_EQ(Ran("--with verilator -o out"), head + "passed" + tail +
                                                  "1 passed, 0 failed, 0 not run\n" +
                                                  "[1/2] compile work.t\n[2/2] simulate work.t\n");
    EXPECT_EQ(Ran("--with verilator -o out -- +warning").substr(0, 1), "s");
    const struct {
        const char* Options;
        const char* Reason;
    } rows[] = {
        {"--fail-on warning -- +warning",
         "warning: [0] %Warning: my:3: Assertion failed in TOP.t: x"},
        {"-- +error", "error: [0] %Error: my:4: Assertion failed in TOP.t: x"},
        {"-- +fatal", "error: [0] %Error: my:5: Assertion failed in TOP.t: x"},
        {"--timeout 1 -- +forever", "not done after 1 s"},
    };
    for (const auto& row : rows) {
        const std::string result = Ran(std::string("--with verilator -o out ") + row.Options);
        const std::string begin = "1\n" + head + "failed" + tail +
                                  "0 passed, 1 failed, 0 not run\n[1/1] simulate work.t\n";
        EXPECT_EQ(result.substr(0, begin.size()), begin);
        EXPECT_TRUE(result.ends_with(std::string("simulate work.t failed: ") + row.Reason + "\n"))
            << result;
    }
}

TEST(RanVerilogBuilds, DoUnderIcarusWhatHasChangedAlone) {
    if (!IsInstalled("iverilog")) GTEST_SKIP() << "iverilog is not installed";
    const WorkingFolder folder;
    folder.Write("my inc/width.vh", "`define WIDTH 4\n");
    folder.Write("my lib/cell_a.v", "module cell_a(output y); assign y = 1; endmodule\n");
    folder.Write("my lib/other.txt", "not a source\n");
    folder.Write("my rtl/top.v",
                 "`include \"width.vh\"\nmodule top;\n  parameter N = 1;\n  wire [`WIDTH-1:0] y;\n"
                 "  cell_a c(y[0]);\n  initial #1 $display(\"%0d %b %0d\", `TAPS, y[0], N);\n"
                 "endmodule\n");
    folder.Write(
        "my build.xml",
        BuildText(TopsText("Verilog", {{"top", ""}}) +
                  "<ProjectLanguageConfigurationList><LanguageSettings Language=\"Verilog\">"
                  "<IncludeDirectories><Directory>my inc</Directory></IncludeDirectories>"
                  "<LibraryDirectories><Directory>my lib</Directory></LibraryDirectories>"
                  "<LibraryExtensions><Extension>.v</Extension></LibraryExtensions>"
                  "<BuildOptions>+define+TAPS=16</BuildOptions></LanguageSettings>"
                  "</ProjectLanguageConfigurationList>\n<SourceFileGroup Language=\"Verilog\">\n" +
                  SourceText("my rtl/top.v") + "</SourceFileGroup>\n"));
    const std::string head = "simulation  result  time  log\nwork.top  passed  T s";
    const std::string tail =
        "  my build.run/logs/icarus/simulate-work.top-D.log\n1 passed, 0 failed, 0 not run\n";
    const std::string all = head + tail + "[1/2] compile work.top\n[2/2] simulate work.top\n";
    EXPECT_EQ(Ran("--with icarus -g N=7"), all);
    EXPECT_EQ(Shell("cat 'my build.run'/logs/icarus/simulate*"),
              std::make_pair(0, std::string("16 1 7\n")));
    EXPECT_EQ(Ran("--with icarus -g N=7"), head + " before" + tail);
    for (const char* file : {"my inc/width.vh", "my lib/cell_a.v", "my rtl/top.v"}) Touch(file);
    AppendTo("my lib/other.txt", "changed\n");
    EXPECT_EQ(Ran("--with icarus -g N=7"), head + " before" + tail);
    for (const char* file : {"my inc/width.vh", "my lib/cell_a.v", "my rtl/top.v"}) {
        AppendTo(file, "// changed\n");
        EXPECT_EQ(Ran("--with icarus -g N=7"), all) << file;
    }
    EXPECT_EQ(Ran("--with icarus -g N=8"), all);
    EXPECT_EQ(Ran("--with icarus -g N=8 -- +x"), head + tail + "[1/1] simulate work.top\n");
}

// Bytes and names count, not times: of sources, of all that is read with them, of programs, and of
// what a run has made.
TEST(RanVerilogBuilds, AreDoneAgainWhateverHasChanged) {
    if (!IsInstalled("iverilog")) GTEST_SKIP() << "iverilog is not installed";
    const WorkingFolder folder;
    folder.Write("first/w.vh", "`define W 1\n");
    folder.Write("inc/w.vh", "`define W 1\n");
    folder.Write("inc/cell.vh", "`define CELL 1\n");
    folder.Write(
        "lib/part.v",
        "`include \"cell.vh\"\nmodule part; initial $display(\"%0d\", `CELL); endmodule\n");
    folder.Write("lib/spare.v", "module spare; endmodule\n");
    folder.Write("lib/folder.v/x", "");
    std::filesystem::create_symlink("nowhere", "lib/.#part.v");
    folder.Write("t.v", "`include \"w.vh\"\nmodule t; part c(); endmodule\n");
    folder.Write("old.v", "`include \"w.vh\"\nmodule t; part c(); part d(); endmodule\n");
    folder.Write("bin/vvp", "#!/bin/sh\nPATH=\"$HDLBUILD_TEST_PATH\" exec vvp \"$@\"\n");
    MakeProgram("bin/vvp");
    folder.Write(
        "my build.xml",
        BuildText(TopsText("Verilog", {{"t", ""}}) +
                  "<ProjectLanguageConfigurationList><LanguageSettings Language=\"Verilog\">"
                  "<IncludeDirectories><Directory>first</Directory><Directory>inc</Directory>"
                  "</IncludeDirectories><LibraryDirectories><Directory>lib</Directory>"
                  "</LibraryDirectories></LanguageSettings></ProjectLanguageConfigurationList>\n"
                  "<SourceFileGroup Language=\"Verilog\">\n" +
                  SourceText("t.v") + "</SourceFileGroup>\n"));
    const std::string head = "simulation  result  time  log\nwork.t  passed  T s";
    const std::string tail =
        "  my build.run/logs/icarus/simulate-work.t-D.log\n1 passed, 0 failed, 0 not run\n";
    const std::string all = head + tail + "[1/2] compile work.t\n[2/2] simulate work.t\n";
    const std::string same = head + " before" + tail;
    const std::string simulated = head + tail + "[1/1] simulate work.t\n";
    const struct {
        const char* Change;
        const std::string& Result;
    } rows[] = {
        {"true", all},
        {"true", same},
        {"touch t.v lib/part.v inc/cell.vh bin/vvp", same},
        {"touch -d 2020-01-01 old.v; mv old.v t.v", all},
        {"echo '`define CELL 2' >inc/cell.vh", all},
        {"rm lib/spare.v", all},
        {"touch -d 2020-01-01 inc/w.vh; rm first/w.vh", all},
        {"echo '# newer' >>bin/vvp", all},
        {"truncate -s 0 'my build.run'/icarus/images/*.vvp", all},
        {"truncate -s 0 'my build.run'/done/icarus/compile*", all},
        {"truncate -s 0 'my build.run'/done/icarus/simulate*", simulated},
        {"truncate -s 0 'my build.run'/results/icarus/work.t-????????", simulated},
        {"rm 'my build.run'/results/icarus/work.t-????????", simulated},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Shell(row.Change).first, 0) << row.Change;
        const std::string path = "export HDLBUILD_TEST_PATH=\"$PATH\"; ";
        EXPECT_EQ(Ran("--with icarus --tool-path bin", path), row.Result) << row.Change;
    }
    EXPECT_EQ(Shell("cat 'my build.run'/logs/icarus/simulate*").second, "2\n2\n");
    EXPECT_EQ(Ran("--with icarus --tool-path bin --max-file-size 1M"), same);
}

// The generated module is a source as any other, and a check leaves the program alone.
TEST(RanVerilogBuilds, MakeAProgramForEachGenericWithWaves) {
    const WorkingFolder folder;
    folder.Write("t.v", "module t; endmodule\n");
    folder.Write("my build.xml", VerilogBuildText("t.v"));
    folder.Write("bin/verilator",
                 "#!/bin/sh\ntest \"$1\" != --version || exec echo Verilator 5.006\n"
                 "test \"$1\" != --lint-only || exit 0\n"
                 "for file; do :; done\ncp \"$file\" waves\n"
                 "printf '#!/bin/sh\\ngrep -o \"N.*)\" ${0%%/*}/waves\\n' >simulation\n"
                 "chmod +x simulation\n");
    MakeProgram("bin/verilator");
    const std::string passed =
        "simulation  result  time  log  waves\n"
        "work.t  passed  T s  out/logs/verilator/simulate-work.t-D.log  "
        "out/verilator/work/work.t-D/waves.vcd\n1 passed, 0 failed, 0 not run\n";
    const std::string options = "--with verilator --tool-path bin -o out --waves";
    for (const char* number : {"1", "2"}) {
        EXPECT_EQ(Ran(options + " -g N=" + number),
                  passed + "[1/2] compile work.t\n[2/2] simulate work.t\n");
        EXPECT_EQ(Shell("cat out/logs/verilator/simulate*").second,
                  std::string("N(") + number + ")) top()\n");
    }
    EXPECT_EQ(Ran(options + " --only-compile"), "[1/1] lint work.t\n");
    EXPECT_EQ(Ran(options + " -g N=2 --rerun"), passed + "[1/1] simulate work.t\n");
}

TEST(RanVerilogBuilds, TellAllThatAFailingSimulationPrints) {
    if (!IsInstalled("iverilog")) GTEST_SKIP() << "iverilog is not installed";
    const WorkingFolder folder;
    folder.Write(
        "t.v",
        "module t; initial begin\n$display(\"[12] begin\\nFAILED: checks\\nexpected 5\\n"
        "ninja: error: hello\\n\\n\\ttabbed\"); $write(\"end \"); $fatal; end endmodule\n");
    folder.Write("my build.xml", VerilogBuildText("t.v", kSystemVerilog));
    EXPECT_EQ(Ran("--with icarus -o out"),
              "1\nsimulation  result  time  log\n"
              "work.t  failed  T s  out/logs/icarus/simulate-work.t-D.log\n"
              "0 passed, 1 failed, 0 not run\n"
              "[1/2] compile work.t\n[2/2] simulate work.t\n"
              "[12] begin\nFAILED: checks\nexpected 5\nninja: error: hello\n\n\\ttabbed\n"
              "end FATAL: ./t.v:2: \n  Time: 0 Scope: t\n"
              "simulate work.t failed: failure: end FATAL: ./t.v:2: \n");
}

TEST(RanVerilogBuilds, AreToldAsJson) {
    if (!IsInstalled("iverilog")) GTEST_SKIP() << "iverilog is not installed";
    const WorkingFolder folder;
    folder.Write("t.v", "module t; initial if ($test$plusargs(\"x\")) $fatal; endmodule\n");
    folder.Write("my build.xml", VerilogBuildText("t.v", kSystemVerilog));
    const auto told = [](const std::string& arguments) {
        const std::string text = Shell(HDLBUILD_PROGRAM
                                       " run 'my build.xml' --with icarus -o out "
                                       "--json 2>/dev/null " +
                                       arguments)
                                     .second;
        auto result = nlohmann::ordered_json::parse(text);
        for (auto& simulation : result["simulations"]) simulation["milliseconds"] = 0;
        return std::regex_replace(result.dump(1), std::regex("-[0-9a-f]{8}\\b"), "-D");
    };
    EXPECT_EQ(told(""), R"({
 "format": "hdlbuild-run",
 "version": 1,
 "build": "my build.xml",
 "passed": true,
 "simulations": [
  {
   "simulation": "work.t",
   "tool": "icarus",
   "result": "passed",
   "unchanged": false,
   "milliseconds": 0,
   "reason": "",
   "log": "out/logs/icarus/simulate-work.t-D.log",
   "waves": null
  }
 ]
})");
    EXPECT_EQ(told("--waves -- +x"), R"({
 "format": "hdlbuild-run",
 "version": 1,
 "build": "my build.xml",
 "passed": false,
 "simulations": [
  {
   "simulation": "work.t",
   "tool": "icarus",
   "result": "failed",
   "unchanged": false,
   "milliseconds": 0,
   "reason": "failure: FATAL: )" + folder.Path("t.v") +
                                         R"(:1: ",
   "log": "out/logs/icarus/simulate-work.t-D.log",
   "waves": "out/icarus/work/work.t-D/waves.vcd"
  }
 ]
})");
}

TEST(RanVerilogBuilds, WriteWavesUnderBothVersionsOfVerilator) {
    if (!IsInstalled("verilator")) GTEST_SKIP() << "verilator is not installed";
    const WorkingFolder folder;
    folder.Write("t.v",
                 "module t;\n  parameter N = 1;\n  reg [7:0] x;\n  initial begin\n    x = N;\n"
                 "    $display(\"%0d\", x);\n    $finish;\n  end\nendmodule\n");
    folder.Write("build.xml", VerilogBuildText("t.v"));
    folder.Write("old/verilator",
                 "#!/bin/sh\ncase \"$*\" in --version) echo 'Verilator 4.228 2022-10-01';;\n"
                 "*) PATH=\"$HDLBUILD_TEST_PATH\"; echo \"$1 $2 $3\" >>'" +
                     folder.Path("calls") + "'; exec verilator \"$@\";; esac\n");
    MakeProgram("old/verilator");
    for (const char* form : {"", " --tool-path old"}) {
        EXPECT_EQ(Shell("export HDLBUILD_TEST_PATH=\"$PATH\"; " HDLBUILD_PROGRAM
                        " run build.xml --with verilator --waves -g N=7 -o out" +
                        std::string(form) + " >table 2>&1; tail -1 table; " +
                        "cat out/logs/verilator/simulate*.log; "
                        "grep -c 'var wire.* x' out/verilator/work/*/waves.vcd; "
                        "grep -o 'b00000111' out/verilator/work/*/waves.vcd; rm -r out")
                      .second,
                  "1 passed, 0 failed, 0 not run\n7\n- " + folder.Path("t.v") +
                      ":7: Verilog $finish\n1\nb00000111\n")
            << form;
    }
    EXPECT_EQ(Shell("cat calls").second, "--cc --exe --build\n");
}

TEST(RanVerilogBuilds, AreRefusedWhereMakeFails) {
    const WorkingFolder folder;
    folder.Write("t.v", "module t; endmodule\n");
    folder.Write("my build.xml", VerilogBuildText("t.v"));
    EXPECT_EQ(
        Ran("--with verilator --dry-run"),
        "1\nhdlbuild: error: verilator cannot hold the name \"./my build.run/\": make takes no "
        "blanks; choose another folder with --output [HB603]\n");
}
