#include "buildfile/hdlbuildfile.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/buildfile/projectfolder.h"
#include "tests/support/elementtext.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "tests/support/settingtexts.h"
#include "translation/v2vtranslationoption.h"
#include "translation/v2vtranslationoptionslist.h"
#include <gtest/gtest.h>
#include <memory>

#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // as the options

namespace {

const ISFileName* NameOf(const std::string& path) {
    return ISFileName::NewISFileName(path.c_str());
}

/// The document of a build, as elements.
std::string DocumentOf(THdlBuildFile& build) {
    THdlBuildFileXMLList document(&build);
    build.WriteFile(&document);
    return ElementsOf(document);
}

void AddTool(THdlBuildFile* build, THdlLanguage language, TSimulatorType type) {
    auto* tool = new TBaseSimTool;
    tool->SetLanguage(language);
    tool->SetSimulatorType(type);
    build->AddSimTool(tool);
}

/// The "HdlBuildFile" line of a document.
std::string FirstLine(const std::string& document) {
    return document.substr(0, document.find('\n'));
}

/// An option that notes what the document holds when it is written.
class TCuriousOption final : public TV2VTranslationOption {
public:
    explicit TCuriousOption(std::string* seen)
        : TV2VTranslationOption("-ncc", "", "", true), Seen(seen) {}
    void WriteToFile(TXMLList* document) override {
        *Seen = ElementsOf(*document);
        TV2VTranslationOption::WriteToFile(document);
    }

private:
    std::string* Seen;
};

/// A list that walks what the build has pushed and adds to it.
class TWalkingList : public THdlBuildFileXMLList {
public:
    using THdlBuildFileXMLList::THdlBuildFileXMLList;
    std::string Seen;

protected:
    void FillElements() override {
        THdlBuildFileXMLList::FillElements();
        Seen = ElementsOf(*this);
        AddAtTail(new TElement(TElement::START, "More", ""));
        AddAtTail(new TElement(TElement::END, "More", ""));
    }
};

class TDerivedBuild : public THdlBuildFile {};

/// A build that takes its translator options when it is asked for settings, as it is written.
class TLateOptionsBuild : public THdlBuildFile {
public:
    explicit TLateOptionsBuild(TV2VTranslationOptionsList* options) : Late(options) {}
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage language) override {
        SetV2VOptions(Late);
        return THdlBuildFile::GetProjectLanguageConfig(language);
    }

private:
    TV2VTranslationOptionsList* Late;
};

/// The elements of a fresh build up to its end, and what its file holds.
constexpr const char* kFreshStart =
    "START HdlBuildFile TopLevelLanguage=None QmvVersion=x.x IdlVersion=x.x "
    "HvlLanguage=None HdlLanguage=None BaseTimeUnit=ps DisplayTimeUnit=ns "
    "GenerationDestinationLibrary= DestinationLibrary= SnapshotName=\n"
    "START TopLevelComponents\n"
    "END TopLevelComponents\n"
    "START ProjectLanguageConfigurationList\n"
    "END ProjectLanguageConfigurationList\n";

std::string FreshFile(const std::string& inside, const std::string& behind) {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
           "<HdlBuildFileList>\n"
           "  <HdlBuildFile TopLevelLanguage=\"None\" QmvVersion=\"x.x\" IdlVersion=\"x.x\" "
           "HvlLanguage=\"None\" HdlLanguage=\"None\" BaseTimeUnit=\"ps\" "
           "DisplayTimeUnit=\"ns\" GenerationDestinationLibrary=\"\" DestinationLibrary=\"\" "
           "SnapshotName=\"\">\n"
           "    <TopLevelComponents/>\n"
           "    <ProjectLanguageConfigurationList/>\n" +
           inside + "  </HdlBuildFile>\n" + behind + "</HdlBuildFileList>\n";
}

}  // namespace

TEST(BuildFileWriter, WritesAFreshBuild) {
    THdlBuildFile build;
    EXPECT_EQ(DocumentOf(build), std::string(kFreshStart) + "END HdlBuildFile\n");
}

TEST(BuildFileWriter, WritesEverySectionInItsOrder) {
    TSimWrapHdlBuildFile build;
    build.SetBuildFileName(NameOf(Below("build.xml")));
    build.SetTopLanguage(LANGUAGE_VHDL);
    build.SetHvlLanguage(LANGUAGE_VERILOG);
    build.SetHdlLanguage(LANGUAGE_SYSTEMC);
    build.SetQMVVersion("1.2");
    build.SetIdlVersion("3.4");
    TTimeBase timeBase;
    timeBase.SetBaseTimeUnit(UNIT_FS);
    timeBase.SetDisplayTimeUnit(UNIT_S);
    build.SetTimeBase(timeBase);
    build.SetSugarEngineDll(NameOf(Below("sugar/engine.dll")));
    build.SetGenerationDestinationLibrary("gen");
    build.SetDestinationLibrary("dest");
    build.SetSnapshotName("snap");
    // These two are not stored.
    build.SetVerilogUserDefines("+define+A");
    build.SetVerilogOtherPlusOptions("+plus");
    build.SetSingleFileOnlyBuild(true);
    build.SetForceTopLevelComponents(true);
    build.AddComponentName("top", "rtl", "work", LANGUAGE_VHDL);
    AddTool(&build, LANGUAGE_VHDL, SIM_GCC);
    build.SetGeneralConfiguration(new TProjectSimGeneralConfig);
    TProjectSimLanguageConfig vhdl;
    vhdl.SetTool(SIM_VCS);
    build.AddLanguageConfig(LANGUAGE_VHDL, &vhdl);
    TV2VTranslationOptionsList options(nullptr, "Verilog2VhdlTranslationOptions");
    options.AddOptionNoDup("-ncc", "", "", true);
    build.SetV2VOptions(&options);
    build.SetOutputDiagram(NameOf(Below("diagrams/out.btim")));
    THdlSourceFile source(Below("src/a.vhd").c_str());
    build.AddSourceFile(&source, false);
    build.GetPseudoEnvironmentVariables()->emplace("B", "2");
    build.GetPseudoEnvironmentVariables()->emplace("A", "1");
    EXPECT_EQ(WithoutUnknown(DocumentOf(build)),
              "START HdlBuildFile TopLevelLanguage=VHDL QmvVersion=1.2 IdlVersion=3.4 "
              "HvlLanguage=Verilog HdlLanguage=SystemC BaseTimeUnit=fs DisplayTimeUnit=s "
              "SugarEngineDll=sugar/engine.dll GenerationDestinationLibrary=gen "
              "DestinationLibrary=dest SnapshotName=snap SingleFileOnlyBuild=true\n"
              "START TopLevelComponents ForceTopLevelComponents=true\n"
              "START ComponentList Language=VHDL\n"
              "START Component Library=work Architecture=rtl\n"
              "TEXT top\n"
              "END Component\n"
              "END ComponentList\n"
              "END TopLevelComponents\n"
              "START ExternalSimulatorSettings\n"
              "START Tool Name=GCC Path= PliLibPath=\n"
              "TEXT VHDL\n"
              "END Tool\n"
              "END ExternalSimulatorSettings\n" +
                  GeneralElements() + "START ProjectLanguageConfigurationList\n" +
                  LanguageElements("VHDL", {{"SimTool", "VCS"}}) +
                  "END ProjectLanguageConfigurationList\n"
                  "START Verilog2VhdlTranslationOptions\n"
                  "START v2v-ncc Enabled=true\n"
                  "END v2v-ncc\n"
                  "END Verilog2VhdlTranslationOptions\n"
                  "START OutputDiagram\n"
                  "TEXT diagrams/out.btim\n"
                  "END OutputDiagram\n"
                  "START SourceFileGroup Language=VHDL\n"
                  "START SourceFile Library=false PrecompiledLibrary=\n"
                  "TEXT src/a.vhd\n"
                  "END SourceFile\n"
                  "END SourceFileGroup\n"
                  "START BuildFileVariables\n"
                  "START Variable Name=A Value=1\n"
                  "END Variable\n"
                  "START Variable Name=B Value=2\n"
                  "END Variable\n"
                  "END BuildFileVariables\n"
                  "END HdlBuildFile\n");
    options.Flush();
}

TEST(BuildFileWriter, WritesSimulatorsOnlyWithGeneralSettings) {
    THdlBuildFile build;
    AddTool(&build, LANGUAGE_VHDL, SIM_GCC);
    TXMLList document;
    build.WriteExternalConfigurations(&document);
    build.WriteGeneralSettings(&document);
    EXPECT_EQ(ElementsOf(document), "");
    TProjectSimGeneralConfig general;
    build.SetGeneralConfiguration(&general);
    build.WriteExternalConfigurations(&document);
    EXPECT_EQ(ElementsOf(document),
              "START ExternalSimulatorSettings\n"
              "START Tool Name=GCC Path= PliLibPath=\n"
              "TEXT VHDL\n"
              "END Tool\n"
              "END ExternalSimulatorSettings\n");
}

TEST(BuildFileWriter, WritesSettingsOfTheStoredLanguagesInTheirOrder) {
    TSimWrapHdlBuildFile build;
    TProjectSimLanguageConfig config;
    config.SetTool(SIM_VCS);
    for (int language = 9; language >= 0; --language)
        build.AddLanguageConfig(static_cast<THdlLanguage>(language), &config);
    TXMLList document;
    build.WriteProjectSettings(&document);
    std::string languages;
    for (DListIterator<TElement*> element(document); element.NotAtTail(); ++element)
        if (element.Current()->Name == "LanguageSettings")
            languages += element.Current()->GetAttribute("Language") + std::string(" ");
    EXPECT_EQ(languages, "Verilog  VHDL  Bluespec  C++  TestBuilder  ");
}

/// The settings list with those of SIM_ZORVIK_VERILOG.
std::string VerilogSettings(const std::string& build, const std::string& linker) {
    return "START ProjectLanguageConfigurationList\n" +
           LanguageElements("Verilog", {{"SimTool", "SimZorvik Verilog"},
                                        {"BuildOptions", build},
                                        {"LinkerOptions", linker}}) +
           "END ProjectLanguageConfigurationList\n";
}

TEST(BuildFileWriter, PassesDebuggingAndElaborateOnlyToTheSettings) {
    const struct {
        const char* Label;
        bool HasGeneral, Debugging, ElaborateOnly;
        const char* BuildOptions;
        const char* LinkerOptions;
    } rows[] = {
        {"no general settings", false, false, false, "b", "l"},
        {"no debugging", true, false, false, "b", "l"},
        {"debugging", true, true, false, "b", "l --simz_options +linedebug"},
        {"elaborate only", true, false, true, "l", "l"},
    };
    for (const auto& row : rows) {
        TProjectSimGeneralConfig general;
        general.SetEnableSimulatorDebugging(row.Debugging);
        THdlBuildFile build;
        if (row.HasGeneral) build.SetGeneralConfiguration(&general);
        build.SetSimzBuildIsElabOnly(row.ElaborateOnly);
        TProjectSimLanguageConfig config;
        config.SetTool(SIM_ZORVIK_VERILOG);
        config.SetBuildOptions("b");
        config.SetLinkerOptions("l");
        build.AddLanguageConfig(LANGUAGE_VERILOG, &config);
        TXMLList document;
        build.WriteProjectSettings(&document);
        EXPECT_EQ(ElementsOf(document), VerilogSettings(row.BuildOptions, row.LinkerOptions))
            << row.Label;
        delete build.GetProjectLanguageConfig(LANGUAGE_VERILOG);
    }
}

TEST(BuildFileWriter, LetsTheTestBuilderTakeTheTop) {
    const struct {
        const char* Label;
        bool HasTool, HasOtherTool, HasConfig, Forced;
        const char* Top;
        const char* Hdl;
    } rows[] = {
        {"no tool of it", false, true, true, true, "VHDL", "Verilog"},
        {"its only tool", true, false, true, false, "TestBuilder", "TestBuilder"},
        {"its only tool, without settings", true, false, false, false, "VHDL", "Verilog"},
        {"one of two tools", true, true, true, false, "VHDL", "Verilog"},
        {"one of two tools, forced", true, true, true, true, "TestBuilder", "TestBuilder"},
        {"one of two tools, without settings", true, true, false, false, "VHDL", "Verilog"},
    };
    for (const auto& row : rows) {
        TSimWrapHdlBuildFile build;
        build.SetTopLanguage(LANGUAGE_VHDL);
        build.SetHvlLanguage(LANGUAGE_VHDL);
        build.SetHdlLanguage(LANGUAGE_VERILOG);
        if (row.HasTool) AddTool(&build, LANGUAGE_TESTBUILDER, SIM_GCC);
        if (row.HasOtherTool) AddTool(&build, LANGUAGE_VHDL, SIM_ZORVIK_VHDL);
        TProjectSimLanguageConfig config;
        config.SetTool(SIM_GCC);
        config.SetForceTopLevel(row.Forced);
        if (row.HasConfig) build.AddLanguageConfig(LANGUAGE_TESTBUILDER, &config);
        EXPECT_EQ(FirstLine(DocumentOf(build)),
                  "START HdlBuildFile TopLevelLanguage=" + std::string(row.Top) +
                      " QmvVersion=x.x IdlVersion=x.x HvlLanguage=VHDL HdlLanguage=" + row.Hdl +
                      " BaseTimeUnit=ps DisplayTimeUnit=ns GenerationDestinationLibrary= "
                      "DestinationLibrary= SnapshotName=")
            << row.Label;
    }
}

TEST(BuildFileWriter, WritesTheGroupOfAForcedTestBuilder) {
    TSimWrapHdlBuildFile build;
    build.SetBuildFileName(NameOf(Below("build.xml")));
    build.SetTopLanguage(LANGUAGE_VHDL);
    AddTool(&build, LANGUAGE_TESTBUILDER, SIM_GCC);
    TProjectSimLanguageConfig config;
    config.SetTool(SIM_GCC);
    build.AddLanguageConfig(LANGUAGE_TESTBUILDER, &config);
    THdlSourceFile vhdl(Below("a.vhd").c_str());
    THdlSourceFile test(Below("t.tb").c_str());
    build.AddSourceFile(&vhdl, false);
    build.AddSourceFile(&test, false);
    const std::string document = DocumentOf(build);
    EXPECT_EQ(document.substr(document.find("START SourceFileGroup")),
              "START SourceFileGroup Language=TestBuilder\n"
              "START SourceFile Library=false PrecompiledLibrary=\n"
              "TEXT t.tb\n"
              "END SourceFile\n"
              "END SourceFileGroup\n"
              "END HdlBuildFile\n");
}

/// The document's part from the groups on.
std::string GroupsOf(THdlBuildFile& build) {
    const std::string document = DocumentOf(build);
    const auto begin = document.find("START SourceFileGroup");
    return begin == std::string::npos ? "" : document.substr(begin);
}

TEST(BuildFileWriter, WritesAnEmptyGroupThatWasFilledOrReadButNoneOnlyLookedAt) {
    THdlBuildFile build;
    build.SetTopLanguage(LANGUAGE_VHDL);
    const char* const empty =
        "START SourceFileGroup Language=VHDL\nEND SourceFileGroup\nEND HdlBuildFile\n";
    TIHdlSourceFileList* group = build.GetSourceFileGroup(LANGUAGE_VHDL);
    EXPECT_EQ(GroupsOf(build), "");
    THdlSourceFile source(Below("a.vhd").c_str());
    group->AddSourceFile(&source, false);
    group->RemoveSourceFile(&source);
    EXPECT_EQ(GroupsOf(build), empty);

    THdlBuildFile read;
    read.SetTopLanguage(LANGUAGE_VHDL);
    TXMLList elements;
    PushElements(&elements, "START SourceFileGroup Language=VHDL\nEND SourceFileGroup\n");
    DListIterator<TElement*> element(elements);
    EXPECT_TRUE(read.ReadSourceFileGroups(element));
    EXPECT_EQ(GroupsOf(read), empty);
}

TEST(BuildFileWriter, WritesExcludedSourcesLikeTheOthers) {
    THdlBuildFile build;
    build.SetBuildFileName(NameOf(Below("build.xml")));
    build.SetTopLanguage(LANGUAGE_VHDL);
    THdlSourceFile source(Below("a.vhd").c_str());
    source.SetExcludeFromBuild(true);
    build.AddSourceFile(&source, false);
    EXPECT_EQ(GroupsOf(build),
              "START SourceFileGroup Language=VHDL\n"
              "START SourceFile Library=false PrecompiledLibrary=\nTEXT a.vhd\nEND SourceFile\n"
              "END SourceFileGroup\nEND HdlBuildFile\n");
}

TEST(BuildFileWriter, WritesAbsolutePathsWithoutABuildFileName) {
    THdlBuildFile build;
    build.SetTopLanguage(LANGUAGE_VHDL);
    build.SetSugarEngineDll(NameOf(Below("sugar.dll")));
    build.SetOutputDiagram(NameOf(Below("out.btim")));
    THdlSourceFile source(Below("a.vhd").c_str());
    THdlSourceFile dependency(Below("b.vhd").c_str());
    source.AddDependency(&dependency);
    build.AddSourceFile(&source, false);
    EXPECT_EQ(DocumentOf(build),
              "START HdlBuildFile TopLevelLanguage=VHDL QmvVersion=x.x IdlVersion=x.x "
              "HvlLanguage=None HdlLanguage=None BaseTimeUnit=ps DisplayTimeUnit=ns "
              "SugarEngineDll=" +
                  Below("sugar.dll") +
                  " GenerationDestinationLibrary= DestinationLibrary= SnapshotName=\n"
                  "START TopLevelComponents\n"
                  "END TopLevelComponents\n"
                  "START ProjectLanguageConfigurationList\n"
                  "END ProjectLanguageConfigurationList\n"
                  "START OutputDiagram\n"
                  "TEXT " +
                  Below("out.btim") +
                  "\nEND OutputDiagram\n"
                  "START SourceFileGroup Language=VHDL\n"
                  "START SourceFile Library=false PrecompiledLibrary=\n"
                  "TEXT " +
                  Below("a.vhd") +
                  "\nSTART Dependency\n"
                  "TEXT " +
                  Below("b.vhd") +
                  "\nEND Dependency\n"
                  "END SourceFile\n"
                  "END SourceFileGroup\n"
                  "END HdlBuildFile\n");
}

TEST(BuildFileWriter, WritesAFileWithDocumentTypeAndRoot) {
    const MemoryFolder folder;
    THdlBuildFile build;
    build.SetBuildFileName(NameOf(folder.Path("build.xml")));
    build.SetSnapshotName("a<b & \"c\"");
    EXPECT_TRUE(build.WriteToFile());
    EXPECT_EQ(
        folder.Read("build.xml"),
        "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
        "<HdlBuildFileList>\n"
        "  <HdlBuildFile TopLevelLanguage=\"None\" QmvVersion=\"x.x\" IdlVersion=\"x.x\" "
        "HvlLanguage=\"None\" HdlLanguage=\"None\" BaseTimeUnit=\"ps\" DisplayTimeUnit=\"ns\" "
        "GenerationDestinationLibrary=\"\" DestinationLibrary=\"\" "
        "SnapshotName=\"a&lt;b &amp; &quot;c&quot;\">\n"
        "    <TopLevelComponents/>\n"
        "    <ProjectLanguageConfigurationList/>\n"
        "  </HdlBuildFile>\n"
        "</HdlBuildFileList>\n");
    EXPECT_EQ(folder.List(), "build.xml\n");
}

TEST(BuildFileWriter, KeepsTheOldFileWhenASaveFails) {
    const MemoryFolder folder;
    RecordingMessageBox messages;
    RecordingLog log;
    folder.Write("build.xml", "old");
    THdlBuildFile build;
    build.SetBuildFileName(NameOf(folder.Path("build.xml")));
    build.SetSnapshotName("bell \x07");
    EXPECT_FALSE(build.WriteToFile());
    EXPECT_EQ(messages.Take(),
              "Cannot save file: \"" + folder.Path("build.xml") +
                  "\": attribute \"SnapshotName\" of element \"HdlBuildFile\" holds the character "
                  "U+0007, which no XML document can hold [0]\n");
    EXPECT_EQ(folder.Read("build.xml"), "old");
    EXPECT_EQ(folder.List(), "build.xml\n");
}

TEST(BuildFileWriter, WritesTheSameFileForEveryClassOfBuilds) {
    const MemoryFolder folder;
    THdlBuildFile plain;
    TSimWrapHdlBuildFile wrap;
    TDerivedBuild derived;
    for (THdlBuildFile* build :
         {&plain, static_cast<THdlBuildFile*>(&wrap), static_cast<THdlBuildFile*>(&derived)}) {
        folder.Write("build.xml", "old");
        build->SetBuildFileName(NameOf(folder.Path("build.xml")));
        EXPECT_TRUE(build->WriteToFile());
        EXPECT_EQ(folder.Read("build.xml"), FreshFile("", ""));
    }
}

TEST(BuildFileWriter, ShowsACallersListAllElements) {
    const MemoryFolder folder;
    THdlBuildFile build;
    TWalkingList document(&build);
    EXPECT_TRUE(document.WriteFile(folder.Path("build.xml").c_str()));
    EXPECT_EQ(document.Seen, std::string(kFreshStart) + "END HdlBuildFile\n");
    EXPECT_EQ(folder.Read("build.xml"), FreshFile("", "  <More/>\n"));
    EXPECT_EQ(ElementsOf(document), document.Seen + "START More\nEND More\n");
}

TEST(BuildFileWriter, ShowsACallersOptionTheElementsBeforeIt) {
    const MemoryFolder folder;
    std::string seen;
    TV2VTranslationOptionsList options(nullptr, "Verilog2VhdlTranslationOptions");
    options.AddOptionNoDup(new TCuriousOption(&seen));
    THdlBuildFile plain;
    plain.SetV2VOptions(&options);
    TLateOptionsBuild late(&options);
    for (THdlBuildFile* build : {&plain, static_cast<THdlBuildFile*>(&late)}) {
        seen.clear();
        build->SetBuildFileName(NameOf(folder.Path("build.xml")));
        EXPECT_TRUE(build->WriteToFile());
        EXPECT_EQ(seen, std::string(kFreshStart) + "START Verilog2VhdlTranslationOptions\n");
        EXPECT_EQ(folder.Read("build.xml"), FreshFile("    <Verilog2VhdlTranslationOptions>\n"
                                                      "      <v2v-ncc Enabled=\"true\"/>\n"
                                                      "    </Verilog2VhdlTranslationOptions>\n",
                                                      ""));
    }
    options.Flush();
}

TEST(BuildFileWriter, WritesNothingWithoutAName) {
    THdlBuildFile build;
    EXPECT_FALSE(build.WriteToFile());
}

TEST(BuildFileWriter, IgnoresANullDocument) {
    THdlBuildFile build;
    build.WriteFile(nullptr);
    build.WriteProjectSettings(nullptr);
    build.WriteSourceFileGroups(nullptr, LANGUAGE_VHDL);
    EXPECT_FALSE(build.WriteToFile());
}
