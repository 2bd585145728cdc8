#include "tests/cli/sensorsexample.h"
#include "tests/cli/shell.h"
#include <gtest/gtest.h>

namespace {

/// What takes an export of the shipped project, which is the file "out".
struct TConsumer {
    const char* Label;
    const char* Format;
    const char* Top;      ///< "": none is chosen
    const char* Program;  ///< that has to be installed
    const char* Command;
    const char* Output;  ///< with paths in the folder of the project, both streams
    bool HoldsBlanks;    ///< in whole paths
};

constexpr const char* kPassed =
    "vhdl/sim/filter_tb.vhd:55:9:@8055ns:(report note): filter_tb passed: 133 samples\n"
    "simulation finished @8055ns\n"
    "vhdl/sim/node_tb.vhd:76:9:@161295ns:(report note): node_tb passed: 80 frames, 3 alarms\n"
    "simulation finished @161295ns\n";

// Counts the commands of a script, and the words that are files.
constexpr const char* kTcl =
    "printf '%s\\n' 'set files 0' 'foreach name {vlib vcom vlog vsim run SetVHDLVersion library "
    "analyze simulate} {' 'set calls($name) 0' 'proc $name args \"incr ::calls($name); foreach "
    "word \\$args {incr ::files \\[file isfile \\$word]}\"' '}' 'source out' "
    "'puts \"[array get calls] files $files\"' > count.tcl && tclsh count.tcl | tr ' ' '\\n' | "
    "paste -d= - - | LC_ALL=C sort | grep -v =0 | paste -sd' ' -";

constexpr TConsumer kConsumers[] = {
    {"GHDL", "ghdl", "", "ghdl", "sh ./out", kPassed, true},
    {"GHDL, one bench", "ghdl", "filter_tb", "ghdl", "sh ./out && ls ghdl | tr '\\n' ' '",
     "vhdl/sim/filter_tb.vhd:55:9:@8055ns:(report note): filter_tb passed: 133 samples\n"
     "simulation finished @8055ns\ncommon-obj08.cf dsp-obj08.cf sim-obj08.cf ",
     true},
    {"Icarus Verilog", "icarus", "", "iverilog",
     "for top in fifo_tb collector_tb; do iverilog -g2012 -Tmax -c out -s $top -o $top.vvp && "
     "vvp -n $top.vvp || exit 1; done",
     "fifo_tb passed\n4 channels, pads of 3 ns\ncollector_tb passed\n", false},
    {"Icarus Verilog, as the list says", "icarus", "collector_tb", "iverilog",
     "$(sed -n 's|^// \\(iverilog -c\\) THIS_FILE|\\1 out -o out.vvp|p' out) && vvp -n out.vvp",
     "4 channels, pads of 3 ns\ncollector_tb passed\n", false},
    {"Icarus Verilog with the shared subset", "filelist", "collector_tb", "iverilog",
     "iverilog -g2012 -Ttyp -c out -s collector_tb -o out.vvp && vvp -n out.vvp",
     "4 channels, pads of 2 ns\ncollector_tb passed\n", false},
    {"Verilator", "verilator", "collector_tb", "verilator", "verilator --lint-only --timing -f out",
     "", true},
    {"Verilator, the other bench", "verilator", "fifo_tb", "verilator",
     "verilator --lint-only --timing -f out", "", true},
    {"Verilator with the shared subset", "filelist", "fifo_tb", "verilator",
     "verilator --lint-only --timing -f out --top-module fifo_tb", "", false},
    {"make with GHDL and Icarus Verilog", "make", "", "make", "make -s -f out",
     "vhdl/sim/filter_tb.vhd:55:9:@8055ns:(report note): filter_tb passed: 133 samples\n"
     "simulation finished @8055ns\n"
     "vhdl/sim/node_tb.vhd:76:9:@161295ns:(report note): node_tb passed: 80 frames, 3 alarms\n"
     "simulation finished @161295ns\n"
     "fifo_tb passed\n4 channels, pads of 3 ns\ncollector_tb passed\n",
     true},
    {"ninja with GHDL and Icarus Verilog", "ninja", "", "iverilog", "ninja --quiet -j1 -f out",
     "vhdl/sim/filter_tb.vhd:55:9:@8055ns:(report note): filter_tb passed: 133 samples\n"
     "simulation finished @8055ns\n"
     "vhdl/sim/node_tb.vhd:76:9:@161295ns:(report note): node_tb passed: 80 frames, 3 alarms\n"
     "simulation finished @161295ns\n"
     "fifo_tb passed\n4 channels, pads of 3 ns\ncollector_tb passed\n",
     true},
    {"ninja, one bench again", "ninja", "fifo_tb", "iverilog",
     "ninja --quiet -f out && touch verilog/rtl/fifo.v && ninja --quiet -f out && ninja -f out",
     "fifo_tb passed\nfifo_tb passed\nninja: no work to do.\n", true},
    {"make, one bench again", "make", "fifo_tb", "make",
     "make -s -f out && touch verilog/rtl/fifo.v && make -s -f out analyse && make -q -f out "
     "analyse",
     "fifo_tb passed\n", true},
    {"make", "depfile", "", "make",
     "printf 'include out\\nsensors:\\n\\t@touch $@; echo made\\n' > Makefile; make -s && "
     "make -s && sleep 0.02 && touch vhdl/node/alarm.vhd && make -s",
     "made\nmade\n", true},
    {"ninja", "depfile", "", "ninja",
     "printf 'rule r\\n command = echo built; touch $out\\n depfile = out\\nbuild sensors: r\\n' > "
     "build.ninja; ninja --quiet && ninja --quiet && sleep 0.02 && touch vhdl/node/alarm.vhd && "
     "ninja --quiet",
     "built\nninja: no work to do.\nbuilt\n", true},
    {"Tcl with the commands of vsim", "vsim", "", "tclsh", kTcl,
     "files=45 run=4 vcom=34 vlib=6 vlog=1 vsim=4\n", true},
    {"Tcl with the commands of vsim, one bench", "vsim", "fifo_tb", "tclsh", kTcl,
     "files=3 run=1 vlib=1 vlog=1 vsim=1\n", true},
    {"Tcl with the commands of OSVVM", "osvvm", "", "tclsh", kTcl,
     "SetVHDLVersion=1 analyze=45 files=45 library=8 simulate=4\n", true},
    {"Python's reader of CSV", "vunit-csv", "", "/usr/bin/python3",
     "/usr/bin/python3 -c \"import csv, os; rows = list(csv.reader(open('out'))); "
     "print(len(rows), all(os.path.isfile(path) for _, path in rows), "
     "*sorted({library for library, _ in rows}))\"",
     "45 True collector common dsp link node sim\n", true},
    {"make, with GHDL and Icarus Verilog", "make", "collector_tb", "iverilog", "make -s -f out run",
     "4 channels, pads of 3 ns\ncollector_tb passed\n", true},
    {"Python's reader of JSON", "edam-json", "", "/usr/bin/python3",
     "/usr/bin/python3 -c \"import json, os; files = json.load(open('out'))['files']; "
     "print(len(files), all(os.path.exists(file['name']) for file in files))\"",
     "45 True\n", true},
    {"Python's reader of JSON, for a server", "hdl-prj", "", "/usr/bin/python3",
     "/usr/bin/python3 -c \"import json, os; files = json.load(open('out'))['files']; "
     "print(len(files), all(os.path.isfile(file['file']) for file in files))\"",
     "45 True\n", true},
    {"Python's reader of TOML", "vhdl-ls", "", "/usr/bin/python3",
     "/usr/bin/python3 -c \"import os, tomllib; read = tomllib.load(open('out', 'rb')); "
     "print(read['standard'], *((name, len(found['files']), "
     "all(map(os.path.isfile, found['files']))) for name, found in read['libraries'].items()))\"",
     "2008 ('common', 9, True) ('dsp', 10, True) ('link', 6, True) ('node', 4, True) "
     "('sim', 5, True)\n",
     true},
    {"Python's reader of TOML, include directories", "svls", "", "/usr/bin/python3",
     "/usr/bin/python3 -c \"import os, tomllib; read = tomllib.load(open('out', 'rb')); "
     "print([os.listdir(path) for path in read['verilog']['include_paths']] != [[]])\"",
     "True\n", true},
};

/// The project in a folder of that name, exported and taken.
void ExpectTaken(const TConsumer& consumer, const std::string& folder, bool isAbsolute) {
    SCOPED_TRACE(std::string(consumer.Label) + " in " + folder + (isAbsolute ? ", whole" : ""));
    const SensorsExample example(folder);
    std::vector<std::string> arguments = {"export",        "sensors.xml", "--to",
                                          consumer.Format, "-o",          "out"};
    if (*consumer.Top) arguments.insert(arguments.end(), {"--top", consumer.Top});
    if (isAbsolute) arguments.emplace_back("--absolute");
    const TToolRun run = RunHdlbuild(arguments);
    if (isAbsolute && !consumer.HoldsBlanks && folder.find(' ') != std::string::npos) {
        EXPECT_EQ(run.Status, 1);
        EXPECT_NE(run.Err.find("[HB603]"), std::string::npos) << run.Err;
        EXPECT_FALSE(std::filesystem::exists("out"));
        return;
    }
    ASSERT_EQ(run.Status, 0) << run.Err;
    if (!IsInstalled(consumer.Program)) return;
    auto [status, output] = Shell(consumer.Command);
    const std::string here = std::filesystem::current_path().string() + "/";
    for (std::size_t at; (at = output.find(here)) != std::string::npos;)
        output.erase(at, here.size());
    EXPECT_EQ(status, 0);
    EXPECT_EQ(output, consumer.Output);
}

}  // namespace

TEST(ExportedExample, IsTakenByTheToolsOfEachFormat) {
    for (const TConsumer& consumer : kConsumers) ExpectTaken(consumer, "sensors", false);
}

TEST(ExportedExample, IsTakenInAFolderWithBlanks) {
    for (const TConsumer& consumer : kConsumers) {
        ExpectTaken(consumer, "my sensors", false);
        ExpectTaken(consumer, "my sensors", true);
    }
}
