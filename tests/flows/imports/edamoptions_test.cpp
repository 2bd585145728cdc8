#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

TEST(EdamOptions, GiveWhatABuildHasWordsFor) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("edam-yaml",
                              "tool_options:\n"
                              "  icarus:\n"
                              "    iverilog_options: [-g2012, -Tmax, -y lib, '-y\"my cells\"',\n"
                              "      -Y, .sv, -DN=4, -Iinc, -l cells.v, -stb, -Wall, -Ptb.N=3]\n"
                              "  verilator:\n"
                              "    mode: binary\n"
                              "    verilator_options: [-y, lib, +libext+.sv+.v, -v, cells.v,\n"
                              "      --top-module, tb, --threads 4, -Wall, +define+A=1+B]\n"
                              "    run_options: [+seed=1]\n"
                              "  ghdl:\n"
                              "    analyze_options: [--std=02, -frelaxed]\n"
                              "    run_options: [--stop-time=1us]\n"
                              "files:\n"
                              "  - {name: a.v, file_type: verilogSource}\n"
                              "parameters:\n"
                              "  go: {datatype: bool, default: true, paramtype: plusarg}\n"
                              "  n: {datatype: int, default: 2, paramtype: plusarg}\n"),
              "in/list:14:5 Verilog  in/a.v\n"
              "in/list:4:30 Verilog  in/cells.v library file\n"
              "in/list:4:42 top Verilog .tb\n"
              "in/list:4:23 include in/inc\n"
              "in/list:3:39 library folder in/lib\n"
              "in/list:3:47 library folder in/my cells\n"
              "in/list:4:7 extension .sv\n"
              "in/list:7:34 extension .v\n"
              "in/list:4:16 define N=4\n"
              "in/list:8:45 define A=1\n"
              "in/list:8:45 define B=\n"
              "in/list:3:24 standard 2012\n"
              "delays max\n"
              "in/list:8:25 option --threads 4\n"
              "in/list:4:48 option -Wall\n"
              "in/list:4:55 option -Ptb.N=3\n"
              "in/list:9:19 option +seed=1\n"
              "in/list:16:3 option +go\n"
              "in/list:17:3 option +n=2\n"
              "in/list:11:23 standard 2002\n"
              "in/list:11:33 option -frelaxed\n"
              "in/list:12:19 option --stop-time=1us\n"
              "in/list:11:33 HB706 kept as a compile option: -frelaxed\n"
              "in/list:4:16 HB701 a build has no words for the define N=4 of Icarus Verilog alone\n"
              "in/list:8:45 HB701 a build has no words for the define A=1 of Verilator alone\n"
              "in/list:8:45 HB701 a build has no words for the define B of Verilator alone\n"
              "in/list:8:25 HB706 kept as a compile option: --threads 4\n"
              "in/list:4:48 HB706 kept as a compile option: -Wall\n"
              "in/list:4:55 HB706 kept as a compile option: -Ptb.N=3\n");
}

TEST(EdamOptions, TellWhatABuildHasNoWordsFor) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText("edam-yaml",
                        "tool_options:\n"
                        "  modelsim: {vlog_options: [-x]}\n"
                        "  yosys:\n"
                        "  icarus:\n"
                        "    timescale: 1ns/1ps\n"
                        "    vvp_options: [-n]\n"
                        "    iverilog_options: [-v, x, -c list, '-DS=\\\"a\\\"', -DP=$p, $q]\n"
                        "  verilator:\n"
                        "    mode: lint-only\n"
                        "    libs: [m]\n"
                        "    verilator_options: [-CFLAGS, -O2, -f other.f, main.cpp, -y]\n"
                        "    run_options: [--x, +mindelays]\n"
                        "  ghdl:\n"
                        "    mode: sim\n"
                        "    analyze_options: [-nolint, --std=77, --std=08 x, -fa$b]\n"
                        "files:\n"
                        "  - {name: a.v, file_type: verilogSource}\n"
                        "  - {name: b.vhd, file_type: vhdlSource-93}\n"
                        "  - {name: c.vhd, file_type: vhdlSource-2008}\n"),
        "in/list:17:5 Verilog  in/a.v\n"
        "in/list:18:5 VHDL  in/b.vhd\n"
        "in/list:19:5 VHDL  in/c.vhd\n"
        "in/list:11:25 option -CFLAGS -O2\n"
        "in/list:15:42 standard 2008\n"
        "in/list:15:32 option --std=77\n"
        "in/list:2:3 HB701 a build has no words for the options of modelsim\n"
        "in/list:5:5 HB701 a build has no words for \"timescale\"\n"
        "in/list:6:5 HB701 a build has no words for \"vvp_options\"\n"
        "in/list:7:24 HB701 a build has no words for the option -v x\n"
        "in/list:7:31 HB701 a build has no words for the option -c list\n"
        "in/list:7:40 HB701 a build has no words for the option -DS=\\a\\\n"
        "in/list:7:53 HB701 a build has no words for the option -DP=$p\n"
        "in/list:7:61 HB701 a build has no words for the option $q\n"
        "in/list:10:5 HB701 a build has no words for \"libs\"\n"
        "in/list:11:39 HB701 a build has no words for the option -f other.f\n"
        "in/list:11:51 HB701 a build has no words for the option main.cpp\n"
        "in/list:11:61 HB708 not of the format: -y without a value\n"
        "in/list:12:19 HB701 a build has no words for the option --x\n"
        "in/list:12:24 HB701 a build has no words for the option +mindelays, which means something "
        "else there\n"
        "in/list:14:5 HB701 a build has no words for \"mode\"\n"
        "in/list:15:23 HB701 a build has no words for the option -nolint\n"
        "in/list:15:32 HB706 kept as a compile option: --std=77\n"
        "in/list:15:42 HB701 a build has no words for the option x\n"
        "in/list:15:54 HB701 a build has no words for the option -fa$b\n"
        "in/list:11:25 HB706 kept as a compile option: -CFLAGS -O2\n"
        "in/list:18:5 HB701 a build has no words for the standard 93\n"
        "in/list:9:11 HB701 a build has no words for the mode lint-only of Verilator\n");
}

// One word belongs to an option at most, and none that is a source or a file.
TEST(EdamOptions, TakeNoSourceForAnOperand) {
    const ImportFolder folder;
    folder.Write("in/hex", "");
    EXPECT_EQ(
        folder.ReadText("edam-yaml",
                        "tool_options:\n"
                        "  icarus: {iverilog_options: [-Wall, b.v, -P tb.N=3 x, -N hex, -g]}\n"
                        "  verilator: {verilator_options: [--trace, b.v, --threads 4 5, --x=1 y,\n"
                        "    '-CFLAGS -O2', '-LDFLAGS \"-lm\"', -j 4, -GN=3, -prefix p, -o, sim]}\n"
                        "  ghdl: {analyze_options: [-frelaxed x.vhd, --y z]}\n"),
        "in/list:3:35 option --trace\n"
        "in/list:3:49 option --threads 4\n"
        "in/list:3:64 option --x=1\n"
        "in/list:4:5 option -CFLAGS -O2\n"
        "in/list:4:20 option -LDFLAGS -lm\n"
        "in/list:4:38 option -j 4\n"
        "in/list:4:44 option -GN=3\n"
        "in/list:4:51 option -prefix p\n"
        "in/list:4:62 option -o sim\n"
        "in/list:2:31 option -Wall\n"
        "in/list:2:43 option -P tb.N=3\n"
        "in/list:2:56 option -N\n"
        "in/list:2:64 option -g\n"
        "in/list:5:28 option -frelaxed\n"
        "in/list:5:45 option --y\n"
        "in/list:2:38 HB701 a build has no words for the option b.v\n"
        "in/list:2:43 HB701 a build has no words for the option x\n"
        "in/list:2:56 HB701 a build has no words for the option hex\n"
        "in/list:3:44 HB701 a build has no words for the option b.v\n"
        "in/list:3:49 HB701 a build has no words for the option 5\n"
        "in/list:3:64 HB701 a build has no words for the option y\n"
        "in/list:5:28 HB706 kept as a compile option: -frelaxed\n"
        "in/list:5:28 HB701 a build has no words for the option x.vhd\n"
        "in/list:5:45 HB706 kept as a compile option: --y\n"
        "in/list:5:45 HB701 a build has no words for the option z\n"
        "in/list:3:35 HB706 kept as a compile option: --trace\n"
        "in/list:3:49 HB706 kept as a compile option: --threads 4\n"
        "in/list:3:64 HB706 kept as a compile option: --x=1\n"
        "in/list:4:5 HB706 kept as a compile option: -CFLAGS -O2\n"
        "in/list:4:20 HB706 kept as a compile option: -LDFLAGS -lm\n"
        "in/list:4:38 HB706 kept as a compile option: -j 4\n"
        "in/list:4:44 HB706 kept as a compile option: -GN=3\n"
        "in/list:4:51 HB706 kept as a compile option: -prefix p\n"
        "in/list:4:62 HB706 kept as a compile option: -o sim\n"
        "in/list:2:31 HB706 kept as a compile option: -Wall\n"
        "in/list:2:43 HB706 kept as a compile option: -P tb.N=3\n"
        "in/list:2:56 HB706 kept as a compile option: -N\n"
        "in/list:2:64 HB706 kept as a compile option: -g\n");
}

TEST(EdamOptions, GiveTheDefinesOfBothTools) {
    const ImportFolder folder;
    const struct {
        const char* Icarus;
        const char* Verilator;
        const char* Read;
    } rows[] = {
        {"-DN=4, -DA, -DN=5, -DN=4", nullptr, "in/list:1:51 define A=\nin/list:1:63 define N=4\n"},
        {nullptr, "+define+N=4+A, -DN=5", "in/list:2:34 define A=\nin/list:2:49 define N=5\n"},
        {"-DN=4", "-DN=4", "in/list:1:44 define N=4\n"},
        {"-DN=4", "+define+N=5, -DV",
         "in/list:1:44 define N=4\n"
         "in/list:2:47 define V=\n"
         "in/list:2:34 HB701 a build has no words for the define N=5 of Verilator alone\n"
         "in/list:2:47 HB701 a build has no words for the define V of Verilator alone\n"},
        {"-DN=4", "",
         "in/list:1:44 define N=4\n"
         "in/list:1:44 HB701 a build has no words for the define N=4 of Icarus Verilog alone\n"},
    };
    for (const auto& row : rows) {
        std::string text = "tool_options: {";
        if (row.Icarus) text += std::string("icarus: {iverilog_options: [") + row.Icarus + "]},";
        text += "\n ";
        if (row.Verilator)
            text += std::string("verilator: {verilator_options: [") + row.Verilator + "]}";
        EXPECT_EQ(folder.ReadText("edam-yaml", text + "}\n"), row.Read) << text;
    }
}

TEST(EdamOptions, TellOfDirectoriesInTwoOrders) {
    const ImportFolder folder;
    const auto read = [&folder](const std::string& icarus, const std::string& verilator) {
        return folder.ReadText("edam-yaml", "tool_options:\n  icarus: {iverilog_options: [" +
                                                icarus + "]}\n  verilator: {verilator_options: [" +
                                                verilator + "]}\n");
    };
    const std::string ab =
        "in/list:2:31 library folder in/a\n"
        "in/list:2:37 library folder in/b\n";
    EXPECT_EQ(read("-y a, -y b, -y a", "-y, a, -y, b"), ab);
    EXPECT_EQ(read("-y a, -y b", "-y b"), ab);
    EXPECT_EQ(
        read("-y a, -y b", "-y b, -y a, -y b"),
        ab + "in/list:3:41 HB701 a build has no words for the order of the directories of both "
             "Verilog tools\n");
    EXPECT_EQ(read("-Ia, -y b", "-y b, -Ia"),
              "in/list:2:31 include in/a\nin/list:2:36 library folder in/b\n");
}

// What a file lists is a source; options add files to it.
TEST(EdamOptions, GiveLibraryFilesBehindTheSources) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("edam-yaml",
                              "tool_options:\n"
                              "  icarus: {iverilog_options: [-l c.v, -l b.v]}\n"
                              "  verilator: {verilator_options: [-v, c.v]}\n"
                              "files:\n"
                              "  - {name: a.v, file_type: verilogSource}\n"
                              "  - {name: b.v, file_type: verilogSource}\n"),
              "in/list:5:5 Verilog  in/a.v\n"
              "in/list:6:5 Verilog  in/b.v\n"
              "in/list:2:31 Verilog  in/c.v library file\n"
              "in/list:2:39 HB702 named again in another way: in/b.v (first: in/list:6:5)\n");
}

TEST(EdamOptions, AskForSystemVerilogWhereNoFileDoes) {
    const ImportFolder folder;
    const struct {
        const char* Options;
        const char* Type;
        const char* Name;
        const char* Standard;
    } rows[] = {
        {"-g2012", "verilogSource", "a.v", "in/list:1:44 standard 2012\n"},
        {"-g2012", "systemVerilogSource", "a.v", "in/list:2:9 standard 2012\n"},
        {"-g2012", "systemVerilogSource", "a.sv", ""},
        {"-g2009", "systemVerilogSource", "a.v", "in/list:1:44 standard 2009\n"},
        {"-g2005-sv", "systemVerilogSource", "a.sv", "in/list:1:44 standard 2005\n"},
        {"", "systemVerilogSource", "a.sv", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(folder.ReadText("edam-yaml",
                                  std::string("tool_options: {icarus: {iverilog_options: [") +
                                      row.Options + "]}}\nfiles: [{name: " + row.Name +
                                      ", file_type: " + row.Type + "}]\n"),
                  std::string("in/list:2:9 Verilog  in/") + row.Name + "\n" + row.Standard)
            << row.Options << " " << row.Type;
}

TEST(EdamOptions, TellWhatIsNotOfTheFormat) {
    const ImportFolder folder;
    const struct {
        const char* Text;
        const char* Told;
    } rows[] = {
        {"tool_options: []\n",
         "in/list:1:15 HB708 not of the format: \"tool_options\" is no map\n"},
        {"tool_options: {icarus: a}\n", "in/list:1:24 HB708 not of the format: no map\n"},
        {"tool_options: {ghdl: {run_options: a}}\n",
         "in/list:1:36 HB708 not of the format: \"run_options\" is no list\n"},
        {"tool_options: {icarus: {iverilog_options: [{a: b}]}}\n",
         "in/list:1:44 HB708 not of the format: no single value\n"},
        {"tool_options: {icarus: {iverilog_options: [-y]}}\n",
         "in/list:1:44 HB708 not of the format: -y without a value\n"},
        {"tool_options: {verilator: {mode: [a]}}\n",
         "in/list:1:34 HB708 not of the format: \"mode\" is no single value\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(folder.ReadText("edam-yaml", row.Text), row.Told);
}
