#include "tests/cli/toolrun.h"
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

// The shipped example, handed to the simulators that are installed. Windows has none of them.
#ifndef _WIN32

namespace {

const std::string kExample = HDLBUILDFILE_SOURCE_DIR "/examples/fifo";

bool IsInstalled(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

/// Runs a command in the example's folder; its output, both streams, and its status.
TToolRun Shell(const std::string& command) {
    TToolRun run{};
    std::FILE* pipe = popen(("cd '" + kExample + "' && { " + command + "; } 2>&1").c_str(), "r");
    if (!pipe) return {-1, "", ""};
    char buffer[4096];
    for (std::size_t size; (size = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        run.Out.append(buffer, size);
    run.Status = pclose(pipe);
    return run;
}

std::string Analyse(const std::string& folder, const std::string& library,
                    const std::string& path) {
    return "ghdl -a --std=08 --workdir=" + folder + " -P" + folder + " --work=" + library + " " +
           path;
}

}  // namespace

TEST(Program, PrintsTheExamplesOrder) {
    const TToolRun run = Shell(HDLBUILD_PROGRAM " order --tsv fifo.xml");
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Out,
              "util\tvhdl/util/util_pkg.vhd\n"
              "bus_lib\tvhdl/bus/stream_pkg.vhd\n"
              "work\tvhdl/fifo.vhd\n"
              "work\tvhdl/fifo_tb.vhd\n");
}

TEST(Program, PrintsTheExamplesCommandFile) {
    const TToolRun run = Shell(HDLBUILD_PROGRAM " command-file fifo.xml");
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(
        run.Out,
        " -l simulation.log -y verilog/lib +incdir+verilog/include+ +libext+.v+.vo +typdelays "
        "verilog/monitor_tb.v\n"
        "verilog/bus_monitor.v\n"
        "-v verilog/cells.v\n");
}

TEST(Program, FindsNothingWrongWithTheExamples) {
    for (const char* name : {"fifo.xml", "fifo-icarus.xml", "fifo-verilator.xml"}) {
        const TToolRun run = Shell(std::string(HDLBUILD_PROGRAM " check ") + name);
        EXPECT_EQ(run.Status, 0) << name;
        EXPECT_EQ(run.Out, std::string(name) + ": no problems\n");
    }
}

TEST(Simulators, GhdlAcceptsTheOrder) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const TemporaryFolder work;
    const TToolRun run = Shell(
        "../../scripts/compile-with-ghdl " HDLBUILD_PROGRAM " fifo.xml fifo_tb " + work.Path());
    EXPECT_EQ(run.Status, 0) << run.Out;
    EXPECT_NE(run.Out.find("fifo_tb passed"), std::string::npos) << run.Out;
}

TEST(Simulators, GhdlRefusesTheListedOrder) {
    if (!IsInstalled("ghdl")) GTEST_SKIP() << "ghdl is not installed";
    const TemporaryFolder work;
    const TToolRun run = Shell(Analyse(work.Path(), "work", "vhdl/fifo_tb.vhd"));
    EXPECT_NE(run.Status, 0);
    EXPECT_NE(run.Out.find("cannot find resource library \"bus_lib\""), std::string::npos)
        << run.Out;
}

TEST(Simulators, IcarusAcceptsACommandFileWithoutLibraryDirectories) {
    if (!IsInstalled("iverilog")) GTEST_SKIP() << "iverilog is not installed";
    const TemporaryFolder work;
    const TToolRun run =
        Shell(HDLBUILD_PROGRAM " command-file --gof -o " + work.Path("run.f") +
              " fifo-icarus.xml && iverilog -s monitor_tb -c " + work.Path("run.f") + " -o " +
              work.Path("run.vvp") + " && vvp -n " + work.Path("run.vvp"));
    EXPECT_EQ(run.Status, 0) << run.Out;
    EXPECT_NE(run.Out.find("monitor_tb passed"), std::string::npos) << run.Out;
}

TEST(Simulators, VerilatorAcceptsOneWithLibraryDirectories) {
    if (!IsInstalled("verilator")) GTEST_SKIP() << "verilator is not installed";
    const TemporaryFolder work;
    const TToolRun run = Shell(HDLBUILD_PROGRAM " command-file --gof -o " + work.Path("run.f") +
                               " fifo-verilator.xml && verilator --lint-only --timing "
                               "--top-module monitor_tb -f " +
                               work.Path("run.f"));
    EXPECT_EQ(run.Status, 0) << run.Out;
    EXPECT_EQ(run.Out, "");
}

#endif
