#include "buildfile/hdlbuildfilereadresults.h"
#include "buildfile/hdlbuildfile.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "services/xml/xmllist.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

TEST(BuildFileReadResults, HaveTheirTexts) {
    const struct {
        int Result;
        const char* Text;
    } rows[] = {
        {0, "Build File: No error."},
        {1, "Build File: Project Attributes failed to load."},
        {2, "Build File: Component Names failed to load."},
        {3, "Build File: External Configurations failed to load."},
        {4, "Build File: Error reading General Settings."},
        {5, "Build File: Error reading the Project Settings."},
        {6, "Build File: Error reading V2V Options."},
        {7, "Build File: One or more source files failed to load."},
        {8, "Build File: Build Variables failed to load."},
        {9, "Build File: Missing file(s) on load."},
        {10, "Error not defined."},
        {-1, "Error not defined."},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(
            THdlBuildFile::GetErrorString(static_cast<THdlBuildFileReadResults>(row.Result)),
            row.Text);
}

TEST(BuildFileReadResults, AreSetByEachSectionReader) {
    const struct {
        const char* Label;
        bool (THdlBuildFile::*Read)(DListIterator<TElement*>&);
        const char* Elements;
        bool Answer;
        THdlBuildFileReadResults Result;
        const char* Left;
    } rows[] = {
        {"components: other element", &THdlBuildFile::ReadTopLevelComponentNames, "START Other\n",
         true, READ_COMPONENT_NAMES_FAILED, "START Other"},
        {"components: at the tail", &THdlBuildFile::ReadTopLevelComponentNames, "", false,
         READ_COMPONENT_NAMES_FAILED, "TAIL"},
        {"components: cut off inside a component", &THdlBuildFile::ReadTopLevelComponentNames,
         "START TopLevelComponents\nSTART ComponentList Language=VHDL\nSTART Component Library=l\n",
         false, READ_NO_ERROR, "TAIL"},
        {"simulators: cut off inside a tool", &THdlBuildFile::ReadExternalConfigurations,
         "START ExternalSimulatorSettings\nSTART Tool Name=GCC\n", true, READ_NO_ERROR, "TAIL"},
        {"general settings: at the tail", &THdlBuildFile::ReadGeneralSettings, "", false,
         READ_GENERAL_SETTINGS_FAILED, "TAIL"},
        {"general settings: whole", &THdlBuildFile::ReadGeneralSettings,
         "START GeneralConfiguration\nEND GeneralConfiguration\n", true, READ_NO_ERROR,
         "END GeneralConfiguration"},
        {"language settings: cut off", &THdlBuildFile::ReadProjectSettings,
         "START ProjectLanguageConfigurationList\nSTART LanguageSettings Language=VHDL\n", true,
         READ_PROJECT_SETTINGS_FAILED, "TAIL"},
        {"language settings: none", &THdlBuildFile::ReadProjectSettings,
         "START ProjectLanguageConfigurationList\nEND ProjectLanguageConfigurationList\n", true,
         READ_NO_ERROR, "END ProjectLanguageConfigurationList"},
        {"language settings: whole", &THdlBuildFile::ReadProjectSettings,
         "START ProjectLanguageConfigurationList\nSTART LanguageSettings Language=VHDL\n"
         "END LanguageSettings\nEND ProjectLanguageConfigurationList\nSTART Next\n",
         true, READ_NO_ERROR, "START Next"},
        {"language settings: not to be read", &THdlBuildFile::ReadProjectSettings,
         "START ProjectLanguageConfigurationList\nSTART LanguageSettings Language=VHDL\n"
         "START IncludeDirectories\nEND IncludeDirectories\nEND LanguageSettings\n"
         "END ProjectLanguageConfigurationList\nSTART Next\n",
         true, READ_PROJECT_SETTINGS_FAILED, "START Next"},
        {"sources: cut off", &THdlBuildFile::ReadSourceFileGroups,
         "START SourceFileGroup Language=VHDL\n", false, READ_SOURCE_FILES_FAILED, "TAIL"},
        {"sources: cut off inside a source", &THdlBuildFile::ReadSourceFileGroups,
         "START SourceFileGroup Language=VHDL\nSTART SourceFile\n", false, READ_SOURCE_FILES_FAILED,
         "TAIL"},
        {"variables: other element", &THdlBuildFile::ReadPseudoEnvironmentVariables,
         "START Other\n", false, READ_VARIABLES_FAILED, "START Other"},
        {"variables: at the tail", &THdlBuildFile::ReadPseudoEnvironmentVariables, "", false,
         READ_VARIABLES_FAILED, "TAIL"},
        {"variables: whole", &THdlBuildFile::ReadPseudoEnvironmentVariables,
         "START BuildFileVariables\nSTART Variable Name=A Value=1\nEND Variable\n"
         "END BuildFileVariables\nSTART Next\n",
         true, READ_NO_ERROR, "START Next"},
        {"attributes", &THdlBuildFile::ReadAttributes, "START HdlBuildFile\nSTART Next\n", true,
         READ_NO_ERROR, "START Next"},
        {"attributes: at the tail", &THdlBuildFile::ReadAttributes, "", true, READ_NO_ERROR,
         "TAIL"},
    };
    for (const auto& row : rows) {
        const RecordingMessageBox messages;
        TSimWrapHdlBuildFile build;
        TXMLList list;
        PushElements(&list, row.Elements);
        DListIterator<TElement*> element(list);
        EXPECT_EQ((build.*row.Read)(element), row.Answer) << row.Label;
        EXPECT_EQ(build.GetReadResult(), row.Result) << row.Label;
        EXPECT_EQ(ElementAt(element), row.Left) << row.Label;
    }
}

TEST(BuildFileReadResults, AreSetByDerivedClassesForMissingFiles) {
    class TDerived : public THdlBuildFile {
    public:
        using THdlBuildFile::SetFilesMissingOnRead;
    };
    RecordingMessageBox messages;
    TDerived build;
    build.SetFilesMissingOnRead(false);
    EXPECT_EQ(build.GetReadResult(), READ_NO_ERROR);
    EXPECT_EQ(messages.Take(), "Build File: Files Missing on load [0]\n");
    build.SetFilesMissingOnRead(true);
    EXPECT_EQ(build.GetReadResult(), READ_FILES_MISSING);
    EXPECT_EQ(messages.Take(), "Build File: Files Missing on load [0]\n");
}
