#include "buildfile/hdlbuildfilexmllist.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "tests/buildfile/filledbuild.h"
#include "tests/support/elementtext.h"
#include "tests/support/replaced.h"
#include "translation/v2vtranslationoption.h"

// Rules of the document that hold over what a build had before, and for documents out of the
// ordinary.

namespace {

/// A filled build over a build file of the test's content.
class BuildFileFormat : public FilledBuild {
protected:
    THdlBuildFileReadResults Read(const std::string& xml) {
        Folder.Write("build.hbf", xml);
        const THdlBuildFileReadResults result = Build.ReadFromFile();
        Messages = Box.Take();
        return result;
    }
    std::string Document() {
        THdlBuildFileXMLList document(&Build);
        Build.WriteFile(&document);
        return ElementsOf(document);
    }
    /// kFilled as it reads after a read, with each "before" of the pairs replaced.
    static std::string Filled(
        const std::vector<std::pair<std::string, std::string>>& replacements) {
        std::string text = kFilled;
        // The group of the HDL language, Verilog, has no source.
        text = Replaced(text, "precompiled lib", "precompiled");
        constexpr std::string_view kLastRead =
            "result 9 error 'mismatched tag: element \"HdlBuildFile\" of line 1 is still open'";
        text = Replaced(text, kLastRead, "result 0 error ''");
        for (const auto& [before, after] : replacements) text = Replaced(text, before, after);
        return text;
    }
    std::string Messages;
};

TEST_F(BuildFileFormat, WritingLeavesTopAndHdlLanguageOfTheBuild) {
    Build.AddSimTool(NewTool(LANGUAGE_TESTBUILDER, SIM_GCC));
    TProjectSimLanguageConfig config;
    config.SetTool(SIM_GCC);
    config.SetForceTopLevel(true);
    Build.AddLanguageConfig(LANGUAGE_TESTBUILDER, &config);
    const std::string line =
        "START HdlBuildFile TopLevelLanguage=TestBuilder QmvVersion=1.0 IdlVersion=2.0 "
        "HvlLanguage=TestBuilder HdlLanguage=TestBuilder BaseTimeUnit=fs DisplayTimeUnit=ms "
        "SugarEngineDll=sugar.dll GenerationDestinationLibrary=gen DestinationLibrary=dest "
        "SnapshotName=snap SingleFileOnlyBuild=true";
    for (int i = 0; i < 2; ++i) {
        const std::string document = Document();
        EXPECT_EQ(document.substr(0, document.find('\n')), line);
        EXPECT_EQ(Build.GetTopLanguage(), LANGUAGE_VHDL);
        EXPECT_EQ(Build.GetHdlLanguage(), LANGUAGE_VERILOG);
    }
}

TEST_F(BuildFileFormat, FindsSectionsInsideUnknownElements) {
    EXPECT_EQ(Read("<Root><Unknown><Deep Name='x'>text"
                   "<BuildFileVariables><Variable Name='W' Value='2'/></BuildFileVariables>"
                   "</Deep><OutputDiagram>other.btim</OutputDiagram></Unknown>"
                   "<Variable Name='no' Value='section'/></Root>"),
              READ_NO_ERROR);
    EXPECT_EQ(TextOf(Build), Filled({{"variables V=1", "variables V=1 W=2"}}));
    EXPECT_EQ(TextOfMembersWithoutGetter(&Build),
              "diagram other.btim\noptions link\ncommand line +typdelays \n");
}

TEST_F(BuildFileFormat, EveryReadRecordsTheStamp) {
    const struct {
        const char* Label;
        const char* Xml;
        THdlBuildFileReadResults Result;
    } rows[] = {
        {"whole", "<HdlBuildFile SnapshotName='s'/>", READ_NO_ERROR},
        {"malformed", "<HdlBuildFile><Open></HdlBuildFile>", READ_NO_ERROR},
        {"failed section",
         "<R><ProjectLanguageConfigurationList><LanguageSettings/>"
         "</ProjectLanguageConfigurationList></R>",
         READ_PROJECT_SETTINGS_FAILED},
        {"missing source",
         "<SourceFileGroup Language='VHDL'><SourceFile>none.vhd</SourceFile></SourceFileGroup>",
         READ_FILES_MISSING},
        {"empty", "", READ_NO_ERROR},
    };
    for (const auto& row : rows) {
        Folder.Write("build.hbf", row.Xml);
        EXPECT_TRUE(Build.IsOutdated()) << row.Label;
        EXPECT_EQ(Build.ReadFromFile(), row.Result) << row.Label;
        EXPECT_FALSE(Build.IsOutdated()) << row.Label;
    }
}

TEST_F(BuildFileFormat, KeepsTheBlanksOfVersionsLibrariesAndSnapshot) {
    EXPECT_EQ(Read("<HdlBuildFile TopLevelLanguage='VHDL' HvlLanguage='TestBuilder' "
                   "HdlLanguage='Verilog' QmvVersion=' 1 ' IdlVersion=' 2 ' "
                   "GenerationDestinationLibrary=' g ' DestinationLibrary=' d ' "
                   "SnapshotName=' s '/>"),
              READ_NO_ERROR);
    EXPECT_EQ(TextOf(Build),
              Filled({{"versions 1.0 2.0", "versions  1   2 "},
                      {"'gen' 'dest' snapshot 'snap'", "' g ' ' d ' snapshot ' s '"}}));
}

TEST_F(BuildFileFormat, MissingAttributesEmptyTextsAndLanguagesAndLeaveTheOthers) {
    EXPECT_EQ(Read("<HdlBuildFile/>"), READ_NO_ERROR);
    EXPECT_EQ(TextOf(Build), Filled({{"VHDL TestBuilder Verilog", "None None None"},
                                     {"versions 1.0 2.0", "versions  "},
                                     {"'gen' 'dest' snapshot 'snap'", "'' '' snapshot ''"}}));
    EXPECT_EQ(Build.GetSugarEngineDll(), Sugar);
}

TEST_F(BuildFileFormat, EmptyFilesLeaveTheOldOnes) {
    for (const char* const empty : {"", " ", "&#9;&#10;"}) {
        const std::string text = empty;
        EXPECT_EQ(Read("<R><HdlBuildFile TopLevelLanguage='VHDL' HvlLanguage='TestBuilder' "
                       "HdlLanguage='Verilog' QmvVersion='1.0' IdlVersion='2.0' SugarEngineDll='" +
                       text +
                       "' GenerationDestinationLibrary='gen' DestinationLibrary='dest' "
                       "SnapshotName='snap'/><OutputDiagram>" +
                       text + "</OutputDiagram></R>"),
                  READ_NO_ERROR);
        EXPECT_EQ(TextOf(Build), Filled({}));
        EXPECT_EQ(Build.GetSugarEngineDll(), Sugar);
    }
    EXPECT_EQ(TextOfMembersWithoutGetter(&Build), kFilledWithoutGetter);
}

/// Opens the walk over elements that no file can give.
class OpenDocument : public THdlBuildFileXMLList {
public:
    using THdlBuildFileXMLList::InterpretElements;
    using THdlBuildFileXMLList::THdlBuildFileXMLList;
};

TEST_F(BuildFileFormat, AnOutputDiagramThatEndsTheStreamLeavesTheOldOne) {
    OpenDocument document(&Build);
    PushElements(&document, "START OutputDiagram\n");
    EXPECT_TRUE(document.InterpretElements());
    EXPECT_EQ(TextOf(Build), kFilled);
    EXPECT_EQ(TextOfMembersWithoutGetter(&Build), kFilledWithoutGetter);
}

TEST_F(BuildFileFormat, ADocumentWithoutABuildReadsAndHandsOnNothing) {
    OpenDocument document(nullptr);
    PushElements(&document, "START HdlBuildFile\nSTART OutputDiagram\nTEXT x\n");
    EXPECT_TRUE(document.InterpretElements());
}

TEST_F(BuildFileFormat, AReadWithoutANameForgetsTheErrorOfTheReadBefore) {
    Build.SetBuildFileName(nullptr);
    EXPECT_EQ(Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(Build.GetReadError().Reason, "");
    EXPECT_EQ(Build.GetReadError().File, "");
    EXPECT_EQ(Build.GetReadResult(), READ_NO_ERROR);
}

TEST(BuildFileGeneralSettings, AreMadeBeforeTheEndOfTheStreamFailsTheRead) {
    TSimWrapHdlBuildFile build;
    TXMLList list;
    DListIterator<TElement*> tail(list);
    EXPECT_FALSE(build.ReadGeneralSettings(tail));
    EXPECT_EQ(build.GetReadResult(), READ_GENERAL_SETTINGS_FAILED);
    ASSERT_NE(build.GetGeneralConfiguration(), nullptr);
    EXPECT_STREQ(build.GetGeneralConfiguration()->GetSimulationLogFileName(), "simulation.log");
}

TEST_F(BuildFileFormat, TheEndOfTheStreamLeavesGeneralSettingsThatThereAre) {
    TXMLList list;
    DListIterator<TElement*> tail(list);
    EXPECT_FALSE(Build.ReadGeneralSettings(tail));
    EXPECT_EQ(Build.GetReadResult(), READ_GENERAL_SETTINGS_FAILED);
    EXPECT_EQ(Build.GetGeneralConfiguration(), &General);
    EXPECT_STREQ(General.GetSimulationLogFileName(), "run.log");
}

TEST_F(BuildFileFormat, FilesThatAreNotMissingKeepTheResult) {
    Read(
        "<R><ProjectLanguageConfigurationList><LanguageSettings/>"
        "</ProjectLanguageConfigurationList></R>");
    Build.SetFilesMissingOnRead(false);
    EXPECT_EQ(Box.Take(), "Build File: Files Missing on load [0]\n");
    EXPECT_EQ(Build.GetReadResult(), READ_PROJECT_SETTINGS_FAILED);
    Build.SetFilesMissingOnRead(true);
    EXPECT_EQ(Box.Take(), "Build File: Files Missing on load [0]\n");
    EXPECT_EQ(Build.GetReadResult(), READ_FILES_MISSING);
    Build.SetFilesMissingOnRead(false);
    EXPECT_EQ(Box.Take(), "Build File: Files Missing on load [0]\n");
    EXPECT_EQ(Build.GetReadResult(), READ_FILES_MISSING);
}

TEST_F(BuildFileFormat, TheFirstTranslatorSectionFillsTheListForItsDirection) {
    const struct {
        const char* Tag;
        const char* Switches;
    } rows[] = {
        {"Verilog2VhdlTranslationOptions",
         "-r -s -np -e -p -l -87 -ne -ncc* -synth -mrv -nz -mdc -mpc -rip -ris -po -an -nh -novpp "
         "-do_macro_substitution "},
        {"Vhdl2VerilogTranslationOptions",
         "-f -r -s -nc -d -nd -np -ncc* -ip -fm -isc -tsb -pg -sm -iir -sd -flc -ts -l -synth -87 "
         "-sv -nh -nt -sp -bl -fig -signed -ci "},
    };
    for (const auto& row : rows) {
        Build.SetV2VOptions(nullptr);
        EXPECT_EQ(Read("<" + std::string(row.Tag) + "/>"), READ_NO_ERROR);
        TV2VTranslationOptionsList* options = Build.GetV2VOptions();
        ASSERT_NE(options, nullptr) << row.Tag;
        EXPECT_STREQ(options->GetTag(), row.Tag);
        EXPECT_EQ(options->GetComponent(), nullptr);
        std::string switches;
        for (const TV2VTranslationOption* option : *options)
            switches += std::string(option->GetDashOption()) + (option->IsEnabled() ? "* " : " ");
        EXPECT_EQ(switches, row.Switches) << row.Tag;
        options->Flush();
        delete options;
    }
}

TEST_F(BuildFileFormat, SimulatorsOfASecondSectionJoinThoseOfTheFirst) {
    EXPECT_EQ(Read("<R><ExternalSimulatorSettings>"
                   "<Tool Name='VCS' Path='' PliLibPath='first'>Verilog</Tool>"
                   "<Tool Name='GCC' Path='' PliLibPath='first'>C++</Tool>"
                   "</ExternalSimulatorSettings><Between/><ExternalSimulatorSettings>"
                   "<Tool Name='GCC' Path='' PliLibPath='second'>C++</Tool>"
                   "<Tool Name='Specman' Path='' PliLibPath='second'>Specman</Tool>"
                   "</ExternalSimulatorSettings></R>"),
              READ_NO_ERROR);
    EXPECT_EQ(ElementsWrittenBy(
                  [this](TXMLList* document) { Build.WriteExternalConfigurations(document); }),
              "START ExternalSimulatorSettings\n"
              "START Tool Name=VCS Path= PliLibPath=first\nTEXT Verilog\nEND Tool\n"
              "START Tool Name=ModelSim VHDL Path= PliLibPath=\nTEXT VHDL\nEND Tool\n"
              "START Tool Name=GCC Path= PliLibPath=second\nTEXT C++\nEND Tool\n"
              "START Tool Name=Specman Path= PliLibPath=second\nTEXT Specman\nEND Tool\n"
              "END ExternalSimulatorSettings\n");
}

}  // namespace
