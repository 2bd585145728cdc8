#include "tests/cli/run/runbuild.h"
#include "tests/cli/shell.h"
#include <fstream>
#include <regex>

std::string TopsText(const char* language, const std::vector<TTop>& tops) {
    std::string text =
        std::string("<TopLevelComponents><ComponentList Language=\"") + language + "\">";
    for (const TTop& top : tops)
        text += std::string("<Component Library=\"work\" Architecture=\"") + top.Architecture +
                "\">" + top.Entity + "</Component>";
    return text + "</ComponentList></TopLevelComponents>\n";
}

std::string VerilogBuildText(const std::string& source, const std::string& settings) {
    return BuildText(TopsText("Verilog", {{"t", ""}}) + settings +
                     "<SourceFileGroup Language=\"Verilog\">\n" + SourceText(source) +
                     "</SourceFileGroup>\n");
}

void WriteVhdlBuild(const WorkingFolder& folder) {
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

std::string Ran(const std::string& arguments, const std::string& before) {
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

void MakeProgram(const std::string& file) {
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
}
