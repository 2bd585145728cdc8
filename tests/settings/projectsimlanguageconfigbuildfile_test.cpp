#include "tests/settings/settingstext.h"
#include "tests/settings/writtenoptions.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include <gtest/gtest.h>

namespace {

using TConfig = TProjectSimLanguageConfig;

struct TExample {
    const char* Label;
    int Simulator;
    THdlLanguage Language;
    const char* Flags;
    TOptionTexts Before;
    TOptionTexts Written;
    TOptionTexts After;
};

const TExample kExamples[] = {
    {"blanks are reduced",
     1,
     LANGUAGE_VERILOG,
     "",
     {"+define+A  +incdir+inc+", "", "+go"},
     {"+define+A +incdir+inc+", "", "+go"},
     {"+define+A  +incdir+inc+", "", "+go"}},
    {"line debug",
     1,
     LANGUAGE_VERILOG,
     "D",
     {"+define+_DEBUG"},
     {"+define+_DEBUG", "--simz_options +linedebug"},
     {"+define+_DEBUG", " --simz_options +linedebug"}},
    {"64-bit VHDL without compiler",
     6,
     LANGUAGE_VHDL,
     "D",
     {"+define+_DEBUG"},
     {"+define+_DEBUG", "--simz_options +linedebug --qdx_usegcc"},
     {"+define+_DEBUG", " --simz_options +linedebug --qdx_usegcc"}},
    {"mode 2 merges",
     11,
     LANGUAGE_VERILOG,
     "",
     {"+define+A=1+B -y lib +libext+.v+.vo+", "+notimingchecks", "-l run.log +go=1"},
     {"+define+A=1+B -y lib +libext+.v+.vo", "+notimingchecks", "-l run.log +go=1"},
     {"+define+A=1+B -y lib +libext+.v+.vo+ +notimingchecks", "+notimingchecks",
      "-l run.log +go=1"}},
    {"mode 2, all empty",
     12,
     LANGUAGE_VERILOG,
     "D",
     {},
     {},
     {"  --simz_options +linedebug", " --simz_options +linedebug"}},
    {"mode 2, unknown words",
     11,
     LANGUAGE_VERILOG,
     "",
     {"+define+A +maxdelays -lint", "-t ns"},
     {"+define+A -lint", "+maxdelays -t ns"},
     {"+define+A +maxdelays -lint -t ns", "-t ns"}},
    {"mode 3 converts",
     20,
     LANGUAGE_VERILOG,
     "",
     {"+define+A=1+B +incdir+a+b+ -f files.f", "+notimingchecks", "-l sim.log -s +go"},
     {"-define A=1 -define B -incdir a -incdir b -file files.f", "-notimingchecks",
      "-logfile sim.log -tcl +go"},
     {"+define+A=1+B +incdir+a+b+ -f files.f", "+notimingchecks", "-l sim.log -s +go"}},
    {"line debug crosses stages",
     20,
     LANGUAGE_VERILOG,
     "D",
     {},
     {"-linedebug"},
     {"", " --simz_options +linedebug"}},
    {"forced, a simulator of another vendor",
     21,
     LANGUAGE_VERILOG,
     "DF",
     {"+define+A", "+maxdelays"},
     {"-define A", "-maxdelays"},
     {"+define+A", "+maxdelays --simz_options +linedebug"}},
    {"options cross stages",
     20,
     LANGUAGE_VERILOG,
     "",
     {"+typdelays +define+M=\"a b\"+N -y lib", "", "+nospecify +go"},
     {"-define M=\"a b\" -define N -y lib", "-typdelays -nospecify", "+go"},
     {"+typdelays +define+M=\"a b\"+N -y lib", "", "+nospecify +go"}},
    {"VHDL, mode 3",
     20,
     LANGUAGE_VHDL,
     "D",
     {"-93 +define+_DEBUG -work l1"},
     {"-v93 -work l1 -linedebug"},
     {"-93 +define+_DEBUG -work l1", " --simz_options +linedebug"}},
    {"VHDL, mode 2",
     13,
     LANGUAGE_VHDL,
     "",
     {"-93 +define+_DEBUG", "", "-i run.do"},
     {"-93", "", "-do run.do"},
     {"-93 +define+_DEBUG ", "", "-i run.do"}},
    {"options forced on one target",
     20,
     LANGUAGE_VERILOG,
     "",
     {"+delay_mode_path",
      "--ncsim_options \"-access +rwc\" --modelsim_options \"-t ps\" +notimingchecks"},
     {"", "-delay_mode path -notimingchecks -access +rwc"},
     {"+delay_mode_path",
      "--ncsim_options \"-access +rwc\" --modelsim_options \"-t ps\" +notimingchecks"}},
    {"options without counterpart",
     11,
     LANGUAGE_VERILOG,
     "D",
     {"+define+A", "--qdx_usegcc -t ns", "-s -k key.txt +notimingchecks"},
     {"+define+A", "-t ns +notimingchecks"},
     {"+define+A --qdx_usegcc -t ns --simz_options +linedebug",
      "--qdx_usegcc -t ns --simz_options +linedebug", "-s -k key.txt +notimingchecks"}},
    {"not supported, but merged",
     14,
     LANGUAGE_VHDL,
     "D",
     {"-93", "-t ns", "-do r.do"},
     {"-93 -t ns", "-t ns", "-do r.do"},
     {"-93 -t ns", "-t ns", "-do r.do"}},
    {"not supported, nothing changes",
     7,
     LANGUAGE_VERILOG,
     "D",
     {" +define+A  x", "-l", "-r "},
     {" +define+A  x", "-l", "-r "},
     {" +define+A  x", "-l", "-r "}},
    {"a language without conversion",
     1,
     LANGUAGE_CPLUSPLUS,
     "D",
     {"/c  /W3", " /dll"},
     {"/c  /W3", " /dll"},
     {"/c  /W3", " /dll"}},
};

void ExpectExample(const TExample& example) {
    TConfig settings;
    settings.SetTool(static_cast<TSimulatorType>(example.Simulator));
    SetOptions(settings, example.Before);
    EXPECT_EQ(TextOf(WrittenOptions(settings, example.Language, example.Flags)),
              TextOf(example.Written))
        << example.Label;
    EXPECT_EQ(TextOf(StoredOptions(settings)), TextOf(example.After)) << example.Label;
}

/// The linker options stored by a write for `simulator`.
std::string LinkerAfterWriting(int simulator, const TOptionTexts& before) {
    TConfig settings;
    settings.SetTool(static_cast<TSimulatorType>(simulator));
    SetOptions(settings, before);
    WrittenOptions(settings, LANGUAGE_VERILOG, "");
    return settings.GetLinkerOptions();
}

}  // namespace

TEST(ProjectSimLanguageConfigBuildFile, ConvertsWhatItWritesAndChangesWhatItStores) {
    const CppCompiler none("");
    for (const TExample& example : kExamples) ExpectExample(example);
}

TEST(ProjectSimLanguageConfigBuildFile, ElaboratesOnlyWhenModeThreeIsForced) {
    const CppCompiler compiler("cl");
    const TOptionTexts texts = {"+define+A", "-l e.log", "-s"};
    for (const int simulator : {1, 2, 3, 4, 5, 6}) {
        const TExample example = {"elaborate only",
                                  simulator,
                                  LANGUAGE_VERILOG,
                                  "F",
                                  texts,
                                  {"-l e.log", "-l e.log", "-s"},
                                  texts};
        ExpectExample(example);
    }
}

TEST(ProjectSimLanguageConfigBuildFile, ElaboratesOnlyAlsoWhereOptionsAreNotConverted) {
    const CppCompiler compiler("cl");
    const TOptionTexts texts = {"-c", "-e", "-r"};
    ExpectExample({"C++ settings", 1, LANGUAGE_CPLUSPLUS, "F", texts, {"-e", "-e", "-r"}, texts});
}

TEST(ProjectSimLanguageConfigBuildFile, ElaboratesOnlyWithLineDebugging) {
    const CppCompiler compiler("cl");
    for (const int simulator : {1, 2, 3, 4, 5, 6})
        ExpectExample({"line debug",
                       simulator,
                       LANGUAGE_VERILOG,
                       "DF",
                       {"-c", "-e", "-r"},
                       {"-e --simz_options +linedebug", "-e --simz_options +linedebug", "-r"},
                       {"-c", "-e --simz_options +linedebug", "-r"}});
}

TEST(ProjectSimLanguageConfigBuildFile, ForcingModeThreeKeepsTheMergeOfOtherSimulators) {
    const CppCompiler none("");
    for (const int simulator : {11, 12, 13}) {
        const TExample example = {"merged",
                                  simulator,
                                  LANGUAGE_VERILOG,
                                  "F",
                                  {"+define+A", "+maxdelays", "-r"},
                                  {"+define+A", "+maxdelays", "-r"},
                                  {"+define+A +maxdelays", "+maxdelays", "-r"}};
        ExpectExample(example);
    }
}

TEST(ProjectSimLanguageConfigBuildFile, EachWriteAddsLineDebugOnceMore) {
    TConfig settings;
    settings.SetTool(SIM_ZORVIK_VERILOG);
    WrittenOptions(settings, LANGUAGE_VERILOG, "D");
    EXPECT_EQ(TextOf(WrittenOptions(settings, LANGUAGE_VERILOG, "D")),
              "<><--simz_options +linedebug --simz_options +linedebug><>");
    EXPECT_EQ(TextOf(StoredOptions(settings)),
              "<>< --simz_options +linedebug --simz_options +linedebug><>");
}

TEST(ProjectSimLanguageConfigBuildFile, EachWriteMergesTheLinkerOptionsOnceMore) {
    TConfig settings;
    settings.SetTool(SIM_MODELSIM_VERILOG);
    SetOptions(settings, {"+define+A +maxdelays -lint", "-t ns"});
    const std::string first = TextOf(WrittenOptions(settings, LANGUAGE_VERILOG, ""));
    EXPECT_EQ(TextOf(WrittenOptions(settings, LANGUAGE_VERILOG, "")), first);
    EXPECT_EQ(TextOf(StoredOptions(settings)), "<+define+A +maxdelays -lint -t ns -t ns><-t ns><>");
}

TEST(ProjectSimLanguageConfigBuildFile, RepeatedWritesGiveTheSameTextsAlsoWithLineDebugging) {
    for (const char* linker : {"-t ns", ""}) {
        TConfig settings;
        settings.SetTool(SIM_MODELSIM_VERILOG);
        SetOptions(settings, {"-lint", linker});
        const std::string first = TextOf(WrittenOptions(settings, LANGUAGE_VERILOG, "D"));
        EXPECT_EQ(first, std::string("<-lint><") + linker + "><>");
        for (const char* flags : {"D", "", "D", "", "", "D", "D"})
            EXPECT_EQ(TextOf(WrittenOptions(settings, LANGUAGE_VERILOG, flags)), first) << linker;
    }
}

TEST(ProjectSimLanguageConfigBuildFile, KeepsBuildOptionsThatAreLinkerOptionsToo) {
    struct TRow {
        const char* Build;
        const char* Linker;
        const char* Written;
        const char* Stored;
    };
    const TRow rows[] = {
        {"+define+A -novopt", "-novopt", "<+define+A -novopt><-novopt><>",
         "+define+A -novopt -novopt"},
        {"-lint -64", "-64", "<-lint -64><-64><>", "-lint -64 -64"},
        {"-y lib", "lib", "<-y lib><lib><>", "-y lib lib"},
        {"-lint ", "", "<-lint><><>", "-lint  "},
    };
    for (const TSimulatorType simulator :
         {SIM_MODELSIM_VERILOG, SIM_MODELSIM_VERILOG_64, SIM_MODELSIM_VERILOG_SE})
        for (const TRow& row : rows) {
            TConfig settings;
            settings.SetTool(simulator);
            SetOptions(settings, {row.Build, row.Linker});
            EXPECT_EQ(TextOf(WrittenOptions(settings, LANGUAGE_VERILOG, "")), row.Written);
            EXPECT_STREQ(settings.GetBuildOptions(), row.Stored);
        }
}

TEST(ProjectSimLanguageConfigBuildFile, CopiesCarryTheBuildOptionsAsTyped) {
    TConfig settings;
    settings.SetTool(SIM_MODELSIM_VERILOG);
    SetOptions(settings, {"-lint -64", "-64"});
    WrittenOptions(settings, LANGUAGE_VERILOG, "");
    TConfig copy(settings);
    TConfig assigned;
    assigned.SetBuildOptions("-other");
    assigned = settings;
    for (TConfig* config : {&settings, &copy, &assigned}) {
        EXPECT_EQ(TextOf(WrittenOptions(*config, LANGUAGE_VERILOG, "")), "<-lint -64><-64><>");
        EXPECT_STREQ(config->GetBuildOptions(), "-lint -64 -64 -64");
    }
}

TEST(ProjectSimLanguageConfigBuildFile, ASetterAResetAndAReadReplaceTheBuildOptionsAsTyped) {
    const IniFiles ini;
    ini.Give("[s]\nSimTool=ModelSim Verilog\nModelSim Verilog_BuildOptions=-new\n");
    struct TRow {
        const char* Label;
        void (*Replace)(TConfig& settings);
        const char* Written;
    };
    const TRow rows[] = {
        {"setter", [](TConfig& settings) { settings.SetBuildOptions("-new"); }, "<-new><-64><>"},
        {"setter, with the stored text",
         [](TConfig& settings) { settings.SetBuildOptions(settings.GetBuildOptions()); },
         "<-lint -64><-64><>"},
        {"reset",
         [](TConfig& settings) { settings.ResetDefaultSettingsOptions(LANGUAGE_VERILOG, false); },
         "<><><>"},
        {"document",
         [](TConfig& settings) {
             TXMLList list;
             PushStart(&list, "LanguageSettings");
             PushTextElement(&list, "BuildOptions", "-new");
             PushEnd(&list, "LanguageSettings");
             TElementIterator element(list);
             settings.ReadFromFile(element, nullptr);
         },
         "<-new><-64><>"},
        {"INI", [](TConfig& settings) { settings.ReadFromINI("s", LANGUAGE_VERILOG, false); },
         "<-new><-64><>"},
    };
    for (const TRow& row : rows) {
        TConfig settings;
        settings.SetTool(SIM_MODELSIM_VERILOG);
        SetOptions(settings, {"-lint", "-64"});
        WrittenOptions(settings, LANGUAGE_VERILOG, "");
        row.Replace(settings);
        EXPECT_EQ(TextOf(WrittenOptions(settings, LANGUAGE_VERILOG, "")), row.Written) << row.Label;
    }
}

TEST(ProjectSimLanguageConfigBuildFile, WritesTheStoredTextWhereOptionsAreMergedButNotConverted) {
    TConfig settings;
    settings.SetTool(SIM_MODELSIM_VHDL);
    SetOptions(settings, {"-93", "-t ns"});
    WrittenOptions(settings, LANGUAGE_VHDL, "");
    EXPECT_EQ(TextOf(WrittenOptions(settings, LANGUAGE_VHDL, "")), "<-93 -t ns -t ns><-t ns><>");
    EXPECT_EQ(TextOf(StoredOptions(settings)), "<-93 -t ns -t ns><-t ns><>");
}

TEST(ProjectSimLanguageConfigBuildFile, NamesGccForThe64BitSimulatorsOnly) {
    const CppCompiler none("");
    for (int simulator = 1; simulator <= 30; ++simulator)
        EXPECT_EQ(LinkerAfterWriting(simulator, {}),
                  simulator == 3 || simulator == 6 ? " --qdx_usegcc" : "")
            << simulator;
}

TEST(ProjectSimLanguageConfigBuildFile, NamesGccOnlyWhereNothingElseNamesACompiler) {
    struct TRow {
        const char* Label;
        const char* Compiler;
        TOptionTexts Before;
        const char* Expected;
    };
    const TRow rows[] = {
        {"nothing", "", {}, " --qdx_usegcc"},
        {"compiler named", "cl", {}, ""},
        {"build options", "", {"--QDX_UseGcc"}, ""},
        {"linker options", "", {"", "x --qdx_usegcc=no"}, "x --qdx_usegcc=no"},
        {"runtime options do not count", "", {"", "x", "--qdx_usegcc"}, "x --qdx_usegcc"},
    };
    for (const TRow& row : rows) {
        const CppCompiler compiler(row.Compiler);
        EXPECT_EQ(LinkerAfterWriting(SIM_ZORVIK_VERILOG_64, row.Before), row.Expected) << row.Label;
    }
}

TEST(ProjectSimLanguageConfigBuildFile, LineDebugIsStoredForSupportedPairsOnly) {
    const std::set<int> supported = {1, 2, 3, 4, 5, 6, 11, 12, 13, 20, 21};
    const CppCompiler compiler("cl");
    for (int language = 0; language <= 9; ++language)
        for (int simulator = 1; simulator <= 30; ++simulator) {
            TConfig settings;
            settings.SetTool(static_cast<TSimulatorType>(simulator));
            WrittenOptions(settings, static_cast<THdlLanguage>(language), "D");
            const bool isSupported = language <= 1 && supported.count(simulator);
            EXPECT_STREQ(settings.GetLinkerOptions(),
                         isSupported ? " --simz_options +linedebug" : "")
                << language << " " << simulator;
        }
}

TEST(ProjectSimLanguageConfigBuildFile, ModeTwoSimulatorsMergeInEveryLanguage) {
    const std::set<int> merging = {8, 9, 11, 12, 13, 14, 15, 16, 17};
    const CppCompiler compiler("cl");
    for (int simulator = 1; simulator <= 30; ++simulator) {
        TConfig settings;
        settings.SetTool(static_cast<TSimulatorType>(simulator));
        SetOptions(settings, {"b", "l"});
        WrittenOptions(settings, LANGUAGE_TESTBUILDER, "");
        EXPECT_STREQ(settings.GetBuildOptions(), merging.count(simulator) ? "b l" : "b")
            << simulator;
    }
}

TEST(ProjectSimLanguageConfigBuildFile, TheProjectFileFormTakesTheTextsUnchanged) {
    const CppCompiler none("");
    for (const int simulator : {1, 6, 11, 14, 20}) {
        TConfig settings;
        settings.SetTool(static_cast<TSimulatorType>(simulator));
        SetOptions(settings, {" +define+A  -u", "+maxdelays ", "-s"});
        TXMLList list;
        settings.WriteToProjectFile(&list, LANGUAGE_VERILOG, false, true, true);
        EXPECT_EQ(TextOf(OptionsIn(list)), "< +define+A  -u><+maxdelays ><-s>") << simulator;
        EXPECT_EQ(TextOf(StoredOptions(settings)), "< +define+A  -u><+maxdelays ><-s>")
            << simulator;
    }
}

TEST(ProjectSimLanguageConfigBuildFile, ChangesOnlyTheOptions) {
    TConfig settings;
    FillLanguageConfig(settings);
    WrittenOptions(settings, LANGUAGE_VERILOG, "D");
    const std::string expected =
        Replaced(kFullLanguageConfig, "< -l 2>", "< -l 2 --simz_options +linedebug>");
    EXPECT_EQ(TextOf(settings), expected);
}
