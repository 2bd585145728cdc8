#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

/// A Verilog build with a top, in the current directory.
void WriteBuild(const WorkingFolder& folder, const std::string& source) {
    folder.Write(source, "module top; endmodule\n");
    folder.Write("b.xml",
                 BuildText("<TopLevelComponents><ComponentList Language=\"Verilog\"><Component "
                           "Library=\"work\" Architecture=\"\">top</Component></ComponentList>"
                           "</TopLevelComponents>\n<SourceFileGroup Language=\"Verilog\">\n" +
                           SourceText(source) + "</SourceFileGroup>\n"));
}

std::string TextOf(const WorkingFolder& folder, const std::string& name) {
    return std::filesystem::exists(name) ? folder.Read(name) : "none";
}

}  // namespace

TEST(ExportCommand, ListsTheFormats) {
    EXPECT_EQ(ResultOf({"export", "--to", "list"}),
              "blueprint         Tab-separated list of all sources with language and library      "
              "libraries, order\n"
              "compile-commands  compile_commands.json of the sources in C++ and SystemC          "
              "include directories, defines, options\n"
              "depfile           Rule of make and ninja that names all sources                    "
              "nothing else\n"
              "edam-json         EDAM for Edalize, as JSON                                        "
              "libraries, order, standard, include and library directories, library files, "
              "defines, delays, tops, options\n"
              "edam-yaml         EDAM for Edalize, as YAML                                        "
              "libraries, order, standard, include and library directories, library files, "
              "defines, delays, tops, options\n"
              "filelist          Command file in the subset that all readers of such lists share  "
              "include and library directories, library files, defines\n"
              "fusesoc           Core file (.core) for FuseSoC                                    "
              "libraries, order, standard, defines, delays, tops, options\n"
              "ghdl              Shell script that analyses, elaborates and runs with GHDL        "
              "libraries, order, standard, tops, options\n"
              "hdl-prj           hdl-prj.json of the language server of GHDL                      "
              "libraries, standard, analysis options\n"
              "icarus            Command file for Icarus Verilog                                  "
              "include and library directories, library files, defines\n"
              "libmap            Library map of SystemVerilog                                     "
              "libraries, include directories\n"
              "make              Makefile for GHDL and Icarus Verilog                             "
              "libraries, order, standard, include and library directories, library files, "
              "defines, delays, tops, options\n"
              "ninja             File for ninja that calls GHDL and Icarus Verilog                "
              "libraries, order, needs, standard, include and library directories, library files, "
              "defines, delays, tops, options\n"
              "osvvm             Script (.pro) for OSVVM                                          "
              "libraries, order, standard, tops\n"
              "slang             Command file for slang                                           "
              "include and library directories, library files, defines, delays, top\n"
              "svls              .svls.toml of the SystemVerilog language server svls             "
              "include directories only\n"
              "vcs               Command file for the large Verilog simulators                    "
              "include and library directories, library files, defines, delays, top\n"
              "verible           verible.filelist of the language server of Verible               "
              "include directories, defines with a value\n"
              "verilator         Command file for Verilator                                       "
              "include and library directories, library files, defines, top\n"
              "vhdl-ls           vhdl_ls.toml of the VHDL language server                         "
              "libraries, standard\n"
              "vsim              Tcl script for simulators with vlib, vcom, vlog and vsim         "
              "libraries, order, standard, include and library directories, library files, "
              "defines, delays, tops, options\n"
              "vunit             run.py for VUnit                                                 "
              "libraries, standard, include directories, defines\n"
              "vunit-csv         List of sources that VUnit reads                                 "
              "libraries\n");
}

TEST(ExportCommand, WritesPathsFromTheFolderOfItsOutput) {
    const WorkingFolder folder;
    WriteBuild(folder, "rtl/a.v");
    std::filesystem::create_directory("out");
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "filelist"}),
              "// Verilog sources, one item a line\nrtl/a.v\n");
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "filelist", "-o", "-"}),
              "// Verilog sources, one item a line\nrtl/a.v\n");
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "filelist", "-o", "out/b.f"}), "");
    EXPECT_EQ(TextOf(folder, "out/b.f"), "// Verilog sources, one item a line\n../rtl/a.v\n");
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "icarus", "--top", "WORK.top", "-o", "b.f"}),
              "");
    EXPECT_EQ(TextOf(folder, "b.f"),
              "// Verilog sources for Icarus Verilog\n"
              "// iverilog -c THIS_FILE -s top\n"
              "rtl/a.v\n");
}

TEST(ExportCommand, WritesNothingWithANameThatTheFormatCannotHold) {
    const WorkingFolder folder;
    WriteBuild(folder, "a b.v");
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "filelist", "-o", "b.f"}),
              "1\nhdlbuild: error: filelist cannot hold the name \"a b.v\": readers differ on "
              "blanks and quotes [HB603]\n");
    EXPECT_EQ(TextOf(folder, "b.f"), "none");
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "verilator"}),
              "// Verilog sources for Verilator\n\"a b.v\"\n");
}

TEST(ExportCommand, RefusesWhatItDoesNotKnowAndWhatItWouldReplace) {
    const WorkingFolder folder;
    WriteBuild(folder, "a.v");
    const struct {
        std::vector<std::string> Arguments;
        const char* Result;
    } rows[] = {
        {{"export", "b.xml", "--to", "iccarus"},
         "2\nhdlbuild: error: unknown format 'iccarus'; nearest: icarus; known: list, blueprint, "
         "compile-commands, depfile, edam-json, edam-yaml, filelist, fusesoc, ghdl, hdl-prj, "
         "icarus, libmap, make, ninja, osvvm, slang, svls, vcs, verible, verilator, vhdl-ls, vsim, "
         "vunit, vunit-csv\n"},
        {{"export", "--to", "ghdl"}, "2\nhdlbuild: error: BUILD is required\n"},
        {{"export", "b.xml", "--to", "icarus", "--top", "topp"},
         "2\nhdlbuild: error: unknown top-level component 'topp'; known: "
         "work.top\n"},
        {{"export", "b.xml", "--to", "icarus", "-o", "b.xml"},
         "2\nhdlbuild: error: b.xml: the output would replace the build file\n"},
        {{"export", "b.xml", "--to", "icarus", "-o", "a.v"},
         "2\nhdlbuild: error: a.v: the output would replace the source a.v\n"},
        {{"export", "none.xml", "--to", "icarus"},
         "3\nhdlbuild: error: none.xml: the file does not exist\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(ResultOf(row.Arguments), row.Result);
    EXPECT_EQ(TextOf(folder, "a.v"), "module top; endmodule\n");
}

TEST(ExportCommand, LeavesOutWhatTheTopDoesNotNeed) {
    const WorkingFolder folder;
    folder.Write("a.v", "module a; b i(); endmodule\n");
    folder.Write("b.v", "module b; endmodule\n");
    folder.Write("c.v", "module c; endmodule\n");
    folder.Write("b.xml", BuildText("<TopLevelComponents><ComponentList Language=\"Verilog\">"
                                    "<Component Library=\"work\">a</Component>"
                                    "<Component Library=\"work\">d</Component>"
                                    "</ComponentList></TopLevelComponents>\n"
                                    "<SourceFileGroup Language=\"Verilog\">\n" +
                                    SourceText("c.v") + SourceText("b.v") + SourceText("a.v") +
                                    "</SourceFileGroup>\n"));
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "verilator", "--top", "a"}),
              "// Verilog sources for Verilator\nb.v\na.v\n--top-module a\n"
              "hdlbuild: note: 1 of 3 sources are left out: work.a does not need them [HB604]\n");
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "verilator", "--top", "d"}),
              "// Verilog sources for Verilator\nc.v\nb.v\na.v\n--top-module d\n"
              "hdlbuild: warning: no source holds work.d: none is left out [HB605]\n");
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "verilator"}),
              "// Verilog sources for Verilator\nc.v\nb.v\na.v\n");
}

TEST(ExportCommand, PrintsJson) {
    const WorkingFolder folder;
    WriteBuild(folder, "a.v");
    EXPECT_EQ(ResultOf({"export", "b.xml", "--to", "ghdl", "--json"}),
              "{\n"
              "  \"format\": \"hdlbuild-export\",\n"
              "  \"version\": 1,\n"
              "  \"build\": \"b.xml\",\n"
              "  \"to\": \"ghdl\",\n"
              "  \"output\": null,\n"
              "  \"losses\": [\n"
              "    {\n"
              "      \"code\": \"HB602\",\n"
              "      \"text\": \"ghdl has no words for sources in Verilog\"\n"
              "    }\n"
              "  ],\n"
              "  \"text\": \"#!/bin/sh\\nset -e\\ncd \\\"$(dirname \\\"$0\\\")\\\"\\n"
              "GHDL=${GHDL:-ghdl}\\nmkdir -p ghdl\\noptions=\\\"--std=08 --workdir=ghdl "
              "-Pghdl\\\"\\n\"\n"
              "}\n"
              "hdlbuild: warning: ghdl has no words for sources in Verilog [HB602]\n");
}
