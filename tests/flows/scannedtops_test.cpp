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
    for (const TScannedTop& top : ListUnrecordedTops(scan, build))
        tops += top.Library + "." + top.Entity + "(" + top.Architecture + ") " +
                GetStringFromHdlLanguage(top.Language) + "\n";
    EXPECT_EQ(tops, "work.one(a) VHDL\nwork.two() VHDL\nwork.three() VHDL\nwork.\\Two\\() VHDL\n");
}
