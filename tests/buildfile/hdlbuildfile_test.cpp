#include "buildfile/hdlbuildfile.h"
#include "filenames/componentnamelist.h"
#include "projectfiles/hdlsourcefile.h"
#include "services/designdatabase/visitor.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/buildfile/filledbuild.h"
#include "tests/support/elementtext.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

namespace {

TEST(HdlBuildFile, IsEmptyWhenMade) {
    THdlBuildFile build;
    EXPECT_EQ(TextOf(build), kFresh);
    EXPECT_FALSE(build.GetReadError().IsError());
    EXPECT_EQ(build.GetSourceFileLanguages(), std::vector<THdlLanguage>{});
    EXPECT_FALSE(build.GetFilesMissing());
}

TEST(HdlBuildFile, TakesNullTextsAsEmpty) {
    THdlBuildFile build;
    build.SetQMVVersion(nullptr);
    build.SetIdlVersion(nullptr);
    build.SetDestinationLibrary(nullptr);
    build.SetGenerationDestinationLibrary(nullptr);
    build.SetSnapshotName(nullptr);
    build.SetVerilogUserDefines(nullptr);
    build.SetVerilogOtherPlusOptions(nullptr);
    const std::string expected = Replaced(kFresh, "versions x.x x.x", "versions  ");
    EXPECT_EQ(TextOf(build), expected);
    EXPECT_TRUE(build.AddComponentName(nullptr, nullptr, nullptr, LANGUAGE_VHDL));
    EXPECT_FALSE(build.AddComponentName("", "", "", LANGUAGE_VHDL));
}

TEST(HdlBuildFile, IgnoresNullObjects) {
    THdlBuildFile build;
    build.AddSimTool(nullptr);
    build.AddLanguageConfig(LANGUAGE_VHDL, nullptr);
    build.AddLanguageConfigForSourceFile(nullptr);
    EXPECT_FALSE(build.AddSourceFile(nullptr, true));
    build.AddPseudoEnvironmentVariablesForFilename(nullptr, nullptr);
    build.SetBuildFileName(nullptr);
    build.Accept(nullptr);
    EXPECT_EQ(TextOf(build), kFresh);
}

TEST(HdlBuildFile, RemovesASimulator) {
    THdlBuildFile build;
    EXPECT_FALSE(build.RemoveSimTool(LANGUAGE_VHDL));
    auto* const tool = new TBaseSimTool;  // the build's
    tool->SetLanguage(LANGUAGE_VHDL);
    build.AddSimTool(tool);
    EXPECT_TRUE(build.RemoveSimTool(LANGUAGE_VHDL));
    EXPECT_EQ(build.GetSimTool(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(TextOf(build), kFresh);
}

TEST(HdlBuildFile, DoesNothingWithTheDiskWithoutAName) {
    RecordingMessageBox box;
    THdlBuildFile build(nullptr);
    EXPECT_EQ(build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(build.Reload(), READ_NO_ERROR);
    EXPECT_FALSE(build.WriteToFile());
    EXPECT_FALSE(build.IsOutdated());
    EXPECT_FALSE(build.IsCompilationDirty());
    EXPECT_EQ(build.GetProjectPath(), "");
    EXPECT_EQ(TextOf(build), kFresh);
    EXPECT_EQ(box.Take(), "");
}

TEST(HdlBuildFile, GivesTheDirectoryOfItsFileWithTheFinalDelimiter) {
    MemoryFolder folder;
    THdlBuildFile build;
    build.SetBuildFileName(Handle(folder.Path("build.hbf")));
    const std::string file = folder.Path("build.hbf");
    EXPECT_EQ(build.GetProjectPath(),
              file.substr(0, file.size() - std::string("build.hbf").size()));
}

TEST(HdlBuildFile, AddsVariablesForTheParts) {
    MemoryFolder folder;
    const std::string file = folder.Path("top.vhd");
    THdlBuildFile build;
    build.AddPseudoEnvironmentVariablesForFilename(Handle(file), "TOP");
    const std::map<std::string, std::string> expected = {
        {"TOP_PATH", file},
        {"TOP_DIR", file.substr(0, file.size() - std::string("top.vhd").size())},
        {"TOP_NAME", "top"},
        {"TOP_EXT", ".vhd"}};
    EXPECT_EQ(*build.GetPseudoEnvironmentVariables(), expected);
}

TEST(HdlBuildFile, KeepsOneSimulatorPerLanguage) {
    THdlBuildFile build;
    TBaseSimTool* first = NewTool(LANGUAGE_VHDL, SIM_MODELSIM_VHDL);
    TBaseSimTool* second = NewTool(LANGUAGE_VHDL, SIM_NC_VHDL);
    TBaseSimTool* verilog = NewTool(LANGUAGE_VERILOG, SIM_VCS);
    build.AddSimTool(first);
    build.AddSimTool(second);
    build.AddSimTool(verilog);
    build.AddSimTool(verilog);
    EXPECT_EQ(build.GetSimToolLanguages(), (std::vector{LANGUAGE_VERILOG, LANGUAGE_VHDL}));
    EXPECT_EQ(build.GetSimTool(LANGUAGE_VHDL), second);
    EXPECT_EQ(std::as_const(build).GetSimTool(LANGUAGE_VERILOG), verilog);
    EXPECT_EQ(build.GetSimTool(LANGUAGE_SYSTEMC), nullptr);
    EXPECT_EQ(first->GetSimulatorType(), SIM_MODELSIM_VHDL) << "a replaced tool stays valid";
}

TEST(HdlBuildFile, KeepsComponentsPerLanguage) {
    THdlBuildFile build;
    EXPECT_EQ(build.GetComponentNameList(LANGUAGE_VHDL), nullptr);
    EXPECT_TRUE(build.AddComponentName("top", "rtl", "work", LANGUAGE_VHDL));
    EXPECT_FALSE(build.AddComponentName("TOP", "rtl", "work", LANGUAGE_VHDL));
    EXPECT_TRUE(build.AddComponentName("top", "", "work", LANGUAGE_VERILOG));
    EXPECT_EQ(ElementsWrittenBy(
                  [&build](TXMLList* document) { build.WriteTopLevelComponentNames(document); }),
              "START TopLevelComponents\n"
              "START ComponentList Language=Verilog\n"
              "START Component Library=work Architecture=\nTEXT top\nEND Component\n"
              "END ComponentList\n"
              "START ComponentList Language=VHDL\n"
              "START Component Library=work Architecture=rtl\nTEXT top\nEND Component\n"
              "END ComponentList\n"
              "END TopLevelComponents\n");
    ASSERT_NE(build.GetComponentNameList(LANGUAGE_VHDL), nullptr);
    EXPECT_EQ(std::as_const(build).GetComponentNameList(LANGUAGE_VHDL),
              build.GetComponentNameList(LANGUAGE_VHDL));
}

TEST(HdlBuildFile, IsAComponentThatPassesItsModifiedNoticeBy) {
    THdlBuildFile build;
    IProjectComponent& component = build;
    TProjectSimLanguageConfig config;
    TProjectSimGeneralConfig general;
    build.AddLanguageConfig(LANGUAGE_VHDL, &config);
    build.SetGeneralConfiguration(&general);
    EXPECT_EQ(component.GetProjectLanguageConfig(LANGUAGE_VHDL),
              build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    EXPECT_EQ(component.GetGeneralConfiguration(), &general);
    for (const bool modified : {true, false}) {
        component.SetProjectModified(modified);
        std::string expected = Replaced(kFresh, "general null", "general set");
        expected = Replaced(expected, "configurations", "configurations VHDL=");
        EXPECT_EQ(TextOf(build), expected);
    }
}

/// Notes what it sees.
class ComponentVisitor : public IBaseVisitor, public IVisitor<IProjectComponent> {
public:
    void VisitUnhandled() override { Seen = "unhandled"; }
    void Visit(IProjectComponent* component) override {
        Seen = dynamic_cast<THdlBuildFile*>(component) ? "build" : "other";
    }
    std::string Seen;
};

TEST(HdlBuildFile, IsVisitedAsAComponent) {
    THdlBuildFile build;
    ComponentVisitor visitor;
    build.Accept(&visitor);
    EXPECT_EQ(visitor.Seen, "build");
}

TEST(HdlBuildFile, KeepsTheTableOfItsBuildManager) {
    EXPECT_EQ(SlotOf(&THdlBuildFile::CreateOrGetSourceFile), 1);
    EXPECT_EQ(SlotOf(&THdlBuildFile::GetProjectLanguageConfigForFileRead), 2);
    EXPECT_EQ(SlotOf(static_cast<TProjectSimLanguageConfig* (THdlBuildFile::*)(THdlLanguage)>(
                  &THdlBuildFile::GetProjectLanguageConfig)),
              3);
    EXPECT_EQ(SlotOf(&THdlBuildFile::GetCompileOptions), 4);
    EXPECT_EQ(SlotOf(&THdlBuildFile::GetElaboratorOptions), 5);
    EXPECT_EQ(SlotOf(&THdlBuildFile::GetRuntimeOptions), 6);
}

/// A build file on disk that lists a.vhd, which exists.
class BuildOnDisk : public testing::Test {
protected:
    BuildOnDisk() { Folder.Write("a.vhd", "entity a"); }
    std::string WriteBuild(const std::string& variable) {
        return Folder.Write("build.hbf",
                            "<HdlBuildFile TopLevelLanguage='VHDL' HvlLanguage='TestBuilder'"
                            " HdlLanguage='VHDL' QmvVersion='1.0' IdlVersion='2.0'"
                            " BaseTimeUnit='fs' DisplayTimeUnit='ms' SugarEngineDll='sugar.dll'"
                            " GenerationDestinationLibrary='gen' DestinationLibrary='dest'"
                            " SnapshotName='snap' SingleFileOnlyBuild='true'>\n"
                            "<TopLevelComponents ForceTopLevelComponents='true'>"
                            "<ComponentList Language='Verilog'/></TopLevelComponents>\n"
                            "<ExternalSimulatorSettings><Tool Name='VCS' Path='' PliLibPath=''>"
                            "Verilog</Tool></ExternalSimulatorSettings>\n"
                            "<GeneralConfiguration LogFileName='run.log'/>\n"
                            "<ProjectLanguageConfigurationList>\n"
                            "<LanguageSettings Language='VHDL'><BuildOptions>-93</BuildOptions>"
                            "</LanguageSettings>\n"
                            "</ProjectLanguageConfigurationList>\n"
                            "<SourceFileGroup Language='VHDL'>\n"
                            "<SourceFile PrecompiledLibrary='lib'>a.vhd</SourceFile>\n"
                            "</SourceFileGroup>\n"
                            "<BuildFileVariables><Variable Name='V' Value='" +
                                variable +
                                "'/></BuildFileVariables>\n"
                                "</HdlBuildFile>\n");
    }
    /// What a build read from that file holds.
    static std::string ReadText(const std::string& variable) {
        return "file build.hbf\n"
               "languages VHDL TestBuilder VHDL\n"
               "versions 1.0 2.0\n"
               "sugar sugar.dll\n"
               "time fs ms\n"
               "libraries 'gen' 'dest' snapshot 'snap'\n"
               "defines '' plus options ''\n"
               "single true force true\n"
               "general set options null\n"
               "variables V=" +
               variable +
               "\n"
               "tools Verilog\n"
               "components Verilog\n"
               "configurations VHDL=-93\n"
               "sources VHDL: a.vhd\n"
               "ordered\n"
               "precompiled lib\n"
               "result 0 error ''\n";
    }
    MemoryFolder Folder;
    const ISFileName* Name = Handle(WriteBuild("1"));
    RecordingMessageBox Box;
};

TEST_F(BuildOnDisk, IsReadByTheConstructor) {
    const THdlBuildFile build(Name);
    EXPECT_EQ(TextOf(build), ReadText("1"));
    EXPECT_STREQ(build.GetGeneralConfiguration()->GetSimulationLogFileName(), "run.log");
    EXPECT_EQ(Box.Take(), "");
}

TEST_F(BuildOnDisk, TellsWhyAFileCouldNotBeRead) {
    THdlBuildFile missing(Handle(Folder.Path("none.hbf")));
    EXPECT_EQ(missing.GetReadResult(), READ_NO_ERROR);
    EXPECT_TRUE(missing.GetReadError().Missing);
    EXPECT_EQ(Box.Take(), "");
    THdlBuildFile malformed(
        Handle(Folder.Write("bad.hbf", "<HdlBuildFile>\n<Open>\n</HdlBuildFile>\n")));
    EXPECT_EQ(malformed.GetReadResult(), READ_NO_ERROR);
    EXPECT_EQ(malformed.GetReadError().Reason,
              "mismatched tag: element \"Open\" of line 2 is still open");
    EXPECT_EQ(malformed.GetReadError().Line, 3);
    std::string expected = Replaced(kFresh, "<null>", "bad.hbf");
    expected = Replaced(expected, "error ''",
                        "error 'mismatched tag: element \"Open\" of line 2 is still open'");
    EXPECT_EQ(TextOf(malformed), expected);
    EXPECT_EQ(
        Box.Take(),
        "Cannot read file: \"" + Folder.Path("bad.hbf") +
            "\", line 3, column 3: mismatched tag: element \"Open\" of line 2 is still open [0]\n");
    malformed.SetBuildFileName(Name);
    malformed.ReadFromFile();
    EXPECT_FALSE(malformed.GetReadError().IsError());
}

TEST_F(BuildOnDisk, IsReadAfreshByReload) {
    THdlBuildFile build(Name);
    build.SetDestinationLibrary("edited");
    build.SetVerilogUserDefines("+define+A");
    const TIHdlSourceFileList* group = build.GetSourceFileGroup(LANGUAGE_VHDL);
    const TProjectSimGeneralConfig* general = build.GetGeneralConfiguration();
    WriteBuild("2");
    EXPECT_EQ(build.Reload(), READ_NO_ERROR);
    EXPECT_EQ(TextOf(build), ReadText("2"));
    EXPECT_NE(build.GetSourceFileGroup(LANGUAGE_VHDL), group);
    EXPECT_EQ(NamesOf(*group), "a.vhd ") << "pointers taken before stay readable";
    EXPECT_STREQ(general->GetSimulationLogFileName(), "run.log");
    EXPECT_NE(build.GetGeneralConfiguration(), general);
}

TEST_F(BuildOnDisk, IsOutdatedWhenTheFileChangedSinceItWasRead) {
    THdlBuildFile build(Name);
    EXPECT_FALSE(build.IsOutdated());
    EXPECT_FALSE(build.IsCompilationDirty());
    WriteBuild("longer");
    EXPECT_TRUE(build.IsOutdated());
    EXPECT_TRUE(build.IsCompilationDirty());
    build.Reload();
    EXPECT_FALSE(build.IsOutdated());
}

TEST_F(BuildOnDisk, IsNotOutdatedBeforeItWasEverRead) {
    THdlBuildFile build;
    build.SetBuildFileName(Name);
    EXPECT_FALSE(build.IsOutdated());
}

TEST_F(BuildOnDisk, IsOutdatedWhenTheFileCameAfterItWasFoundMissing) {
    const ISFileName* name = Handle(Folder.Path("late.hbf"));
    THdlBuildFile build(name);
    EXPECT_FALSE(build.IsOutdated());
    Folder.Write("late.hbf", "<HdlBuildFile/>");
    EXPECT_TRUE(build.IsOutdated());
}

TEST_F(BuildOnDisk, IsDirtyWhenASourceChanged) {
    THdlBuildFile build(Name);
    EXPECT_FALSE(build.IsAtLeastOneSourceFileDirty());
    Folder.Write("a.vhd", "entity a is longer now");
    EXPECT_TRUE(build.IsAtLeastOneSourceFileDirty());
    EXPECT_FALSE(build.IsOutdated());
    EXPECT_TRUE(build.IsCompilationDirty());
}

/// A source that counts how often its name was asked for.
class CountingSource : public THdlSourceFile {
public:
    using THdlSourceFile::GetFileName;
    using THdlSourceFile::THdlSourceFile;
    const ISFileName* GetFileName() const override {
        ++Asked;
        return THdlSourceFile::GetFileName();
    }
    mutable int Asked = 0;
};

TEST_F(BuildOnDisk, AsksNoSourceWhenTheBuildItselfIsOutdated) {
    THdlBuildFile build(Name);
    CountingSource source(Folder.Path("a.vhd").c_str());
    build.GetSourceFileGroup(LANGUAGE_VERILOG)->AddSourceFile(&source, false);
    WriteBuild("longer");
    source.Asked = 0;
    EXPECT_TRUE(build.IsCompilationDirty());
    EXPECT_EQ(source.Asked, 0);
    build.IsAtLeastOneSourceFileDirty();
    EXPECT_EQ(source.Asked, 1);
    build.GetSourceFileGroup(LANGUAGE_VERILOG)->Flush();
}

}  // namespace
