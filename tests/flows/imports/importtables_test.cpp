#include "tests/flows/imports/importedtext.h"
#include <gtest/gtest.h>

TEST(ImportTables, ReadBlueprints) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("blueprint",
                              "VLOG\tip\t/q/a b.v\r\nSYSV\tip\t../b.weird\n\nVHDL\twork\tc.vhd\n"
                              "XDC\tip\td.xdc\nVHDL work e.vhd\n"),
              "in/list:1:1 Verilog ip /q/a b.v\n"
              "in/list:2:1 Verilog ip b.weird\n"
              "in/list:4:1 VHDL work in/c.vhd\n"
              "in/list:5:1 HB701 a build has no words for the file set XDC\n"
              "in/list:6:1 HB708 not of the format: a line without three fields\n");
}

TEST(ImportTables, ReadTablesOfVunit) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("vunit-csv",
                              "util , a.vhd \r\nb.v\n\n\"my lib\",\"c \"\"d\"\",e.vhd\" \n"
                              "x,\"f\ng.vhd\"\nwork,h.vhd\nl,\na,b,c.vhd\nx,y.txt\n"),
              "in/list:1:1 VHDL util in/a.vhd\n"
              "in/list:2:1 Verilog  in/b.v\n"
              "in/list:4:1 VHDL my lib in/c \"d\",e.vhd\n"
              "in/list:5:1 VHDL x in/f\ng.vhd\n"
              "in/list:7:1 VHDL work in/h.vhd\n"
              "in/list:8:1 HB708 not of the format: a line that is not a library and a path\n"
              "in/list:9:1 HB708 not of the format: a line that is not a library and a path\n"
              "in/list:10:1 HB703 no language has the extension of in/y.txt\n");
    EXPECT_EQ(folder.ReadText("vunit-csv", "a,b.vhd\na,\"b"),
              "in/list:1:1 VHDL a in/b.vhd\n"
              "in/list:2:1 HB708 not of the format: a quote that does not end\n");
    EXPECT_EQ(folder.ReadText("vunit-csv", "l,\"a.v\"b.v\n\"l\"x,c.v\nm,\"d.v\" \n"),
              "in/list:3:1 Verilog m in/d.v\n"
              "in/list:1:1 HB708 not of the format: a text behind a quote\n"
              "in/list:2:1 HB708 not of the format: a text behind a quote\n");
}

TEST(ImportTables, ReadTheOrderOfGhdl) {
    const ImportFolder folder;
    EXPECT_EQ(folder.ReadText("ghdl-order", "my d/p q.vhd\ntb.vhd\n"),
              "in/list:1:1 VHDL  in/my d/p q.vhd\n"
              "in/list:2:1 VHDL  in/tb.vhd\n");
    EXPECT_EQ(folder.ReadText("ghdl-order", "util my d/p q.vhd\nwork tb\n"),
              "in/list:1:1 VHDL util in/my d/p q.vhd\n"
              "in/list:2:1 VHDL work in/tb\n");
    // What could be both is what is there.
    EXPECT_EQ(folder.ReadText("ghdl-order", "my tb.vhd\n"), "in/list:1:1 VHDL my in/tb.vhd\n");
    folder.Write("in/my tb.vhd", "");
    EXPECT_EQ(folder.ReadText("ghdl-order", "my tb.vhd\n"), "in/list:1:1 VHDL  in/my tb.vhd\n");
}
