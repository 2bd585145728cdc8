#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

std::string Texts(const std::vector<TListedSource>& sources) {
    std::string text;
    for (const TListedSource& source : sources)
        text += std::string(GetStringFromHdlLanguage(source.Group)) + " " +
                source.File->GetFileName()->GetNameNoExt() + "\n";
    return text;
}

constexpr const char* kDocument =
    "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\"><HdlBuildFileList><HdlBuildFile>"
    "<SourceFileGroup Language=\"TestBuilder\"><SourceFile>t.tb</SourceFile></SourceFileGroup>"
    "<SourceFileGroup Language=\"VHDL\"><SourceFile>z.vhd</SourceFile>"
    "<SourceFile>a.vhd<Dependency>d.vhd</Dependency></SourceFile></SourceFileGroup>"
    "<SourceFileGroup Language=\"Verilog\"><SourceFile>v.v</SourceFile></SourceFileGroup>"
    "</HdlBuildFile></HdlBuildFileList>";

}  // namespace

TEST(ListedSources, AreInOrderOfLanguageAndGroup) {
    const RecordingMessageBox box;
    const TemporaryFolder folder;
    const THdlBuildFile build(ISFileName::NewISFileName(folder.Write("b.xml", kDocument).c_str()));
    EXPECT_EQ(Texts(ListSources(build)), "Verilog v\nVHDL z\nVHDL a\nTestBuilder t\n");
}

TEST(ListedSources, TellThoseThatAreMissing) {
    const RecordingMessageBox box;
    const TemporaryFolder folder;
    folder.Write("z.vhd", "");
    folder.Write("t.tb", "");
    const std::string file = folder.Write("b.xml", kDocument);
    const THdlBuildFile build(ISFileName::NewISFileName(file.c_str()));
    EXPECT_EQ(Texts(ListMissingSources(build)), "Verilog v\nVHDL a\n");
    folder.Write("a.vhd", "");
    folder.Write("v.v", "");
    // The disk is not asked again.
    EXPECT_EQ(Texts(ListMissingSources(build)), "Verilog v\nVHDL a\n");
    const THdlBuildFile complete(ISFileName::NewISFileName(file.c_str()));
    EXPECT_EQ(Texts(ListMissingSources(complete)), "");
}
