#pragma once
#include "buildfile/hdlbuildfile.h"
#include "projectfiles/hdlsourcefile.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/buildfile/buildtexts.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "translation/v2vtranslationoptionslist.h"
#include <gtest/gtest.h>

/// Opens the protected operations.
class OpenBuild : public THdlBuildFile {
public:
    using THdlBuildFile::AddPrecompiledLibraryGroupNoDup;
    using THdlBuildFile::CompilePrecompiledLibraryGroup;
    using THdlBuildFile::SetFilesMissingOnRead;
};

inline TBaseSimTool* NewTool(THdlLanguage language, TSimulatorType type) {
    auto* tool = new TBaseSimTool;
    tool->SetLanguage(language);
    tool->SetSimulatorType(type);
    return tool;
}

/// A build in which no member has the value of a fresh build or that of another member, and what it
/// points to.
class FilledBuild : public testing::Test {
protected:
    FilledBuild() {
        Build.SetBuildFileName(Name);
        Build.ReadFromFile();
        Build.SetFilesMissingOnRead(true);
        Build.SetTopLanguage(LANGUAGE_VHDL);
        Build.SetHvlLanguage(LANGUAGE_TESTBUILDER);
        Build.SetHdlLanguage(LANGUAGE_VERILOG);
        Build.SetQMVVersion("1.0");
        Build.SetIdlVersion("2.0");
        Build.SetSugarEngineDll(Sugar);
        Build.SetOutputDiagram(Handle(Folder.Path("out.btim")));
        TTimeBase timeBase;
        timeBase.SetBaseTimeUnit(UNIT_FS);
        timeBase.SetDisplayTimeUnit(UNIT_MS);
        Build.SetTimeBase(timeBase);
        Build.SetDestinationLibrary("dest");
        Build.SetGenerationDestinationLibrary("gen");
        Build.SetSnapshotName("snap");
        Build.SetVerilogUserDefines("+define+A");
        Build.SetVerilogOtherPlusOptions("+x");
        Build.SetSingleFileOnlyBuild(true);
        Build.SetSimzBuildIsElabOnly(true);
        Build.SetGOFBuildFileFlag(true);
        Build.SetForceTopLevelComponents(true);
        General.SetLogFileName("run.log");
        General.SetEnableSimulatorDebugging(false);
        Build.SetGeneralConfiguration(&General);
        Build.SetV2VOptions(&Options);
        (*Build.GetPseudoEnvironmentVariables())["V"] = "1";
        Build.AddSimTool(NewTool(LANGUAGE_VHDL, SIM_MODELSIM_VHDL));
        Build.AddComponentName("top", "rtl", "work", LANGUAGE_VHDL);
        Source.SetPrecompiledLibraryGroupName("lib");
        Build.AddSourceFile(&Source, false);
        Build.OrderFilesForCompile(LANGUAGE_VHDL);
        TProjectSimLanguageConfig config;
        config.SetBuildOptions("-93");
        Build.AddLanguageConfig(LANGUAGE_VHDL, &config);
    }
    RecordingMessageBox Box;
    MemoryFolder Folder;
    // Malformed, so that there is a read error.
    const ISFileName* Name = Handle(Folder.Write("build.hbf", "<HdlBuildFile></Other>"));
    const ISFileName* Sugar = Handle(Folder.Path("sugar.dll"));
    TProjectSimGeneralConfig General;
    TV2VTranslationOptionsList Options{nullptr, "Verilog2VhdlTranslationOptions"};
    THdlSourceFile Source{"/p/a.vhd"};
    OpenBuild Build;
};

inline constexpr const char* kFresh =
    "file <null>\n"
    "languages None None None\n"
    "versions x.x x.x\n"
    "sugar <null>\n"
    "time ps ns\n"
    "libraries '' '' snapshot ''\n"
    "defines '' plus options ''\n"
    "single false force false\n"
    "general null options null\n"
    "variables\n"
    "tools\n"
    "components\n"
    "configurations\n"
    "sources\n"
    "ordered\n"
    "precompiled\n"
    "result 0 error ''\n";

inline constexpr const char* kFilled =
    "file build.hbf\n"
    "languages VHDL TestBuilder Verilog\n"
    "versions 1.0 2.0\n"
    "sugar sugar.dll\n"
    "time fs ms\n"
    "libraries 'gen' 'dest' snapshot 'snap'\n"
    "defines '+define+A' plus options '+x'\n"
    "single true force true\n"
    "general set options set\n"
    "variables V=1\n"
    "tools VHDL\n"
    "components VHDL\n"
    "configurations VHDL=-93\n"
    "sources VHDL: a.vhd\n"
    "ordered a.vhd\n"
    "precompiled lib\n"
    "result 9 error 'mismatched tag: element \"HdlBuildFile\" of line 1 is still open'\n";

// As TextOfMembersWithoutGetter shows them.
inline constexpr const char* kFreshWithoutGetter =
    "diagram <none>\noptions build\ncommand line -l simulation.log +typdelays \n";
inline constexpr const char* kFilledWithoutGetter =
    "diagram out.btim\noptions link\ncommand line +typdelays \n";
