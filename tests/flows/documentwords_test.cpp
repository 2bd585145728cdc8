#include "flows/documentwords.h"
#include "buildfile/hdlbuildfile.h"
#include "filenames/componentnamelist.h"
#include "flows/textreaders.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "settings/projectsimlanguageconfig.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>

namespace {

/// A line for each finding: place, code, names.
std::string WordsOf(const std::string& document, bool withPlaces = true) {
    TDocumentWords words;
    std::string text = document;
    EXPECT_TRUE(VisitElements(
        &text, "<!DOCTYPE HdlBuildFileList>", PROGRESS_CHECK_ELEMENTS,
        [&words](const TMetElement& element) { words.Meet(element); }, nullptr))
        << document;
    std::string lines;
    for (const TDiagnostic& diagnostic : words.GetDiagnostics()) {
        if (withPlaces) lines += std::to_string(diagnostic.Place) + " ";
        lines += GetDiagnosticId(diagnostic.Code);
        for (const std::string& name : diagnostic.Names) lines += " " + name;
        lines += "\n";
    }
    return lines;
}

bool HasDelayType(const THdlBuildFile& build) {
    THdlBuildFile copy(build);
    const TProjectSimLanguageConfig* settings = copy.GetProjectLanguageConfig(LANGUAGE_VHDL);
    return settings && settings->GetDelayType() == DELAY_TYPE_MAXIMUM;
}

bool HasVariable(const THdlBuildFile& build) {
    return build.GetPseudoEnvironmentVariables()->contains("a");
}

std::string ListText(const std::string& entries) {
    return "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'>"
           "<IncludeDirectories>" +
           entries + "</IncludeDirectories></LanguageSettings></ProjectLanguageConfigurationList>";
}

}  // namespace

TEST(DocumentWords, TellWhatNoReaderKnows) {
    const struct {
        const char* Label;
        std::string Document;
        const char* Words;
    } rows[] = {
        {"known words",
         "<HdlBuildFileList><HdlBuildFile TopLevelLanguage='vhdl' HvlLanguage='None' "
         "BaseTimeUnit=' fs ' DisplayTimeUnit=''><TopLevelComponents "
         "ForceTopLevelComponents='true'><ComponentList Language='VHDL'><Component Library='w' "
         "Architecture='r'>e</Component></ComponentList></TopLevelComponents>"
         "<ExternalSimulatorSettings><Tool Name='VCS' Path='' PliLibPath=''>Verilog</Tool>"
         "</ExternalSimulatorSettings><GeneralConfiguration LogFileName='a'/>"
         "<ProjectLanguageConfigurationList><LanguageSettings Language='Verilog'>"
         "<SimTool>VCS</SimTool><CompilerOptions>-g</CompilerOptions><IncludeDirectories>"
         "<Directory>inc</Directory></IncludeDirectories></LanguageSettings>"
         "</ProjectLanguageConfigurationList><Verilog2VhdlTranslationOptions><v2v-any x='y'>"
         "<AdditionalOptions>a</AdditionalOptions></v2v-any></Verilog2VhdlTranslationOptions>"
         "<OutputDiagram>a.tim</OutputDiagram><SourceFileGroup Language='VHDL'><SourceFile "
         "Library='false' PrecompiledLibrary='w'>a.vhd<Dependency>b.vhd</Dependency></SourceFile>"
         "</SourceFileGroup><BuildFileVariables><Variable Name='a' Value='b'/>"
         "</BuildFileVariables></HdlBuildFile></HdlBuildFileList>",
         ""},
        {"an element between sections", "<HdlBuildFile><Notes><Note/></Notes></HdlBuildFile>",
         "14 HB103 Notes\n"},
        {"a section in an unknown element", "<a><SourceFileGroup Language='x'/></a>",
         "0 HB103 a\n3 HB401 x\n"},
        {"a misspelt group",
         "<HdlBuildFile><SourceFileGroups Language='VHDL'><SourceFile>a.vhd</SourceFile>"
         "</SourceFileGroups></HdlBuildFile>",
         "14 HB104 SourceFileGroups SourceFileGroup\n"},
        {"a group in small letters", "<HdlBuildFile><sourcefilegroup/></HdlBuildFile>",
         "14 HB104 sourcefilegroup SourceFileGroup\n"},
        {"an element among sources, twice",
         "<SourceFileGroup Language='VHDL'><Note/><Note/></SourceFileGroup>",
         "33 HB105 Note SourceFileGroup\n"},
        {"an element in a source",
         "<SourceFileGroup Language='VHDL'><SourceFile>a<Note/></SourceFile></SourceFileGroup>",
         "46 HB105 Note SourceFile\n"},
        {"a source outside of a group", "<HdlBuildFile><SourceFile>a</SourceFile></HdlBuildFile>",
         "14 HB107 SourceFile SourceFileGroup\n"},
        {"a short name is near to none",
         "<a><BuildFileVariables><Va/></BuildFileVariables><ExternalSimulatorSettings><Foo/>"
         "</ExternalSimulatorSettings></a>",
         "0 HB103 a\n23 HB105 Va BuildFileVariables\n76 HB105 Foo ExternalSimulatorSettings\n"},
        {"the beginning of a name", "<HdlBuildFile><TopLevel/></HdlBuildFile>",
         "14 HB104 TopLevel TopLevelComponents\n"},
        {"an attribute", "<HdlBuildFile Author='me' SnapshotName='s'/>",
         "0 HB106 Author HdlBuildFile\n"},
        {"an attribute in another case", "<HdlBuildFile toplevellanguage='VHDL'/>",
         "0 HB106 toplevellanguage HdlBuildFile\n"},
        {"languages",
         "<HdlBuildFile HdlLanguage='VHDLL'><SourceFileGroup/><ExternalSimulatorSettings>"
         "<Tool Name='VCS'>Pascal</Tool></ExternalSimulatorSettings></HdlBuildFile>",
         "0 HB401 VHDLL\n34 HB401 \n96 HB401 Pascal\n"},
        {"simulators by number",
         "<ExternalSimulatorSettings><Tool Name='22'>VHDL</Tool><Tool Name='None'>VHDL</Tool>"
         "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'><SimTool>22"
         "</SimTool><SimTool>31</SimTool><SimTool>None</SimTool></LanguageSettings>"
         "</ProjectLanguageConfigurationList></ExternalSimulatorSettings>",
         "27 HB402 22\n181 HB402 31\n"},
        {"simulators",
         "<a><ExternalSimulatorSettings><Tool Name='Foo'>VHDL</Tool></ExternalSimulatorSettings>"
         "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'><SimTool>Bar"
         "</SimTool></LanguageSettings></ProjectLanguageConfigurationList></a>",
         "0 HB103 a\n30 HB402 Foo\n163 HB402 Bar\n"},
        {"time units", "<HdlBuildFile BaseTimeUnit='PS' DisplayTimeUnit='ns'/>", "0 HB403 PS\n"},
        {"settings without a language",
         "<ProjectLanguageConfigurationList><LanguageSettings/></ProjectLanguageConfigurationList>",
         "34 HB404\n"},
        {"a list without entries", ListText(""), "68 HB405 IncludeDirectories Directory VHDL\n"},
        {"a list of texts", ListText("a"), "68 HB405 IncludeDirectories Directory VHDL\n"},
        {"a text behind an entry", ListText("<Directory>a</Directory>b"),
         "68 HB405 IncludeDirectories Directory VHDL\n"},
        {"an element in a list", ListText("<Directory>a</Directory><Note/>"),
         "112 HB105 Note IncludeDirectories\n68 HB405 IncludeDirectories Directory VHDL\n"},
        {"an element in an entry", ListText("<Directory>a<Note/></Directory>"),
         "100 HB103 Note\n68 HB405 IncludeDirectories Directory VHDL\n"},
        {"entries without a text", ListText("<Directory/><Directory></Directory>"), ""},
    };
    for (const auto& row : rows) EXPECT_EQ(WordsOf(row.Document), row.Words) << row.Label;
}

// What is said of the elements that a reader does not know is what the reader does: an entry behind
// one is there or is not.
TEST(DocumentWords, AreThoseOfTheReaders) {
    const std::string group = "<SourceFileGroup Language='VHDL'><SourceFile>a.vhd</SourceFile>";
    const std::string last = "<SourceFile>z.vhd</SourceFile></SourceFileGroup>";
    const auto hasLast = [](const THdlBuildFile& build) {
        const TIHdlSourceFileList& files = *build.GetSourceFileGroup(LANGUAGE_VHDL);
        return std::any_of(files.begin(), files.end(), [](const IHdlSourceFile* file) {
            return file->GetFileName()->GetNameNoExt() == std::string("z");
        });
    };
    const auto hasTop = [](const THdlBuildFile& build) {
        const TComponentNameList* names = build.GetComponentNameList(LANGUAGE_VHDL);
        return names && names->size() == 1;
    };
    const struct {
        const char* Label;
        std::string Sections;
        bool (*IsThere)(const THdlBuildFile& build);
        const char* Words;
    } rows[] = {
        {"in a build", "<Note/>" + group + last, hasLast, "HB103 Note\n"},
        {"in a group", group + "<Note/>" + last, hasLast, "HB105 Note SourceFileGroup\n"},
        {"in a source", group + "<SourceFile>b.vhd<Note/></SourceFile>" + last, hasLast,
         "HB105 Note SourceFile\n"},
        {"in a dependency",
         group + "<SourceFile>b.vhd<Dependency>c.vhd<Note/></Dependency></SourceFile>" + last,
         hasLast, "HB105 Note Dependency\n"},
        {"in the components",
         "<TopLevelComponents><Note/><ComponentList Language='VHDL'><Component>e</Component>"
         "</ComponentList></TopLevelComponents>",
         hasTop, "HB105 Note TopLevelComponents\n"},
        {"in a list of components",
         "<TopLevelComponents><ComponentList Language='VHDL'><Note/><Component>e</Component>"
         "</ComponentList></TopLevelComponents>",
         hasTop, "HB105 Note ComponentList\n"},
        {"in a component",
         "<TopLevelComponents><ComponentList Language='Verilog'><Component>d<Note/></Component>"
         "</ComponentList><ComponentList Language='VHDL'><Component>e</Component></ComponentList>"
         "</TopLevelComponents>",
         hasTop, "HB105 Note Component\n"},
        {"in the simulators",
         "<ExternalSimulatorSettings><Note/><Tool Name='VCS'>VHDL</Tool>"
         "</ExternalSimulatorSettings>",
         [](const THdlBuildFile& build) { return build.GetSimTool(LANGUAGE_VHDL) != nullptr; },
         "HB105 Note ExternalSimulatorSettings\n"},
        {"in a simulator",
         "<ExternalSimulatorSettings><Tool Name='VCS'>Verilog<Note/></Tool>"
         "<Tool Name='VCS'>VHDL</Tool></ExternalSimulatorSettings>",
         [](const THdlBuildFile& build) { return build.GetSimTool(LANGUAGE_VHDL) != nullptr; },
         "HB105 Note Tool\n"},
        {"in the list of settings",
         "<ProjectLanguageConfigurationList><Note/><LanguageSettings Language='VHDL'>"
         "<DelayType>2</DelayType></LanguageSettings></ProjectLanguageConfigurationList>",
         HasDelayType, "HB105 Note ProjectLanguageConfigurationList\n"},
        {"in settings",
         "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'><Note/>"
         "<DelayType>2</DelayType></LanguageSettings></ProjectLanguageConfigurationList>",
         HasDelayType, "HB103 Note\n"},
        {"in a list",
         "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'>"
         "<IncludeDirectories><Directory>a</Directory><Note/></IncludeDirectories>"
         "<DelayType>2</DelayType></LanguageSettings></ProjectLanguageConfigurationList>",
         HasDelayType, "HB105 Note IncludeDirectories\nHB405 IncludeDirectories Directory VHDL\n"},
        {"among variables",
         "<BuildFileVariables><Note/><Variable Name='a' Value='b'/></BuildFileVariables>",
         HasVariable, "HB105 Note BuildFileVariables\n"},
        {"in a variable",
         "<BuildFileVariables><Variable Name='c' Value='d'><Note/></Variable>"
         "<Variable Name='a' Value='b'/></BuildFileVariables>",
         HasVariable, "HB105 Note Variable\n"},
    };
    const RecordingMessageBox box;
    for (const auto& row : rows) {
        const std::string document = "<HdlBuildFile>" + row.Sections + "</HdlBuildFile>";
        const TemporaryFolder folder;
        THdlBuildFile build;
        ASSERT_TRUE(ReadBuildText(document, ISFileName::NewISFileName(folder.Path("b.xml").c_str()),
                                  &build, nullptr))
            << row.Label;
        const std::string words = WordsOf(document, false);
        EXPECT_EQ(words, row.Words) << row.Label;
        EXPECT_EQ(row.IsThere(build), words.starts_with("HB103")) << row.Label;
    }
}

TEST(DocumentWords, AreAllKnownInWhatTheLibraryWrites) {
    std::ifstream stream(HDLBUILDFILE_SOURCE_DIR "/examples/fifo/fifo.xml", std::ios::binary);
    const std::string document{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_NE(document, "");
    EXPECT_EQ(WordsOf(document), "");
}
