#include "flows/buildedit.h"
#include "flows/buildchanges.h"
#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <functional>
#include <gtest/gtest.h>

namespace {

constexpr const char* kBuild = R"(<?xml version="1.0"?>
<HdlBuildFile TopLevelLanguage='vhdl'>
  <!-- packages first -->
  <SourceFileGroup Language='vhdl'>
    <SourceFile PrecompiledLibrary='util'>./rtl/pkg.vhd</SourceFile> <!-- common -->
    <SourceFile>
      rtl/Core.vhd
      <Dependency>rtl/pkg.vhd</Dependency>
    </SourceFile>
    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency><!-- x --><Dependency>rtl/core.vhd</Dependency></SourceFile>
  </SourceFileGroup>
</HdlBuildFile>
)";

/// A build file on the disk, and what a change makes of it.
class EditedBuild {
public:
    explicit EditedBuild(const std::string& document = kBuild)
        : Edit(ISFileName::NewISFileName(Folder.Write("b.xml", document).c_str())) {
        TXMLReadError error;
        EXPECT_TRUE(Edit.ReadToChange(&error)) << error.Reason;
    }

    const ISFileName* Name(const std::string& path) const {
        return ISFileName::NewISFileName(Folder.Path(path).c_str());
    }
    IHdlSourceFile& Source(const std::string& path) {
        return *FindListed(*Edit.GetBuild(), Name(path)).Source;
    }
    THdlBuildFile& Build() { return *Edit.GetBuild(); }
    TBuildEdit& Edited() { return Edit; }

    /// The lines of the difference that come and go, or why there is none.
    std::string Save() {
        const std::string reason = Edit.FindEdits();
        if (!reason.empty()) return "refused: " + reason;
        EXPECT_EQ(Edit.GetFile().Save(), "");
        std::string lines;
        std::string diff = Edit.GetFile().GetUnifiedDiff("b.xml");
        for (std::size_t begin = 0; begin < diff.size();) {
            const std::size_t end = diff.find('\n', begin) + 1;
            const std::string line = diff.substr(begin, end - begin);
            const bool isHead = line.starts_with("---") || line.starts_with("+++");
            if (!isHead && (line[0] == '+' || line[0] == '-')) lines += line;
            begin = end;
        }
        return lines;
    }

private:
    const RecordingMessageBox Box;
    TemporaryFolder Folder;
    TBuildEdit Edit;
};

}  // namespace

TEST(BuildEdit, EditsWhatChangedInTheModel) {
    const struct {
        const char* Label;
        std::function<void(EditedBuild&)> Change;
        std::string Expected;
    } rows[] = {
        {"nothing", [](EditedBuild&) {}, ""},
        {"a source at the end",
         [](EditedBuild& build) { AddSource(build.Build(), build.Name("n.vhd"), LANGUAGE_VHDL); },
         "+    <SourceFile Library=\"false\" PrecompiledLibrary=\"\">n.vhd</SourceFile>\n"},
        {"a source in front",
         [](EditedBuild& build) {
             IHdlSourceFile* source = AddSource(build.Build(), build.Name("n.vhd"), LANGUAGE_VHDL);
             MoveSources(build.Build(), LANGUAGE_VHDL, {source}, PLACE_FIRST, nullptr);
         },
         "+    <SourceFile Library=\"false\" PrecompiledLibrary=\"\">n.vhd</SourceFile>\n"},
        {"a source that moves",
         [](EditedBuild& build) {
             MoveSources(build.Build(), LANGUAGE_VHDL, {&build.Source("rtl/pkg.vhd")}, PLACE_LAST,
                         nullptr);
         },
         "-    <SourceFile PrecompiledLibrary='util'>./rtl/pkg.vhd</SourceFile> <!-- common -->\n"
         "+    <SourceFile PrecompiledLibrary='util'>./rtl/pkg.vhd</SourceFile> <!-- common -->\n"},
        {"a library",
         [](EditedBuild& build) {
             build.Source("rtl/pkg.vhd").SetPrecompiledLibraryGroupName("base");
         },
         "-    <SourceFile PrecompiledLibrary='util'>./rtl/pkg.vhd</SourceFile> <!-- common -->\n"
         "+    <SourceFile PrecompiledLibrary='base'>./rtl/pkg.vhd</SourceFile> <!-- common -->\n"},
        {"dependencies",
         [](EditedBuild& build) {
             SetDependencies(build.Build(), build.Source("rtl/core.vhd"),
                             {build.Name("rtl/types.vhd"), build.Name("rtl/pkg.vhd")});
         },
         "+      <Dependency>rtl/types.vhd</Dependency>\n"},
        {"a source that goes, with the dependencies on it",
         [](EditedBuild& build) { RemoveSources(build.Build(), {&build.Source("rtl/core.vhd")}); },
         "-    <SourceFile>\n"
         "-      rtl/Core.vhd\n"
         "-      <Dependency>rtl/pkg.vhd</Dependency>\n"
         "-    </SourceFile>\n"
         "-    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency><!-- x --><Dependency>"
         "rtl/core.vhd</Dependency></SourceFile>\n"
         "+    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency><!-- x -->"
         "</SourceFile>\n"},
        {"another name",
         [](EditedBuild& build) {
             RenameSource(build.Build(), build.Source("rtl/core.vhd"), build.Name("rtl/cpu.vhd"));
         },
         "-      rtl/Core.vhd\n"
         "+      rtl/cpu.vhd\n"
         "-    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency><!-- x --><Dependency>"
         "rtl/core.vhd</Dependency></SourceFile>\n"
         "+    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency><!-- x --><Dependency>"
         "rtl/cpu.vhd</Dependency></SourceFile>\n"},
        {"an attribute and a variable",
         [](EditedBuild& build) {
             build.Build().SetSnapshotName("snap");
             (*build.Build().GetPseudoEnvironmentVariables())["W"] = "8";
         },
         "-<HdlBuildFile TopLevelLanguage='vhdl'>\n"
         "+<HdlBuildFile TopLevelLanguage='vhdl' SnapshotName='snap'>\n"
         "+  <BuildFileVariables>\n"
         "+    <Variable Name=\"W\" Value=\"8\"/>\n"
         "+  </BuildFileVariables>\n"},
        {"a language without settings, of which only what differs comes",
         [](EditedBuild& build) {
             build.Edited().GetOrMakeLanguageSettings(LANGUAGE_CPLUSPLUS).SetPliDriven(true);
             build.Edited().GetOrMakeLanguageSettings(LANGUAGE_CPLUSPLUS).SetBuildOptions("-g");
         },
         "+  <ProjectLanguageConfigurationList>\n"
         "+    <LanguageSettings Language=\"C++\">\n"
         "+      <PliDriven>true</PliDriven>\n"
         "+      <BuildOptions>-g</BuildOptions>\n"
         "+    </LanguageSettings>\n"
         "+  </ProjectLanguageConfigurationList>\n"},
        {"what no document can hold",
         [](EditedBuild& build) { build.Build().SetSnapshotName("a\x01"); },
         "refused: no document can hold the character U+0001"},
    };
    for (const auto& row : rows) {
        EditedBuild build;
        row.Change(build);
        EXPECT_EQ(build.Save(), row.Expected) << row.Label;
    }
}

TEST(BuildEdit, MakesABuildOnlyWhereNoFileIs) {
    const RecordingMessageBox box;
    const TemporaryFolder folder;
    const ISFileName* const file = ISFileName::NewISFileName(folder.Path("n.xml").c_str());
    {
        TBuildEdit edit(file);
        EXPECT_EQ(edit.Make(LANGUAGE_VERILOG, true), "");
        AddSource(*edit.GetBuild(), ISFileName::NewISFileName(folder.Path("a.v").c_str()),
                  LANGUAGE_VERILOG);
        EXPECT_EQ(edit.FindEdits(), "");
        EXPECT_EQ(edit.GetFile().Save(), "");
    }
    const std::string document = folder.Read("n.xml");
    EXPECT_EQ(document.substr(document.find("    <ProjectLanguage")),
              "    <ProjectLanguageConfigurationList/>\n"
              "    <SourceFileGroup Language=\"Verilog\">\n"
              "      <SourceFile Library=\"false\" PrecompiledLibrary=\"\">a.v</SourceFile>\n"
              "    </SourceFileGroup>\n"
              "  </HdlBuildFile>\n"
              "</HdlBuildFileList>\n");
    EXPECT_EQ(TBuildEdit(file).Make(LANGUAGE_VHDL, true), "the file exists already");
    EXPECT_EQ(folder.List(), "n.xml\n");
}

// Without the flags for its languages the library would drop groups.
TEST(BuildEdit, MakesBuildsOfWhichTheLibraryKeepsEverySource) {
    const struct {
        const char* Name;
        THdlLanguage Language;
    } sources[] = {{"a.v", LANGUAGE_VERILOG},           {"b.vhd", LANGUAGE_VHDL},
                   {"c.bsv", LANGUAGE_BLUESPECVERILOG}, {"d.sc", LANGUAGE_SYSTEMC},
                   {"e.cpp", LANGUAGE_CPLUSPLUS},       {"f.e", LANGUAGE_SPECMAN},
                   {"g.tb", LANGUAGE_TESTBUILDER}};
    const std::string bare = "<HdlBuildFile TopLevelLanguage=\"VHDL\"/>\n";
    for (const auto& top : sources) {
        for (const bool isNew : {true, false}) {
            const RecordingMessageBox box;
            const TemporaryFolder folder;
            const ISFileName* const file = ISFileName::NewISFileName(folder.Path("n.xml").c_str());
            if (!isNew) folder.Write("n.xml", bare);
            TXMLReadError error;
            {
                TBuildEdit edit(file);
                if (isNew)
                    EXPECT_EQ(edit.Make(top.Language, true), "");
                else
                    EXPECT_TRUE(edit.ReadToChange(&error));
                for (const auto& source : sources)
                    AddSource(*edit.GetBuild(),
                              ISFileName::NewISFileName(folder.Path(source.Name).c_str()),
                              source.Language);
                EXPECT_EQ(edit.FindEdits(), "") << top.Name;
                EXPECT_EQ(edit.GetFile().Save(), "") << top.Name;
            }
            TSimWrapHdlBuildFile build(file);
            EXPECT_TRUE(build.WriteToFile());
            TSimWrapHdlBuildFile saved(file);
            std::string found;
            for (const TListedSource& source : ListSources(saved))
                found += std::string(GetStringFromHdlLanguage(source.Group)) + " " +
                         source.File->GetFileName()->GetNameAndExt() + "\n";
            EXPECT_EQ(found,
                      "Verilog a.v\nVHDL b.vhd\nBluespec c.bsv\nSystemC d.sc\nC++ e.cpp\n"
                      "Specman f.e\nTestBuilder g.tb\n")
                << top.Name << isNew;
        }
    }
}

TEST(BuildEdit, GoesOnAfterASave) {
    const RecordingMessageBox box;
    const TemporaryFolder folder;
    const ISFileName* const file = ISFileName::NewISFileName(folder.Write("b.xml", kBuild).c_str());
    const auto nameOf = [&](const char* name) {
        return ISFileName::NewISFileName(folder.Path(name).c_str());
    };
    TXMLReadError error;
    TBuildEdit edit(file);
    ASSERT_TRUE(edit.Read(&error));
    EXPECT_FALSE(edit.IsDifferent());
    EXPECT_EQ(edit.FindEdits(), "");
    EXPECT_FALSE(edit.IsChanged());
    edit.GoOn();
    for (const char* const name : {"one.vhd", "two.vhd"}) {
        AddSource(*edit.GetBuild(), nameOf(name), LANGUAGE_VHDL);
        edit.GetBuild()->SetSnapshotName(name);
        (*edit.GetBuild()->GetPseudoEnvironmentVariables())[name] = "1";
        edit.GetOrMakeLanguageSettings(LANGUAGE_CPLUSPLUS).SetBuildOptions(name);
        EXPECT_TRUE(edit.IsDifferent());
        // Twice: what a first call finds is not in the way of the next one.
        EXPECT_EQ(edit.FindEdits(), "");
        EXPECT_EQ(edit.FindEdits(), "");
        EXPECT_EQ(edit.GetFile().Save(), "the file is not locked");
        edit.GetFile().TakeLock();
        EXPECT_EQ(edit.GetFile().Save(), "");
        edit.GetFile().DropLock();
        edit.GoOn();
        EXPECT_FALSE(edit.IsDifferent());
    }
    EXPECT_EQ(folder.Read("b.xml"), R"(<?xml version="1.0"?>
<HdlBuildFile TopLevelLanguage='vhdl' SnapshotName='two.vhd'>
  <ProjectLanguageConfigurationList>
    <LanguageSettings Language="C++">
      <BuildOptions>two.vhd</BuildOptions>
    </LanguageSettings>
  </ProjectLanguageConfigurationList>
  <!-- packages first -->
  <SourceFileGroup Language='vhdl'>
    <SourceFile PrecompiledLibrary='util'>./rtl/pkg.vhd</SourceFile> <!-- common -->
    <SourceFile>
      rtl/Core.vhd
      <Dependency>rtl/pkg.vhd</Dependency>
    </SourceFile>
    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency><!-- x --><Dependency>rtl/core.vhd</Dependency></SourceFile>
    <SourceFile Library="false" PrecompiledLibrary="">one.vhd</SourceFile>
    <SourceFile Library="false" PrecompiledLibrary="">two.vhd</SourceFile>
  </SourceFileGroup>
  <BuildFileVariables>
    <Variable Name="one.vhd" Value="1"/>
    <Variable Name="two.vhd" Value="1"/>
  </BuildFileVariables>
</HdlBuildFile>
)");
}

TEST(BuildEdit, GoesOnWithABuildThatItMade) {
    const RecordingMessageBox box;
    const TemporaryFolder folder;
    const ISFileName* const file = ISFileName::NewISFileName(folder.Path("n.xml").c_str());
    TBuildEdit edit(file);
    ASSERT_EQ(edit.Make(LANGUAGE_VHDL, true), "");
    EXPECT_TRUE(edit.IsDifferent());
    ASSERT_EQ(edit.FindEdits(), "");
    ASSERT_EQ(edit.GetFile().Save(), "");
    edit.GoOn();
    EXPECT_FALSE(edit.IsDifferent());
    const std::string made = folder.Read("n.xml");
    edit.GetBuild()->SetSnapshotName("snap");
    ASSERT_EQ(edit.FindEdits(), "");
    EXPECT_EQ(edit.GetFile().Save(), "");
    std::string expected = made;
    expected.replace(expected.find("SnapshotName=\"\""), 15, "SnapshotName=\"snap\"");
    EXPECT_EQ(folder.Read("n.xml"), expected);
}
