#include "tests/cli/toolrun.h"
#include "tests/cli/userinifile.h"
#include <gtest/gtest.h>

namespace {

/// What may follow, with files as ":"; the last word is the one that is begun.
std::string Completed(std::vector<std::string> words) {
    words.insert(words.begin(), "__complete");
    return ResultOf(words);
}

constexpr const char* kBuild =
    "<HdlBuildFileList><HdlBuildFile TopLevelLanguage=\"VHDL\" DestinationLibrary=\"work\">"
    "<TopLevelComponents><ComponentList Language=\"VHDL\"><Component Library=\"work\" "
    "Architecture=\"sim\">tb</Component></ComponentList></TopLevelComponents>"
    "<BuildFileVariables><Variable Name=\"WIDTH\" Value=\"8\"/></BuildFileVariables>"
    "<SourceFileGroup Language=\"VHDL\"><SourceFile PrecompiledLibrary=\"ip\">rtl/a b.vhd"
    "</SourceFile><SourceFile>tb.vhd</SourceFile></SourceFileGroup></HdlBuildFile>"
    "</HdlBuildFileList>";

}  // namespace

TEST(Completion, OffersCommandsWithTheirHelp) {
    EXPECT_EQ(Completed({"o"}),
              "order\tPrint the files to compile, one a line, in compile order\n"
              "options\tPrint the Verilog option text, or the option texts of a language\n");
    EXPECT_EQ(Completed({"settings", "p.hpj", "re"}),
              "remove\tRemove a configuration\n"
              "reset\tGive every setting of a configuration its default\n");
    EXPECT_EQ(Completed({"help", "ge"}),
              "get\tPrint an attribute, a setting or a variable, or all of them\n");
    EXPECT_EQ(Completed({"nothing", ""}), "");
}

TEST(Completion, OffersEachOptionOnce) {
    EXPECT_EQ(
        Completed({"order", "--json", "b.xml", "--"}),
        "--absolute\tPrint absolute paths, not paths relative to the current directory\n"
        "--language\tVerilog, VHDL (default), Bluespec, SystemC, C++, Specman or TestBuilder\n"
        "--tsv\tPrint library, tabulator, path\n"
        "--help\tPrint this help message and exit\n"
        "--quiet\tDo not show how far long work has come\n"
        "--max-file-size\tRead no file of more bytes, 1G if not given\n");
    EXPECT_EQ(Completed({"top", "b.xml", "list", "--j"}), "--json\tPrint one JSON object\n");
    EXPECT_EQ(Completed({"--ver"}),
              "--version\tPrint the version\n"
              "--verbose\tWith --version: also what the tool is built with\n");
    EXPECT_EQ(Completed({"--js"}), "--json\tWith --version: print all of it as JSON\n");
    EXPECT_EQ(Completed({"order", "--ver"}), "");
}

TEST(Completion, OffersWhatAnOptionTakes) {
    EXPECT_EQ(Completed({"order", "--language", "V"}), "Verilog\nVHDL\n");
    EXPECT_EQ(Completed({"run", "b.xml", "--with", ""}), "ghdl\nicarus\nnvc\nverilator\n");
    EXPECT_EQ(Completed({"export", "b.xml", "--to", "vu"}), "vunit\nvunit-csv\n");
    EXPECT_EQ(Completed({"check", "--format", ""}), "text\njson\nsarif\n");
    EXPECT_EQ(Completed({"graph", "--format", ""}), "dot\nsvg\nhtml\n");
    EXPECT_EQ(Completed({"order", "-o", ""}), ":\n");
    EXPECT_EQ(Completed({"graph", "-o", ""}), ":\n");
}

TEST(Completion, OffersNamesOutOfTheBuild) {
    const WorkingFolder folder;
    folder.Write("b.xml", kBuild);
    EXPECT_EQ(Completed({"deps", "b.xml", ""}), "rtl/a b.vhd\ntb.vhd\n");
    EXPECT_EQ(Completed({"deps", "b.xml", "--path-to", "t"}), "tb.vhd\n");
    EXPECT_EQ(Completed({"list", "b.xml", "--library", ""}), "ip\nwork\n");
    EXPECT_EQ(Completed({"needed", "b.xml", "--top", ""}), "work.tb(sim)\n");
    EXPECT_EQ(Completed({"get", "b.xml", "variable."}), "variable.WIDTH\n");
    EXPECT_EQ(Completed({"get", "b.xml", "Snap"}), "SnapshotName\n");
    EXPECT_EQ(Completed({"add", "b.xml", ""}), ":\n");
}

TEST(Completion, OffersSwitchesBesideOptions) {
    EXPECT_EQ(Completed({"translator", "b.xml", "v2vhdl", "enable", "-ri"}), "-rip\n-ris\n");
    EXPECT_EQ(Completed({"translator", "b.xml", "v2vhdl", "enable", "-rip", ""}), "");
}

TEST(Completion, OffersConfigurationsAndTemplates) {
    const UserIniFile ini("");
    const WorkingFolder folder;
    ASSERT_EQ(RunHdlbuild({"settings", "p.hpj", "copy", "NCSim", "Nightly"}).Status, 0);
    EXPECT_EQ(Completed({"settings", "p.hpj", "show", ""}), "Nightly\n");
    EXPECT_EQ(Completed({"settings", "p.hpj", "copy", "N"}), "Nightly\nNCSim\n");
    EXPECT_EQ(Completed({"use", "b.xml", "p.hpj", ""}), "Nightly\n");
}

// Nothing is told in the middle of a command line.
TEST(Completion, IsSilentWhereNothingCanBeRead) {
    const WorkingFolder folder;
    folder.Write("b.xml", "<a>");
    EXPECT_EQ(Completed({"deps", "b.xml", ""}), "");
    EXPECT_EQ(Completed({"deps", "missing.xml", ""}), "");
    EXPECT_EQ(Completed({"settings", "b.xml", "show", ""}), "");
    EXPECT_EQ(Completed({}), Completed({""}));
}

// As old shells of Windows hand over an empty word.
TEST(Completion, TakesQuotesForAnEmptyWord) {
    EXPECT_EQ(Completed({"check", "--format", "\"\""}), "text\njson\nsarif\n");
}

TEST(Completion, HasAScriptForEachShell) {
    for (const char* const shell : {"bash", "fish", "powershell", "zsh"}) {
        const TToolRun run = RunHdlbuild({"completion", shell});
        EXPECT_EQ(run.Status, 0);
        EXPECT_NE(run.Out.find("__complete"), std::string::npos) << shell;
    }
    EXPECT_EQ(ResultOf({"completion", "tcsh"}),
              "2\nhdlbuild: error: unknown shell 'tcsh'; known: bash, fish, powershell, zsh\n");
}
