#include "tests/cli/toolrun.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// A folder of sources without a build.
class ScanNewCommand : public testing::Test {
protected:
    ScanNewCommand() {
        Folder.Write("rtl/top.vhd",
                     "library ip; use ip.p.all;\nentity top is end;\narchitecture a of top is "
                     "begin u: entity ip.core; end;\n");
        Folder.Write("rtl/ip/core.vhd", "use work.p.all;\nentity core is end;\n");
        Folder.Write("rtl/ip/p.vhd", "package p is end;\n");
        Folder.Write("rtl/build/out.vhd", "entity out is end;\n");
        Folder.Write("tb/tb.sv", "module tb; endmodule\n");
    }
    static std::string Scan(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "scan");
        return ResultOf(arguments);
    }
    WorkingFolder Folder;
};

}  // namespace

TEST_F(ScanNewCommand, MakesABuildOutOfFolders) {
    EXPECT_EQ(Scan({"tb", "rtl", "-o", "b.xml", "--library", "ip=rtl/ip"}),
              "tb/tb.sv:1:8: nobody instantiates module work.tb\n"
              "rtl/top.vhd:2:8: nobody instantiates entity work.top\n"
              "Verilog source tb/tb.sv: none -> {\"library\":\"\"}\n"
              "VHDL source rtl/top.vhd: none -> "
              "{\"library\":\"\",\"dependencies\":[\"rtl/ip/p.vhd\",\"rtl/ip/core.vhd\"]}\n"
              "VHDL source rtl/ip/core.vhd: none -> "
              "{\"library\":\"ip\",\"dependencies\":[\"rtl/ip/p.vhd\"]}\n"
              "VHDL source rtl/ip/p.vhd: none -> {\"library\":\"ip\"}\n"
              "b.xml: saved\n");
    EXPECT_EQ(ResultOf({"order", "b.xml", "--tsv"}),
              "ip\trtl/ip/p.vhd\n"
              "ip\trtl/ip/core.vhd\n"
              "work\trtl/top.vhd\n");
    EXPECT_NE(Folder.Read("b.xml").find("<HdlBuildFile TopLevelLanguage=\"VHDL\""),
              std::string::npos);
    EXPECT_EQ(ResultOf({"check", "b.xml"}), "b.xml: no problems\n");
    EXPECT_EQ(Scan({"b.xml", "--check", "--exact"}),
              "tb/tb.sv:1:8: nobody instantiates module work.tb\n"
              "rtl/top.vhd:2:8: nobody instantiates entity work.top\n"
              "b.xml: the dependencies are up to date\n");
}

TEST_F(ScanNewCommand, ListsNoIncludedFileButItsFolder) {
    Folder.Write("rtl/v/a.v", "`include \"defs.v\"\n`include \"m.svh\"\nmodule a; endmodule\n");
    Folder.Write("rtl/v/defs.v", "");
    Folder.Write("inc/m.svh", "package p; endpackage\n");
    EXPECT_EQ(Scan({"rtl/v", "inc", "-o", "b.xml"}),
              "rtl/v/defs.v: included, not listed\n"
              "inc/m.svh:1:9: nobody needs package work.p\n"
              "rtl/v/a.v:3:8: nobody instantiates module work.a\n"
              "Verilog include directory rtl/v: none -> true\n"
              "Verilog include directory inc: none -> true\n"
              "Verilog source rtl/v/a.v: none -> {\"library\":\"\"}\n"
              "b.xml: saved\n");
    EXPECT_EQ(Scan({"b.xml", "--check", "--exact"}),
              "inc/m.svh:1:9: nobody needs package work.p\n"
              "rtl/v/a.v:3:8: nobody instantiates module work.a\n"
              "b.xml: the dependencies are up to date\n");
    std::string document = Folder.Read("b.xml");
    std::replace(document.begin(), document.end(), '\\', '/');
    const std::size_t begin = document.find("<IncludeDirectories>");
    EXPECT_EQ(document.substr(begin, document.find("</IncludeDirectories>") - begin),
              "<IncludeDirectories>\n"
              "          <Directory>rtl/v/</Directory>\n"
              "          <Directory>inc/</Directory>\n"
              "        ");
}

TEST_F(ScanNewCommand, ListsVerilogInCompileOrder) {
    Folder.Write("v/a.sv", "import p::*; module a; endmodule\n");
    Folder.Write("v/p.sv", "package p; endpackage\n");
    const std::string note = "v/a.sv:1:21: nobody instantiates module work.a\n";
    const std::string a =
        "Verilog source v/a.sv: none -> {\"library\":\"\",\"dependencies\":[\"v/p.sv\"]}\n";
    const std::string p = "Verilog source v/p.sv: none -> {\"library\":\"\"}\n";
    EXPECT_EQ(Scan({"v", "-o", "b.xml"}), note + p + a + "b.xml: saved\n");
    EXPECT_EQ(Scan({"b.xml", "--check", "--sort", "--exact"}),
              note + "b.xml: the dependencies and the order are up to date\n");
    EXPECT_EQ(ResultOf({"order", "b.xml", "--language", "verilog"}), "v/p.sv\nv/a.sv\n");
}

TEST_F(ScanNewCommand, SavesNothingInADryRun) {
    const std::string said = Scan({"tb", "-o", "b.xml", "--dry-run", "--set-tops"});
    EXPECT_EQ(said.substr(0, said.find("@@ ")),
              "tb/tb.sv:1:8: nobody instantiates module work.tb\n"
              "Verilog source tb/tb.sv: none -> {\"library\":\"\"}\n"
              "Verilog top-level component work.tb: none -> true\n"
              "b.xml: not saved (dry run)\n"
              "--- /dev/null\n"
              "+++ b.xml\n");
    EXPECT_EQ(Folder.List().find("b.xml"), std::string::npos);
}

TEST_F(ScanNewCommand, RefusesWhatMakesNoBuild) {
    Folder.Write("old.xml", "old");
    Folder.Write("empty/n.txt", "");
    const struct {
        std::vector<std::string> Arguments;
        const char* Expected;
    } rows[] = {
        {{"rtl", "-o", "old.xml"}, "3\nhdlbuild: error: old.xml: the file exists already\n"},
        {{"empty", "-o", "b.xml"}, "2\nhdlbuild: error: there are no sources in the folders\n"},
        {{"none", "-o", "b.xml"}, "3\nhdlbuild: error: none: the file does not exist\n"},
        {{"rtl", "-o", "b.xml", "--library", "ip"},
         "2\nhdlbuild: error: --library 'ip': write it as NAME=PATTERN\n"},
        {{"rtl", "-o", "b.xml", "--library", "=rtl"},
         "2\nhdlbuild: error: --library '=rtl': write it as NAME=PATTERN\n"},
        {{"rtl", "-o", "b.xml", "--library", "ip="},
         "2\nhdlbuild: error: --library 'ip=': write it as NAME=PATTERN\n"},
        {{"rtl", "-o", "b.xml", "--library", "a=rtl", "--library", "ip=rtl/ip"},
         "2\nhdlbuild: error: --library ip: no source that is left matches its pattern\n"},
        {{"rtl", "-o", "b.xml", "--check"},
         "2\nhdlbuild: error: --check and --exact need a build that is there: --output makes "
         "one\n"},
        {{"rtl", "tb"},
         "2\nhdlbuild: error: several sources make a build: give it with --output\n"},
        {{"rtl", "--library", "a=rtl"},
         "2\nhdlbuild: error: --library and --exclude need --output\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Scan(row.Arguments), row.Expected);
        EXPECT_EQ(Folder.Read("old.xml"), "old");
        EXPECT_EQ(Folder.List().find("b.xml"), std::string::npos);
    }
}
