#include "services/hdl/hdllanguage.h"
#include "tests/cli/shell.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

std::string Export(const std::vector<std::string>& arguments) {
    std::vector<std::string> words{"export", "my build.xml"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return ResultOf(words);
}

void WriteVerilog(const WorkingFolder& folder) {
    folder.Write("inc/width.vh", "`define WIDTH 4\n");
    folder.Write("lib/cell.v", "module cell_a(output y); assign y = 1; endmodule\n");
    folder.Write("my rtl/top.v",
                 "`include \"width.vh\"\nmodule top;\n  wire [`WIDTH-1:0] y;\n"
                 "  cell_a c(y[0]);\n  initial begin\n    #1 $display(\"%0d %b\", `TAPS, y[0]);\n"
                 "    $finish;\n  end\nendmodule\n");
    folder.Write(
        "my build.xml",
        BuildText("<TopLevelComponents><ComponentList Language=\"Verilog\"><Component "
                  "Library=\"work\" Architecture=\"\">top</Component></ComponentList>"
                  "</TopLevelComponents>\n<ProjectLanguageConfigurationList><LanguageSettings "
                  "Language=\"Verilog\"><IncludeDirectories><Directory>inc</Directory>"
                  "</IncludeDirectories><DelayType>1</DelayType><BuildOptions>+define+TAPS=16"
                  "</BuildOptions></LanguageSettings></ProjectLanguageConfigurationList>\n"
                  "<SourceFileGroup Language=\"Verilog\">\n" +
                  SourceText("my rtl/top.v") + SourceText("lib/cell.v", {}, "Library=\"true\"") +
                  "</SourceFileGroup>\n"));
}

/// A package in a library of its own, at `package`, and a bench that prints 16.
void WriteExample(const WorkingFolder& folder, const std::string& package) {
    folder.Write(package, "package p is constant c : natural := 16; end package;\n");
    folder.Write("tb.vhd",
                 "library util; use util.p.all;\nentity tb is end;\n"
                 "architecture sim of tb is begin\n"
                 "  assert false report integer'image(c) severity note;\nend;\n");
    folder.Write(
        "my build.xml",
        BuildText("<TopLevelComponents><ComponentList Language=\"VHDL\"><Component "
                  "Library=\"work\" Architecture=\"sim\">tb</Component></ComponentList>"
                  "</TopLevelComponents>\n<SourceFileGroup Language=\"VHDL\">\n" +
                  SourceText("tb.vhd", {package}) +
                  SourceText(package, {}, "PrecompiledLibrary=\"util\"") + "</SourceFileGroup>\n"));
}

/// The name as a text of XML.
std::string Escaped(const std::string& name) {
    std::string text;
    for (const char c : name)
        text += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '"' ? "&quot;" : std::string(1, c);
    return text;
}

/// A build with one source of that name, whose top prints "ran".
void WriteHostile(const WorkingFolder& folder, THdlLanguage language, const std::string& name) {
    const bool isVhdl = language == LANGUAGE_VHDL;
    folder.Write(name,
                 isVhdl ? "entity \\my top\\ is end;\narchitecture sim of \\my top\\ is begin\n"
                          "  process begin\n    std.textio.write(std.textio.output, \"ran\" & lf);"
                          "\n    wait;\n  end process;\nend;\n"
                        : "module \\my-top ;\n  initial begin\n    $display(\"ran\");\n"
                          "    $finish(0);\n  end\nendmodule\n");
    const std::string group = isVhdl ? "VHDL" : "Verilog";
    folder.Write("my build.xml",
                 BuildText("<TopLevelComponents><ComponentList Language=\"" + group +
                           "\"><Component Library=\"work\" Architecture=\"\">" +
                           (isVhdl ? "\\my top\\" : "\\my-top ") +
                           "</Component></ComponentList></TopLevelComponents>\n"
                           "<SourceFileGroup Language=\"" +
                           group + "\">\n" + SourceText(Escaped(name)) + "</SourceFileGroup>\n"));
}

constexpr const char* kHostileNames[] = {"-o.x",   "-",     "+p.x", "@a.x", ";s.x",  "s;echo no;.x",
                                         "$(d).x", "$d.x",  "%p.x", "c:.x", ":c.x",  "a b.x",
                                         "it's.x", "#h.x",  "~.x",  "`t.x", "a&b.x", "(r).x",
                                         "{b}.x",  "[b].x", "*.x",  "?.x",  "q\".x", "e=e.x"};

/// A '.' for each name that the tool takes, '-' for each that the format refuses, '!' for the rest.
std::string MarksOf(const std::string& format, THdlLanguage language, const std::string& command) {
    std::string marks;
    for (const std::string name : kHostileNames) {
        const WorkingFolder folder;
        WriteHostile(folder, language, name);
        const TToolRun run = RunHdlbuild({"export", "my build.xml", "--to", format, "-o", "out"});
        if (run.Status == 1 && run.Err.find("[HB603]") != std::string::npos) {
            marks += '-';
            continue;
        }
        const auto [status, output] = Shell(command);
        const bool hasRun = run.Status == 0 && status == 0 && output == "ran\n";
        marks += hasRun ? '.' : '!';
        if (!hasRun) ADD_FAILURE() << format << " " << name << "\n" << run.Err << output;
    }
    return marks;
}

}  // namespace

TEST(ExportedBuilds, TakeOrRefuseEachHostileName) {
    const struct {
        const char* Format;
        THdlLanguage Language;
        const char* Program;
        const char* Command;
        const char* Marks;
    } rows[] = {
        {"ninja", LANGUAGE_VERILOG, "iverilog", "ninja -f out --quiet", "......................-."},
        {"ninja", LANGUAGE_VHDL, "ghdl", "ninja -f out --quiet", "......................-."},
        {"make", LANGUAGE_VERILOG, "iverilog", "make -s -f out", "....---.---...-.--.-----"},
        {"make", LANGUAGE_VHDL, "ghdl", "make -s -f out", "....---.---...-.--.-----"},
        {"ghdl", LANGUAGE_VHDL, "ghdl", "sh ./out", "......................-."},
        {"icarus", LANGUAGE_VERILOG, "iverilog",
         "iverilog -c out -s my-top -o my.vvp && vvp -n my.vvp", "---...-......-........-."},
        {"verilator", LANGUAGE_VERILOG, "verilator",
         "verilator --lint-only -Wno-DECLFILENAME -f out && echo ran", "---...--.....-.........."},
    };
    std::string missing;
    for (const auto& row : rows) {
        if (!IsInstalled(row.Program)) {
            missing += std::string(" ") + row.Program;
            continue;
        }
        EXPECT_EQ(MarksOf(row.Format, row.Language, row.Command), row.Marks)
            << row.Format << " " << row.Program;
    }
    if (!missing.empty()) GTEST_SKIP() << "not installed:" << missing;
}

TEST(ExportedBuilds, RunUnderIcarus) {
    if (!IsInstalled("iverilog")) GTEST_SKIP() << "iverilog is not installed";
    const WorkingFolder folder;
    WriteVerilog(folder);
    EXPECT_EQ(Export({"--to", "icarus", "--top", "top", "-o", "b.f"}), "");
    EXPECT_EQ(Shell("iverilog -c b.f -s top -o top.vvp && vvp -n top.vvp"),
              std::make_pair(0, std::string("16 1\n")));
}

TEST(ExportedBuilds, PassVerilator) {
    if (!IsInstalled("verilator")) GTEST_SKIP() << "verilator is not installed";
    const WorkingFolder folder;
    WriteVerilog(folder);
    EXPECT_EQ(Export({"--to", "verilator", "--top", "top", "-o", "b.f"}), "");
    EXPECT_EQ(Shell("verilator --lint-only --timing -Wno-fatal -Wno-WIDTH -Wno-UNUSED -f b.f"),
              std::make_pair(0, std::string()));
}

TEST(ExportedBuilds, RunUnderGhdl) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    WriteExample(folder, "it's here/p.vhd");
    EXPECT_EQ(Export({"--to", "ghdl", "-o", "run.sh"}), "");
    const auto [status, output] = Shell("sh ./run.sh");
    EXPECT_EQ(status, 0) << output;
    EXPECT_EQ(output, "tb.vhd:4:3:@0ms:(assertion note): 16\n");
}

TEST(ExportedBuilds, AreTheLanguagesThatTheyClaimToBe) {
    const WorkingFolder folder;
    folder.Write("my build.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                                           SourceText("q&quot;.vhd") + "</SourceFileGroup>\n"));
    folder.Write("q\".vhd", "entity e is end;\n");
    EXPECT_EQ(RunHdlbuild({"export", "my build.xml", "--to", "vunit", "-o", "run.py"}).Status, 0);
    EXPECT_EQ(RunHdlbuild({"export", "my build.xml", "--to", "vunit-csv", "-o", "t.csv"}).Status,
              0);
    EXPECT_EQ(Shell("/usr/bin/python3 -c \"import ast, csv; "
                    "tree = ast.parse(open('run.py').read()); "
                    "print([n.value for n in ast.walk(tree) if isinstance(n, ast.Constant) "
                    "and '.vhd' in str(n.value)]); print(list(csv.reader(open('t.csv'))))\""),
              std::make_pair(0, std::string("['q\".vhd']\n[['work', 'q\".vhd']]\n")));
}

TEST(ExportedBuilds, AreRulesThatMakeReads) {
    if (!IsInstalled("make")) GTEST_SKIP() << "make is not installed";
    const WorkingFolder folder;
    folder.Write("a $b#.vhd", "entity e is end;\n");
    folder.Write("c.vhd", "entity f is end;\n");
    folder.Write("my build.xml",
                 BuildText("<SourceFileGroup Language=\"VHDL\">\n" + SourceText("a $b#.vhd") +
                           SourceText("c.vhd") + "</SourceFileGroup>\n"));
    EXPECT_EQ(Export({"--to", "depfile", "-o", "b.d"}), "");
    folder.Write("Makefile", "include b.d\nmy\\ build:\n\t@echo made of $(words $^): '$^'\n");
    EXPECT_EQ(Shell("make -s"), std::make_pair(0, std::string("made of 3: a $b#.vhd c.vhd\n")));
    std::filesystem::remove("c.vhd");
    EXPECT_NE(Shell("make -s").first, 0);
}

TEST(ExportedBuilds, AreScriptsThatTclReads) {
    if (!IsInstalled("tclsh")) GTEST_SKIP() << "tclsh is not installed";
    const WorkingFolder folder;
    folder.Write("a $b [c] {d\".vhd", "entity e is end;\n");
    folder.Write("my build.xml",
                 BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                           SourceText("a $b [c] {d&quot;.vhd") + "</SourceFileGroup>\n"));
    EXPECT_EQ(Export({"--to", "vsim", "-o", "b.tcl"}), "");
    EXPECT_EQ(Export({"--to", "osvvm", "-o", "b.pro"}), "");
    folder.Write("run.tcl",
                 "foreach name {vlib vcom library analyze} {\n"
                 "  proc $name args \"puts \\[join \\[list $name {*}\\$args\\] |\\]\"\n}\n"
                 "source b.tcl\nsource b.pro\n");
    EXPECT_EQ(Shell("tclsh run.tcl"),
              std::make_pair(0, std::string("vlib|work\n"
                                            "vcom|-work|work|a $b [c] {d\".vhd\n"
                                            "library|work\n"
                                            "analyze|a $b [c] {d\".vhd\n")));
}

TEST(ExportedBuilds, AreBuiltByNinja) {
    if (!IsInstalled("ninja") || !IsInstalled("ghdl")) GTEST_SKIP() << "not installed";
    const WorkingFolder folder;
    WriteExample(folder, "it's $here/p.vhd");
    EXPECT_EQ(Export({"--to", "ninja", "-o", "build.ninja"}), "");
    const std::string simulation = "simulate work.tb(sim)\ntb.vhd:4:3:@0ms:(assertion note): 16\n";
    EXPECT_EQ(
        Shell("NINJA_STATUS= ninja"),
        std::make_pair(0, "analyse util.p\nanalyse work.tb\nall VHDL is analysed\n" + simulation));
    EXPECT_EQ(Shell("ninja"), std::make_pair(0, std::string("ninja: no work to do.\n")));
    folder.Write("tb.vhd", folder.Read("tb.vhd") + "-- changed\n");
    EXPECT_EQ(Shell("NINJA_STATUS= ninja"),
              std::make_pair(0, "analyse work.tb\nall VHDL is analysed\n" + simulation));
}
