#include "tests/cli/shell.h"
#include "tests/cli/toolrun.h"
#include "tests/support/environmentvariable.h"
#include <gtest/gtest.h>

namespace {

/// The Verilog sources of the build, one a line.
std::string SourcesOf(const std::string& build) {
    return ResultOf({"order", build, "--language", "Verilog"});
}

std::string Import(const std::string& format, const std::string& file, const std::string& build) {
    const TToolRun run = RunHdlbuild({"import", format, file, "-o", build});
    return run.Status == 0 ? run.Err : std::to_string(run.Status) + "\n" + run.Err;
}

void WriteModule(const WorkingFolder& folder, const std::string& file, const std::string& name,
                 const std::string& content = "") {
    folder.Write(file, content + "module " + name + "; endmodule\n");
}

/// A design whose top includes a file and needs one of a library directory.
void WriteDesign(const WorkingFolder& folder) {
    folder.Write("top.v", "module top;\n`include \"i.vh\"\n  cell_a c();\nendmodule\n");
    folder.Write("inc2/i.vh", "// nothing\n");
    WriteModule(folder, "lib/cell_a.sv", "cell_a");
    WriteModule(folder, "d$d.v", "dollar");
    WriteModule(folder, "s#h.v", "hash");
    WriteModule(folder, "env/e.v", "e");
    WriteModule(folder, "n.v", "n");
}

}  // namespace

TEST(ImportedBuilds, HaveTheSourcesThatIcarusReads) {
    if (!IsInstalled("iverilog")) GTEST_SKIP() << "iverilog is not installed";
    const EnvironmentVariable variable("IMPORT_TEST", "env");
    const WorkingFolder folder;
    WriteDesign(folder);
    WriteModule(folder, "my d/a b.v", "ab");
    WriteModule(folder, "\"q\".v", "q");
    folder.Write("sub/n.f", "n.v\n");
    folder.Write("t.f",
                 "# comment\n// slashes\n+incdir+inc+inc2 top.v // a name\r\n  my d/a b.v   \n"
                 "\"q\".v\n/* x\ny */ s#h.v\nd$d.v\n${IMPORT_TEST}/e.v\n-c sub/n.f\n-y\nlib\n"
                 "+libext+.sv\n");
    EXPECT_EQ(Shell("iverilog -g2012 -c t.f -s top -M prefix=read -o top.vvp"),
              std::make_pair(0, std::string()));
    EXPECT_EQ(folder.Read("read"),
              "M top.v\nI inc2/i.vh\nM my d/a b.v\nM \"q\".v\nM s#h.v\nM d$d.v\nM env/e.v\n"
              "M n.v\nM lib/cell_a.sv\nM lib/cell_a.sv\n");
    EXPECT_EQ(Import("icarus", "t.f", "list.xml"),
              "hdlbuild: note: t.f:3:1: does not exist: inc [HB707]\n");
    EXPECT_EQ(SourcesOf("list.xml"), "top.v\nmy d/a b.v\n\"q\".v\ns#h.v\nd$d.v\nenv/e.v\nn.v\n");
    EXPECT_EQ(Import("icarus-deps", "read", "deps.xml"), "");
    EXPECT_EQ(SourcesOf("deps.xml"),
              "top.v\nmy d/a b.v\n\"q\".v\ns#h.v\nd$d.v\nenv/e.v\nn.v\nlib/cell_a.sv\n");
}

TEST(ImportedBuilds, HaveTheSourcesThatVerilatorReads) {
    if (!IsInstalled("verilator")) GTEST_SKIP() << "verilator is not installed";
    const EnvironmentVariable variable("IMPORT_TEST", "env");
    const WorkingFolder folder;
    WriteDesign(folder);
    WriteModule(folder, "it's.v", "its");
    WriteModule(folder, "sub/m.v", "m");
    folder.Write("sub/m.f", "m.v -f n.f");
    folder.Write("sub/n.f", "n.v");
    folder.Write("t.f",
                 "  # comment\n// slashes\n+incdir+inc2 \"it's.v\" top.v // a name\r\n"
                 "d\\$d.v $IMPORT_TEST/e.v /*x*/ s#h.v\n-F sub/m.f\n-y lib +libext+.sv\n"
                 "--top-module top");
    EXPECT_EQ(Shell("verilator --cc -MMD -Wno-fatal -f t.f --Mdir o > o.log 2>&1 && "
                    "sed -n 's/^.* : [^ ]* [^ ]* //p' o/*.d"),
              std::make_pair(0, std::string("d$d.v env/e.v inc2/i.vh it's.v lib/cell_a.sv n.v "
                                            "s#h.v sub/m.f sub/m.v sub/n.f t.f top.v \n")));
    EXPECT_EQ(Import("verilator", "t.f", "list.xml"), "");
    EXPECT_EQ(SourcesOf("list.xml"), "it's.v\ntop.v\nd$d.v\nenv/e.v\ns#h.v\nsub/m.v\nn.v\n");
}

TEST(ImportedBuilds, HaveTheSourcesThatVerilatorLists) {
    if (!IsInstalled("verilator")) GTEST_SKIP() << "verilator is not installed";
    const WorkingFolder folder;
    WriteDesign(folder);
    folder.Write("t.f", "top.v\n");
    EXPECT_EQ(
        Shell("verilator --cc -MMD -MP -Wno-fatal -Iinc2 -y lib -f t.f --Mdir o > o.log 2>&1"),
        std::make_pair(0, std::string()));
    const TToolRun run =
        RunHdlbuild({"import", "depfile", "o/Vtop__ver.d", "--relative-to", ".", "-o", "b.xml"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(SourcesOf("b.xml"), "lib/cell_a.sv\ntop.v\n");
    EXPECT_NE(run.Out.find("Verilog IncludeDirectories: [] -> [\"inc2\"]\n"), std::string::npos);
}

TEST(ImportedBuilds, HaveTheOrderOfGhdl) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const WorkingFolder folder;
    folder.Write("my d/p q.vhd", "package p is constant c : natural := 16; end package;\n");
    folder.Write("a.vhd",
                 "library util; use util.p.all;\nentity a is end;\n"
                 "architecture sim of a is begin end;\n");
    EXPECT_EQ(Shell("ghdl -i --work=util 'my d/p q.vhd' && ghdl -i a.vhd && "
                    "ghdl --elab-order a > plain && ghdl --elab-order --libraries a > pairs"),
              std::make_pair(0, std::string()));
    EXPECT_EQ(Import("ghdl-order", "plain", "plain.xml"), "");
    EXPECT_EQ(ResultOf({"order", "plain.xml"}), "my d/p q.vhd\na.vhd\n");
    EXPECT_EQ(Import("ghdl-order", "pairs", "pairs.xml"), "");
    EXPECT_EQ(ResultOf({"order", "pairs.xml", "--tsv"}), "util\tmy d/p q.vhd\nwork\ta.vhd\n");
}
