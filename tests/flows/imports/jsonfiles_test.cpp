#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

TEST(JsonFiles, ReadTheProjectOfTheServerOfGhdl) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText(
            "hdl-prj",
            "{\"options\": {\"ghdl_analysis\": [\"--std=08\", \"-frelaxed\", \"--workdir=o\"],\n"
            "  \"other\": 1},\n"
            " \"files\": [{\"file\": \"a.vhd\", \"language\": \"vhdl\", \"library\": \"s\"},\n"
            "  {\"file\": \"../b.vhd\"},\n"
            "  {\"file\": \"c.v\", \"language\": \"verilog\"},\n"
            "  {\"file\": \"d.x\", \"language\": \"x\"},\n"
            "  {\"language\": \"vhdl\"}]}"),
        "in/list:3:12 VHDL s in/a.vhd\n"
        "in/list:4:3 VHDL  b.vhd\n"
        "in/list:5:3 Verilog  in/c.v\n"
        "in/list:1:32 standard 2008\n"
        "in/list:1:44 option -frelaxed\n"
        "in/list:1:57 option --workdir=o\n"
        "in/list:2:3 HB701 a build has no words for \"other\"\n"
        "in/list:1:44 HB706 kept as a compile option: -frelaxed\n"
        "in/list:1:57 HB706 kept as a compile option: --workdir=o\n"
        "in/list:6:3 HB701 a build has no words for the file d.x in the language x\n"
        "in/list:7:3 HB708 not of the format: a file without a name\n"
        "in/list:5:3 HB701 a build has no words for the order of Verilog behind VHDL\n");
}

TEST(JsonFiles, ReadWhatVunitExports) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText("vunit-json",
                        "{\"export_format_version\": {\"major\": 1, \"minor\": 0, \"patch\": 0},\n"
                        " \"files\": [{\"file_name\": \"/q/a.vhd\", \"library_name\": \"lib\"},\n"
                        "  {\"file_name\": \"b.vhd\", \"library_name\": \"lib\"}],\n"
                        " \"tests\": [{\"name\": \"lib.tb.all\", \"attributes\": {}}]}"),
        "in/list:2:12 VHDL lib /q/a.vhd\n"
        "in/list:3:3 VHDL lib in/b.vhd\n"
        "in/list:4:2 HB713 left out, as nothing is built of it: \"tests\"\n");
    EXPECT_EQ(folder.ReadText("vunit-json",
                              "{\"export_format_version\": {\"major\": 2}, \"files\": [{}]}"),
              "in/list:1:1 HB708 not of the format: the version 2 of an export of VUnit\n"
              "in/list:1:51 HB708 not of the format: a file without a name\n");
}

TEST(JsonFiles, ReadWhatBenderPrints) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText(
            "bender",
            "[{\"package\": \"axi\", \"independent\": false, \"include_dirs\": [\"/q/inc\"],\n"
            "  \"defines\": {\"A\": \"1\", \"B\": null}, \"files\": [\"/q/a.sv\", \"b.vhd\"],\n"
            "  \"dependencies\": [\"c\"], \"version\": null},\n"
            " {\"package\": \"top\", \"include_dirs\": [\"/q/inc\"], \"defines\": {},\n"
            "  \"files\": [\"/q/a.sv\", [\"x\"]], \"target\": \"sim\"}]"),
        "in/list:2:47 Verilog  /q/a.sv\n"
        "in/list:2:58 VHDL  in/b.vhd\n"
        "in/list:1:60 include /q/inc\n"
        "in/list:2:15 define A=1\n"
        "in/list:2:25 define B=\n"
        "in/list:5:32 HB701 a build has no words for \"target\"\n"
        "in/list:5:24 HB708 not of the format: no single value\n"
        "in/list:1:1 HB701 a build has no words for defines of some packages alone\n"
        "in/list:5:13 HB705 named again: /q/a.sv (first: in/list:2:47)\n");
}

TEST(JsonFiles, TellOfDefinesAndDirectoriesOfBender) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("bender",
                              "[{\"include_dirs\": [\"i\"], \"files\": [\"a.sv\"],\n"
                              "  \"defines\": {\"A\": [1, 2], \"B\": {\"x\": 1}, \"C\": \"\"}},\n"
                              " {\"include_dirs\": [\"j\"],\n"
                              "  \"defines\": {\"A\": [1, 2], \"B\": {\"x\": 1}, \"C\": \"\"}}]"),
              "in/list:1:36 Verilog  in/a.sv\n"
              "in/list:1:20 include in/i\n"
              "in/list:3:20 include in/j\n"
              "in/list:2:43 define C=\n"
              "in/list:4:43 define C=\n"
              "in/list:2:20 HB708 not of the format: no single value\n"
              "in/list:2:33 HB708 not of the format: no single value\n"
              "in/list:2:43 HB701 a build has no words for the empty value of the define C\n"
              "in/list:4:20 HB708 not of the format: no single value\n"
              "in/list:4:33 HB708 not of the format: no single value\n"
              "in/list:4:43 HB701 a build has no words for the empty value of the define C\n"
              "in/list:1:1 HB712 taken for all sources: include directories of some packages\n");
}

TEST(JsonFiles, TellWhatIsNotOfTheFormat) {
    const ImportFolder folder;
    for (const char* const format : {"hdl-prj", "vunit-json"}) {
        EXPECT_EQ(folder.ReadText(format, "[]"), "in/list:1:1 HB708 not of the format: no map\n");
        EXPECT_EQ(folder.ReadText(format, "{\"a\": 1, \"a\": 2}"),
                  "in/list:1:10 HB708 not of the format: the key \"a\" is there a second time\n");
    }
    for (const char* const format : {"bender", "compile-commands"})
        EXPECT_EQ(folder.ReadText(format, "{}"), "in/list:1:1 HB708 not of the format: no list\n");
}
