#include "cli/frame/buildstate.h"
#include "buildfile/hdlbuildfile.h"
#include "settings/projectsimgeneralconfig.h"
#include <gtest/gtest.h>

namespace {

std::string TextOf(const TState& state) {
    std::string text;
    for (const auto& [name, value] : state) text += name + "=" + value.Dump() + "\n";
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
              "LogFileName=\"simulation.log\"\nAddTopLevelSignals=true\nShowWatchSignals=true\n"
              "DumpWatchSignals=false\nBreakAtTimeZeroAfterCompile=false\n"
              "ClearLogFileBeforeCompile=true\nAutoParseProject=false\n"
              "GenerateTestBenchOnBuildProject=true\nDisablePeriodicWaveformUpdate=false\n"
              "CompileVerilogFiles=false\nCompileVHDLFiles=false\nCompileCppFiles=false\n"
              "MakeConstantsWatchable=true\nMakeArrayElementsWatchable=false\n"
              "WatchableArrayElementSize=0\nEnableSimulatorDebugging=true\n");
    TProjectSimGeneralConfig general;
    build.SetGeneralConfiguration(&general);
    EXPECT_EQ(TextOf(StateOf(build)), text);
}

TEST(BuildState, NamesWhatOnlyTheOtherHasAsNull) {
    TState before = {{"a", 1}, {"b", 2}};
    TState after = {{"b", 3}, {"c", 4}};
    NameAll(&before, &after);
    EXPECT_EQ(TextOf(before), "a=1\nb=2\nc=null\n");
    EXPECT_EQ(TextOf(after), "b=3\nc=4\na=null\n");
}
