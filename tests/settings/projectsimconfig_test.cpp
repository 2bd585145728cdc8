#include "settings/projectsimconfig.h"
#include "services/xml/xmlstream.h"
#include "tests/settings/configurationtext.h"
#include "tests/settings/settingstext.h"
#include "tests/support/elementtext.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
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

const THdlLanguage kStored[] = {LANGUAGE_VERILOG, LANGUAGE_VHDL, LANGUAGE_BLUESPECVERILOG,
                                LANGUAGE_CPLUSPLUS, LANGUAGE_TESTBUILDER};

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
    ICorbaProxy proxy;
    configuration.SetCorbaProxy(&proxy);
    const std::string full = TextOf(configuration);
    const std::string expected = Replaced(full, "vcd=D:\\p\\dump.vcd", "vcd=null");

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
    std::string expected = "[My Config_GeneralConfiguration]\n" + GeneralIni();
    for (const char* language : {"Verilog", "VHDL", "Bluespec", "C++", "TestBuilder"})
        expected += std::string("\n[My Config") + language + "SettingsConfiguration]\n" +
                    LanguageIni(language, name + "_", {{"SimTool", name}});
    EXPECT_EQ(WithoutUnknown(ini.Saved()), expected);
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
    std::string expected =
        Replaced(ConfigurationDefaults("Mine", true), "log", "bench", "parse bench");
    const std::pair<const char*, const char*> names[] = {{"[0]", "Verilog"},
                                                         {"[1]", "VHDL"},
                                                         {"[2]", "Bluespec"},
                                                         {"[4]", "C++"},
                                                         {"[7]", "TestBuilder"}};
    for (const auto& [section, name] : names)
        expected = Replaced(expected, section, "snapshot=<> destination=<work>",
                            "snapshot=<" + std::string(name) + "> destination=<gates>");
    EXPECT_EQ(TextOf(read), Replaced(expected, "[7]", "output=<>", "output=<bench.exe>"));
}

TEST(ProjectSimConfig, NeitherReadsNorWritesLanguagesItLacksInTheIniFile) {
    const IniFiles ini;
    ini.Give("[NVHDLSettingsConfiguration]\nSimTool=12\n");
    TConfig configuration(nullptr);
    configuration.SetName("N");
    configuration.ReadFromINI();
    EXPECT_EQ(TextOf(configuration), std::string("name=N\n") + kGeneralDefaults);
}
