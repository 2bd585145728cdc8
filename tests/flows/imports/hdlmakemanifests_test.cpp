#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

TEST(HdlmakeManifests, NameFilesAndModules) {
    const ImportFolder folder;
    folder.Write("in/ip/Manifest.py", "files = 'x.v'\nmodules = {'local': 'sub'}\n");
    folder.Write("in/ip/sub/Manifest.py", "library = \"deep\"\nfiles = ['y.vhd']\n");
    EXPECT_EQ(folder.ReadText("hdlmake",
                              "action = \"simulation\"\ntop_module = 'tb'\n"
                              "modules = {\"local\": [\"ip\", \"./ip\"]}\n"
                              "files = [\n  'tb.vhd',\n]\nlibrary = 'main'\n"
                              "include_dirs = ['inc']\nvlog_opt = '+define+A=1 -x -y lib -Ii'\n"
                              "vcom_opt = '-93 -relaxed'\n"),
              "in/list:5 VHDL main in/tb.vhd\n"
              "in/ip/Manifest.py:1 Verilog work in/ip/x.v\n"
              "in/ip/sub/Manifest.py:2 VHDL deep in/ip/sub/y.vhd\n"
              "in/list:2 top VHDL main.tb\n"
              "in/list:8 include in/inc\n"
              "in/list:9 include in/i\n"
              "in/list:9 library folder in/lib\n"
              "in/list:9 define A=1\n"
              "in/list:9 option -x\n"
              "in/list:10 standard 1993\n"
              "in/list:10 option -relaxed\n"
              "in/list:9 HB706 kept as a compile option: -x\n"
              "in/list:10 HB706 kept as a compile option: -relaxed\n");
    EXPECT_EQ(folder.ReadText("hdlmake", "library = 'l'\ntop_module = 'tb'\nfiles = 'tb.v'\n"),
              "in/list:3 Verilog l in/tb.v\nin/list:2 top Verilog l.tb\n");
}

TEST(HdlmakeManifests, GiveEmptyDefinesAndTheUsualDelays) {
    const ImportFolder folder;
    folder.Write("in/ip/Manifest.py", "vlog_opt = '+typdelays -DB= +define+C=2'\n");
    EXPECT_EQ(folder.ReadText("hdlmake",
                              "vlog_opt = '+define+A=+D +maxdelays'\nmodules = {'local': 'ip'}\n"),
              "in/list:1 define A=\n"
              "in/list:1 define D=\n"
              "in/ip/Manifest.py:1 define B=\n"
              "in/ip/Manifest.py:1 define C=2\n"
              "delays typical\n"
              "in/list:1 HB701 a build has no words for the empty value of the define A\n"
              "in/ip/Manifest.py:1 HB701 a build has no words for the empty value of the define "
              "B\n");
}

TEST(HdlmakeManifests, TakeLibraryFilesOutOfOptions) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("hdlmake", "files = 'tb.v'\nvlog_opt = '-v lib/cells.v'\n"),
              "in/list:2 Verilog  in/lib/cells.v library file\n"
              "in/list:1 Verilog work in/tb.v\n");
}

// Nothing is run: what stands in either branch is taken, and the condition is told.
TEST(HdlmakeManifests, TakeBothBranchesOfAnIf) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("hdlmake",
                              "\"\"\"A docstring.\"\"\"\nr'another'\n"
                              "if target == 'a':\n  files = ['a.v']\nelse:\n  files = ['b.v']\n"),
              "in/list:4 Verilog work in/a.v\n"
              "in/list:6 Verilog work in/b.v\n"
              "in/list:3 HB701 a build has no words for the statement that begins with 'if'\n"
              "in/list:5 HB701 a build has no words for the statement that begins with 'else'\n");
}

TEST(HdlmakeManifests, TellWhatIsNotLiteral) {
    const ImportFolder folder;
    folder.Write("in/ip/Manifest.py", "modules = {'local': '..'}");
    folder.Write("in/Manifest.py", "modules = {'local': 'ip'}");
    EXPECT_EQ(folder.ReadText("hdlmake",
                              "files = ['a.v'] + more\nimport os\naction = 'synthesis'\n"
                              "sim_tool = 'ghdl'\nfiles = ['b.v']\n"
                              "modules = {'git': 'u', 'local': ['ip', 'no']}\n"),
              "in/list:5 Verilog work in/b.v\n"
              "in/list:1 HB701 a build has no words for the statement that begins with 'files'\n"
              "in/list:2 HB701 a build has no words for the statement that begins with 'import'\n"
              "in/list:3 HB701 a build has no words for the action synthesis\n"
              "in/list:4 HB701 a build has no words for the variable sim_tool\n"
              "in/list:6 HB701 a build has no words for the module u of git\n"
              "in/Manifest.py:1 HB710 files that name each other: in/ip/Manifest.py:1 -> "
              "in/Manifest.py:1 -> in/ip/Manifest.py\n"
              "in/list:6 HB709 in/no/Manifest.py: the file does not exist\n");
    EXPECT_EQ(folder.ReadText("hdlmake", "files = ['a.v'"),
              "in/list:1 HB708 not of the format: a bracket that is not closed\n");
}
