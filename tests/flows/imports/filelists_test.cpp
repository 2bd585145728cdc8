#include "tests/flows/imports/importedtext.h"
#include "tests/support/environmentvariable.h"
#include <gtest/gtest.h>

TEST(FileLists, HoldTheWordsOfAllSimulators) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("filelist",
                              "+incdir+inc+../ip // both\n"
                              "-I inc2 -Iinc3 -incdir inc4\n"
                              "+define+A=1+B -DC=1+2 -define D=x\n"
                              "-y lib +libext+.v+.sv -v lib/cells.v\n"
                              "-sv +maxdelays --top-module tb\n"
                              "a.v b.sv c.vhd d.weird e.cpp\n"),
              "in/list:4:23 Verilog  in/lib/cells.v library file\n"
              "in/list:6:1 Verilog  in/a.v\n"
              "in/list:6:5 Verilog  in/b.sv\n"
              "in/list:6:10 VHDL  in/c.vhd\n"
              "in/list:6:16 Verilog  in/d.weird\n"
              "in/list:6:24 C++  in/e.cpp\n"
              "in/list:5:16 top VHDL .tb\n"
              "in/list:1:1 include in/inc\n"
              "in/list:1:1 include ip\n"
              "in/list:2:1 include in/inc2\n"
              "in/list:2:9 include in/inc3\n"
              "in/list:2:16 include in/inc4\n"
              "in/list:4:1 library folder in/lib\n"
              "in/list:4:8 extension .v\n"
              "in/list:4:8 extension .sv\n"
              "in/list:3:1 define A=1\n"
              "in/list:3:1 define B=\n"
              "in/list:3:15 define C=1+2\n"
              "in/list:3:23 define D=x\n"
              "in/list:5:1 standard 2012\n"
              "delays max\n"
              "in/list:6:16 HB701 a build has no words for the order of Verilog behind VHDL\n"
              "in/list:5:16 HB701 a build has no words for the language of the top tb, taken for "
              "VHDL\n");
}

TEST(FileLists, TellWhatABuildDoesNotHold) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("filelist",
                              "-timescale 1ns/1ps +notimingchecks\n"
                              "a.v a.v -v a.v\n"
                              "lib.so -C unit.f\n"
                              "+define+=1 -y\n"),
              "in/list:2:1 Verilog  in/a.v\n"
              "in/list:1:1 option -timescale 1ns/1ps\n"
              "in/list:1:20 option +notimingchecks\n"
              "in/list:1:1 HB706 kept as a compile option: -timescale 1ns/1ps\n"
              "in/list:1:20 HB706 kept as a compile option: +notimingchecks\n"
              "in/list:3:1 HB701 a build has no words for lib.so, which is no source\n"
              "in/list:3:8 HB701 a build has no words for a compilation unit of its own\n"
              "in/list:3:8 HB709 in/unit.f: the file does not exist\n"
              "in/list:4:1 HB708 not of the format: a define without a name\n"
              "in/list:4:12 HB708 not of the format: -y without a value\n"
              "in/list:2:5 HB705 named again: in/a.v (first: in/list:2:1)\n"
              "in/list:2:9 HB702 named again in another way: in/a.v (first: in/list:2:1)\n");
}

TEST(FileLists, PutSourcesIntoLibraries) {
    const ImportFolder folder;
    folder.Write("in/ip.f", "b.v\n-work other\nc.v\n");
    EXPECT_EQ(folder.ReadText("vcs",
                              "-sverilog -work main a.v -f ip.f d.v\n"
                              "-makelib ip e.v -endlib f.v -top tb +mindelays\n"),
              "in/list:1:22 Verilog main in/a.v\n"
              "in/ip.f:1:1 Verilog main in/b.v\n"
              "in/ip.f:3:1 Verilog other in/c.v\n"
              "in/list:1:34 Verilog main in/d.v\n"
              "in/list:2:13 Verilog ip in/e.v\n"
              "in/list:2:25 Verilog  in/f.v\n"
              "in/list:2:29 top Verilog .tb\n"
              "in/list:1:1 standard 2012\n"
              "delays min\n");
    EXPECT_EQ(folder.ReadText("slang", "-v ip=a.v -v b.v\n"),
              "in/list:1:1 Verilog ip in/a.v library file\n"
              "in/list:1:11 Verilog  in/b.v library file\n");
}

// The same text is something else to each of them.
TEST(FileLists, FollowTheirDialects) {
    const ImportFolder folder;
    const struct {
        const char* Format;
        const char* Text;
        const char* Read;
    } rows[] = {
        {"icarus", "-ylib\n-l c.v\na b.v // x\n+define+A=1+B\n",
         "in/list:2:1 Verilog  in/c.v library file\n"
         "in/list:3:1 Verilog  in/a b.v\n"
         "in/list:1:1 library folder in/lib\n"
         "in/list:4:1 define A=1+B\n"},
        {"icarus", "-s tb\na.vhd\n",
         "in/list:2:1 Verilog  in/a.vhd\n"
         "in/list:1:1 option -s tb\n"
         "in/list:1:1 HB706 kept as a compile option: -s tb\n"},
        {"icarus", "// iverilog -c THIS_FILE -s tb -Tmax -g2012\na.v\n",
         "in/list:2:1 Verilog  in/a.v\n"
         "in/list:1:1 top Verilog .tb\n"
         "in/list:1:1 standard 2012\n"
         "delays max\n"},
        {"icarus",
         "// iverilog is called so, with no list:\n"
         "// iverilog -stb -gspecify -DX -y lib -Ii -Y .sv -l c.v -P tb.N=3 -Tmin -o t.vvp -fa -x\n"
         "a.v\n",
         "in/list:2:1 Verilog  in/c.v library file\n"
         "in/list:3:1 Verilog  in/a.v\n"
         "in/list:2:1 top Verilog .tb\n"
         "in/list:2:1 include in/i\n"
         "in/list:2:1 library folder in/lib\n"
         "in/list:2:1 extension .sv\n"
         "in/list:2:1 define X=\n"
         "delays min\n"
         "in/list:2:1 option -gspecify\n"
         "in/list:2:1 option -P tb.N=3\n"
         "in/list:2:1 HB706 kept as a compile option: -gspecify\n"
         "in/list:2:1 HB706 kept as a compile option: -P tb.N=3\n"
         "in/list:2:1 HB701 a build has no words for the option -x\n"},
        {"slang", "-T max a.v\n", "in/list:1:8 Verilog  in/a.v\ndelays max\n"},
        {"slang", "--timing=min a.v -T most\n",
         "in/list:1:14 Verilog  in/a.v\n"
         "delays min\n"
         "in/list:1:18 HB708 not of the format: the delays most\n"},
        {"verible", "+incdir+a+b\n+define+A\n-y lib\nc d.v\n",
         "in/list:4:1 Verilog  in/c d.v\n"
         "in/list:1:1 include in/a+b\n"
         "in/list:2:1 define A=\n"
         "in/list:3:1 HB701 a build has no words for the line -y lib\n"},
        {"slang", "--top=tb -Y .sv --libdir lib\n\"a b.v\" c.v#d\n",
         "in/list:2:1 Verilog  in/a b.v\n"
         "in/list:2:9 Verilog  in/c.v\n"
         "in/list:1:1 top Verilog .tb\n"
         "in/list:1:17 library folder in/lib\n"
         "in/list:1:10 extension .sv\n"},
        {"verilator", "\"-DS=\\\"hi there\\\"\" --timescale 1ns/1ps a\\ b.v c.cpp\n",
         "in/list:1:40 Verilog  in/a b.v\n"
         "in/list:1:47 C++  in/c.cpp\n"
         "in/list:1:20 option --timescale 1ns/1ps\n"
         "in/list:1:20 HB706 kept as a compile option: --timescale 1ns/1ps\n"
         "in/list:1:1 HB701 a build has no words for the option S=\"hi there\" with a quote in "
         "it\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(folder.ReadText(row.Format, row.Text), row.Read) << row.Format;
}

TEST(FileLists, NameOthersFromTheirFoldersOrTheWorkingFolder) {
    const ImportFolder folder;
    folder.Write("in/ip/ip.f", "a.v\n-f sub.f\n-F sub/sub.f\n");
    folder.Write("in/ip/sub.f", "b.v\n");
    folder.Write("in/ip/sub/sub.f", "c.v\n");
    folder.Write("in/sub.f", "d.v\n");
    EXPECT_EQ(folder.ReadText("verilator", "-F ip/ip.f\n"),
              "in/ip/ip.f:1:1 Verilog  in/ip/a.v\n"
              "in/ip/sub.f:1:1 Verilog  in/b.v\n"
              "in/ip/sub/sub.f:1:1 Verilog  in/ip/sub/c.v\n");
    EXPECT_EQ(folder.ReadText("filelist", "-f ip/ip.f\n"),
              "in/ip/ip.f:1:1 Verilog  in/a.v\n"
              "in/sub.f:1:1 Verilog  in/d.v\n"
              "in/ip/ip.f:3:1 HB709 in/sub/sub.f: the file does not exist\n");
    folder.Write("in/ip/ip.f", "a.v\n-f sub.f\n");
    EXPECT_EQ(folder.ReadText("icarus", "-c ip/ip.f\n"),
              "in/ip/ip.f:1:1 Verilog  in/a.v\n"
              "in/ip/sub.f:1:1 Verilog  in/b.v\n");
}

TEST(FileLists, PutInVariables) {
    const EnvironmentVariable variable("IMPORT_TEST", "rtl");
    const ImportFolder folder;
    EXPECT_EQ(
        folder.ReadText("filelist", "$IMPORT_TEST/a.v +incdir+${IMPORT_TEST} $IMPORT_NO/b.v\n"),
        "in/list:1:1 Verilog  in/rtl/a.v\n"
        "in/list:1:41 Verilog  in/$IMPORT_NO/b.v\n"
        "in/list:1:18 include in/rtl\n"
        "in/list:1:41 HB704 the variable IMPORT_NO is not set\n");
    EXPECT_EQ(folder.ReadText("icarus", "$IMPORT_TEST.v\n$(IMPORT_NO)b.v\n"),
              "in/list:1:1 Verilog  in/$IMPORT_TEST.v\n"
              "in/list:2:1 Verilog  in/b.v\n"
              "in/list:2:1 HB704 the variable IMPORT_NO is not set\n");
    folder.Write("in/d$d.v", "");
    EXPECT_EQ(folder.ReadText("verilator", "d$d.v d$e.v\n"),
              "in/list:1:1 Verilog  in/d$d.v\n"
              "in/list:1:7 Verilog  in/d$e.v\n"
              "in/list:1:7 HB704 the variable e is not set\n");
}

// Which words stand behind an option that is not known nobody says.
TEST(FileLists, KeepOptionsWithTheirOperands) {
    const ImportFolder folder;
    folder.Write("in/cell", "");
    const struct {
        const char* Format;
        const char* Text;
        const char* Read;
    } rows[] = {
        {"verilator", "--unknown some --other b.v --third cell\n",
         "in/list:1:24 Verilog  in/b.v\n"
         "in/list:1:36 Verilog  in/cell\n"
         "in/list:1:1 option --unknown some\n"
         "in/list:1:16 option --other\n"
         "in/list:1:28 option --third\n"
         "in/list:1:1 HB706 kept as a compile option: --unknown some\n"
         "in/list:1:16 HB706 kept as a compile option: --other\n"
         "in/list:1:28 HB706 kept as a compile option: --third\n"},
        {"verilator", "--unknown\nsub/nosuch\n",
         "in/list:2:1 Verilog  in/sub/nosuch\n"
         "in/list:1:1 option --unknown\n"
         "in/list:1:1 HB706 kept as a compile option: --unknown\n"},
        {"verilator", "--x-initial unique --trace-depth 3 -trace-depth 4 a.v\n",
         "in/list:1:51 Verilog  in/a.v\n"
         "in/list:1:1 option --x-initial unique\n"
         "in/list:1:20 option --trace-depth 3\n"
         "in/list:1:36 option -trace-depth 4\n"
         "in/list:1:1 HB706 kept as a compile option: --x-initial unique\n"
         "in/list:1:20 HB706 kept as a compile option: --trace-depth 3\n"
         "in/list:1:36 HB706 kept as a compile option: -trace-depth 4\n"},
        {"vcs", "-ntb_opts uvm-1.2 -P pli.v -assert svaext -access +rw +x a.v\n",
         "in/list:1:58 Verilog  in/a.v\n"
         "in/list:1:1 option -ntb_opts uvm-1.2\n"
         "in/list:1:19 option -P pli.v\n"
         "in/list:1:28 option -assert svaext\n"
         "in/list:1:43 option -access +rw\n"
         "in/list:1:55 option +x\n"
         "in/list:1:1 HB706 kept as a compile option: -ntb_opts uvm-1.2\n"
         "in/list:1:19 HB706 kept as a compile option: -P pli.v\n"
         "in/list:1:28 HB706 kept as a compile option: -assert svaext\n"
         "in/list:1:43 HB706 kept as a compile option: -access +rw\n"
         "in/list:1:55 HB706 kept as a compile option: +x\n"},
        {"slang", "-G P=1 --error-limit 5 --compat=vcs x\n",
         "in/list:1:37 Verilog  in/x\n"
         "in/list:1:1 option -G P=1\n"
         "in/list:1:8 option --error-limit 5\n"
         "in/list:1:24 option --compat=vcs\n"
         "in/list:1:1 HB706 kept as a compile option: -G P=1\n"
         "in/list:1:8 HB706 kept as a compile option: --error-limit 5\n"
         "in/list:1:24 HB706 kept as a compile option: --compat=vcs\n"},
        {"filelist", "+unknown x\n-a=b y\n",
         "in/list:1:10 Verilog  in/x\n"
         "in/list:2:6 Verilog  in/y\n"
         "in/list:1:1 option +unknown\n"
         "in/list:2:1 option -a=b\n"
         "in/list:1:1 HB706 kept as a compile option: +unknown\n"
         "in/list:2:1 HB706 kept as a compile option: -a=b\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(folder.ReadText(row.Format, row.Text), row.Read) << row.Text;
}

// The options of a build are taken apart again, and no word there belongs to the one before.
TEST(FileLists, LoseOptionsThatMeanSomethingElseInABuild) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("verilator",
                              "-CFLAGS -DFOO=1\n-CFLAGS \"-I../inc -DX\"\n-CFLAGS -O2\n"
                              "-foo -bar\na.v\n"),
              "in/list:5:1 Verilog  in/a.v\n"
              "in/list:3:1 option -CFLAGS -O2\n"
              "in/list:4:1 option -foo\n"
              "in/list:4:6 option -bar\n"
              "in/list:1:1 HB701 a build has no words for the option -CFLAGS -DFOO=1, which means "
              "something else there\n"
              "in/list:2:1 HB701 a build has no words for the option -CFLAGS -I../inc -DX, which "
              "means something else there\n"
              "in/list:3:1 HB706 kept as a compile option: -CFLAGS -O2\n"
              "in/list:4:1 HB706 kept as a compile option: -foo\n"
              "in/list:4:6 HB706 kept as a compile option: -bar\n");
    EXPECT_EQ(folder.ReadText("icarus", "-define\na.v\n"),
              "in/list:2:1 Verilog  in/a.v\n"
              "in/list:1:1 HB701 a build has no words for the option -define, which means "
              "something else there\n");
    EXPECT_EQ(folder.ReadText("vcs", "-DA=1 -g2012\na.v\n"),
              "in/list:2:1 Verilog  in/a.v\n"
              "in/list:1:1 HB701 a build has no words for the option -DA=1, which means something "
              "else there\n"
              "in/list:1:7 HB701 a build has no words for the option -g2012, which means something "
              "else there\n");
}

TEST(FileLists, TellOfEmptyNamesAndValues) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("slang", "--top= a.v -DA= -DB\n"),
              "in/list:1:8 Verilog  in/a.v\n"
              "in/list:1:12 define A=\n"
              "in/list:1:17 define B=\n"
              "in/list:1:1 HB708 not of the format: a top without a name\n"
              "in/list:1:12 HB701 a build has no words for the empty value of the define A\n");
    EXPECT_EQ(folder.ReadText("filelist", "a.v\n-y \"abc\n"),
              "in/list:1:1 Verilog  in/a.v\n"
              "in/list:2:4 HB708 not of the format: a quote that does not end\n");
    EXPECT_EQ(folder.ReadText("filelist", "a.v -timescale /* abc\n"),
              "in/list:1:1 Verilog  in/a.v\n"
              "in/list:1:16 HB708 not of the format: a comment that does not end\n");
}

TEST(FileLists, GiveTopsTheLanguageOfTheSources) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("filelist", "c.vhd --top-module tb\n"),
              "in/list:1:1 VHDL  in/c.vhd\nin/list:1:7 top VHDL .tb\n");
    EXPECT_EQ(folder.ReadText("vcs", "c.vhd tb.v -top tb\n"),
              "in/list:1:1 VHDL  in/c.vhd\n"
              "in/list:1:7 Verilog  in/tb.v\n"
              "in/list:1:12 top Verilog .tb\n"
              "in/list:1:7 HB701 a build has no words for the order of Verilog behind VHDL\n");
}
