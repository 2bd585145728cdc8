#include "buildfile/hdlbuildfilexmllist.h"
#include "buildfile/hdlbuildfile.h"
#include "services/names/isfilename.h"
#include "tests/support/memoryfolder.h"
#include <gtest/gtest.h>

namespace {

TEST(BuildFileXMLList, FillsNothingWithoutABuild) {
    const MemoryFolder folder;
    THdlBuildFileXMLList document(nullptr);
    EXPECT_TRUE(document.WriteFile(folder.Path("empty.xml").c_str()));
    EXPECT_EQ(folder.Read("empty.xml"),
              "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n<HdlBuildFileList/>\n");
}

TEST(BuildFileXMLList, HandsEachSectionToItsReader) {
    const MemoryFolder folder;
    const std::string path =
        folder.Write("build.xml",
                     "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n<HdlBuildFileList>"
                     "<Unknown><HdlBuildFile SnapshotName='snap'></HdlBuildFile></Unknown>"
                     "<BuildFileVariables><Variable Name='a' Value='b'/></BuildFileVariables>"
                     "<OutputDiagram></OutputDiagram>"
                     "<SourceFileGroup Language='Verilog'></SourceFileGroup></HdlBuildFileList>\n");
    THdlBuildFile build;
    build.SetBuildFileName(ISFileName::NewISFileName(path.c_str()));
    THdlBuildFileXMLList document(&build);
    EXPECT_TRUE(document.ReadFile(path.c_str()));
    EXPECT_EQ(build.GetSnapshotName(), "snap");
    EXPECT_EQ(*build.GetPseudoEnvironmentVariables(), (TPseudoVariables{{"a", "b"}}));
    EXPECT_EQ(build.GetSourceFileLanguages(), std::vector{LANGUAGE_VERILOG});
}

TEST(BuildFileXMLList, TellsWhetherTheDocumentHasABuild) {
    const struct {
        const char* Label;
        const char* Document;
        bool HasBuild;
    } rows[] = {
        {"a build", "<HdlBuildFileList><HdlBuildFile/></HdlBuildFileList>", true},
        {"the root itself", "<HdlBuildFile/>", true},
        {"below something else", "<a><b/><HdlBuildFile/></a>", true},
        {"behind a section that cannot be read",
         "<a><ProjectLanguageConfigurationList><LanguageSettings/>"
         "</ProjectLanguageConfigurationList><HdlBuildFile/></a>",
         true},
        {"a section alone", "<a><OutputDiagram>a.tim</OutputDiagram></a>", false},
        {"another case", "<hdlbuildfile/>", false},
        {"malformed", "<HdlBuildFile/><a", false},
    };
    const MemoryFolder folder;
    THdlBuildFile build;
    for (const auto& row : rows) {
        const std::string path = folder.Write("build.xml", row.Document);
        build.SetBuildFileName(ISFileName::NewISFileName(path.c_str()));
        build.ReadFromFile();
        EXPECT_EQ(build.HasBuildElement(), row.HasBuild) << row.Label;
        EXPECT_EQ(THdlBuildFile(build).HasBuildElement(), row.HasBuild) << row.Label;
    }
    folder.Write("build.xml", "<HdlBuildFile/>");
    build.ReadFromFile();
    build.Initialize();
    EXPECT_FALSE(build.HasBuildElement());
}

}  // namespace
