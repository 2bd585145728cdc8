// Rules of the settings in INI files, each seen in a whole file or object.
#include "settings/projectdiagramsimconfig.h"
#include "settings/projecttemplatesimconfiglist.h"
#include "tests/settings/configurationtext.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include <gtest/gtest.h>

namespace {

constexpr THdlLanguage kNotStored[] = {LANGUAGE_SYSTEMC, LANGUAGE_RESERVED5, LANGUAGE_SPECMAN};

std::string NameOf(TSimulatorType tool) {
    return GetSimulatorNameFromType(tool);
}

/// The three languages without stored settings, each with the defaults.
void AddLanguagesThatAreNotStored(TProjectSimConfig& configuration) {
    const RecordingLog log;  // of the two that can have no settings at all
    for (const THdlLanguage language : kNotStored)
        configuration.SetProjectSettings(language, new TProjectSimLanguageConfig);
}

/// kFullLanguageConfig with the first `from` as `to`.
std::string FullConfigWith(const std::string& from, const std::string& to) {
    std::string text = kFullLanguageConfig;
    return Replaced(text, from, to);
}

}  // namespace

TEST(IniRules, TheSelectedNameIsThatOfTheCurrentConfigurationNotOfTheStartingOne) {
    const std::string selected = "[SelectedTemplateConfigurationName]\nSelectedConfigurationName=";
    for (const char* current : {"a", "b", ""}) {
        const IniFiles ini;
        ini.Give(selected + "b\n");
        TProjectTemplateSimConfigList list;
        list.AddConfiguration(NewConfiguration("a"));
        list.AddConfiguration(NewConfiguration("b"));
        list.ReadFromINI();
        ASSERT_EQ(NamesIn(list), "<a><b*>");
        list.SelectCurrentConfig(current);
        list.WriteToINI();
        EXPECT_STREQ(list.GetStartingConfigOrCurrentConfigName(), "b");
        EXPECT_EQ(WithoutUnknown(ini.Saved()),
                  selected + current +
                      "\n\n[TemplateConfigurationNameList]\nConfigurationName1=a\n"
                      "ConfigurationName2=b\n\n[a_GeneralConfiguration]\n" +
                      GeneralIni() + "\n[b_GeneralConfiguration]\n" + GeneralIni());
    }
}

TEST(IniRules, LanguagesWithoutStoredSettingsAreNotWritten) {
    const IniFiles ini;
    TProjectSimConfig configuration(nullptr);
    configuration.SetName("N");
    AddLanguagesThatAreNotStored(configuration);
    for (const THdlLanguage language : kNotStored)
        FillLanguageConfig(*configuration.GetProjectLanguageConfig(language));
    configuration.WriteToINI();
    EXPECT_EQ(WithoutUnknown(ini.Saved()), "[N_GeneralConfiguration]\n" + GeneralIni());
}

TEST(IniRules, LanguagesWithoutStoredSettingsAreNotRead) {
    const IniFiles ini;
    std::string file;
    for (const char* language : {"SystemC", "Language5", "Specman", "VHDL"})
        file += std::string("[N") + language +
                "SettingsConfiguration]\nSimTool=" + NameOf(SIM_VCS) + "\n" + NameOf(SIM_VCS) +
                "_BuildOptions=-b\n\n";
    ini.Give(file);
    TProjectSimConfig configuration(nullptr);
    configuration.SetName("N");
    AddLanguagesThatAreNotStored(configuration);
    configuration.SetProjectSettings(LANGUAGE_VHDL, new TProjectSimLanguageConfig);
    configuration.ReadFromINI();
    const std::string defaults = kLanguageDefaults;
    const std::string read = Replaced(Replaced("\n[1] " + defaults, "[1]", "tool=0", "tool=22"),
                                      "[1]", "build=<>", "build=<-b>");
    EXPECT_EQ(TextOf(configuration), std::string("name=N\n") + kGeneralDefaults + read.substr(1) +
                                         "[3] " + defaults + "[5] " + defaults + "[6] " + defaults);
}

TEST(IniRules, ANumberIsTheNameOfNoSimulator) {
    for (const char* number : {"11", "20", "1", "0020"})
        for (const bool bareKeys : {true, false}) {
            const IniFiles ini;
            ini.Give(std::string("[S]\nSimTool=") + number + "\n" +
                     (bareKeys ? "BuildOptions=bare\n" : "None_BuildOptions=bare\n") +
                     NameOf(SIM_MODELSIM_VERILOG) + "_BuildOptions=-b\n");
            TProjectSimLanguageConfig settings;
            FillLanguageConfig(settings);
            settings.ReadFromINI("S", LANGUAGE_VHDL, bareKeys);
            const std::string expected =
                Replaced(FullConfigWith("tool=20", "tool=0"), "<-b 1>", "<bare>");
            EXPECT_EQ(TextOf(settings), expected) << number << bareKeys;
        }
}

TEST(IniRules, ANumberSelectsNoSimulatorOfDiagrams) {
    const IniFiles ini;
    ini.Give("[DiagramSettingsVerilogConfiguration]\nSelectedSimTool=11\nBuildOptions=-b\n");
    TProjectDiagramSimConfig diagram;
    diagram.ReadFromINI();
    const std::string general = "log=simulation.log\nshow clear bench constants debugging size=0\n";
    const std::string expected =
        Replaced(ConfigurationDefaults("", false), kGeneralDefaults, general);
    EXPECT_EQ(TextOf(diagram), Replaced(expected, "[0]", "build=<>", "build=<-b>"));
}

TEST(IniRules, ReadingATestBuilderWithPrefixedKeysWritesItsPrefixedListsAndReadsNone) {
    const IniFiles ini;
    const std::string gcc = NameOf(SIM_GCC) + "_";
    const std::string head = "[S]\nSimTool=" + NameOf(SIM_GCC) + "\n" + gcc + "BuildOptions=-o\n";
    const std::string others = "IncludeDirectory Count=1\nIncludeDirectory0=bare\n" +
                               NameOf(SIM_NC_VERILOG) + "_LibraryDirectory Count=1\n" +
                               NameOf(SIM_NC_VERILOG) + "_LibraryDirectory0=former\n";
    ini.Give(head + gcc + "IncludeDirectory Count=1\n" + gcc + "IncludeDirectory0=stored\n" + gcc +
             "LibraryDirectory Count=2\n" + gcc + "LibraryDirectory0=stored\n" + gcc +
             "LibraryDirectory1=stored too\n" + others);
    TProjectSimLanguageConfig settings;
    FillLanguageConfig(settings);
    settings.ReadFromINI("S", LANGUAGE_TESTBUILDER, false);
    std::string expected =
        Replaced(FullConfigWith("tool=20", "tool=" + std::to_string(SIM_GCC)), " run", "");
    expected = Replaced(expected, "<-b 1>", "<-o>");
    EXPECT_EQ(TextOf(settings), expected);
    EXPECT_EQ(ini.Saved(), head + gcc + "IncludeDirectory Count=2\n" + gcc +
                               "IncludeDirectory0=inc\n" + gcc + "LibraryDirectory Count=1\n" +
                               gcc + "LibraryDirectory0=E:\\lib\\\n" + gcc +
                               "LibraryDirectory1=stored too\n" + others + gcc +
                               "IncludeDirectory1=${IP}/inc\n");
}

TEST(IniRules, APresentEmptyKeyEmptiesItsTextAndAMissingOneKeepsIt) {
    struct TRow {
        const char* Line;
        const char* From;
        const char* To;
    };
    const TRow rows[] = {
        {"", "", ""},
        {"OutputFileName=\n", "output=<bench.exe>", "output=<>"},
        {"AdditionalExtensions=\n", "additional=<.svp>", "additional=<>"},
        {"ActiveSnapshotName=\n", "snapshot=<snap>", "snapshot=<>"},
        {"DestinationLibraryName=\n", "destination=<gates>", "destination=<>"},
        {"BuildOptions=\n", "build=<-b 1>", "build=<>"},
        {"LinkerOptions=\n", "linker=< -l 2>", "linker=<>"},
        {"RuntimeOptions=\n", "runtime=<-r 3>", "runtime=<>"},
    };
    for (const TRow& row : rows)
        for (const bool bareKeys : {true, false}) {
            const IniFiles ini;
            const std::string prefix = bareKeys ? "" : NameOf(SIM_NC_VERILOG) + "_";
            ini.Give("[S]\n" + prefix + "RunOutputFileExecutable=true\n" +
                     (*row.Line ? prefix : "") + row.Line);
            TProjectSimLanguageConfig settings;
            FillLanguageConfig(settings);
            settings.ReadFromINI("S", LANGUAGE_TESTBUILDER, bareKeys);
            EXPECT_EQ(TextOf(settings), FullConfigWith(row.From, row.To)) << row.Line << bareKeys;
        }
}
