#include "tests/cli/shell.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

/// A package that another file needs, in a folder with a quote, and a module that includes a file.
void WriteProject(const WorkingFolder& folder) {
    folder.Write("it's here/p.vhd", "package p is constant c : natural := 16; end package;\n");
    folder.Write("tb.vhd",
                 "library util; use util.p.all;\nentity tb is end;\n"
                 "architecture sim of tb is begin\n"
                 "  assert false report integer'image(c) severity note;\nend;\n");
    folder.Write("my inc/width.vh", "`define WIDTH 4\n");
    folder.Write("rtl/t $1#.v",
                 "`include \"width.vh\"\nmodule top;\n"
                 "  initial $display(\"%0d %0d\", `TAPS, `WIDTH);\nendmodule\n");
    folder.Write(
        "b.xml",
        BuildText(
            "<TopLevelComponents><ComponentList Language=\"Verilog\"><Component Library=\"work\" "
            "Architecture=\"\">top</Component></ComponentList><ComponentList Language=\"VHDL\">"
            "<Component Library=\"work\" Architecture=\"sim\">tb</Component></ComponentList>"
            "</TopLevelComponents>\n<ProjectLanguageConfigurationList><LanguageSettings "
            "Language=\"Verilog\"><IncludeDirectories><Directory>my inc</Directory>"
            "</IncludeDirectories><BuildOptions>+define+TAPS=16</BuildOptions></LanguageSettings>"
            "</ProjectLanguageConfigurationList>\n<SourceFileGroup Language=\"Verilog\">\n" +
            SourceText("rtl/t $1#.v") +
            "</SourceFileGroup>\n<SourceFileGroup Language=\"VHDL\">\n" +
            SourceText("tb.vhd", {"it's here/p.vhd"}) +
            SourceText("it's here/p.vhd", {}, "PrecompiledLibrary=\"util\"") +
            "</SourceFileGroup>\n"));
}

/// What make does, one command a line, without running any; "" when all is up to date.
std::string Pending() {
    return Shell("make -n analyse 2>/dev/null | sed -n 's/^\\(ghdl -a\\|iverilog\\).*/\\1/p'")
        .second;
}

/// Makes the file look changed after everything that was made.
void Touch(const std::string& name) {
    ASSERT_EQ(Shell("touch -d '1 minute' \"" + name + "\"").first, 0);
}

bool HasTools() {
    return IsInstalled("make") && IsInstalled("ghdl") && IsInstalled("iverilog");
}

}  // namespace

TEST(ExportedMakefile, RunsTheTops) {
    if (!HasTools()) GTEST_SKIP() << "make, ghdl or iverilog is not installed";
    const WorkingFolder folder;
    WriteProject(folder);
    ASSERT_EQ(ResultOf({"export", "b.xml", "--to", "make", "-o", "Makefile"}), "");
    EXPECT_EQ(Shell("make -s -j2 analyse"), std::make_pair(0, std::string()));
    EXPECT_EQ(Shell("make -s run"),
              std::make_pair(0, std::string("tb.vhd:4:3:@0ms:(assertion note): 16\n16 4\n")));
}

TEST(ExportedMakefile, MakesWhatDependsOnAChangeAndNothingElse) {
    if (!HasTools()) GTEST_SKIP() << "make, ghdl or iverilog is not installed";
    const struct {
        const char* Changed;
        const char* Pending;
    } rows[] = {
        {"tb.vhd", "ghdl -a\n"},
        {"it's here/p.vhd", "ghdl -a\nghdl -a\n"},
        {"rtl/t \\$1#.v", "iverilog\n"},
        {"my inc/width.vh", "iverilog\n"},
        {"Makefile", "ghdl -a\nghdl -a\niverilog\n"},
    };
    for (const auto& row : rows) {
        const WorkingFolder folder;
        WriteProject(folder);
        ASSERT_EQ(ResultOf({"export", "b.xml", "--to", "make", "-o", "Makefile"}), "");
        ASSERT_EQ(Shell("make -s analyse"), std::make_pair(0, std::string()));
        EXPECT_EQ(Pending(), "") << row.Changed;
        Touch(row.Changed);
        EXPECT_EQ(Pending(), row.Pending) << row.Changed;
    }
}

TEST(ExportedMakefile, GoesOnWithoutAnIncludedFileThatNobodyNeedsAnyMore) {
    if (!HasTools()) GTEST_SKIP() << "make, ghdl or iverilog is not installed";
    const WorkingFolder folder;
    WriteProject(folder);
    ASSERT_EQ(ResultOf({"export", "b.xml", "--to", "make", "-o", "Makefile"}), "");
    ASSERT_EQ(Shell("make -s analyse"), std::make_pair(0, std::string()));
    folder.Write("rtl/t $1#.v", "module top; initial $display(\"alone\"); endmodule\n");
    std::filesystem::remove("my inc/width.vh");
    EXPECT_EQ(Shell("make -s run-work.top"), std::make_pair(0, std::string("alone\n")));
}

TEST(ExportedMakefile, StopsWhereASourceHasAFault) {
    if (!HasTools()) GTEST_SKIP() << "make, ghdl or iverilog is not installed";
    const WorkingFolder folder;
    WriteProject(folder);
    folder.Write("it's here/p.vhd", "package p is nonsense\n");
    ASSERT_EQ(ResultOf({"export", "b.xml", "--to", "make", "-o", "Makefile"}), "");
    EXPECT_NE(Shell("make -s analyse").first, 0);
    EXPECT_EQ(Shell("ls ghdl/util").first, 0);
    EXPECT_FALSE(std::filesystem::exists("ghdl/work/tb.vhd.ok"));
}

TEST(ExportedMakefile, TakesEveryNameThatIsNotRefused) {
    if (!HasTools()) GTEST_SKIP() << "make, ghdl or iverilog is not installed";
    const struct {
        const char* Name;
        const char* InBuild;
    } rows[] = {
        {"a b.vhd", "a b.vhd"},
        {"it's.vhd", "it's.vhd"},
        {"q\".vhd", "q&quot;.vhd"},
        {"$HOME.vhd", "$HOME.vhd"},
        {"$(x).vhd", "$(x).vhd"},
        {"#h.vhd", "#h.vhd"},
        {"-o.vhd", "-o.vhd"},
        {"@f.vhd", "@f.vhd"},
        {"+p.vhd", "+p.vhd"},
        {"`id`.vhd", "`id`.vhd"},
        {"{j}.vhd", "{j}.vhd"},
        {"<l>.vhd", "&lt;l&gt;.vhd"},
        {"!t.vhd", "!t.vhd"},
        {"a,b.vhd", "a,b.vhd"},
        {"^.vhd", "^.vhd"},
        {"\xC3\xA4.vhd", "\xC3\xA4.vhd"},
        {"&n.vhd", "&amp;n.vhd"},
        {"a:b.vhd", "a:b.vhd"},
        {"a=b.vhd", "a=b.vhd"},
        {"a;b.vhd", "a;b.vhd"},
        {"a|b.vhd", "a|b.vhd"},
        {"a%b.vhd", "a%b.vhd"},
        {"*.vhd", "*.vhd"},
        {"~a.vhd", "~a.vhd"},
        {"new\nline.vhd", "new&#10;line.vhd"},
    };
    std::string refused;
    for (const auto& row : rows) {
        const WorkingFolder folder;
        folder.Write(row.Name, "entity e is end;\n");
        folder.Write("b.xml", BuildText("<SourceFileGroup Language=\"VHDL\">\n" +
                                        SourceText(row.InBuild) + "</SourceFileGroup>\n"));
        const TToolRun run = RunHdlbuild({"export", "b.xml", "--to", "make", "-o", "Makefile"});
        if (run.Status != 0) {
            refused += std::string(row.Name) + "\n";
            EXPECT_NE(run.Err.find("HB603"), std::string::npos) << run.Err;
            continue;
        }
        EXPECT_EQ(Shell("make -s"), std::make_pair(0, std::string())) << row.Name;
        EXPECT_EQ(Pending(), "") << row.Name;
        Touch("$(ls -d ./*.vhd)");
        EXPECT_EQ(Pending(), "ghdl -a\n") << row.Name;
    }
    EXPECT_EQ(
        refused,
        "q\".vhd\n$(x).vhd\n&n.vhd\na:b.vhd\na=b.vhd\na;b.vhd\na|b.vhd\na%b.vhd\n*.vhd\n~a.vhd\n"
        "new\nline.vhd\n");
}
