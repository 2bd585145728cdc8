#include "flows/textreaders.h"
#include "buildfile/hdlbuildfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"
#include "settings/projectsimconfig.h"
#include "settings/projectsimsettings.h"
#include "simtools/simtoolserverclientcourier.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

/// The handle of a file in the folder.
const ISFileName* FileIn(const TemporaryFolder& folder, const char* name) {
    return ISFileName::NewISFileName(folder.Path(name).c_str());
}

std::string TextOf(const TXMLReadError& error) {
    return std::to_string(error.Line) + ":" + std::to_string(error.Column) + ": " + error.Reason;
}

std::string NamesOf(const TProjectSimSettings& settings) {
    std::string names;
    for (const TProjectSimConfig* configuration : settings.GetConfigurations())
        names += std::string(configuration->GetName()) + " ";
    return names;
}

constexpr const char* kMalformed = "<a>\n  <b></a>";
constexpr const char* kMalformedReason =
    "2:8: mismatched tag: element \"b\" of line 2 is still open";

}  // namespace

TEST(TextReaders, ReadABuildAgainstTheFolderOfAFileThatTheyDoNotLookAt) {
    RecordingMessageBox box;
    const TemporaryFolder folder;
    folder.Write("sub/there.vhd", "");
    const ISFileName* file = FileIn(folder, "sub/none.xml");
    THdlBuildFile build;
    TXMLReadError error;
    ASSERT_TRUE(
        ReadBuildText("<HdlBuildFile HdlLanguage='VHDL' SnapshotName='s'>"
                      "<SourceFileGroup Language='VHDL'><SourceFile>there.vhd</SourceFile>"
                      "<SourceFile>../gone.vhd</SourceFile></SourceFileGroup>"
                      "</HdlBuildFile>",
                      file, &build, &error));
    EXPECT_EQ(build.GetFileName(), file);
    EXPECT_TRUE(build.HasBuildElement());
    EXPECT_EQ(build.GetSnapshotName(), "s");
    EXPECT_EQ(build.GetReadResult(), READ_FILES_MISSING);
    EXPECT_EQ(error.Reason, "");
    std::string sources;
    for (const IHdlSourceFile* source : *build.GetSourceFileGroup(LANGUAGE_VHDL))
        sources += std::string(source->GetFileName()->Canonical(false)) + "\n";
    EXPECT_EQ(sources, folder.Path("sub/there.vhd") + "\n" + folder.Path("gone.vhd") + "\n");
    EXPECT_EQ(box.Take(), "HdlBuildFile: Missing File: \"" + folder.Path("gone.vhd") + "\" [0]\n");
}

TEST(TextReaders, TellWhereABuildIsMalformed) {
    const TemporaryFolder folder;
    THdlBuildFile build;
    build.SetSnapshotName("s");
    TXMLReadError error;
    EXPECT_FALSE(ReadBuildText(kMalformed, FileIn(folder, "b.xml"), &build, &error));
    EXPECT_EQ(TextOf(error), kMalformedReason);
    EXPECT_FALSE(build.HasBuildElement());
    EXPECT_EQ(build.GetSnapshotName(), "s");
    EXPECT_FALSE(ReadBuildText(kMalformed, FileIn(folder, "b.xml"), &build, nullptr));
    EXPECT_TRUE(ReadBuildText("<HdlBuildFileList/>", FileIn(folder, "b.xml"), &build, &error));
    EXPECT_EQ(error.Reason, "");
    EXPECT_FALSE(build.HasBuildElement());
}

TEST(TextReaders, GiveTheToolsToTheServer) {
    TBaseSimToolServerClientCourier courier;
    TXMLReadError error;
    ASSERT_TRUE(
        ReadSimulatorsText("<HdlBuildFileList><ExternalSimulatorSettings>"
                           "<Tool Name='Scirocco' Path='D:\\p.exe' PliLibPath='q'>VHDL</Tool>"
                           "</ExternalSimulatorSettings></HdlBuildFileList>",
                           "far", &courier, &error));
    EXPECT_EQ(error.Reason, "");
    const auto* tools = courier.GetSimToolList(TRope("far"));
    ASSERT_NE(tools, nullptr);
    std::string texts;
    for (const TBaseSimTool& tool : *tools)
        texts += std::string(GetSimulatorNameFromType(tool.GetSimulatorType())) + " " +
                 GetStringFromHdlLanguage(tool.GetLanguage()) + " " + tool.GetExecutablePath() +
                 " " + tool.GetPliLibrary() + "\n";
    EXPECT_EQ(texts, "Scirocco VHDL D:\\p.exe q\n");
    EXPECT_FALSE(ReadSimulatorsText(kMalformed, "far", &courier, &error));
    EXPECT_EQ(TextOf(error), kMalformedReason);
    EXPECT_EQ(courier.GetSimToolList(TRope("far"))->size(), 1u);
}

TEST(TextReaders, GiveTheResultsOfAProjectFile) {
    const RecordingMessageBox box;
    const TemporaryFolder folder;
    const std::string configuration = "<ProjectSettingsConfiguration ConfigurationName='a'/>";
    const struct {
        const char* Label;
        std::string Document;
        THpjFileResult Result;
        const char* Names;
    } rows[] = {
        {"settings",
         "<SimulationProject><x/><ProjectSettings>" + configuration +
             "</ProjectSettings></SimulationProject>",
         HPJ_FILE_DONE, "a "},
        {"none", "<SimulationProject/>", HPJ_FILE_DONE, ""},
        {"settings elsewhere",
         "<SimulationProject><x><ProjectSettings>" + configuration +
             "</ProjectSettings></x></SimulationProject>",
         HPJ_FILE_DONE, ""},
        {"other root", "<ProjectSettings>" + configuration + "</ProjectSettings>", HPJ_FILE_FOREIGN,
         ""},
        {"twice",
         "<SimulationProject><ProjectSettings>" + configuration +
             "</ProjectSettings><ProjectSettings/></SimulationProject>",
         HPJ_FILE_REPEATED_SETTINGS, ""},
        {"broken",
         "<SimulationProject><ProjectSettings>" + configuration +
             "<ProjectSettingsConfiguration><LanguageSettings/></ProjectSettingsConfiguration>"
             "</ProjectSettings></SimulationProject>",
         HPJ_FILE_INVALID_SETTINGS, "a "},
        {"malformed", kMalformed, HPJ_FILE_UNREADABLE, ""},
    };
    const ISFileName* file = FileIn(folder, "none.hpj");
    for (const auto& row : rows) {
        TProjectSimSettings settings;
        TXMLReadError error;
        EXPECT_EQ(ReadProjectText(row.Document, file, &settings, &error), row.Result) << row.Label;
        EXPECT_EQ(NamesOf(settings), row.Names) << row.Label;
        EXPECT_EQ(settings.GetProjectFileName(), file) << row.Label;
        const bool isRead = row.Result != HPJ_FILE_UNREADABLE;
        EXPECT_EQ(TextOf(error), isRead ? "0:0: " : kMalformedReason) << row.Label;
        const ISFileName* written =
            ISFileName::NewISFileName(folder.Write("p.hpj", row.Document).c_str());
        TProjectSimSettings ofFile;
        EXPECT_EQ(THpjFile(written).Read(&ofFile), row.Result) << row.Label;
        EXPECT_EQ(NamesOf(ofFile), row.Names) << row.Label;
    }
}
