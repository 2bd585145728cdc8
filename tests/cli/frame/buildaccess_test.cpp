#include "cli/frame/buildaccess.h"
#include "projectfiles/ihdlsourcefile.h"
#include "tests/cli/toolrun.h"
#include <gtest/gtest.h>

namespace {

/// A command on b.xml, step by step.
struct Access {
    std::ostringstream Out;
    std::ostringstream Err;
    TToolStreams Streams{Out, Err};
    TCommonArguments Arguments;
    std::string File = "b.xml";
    TBuildAccess Build{File, Arguments, Streams};
};

std::string Sources(const std::string& names) {
    return BuildText("<SourceFileGroup Language=\"VHDL\">\n" + names + "</SourceFileGroup>");
}

}  // namespace

TEST(BuildAccess, ReplacesOnlyTheFileThatItRead) {
    const WorkingFolder folder;
    folder.Write("b.xml", Sources(SourceText("a.vhd")));
    Access command;
    ASSERT_EQ(command.Build.ReadToChange(), kExitDone);
    command.Build.FindSource("A.vhd").Source->SetLibraryFlag(true);
    folder.Write("b.xml", "<other/>");
    EXPECT_EQ(command.Build.Save("test"), kExitFile);
    EXPECT_EQ(command.Out.str(), "");
    EXPECT_EQ(command.Err.str(),
              "hdlbuild: error: b.xml: the file has changed since it was read\n");
    EXPECT_EQ(folder.Read("b.xml"), "<other/>");
}

TEST(BuildAccess, TellsTheChangesOfSourcesAndItsNotes) {
    const WorkingFolder folder;
    folder.Write("b.xml", Sources(SourceText("a.vhd") + SourceText("b.vhd", {"a.vhd"}) +
                                  SourceText("c.vhd")));
    Access command;
    ASSERT_EQ(command.Build.ReadToChange(), kExitDone);
    const auto source = [&](const char* name) { return command.Build.FindSource(name).Source; };
    source("a.vhd")->SetPrecompiledLibraryGroupName("lib");
    source("b.vhd")->FlushDependencies();
    MoveSources(command.Build.GetBuild(), LANGUAGE_VHDL, {source("a.vhd")}, PLACE_LAST, nullptr);
    command.Build.Note("seen", {"x", "y"}, " was seen");
    EXPECT_EQ(command.Build.Save("test"), kExitDone);
    EXPECT_EQ(command.Err.str(), "");
    EXPECT_EQ(command.Out.str(),
              "x was seen\n"
              "y was seen\n"
              "VHDL source a.vhd, library: \"\" -> \"lib\"\n"
              "VHDL source a.vhd, behind: none -> \"c.vhd\"\n"
              "VHDL source b.vhd, dependencies: [\"a.vhd\"] -> []\n"
              "b.xml: saved\n");
    EXPECT_EQ(folder.Read("b.xml"),
              Sources(SourceText("b.vhd") + SourceText("c.vhd") +
                      SourceText("a.vhd", {}, "PrecompiledLibrary=\"lib\" ")));
}
