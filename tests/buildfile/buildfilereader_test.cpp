#include "buildfile/hdlbuildfile.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "filenames/componentname.h"
#include "filenames/componentnamelist.h"
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/files/filereplace.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/support/elementtext.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "translation/v2vtranslationoptionslist.h"
#include <gtest/gtest.h>

namespace {

using TPosition = DListIterator<TElement*>;

/// A folder with a build file, read into a build that owns its settings.
class ReadBuild {
public:
    /// The document between its root's tags, as XML.
    explicit ReadBuild(const std::string& content, bool withRoot = true) {
        const std::string root = "HdlBuildFileList";
        Folder.Write("build.xml",
                     "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n" +
                         (withRoot ? "<" + root + ">" + content + "</" + root + ">" : content));
        Build.SetBuildFileName(ISFileName::NewISFileName(Folder.Path("build.xml").c_str()));
    }
    ~ReadBuild() {
        if (!Build.GetV2VOptions()) return;
        Build.GetV2VOptions()->Flush();
        delete Build.GetV2VOptions();
    }

    MemoryFolder Folder;
    RecordingMessageBox Messages;
    RecordingLog Log;
    TSimWrapHdlBuildFile Build;
};

std::string PathsOf(const TIHdlSourceFileList* files, const MemoryFolder& folder) {
    std::string paths;
    for (const IHdlSourceFile* file : *files) {
        TMyString path;
        file->GetFileName()->GetFileNameRelativeTo(folder.Path().c_str(), &path);
        paths += path.Str() + "\n";
    }
    return paths;
}

std::string VariablesOf(const THdlBuildFile& build) {
    std::string text;
    for (const auto& [name, value] : *build.GetPseudoEnvironmentVariables())
        text += name + "=" + value + "\n";
    return text;
}

/// The output diagram as the writer puts it down; "" without one.
std::string OutputDiagramOf(THdlBuildFile& build) {
    THdlBuildFileXMLList document(&build);
    build.WriteFile(&document);
    TPosition element(document);
    if (!TXMLList::FindNext(element, "OutputDiagram", nullptr)) return "";
    ++element;
    return element.Current()->Text.Str();
}

/// The sources of a language's group, each with its dependencies.
std::string SourcesOf(THdlBuildFile& build, THdlLanguage language) {
    std::string names;
    const auto nameOf = [](const IHdlSourceFile* file) {
        return std::string(file->GetFileName()->GetNameAndExt());
    };
    for (const IHdlSourceFile* source : *build.GetSourceFileGroup(language)) {
        names += nameOf(source) + "(";
        for (const IHdlSourceFile* dependency : *source->GetDependencyList())
            names += nameOf(dependency) + " ";
        names += ") ";
    }
    return names;
}

/// Answers for sources itself, and tells which it was asked for.
class AskedBuild : public THdlBuildFile {
public:
    IHdlSourceFile* CreateOrGetSourceFile(const char* fileName) override {
        Asked += std::string(fileName) + "\n";
        return THdlBuildFile::CreateOrGetSourceFile(fileName);
    }
    std::string Asked;
};

TEST(BuildFileReader, AsksABuildOfACallersClassForEveryName) {
    const RecordingMessageBox messages;
    const MemoryFolder folder;
    folder.Write("build.xml",
                 "<HdlBuildFileList><SourceFileGroup Language=\"VHDL\">"
                 "<SourceFile>a.vhd<Dependency>b.vhd</Dependency></SourceFile>"
                 "<SourceFile>c.vhd<Dependency>b.vhd</Dependency>"
                 "<Dependency>a.vhd</Dependency></SourceFile>"
                 "</SourceFileGroup></HdlBuildFileList>");
    AskedBuild build;
    build.SetBuildFileName(ISFileName::NewISFileName(folder.Path("build.xml").c_str()));
    build.ReadFromFile();
    EXPECT_EQ(build.Asked, "a.vhd\nb.vhd\nc.vhd\nb.vhd\na.vhd\n");
}

}  // namespace

TEST(BuildFileReader, ReadsEveryAttribute) {
    ReadBuild read(
        "<HdlBuildFile TopLevelLanguage='VHDL' QmvVersion='q' IdlVersion='i' HvlLanguage='Verilog' "
        "HdlLanguage='SystemC' BaseTimeUnit=' fs ' DisplayTimeUnit='us' SugarEngineDll=' sub/s.dll "
        "' "
        "GenerationDestinationLibrary='gen' DestinationLibrary='dest' SnapshotName=' snap ' "
        "SingleFileOnlyBuild=' TRUE '/>");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(read.Build.GetTopLanguage(), LANGUAGE_VHDL);
    EXPECT_EQ(read.Build.GetHvlLanguage(), LANGUAGE_VERILOG);
    EXPECT_EQ(read.Build.GetHdlLanguage(), LANGUAGE_SYSTEMC);
    EXPECT_STREQ(read.Build.GetQMVVersion(), "q");
    EXPECT_STREQ(read.Build.GetIdlVersion(), "i");
    EXPECT_EQ(read.Build.GetTimeBase()->GetBaseTimeUnit(), UNIT_FS);
    EXPECT_EQ(read.Build.GetTimeBase()->GetDisplayTimeUnit(), UNIT_US);
    EXPECT_EQ(read.Build.GetSugarEngineDll()->Canonical(false), read.Folder.Path("sub/s.dll"));
    EXPECT_EQ(read.Build.GetGenerationDestinationLibrary(), "gen");
    EXPECT_EQ(read.Build.GetDestinationLibrary(), "dest");
    EXPECT_EQ(read.Build.GetSnapshotName(), " snap ");
    EXPECT_TRUE(read.Build.IsSingleFileOnlyBuild());
}

TEST(BuildFileReader, TakesMissingAttributesAsEmpty) {
    ReadBuild read("<HdlBuildFile/>");
    read.Build.SetTopLanguage(LANGUAGE_VHDL);
    read.Build.SetDestinationLibrary("before");
    read.Build.SetSingleFileOnlyBuild(true);
    TTimeBase timeBase;
    timeBase.SetBaseTimeUnit(UNIT_S);
    read.Build.SetTimeBase(timeBase);
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(read.Build.GetTopLanguage(), LANGUAGE_NONE);
    EXPECT_EQ(read.Build.GetHvlLanguage(), LANGUAGE_NONE);
    EXPECT_EQ(read.Build.GetHdlLanguage(), LANGUAGE_NONE);
    EXPECT_STREQ(read.Build.GetQMVVersion(), "");
    EXPECT_STREQ(read.Build.GetIdlVersion(), "");
    EXPECT_EQ(read.Build.GetTimeBase()->GetBaseTimeUnit(), UNIT_S);
    EXPECT_EQ(read.Build.GetTimeBase()->GetDisplayTimeUnit(), UNIT_NS);
    EXPECT_EQ(read.Build.GetSugarEngineDll(), nullptr);
    EXPECT_EQ(read.Build.GetDestinationLibrary(), "");
    EXPECT_TRUE(read.Build.IsSingleFileOnlyBuild());
}

TEST(BuildFileReader, TellsBlankAttributesFromMissingOnes) {
    ReadBuild read(
        "<HdlBuildFile BaseTimeUnit=' ' DisplayTimeUnit='hours' SugarEngineDll=' ' "
        "SingleFileOnlyBuild=' '/>");
    read.Build.SetSingleFileOnlyBuild(true);
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(read.Build.GetTimeBase()->GetBaseTimeUnit(), UNIT_PS);
    EXPECT_EQ(read.Build.GetTimeBase()->GetDisplayTimeUnit(), UNIT_NS);
    EXPECT_EQ(read.Build.GetSugarEngineDll(), nullptr);
    EXPECT_FALSE(read.Build.IsSingleFileOnlyBuild());
}

TEST(BuildFileReader, KeepsAbsoluteSugarEngine) {
    ReadBuild read("<HdlBuildFile SugarEngineDll='Q:\\engines\\s.dll'/>");
    read.Build.ReadFromFile();
    EXPECT_STREQ(read.Build.GetSugarEngineDll()->Canonical(false), "Q:\\engines\\s.dll");
}

TEST(BuildFileReader, LeavesDefaultsWithoutItsElement) {
    ReadBuild read("<Other/><hdlBuildFile TopLevelLanguage='VHDL' QmvVersion='1'/>");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_STREQ(read.Build.GetQMVVersion(), "x.x");
    EXPECT_EQ(read.Build.GetTopLanguage(), LANGUAGE_NONE);
    EXPECT_EQ(read.Messages.Take(), "");
}

TEST(BuildFileReader, ReadsADocumentWithoutRoot) {
    ReadBuild read("<HdlBuildFile TopLevelLanguage='VHDL'><TopLevelComponents/></HdlBuildFile>",
                   false);
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(read.Build.GetTopLanguage(), LANGUAGE_VHDL);
}

TEST(BuildFileReader, ReadsSectionsInAnyOrderAndNumber) {
    ReadBuild read(
        "<BuildFileVariables><Variable Name='A' Value='1'/></BuildFileVariables>"
        "<Unknown><Deep>text</Deep></Unknown>"
        "<SourceFileGroup Language='VHDL'><SourceFile>b.vhd</SourceFile></SourceFileGroup>"
        "<TopLevelComponents ForceTopLevelComponents='true'><ComponentList Language='VHDL'>"
        "<Component Library='l' Architecture='a'>e</Component></ComponentList></TopLevelComponents>"
        "<GeneralConfiguration LogFileName='x.log'/>"
        "<SourceFileGroup Language='VHDL'><SourceFile>a.vhd</SourceFile></SourceFileGroup>"
        "<ExternalSimulatorSettings><Tool Name='VCS' Path='' PliLibPath=''>Verilog</Tool>"
        "</ExternalSimulatorSettings>"
        "<BuildFileVariables><Variable Name='B' Value='2'/></BuildFileVariables>"
        "<HdlBuildFile HdlLanguage='VHDL'/>");
    read.Folder.Write("a.vhd", "");
    read.Folder.Write("b.vhd", "");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(VariablesOf(read.Build), "A=1\nB=2\n");
    EXPECT_EQ(PathsOf(read.Build.GetSourceFileGroup(LANGUAGE_VHDL), read.Folder), "b.vhd\na.vhd\n");
    EXPECT_EQ(ElementsWrittenBy([&read](TXMLList* document) {
                  read.Build.WriteTopLevelComponentNames(document);
              }),
              "START TopLevelComponents ForceTopLevelComponents=true\n"
              "START ComponentList Language=VHDL\n"
              "START Component Library=l Architecture=a\nTEXT e\nEND Component\n"
              "END ComponentList\nEND TopLevelComponents\n");
    EXPECT_STREQ(read.Build.GetGeneralConfiguration()->GetSimulationLogFileName(), "x.log");
    EXPECT_EQ(read.Build.GetSimTool(LANGUAGE_VERILOG)->GetSimulatorType(), SIM_VCS);
    EXPECT_EQ(read.Build.GetHdlLanguage(), LANGUAGE_VHDL);
}

TEST(BuildFileReader, LeavesABuildWithoutFileAsItWas) {
    const MemoryFolder folder;
    RecordingMessageBox messages;
    THdlBuildFile build;
    build.SetTopLanguage(LANGUAGE_VHDL);
    build.SetBuildFileName(ISFileName::NewISFileName(folder.Path("gone.xml").c_str()));
    EXPECT_EQ(build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(build.GetTopLanguage(), LANGUAGE_VHDL);
    EXPECT_TRUE(build.GetReadError().IsError());
    EXPECT_EQ(build.GetReadError().File, folder.Path("gone.xml"));
    EXPECT_TRUE(build.GetReadError().Missing);
    EXPECT_EQ(messages.Take(), "");
    EXPECT_FALSE(build.IsOutdated());
    folder.Write("gone.xml", "<HdlBuildFile/>");
    EXPECT_TRUE(build.IsOutdated());
}

TEST(BuildFileReader, TakesNothingOfAMalformedFile) {
    ReadBuild read("<HdlBuildFile TopLevelLanguage='VHDL'><Broken></HdlBuildFile>");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(read.Build.GetTopLanguage(), LANGUAGE_NONE);
    EXPECT_EQ(read.Build.GetReadError().Line, 2);
    EXPECT_EQ(read.Build.GetReadError().Column, 67);
    EXPECT_EQ(read.Build.GetReadError().Reason,
              "mismatched tag: element \"Broken\" of line 2 is still open");
    EXPECT_EQ(read.Messages.Take(), "Cannot read file: \"" + read.Folder.Path("build.xml") +
                                        "\", line 2, column 67: mismatched tag: element \"Broken\" "
                                        "of line 2 is still open [0]\n");
}

TEST(BuildFileReader, KeepsADamagedFileBesideWhenSavingOverIt) {
    ReadBuild read("<HdlBuildFile><Broken></HdlBuildFile>");
    const std::string damaged = read.Folder.Read("build.xml");
    read.Build.ReadFromFile();
    EXPECT_TRUE(read.Build.WriteToFile());
    EXPECT_EQ(read.Folder.Read("build.xml.bak"), damaged);
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_FALSE(read.Build.GetReadError().IsError());
}

TEST(BuildFileReader, ReadsNothingWithoutAName) {
    THdlBuildFile build;
    build.SetTopLanguage(LANGUAGE_VHDL);
    EXPECT_EQ(build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(build.GetTopLanguage(), LANGUAGE_VHDL);
    EXPECT_FALSE(build.GetReadError().IsError());
}

TEST(BuildFileReader, ResetsTheResultOfTheReadBefore) {
    ReadBuild read(
        "<ProjectLanguageConfigurationList><LanguageSettings/>"
        "</ProjectLanguageConfigurationList>");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_PROJECT_SETTINGS_FAILED);
    EXPECT_EQ(read.Build.GetReadResult(), READ_PROJECT_SETTINGS_FAILED);
    read.Folder.Write("build.xml", "<HdlBuildFile/>");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(read.Build.GetReadResult(), READ_NO_ERROR);
}

TEST(BuildFileReader, EndsAtLanguageSettingsWithoutLanguage) {
    ReadBuild read(
        "<BuildFileVariables><Variable Name='A' Value='1'/></BuildFileVariables>"
        "<ProjectLanguageConfigurationList>"
        "<LanguageSettings Language='Verilog'><SimTool>VCS</SimTool></LanguageSettings>"
        "<LanguageSettings Language=''/>"
        "</ProjectLanguageConfigurationList>"
        "<BuildFileVariables><Variable Name='B' Value='2'/></BuildFileVariables>");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_PROJECT_SETTINGS_FAILED);
    EXPECT_EQ(VariablesOf(read.Build), "A=1\n");
    EXPECT_EQ(read.Build.GetProjectLanguageConfig(LANGUAGE_VERILOG)->GetTool(), SIM_VCS);
}

TEST(BuildFileReader, GoesOnBehindLanguageSettingsThatFail) {
    ReadBuild read(
        "<ProjectLanguageConfigurationList>"
        "<LanguageSettings Language='Verilog'><IncludeDirectories/>"
        "<BuildOptions>lost</BuildOptions></LanguageSettings>"
        "<LanguageSettings Language='VHDL'><BuildOptions>kept</BuildOptions>"
        "</LanguageSettings></ProjectLanguageConfigurationList>"
        "<BuildFileVariables><Variable Name='B' Value='2'/></BuildFileVariables>");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_PROJECT_SETTINGS_FAILED);
    EXPECT_STREQ(read.Build.GetProjectLanguageConfig(LANGUAGE_VERILOG)->GetBuildOptions(), "");
    EXPECT_STREQ(read.Build.GetProjectLanguageConfig(LANGUAGE_VHDL)->GetBuildOptions(), "kept");
    EXPECT_EQ(VariablesOf(read.Build), "B=2\n");
}

TEST(BuildFileReader, ReadsIntoSettingsThatExist) {
    ReadBuild read(
        "<GeneralConfiguration LogFileName='new.log'/>"
        "<ProjectLanguageConfigurationList><LanguageSettings Language='VHDL'>"
        "<BuildOptions>new</BuildOptions></LanguageSettings>"
        "</ProjectLanguageConfigurationList>");
    auto* general = new TProjectSimGeneralConfig;
    read.Build.SetGeneralConfiguration(general);
    TProjectSimLanguageConfig vhdl;
    vhdl.SetRuntimeOptions("old");
    read.Build.AddLanguageConfig(LANGUAGE_VHDL, &vhdl);
    TProjectSimLanguageConfig* stored = read.Build.GetProjectLanguageConfig(LANGUAGE_VHDL);
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(read.Build.GetGeneralConfiguration(), general);
    EXPECT_STREQ(general->GetSimulationLogFileName(), "new.log");
    EXPECT_EQ(read.Build.GetProjectLanguageConfig(LANGUAGE_VHDL), stored);
    EXPECT_STREQ(stored->GetBuildOptions(), "new");
    EXPECT_STREQ(stored->GetRuntimeOptions(), "old");
    EXPECT_EQ(stored->GetProjectFileName(), read.Build.GetFileName());
}

TEST(BuildFileReader, ReadsBothTranslationSectionsIntoOneList) {
    ReadBuild read(
        "<Verilog2VhdlTranslationOptions><v2v-r Enabled='true'/>"
        "</Verilog2VhdlTranslationOptions>"
        "<Vhdl2VerilogTranslationOptions><v2v-s Enabled='true'/><v2v-flc Enabled='true'/>"
        "</Vhdl2VerilogTranslationOptions>"
        "<OutputDiagram>out.btim</OutputDiagram>"
        "<SourceFileGroup Language='VHDL'><SourceFile>a.vhd</SourceFile></SourceFileGroup>"
        "<BuildFileVariables><Variable Name='A' Value='1'/></BuildFileVariables>");
    read.Folder.Write("a.vhd", "");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    TXMLList document;
    read.Build.WriteV2VOptions(&document);
    EXPECT_EQ(ElementsOf(document),
              "START Verilog2VhdlTranslationOptions\n"
              "START v2v-r Enabled=true\n"
              "END v2v-r\n"
              "START v2v-s Enabled=true\n"
              "END v2v-s\n"
              "START v2v-ncc Enabled=true\n"
              "END v2v-ncc\n"
              "END Verilog2VhdlTranslationOptions\n");
    EXPECT_EQ(OutputDiagramOf(read.Build), "out.btim");
    EXPECT_EQ(VariablesOf(read.Build), "A=1\n");
    EXPECT_EQ(PathsOf(read.Build.GetSourceFileGroup(LANGUAGE_VHDL), read.Folder), "a.vhd\n");
}

TEST(BuildFileReader, ReadsOptionsIntoAListThatIsSet) {
    ReadBuild read(
        "<Vhdl2VerilogTranslationOptions><v2v-r Enabled='true'/>"
        "</Vhdl2VerilogTranslationOptions>");
    auto* options = new TV2VTranslationOptionsList(nullptr, "Verilog2VhdlTranslationOptions");
    options->AddOptionNoDup("-r", "", "", false);
    read.Build.SetV2VOptions(options);
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(read.Build.GetV2VOptions(), options);
    TXMLList document;
    read.Build.WriteV2VOptions(&document);
    EXPECT_EQ(ElementsOf(document),
              "START Verilog2VhdlTranslationOptions\n"
              "START v2v-r Enabled=true\n"
              "END v2v-r\n"
              "END Verilog2VhdlTranslationOptions\n");
}

TEST(BuildFileReader, ReadsTheOutputDiagram) {
    const struct {
        const char* Label;
        const char* Xml;
        const char* Stored;
    } rows[] = {
        {"relative", "<OutputDiagram>sub\\d.btim</OutputDiagram>", "sub/d.btim"},
        {"relative with blanks around", "<OutputDiagram>\n  d.btim\n</OutputDiagram>", "d.btim"},
        {"absolute", "<OutputDiagram>Q:\\d.btim</OutputDiagram>", "Q:\\d.btim"},
        {"empty", "<OutputDiagram></OutputDiagram>", ""},
        {"empty text", "<OutputDiagram><![CDATA[]]></OutputDiagram>", ""},
        {"an element in the place of the text",
         "<OutputDiagram><Path>d.btim</Path></OutputDiagram>", ""},
        {"blank", "<OutputDiagram>&#32;</OutputDiagram>", ""},
    };
    for (const auto& row : rows) {
        ReadBuild read(row.Xml);
        EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR) << row.Label;
        EXPECT_EQ(OutputDiagramOf(read.Build), row.Stored) << row.Label;
    }
}

TEST(BuildFileReader, KeepsTheFirstValueOfARepeatedVariable) {
    ReadBuild read(
        "<BuildFileVariables><Variable Name='A' Value='1'/><Variable Name='A' Value='2'/>"
        "<Variable Value='nameless'/><Variable Name='empty'/></BuildFileVariables>");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(VariablesOf(read.Build), "=nameless\nA=1\nempty=\n");
}

TEST(BuildFileReader, ReportsMissingFilesOnceEachAndGoesOn) {
    ReadBuild read(
        "<SourceFileGroup Language='VHDL'><SourceFile>gone.vhd</SourceFile>"
        "<SourceFile>here.vhd</SourceFile><SourceFile>GONE.vhd</SourceFile>"
        "</SourceFileGroup>"
        "<BuildFileVariables><Variable Name='A' Value='1'/></BuildFileVariables>");
    read.Folder.Write("here.vhd", "");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_FILES_MISSING);
    EXPECT_EQ(read.Messages.Take(),
              "HdlBuildFile: Missing File: \"" + read.Folder.Path("gone.vhd") + "\" [0]\n");
    EXPECT_EQ(PathsOf(read.Build.GetSourceFileGroup(LANGUAGE_VHDL), read.Folder),
              "gone.vhd\nhere.vhd\n");
    EXPECT_EQ(VariablesOf(read.Build), "A=1\n");
}

TEST(BuildFileReader, LaterFailureOverwritesMissingFiles) {
    ReadBuild read(
        "<SourceFileGroup Language='VHDL'><SourceFile>gone.vhd</SourceFile>"
        "</SourceFileGroup><ProjectLanguageConfigurationList><LanguageSettings/>"
        "</ProjectLanguageConfigurationList>");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_PROJECT_SETTINGS_FAILED);
}

TEST(BuildFileReader, KeepsTheResultOfMissingFilesWhenLaterGroupsAreWhole) {
    ReadBuild read(
        "<SourceFileGroup Language='VHDL'><SourceFile>gone.vhd</SourceFile></SourceFileGroup>"
        "<BuildFileVariables/>"
        "<SourceFileGroup Language='Verilog'><SourceFile>here.v</SourceFile></SourceFileGroup>");
    read.Folder.Write("here.v", "");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_FILES_MISSING);
    EXPECT_EQ(PathsOf(read.Build.GetSourceFileGroup(LANGUAGE_VERILOG), read.Folder), "here.v\n");
    EXPECT_FALSE(read.Build.GetFilesMissing()) << "told of the last groups read";
}

TEST(BuildFileReader, OrdersFilesThatAreListedBehindThoseThatNeedThem) {
    ReadBuild read(
        "<SourceFileGroup Language='VHDL'>"
        "<SourceFile>top.vhd<Dependency>pkg.vhd</Dependency></SourceFile>"
        "<SourceFile>pkg.vhd<Dependency>base.vhd</Dependency></SourceFile>"
        "<SourceFile>base.vhd</SourceFile></SourceFileGroup>");
    for (const char* name : {"top.vhd", "pkg.vhd", "base.vhd"}) read.Folder.Write(name, "");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    read.Build.OrderFilesForCompile(LANGUAGE_VHDL);
    EXPECT_EQ(PathsOf(read.Build.GetFilesToCompile(LANGUAGE_VHDL), read.Folder),
              "base.vhd\npkg.vhd\ntop.vhd\n");
    const ISFileName* pkg = ISFileName::NewISFileName(read.Folder.Path("pkg.vhd").c_str());
    const TIHdlSourceFileList* group = read.Build.GetSourceFileGroup(LANGUAGE_VHDL);
    ASSERT_NE(group->GetSourceFile(pkg), nullptr);
    EXPECT_EQ((*group->begin())->GetDependency(pkg), group->GetSourceFile(pkg));
}

TEST(BuildFileReader, RebuildsTheLibraryGroupsAlsoWithoutAFile) {
    const MemoryFolder folder;
    THdlSourceFile vhdl(folder.Path("a.vhd").c_str());
    THdlSourceFile verilog(folder.Path("b.v").c_str());
    vhdl.SetPrecompiledLibraryGroupName("one");
    verilog.SetPrecompiledLibraryGroupName("two");
    THdlBuildFile build;
    build.SetHdlLanguage(LANGUAGE_VHDL);
    build.AddSourceFile(&verilog, false);
    build.AddSourceFile(&vhdl, false);
    EXPECT_EQ(build.GetPrecompiledLibraryGroups(), (std::vector<std::string>{"two", "one"}));
    build.SetBuildFileName(ISFileName::NewISFileName(folder.Path("gone.xml").c_str()));
    EXPECT_EQ(build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(build.GetPrecompiledLibraryGroups(), std::vector<std::string>{"one"});
    EXPECT_EQ(PathsOf(build.GetSourceFileGroup(LANGUAGE_VERILOG), folder), "b.v\n");
}

TEST(BuildFileReader, RebuildsTheLibraryGroupsFromTheHdlGroup) {
    ReadBuild read(
        "<HdlBuildFile HdlLanguage='VHDL'/><SourceFileGroup Language='VHDL'>"
        "<SourceFile PrecompiledLibrary='b'>1.vhd</SourceFile>"
        "<SourceFile PrecompiledLibrary='a'>2.vhd</SourceFile>"
        "<SourceFile PrecompiledLibrary='b'>3.vhd</SourceFile></SourceFileGroup>"
        "<SourceFileGroup Language='Verilog'>"
        "<SourceFile PrecompiledLibrary='c'>4.v</SourceFile></SourceFileGroup>");
    for (const char* name : {"1.vhd", "2.vhd", "3.vhd", "4.v"}) read.Folder.Write(name, "");
    EXPECT_EQ(read.Build.ReadFromFile(), READ_NO_ERROR);
    EXPECT_EQ(read.Build.GetPrecompiledLibraryGroups(), (std::vector<std::string>{"b", "a"}));
}

// The folders are the library's own to make: other programs may not know paths of this length.
TEST(BuildFileReader, ReadsAndSavesBesideFilesOfAnyNameAndLength) {
    const MemoryFolder folder;
    RecordingMessageBox messages;
    std::string directory = folder.Path();
    for (int i = 0; i < 12; ++i) directory += "/a folder of some length " + std::to_string(i);
    const std::string source = directory + "/rtl/gr\xC3\xB6\xC3\x9F\x65.vhd";
    const std::string path = directory + "/build.xml";
    ASSERT_GT(path.size(), 300u);
    ASSERT_TRUE(MakeDirectoryOf(source.c_str()));
    ASSERT_TRUE(ReplaceWholeFile(source.c_str(), "", nullptr));
    const std::string document =
        "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
        "<HdlBuildFileList><HdlBuildFile TopLevelLanguage='VHDL' HdlLanguage='VHDL'/>"
        "<SourceFileGroup Language='VHDL'><SourceFile>rtl\\gr\xC3\xB6\xC3\x9F\x65.vhd</SourceFile>"
        "</SourceFileGroup></HdlBuildFileList>\n";
    ASSERT_TRUE(ReplaceWholeFile(path.c_str(), document, nullptr));
    THdlBuildFile build(ISFileName::NewISFileName(path.c_str()));
    EXPECT_EQ(build.GetReadError().Reason, "");
    EXPECT_EQ(build.GetReadResult(), READ_NO_ERROR);
    EXPECT_TRUE(build.WriteToFile());
    EXPECT_EQ(messages.Take(), "");
    std::string saved;
    ASSERT_EQ(ReadWholeFile(path.c_str(), &saved, nullptr), FILE_READ_DONE);
    EXPECT_EQ(saved,
              "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
              "<HdlBuildFileList>\n"
              "  <HdlBuildFile TopLevelLanguage=\"VHDL\" QmvVersion=\"\" IdlVersion=\"\" "
              "HvlLanguage=\"None\" HdlLanguage=\"VHDL\" BaseTimeUnit=\"ps\" "
              "DisplayTimeUnit=\"ns\" GenerationDestinationLibrary=\"\" DestinationLibrary=\"\" "
              "SnapshotName=\"\">\n"
              "    <TopLevelComponents/>\n"
              "    <ProjectLanguageConfigurationList/>\n"
              "    <SourceFileGroup Language=\"VHDL\">\n"
              "      <SourceFile Library=\"false\" PrecompiledLibrary=\"\">"
              "rtl/gr\xC3\xB6\xC3\x9F\x65.vhd</SourceFile>\n"
              "    </SourceFileGroup>\n"
              "  </HdlBuildFile>\n"
              "</HdlBuildFileList>\n");
}

TEST(BuildFileReader, ReadsAtConstruction) {
    const MemoryFolder folder;
    const std::string path = folder.Write("build.xml", "<HdlBuildFile TopLevelLanguage='VHDL'/>");
    const THdlBuildFile build(ISFileName::NewISFileName(path.c_str()));
    EXPECT_EQ(build.GetTopLanguage(), LANGUAGE_VHDL);
    EXPECT_EQ(build.GetReadResult(), READ_NO_ERROR);
    EXPECT_FALSE(build.IsOutdated());
}

TEST(BuildFileReader, SeesThatASourceIsRenamedWhileItReads) {
    /// Renames a source when its user is told of a missing file.
    class RenamingBox : public RecordingMessageBox {
    public:
        explicit RenamingBox(ReadBuild* read) : Read(read) {}
        void ShowMessage(const char*, const char*, int) override {
            IHdlSourceFile* source =
                Read->Build.GetSourceFileGroup(LANGUAGE_VHDL)->GetSourceFile(Name("first.vhd"));
            if (source)
                *dynamic_cast<THdlSourceFile*>(source) = THdlSourceFile(Name("renamed.vhd"));
        }
        const ISFileName* Name(const char* name) const {
            return ISFileName::NewISFileName(Read->Folder.Path(name).c_str());
        }

    private:
        ReadBuild* Read;
    };
    ReadBuild read(
        "<SourceFileGroup Language='VHDL'><SourceFile>first.vhd</SourceFile>"
        "<SourceFile>gone.vhd<Dependency>first.vhd</Dependency>"
        "<Dependency>renamed.vhd</Dependency></SourceFile></SourceFileGroup>");
    read.Folder.Write("first.vhd", "");
    const RenamingBox box(&read);
    (void)read.Build.ReadFromFile();
    EXPECT_EQ(SourcesOf(read.Build, LANGUAGE_VHDL),
              "renamed.vhd() gone.vhd(first.vhd renamed.vhd ) ");
    const TIHdlSourceFileList& group = *read.Build.GetSourceFileGroup(LANGUAGE_VHDL);
    EXPECT_EQ(group.GetSourceFile(box.Name("gone.vhd"))->GetDependency(box.Name("renamed.vhd")),
              *group.begin());
}

TEST(BuildFileReader, FindsWhatSourcesOfACallersBuildDependOn) {
    /// Has a source of its own for one name.
    class OwningBuild : public THdlBuildFile {
    public:
        IHdlSourceFile* CreateOrGetSourceFile(const char* name) override {
            if (std::string(name) == "own.vhd") return &Own;
            return THdlBuildFile::CreateOrGetSourceFile(name);
        }
        THdlSourceFile Own{"/p/own.vhd"};
    };
    const MemoryFolder folder;
    const RecordingMessageBox box;
    THdlSourceFile dependency(folder.Path("x.vhd").c_str());
    OwningBuild build;
    build.Own.AddDependency(&dependency);
    build.SetBuildFileName(ISFileName::NewISFileName(
        folder
            .Write("build.xml",
                   "<SourceFileGroup Language='VHDL'><SourceFile>own.vhd</SourceFile>"
                   "<SourceFile>a.vhd<Dependency>x.vhd</Dependency></SourceFile>"
                   "</SourceFileGroup>")
            .c_str()));
    (void)build.ReadFromFile();
    EXPECT_EQ(SourcesOf(build, LANGUAGE_VHDL), "own.vhd(x.vhd ) a.vhd(x.vhd ) ");
    const IHdlSourceFile* source = *--build.GetSourceFileGroup(LANGUAGE_VHDL)->end();
    EXPECT_EQ(source->GetDependency(dependency.GetFileName()), &dependency);
}

// Names are looked for ahead of the reader, which must not lose its way in what is not a name.
TEST(BuildFileReader, ReadsLongGroupsWithElementsThatAreNoSourcesAmongThem) {
    const struct {
        const char* Label;
        const char* Between;
        const char* Read;
    } rows[] = {
        {"nothing", "", ""},
        {"a source without a name", "<SourceFile/>", ""},
        {"a blank name", "<SourceFile><![CDATA[ ]]></SourceFile>", ""},
        {"dependencies without a source",
         "<SourceFile><![CDATA[]]><Dependency>x</Dependency><Dependency>y</Dependency></"
         "SourceFile>",
         ""},
        {"an element in the place of the name",
         "<SourceFile><a>1</a><b>2</b><c>3</c><d>4</d></SourceFile>", ""},
        {"an element in the place of a dependency's name",
         "<SourceFile>p.vhd<Dependency><a>1</a><b>2</b></Dependency></SourceFile>", "p.vhd() "},
        {"an absolute name", "<SourceFile>/q/abs.vhd<Dependency>d.vhd</Dependency></SourceFile>",
         "abs.vhd(d.vhd ) "},
        {"names to normalise", "<SourceFile> ./x/../n.vhd </SourceFile>", "n.vhd() "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Label);
        std::string document = "<SourceFileGroup Language='VHDL'>";
        std::string expected;
        for (int i = 0; i < 40; ++i) {
            const std::string number = std::to_string(i);
            const std::string next = std::to_string((i * 7) % 40);
            document += "<SourceFile>s" + number + ".vhd<Dependency>s" + next +
                        ".vhd</Dependency><Dependency>only" + number +
                        ".vhd</Dependency></SourceFile>";
            expected += "s" + number + ".vhd(s" + next + ".vhd only" + number + ".vhd ) ";
            if (i % 15 != 5) continue;
            document += row.Between;
            if (i == 5) expected += row.Read;
        }
        document +=
            "</SourceFileGroup><SourceFileGroup Language='Verilog'>"
            "<SourceFile>t.v<Dependency>s3.vhd</Dependency></SourceFile></SourceFileGroup>"
            "<BuildFileVariables><Variable Name='A' Value='1'/></BuildFileVariables>";
        RecordingMessageBox box;
        ReadBuild read(document);
        (void)read.Build.ReadFromFile();
        EXPECT_EQ(SourcesOf(read.Build, LANGUAGE_VHDL), expected);
        EXPECT_EQ(SourcesOf(read.Build, LANGUAGE_VERILOG), "t.v(s3.vhd ) ");
        const TIHdlSourceFileList& group = *read.Build.GetSourceFileGroup(LANGUAGE_VHDL);
        const IHdlSourceFile* source = *group.begin();
        EXPECT_EQ(source->GetDependency(source->GetFileName()), source) << "one object a name";
    }
}
