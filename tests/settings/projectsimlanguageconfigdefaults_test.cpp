#include "settings/projectsimlanguageconfig.h"
#include "tests/settings/settingstext.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include <gtest/gtest.h>

namespace {

/// The options after a reset, as "<build><linker><runtime>"; before it none was empty.
std::string OptionsAfterReset(THdlLanguage language, int tool, bool debug) {
    TProjectSimLanguageConfig settings;
    settings.SetTool(static_cast<TSimulatorType>(tool));
    settings.SetBuildOptions("old");
    settings.SetLinkerOptions("old");
    settings.SetRuntimeOptions("old");
    settings.ResetDefaultSettingsOptions(language, debug);
    return Joined(
        {settings.GetBuildOptions(), settings.GetLinkerOptions(), settings.GetRuntimeOptions()});
}

constexpr const char* kNone = "<><><>";
constexpr const char* kDefine = "<+define+_DEBUG><><>";

}  // namespace

TEST(ProjectSimLanguageConfigDefaults, DebuggingOwnVerilogSimulatorsDefinesAMacro) {
    for (int tool = 0; tool <= 30; ++tool) {
        const bool isOwn = tool >= 1 && tool <= 3;
        EXPECT_EQ(OptionsAfterReset(LANGUAGE_VERILOG, tool, true), isOwn ? kDefine : kNone) << tool;
        EXPECT_EQ(OptionsAfterReset(LANGUAGE_VERILOG, tool, false), kNone) << tool;
    }
}

TEST(ProjectSimLanguageConfigDefaults, VhdlHasItsSimulatorsAndReportsOthers) {
    const std::set<int> own = {4, 5, 6};
    const std::set<int> others = {8, 14, 16, 17, 18, 25, 29};
    RecordingLog log;
    for (int tool = 0; tool <= 30; ++tool)
        for (const bool debug : {false, true}) {
            EXPECT_EQ(OptionsAfterReset(LANGUAGE_VHDL, tool, debug),
                      own.count(tool) && debug ? kDefine : kNone)
                << tool;
            EXPECT_EQ(log.Take(), own.count(tool) || others.count(tool)
                                      ? ""
                                      : "projectsettingsconfigurationsdata(264): Check failed: "
                                        "\"false && \\\"Invalid Simulator\\\"\"\n")
                << tool;
        }
}

TEST(ProjectSimLanguageConfigDefaults, OtherLanguagesHaveTheSameForEverySimulator) {
    struct TRow {
        THdlLanguage Language;
        bool Debug;
        const char* Expected;
    };
    const char* release =
        "</MD /W3 /GR /GX /D NDEBUG /c>< /dll /machine:I386 /PDB:NONE kernel32.lib><>";
    const char* debug =
        "</Zi /MDd /W3 /GR /GX /Od /GZ /D _DEBUG /c>"
        "< /dll /debug /machine:I386 /PDB:NONE kernel32.lib><>";
    const char* specman = "<${SPECMAN_CFLAGS}><${SPECMAN_LOFLAGS}><>";
    const TRow rows[] = {
        {LANGUAGE_BLUESPECVERILOG, false, kNone},
        {LANGUAGE_BLUESPECVERILOG, true, kNone},
        {LANGUAGE_SYSTEMC, false, release},
        {LANGUAGE_SYSTEMC, true, debug},
        {LANGUAGE_CPLUSPLUS, false, release},
        {LANGUAGE_CPLUSPLUS, true, debug},
        {LANGUAGE_RESERVED5, true, kNone},
        {LANGUAGE_SPECMAN, false, specman},
        {LANGUAGE_SPECMAN, true, specman},
        {LANGUAGE_TESTBUILDER, false, kNone},
        {LANGUAGE_TESTBUILDER, true, kNone},
        {LANGUAGE_RESERVED8, true, kNone},
        {LANGUAGE_NONE, true, kNone},
    };
    RecordingLog log;
    for (const TRow& row : rows)
        for (const int tool : {0, 1, 4, 20, 26, 28})
            EXPECT_EQ(OptionsAfterReset(row.Language, tool, row.Debug), row.Expected)
                << row.Language << " " << tool << " " << row.Debug;
    EXPECT_EQ(log.Take(), "");
}

TEST(ProjectSimLanguageConfigDefaults, ResetsNothingButTheOptions) {
    TProjectSimLanguageConfig settings;
    FillLanguageConfig(settings);
    settings.ResetDefaultSettingsOptions(LANGUAGE_CPLUSPLUS, false);
    std::string expected = kFullLanguageConfig;
    expected.replace(expected.find("build="), std::string::npos,
                     "build=</MD /W3 /GR /GX /D NDEBUG /c> linker=< /dll /machine:I386 /PDB:NONE "
                     "kernel32.lib> runtime=<>\n");
    EXPECT_EQ(TextOf(settings), expected);
}

TEST(ProjectSimLanguageConfigDefaults, SetToolChangesNothingElse) {
    TProjectSimLanguageConfig settings;
    FillLanguageConfig(settings);
    settings.SetTool(SIM_ZORVIK_VERILOG);
    const std::string expected = Replaced(kFullLanguageConfig, "tool=20", "tool=1");
    EXPECT_EQ(TextOf(settings), expected);
}

TEST(ProjectSimLanguageConfigDefaults, LogsItsStepsWhileDiagnosticsAreEnabled) {
    RecordingLog log(1);
    TProjectSimLanguageConfig settings;
    settings.SetTool(SIM_MODELSIM_VERILOG);
    const std::string name = GetSimulatorNameFromType(SIM_MODELSIM_VERILOG);
    EXPECT_EQ(log.Take(), "[Default] --> TProjectSimLanguageConfig::SetTool(" + name +
                              ")\n"
                              "[Default] <-- TProjectSimLanguageConfig::SetTool(..)\n");
    settings.ResetDefaultSettingsOptions(LANGUAGE_VHDL, false);
    EXPECT_EQ(log.Take(),
              "[Default] --> TProjectSimLanguageConfig::ResetDefaultSettingsOptions()\n"
              "projectsettingsconfigurationsdata(264): Check failed: "
              "\"false && \\\"Invalid Simulator\\\"\"\n"
              "[Default] Language (as int): 1, simTool (as int): 11\n"
              "[Default] Language (as string): VHDL, simTool (as string): " +
                  name +
                  "\n"
                  "[Default] <-- TProjectSimLanguageConfig::ResetDefaultSettingsOptions(..)\n");
}

TEST(ProjectSimLanguageConfigDefaults, LogsNoStepsWhileDiagnosticsAreOff) {
    RecordingLog log;
    TProjectSimLanguageConfig settings;
    settings.SetTool(SIM_ZORVIK_VHDL);
    settings.ResetDefaultSettingsOptions(LANGUAGE_VHDL, true);
    EXPECT_EQ(log.Take(), "");
}
