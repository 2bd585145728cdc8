#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

TEST(EdamFiles, GiveTheirFilesInOrder) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("edam-yaml",
                              "version: 0.2.1\n"
                              "name: adc\n"
                              "toplevel: adc_tb util.tb\n"
                              "files:\n"
                              "  - {name: inc/taps.vh, file_type: verilogSource, is_include_file: "
                              "true, include_path: inc}\n"
                              "  - {name: x/a.vh, file_type: verilogSource, is_include_file: yes}\n"
                              "  - {name: x/b.vh, file_type: verilogSource, is_include_file: yes}\n"
                              "  - {name: rtl/p.vhd, file_type: vhdlSource-2008, logical_name: s}\n"
                              "  - {name: /q/t.sv, file_type: systemVerilogSource}\n"
                              "  - {name: u.c, file_type: cSource}\n"
                              "parameters:\n"
                              "  TAPS: {datatype: int, default: 16, paramtype: vlogdefine}\n"
                              "  FAST: {datatype: bool, default: true, paramtype: vlogdefine}\n"),
              "in/list:8:5 VHDL s in/rtl/p.vhd\n"
              "in/list:9:5 Verilog  /q/t.sv\n"
              "in/list:10:5 C++  in/u.c\n"
              "in/list:3:11 top VHDL .adc_tb\n"
              "in/list:3:11 top VHDL util.tb\n"
              "in/list:5:5 include in/inc\n"
              "in/list:6:5 include in/x\n"
              "in/list:12:3 define TAPS=16\n"
              "in/list:13:3 define FAST=\n"
              "in/list:8:5 standard 2008\n"
              "in/list:9:5 HB701 a build has no words for the order of Verilog behind VHDL\n"
              "in/list:3:11 HB701 a build has no words for the language of the top adc_tb, taken "
              "for VHDL\n");
}

TEST(EdamFiles, ReadTheSameTreeAsJson) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("edam-json",
                              "{\"name\": \"n\", \"toplevel\": [\"a\"],\n"
                              " \"files\": [{\"name\": \"a.v\", \"file_type\": "
                              "\"systemVerilogSource\"}]}"),
              "in/list:2:12 Verilog  in/a.v\n"
              "in/list:1:28 top Verilog .a\n"
              "in/list:2:12 standard 2012\n");
}

TEST(EdamFiles, TellWhatABuildHasNoWordsFor) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("edam-yaml",
                              "flow_options: {tool: icarus}\n"
                              "files:\n"
                              "  - {name: a.tcl, file_type: tclSource}\n"
                              "  - {name: b}\n"
                              "  - {name: c.v, file_type: verilogSource-2005, core: x}\n"
                              "  - {name: d.v, file_type: verilogSource-2005}\n"
                              "  - {name: e.vhd, file_type: vhdlSource-2008}\n"
                              "  - {name: f.vhd, file_type: vhdlSource-93}\n"
                              "parameters:\n"
                              "  G: {datatype: int, default: 1, paramtype: generic}\n"
                              "  D: {datatype: bool, default: false, paramtype: vlogdefine}\n"
                              "  E: {datatype: int, paramtype: vlogdefine}\n"
                              "  P: {datatype: bool, default: false, paramtype: plusarg}\n"),
              "in/list:5:5 Verilog  in/c.v\n"
              "in/list:6:5 Verilog  in/d.v\n"
              "in/list:7:5 VHDL  in/e.vhd\n"
              "in/list:8:5 VHDL  in/f.vhd\n"
              "in/list:8:5 standard 1993\n"
              "in/list:1:1 HB701 a build has no words for \"flow_options\"\n"
              "in/list:3:5 HB701 a build has no words for the file a.tcl of the type tclSource\n"
              "in/list:4:5 HB701 a build has no words for the file b without a type\n"
              "in/list:5:48 HB713 left out, as nothing is built of it: \"core\"\n"
              "in/list:5:5 HB701 a build has no words for the standard 2005\n"
              "in/list:7:5 HB701 a build has no words for the standard 2008\n"
              "in/list:10:6 HB701 a build has no words for the parameter G that is a generic\n"
              "in/list:11:6 HB701 a build has no words for the define D that is not set\n"
              "in/list:12:6 HB701 a build has no words for the define E that is not set\n"
              "in/list:13:6 HB701 a build has no words for the argument P that is not set\n");
}

// As generators write it: empty, or about the project alone.
TEST(EdamFiles, MayHoldWhatAsksNothing) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("edam-yaml",
                              "cores: {a: {}}\n"
                              "dependencies: {a: [b]}\n"
                              "hooks: {}\n"
                              "vpi: []\n"
                              "flow: ~\n"
                              "tool: ''\n"
                              "quiet: false\n"
                              "files:\n"
                              "  - {name: a.v, file_type: verilogSource, core: x, tags: []}\n"
                              "  - {name: b.v, file_type: verilogSource, core: x}\n"
                              "  - {name: /c.vh, file_type: verilogSource, is_include_file: true}\n"
                              "parameters:\n"
                              "  N: {datatype: int, default: 0x1F, paramtype: vlogdefine}\n"
                              "  M: {datatype: int, default: -0x10, paramtype: vlogdefine}\n"
                              "  S: {datatype: str, default: 0x1F, paramtype: vlogdefine}\n"
                              "  P: {datatype: int, default: 1}\n"),
              "in/list:9:5 Verilog  in/a.v\n"
              "in/list:10:5 Verilog  in/b.v\n"
              "in/list:11:5 include /\n"
              "in/list:13:3 define N=31\n"
              "in/list:14:3 define M=-16\n"
              "in/list:15:3 define S=0x1F\n"
              "in/list:1:1 HB713 left out, as nothing is built of it: \"cores\"\n"
              "in/list:2:1 HB713 left out, as nothing is built of it: \"dependencies\"\n"
              "in/list:9:43 HB713 left out, as nothing is built of it: \"core\"\n"
              "in/list:16:6 HB701 a build has no words for the parameter P without a type\n");
}

TEST(EdamFiles, TellWhatIsNotOfTheFormat) {
    const ImportFolder folder;
    const struct {
        const char* Text;
        const char* Told;
    } rows[] = {
        {"- a\n", "in/list:1:1 HB708 not of the format: no map\n"},
        {"", "in/list:1:1 HB708 not of the format: no map\n"},
        {"files: [", "in/list:1:1 HB708 not of the format: end of sequence flow not found\n"},
        {"files: {a: b}\n", "in/list:1:8 HB708 not of the format: \"files\" is no list\n"},
        {"files: [a]\n", "in/list:1:9 HB708 not of the format: no map\n"},
        {"files:\n- file_type: x\n",
         "in/list:2:3 HB708 not of the format: a file without a name\n"},
        {"files: [{name: [a]}]\n",
         "in/list:1:16 HB708 not of the format: \"name\" is no single value\n"
         "in/list:1:9 HB708 not of the format: a file without a name\n"},
        {"toplevel: {a: b}\n", "in/list:1:11 HB708 not of the format: no single value\n"},
        {"a: \xFF\n", "in/list HB708 not of the format: a text that is no UTF-8\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(folder.ReadText("edam-yaml", row.Text), row.Told);
}

// As readers of YAML 1.1 do, Edalize among them; Verilog would read other numbers, or none.
TEST(EdamFiles, GiveNumbersInDecimal) {
    const ImportFolder folder;
    const struct {
        const char* Number;
        const char* Read;
    } rows[] = {
        {"10", "define N=10"},
        {"010", "define N=8"},
        {"-010", "define N=-8"},
        {"+0x1F", "define N=31"},
        {"-0x1_F", "define N=-31"},
        {"0b11", "define N=3"},
        {"-0b10", "define N=-2"},
        {"0", "define N=0"},
        {"09", "define N=09"},
        {"-0x0", "define N=0"},
        {"\"010\"", "define N=010"},
        {"8'hFF", "define N=8'hFF"},
        {"-0x1FFFFFFFFFFFFFFFF", ""},
        {"0o17", ""},
        {"0X1F", ""},
        {"0b12", ""},
        {"0x", ""},
    };
    for (const auto& row : rows) {
        const std::string number = row.Number;
        const bool isLost = *row.Read == '\0';
        EXPECT_EQ(folder.ReadText("edam-yaml",
                                  "parameters:\n  N: {paramtype: vlogdefine, datatype: int, "
                                  "default: " +
                                      number + "}\n"),
                  isLost ? "in/list:2:54 HB701 a build has no words for the number " + number + "\n"
                         : "in/list:2:3 " + std::string(row.Read) + "\n");
    }
}
