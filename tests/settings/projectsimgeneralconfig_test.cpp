#include "settings/projectsimgeneralconfig.h"
#include "services/xml/xmlstream.h"
#include "tests/settings/settingstext.h"
#include "tests/support/elementtext.h"
#include "tests/support/keptobjects.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

namespace {

using TConfig = TProjectSimGeneralConfig;

/// Sets every setting to the opposite of its default.
void Invert(TConfig& general) {
    general.SetLogFileName("my log.txt");
    general.SetAddTopLevelSignals(false);
    general.SetShowWatchSignals(false);
    general.SetDumpWatchSignals(true);
    general.SetBreakAtTimeZeroAfterCompile(true);
    general.SetClearLogFileBeforeCompile(false);
    general.SetAutoParseProject(true);
    general.SetGenerateTestBenchOnBuildProject(false);
    general.SetDisableWaveformUpdate(true);
    general.SetCompileVerilogFiles(true);
    general.SetCompileVHDLFiles(true);
    general.SetCompileCppFiles(true);
    general.SetMakeConstantsWatchable(false);
    general.SetMakeArrayElementsWatchable(true);
    general.SetWatchableArrayElementSize(-17);
    general.SetEnableSimulatorDebugging(false);
}

constexpr const char* kInverted =
    "log=my log.txt\ndump break parse waveform verilog vhdl cpp arrays size=-17\n";

/// What the object holds after reading an element with these attributes; it was fresh before.
std::string AfterReading(const TAttributeList& attributes) {
    TXMLList list;
    list.Psh("GeneralConfiguration", &attributes, TElement::START, nullptr);
    TConfig general;
    EXPECT_TRUE(general.ReadFromFile(TElementIterator(list).Current()));
    return TextOf(general);
}

std::string AfterReadingAttribute(const char* name, const char* value) {
    TAttributeList attributes;
    attributes.Psh(name, value);
    return AfterReading(attributes);
}

constexpr const char* kAfterEmptyElement =
    "log=simulation.log\ntop show dump break clear parse bench constants debugging size=0\n";

}  // namespace

TEST(ProjectSimGeneralConfig, BeginsWithTheDefaults) {
    EXPECT_EQ(TextOf(TConfig()), kGeneralDefaults);
    EXPECT_EQ(TextOf(TConfig(0)), kGeneralDefaults);
}

TEST(ProjectSimGeneralConfig, SetDefaultsUndoesEverySetter) {
    TConfig general;
    Invert(general);
    EXPECT_EQ(TextOf(general), kInverted);
    general.SetDefaults();
    EXPECT_EQ(TextOf(general), kGeneralDefaults);
}

TEST(ProjectSimGeneralConfig, EachFlagHasAGetterAndASetterOfItsOwn) {
    struct TRow {
        const char* Label;
        bool (TConfig::*Get)() const;
        void (TConfig::*Set)(bool);
    };
    const TRow rows[] = {
        {"top", &TConfig::GetAddTopLevelSignals, &TConfig::SetAddTopLevelSignals},
        {"show", &TConfig::GetShowWatchSignals, &TConfig::SetShowWatchSignals},
        {"dump", &TConfig::GetDumpWatchSignals, &TConfig::SetDumpWatchSignals},
        {"break", &TConfig::GetBreakAtTimeZeroAfterCompile,
         &TConfig::SetBreakAtTimeZeroAfterCompile},
        {"clear", &TConfig::GetClearLogFileBeforeCompile, &TConfig::SetClearLogFileBeforeCompile},
        {"parse", &TConfig::GetAutoParseProject, &TConfig::SetAutoParseProject},
        {"bench", &TConfig::GetGenerateTestBenchOnBuildProject,
         &TConfig::SetGenerateTestBenchOnBuildProject},
        {"waveform", &TConfig::GetDisableWaveformUpdate, &TConfig::SetDisableWaveformUpdate},
        {"verilog", &TConfig::GetCompileVerilogFiles, &TConfig::SetCompileVerilogFiles},
        {"vhdl", &TConfig::GetCompileVHDLFiles, &TConfig::SetCompileVHDLFiles},
        {"cpp", &TConfig::GetCompileCppFiles, &TConfig::SetCompileCppFiles},
        {"constants", &TConfig::GetMakeConstantsWatchable, &TConfig::SetMakeConstantsWatchable},
        {"arrays", &TConfig::GetMakeArrayElementsWatchable,
         &TConfig::SetMakeArrayElementsWatchable},
        {"debugging", &TConfig::GetEnableSimulatorDebugging, &TConfig::SetEnableSimulatorDebugging},
    };
    for (const TRow& changed : rows) {
        TConfig general;
        const bool before = (general.*changed.Get)();
        (general.*changed.Set)(!before);
        const TConfig untouched;
        for (const TRow& row : rows)
            EXPECT_EQ((general.*row.Get)(), (untouched.*row.Get)() != (row.Label == changed.Label))
                << changed.Label << " changes " << row.Label;
    }
}

TEST(ProjectSimGeneralConfig, TakesItsOwnLogFileNameAndNull) {
    TConfig general;
    general.SetLogFileName("a rather long name of a log file.txt");
    general.SetLogFileName(general.GetSimulationLogFileName());
    EXPECT_STREQ(general.GetSimulationLogFileName(), "a rather long name of a log file.txt");
    general.SetLogFileName(nullptr);
    EXPECT_STREQ(general.GetSimulationLogFileName(), "");
}

TEST(ProjectSimGeneralConfig, CopiesEverySettingButNotTheProxy) {
    TConfig general;
    Invert(general);
    ICorbaProxy proxy;
    general.SetCorbaProxy(&proxy);
    const TConfig copy(general);
    const TConfig flagged(general, 1);
    const TConfig pointed(&general, 1);
    TConfig assigned;
    assigned = general;
    for (const TConfig* each :
         {&copy, &flagged, &pointed, static_cast<const TConfig*>(&assigned)}) {
        EXPECT_EQ(TextOf(*each), kInverted);
        EXPECT_EQ(each->GetCorbaProxy(), nullptr);
    }
    EXPECT_EQ(general.GetCorbaProxy(), &proxy);
    EXPECT_EQ(TextOf(TConfig(nullptr, 1)), kGeneralDefaults);
}

TEST(ProjectSimGeneralConfig, AnswersRemoteClientsThroughItsInterface) {
    TConfig general;
    Invert(general);
    ICorbaProjectSimGeneralSettingsImpl& remote = general;
    EXPECT_EQ(remote.GetCorbaSimulationLogFileName(), "my log.txt");
    EXPECT_FALSE(remote.GetAddTopLevelSignals());
    EXPECT_FALSE(remote.GetShowWatchSignals());
    EXPECT_TRUE(remote.GetDumpWatchSignals());
    EXPECT_TRUE(remote.GetBreakAtTimeZeroAfterCompile());
    EXPECT_FALSE(remote.GetClearLogFileBeforeCompile());
    EXPECT_TRUE(remote.GetAutoParseProject());
    EXPECT_FALSE(remote.GetGenerateTestBenchOnBuildProject());
    EXPECT_TRUE(remote.GetDisableWaveformUpdate());
}

TEST(ProjectSimGeneralConfig, KeepsTheOrderOfItsVirtualOperations) {
    using TGetter = bool (TConfig::*)();
    const auto first = TableEntryOf(&TConfig::GetCorbaSimulationLogFileName);
    const TGetter getters[] = {
        &TConfig::GetAddTopLevelSignals,
        &TConfig::GetShowWatchSignals,
        &TConfig::GetDumpWatchSignals,
        &TConfig::GetBreakAtTimeZeroAfterCompile,
        &TConfig::GetClearLogFileBeforeCompile,
        &TConfig::GetAutoParseProject,
        &TConfig::GetGenerateTestBenchOnBuildProject,
        &TConfig::GetDisableWaveformUpdate,
    };
    std::vector<std::ptrdiff_t> entries;
    for (const TGetter getter : getters) entries.push_back(TableEntryOf(getter) - first);
    EXPECT_EQ(entries, (std::vector<std::ptrdiff_t>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(ProjectSimGeneralConfig, CompilesALanguageByItsOwnFlagAndOthersAlways) {
    struct TRow {
        const char* Label;
        void (TConfig::*Set)(bool);
        std::vector<bool> Expected;  // by language, 0 to 9
    };
    const TRow rows[] = {
        {"none", nullptr, {false, false, true, true, true, true, true, false, true, true}},
        {"Verilog",
         &TConfig::SetCompileVerilogFiles,
         {true, false, true, true, true, true, true, false, true, true}},
        {"VHDL",
         &TConfig::SetCompileVHDLFiles,
         {false, true, true, true, true, true, true, false, true, true}},
        {"C++",
         &TConfig::SetCompileCppFiles,
         {false, false, true, true, true, true, true, true, true, true}},
    };
    for (const TRow& row : rows) {
        TConfig general;
        if (row.Set) (general.*row.Set)(true);
        std::vector<bool> compiled;
        for (int language = 0; language <= 9; ++language)
            compiled.push_back(
                general.GetCompileLanguageFiles(static_cast<THdlLanguage>(language)));
        EXPECT_EQ(compiled, row.Expected) << row.Label;
    }
}

TEST(ProjectSimGeneralConfig, WritesOneElementWithAllAttributesInOrder) {
    const char* const expected =
        "START GeneralConfiguration LogFileName=simulation.log AddTopLevelSignals=true"
        " ShowWatchSignals=true DumpWatchSignals=false BreakAtTimeZeroAfterCompile=false"
        " ClearLogFileBeforeCompile=true AutoParseProject=false"
        " GenerateTestBenchOnBuildProject=true DisablePeriodicWaveformUpdate=false"
        " CompileVerilogFiles=false CompileVHDLFiles=false CompileCppFiles=false"
        " MakeConstantsWatchable=true MakeArrayElementsWatchable=false"
        " WatchableArrayElementSize=12 EnableSimulatorDebugging=true\n"
        "END GeneralConfiguration\n";
    TConfig general;
    general.SetWatchableArrayElementSize(12);
    EXPECT_EQ(ElementsWrittenBy([&](TXMLList* list) { general.WriteToProjectFile(list); }),
              expected);
    EXPECT_EQ(GeneralElements({{"WatchableArrayElementSize", "12"}}), expected);
}

TEST(ProjectSimGeneralConfig, WritesEachAttributeThatItRead) {
    const TSettingValues missing = GeneralValues(&TGeneralSettingText::MissingInElement);
    const auto afterReading = [](const TAttributeList& attributes) {
        TXMLList list;
        list.Psh("GeneralConfiguration", &attributes, TElement::START, nullptr);
        TConfig general;
        EXPECT_TRUE(general.ReadFromFile(TElementIterator(list).Current()));
        return WithoutUnknown(
            ElementsWrittenBy([&](TXMLList* written) { general.WriteToProjectFile(written); }));
    };
    EXPECT_EQ(afterReading(TAttributeList()), GeneralElements(missing));
    for (const TGeneralSettingText& row : GeneralSettingTexts())
        for (const char* value : {row.Default, row.Changed}) {
            TAttributeList attributes;
            attributes.Psh(row.Name, value);
            TSettingValues expected = missing;
            expected[row.Name] = value;
            EXPECT_EQ(afterReading(attributes), GeneralElements(expected)) << row.Name;
        }
}

TEST(ProjectSimGeneralConfig, WritesNothingWithoutADocument) {
    const TConfig general;
    general.WriteToProjectFile(nullptr);
    EXPECT_EQ(TextOf(general), kGeneralDefaults);
}

TEST(ProjectSimGeneralConfig, ReadsBackWhatItWrote) {
    TConfig general;
    Invert(general);
    general.SetLogFileName("a & <b>.txt");
    TXMLList list;
    general.WriteToProjectFile(&list);
    TConfig read;
    ASSERT_TRUE(read.ReadFromFile(TElementIterator(list).Current()));
    const std::string expected = Replaced(kInverted, "my log.txt", "a & <b>.txt");
    EXPECT_EQ(TextOf(read), expected);
}

TEST(ProjectSimGeneralConfig, AnEmptyElementTurnsOnWhatOlderFilesExpect) {
    EXPECT_EQ(AfterReading(TAttributeList()), kAfterEmptyElement);
}

TEST(ProjectSimGeneralConfig, AnEmptyElementKeepsOnlyTheLogFileName) {
    TConfig general;
    Invert(general);
    TXMLList list;
    PushStart(&list, "GeneralConfiguration");
    ASSERT_TRUE(general.ReadFromFile(TElementIterator(list).Current()));
    EXPECT_EQ(TextOf(general),
              "log=my log.txt\n"
              "top show dump break clear parse bench constants debugging size=0\n");
}

TEST(ProjectSimGeneralConfig, ReadsEachAttributeIntoItsSetting) {
    struct TRow {
        const char* Attribute;
        const char* Value;
        const char* Expected;
    };
    const TRow rows[] = {
        {"LogFileName", "x.log",
         "log=x.log\ntop show dump break clear parse bench constants debugging size=0\n"},
        {"LogFileName", "", kAfterEmptyElement},
        {"AddTopLevelSignals", "false",
         "log=simulation.log\n"
         "show dump break clear parse bench constants debugging size=0\n"},
        {"ShowWatchSignals", "false",
         "log=simulation.log\ntop dump break clear parse bench constants debugging size=0\n"},
        {"DumpWatchSignals", "false",
         "log=simulation.log\ntop show break clear parse bench constants debugging size=0\n"},
        {"BreakAtTimeZeroAfterCompile", "false",
         "log=simulation.log\ntop show dump clear parse bench constants debugging size=0\n"},
        {"ClearLogFileBeforeCompile", "false",
         "log=simulation.log\ntop show dump break parse bench constants debugging size=0\n"},
        {"AutoParseProject", "false",
         "log=simulation.log\ntop show dump break clear bench constants debugging size=0\n"},
        {"GenerateTestBenchOnBuildProject", "false",
         "log=simulation.log\ntop show dump break clear parse constants debugging size=0\n"},
        {"DisablePeriodicWaveformUpdate", "true",
         "log=simulation.log\n"
         "top show dump break clear parse bench waveform constants debugging size=0\n"},
        {"DisableWaveformUpdate", "true", kAfterEmptyElement},
        {"CompileVerilogFiles", "true",
         "log=simulation.log\n"
         "top show dump break clear parse bench verilog constants debugging size=0\n"},
        {"CompileVHDLFiles", "true",
         "log=simulation.log\n"
         "top show dump break clear parse bench vhdl constants debugging size=0\n"},
        {"CompileCppFiles", "true",
         "log=simulation.log\n"
         "top show dump break clear parse bench cpp constants debugging size=0\n"},
        {"MakeConstantsWatchable", "false",
         "log=simulation.log\ntop show dump break clear parse bench debugging size=0\n"},
        {"MakeArrayElementsWatchable", "true",
         "log=simulation.log\n"
         "top show dump break clear parse bench constants arrays debugging size=0\n"},
        {"EnableSimulatorDebugging", "false",
         "log=simulation.log\ntop show dump break clear parse bench constants size=0\n"},
        {"AddTopLevelSignals", "", kAfterEmptyElement},
        {"AddTopLevelSignals", "perhaps",
         "log=simulation.log\n"
         "show dump break clear parse bench constants debugging size=0\n"},
        {"CompileCppFiles", " Yes ",
         "log=simulation.log\n"
         "top show dump break clear parse bench cpp constants debugging size=0\n"},
    };
    for (const TRow& row : rows)
        EXPECT_EQ(AfterReadingAttribute(row.Attribute, row.Value), row.Expected)
            << row.Attribute << "=" << row.Value;
}

TEST(ProjectSimGeneralConfig, ReadsTheNumberThatASizeBeginsWith) {
    struct TRow {
        const char* Text;
        int Expected;
    };
    const TRow rows[] = {{"12abc", 12},
                         {"", 0},
                         {"abc", 0},
                         {" 7", 7},
                         {"+5", 5},
                         {"+-5", 0},
                         {"-3", -3},
                         {"2147483647", 2147483647},
                         {"99999999999", 2147483647},
                         {"-99999999999", -2147483647 - 1}};
    for (const TRow& row : rows) {
        TAttributeList attributes;
        attributes.Psh("WatchableArrayElementSize", row.Text);
        TXMLList list;
        list.Psh("GeneralConfiguration", &attributes, TElement::START, nullptr);
        TConfig general;
        general.ReadFromFile(TElementIterator(list).Current());
        EXPECT_EQ(general.GetWatchableArrayElementSize(), row.Expected) << row.Text;
    }
}

TEST(ProjectSimGeneralConfig, ReadingNullFailsAndChangesNothing) {
    TConfig general;
    Invert(general);
    EXPECT_FALSE(general.ReadFromFile(nullptr));
    EXPECT_EQ(TextOf(general), kInverted);
}

TEST(ProjectSimGeneralConfig, WritesItsIniKeysInOrder) {
    const char* const expected =
        "AddTopLevelSignals=true\n"
        "ShowWatchSignals=true\n"
        "DumpWatchSignals=false\n"
        "BreakAtTimeZeroAfterCompile=false\n"
        "ClearLogFileBeforeCompile=true\n"
        "AutoParseProject=false\n"
        "GenerateTestBenchOnBuildProject=true\n"
        "DisablePeriodicWaveformUpdate=false\n"
        "CompileVerilogFiles=false\n"
        "CompileVHDLFiles=false\n"
        "CompileCppFiles=false\n"
        "LogFileName=simulation.log\n"
        "MakeConstantsWatchable=true\n"
        "MakeArrayElementsWatchable=false\n"
        "WatchableArrayElementSize=0\n"
        "EnableSimulatorDebugging=true\n";
    const IniFiles ini;
    TConfig().WriteToINI("S", false);
    EXPECT_EQ(ini.Saved(), std::string("[S]\n") + expected);
    EXPECT_EQ(GeneralIni(), expected);
}

TEST(ProjectSimGeneralConfig, WritesEachKeyThatItRead) {
    const TSettingValues missing = GeneralValues(&TGeneralSettingText::MissingInIni);
    for (const TGeneralSettingText& row : GeneralSettingTexts())
        for (const char* value : {row.Default, row.Changed}) {
            const IniFiles ini;
            ini.Give("[S]\n" + std::string(row.Name) + "=" + value + "\n");
            TConfig general;
            general.ReadFromINI("S", false);
            general.WriteToINI("GeneralConfiguration", false);
            TSettingValues expected = missing;
            expected[row.Name] = value;
            EXPECT_EQ(WithoutUnknown(ini.Saved()), "[S]\n" + std::string(row.Name) + "=" + value +
                                                       "\n\n[GeneralConfiguration]\n" +
                                                       GeneralIni(expected));
        }
}

TEST(ProjectSimGeneralConfig, ReadsBackWhatItWroteToTheIniFile) {
    const IniFiles ini;
    TConfig general;
    Invert(general);
    general.WriteToINI("S", false);
    ini.Saved();
    ResetSystemPropCache();
    TConfig read;
    read.ReadFromINI("S", false);
    EXPECT_EQ(TextOf(read), kInverted);
}

TEST(ProjectSimGeneralConfig, AnEmptyIniSectionGivesTheDefaultsAndKeepsTheLogFileName) {
    const IniFiles ini;
    TConfig general;
    Invert(general);
    general.ReadFromINI("S", false);
    EXPECT_EQ(TextOf(general), "log=my log.txt\ntop show clear bench constants debugging size=0\n");
}

TEST(ProjectSimGeneralConfig, TakesAnEmptyLogFileNameFromTheIniFile) {
    const IniFiles ini;
    ini.Give("[S]\nLogFileName=\nWatchableArrayElementSize=12abc\n");
    TConfig general;
    general.ReadFromINI("S", false);
    EXPECT_EQ(TextOf(general), "log=\ntop show clear bench constants debugging size=12\n");
}

TEST(ProjectSimGeneralConfig, ReadsALogFileNameUpTo315Bytes) {
    const IniFiles ini;
    ini.Give("[S]\nLogFileName=" + std::string(400, 'x') + "\n");
    TConfig general;
    general.ReadFromINI("S", false);
    EXPECT_EQ(general.GetSimulationLogFileName(), std::string(315, 'x'));
}

TEST(ProjectSimGeneralConfig, WritesNoKeysThatDiagramsFix) {
    const TSettingValues changed = GeneralValues(&TGeneralSettingText::Changed);
    const std::string kept = "[GeneralConfiguration]\nAutoParseProject=maybe\n";
    const IniFiles ini;
    ini.Give("[S]\n" + GeneralIni(changed) + "\n" + kept);
    TConfig general;
    general.ReadFromINI("S", false);
    general.WriteToINI("GeneralConfiguration", true);
    EXPECT_EQ(WithoutUnknown(ini.Saved()),
              "[S]\n" + GeneralIni(changed) + "\n" + kept + GeneralIniOfDiagrams(changed));
}

TEST(ProjectSimGeneralConfig, FixesFourSettingsWhenReadForDiagrams) {
    const IniFiles ini;
    ini.Give(
        "[S]\nAddTopLevelSignals=true\nShowWatchSignals=false\nBreakAtTimeZeroAfterCompile=true\n"
        "AutoParseProject=true\nDumpWatchSignals=true\n");
    TConfig general;
    Invert(general);
    general.ReadFromINI("S", true);
    EXPECT_EQ(TextOf(general),
              "log=my log.txt\nshow dump clear bench constants debugging size=0\n");
}

TEST(ProjectSimGeneralConfigIni, TakesNoSectionForTheOneWithoutAName) {
    const IniFiles ini;
    TConfig general;
    general.SetLogFileName("a.log");
    general.WriteToINI(nullptr, false);
    TConfig read;
    read.ReadFromINI("", false);
    EXPECT_STREQ(read.GetSimulationLogFileName(), "a.log");
    TConfig again;
    again.ReadFromINI(nullptr, false);
    EXPECT_STREQ(again.GetSimulationLogFileName(), "a.log");
}

TEST(ProjectSimGeneralConfig, IsForgottenWhenDeleted) {
    EXPECT_TRUE(IsForgottenWhenDeleted(new TConfig));
}
