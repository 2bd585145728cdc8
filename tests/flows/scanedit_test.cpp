#include "flows/scanedit.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "tests/flows/scannedfolder.h"

using ScanEdit = ScannedFolder;

TEST_F(ScanEdit, EditsTheElementsOfSourcesThatChange) {
    Folder.Write("a.vhd", "use work.p.all; entity e is end;");
    Folder.Write("p.vhd", "package p is end;");
    THdlBuildFile build = Read("",
                               "<SourceFile>a.vhd<!-- ours --><Dependency>b.vhd</Dependency>"
                               "</SourceFile><SourceFile>p.vhd</SourceFile>");
    TEditedFile file(build.GetFileName());
    TXMLReadError error;
    ASSERT_TRUE(file.Read(&error));
    const TBuildScan scan(build, {});
    const TScanChanges changes{scan.GetDifferences(), {{"e", "", "work", LANGUAGE_VHDL}}};
    EXPECT_EQ(EditScanned(scan, changes, &build, &file), "");
    EXPECT_EQ(file.GetChanged(),
              "<HdlBuildFileList><HdlBuildFile ><TopLevelComponents><ComponentList "
              "Language=\"VHDL\"><Component Library=\"work\" Architecture=\"\">e</Component>"
              "</ComponentList></TopLevelComponents><SourceFileGroup Language=\"VHDL\">"
              "<SourceFile>a.vhd<!-- ours --><Dependency>p.vhd</Dependency></SourceFile>"
              "<SourceFile>p.vhd</SourceFile></SourceFileGroup></HdlBuildFile>"
              "</HdlBuildFileList>");
    const TIHdlSourceFileList& dependencies = *scan.GetSources()[0].Source->GetDependencyList();
    ASSERT_EQ(dependencies.size(), 1u);
    EXPECT_EQ(*dependencies.begin(), scan.GetSources()[1].Source);
}

// What the library reads as one list is one element only where the file has but one.
TEST_F(ScanEdit, FindsTheGroupThatListsASource) {
    Folder.Write("a.vhd", "use work.p.all; entity e is end;");
    Folder.Write("p.vhd", "package p is end;");
    THdlBuildFile build = Read("",
                               "<SourceFile>p.vhd</SourceFile></SourceFileGroup>\n"
                               "<SourceFileGroup Language=\"VHDL\">\n"
                               "<SourceFile>a.vhd</SourceFile>\n");
    TEditedFile file(build.GetFileName());
    TXMLReadError error;
    ASSERT_TRUE(file.Read(&error));
    const TBuildScan scan(build, {});
    EXPECT_EQ(EditScanned(scan, {scan.GetDifferences(), {}}, &build, &file), "");
    EXPECT_EQ(file.GetChanged(),
              "<HdlBuildFileList><HdlBuildFile ><SourceFileGroup Language=\"VHDL\">"
              "<SourceFile>p.vhd</SourceFile></SourceFileGroup>\n"
              "<SourceFileGroup Language=\"VHDL\">\n"
              "<SourceFile>a.vhd<Dependency>p.vhd</Dependency>\n</SourceFile>\n"
              "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>");
}
