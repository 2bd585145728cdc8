#include "flows/scanedit.h"
#include "flows/buildedit.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "tests/flows/scannedfolder.h"

using ScanEdit = ScannedFolder;

TEST_F(ScanEdit, EditsTheElementsOfSourcesThatChange) {
    Folder.Write("a.vhd", "use work.p.all; entity e is end;");
    Folder.Write("p.vhd", "package p is end;");
    TBuildEdit edit(Write("",
                          "<SourceFile>a.vhd<!-- ours --><Dependency>b.vhd</Dependency>"
                          "</SourceFile><SourceFile>p.vhd</SourceFile>"));
    TXMLReadError error;
    ASSERT_TRUE(edit.Read(&error));
    const TBuildScan scan(*edit.GetBuild(), {});
    const TScanChanges changes{scan.GetDifferences(), {{LANGUAGE_VHDL, "work", "e", ""}}};
    ApplyScan(scan, changes, edit.GetBuild());
    EXPECT_EQ(edit.FindEdits(), "");
    EXPECT_EQ(edit.GetFile().GetChanged(),
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
    TBuildEdit edit(Write("",
                          "<SourceFile>p.vhd</SourceFile></SourceFileGroup>\n"
                          "<SourceFileGroup Language=\"VHDL\">\n"
                          "<SourceFile>a.vhd</SourceFile>\n"));
    TXMLReadError error;
    ASSERT_TRUE(edit.Read(&error));
    const TBuildScan scan(*edit.GetBuild(), {});
    ApplyScan(scan, {scan.GetDifferences(), {}}, edit.GetBuild());
    EXPECT_EQ(edit.FindEdits(), "");
    EXPECT_EQ(edit.GetFile().GetChanged(),
              "<HdlBuildFileList><HdlBuildFile ><SourceFileGroup Language=\"VHDL\">"
              "<SourceFile>p.vhd</SourceFile></SourceFileGroup>\n"
              "<SourceFileGroup Language=\"VHDL\">\n"
              "<SourceFile>a.vhd<Dependency>p.vhd</Dependency>\n</SourceFile>\n"
              "</SourceFileGroup></HdlBuildFile></HdlBuildFileList>");
}

TEST_F(ScanEdit, ChangesWhatIsWished) {
    Folder.Write("a.vhd", "use work.p.all; entity e is end;");
    Folder.Write("p.vhd", "package p is end;");
    TBuildEdit edit(Write("",
                          "<SourceFile>a.vhd<Dependency>b.vhd</Dependency></SourceFile>"
                          "<SourceFile>p.vhd<Dependency>b.vhd</Dependency></SourceFile>"));
    TXMLReadError error;
    ASSERT_TRUE(edit.Read(&error));
    const TBuildScan scan(*edit.GetBuild(), {});
    const auto describe = [&](const TScanWishes& wishes) {
        const TScanChanges changes = FindScanChanges(scan, *edit.GetBuild(), wishes);
        std::string text;
        for (const TDependencyDifference& difference : changes.Differences)
            text += std::to_string(difference.Source) + " lacks " +
                    std::to_string(difference.Lacking.size()) + ", leaves " +
                    std::to_string(difference.Unexplained.size()) + "; ";
        for (const TBuildTop& top : changes.Tops) text += top.Entity;
        return text;
    };
    EXPECT_EQ(describe({}), "0 lacks 1, leaves 0; ");
    EXPECT_EQ(describe({true, false}), "0 lacks 1, leaves 1; 1 lacks 0, leaves 1; ");
    EXPECT_EQ(describe({false, true}), "0 lacks 1, leaves 0; e");
}
