#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

TEST(OsvvmScripts, AnalyzeIntoLibraries) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("osvvm",
                              "SetVHDLVersion 2008\nlibrary util\nanalyze a\\ b.vhd\n"
                              "analyze {c d.vhd}\nlibrary work\nanalyze e.v\nsimulate tb\n"
                              "RunTest tests/t1.vhd\n"),
              "in/list:3 VHDL util in/a b.vhd\n"
              "in/list:4 VHDL util in/c d.vhd\n"
              "in/list:6 Verilog work in/e.v\n"
              "in/list:8 VHDL work in/tests/t1.vhd\n"
              "in/list:7 top VHDL work.tb\n"
              "in/list:8 top VHDL work.t1\n"
              "in/list:1 standard 2008\n"
              "in/list:6 HB701 a build has no words for the order of Verilog behind VHDL\n"
              "in/list:7 HB701 a build has no words for the language of the top tb, taken for "
              "VHDL\n");
}

TEST(OsvvmScripts, IncludeScripts) {
    const ImportFolder folder;
    folder.Write("in/ip/ip.pro", "analyze x.vhd\nlibrary ip2\n");
    folder.Write("in/sub/build.pro", "analyze y.vhd\ninclude ../list\n");
    folder.Write("in/z.pro", "analyze z.vhd");
    EXPECT_EQ(folder.ReadText("osvvm",
                              "library ip\ninclude ./ip\nbuild sub\ninclude z.pro\ninclude no\n"),
              "in/ip/ip.pro:1 VHDL ip in/ip/x.vhd\n"
              "in/sub/build.pro:1 VHDL ip2 in/sub/y.vhd\n"
              "in/z.pro:1 VHDL ip2 in/z.vhd\n"
              "in/sub/build.pro:2 HB710 files that name each other: in/list:3 -> "
              "in/sub/build.pro:2 -> in/list\n"
              "in/list:5 HB709 in/no: the file does not exist\n");
}

// What it gave is there, but the library that it enters counts each time.
TEST(OsvvmScripts, IncludeScriptsAgain) {
    const ImportFolder folder;
    folder.Write("in/ip/ip.pro", "include sub.pro\nanalyze x.vhd\n");
    folder.Write("in/ip/sub.pro", "library ip2\n");
    EXPECT_EQ(folder.ReadText("osvvm",
                              "library ip\ninclude ./ip\nanalyze y.vhd\nlibrary ip\n"
                              "include ./ip\nanalyze z.vhd\n"),
              "in/ip/ip.pro:2 VHDL ip2 in/ip/x.vhd\n"
              "in/list:3 VHDL ip2 in/y.vhd\n"
              "in/list:6 VHDL ip2 in/z.vhd\n");
}

TEST(OsvvmScripts, IncludeScriptsOfOtherFilesAgain) {
    const ImportFolder folder;
    folder.Write("p1.pro", "include ip/sub.pro\nanalyze x.vhd\n");
    folder.Write("p2.pro", "include ip/sub.pro\nanalyze y.vhd\n");
    folder.Write("ip/sub.pro", "library l2\n");
    for (const char* const source : {"x.vhd", "y.vhd"}) folder.Write(source, "");
    EXPECT_EQ(folder.TextOf(folder.Import("osvvm", {"p1.pro", "p2.pro"})),
              "p1.pro:2 VHDL l2 x.vhd\n"
              "p2.pro:2 VHDL l2 y.vhd\n");
}

TEST(OsvvmScripts, TellWhatIsNotLiteral) {
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText("osvvm",
                        "TestSuite all\nanalyze $dir/a.vhd\nanalyze a.vhd -relaxed\n"
                        "if {$x} {\n  analyze b.vhd\n}\nlibrary l dir\nSetVHDLVersion 99\n"
                        "SetVHDLVersion 93\nSetVHDLVersion 2019\nanalyze\nanalyze \"b\n"),
        "in/list:3 VHDL  in/a.vhd\n"
        "in/list:10 standard 2019\n"
        "in/list:1 HB701 a build has no words for the command TestSuite\n"
        "in/list:2 HB701 a build has no words for the command analyze with a variable or another "
        "command\n"
        "in/list:3 HB701 a build has no words for the word -relaxed of the command analyze\n"
        "in/list:4 HB701 a build has no words for the command if\n"
        "in/list:7 HB701 a build has no words for the word dir of the command library\n"
        "in/list:8 HB701 a build has no words for the VHDL version 99\n"
        "in/list:9 HB701 a build has no words for the standard 1993\n"
        "in/list:11 HB708 not of the format: analyze without a name\n"
        "in/list:12 HB708 not of the format: a quote that does not end\n");
}
