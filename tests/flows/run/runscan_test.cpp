#include "flows/run/runscan.h"
#include "buildfile/hdlbuildfile.h"
#include "services/names/isfilename.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kBuild =
    "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\" DestinationLibrary=\"work\">"
    "<TopLevelComponents><ComponentList Language=\"Verilog\"><Component Library=\"work\" "
    "Architecture=\"\">top</Component></ComponentList><ComponentList Language=\"VHDL\">"
    "<Component Library=\"work\" Architecture=\"sim\">mixed</Component>"
    "<Component Library=\"work\" Architecture=\"sim\">plain</Component></ComponentList>"
    "</TopLevelComponents><ProjectLanguageConfigurationList><LanguageSettings "
    "Language=\"Verilog\"><IncludeDirectories><Directory>inc</Directory></IncludeDirectories>"
    "</LanguageSettings></ProjectLanguageConfigurationList>"
    "<SourceFileGroup Language=\"Verilog\"><SourceFile>top.v</SourceFile><SourceFile>m.v"
    "</SourceFile></SourceFileGroup><SourceFileGroup Language=\"VHDL\"><SourceFile>mixed.vhd"
    "</SourceFile><SourceFile>plain.vhd</SourceFile></SourceFileGroup>"
    "</HdlBuildFile></HdlBuildFileList>\n";

/// Of a number the file that it is in the plan.
std::string NameOf(const TBuildPlan& plan, std::size_t number) {
    return plan.Sources[number].Path.substr(plan.Folder.size());
}

std::string TextOf(const TRunScan& scan, const TBuildPlan& plan) {
    std::string text;
    for (std::size_t number = 0; number < plan.Sources.size(); ++number) {
        text += NameOf(plan, number) + ":";
        for (const std::size_t need : scan.Needs[number]) text += " needs " + NameOf(plan, need);
        text += "\n";
    }
    for (const std::string& file : scan.VerilogFiles)
        text += "also " + file.substr(plan.Folder.size()) + "\n";
    for (std::size_t number = 0; number < plan.Tops.size(); ++number) {
        text += plan.Tops[number].Entity + ":";
        for (const std::size_t need : scan.TopNeeds[number]) text += " " + NameOf(plan, need);
        for (const THdlLanguage language : scan.OtherLanguages[number])
            text += std::string(" and ") + GetStringFromHdlLanguage(language);
        text += "\n";
    }
    return text;
}

std::string Scanned(const TemporaryFolder& folder, const char* buildText) {
    THdlBuildFile build;
    build.SetBuildFileName(ISFileName::NewISFileName(folder.Write("b.xml", buildText).c_str()));
    EXPECT_EQ(build.ReadFromFile(), 0);
    const TBuildPlan plan = MakePlan(build);
    return TextOf(ScanForRun(build, plan), plan);
}

}  // namespace

TEST(RunScan, FindsIncludedFilesAndTopsOfTwoLanguages) {
    const TemporaryFolder folder;
    folder.Write("inc/a.vh", "`include \"b.vh\"\n");
    folder.Write("inc/b.vh", "`define B 1\n");
    folder.Write("top.v", "`include \"a.vh\"\nmodule top; m i(); endmodule\n");
    folder.Write("m.v", "module m; endmodule\n");
    folder.Write("mixed.vhd",
                 "entity mixed is end;\narchitecture sim of mixed is component m is end component;"
                 "\nbegin i : m; end;\n");
    folder.Write("plain.vhd", "entity plain is end;\narchitecture sim of plain is begin end;\n");
    EXPECT_EQ(Scanned(folder, kBuild),
              "top.v:\n"
              "m.v:\n"
              "mixed.vhd:\n"
              "plain.vhd:\n"
              "also inc/a.vh\n"
              "also inc/b.vh\n"
              "top: top.v m.v\n"
              "mixed: m.v mixed.vhd and Verilog\n"
              "plain: plain.vhd\n");
}

// The build records an order, one need that no text tells, and nothing of the others. What a text
// does not explain may be needed by each top.
TEST(RunScan, FindsWhatIsNeededAndNotRecorded) {
    const TemporaryFolder folder;
    folder.Write("p.vhd", "package p is constant c : bit := '1'; end;\n");
    folder.Write("q.vhd", "package q is constant c : bit := '1'; end;\n");
    folder.Write("dut.vhd",
                 "use work.p.all;\nentity dut is end;\narchitecture a of dut is begin end;\n");
    folder.Write("tb.vhd",
                 "entity tb is end;\narchitecture sim of tb is begin i : entity work.dut; end;\n");
    folder.Write(
        "other.vhd",
        "use work.q.all;\nentity other is end;\narchitecture sim of other is begin end;\n");
    folder.Write("notes.vhd", "-- nothing\n");
    EXPECT_EQ(
        Scanned(folder,
                "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\" "
                "DestinationLibrary=\"work\"><TopLevelComponents><ComponentList Language=\"VHDL\">"
                "<Component Library=\"work\" Architecture=\"sim\">tb</Component>"
                "<Component Library=\"work\" Architecture=\"sim\">other</Component>"
                "<Component Library=\"work\" Architecture=\"sim\">nowhere</Component>"
                "</ComponentList></TopLevelComponents><SourceFileGroup Language=\"VHDL\">"
                "<SourceFile>p.vhd</SourceFile><SourceFile>q.vhd</SourceFile>"
                "<SourceFile>dut.vhd</SourceFile><SourceFile>tb.vhd<Dependency>q.vhd</Dependency>"
                "</SourceFile><SourceFile>other.vhd</SourceFile><SourceFile>notes.vhd</SourceFile>"
                "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>\n"),
        "p.vhd:\n"
        "q.vhd:\n"
        "dut.vhd: needs p.vhd\n"
        "tb.vhd: needs q.vhd needs dut.vhd\n"
        "other.vhd: needs q.vhd\n"
        "notes.vhd:\n"
        "tb: p.vhd q.vhd dut.vhd tb.vhd notes.vhd\n"
        "other: q.vhd other.vhd notes.vhd\n"
        "nowhere: p.vhd q.vhd dut.vhd tb.vhd other.vhd notes.vhd\n");
}

// A compiler may look elsewhere first; editors leave links and folders.
TEST(RunScan, FindsWhatIsReadOfLibraries) {
    const TemporaryFolder folder;
    folder.Write("t.v", "`include \"w.vh\"\nmodule t; c i(); endmodule\n");
    folder.Write("w.vh", "");
    folder.Write("inc/w.vh", "`include \"deep.vh\"\n");
    folder.Write("inc/deep.vh", "");
    folder.Write("inc/cell.vh", "`include \"../t.v\"\n");
    folder.Write("inc/unused.vh", "");
    folder.Write("lib/c.v", "`include \"cell.vh\"\nmodule c; endmodule\n");
    folder.Write("lib/b.v", "");
    folder.Write("lib/.hidden.v", "");
    folder.Write("lib/notes.txt", "");
    folder.Write("lib/folder.v/file", "");
    std::error_code error;
    std::filesystem::create_symlink("nowhere", folder.Path("lib/.#c.v"), error);
    std::filesystem::create_symlink("nowhere", folder.Path("lib/gone.v"), error);
    folder.Write("cells.v", "`include \"file.vh\"\nmodule d; endmodule\n");
    folder.Write("inc/file.vh", "");
    EXPECT_EQ(Scanned(folder,
                      "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"Verilog\">"
                      "<ProjectLanguageConfigurationList><LanguageSettings Language=\"Verilog\">"
                      "<IncludeDirectories><Directory>inc</Directory></IncludeDirectories>"
                      "<LibraryDirectories><Directory>lib</Directory></LibraryDirectories>"
                      "<BuildOptions>-v cells.v</BuildOptions></LanguageSettings>"
                      "</ProjectLanguageConfigurationList><SourceFileGroup Language=\"Verilog\">"
                      "<SourceFile>t.v</SourceFile></SourceFileGroup>"
                      "</HdlBuildFile></HdlBuildFileList>\n"),
              "t.v:\n"
              "cells.v:\n"
              "also w.vh\n"
              "also inc/w.vh\n"
              "also cells.v\n"
              "also lib/b.v\n"
              "also lib/c.v\n"
              "also inc/deep.vh\n"
              "also inc/file.vh\n"
              "also inc/cell.vh\n"
              "also t.v\n");
}

// What is analysed last counts, so those behind a changed one are analysed again.
TEST(RunScan, KeepsTheOrderOfWhatReplacesEachOther) {
    const TemporaryFolder folder;
    folder.Write("e.vhd", "entity e is end;\n");
    folder.Write("beh.vhd", "architecture beh of E is begin end;\n");
    folder.Write("rtl.vhd", "architecture rtl of e is begin end;\n");
    folder.Write("p1.vhd", "package p is end;\n");
    folder.Write("p2.vhd", "package P is end;\n");
    folder.Write("tb.vhd",
                 "entity tb is end;\narchitecture a of tb is begin i : entity work.e(beh); end;\n");
    EXPECT_EQ(Scanned(folder,
                      "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\">"
                      "<TopLevelComponents><ComponentList Language=\"VHDL\">"
                      "<Component Library=\"work\" Architecture=\"a\">tb</Component>"
                      "</ComponentList></TopLevelComponents><SourceFileGroup Language=\"VHDL\">"
                      "<SourceFile>e.vhd</SourceFile><SourceFile>beh.vhd</SourceFile>"
                      "<SourceFile>rtl.vhd</SourceFile><SourceFile>p1.vhd</SourceFile>"
                      "<SourceFile>p2.vhd</SourceFile><SourceFile>tb.vhd</SourceFile>"
                      "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>\n"),
              "e.vhd:\n"
              "beh.vhd: needs e.vhd\n"
              "rtl.vhd: needs e.vhd needs beh.vhd\n"
              "p1.vhd:\n"
              "p2.vhd: needs p1.vhd\n"
              "tb.vhd: needs e.vhd\n"
              "tb: e.vhd beh.vhd p1.vhd p2.vhd tb.vhd\n");
}
