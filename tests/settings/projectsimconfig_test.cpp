#include "settings/projectsimconfig.h"
#include "sibling/utilities/xmlstream.h"
#include "tests/settings/configurationtext.h"
#include "tests/settings/settingstext.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

namespace {

using TConfig = TProjectSimConfig;

constexpr const char* kLanguageCheck =
    "Check failed: \"language == LANGUAGE_VERILOG || language == LANGUAGE_VHDL || "
    "language == LANGUAGE_BLUESPECVERILOG || language == LANGUAGE_SYSTEMC || "
    "language == LANGUAGE_CPLUSPLUS || language == LANGUAGE_TESTBUILDER\"\n";
constexpr const char* kStoreCheck = "projectsettingsconfigurations(142): ";
constexpr const char* kResetCheck = "projectsettingsconfigurations(207): ";
constexpr const char* kMissingCheck =
    "projectsettingsconfigurations(214): Check failed: \"simSetting\"\n";
constexpr const char* kInvalidElement =
    "projectsettingsconfigurations(318): Check failed: \"(elemI.NotAtTail() && "
    "(elemI.Current()->ElemType == TElement::START) && "
    "!strcmp(elemI.Current()->Name, \\\"ProjectSettingsConfiguration\\\") ) && "
    "\\\"TProjectSimConfig::ReadFromFile was called on an invalid element.\\\"\"\n";

const THdlLanguage kStored[] = {LANGUAGE_VERILOG, LANGUAGE_VHDL, LANGUAGE_BLUESPECVERILOG,
                                LANGUAGE_CPLUSPLUS, LANGUAGE_TESTBUILDER};

/// Reads `elements` into `configuration` with a project file on a drive. Gives the result and the
/// element at which the reader stopped.
std::string Read(TConfig& configuration, const std::string& elements) {
    TXMLList list;
    PushElements(&list, elements);
    TElementIterator element(list);
    const bool result = configuration.ReadFromFile(element, FileNamed("D:\\p\\x.hpj"));
    return std::string(result ? "true" : "false") + " at " + ElementAt(element);
}

std::string Language(const std::string& name, const std::string& content) {
    return "START LanguageSettings Language=" + name + "\n" + content + "END LanguageSettings\n";
}

std::string Element(const std::string& name, const std::string& text) {
    return "START " + name + "\nTEXT " + text + "\nEND " + name + "\n";
}

std::string Tool(TSimulatorType tool) {
    return Element("SimTool", GetSimulatorNameFromType(tool));
}

const std::string kWrittenGeneral =
    "START GeneralConfiguration LogFileName=simulation.log AddTopLevelSignals=true"
    " ShowWatchSignals=true DumpWatchSignals=false BreakAtTimeZeroAfterCompile=false"
    " ClearLogFileBeforeCompile=true AutoParseProject=false GenerateTestBenchOnBuildProject=true"
    " DisablePeriodicWaveformUpdate=false CompileVerilogFiles=false CompileVHDLFiles=false"
    " CompileCppFiles=false MakeConstantsWatchable=true MakeArrayElementsWatchable=false"
    " WatchableArrayElementSize=0 EnableSimulatorDebugging=true\n"
    "END GeneralConfiguration\n";

/// What a language writes after its simulator and lists, with these options.
std::string WrittenSettings(const std::string& build, const std::string& linker) {
    return Element("UseVhdl93Defaults", "true") + Element("DelayType", "1") +
           Element("PliDriven", "false") + Element("ActiveSnapshotName", "") +
           Element("DestinationLibraryName", "work") + Element("AdditionalExtensions", "") +
           Element("BuildOptions", build) + Element("LinkerOptions", linker) +
           Element("RuntimeOptions", "") + Element("RunOutputFileExecutable", "false") +
           Element("ForceTopLevel", "false");
}

}  // namespace

TEST(ProjectSimConfig, BeginsWithTheDefaultsOfEveryStoredLanguage) {
    EXPECT_EQ(TextOf(TConfig(false)), ConfigurationDefaults("", false));
    EXPECT_EQ(TextOf(TConfig(true)), ConfigurationDefaults("", true));
    const TConfig configuration(false);
    for (const int language : {3, 5, 6, 8, 9})
        EXPECT_EQ(configuration.GetProjectLanguageConfig(static_cast<THdlLanguage>(language)),
                  nullptr)
            << language;
}

TEST(ProjectSimConfig, ANullPointerGivesAnEmptyConfiguration) {
    const std::string empty = std::string("name=\n") + kGeneralDefaults;
    EXPECT_EQ(TextOf(TConfig(nullptr)), empty);
    EXPECT_EQ(TextOf(TConfig(static_cast<const TConfig*>(nullptr))), empty);
}

TEST(ProjectSimConfig, TakesItsOwnNameAndNull) {
    TConfig configuration(nullptr);
    configuration.SetName("a name that is too long to be kept in a string itself");
    configuration.SetName(configuration.GetName());
    EXPECT_STREQ(configuration.GetName(), "a name that is too long to be kept in a string itself");
    configuration.SetName(configuration.GetName() + 2);
    EXPECT_STREQ(configuration.GetName(), "name that is too long to be kept in a string itself");
    configuration.SetName(nullptr);
    EXPECT_STREQ(configuration.GetName(), "");
}

TEST(ProjectSimConfig, CopiesTheGeneralSettingsItIsGiven) {
    TProjectSimGeneralConfig general;
    general.SetLogFileName("x.log");
    TConfig configuration(nullptr);
    configuration.SetGeneralConfiguration(general);
    EXPECT_STREQ(configuration.GetGeneralConfiguration()->GetSimulationLogFileName(), "x.log");
    general.SetLogFileName("y.log");
    EXPECT_STREQ(configuration.GetGeneralConfiguration()->GetSimulationLogFileName(), "x.log");
    configuration.SetGeneralConfiguration(&general);
    EXPECT_STREQ(std::as_const(configuration).GetGeneralConfiguration()->GetSimulationLogFileName(),
                 "y.log");
    configuration.SetGeneralConfiguration(static_cast<TProjectSimGeneralConfig*>(nullptr));
    EXPECT_STREQ(configuration.GetGeneralConfiguration()->GetSimulationLogFileName(), "y.log");
}

TEST(ProjectSimConfig, OwnsTheLanguageSettingsItIsGiven) {
    TConfig configuration(false);
    auto* settings = new TProjectSimLanguageConfig;
    configuration.SetProjectSettings(LANGUAGE_VHDL, settings);
    EXPECT_EQ(configuration.GetProjectLanguageConfig(LANGUAGE_VHDL), settings);
    configuration.SetProjectSettings(LANGUAGE_VHDL, settings);
    configuration.SetProjectSettings(LANGUAGE_VHDL, nullptr);
    EXPECT_EQ(std::as_const(configuration).GetProjectLanguageConfig(LANGUAGE_VHDL), settings);
    EXPECT_EQ(TextOf(*settings), kLanguageDefaults);
}

TEST(ProjectSimConfig, KeepsSettingsOfOtherLanguagesWithoutWritingThem) {
    for (int language = 0; language <= 9; ++language) {
        RecordingLog log;
        TConfig configuration(nullptr);
        auto* settings = new TProjectSimLanguageConfig;
        settings->SetTool(SIM_GCC);
        configuration.SetProjectSettings(static_cast<THdlLanguage>(language), settings);
        const bool isValid = language < 5 || language == 7;
        EXPECT_EQ(log.Take(), isValid ? "" : std::string(kStoreCheck) + kLanguageCheck) << language;
        EXPECT_EQ(configuration.GetProjectLanguageConfig(static_cast<THdlLanguage>(language)),
                  settings)
            << language;
        TXMLList list;
        configuration.WriteToProjectFile(&list);
        TElementIterator element(list);
        EXPECT_EQ(TXMLList::FindNext(element, "LanguageSettings", nullptr),
                  isValid && language != LANGUAGE_SYSTEMC)
            << language;
    }
}

TEST(ProjectSimConfig, CopiesNameAndSettingsIntoObjectsOfItsOwn) {
    TConfig configuration(true);
    configuration.SetName("Release");
    configuration.GetGeneralConfiguration()->SetLogFileName("x.log");
    FillLanguageConfig(*configuration.GetProjectLanguageConfig(LANGUAGE_VERILOG));
    auto* proxy = reinterpret_cast<ICorbaProxy*>(&configuration);
    configuration.SetCorbaProxy(proxy);
    const std::string full = TextOf(configuration);
    std::string expected = full;
    expected.replace(expected.find("vcd=D:\\p\\dump.vcd"), 17, "vcd=null");

    const TConfig copy(configuration);
    const TConfig pointed(&configuration);
    TConfig assigned(false);
    assigned = configuration;
    const TConfig* copies[] = {&copy, &pointed, &assigned};
    for (const TConfig* each : copies) {
        EXPECT_EQ(TextOf(*each), expected);
        EXPECT_EQ(each->GetCorbaProxy(), nullptr);
        EXPECT_NE(each->GetProjectLanguageConfig(LANGUAGE_VERILOG),
                  configuration.GetProjectLanguageConfig(LANGUAGE_VERILOG));
    }
    const TConfig& same = configuration;
    configuration = same;
    EXPECT_EQ(TextOf(configuration), full);
}

TEST(ProjectSimConfig, AssignmentForgetsLanguagesThatTheSourceLacks) {
    TConfig configuration(false);
    configuration = TConfig(nullptr);
    EXPECT_EQ(TextOf(configuration), std::string("name=\n") + kGeneralDefaults);
}

TEST(ProjectSimConfig, AnswersRemoteClientsThroughItsInterface) {
    TConfig configuration(false);
    configuration.SetName("Release");
    ICorbaProjectSimSettingsConfigurationImpl& remote = configuration;
    EXPECT_EQ(remote.GetCorbaConfigurationName(), "Release");
    for (const THdlLanguage language : kStored)
        EXPECT_EQ(remote.GetCorbaProjectSimLanguageSettings(GetStringFromHdlLanguage(language)),
                  static_cast<ICorbaProjectSimLanguageSettingsImpl*>(
                      configuration.GetProjectLanguageConfig(language)))
            << language;
    EXPECT_EQ(remote.GetCorbaProjectSimLanguageSettings("SystemC"), nullptr);
    EXPECT_EQ(remote.GetCorbaProjectSimLanguageSettings("unknown"), nullptr);
    EXPECT_EQ(remote.GetCorbaProjectSimLanguageSettings(nullptr), nullptr);
}

TEST(ProjectSimConfig, KeepsTheOrderOfItsVirtualOperations) {
    EXPECT_EQ(TableEntryOf(&TConfig::GetCorbaProjectSimLanguageSettings) -
                  TableEntryOf(&TConfig::GetCorbaConfigurationName),
              1);
}

TEST(ProjectSimConfig, PassesTheProjectFileToEveryLanguage) {
    TConfig configuration(false);
    configuration.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    for (const THdlLanguage language : kStored) {
        const auto* settings = configuration.GetProjectLanguageConfig(language);
        EXPECT_EQ(settings->GetProjectFileName(), FileNamed("D:\\p\\x.hpj")) << language;
        const bool isCpp = language == LANGUAGE_CPLUSPLUS || language == LANGUAGE_TESTBUILDER;
        EXPECT_EQ(Joined(settings->GetIncludeDirectories()), isCpp ? "" : "<D:\\p>") << language;
    }
    EXPECT_EQ(
        Joined(configuration.GetProjectLanguageConfig(LANGUAGE_VERILOG)->GetLibraryDirectories()),
        "<D:\\p\\lib\\verilog><D:\\p\\lib>");
}

TEST(ProjectSimConfig, ResetEmptiesTheNameAndEverySetting) {
    TConfig configuration(false);
    configuration.SetName("Release");
    configuration.GetGeneralConfiguration()->SetLogFileName("x.log");
    FillLanguageConfig(*configuration.GetProjectLanguageConfig(LANGUAGE_CPLUSPLUS));
    configuration.SetProjectSettings(LANGUAGE_SYSTEMC, new TProjectSimLanguageConfig);
    configuration.Reset(true);
    EXPECT_EQ(TextOf(configuration), ConfigurationDefaults("", true));
}

TEST(ProjectSimConfig, ResetToDefaultsKeepsTheName) {
    TConfig configuration(true);
    configuration.SetName("Release");
    configuration.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    configuration.GetGeneralConfiguration()->SetLogFileName("x.log");
    FillLanguageConfig(*configuration.GetProjectLanguageConfig(LANGUAGE_CPLUSPLUS));
    configuration.ResetSettingsToDefaults(false);
    EXPECT_EQ(TextOf(configuration), ConfigurationDefaults("Release", false));
}

TEST(ProjectSimConfig, ResetsOneLanguage) {
    struct TRow {
        THdlLanguage Language;
        const char* Expected;
    };
    // Over full settings of another simulator, with debugging.
    const TRow rows[] = {
        {LANGUAGE_VERILOG,
         "tool=1 delay=2 pli vcdexport run force\n"
         "include=<./>\nlibrary=<lib/verilog><lib>\nextensions=<.v><.vo>\n"
         "output=<bench.exe> additional=<.svp> snapshot=<snap> destination=<gates>\n"
         "build=<+define+_DEBUG> linker=<> runtime=<>\n"},
        {LANGUAGE_VHDL,
         "tool=4 delay=2 pli vcdexport run force\n"
         "include=<./>\nlibrary=<E:\\lib\\>\nextensions=<.v><.vo>\n"
         "output=<bench.exe> additional=<.svp> snapshot=<snap> destination=<gates>\n"
         "build=<+define+_DEBUG> linker=<> runtime=<>\n"},
        {LANGUAGE_BLUESPECVERILOG,
         "tool=10 delay=2 pli vcdexport run force\n"
         "include=<./>\nlibrary=<E:\\lib\\>\nextensions=<.v><.vo>\n"
         "output=<bench.exe> additional=<.svp> snapshot=<snap> destination=<gates>\n"
         "build=<> linker=<> runtime=<>\n"},
        {LANGUAGE_SYSTEMC,
         "tool=0 delay=2 pli vcdexport run force\n"
         "include=<./>\nlibrary=<E:\\lib\\>\nextensions=<.v><.vo>\n"
         "output=<bench.exe> additional=<.svp> snapshot=<snap> destination=<gates>\n"
         "build=</Zi /MDd /W3 /GR /GX /Od /GZ /D _DEBUG /c> "
         "linker=< /dll /debug /machine:I386 /PDB:NONE kernel32.lib> runtime=<>\n"},
        {LANGUAGE_CPLUSPLUS,
         "tool=26 delay=2 pli vcdexport run force\n"
         "include=<D:\\p\\inc><${IP}/inc>\nlibrary=<E:\\lib\\>\nextensions=<.v><.vo>\n"
         "output=<bench.exe> additional=<.svp> snapshot=<snap> destination=<gates>\n"
         "build=</Zi /MDd /W3 /GR /GX /Od /GZ /D _DEBUG /c> "
         "linker=< /dll /debug /machine:I386 /PDB:NONE kernel32.lib> runtime=<>\n"},
        {LANGUAGE_TESTBUILDER,
         "tool=26 delay=2 pli vcdexport run force\n"
         "include=<D:\\p\\inc><${IP}/inc>\nlibrary=<E:\\lib\\>\nextensions=<.v><.vo>\n"
         "output=<bench.exe> additional=<.svp> snapshot=<snap> destination=<gates>\n"
         "build=<> linker=<> runtime=<>\n"},
    };
    RecordingLog log;
    for (const TRow& row : rows) {
        TConfig configuration(nullptr);
        auto* settings = new TProjectSimLanguageConfig;
        FillLanguageConfig(*settings);
        configuration.SetProjectSettings(row.Language, settings);
        for (int times = 0; times < 2; ++times) {
            configuration.ResetLanguageSettingsToDefaults(row.Language, true);
            EXPECT_EQ(TextOf(*settings),
                      std::string("project=D:\\p\\design.hpj vcd=D:\\p\\dump.vcd\n") + row.Expected)
                << row.Language;
        }
    }
    EXPECT_EQ(log.Take(), "");
}

TEST(ProjectSimConfig, ReportsALanguageThatCannotBeReset) {
    RecordingLog log;
    TConfig configuration(nullptr);
    configuration.ResetLanguageSettingsToDefaults(LANGUAGE_VHDL, false);
    EXPECT_EQ(log.Take(), kMissingCheck);
    configuration.ResetLanguageSettingsToDefaults(LANGUAGE_SYSTEMC, false);
    EXPECT_EQ(log.Take(), kMissingCheck);
    configuration.ResetLanguageSettingsToDefaults(LANGUAGE_SPECMAN, false);
    EXPECT_EQ(log.Take(), std::string(kResetCheck) + kLanguageCheck + kMissingCheck);
    EXPECT_EQ(TextOf(configuration), std::string("name=\n") + kGeneralDefaults);

    auto* settings = new TProjectSimLanguageConfig;
    configuration.SetProjectSettings(LANGUAGE_SPECMAN, settings);
    log.Take();
    configuration.ResetLanguageSettingsToDefaults(LANGUAGE_SPECMAN, false);
    EXPECT_EQ(log.Take(), std::string(kResetCheck) + kLanguageCheck);
    EXPECT_EQ(TextOf(*settings),
              "project=null vcd=null\n"
              "tool=28 delay=1 toplevel vhdl93\n"
              "include=<./>\nlibrary=\nextensions=\n"
              "output=<> additional=<> snapshot=<> destination=<work>\n"
              "build=<${SPECMAN_CFLAGS}> linker=<${SPECMAN_LOFLAGS}> runtime=<>\n");
}

TEST(ProjectSimConfig, WritesGeneralAndLanguageSettingsInOrder) {
    TConfig configuration(false);
    configuration.SetName("Release");
    const std::string include =
        "START IncludeDirectories\n" + Element("Directory", "./") + "END IncludeDirectories\n";
    const std::string libraries =
        "START LibraryDirectories\n" + Element("Directory", "lib/verilog") +
        Element("Directory", "lib") + "END LibraryDirectories\nSTART LibraryExtensions\n" +
        Element("Extension", ".v") + Element("Extension", ".vo") + "END LibraryExtensions\n";
    EXPECT_EQ(
        ElementsWrittenBy([&](TXMLList* list) { configuration.WriteToProjectFile(list); }),
        "START ProjectSettingsConfiguration ConfigurationName=Release\n" + kWrittenGeneral +
            Language("Verilog",
                     Tool(SIM_ZORVIK_VERILOG) + include + libraries + WrittenSettings("", "")) +
            Language("VHDL", Tool(SIM_ZORVIK_VHDL) + include + WrittenSettings("", "")) +
            Language("Bluespec", Tool(SIM_BLUESPEC) + include + WrittenSettings("", "")) +
            Language("C++", Tool(SIM_MICROSOFT_CPP) +
                                WrittenSettings("/MD /W3 /GR /GX /D NDEBUG /c",
                                                " /dll /machine:I386 /PDB:NONE kernel32.lib")) +
            Language("TestBuilder", Tool(SIM_MICROSOFT_CPP) + WrittenSettings("", "")) +
            "END ProjectSettingsConfiguration\n");
}

TEST(ProjectSimConfig, WritesOnlyTheLanguagesItHolds) {
    TConfig configuration(nullptr);
    TXMLList list;
    configuration.WriteToProjectFile(&list);
    EXPECT_EQ(ElementsOf(list), "START ProjectSettingsConfiguration ConfigurationName=\n" +
                                    kWrittenGeneral + "END ProjectSettingsConfiguration\n");
    configuration.WriteToProjectFile(nullptr);
}

TEST(ProjectSimConfig, ReadsBackWhatItWrote) {
    TConfig configuration(true);
    configuration.SetName("Release");
    configuration.SetProjectFileName(FileNamed("D:\\p\\x.hpj"));
    configuration.GetGeneralConfiguration()->SetDumpWatchSignals(true);
    for (const THdlLanguage language : kStored)
        configuration.GetProjectLanguageConfig(language)->AddIncludeDirectory("inc", true);
    TXMLList list;
    list.SetFileName("D:\\p\\x.hpj");
    configuration.WriteToProjectFile(&list);
    TElementIterator element(list);
    TConfig read(nullptr);
    EXPECT_TRUE(read.ReadFromFile(element, FileNamed("D:\\p\\x.hpj")));
    EXPECT_FALSE(element.NotAtTail());
    EXPECT_EQ(TextOf(read), TextOf(configuration));
}

TEST(ProjectSimConfig, ReadsIntoTheSettingsThereAre) {
    TConfig configuration(false);
    EXPECT_EQ(Read(configuration,
                   "START ProjectSettingsConfiguration ConfigurationName=New\n" +
                       Language("Verilog", Tool(SIM_VCS) +
                                               "START LibraryExtensions\nSTART Extension\n"
                                               "TEXT .x\nEND Extension\nEND LibraryExtensions\n") +
                       "END ProjectSettingsConfiguration\nSTART Next\n"),
              "true at START Next");
    std::string expected = ConfigurationDefaults("New", false);
    const auto replace = [&expected](const std::string& from, const std::string& to) {
        expected.replace(expected.find(from), from.size(), to);
    };
    replace("project=null", "project=D:\\p\\x.hpj");
    replace("tool=1 ", "tool=22 ");
    replace("<.vo>", "<.vo><.x>");
    EXPECT_EQ(TextOf(configuration), expected);
}

TEST(ProjectSimConfig, ReplacesASimulatorThatDoesNotSupportItsLanguage) {
    struct TRow {
        const char* Language;
        std::string Content;
        int Expected;
    };
    const TRow rows[] = {
        {"Verilog", Tool(SIM_NC_VERILOG), SIM_NC_VERILOG},
        {"Verilog", Tool(SIM_NC_VHDL), SIM_ZORVIK_VERILOG},
        {"VHDL", Tool(SIM_NC_VHDL), SIM_NC_VHDL},
        {"VHDL", Tool(SIM_NC_VERILOG), SIM_ZORVIK_VHDL},
        {"VHDL", "", SIM_ZORVIK_VHDL},
        {"Bluespec", Tool(SIM_GCC), SIM_BLUESPEC},
        {"C++", Tool(SIM_GCC), SIM_GCC},
        {"C++", Tool(SIM_BLUESPEC), SIM_MICROSOFT_CPP},
        {"TestBuilder", "START SimTool\nTEXT unknown\nEND SimTool\n", SIM_MICROSOFT_CPP},
    };
    for (const TRow& row : rows) {
        RecordingLog log;
        TConfig configuration(nullptr);
        EXPECT_EQ(Read(configuration, "START ProjectSettingsConfiguration\n" +
                                          Language(row.Language, row.Content) +
                                          "END ProjectSettingsConfiguration\n"),
                  "true at TAIL");
        const auto* settings =
            configuration.GetProjectLanguageConfig(GetHdlLanguageFromString(row.Language));
        ASSERT_NE(settings, nullptr) << row.Language << row.Content;
        EXPECT_EQ(settings->GetTool(), row.Expected) << row.Language << row.Content;
        EXPECT_EQ(Joined(settings->GetIncludeDirectories()), "<D:\\p\\>")
            << row.Language << row.Content;
    }
}

TEST(ProjectSimConfig, AStoredIncludeListKeepsTheProjectDirectoryOut) {
    TConfig configuration(nullptr);
    EXPECT_EQ(Read(configuration,
                   "START ProjectSettingsConfiguration\n" +
                       Language("VHDL",
                                "START IncludeDirectories\nSTART Directory\nTEXT a\nEND Directory\n"
                                "END IncludeDirectories\n") +
                       "END ProjectSettingsConfiguration\n"),
              "true at TAIL");
    EXPECT_EQ(
        Joined(configuration.GetProjectLanguageConfig(LANGUAGE_VHDL)->GetIncludeDirectories()),
        "<D:\\p\\a>");
}

TEST(ProjectSimConfig, ReadsPastLanguagesThatAreNotStored) {
    for (const char* name : {"SystemC", "Language5", "Specman", "Language8", "None", "Unknown"}) {
        TConfig configuration(nullptr);
        EXPECT_EQ(
            Read(configuration,
                 "START ProjectSettingsConfiguration\n" + Language(name, Tool(SIM_GCC)) +
                     Language("VHDL", Tool(SIM_NC_VHDL)) + "END ProjectSettingsConfiguration\n"),
            "true at TAIL")
            << name;
        for (int language = 0; language <= 9; ++language)
            EXPECT_EQ(configuration.GetProjectLanguageConfig(static_cast<THdlLanguage>(language)) !=
                          nullptr,
                      language == LANGUAGE_VHDL)
                << name << language;
    }
}

TEST(ProjectSimConfig, ARepeatedLanguageIsReadIntoTheSameSettings) {
    TConfig configuration(nullptr);
    EXPECT_EQ(Read(configuration,
                   "START ProjectSettingsConfiguration\n" + Language("VHDL", Tool(SIM_NC_VHDL)) +
                       Language("VHDL", "START PliDriven\nTEXT true\nEND PliDriven\n") +
                       "END ProjectSettingsConfiguration\n"),
              "true at TAIL");
    const auto* settings = configuration.GetProjectLanguageConfig(LANGUAGE_VHDL);
    EXPECT_EQ(settings->GetTool(), SIM_NC_VHDL);
    EXPECT_TRUE(settings->GetPliDriven());
}

TEST(ProjectSimConfig, StepsThroughWhatItDoesNotKnow) {
    TConfig configuration(nullptr);
    EXPECT_EQ(Read(configuration,
                   "START ProjectSettingsConfiguration ConfigurationName=N\nTEXT stray\n"
                   "START Unknown\nSTART GeneralConfiguration LogFileName=x.log\n"
                   "END GeneralConfiguration\nEND Unknown\nEND Other\n"
                   "END ProjectSettingsConfiguration\nEND Outer\n"),
              "true at END Outer");
    EXPECT_EQ(TextOf(configuration),
              "name=N\nlog=x.log\n"
              "top show dump break clear parse bench constants debugging size=0\n");
}

TEST(ProjectSimConfig, KeepsWhatItReadBeforeABreak) {
    struct TRow {
        const char* Label;
        std::string Elements;
        const char* Result;
        const char* Name;
        std::string Log;
        bool HasVhdl;
    };
    const std::string start = "START ProjectSettingsConfiguration ConfigurationName=N\n";
    const std::string vhdl = Language("VHDL", Tool(SIM_NC_VHDL));
    const TRow rows[] = {
        {"nothing", "", "false at TAIL", "old", kInvalidElement, false},
        {"another element", "START ProjectSettings\n", "false at START ProjectSettings", "old",
         kInvalidElement, false},
        {"its end", "END ProjectSettingsConfiguration\n",
         "false at END ProjectSettingsConfiguration", "old", kInvalidElement, false},
        {"cut after the start", start, "false at TAIL", "N", "", false},
        {"cut after a language", start + vhdl, "false at TAIL", "N", "", true},
        {"cut in a language", start + "START LanguageSettings Language=VHDL\n", "false at TAIL",
         "N", "", true},
        {"language missing", start + vhdl + "START LanguageSettings\nEND LanguageSettings\n",
         "false at START LanguageSettings", "N", "", true},
        {"language empty", start + "START LanguageSettings Language=\n",
         "false at START LanguageSettings Language=", "N", "", false},
        {"broken list",
         start + Language("VHDL", "START IncludeDirectories\nEND IncludeDirectories\n") + vhdl,
         "false at END IncludeDirectories", "N", "", true},
        {"name missing", "START ProjectSettingsConfiguration\nEND ProjectSettingsConfiguration\n",
         "true at TAIL", "", "", false},
    };
    for (const TRow& row : rows) {
        RecordingLog log;
        TConfig configuration(nullptr);
        configuration.SetName("old");
        EXPECT_EQ(Read(configuration, row.Elements), row.Result) << row.Label;
        EXPECT_STREQ(configuration.GetName(), row.Name) << row.Label;
        EXPECT_EQ(configuration.GetProjectLanguageConfig(LANGUAGE_VHDL) != nullptr, row.HasVhdl)
            << row.Label;
        EXPECT_EQ(log.Take(), row.Log) << row.Label;
    }
}

TEST(ProjectSimConfig, WritesASectionForEachLanguage) {
    const IniFiles ini;
    TConfig configuration(nullptr);
    configuration.SetName("My Config");
    for (const THdlLanguage language : kStored) {
        configuration.SetProjectSettings(language, new TProjectSimLanguageConfig);
        configuration.GetProjectLanguageConfig(language)->SetTool(SIM_VCS);
    }
    configuration.WriteToINI();
    const std::string name = GetSimulatorNameFromType(SIM_VCS);
    const auto keys = [&name](const std::string& section, const std::string& verilog,
                              const std::string& testBuilder) {
        return "\n[" + section + "]\nSimTool=" + name + "\n" + verilog + name +
               "_ActiveSnapshotName=\n" + name + "_DestinationLibraryName=work\n" + testBuilder +
               name + "_AdditionalExtensions=\n" + name + "_BuildOptions=\n" + name +
               "_LinkerOptions=\n" + name + "_RuntimeOptions=\n";
    };
    EXPECT_EQ(ini.Saved(),
              "[My Config_GeneralConfiguration]\n"
              "AddTopLevelSignals=true\nShowWatchSignals=true\nDumpWatchSignals=false\n"
              "BreakAtTimeZeroAfterCompile=false\nClearLogFileBeforeCompile=true\n"
              "AutoParseProject=false\nGenerateTestBenchOnBuildProject=true\n"
              "DisablePeriodicWaveformUpdate=false\nCompileVerilogFiles=false\n"
              "CompileVHDLFiles=false\nCompileCppFiles=false\nLogFileName=simulation.log\n"
              "MakeConstantsWatchable=true\nMakeArrayElementsWatchable=false\n"
              "WatchableArrayElementSize=0\nEnableSimulatorDebugging=true\n" +
                  keys("My ConfigVerilogSettingsConfiguration",
                       name + "_UseVhdl93Defaults=true\n" + name + "_DelayType=typical\n" + name +
                           "_PliDriven=false\n",
                       "") +
                  keys("My ConfigVHDLSettingsConfiguration", "", "") +
                  keys("My ConfigBluespecSettingsConfiguration", "", "") +
                  keys("My ConfigC++SettingsConfiguration", "", "") +
                  keys("My ConfigTestBuilderSettingsConfiguration", "",
                       name + "_RunOutputFileExecutable=false\n" + name + "_OutputFileName=\n"));
}

TEST(ProjectSimConfig, ReadsBackWhatItWroteToTheIniFile) {
    const IniFiles ini;
    TConfig configuration(true);
    configuration.SetName("Mine");
    configuration.GetGeneralConfiguration()->SetAutoParseProject(true);
    for (const THdlLanguage language : kStored) {
        auto* settings = configuration.GetProjectLanguageConfig(language);
        settings->SetActiveSnapshotName(GetStringFromHdlLanguage(language));
        settings->SetDestinationLibraryName("gates");
    }
    configuration.GetProjectLanguageConfig(LANGUAGE_TESTBUILDER)->SetOutputFileName("bench.exe");
    configuration.WriteToINI();
    ini.Saved();
    ResetSystemPropCache();
    TConfig read(false);
    read.SetName("Mine");
    read.ReadFromINI();
    EXPECT_EQ(TextOf(read), TextOf(configuration));
}

TEST(ProjectSimConfig, NeitherReadsNorWritesLanguagesItLacksInTheIniFile) {
    const IniFiles ini;
    ini.Give("[NVHDLSettingsConfiguration]\nSimTool=12\n");
    TConfig configuration(nullptr);
    configuration.SetName("N");
    configuration.ReadFromINI();
    EXPECT_EQ(TextOf(configuration), std::string("name=N\n") + kGeneralDefaults);
}
