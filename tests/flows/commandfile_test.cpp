#include "flows/commandfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <filesystem>
#include <gtest/gtest.h>

TEST(CommandFile, RunsTogetherWithoutABlankBetween) {
    const struct {
        const char* Options;
        const char* Sources;
        bool RunsTogether;
    } rows[] = {
        {" +go", "a.v\n", true}, {" +go ", "a.v\n", false}, {" +go\t", "a.v\n", false},
        {" +go", "", false},     {"", "a.v\n", false},      {"", "", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ((TCommandFile{row.Options, row.Sources}.RunsTogether()), row.RunsTogether)
            << "'" << row.Options << "' '" << row.Sources << "'";
}

namespace {

class ListedFiles : public testing::Test {
protected:
    ListedFiles() {
        for (const char* name : {"rtl/a.v", "b.vhd", "d.v", "other.v"}) Folder.Write(name, "");
        const std::string file = Folder.Write(
            "b.xml",
            "<HdlBuildFile><SourceFileGroup Language='Verilog'><SourceFile>rtl/a.v<Dependency>d.v"
            "</Dependency></SourceFile><SourceFile>gone.v</SourceFile></SourceFileGroup>"
            "<SourceFileGroup Language='VHDL'><SourceFile>b.vhd</SourceFile></SourceFileGroup>"
            "</HdlBuildFile>");
        Build.SetBuildFileName(ISFileName::NewISFileName(file.c_str()));
        Build.ReadFromFile();
    }
    /// The source that a file of that name in the folder would replace.
    std::string Replaced(const std::string& name) const {
        const IHdlSourceFile* source = FindSourceReplacedBy(Folder.Path(name), Build);
        return source ? source->GetFileName()->GetNameAndExt() : "";
    }
    TemporaryFolder Folder;
    RecordingMessageBox Box;
    THdlBuildFile Build;
};

}  // namespace

TEST_F(ListedFiles, AreReplacedByTheirNames) {
    EXPECT_EQ(Replaced("rtl/a.v"), "a.v");
    EXPECT_EQ(Replaced("rtl/../rtl/./a.v"), "a.v");
    EXPECT_EQ(Replaced("b.vhd"), "b.vhd");
    EXPECT_EQ(Replaced("gone.v"), "gone.v");
    for (const char* name : {"other.v", "new.f", "rtl/new.f", "a.v"})
        EXPECT_EQ(Replaced(name), "") << name;
}

#ifndef _WIN32
TEST_F(ListedFiles, AreReplacedThroughLinks) {
    std::filesystem::create_symlink(Folder.Path("rtl/a.v"), Folder.Path("run.f"));
    std::filesystem::create_symlink(Folder.Path("rtl"), Folder.Path("link"));
    std::filesystem::create_symlink(Folder.Path("other.v"), Folder.Path("free.f"));
    EXPECT_EQ(Replaced("run.f"), "a.v");
    EXPECT_EQ(Replaced("link/a.v"), "a.v");
    EXPECT_EQ(Replaced("free.f"), "");
}
#endif
