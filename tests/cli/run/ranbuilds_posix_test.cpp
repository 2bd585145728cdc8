#include "tests/cli/shell.h"
#include "tests/cli/toolrun.h"
#include <fstream>
#include <gtest/gtest.h>
#include <regex>

namespace {

/// A top-level component of a build.
struct TTop {
    const char* Entity;
    const char* Architecture;
};

std::string TopsText(const char* language, const std::vector<TTop>& tops) {
    std::string text =
        std::string("<TopLevelComponents><ComponentList Language=\"") + language + "\">";
    for (const TTop& top : tops)
        text += std::string("<Component Library=\"work\" Architecture=\"") + top.Architecture +
                "\">" + top.Entity + "</Component>";
    return text + "</ComponentList></TopLevelComponents>\n";
}

/// Runs the tool on the build, its errors behind its results. Times are "T", digests "D" and the
/// current folder is ".".
std::string Ran(const std::string& arguments, const std::string& before = {}) {
    auto [status, text] = Shell(before + HDLBUILD_PROGRAM " run 'my build.xml' " + arguments +
                                " 2>err; s=$?; cat err; exit $s");
    status = WEXITSTATUS(status);
    text = std::regex_replace(text, std::regex("[0-9]+\\.[0-9][0-9] s"), "T s");
    text = std::regex_replace(text, std::regex("-[0-9a-f]{8}\\b"), "-D");
    text = std::regex_replace(text, std::regex("  +"), "  ");
    const std::string here = std::filesystem::current_path().string();
    for (std::size_t at; (at = text.find(here)) != std::string::npos;)
        text.replace(at, here.size(), ".");
    return (status ? std::to_string(status) + "\n" : "") + text;
}

void Touch(const std::string& file) {
    std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now());
}

void AppendTo(const std::string& file, const std::string& text) {
    std::ofstream(file, std::ios::app) << text;
}

/// Two packages, and a top over each.
void WriteVhdl(const WorkingFolder& folder) {
    folder.Write("it's here/p.vhd", "package p is constant c : natural := 16; end package;\n");
    folder.Write("q.vhd", "package q is constant d : natural := 2; end package;\n");
    folder.Write("a.vhd",
                 "library util; use util.p.all;\nentity a is end;\narchitecture sim of a is begin\n"
                 "  assert false report integer'image(c) severity note;\nend;\n");
    folder.Write("b.vhd",
                 "use work.q.all;\nentity b is end;\narchitecture sim of b is begin\n"
                 "  assert false report integer'image(d) severity note;\nend;\n");
    folder.Write(
        "my build.xml",
        BuildText(TopsText("VHDL", {{"a", "sim"}, {"b", "sim"}}) +
                  "<SourceFileGroup Language=\"VHDL\">\n" +
                  SourceText("a.vhd", {"it's here/p.vhd"}) + SourceText("b.vhd", {"q.vhd"}) +
                  SourceText("it's here/p.vhd", {}, "PrecompiledLibrary=\"util\"") +
                  SourceText("q.vhd") + "</SourceFileGroup>\n"));
}

constexpr const char* kBothPassed =
    "simulation  result  time  log\n"
    "work.a(sim)  passed  T s  my build.run/logs/ghdl/simulate-work.a_sim_-D.log\n"
    "work.b(sim)  passed  T s  my build.run/logs/ghdl/simulate-work.b_sim_-D.log\n"
    "2 passed, 0 failed, 0 not run\n";
constexpr const char* kAgainB =
    "simulation  result  time  log\n"
    "work.a(sim)  passed  T s before  my build.run/logs/ghdl/simulate-work.a_sim_-D.log\n"
    "work.b(sim)  passed  T s  my build.run/logs/ghdl/simulate-work.b_sim_-D.log\n"
    "2 passed, 0 failed, 0 not run\n";
constexpr const char* kBothUnchanged =
    "simulation  result  time  log\n"
    "work.a(sim)  passed  T s before  my build.run/logs/ghdl/simulate-work.a_sim_-D.log\n"
    "work.b(sim)  passed  T s before  my build.run/logs/ghdl/simulate-work.b_sim_-D.log\n"
    "2 passed, 0 failed, 0 not run\n";

}  // namespace

TEST(RanBuilds, DoUnderGhdlWhatHasChangedAlone) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    WriteVhdl(folder);
    const std::string order =
        "[1/6] analyse util.p\n[2/6] analyse work.a\n[3/6] analyse work.q\n"
        "[4/6] analyse work.b\n[5/6] simulate work.a(sim)\n"
        "[6/6] simulate work.b(sim)\n";
    EXPECT_EQ(Ran("--with ghdl --jobs 1"), kBothPassed + order);
    EXPECT_EQ(Ran("--with ghdl --jobs 1"), kBothUnchanged);
    for (const char* source : {"it's here/p.vhd", "q.vhd", "a.vhd", "b.vhd"}) Touch(source);
    EXPECT_EQ(Ran("--with ghdl --jobs 1"), kBothUnchanged);
    EXPECT_EQ(
        Ran("--with ghdl --jobs 1 --rerun"),
        std::string(kBothPassed) + "[1/2] simulate work.a(sim)\n[2/2] simulate work.b(sim)\n");
    AppendTo("q.vhd", "-- changed\n");
    EXPECT_EQ(Ran("--with ghdl --jobs 1"),
              std::string(kAgainB) +
                  "[1/3] analyse work.q\n[2/3] analyse work.b\n[3/3] simulate work.b(sim)\n");
    EXPECT_EQ(folder.List(), "a.vhd\nb.vhd\nerr\nit's here\nmy build.run\nmy build.xml\nq.vhd\n");
}

TEST(RanBuilds, StopAtAFaultAndGoOnWhenItIsMended) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    WriteVhdl(folder);
    AppendTo("q.vhd", "constant\n");
    const std::string notRun =
        "1\nsimulation  result  time  log\nwork.a(sim)  not run  -  -\n"
        "work.b(sim)  not run  -  -\n0 passed, 0 failed, 2 not run\n";
    EXPECT_EQ(
        Ran("--with ghdl --jobs 1"),
        notRun +
            "[1/6] analyse util.p\n[2/6] analyse work.a\n[3/6] analyse work.q\n"
            "./q.vhd:2:1: missing entity, architecture, package or configuration\nconstant\n^\n"
            "analyse work.q failed: exit status 1\n");
    folder.Write("q.vhd", "package q is constant d : natural := 3; end package;\n");
    EXPECT_EQ(Ran("--with ghdl --jobs 1"),
              std::string(kBothPassed) +
                  "[1/4] analyse work.q\n[2/4] analyse work.b\n[3/4] simulate work.a(sim)\n"
                  "[4/4] simulate work.b(sim)\n");
}

TEST(RanBuilds, ForgetSourcesThatWereTakenOut) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    WriteVhdl(folder);
    EXPECT_EQ(Ran("--with ghdl").substr(0, 1), "s");
    folder.Write("my build.xml", BuildText(TopsText("VHDL", {{"b", "sim"}}) +
                                           "<SourceFileGroup Language=\"VHDL\">\n" +
                                           SourceText("b.vhd") + "</SourceFileGroup>\n"));
    EXPECT_EQ(Ran("--with ghdl"),
              "1\nsimulation  result  time  log\nwork.b(sim)  not run  -  -\n"
              "0 passed, 0 failed, 1 not run\n[1/2] analyse work.b\n"
              "./b.vhd:1:10: unit \"q\" not found in library \"work\"\nuse work.q.all;\n  ^\n"
              "./b.vhd:3:21: entity 'b' was not analysed\narchitecture sim of b is begin\n  ^\n"
              "analyse work.b failed: exit status 1\n");
}

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

// One program that is told what to do: it takes long to make. Verilator cuts names at blanks when
// it tells of places.
TEST(RanBuilds, FailUnderVerilatorByErrorsAndTime) {
    if (!IsInstalled("verilator")) GTEST_SKIP() << "verilator is not installed";
    const WorkingFolder folder;
    folder.Write("my rtl/t.v",
                 "module t;\n  initial begin\n"
                 "    if ($test$plusargs(\"warning\")) $warning(\"x\");\n"
                 "    if ($test$plusargs(\"error\")) $error(\"x\");\n"
                 "    if ($test$plusargs(\"fatal\")) $fatal(1, \"x\");\n"
                 "    if (!$test$plusargs(\"forever\")) $finish;\n  end\n"
                 "  always #1;\nendmodule\n");
    folder.Write("my build.xml",
                 BuildText(TopsText("Verilog", {{"t", ""}}) +
                           "<ProjectLanguageConfigurationList><LanguageSettings Language="
                           "\"Verilog\"><BuildOptions>-sv</BuildOptions></LanguageSettings>"
                           "</ProjectLanguageConfigurationList>\n<SourceFileGroup "
                           "Language=\"Verilog\">\n" +
                           SourceText("my rtl/t.v") + "</SourceFileGroup>\n"));
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

TEST(RanBuilds, FollowWhatTheTextsTellWhereNothingIsRecorded) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    WriteVhdl(folder);
    folder.Write("my build.xml",
                 BuildText(TopsText("VHDL", {{"a", "sim"}, {"b", "sim"}}) +
                           "<SourceFileGroup Language=\"VHDL\">\n" +
                           SourceText("it's here/p.vhd", {}, "PrecompiledLibrary=\"util\"") +
                           SourceText("q.vhd") + SourceText("a.vhd") + SourceText("b.vhd") +
                           "</SourceFileGroup>\n"));
    EXPECT_EQ(Ran("--with ghdl --jobs 1").substr(0, std::string(kBothPassed).size()), kBothPassed);
    folder.Write("q.vhd", "package q is constant d : natural := 3; end package;\n");
    EXPECT_EQ(Ran("--with ghdl --jobs 1"),
              std::string(kAgainB) +
                  "[1/3] analyse work.q\n[2/3] analyse work.b\n[3/3] simulate work.b(sim)\n");
}

TEST(RanBuilds, ShareNoFolder) {
    const WorkingFolder folder;
    WriteVhdl(folder);
    folder.Write("bin/ninja", "#!/bin/sh\n: >running\nuntil test -e go; do sleep 0.02; done\n");
    folder.Write("bin/ghdl", "#!/bin/sh\n");
    for (const char* program : {"bin/ninja", "bin/ghdl"})
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const std::string command = HDLBUILD_PROGRAM " run 'my build.xml' --with ghdl --tool-path bin";
    const auto [status, text] =
        Shell(command + " >first 2>&1 & until test -e running; do sleep 0.02; done; " + command +
              " 2>&1; s=$?; >go; wait; exit $s");
    EXPECT_EQ(WEXITSTATUS(status), 3);
    EXPECT_EQ(std::regex_replace(text, std::regex("\"/.*/my build.run/.*.lock\""), "L"),
              "hdlbuild: error: my build.run/build.ninja: it is being changed elsewhere: L stayed "
              "locked for 10 seconds\n");
}

TEST(RanBuilds, DoUnderIcarusWhatHasChangedAlone) {
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
TEST(RanBuilds, AreDoneAgainWhateverHasChanged) {
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
    std::filesystem::permissions("bin/vvp", std::filesystem::perms::owner_all);
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

TEST(RanBuilds, TakeTheArchitectureThatIsLastInTheBuild) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    folder.Write("e.vhd", "entity e is end;\n");
    for (const char* name : {"beh", "rtl"})
        folder.Write(std::string(name) + ".vhd",
                     std::string("architecture ") + name + " of e is begin\n" +
                         "  assert false report \"" + name + "\" severity note;\nend;\n");
    folder.Write("t.vhd",
                 "entity t is end;\narchitecture s of t is begin i : entity work.e; end;\n");
    const auto write = [&folder](const char* first, const char* second) {
        folder.Write(
            "my build.xml",
            BuildText(TopsText("VHDL", {{"t", "s"}}) + "<SourceFileGroup Language=\"VHDL\">\n" +
                      SourceText("e.vhd") + SourceText(first) + SourceText(second) +
                      SourceText("t.vhd") + "</SourceFileGroup>\n"));
    };
    const auto reported = [] {
        return Shell("sed 's/.*note): //' 'my build.run'/logs/ghdl/simulate*").second;
    };
    write("beh.vhd", "rtl.vhd");
    EXPECT_EQ(Ran("--with ghdl").substr(0, 1), "s");
    EXPECT_EQ(reported(), "rtl\n");
    const std::string passed =
        "simulation  result  time  log\n"
        "work.t(s)  passed  T s  my build.run/logs/ghdl/simulate-work.t_s_-D.log\n"
        "1 passed, 0 failed, 0 not run\n";
    AppendTo("beh.vhd", "-- changed\n");
    EXPECT_EQ(Ran("--with ghdl"), passed +
                                      "[1/3] analyse work.beh\n[2/3] analyse work.rtl\n"
                                      "[3/3] simulate work.t(s)\n");
    EXPECT_EQ(reported(), "rtl\n");
    write("rtl.vhd", "beh.vhd");
    EXPECT_EQ(Ran("--with ghdl").substr(0, 1), "s");
    EXPECT_EQ(reported(), "beh\n");
    // A library that is cut is made anew.
    EXPECT_EQ(Shell(": >'my build.run'/ghdl/libraries/work-obj08.cf").first, 0);
    EXPECT_EQ(Ran("--with ghdl"),
              passed +
                  "[1/5] analyse work.e\n[2/5] analyse work.rtl\n[3/5] analyse work.beh\n"
                  "[4/5] analyse work.t\n[5/5] simulate work.t(s)\n");
}

// The generated module is a source as any other, and a check leaves the program alone.
TEST(RanBuilds, MakeAProgramForEachGenericWithWaves) {
    const WorkingFolder folder;
    folder.Write("t.v", "module t; endmodule\n");
    folder.Write("my build.xml", BuildText(TopsText("Verilog", {{"t", ""}}) +
                                           "<SourceFileGroup Language=\"Verilog\">\n" +
                                           SourceText("t.v") + "</SourceFileGroup>\n"));
    folder.Write("bin/verilator",
                 "#!/bin/sh\ntest \"$1\" != --version || exec echo Verilator 5.006\n"
                 "test \"$1\" != --lint-only || exit 0\n"
                 "for file; do :; done\ncp \"$file\" waves\n"
                 "printf '#!/bin/sh\\ngrep -o \"N.*)\" ${0%%/*}/waves\\n' >simulation\n"
                 "chmod +x simulation\n");
    std::filesystem::permissions("bin/verilator", std::filesystem::perms::owner_all);
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

TEST(RanBuilds, TellAllThatAFailingSimulationPrints) {
    if (!IsInstalled("iverilog")) GTEST_SKIP() << "iverilog is not installed";
    const WorkingFolder folder;
    folder.Write(
        "t.v",
        "module t; initial begin\n$display(\"[12] begin\\nFAILED: checks\\nexpected 5\\n"
        "ninja: error: hello\\n\\n\\ttabbed\"); $write(\"end \"); $fatal; end endmodule\n");
    folder.Write("my build.xml",
                 BuildText(TopsText("Verilog", {{"t", ""}}) +
                           "<ProjectLanguageConfigurationList><LanguageSettings Language="
                           "\"Verilog\"><BuildOptions>-sv</BuildOptions></LanguageSettings>"
                           "</ProjectLanguageConfigurationList>\n<SourceFileGroup "
                           "Language=\"Verilog\">\n" +
                           SourceText("t.v") + "</SourceFileGroup>\n"));
    EXPECT_EQ(Ran("--with icarus -o out"),
              "1\nsimulation  result  time  log\n"
              "work.t  failed  T s  out/logs/icarus/simulate-work.t-D.log\n"
              "0 passed, 1 failed, 0 not run\n"
              "[1/2] compile work.t\n[2/2] simulate work.t\n"
              "[12] begin\nFAILED: checks\nexpected 5\nninja: error: hello\n\n\\ttabbed\n"
              "end FATAL: ./t.v:2: \n  Time: 0 Scope: t\n"
              "simulate work.t failed: failure: end FATAL: ./t.v:2: \n");
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
    for (const char* program : {"bin/iverilog", "bin/vvp"})
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
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
    WriteVhdl(folder);
    folder.Write("build.ninja", "# mine, written by hand\n");
    for (const char* program : {"bin/ninja", "bin/ghdl"}) {
        folder.Write(program, "#!/bin/sh\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
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
    std::filesystem::permissions("launch", std::filesystem::perms::owner_all);
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

TEST(RanBuilds, WriteWavesUnderBothVersionsOfVerilator) {
    if (!IsInstalled("verilator")) GTEST_SKIP() << "verilator is not installed";
    const WorkingFolder folder;
    folder.Write("t.v",
                 "module t;\n  parameter N = 1;\n  reg [7:0] x;\n  initial begin\n    x = N;\n"
                 "    $display(\"%0d\", x);\n    $finish;\n  end\nendmodule\n");
    folder.Write("build.xml", BuildText(TopsText("Verilog", {{"t", ""}}) +
                                        "<SourceFileGroup Language=\"Verilog\">\n" +
                                        SourceText("t.v") + "</SourceFileGroup>\n"));
    folder.Write("old/verilator",
                 "#!/bin/sh\ncase \"$*\" in --version) echo 'Verilator 4.228 2022-10-01';;\n"
                 "*) PATH=\"$HDLBUILD_TEST_PATH\"; echo \"$1 $2 $3\" >>'" +
                     folder.Path("calls") + "'; exec verilator \"$@\";; esac\n");
    std::filesystem::permissions("old/verilator", std::filesystem::perms::owner_all);
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

TEST(RanBuilds, AreNotBegunBehindAnInterruption) {
    const WorkingFolder folder;
    folder.Write("t.v", "module t; endmodule\n");
    folder.Write("build.xml", BuildText(TopsText("Verilog", {{"t", ""}}) +
                                        "<SourceFileGroup Language=\"Verilog\">\n" +
                                        SourceText("t.v") + "</SourceFileGroup>\n"));
    folder.Write("bin/ninja", "#!/bin/sh\n");
    folder.Write("bin/verilator", "#!/bin/sh\n: >begun\nsleep 30\n");
    for (const char* program : {"bin/ninja", "bin/verilator"})
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
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

TEST(RanBuilds, AreRefusedWhereMakeFails) {
    const WorkingFolder folder;
    folder.Write("t.v", "module t; endmodule\n");
    folder.Write("my build.xml", BuildText(TopsText("Verilog", {{"t", ""}}) +
                                           "<SourceFileGroup Language=\"Verilog\">\n" +
                                           SourceText("t.v") + "</SourceFileGroup>\n"));
    EXPECT_EQ(
        Ran("--with verilator --dry-run"),
        "1\nhdlbuild: error: verilator cannot hold the name \"./my build.run/\": make takes no "
        "blanks; choose another folder with --output [HB603]\n");
}

TEST(RanBuilds, SayWhatIsMissing) {
    const WorkingFolder folder;
    WriteVhdl(folder);
    folder.Write("bin/ninja", "#!/bin/sh\n");
    EXPECT_EQ(Shell("PATH= " HDLBUILD_PROGRAM " run 'my build.xml' --with ghdl").second,
              "hdlbuild: error: ninja was not found: install Debian's package ninja-build, or name "
              "its folder with --tool-path\n"
              "hdlbuild: error: ghdl was not found: install Debian's package ghdl, or name its "
              "folder with --tool-path\n");
    std::filesystem::permissions("bin/ninja", std::filesystem::perms::owner_all);
    const auto [status, text] =
        Shell("PATH= " HDLBUILD_PROGRAM " run 'my build.xml' --with nvc --tool-path bin");
    EXPECT_EQ(WEXITSTATUS(status), 3);
    EXPECT_EQ(text,
              "hdlbuild: error: nvc was not found: install it, or name its folder with "
              "--tool-path\n");
    for (const char* program : {"ninja", "ghdl", "squeue"}) {
        folder.Write(std::string("bin/") + program, "#!/bin/sh\n");
        std::filesystem::permissions(std::string("bin/") + program,
                                     std::filesystem::perms::owner_all);
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
