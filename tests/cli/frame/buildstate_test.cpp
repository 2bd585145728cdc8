#include "cli/frame/buildstate.h"
#include "buildfile/hdlbuildfile.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include <gtest/gtest.h>
#include <memory>

namespace {

std::string TextOf(const TState& state) {
    std::string text;
    for (const auto& [name, value] : state) text += name + "=" + value.Dump() + "\n";
    return text;
}

std::string DefaultsOf(const std::string& language) {
    std::string text;
    for (const char* const line :
         {"SimTool=\"None\"", "IncludeDirectories=[]", "LibraryDirectories=[]",
          "LibraryExtensions=[]", "UseVhdl93Defaults=true", "DelayType=\"typical\"",
          "PliDriven=false", "ActiveSnapshotName=\"\"", "DestinationLibraryName=\"work\"",
          "AdditionalExtensions=\"\"", "BuildOptions=\"\"", "LinkerOptions=\"\"",
          "RuntimeOptions=\"\"", "OutputFileName=\"\"", "RunOutputFileExecutable=false",
          "ForceTopLevel=false"})
        text += language + " " + line + "\n";
    return text;
}

}  // namespace

TEST(BuildState, IsThatOfTheDefaultsWithoutGeneralSettings) {
    THdlBuildFile build;
    const std::string text = TextOf(StateOf(build));
    EXPECT_EQ(text,
              "TopLevelLanguage=\"None\"\nHvlLanguage=\"None\"\nHdlLanguage=\"None\"\n"
              "BaseTimeUnit=\"ps\"\nDisplayTimeUnit=\"ns\"\nGenerationDestinationLibrary=\"\"\n"
              "DestinationLibrary=\"\"\nSnapshotName=\"\"\nSingleFileOnlyBuild=false\n"
              "ForceTopLevelComponents=false\n"
              "LogFileName=\"simulation.log\"\nAddTopLevelSignals=true\nShowWatchSignals=true\n"
              "DumpWatchSignals=false\nBreakAtTimeZeroAfterCompile=false\n"
              "ClearLogFileBeforeCompile=true\nAutoParseProject=false\n"
              "GenerateTestBenchOnBuildProject=true\nDisablePeriodicWaveformUpdate=false\n"
              "CompileVerilogFiles=false\nCompileVHDLFiles=false\nCompileCppFiles=false\n"
              "MakeConstantsWatchable=true\nMakeArrayElementsWatchable=false\n"
              "WatchableArrayElementSize=0\nEnableSimulatorDebugging=true\n" +
                  DefaultsOf("Verilog") + DefaultsOf("VHDL") + DefaultsOf("Bluespec") +
                  DefaultsOf("C++") + DefaultsOf("TestBuilder"));
    TProjectSimGeneralConfig general;
    build.SetGeneralConfiguration(&general);
    EXPECT_EQ(TextOf(StateOf(build)), text);
}

TEST(BuildState, HasAllThatIsSet) {
    THdlBuildFile build;
    build.SetSnapshotName("s");
    build.SetForceTopLevelComponents(true);
    build.AddComponentName("e", "a", "work", LANGUAGE_VHDL);
    build.AddComponentName("m", "", "work", LANGUAGE_VERILOG);
    auto* const tool = new TBaseSimTool;  // the build's
    tool->SetLanguage(LANGUAGE_VHDL);
    tool->SetSimulatorType(SIM_NC_VHDL);
    tool->SetExecutablePath("D:\\nc.exe");
    build.AddSimTool(tool);
    tool->SetPliLibrary("p.so");
    TProjectSimLanguageConfig settings;
    settings.SetBuildOptions("-g");
    build.AddLanguageConfig(LANGUAGE_VHDL, &settings);
    const std::unique_ptr<TProjectSimLanguageConfig> owned(
        build.GetProjectLanguageConfig(LANGUAGE_VHDL));
    (*build.GetPseudoEnvironmentVariables())["W"] = "8";
    const std::string before = TextOf(StateOf(THdlBuildFile()));
    std::string lines;
    for (const auto& [name, value] : StateOf(build))
        if (const std::string line = name + "=" + value.Dump() + "\n";
            before.find("\n" + line) == std::string::npos)
            lines += line;
    EXPECT_EQ(lines,
              "TopLevelLanguage=\"None\"\n"  // the first line
              "SnapshotName=\"s\"\nForceTopLevelComponents=true\n"
              "Verilog top-level components=[\"work.m\"]\n"
              "VHDL top-level components=[\"work.e(a)\"]\n"
              "VHDL simulator={\"simulator\":\"NCSim VHDL\",\"path\":\"D:\\\\nc.exe\","
              "\"pliLibrary\":\"p.so\"}\n"
              "VHDL BuildOptions=\"-g\"\nvariable.W=\"8\"\n");
}

TEST(BuildState, NamesWhatOnlyTheOtherHasAsNull) {
    TState before = {{"a", 1}, {"b", 2}};
    TState after = {{"b", 3}, {"c", 4}};
    NameAll(&before, &after);
    EXPECT_EQ(TextOf(before), "a=1\nb=2\nc=null\n");
    EXPECT_EQ(TextOf(after), "b=3\nc=4\na=null\n");
}
