#include "flows/scannedtops.h"
#include "tests/flows/scannedfolder.h"

using ScannedTops = ScannedFolder;

TEST_F(ScannedTops, AreThoseThatTheBuildDoesNotRecord) {
    Folder.Write("a.vhd",
                 "entity one is end; architecture a of ONE is begin end;"
                 "entity two is end; architecture a of two is begin end;"
                 "entity three is end; entity four is end; entity \\Two\\ is end;");
    Folder.Write("b.vhd", "architecture b of two is begin end;");
    THdlBuildFile build = Read("", "<SourceFile>a.vhd</SourceFile><SourceFile>b.vhd</SourceFile>",
                               "<TopLevelComponents><ComponentList Language=\"VHDL\">"
                               "<Component Library=\"Work\" Architecture=\"x\">FOUR</Component>"
                               "<Component Library=\"other\" Architecture=\"\">three</Component>"
                               "</ComponentList></TopLevelComponents>");
    const TBuildScan scan(build, {});
    std::string tops;
    for (const TBuildTop& top : ListUnrecordedTops(scan, build))
        tops += top.Library + "." + top.Entity + "(" + top.Architecture + ") " +
                GetStringFromHdlLanguage(top.Language) + "\n";
    EXPECT_EQ(tops, "work.one(a) VHDL\nwork.two() VHDL\nwork.three() VHDL\nwork.\\Two\\() VHDL\n");
}

TEST_F(ScannedTops, AreComparedByTheRuleOfTheirLanguage) {
    Folder.Write("a.v", "module top; endmodule module Top; endmodule module TOP; endmodule");
    Folder.Write("a.vhd",
                 "entity top is end; architecture rtl of top is begin end; entity Other is end;");
    const std::string path = Folder.Write(
        "v.xml",
        "<HdlBuildFile><TopLevelComponents><ComponentList Language='Verilog'>"
        "<Component Library='work' Architecture=''>Top</Component></ComponentList>"
        "<ComponentList Language='VHDL'><Component Library='work' Architecture=''>OTHER"
        "</Component></ComponentList></TopLevelComponents>"
        "<SourceFileGroup Language='Verilog'><SourceFile>a.v</SourceFile></SourceFileGroup>"
        "<SourceFileGroup Language='VHDL'><SourceFile>a.vhd</SourceFile></SourceFileGroup>"
        "</HdlBuildFile>");
    THdlBuildFile build(ISFileName::NewISFileName(path.c_str()));
    const TBuildScan scan(build, {});
    std::string tops;
    for (const TBuildTop& top : ListUnrecordedTops(scan, build))
        tops += std::string(GetStringFromHdlLanguage(top.Language)) + " " + top.Entity + "(" +
                top.Architecture + ")\n";
    EXPECT_EQ(tops, "Verilog top()\nVerilog TOP()\nVHDL top(rtl)\n");
}
