#include "settings/settingtable.h"
#include "services/base/booltext.h"
#include "services/base/fold.h"
#include <algorithm>

namespace {

using G = TProjectSimGeneralConfig;
using L = TProjectSimLanguageConfig;

template <class T, bool (T::*Getter)() const, void (T::*Setter)(bool)>
constexpr TSetting<T> Bool(const char* name) {
    return {name, SETTING_BOOL,
            [](const T& settings) {
                return std::string(ConvertBooleanToStringBool((settings.*Getter)()));
            },
            [](T& settings, const char* text) {
                (settings.*Setter)(ConvertStringBoolToBoolean(text));
            }};
}

template <class T, auto Getter, void (T::*Setter)(const char*)>
constexpr TSetting<T> Text(const char* name, TSettingKind kind = SETTING_TEXT) {
    return {name, kind, [](const T& settings) { return TMyString((settings.*Getter)()).Str(); },
            [](T& settings, const char* text) { (settings.*Setter)(text); }};
}

constexpr TSetting<G> kArrayElementSize{
    "WatchableArrayElementSize", SETTING_NUMBER,
    [](const G& settings) { return std::to_string(settings.GetWatchableArrayElementSize()); },
    [](G& settings, const char* text) {
        settings.SetWatchableArrayElementSize(LeadingNumber(text));
    }};

constexpr TSetting<L> kDelayType{
    "DelayType", SETTING_DELAY,
    [](const L& settings) { return std::to_string(settings.GetDelayType()); },
    [](L& settings, const char* text) {
        settings.SetDelayType(static_cast<TSimProjectDelayType>(LeadingNumber(text)));
    }};

std::string SimulatorName(const L& settings) {
    return GetSimulatorNameFromType(settings.GetTool());
}

bool AddExtension(L& settings, const char* entry, bool) {
    return settings.AddLibraryExtension(entry);
}

template <bool (L::*Adder)(const char*, bool)>
bool AddDirectory(L& settings, const char* entry, bool resolve) {
    return (settings.*Adder)(entry, resolve);
}

constexpr TSettingEntries kIncludeDirectories{"Directory", &L::GetIncludeDirectories,
                                              AddDirectory<&L::AddIncludeDirectory>,
                                              &L::ClearIncludeDirectory};
constexpr TSettingEntries kLibraryDirectories{"Directory", &L::GetLibraryDirectories,
                                              AddDirectory<&L::AddLibraryDirectory>,
                                              &L::ClearLibraryDirectory};
constexpr TSettingEntries kLibraryExtensions{"Extension", &L::GetLibraryExtensions, AddExtension,
                                             &L::ClearLibraryExtension};

template <class TSettings>
const TSettings* FindByName(const std::vector<TSettings>& settings, const std::string& name) {
    const auto found = std::find_if(settings.begin(), settings.end(),
                                    [&name](const TSettings& row) { return row.Name == name; });
    return found == settings.end() ? nullptr : &*found;
}

}  // namespace

// clang-format off
const std::vector<TGeneralSetting>& GetGeneralSettings() {
    // Older files lack some attributes that turn a setting on which is off by default.
    static const auto* table = new std::vector<TGeneralSetting>{
        // setting, missing in an element, missing in INI files, place there, fixed in diagrams
        {Text<G, &G::GetSimulationLogFileName, &G::SetLogFileName>("LogFileName", SETTING_NAME), nullptr, nullptr, 12},
        {Bool<G, &G::GetAddTopLevelSignals, &G::SetAddTopLevelSignals>("AddTopLevelSignals"), "true", "true", 1, "false"},
        {Bool<G, &G::GetShowWatchSignals, &G::SetShowWatchSignals>("ShowWatchSignals"), "true", "true", 2, "true"},
        {Bool<G, &G::GetDumpWatchSignals, &G::SetDumpWatchSignals>("DumpWatchSignals"), "true", "false", 3},
        {Bool<G, &G::GetBreakAtTimeZeroAfterCompile, &G::SetBreakAtTimeZeroAfterCompile>("BreakAtTimeZeroAfterCompile"), "true", "false", 4, "false"},
        {Bool<G, &G::GetClearLogFileBeforeCompile, &G::SetClearLogFileBeforeCompile>("ClearLogFileBeforeCompile"), "true", "true", 5},
        {Bool<G, &G::GetAutoParseProject, &G::SetAutoParseProject>("AutoParseProject"), "true", "false", 6, "false"},
        {Bool<G, &G::GetGenerateTestBenchOnBuildProject, &G::SetGenerateTestBenchOnBuildProject>("GenerateTestBenchOnBuildProject"), "true", "true", 7},
        {Bool<G, &G::GetDisableWaveformUpdate, &G::SetDisableWaveformUpdate>("DisablePeriodicWaveformUpdate"), "false", "false", 8},
        {Bool<G, &G::GetCompileVerilogFiles, &G::SetCompileVerilogFiles>("CompileVerilogFiles"), "false", "false", 9},
        {Bool<G, &G::GetCompileVHDLFiles, &G::SetCompileVHDLFiles>("CompileVHDLFiles"), "false", "false", 10},
        {Bool<G, &G::GetCompileCppFiles, &G::SetCompileCppFiles>("CompileCppFiles"), "false", "false", 11},
        {Bool<G, &G::GetMakeConstantsWatchable, &G::SetMakeConstantsWatchable>("MakeConstantsWatchable"), "true", "true", 13},
        {Bool<G, &G::GetMakeArrayElementsWatchable, &G::SetMakeArrayElementsWatchable>("MakeArrayElementsWatchable"), "false", "false", 14},
        {kArrayElementSize, "0", "0", 15},
        {Bool<G, &G::GetEnableSimulatorDebugging, &G::SetEnableSimulatorDebugging>("EnableSimulatorDebugging"), "true", "true", 16},
    };
    return *table;
}

const std::vector<TLanguageSetting>& GetLanguageSettings() {
    // In INI files the VHDL-93 flag is Verilog's. The directories of a test bench follow the
    // project at hand: INI files gain them where they would be read.
    static const auto* table = new std::vector<TLanguageSetting>{
        // setting, INI key, places there, missing there, older names, written empty, entries
        {{"SimTool", SETTING_SIMULATOR, SimulatorName, [](L& settings, const char* text) { settings.ReadTool(std::string(TrimmedView(text))); }}, "SimTool"},
        {{"IncludeDirectories", SETTING_DIRECTORIES}, "IncludeDirectory", {{1, LANGUAGE_VERILOG}, {9, LANGUAGE_TESTBUILDER, false}}, nullptr, {}, false, kIncludeDirectories},
        {{"LibraryDirectories", SETTING_DIRECTORIES}, "LibraryDirectory", {{2, LANGUAGE_VERILOG}, {10, LANGUAGE_TESTBUILDER, false}}, nullptr, {}, false, kLibraryDirectories},
        {{"LibraryExtensions", SETTING_LIST}, "LibraryExtension", {{3, LANGUAGE_VERILOG}}, nullptr, {}, false, kLibraryExtensions},
        {Bool<L, &L::IsVhdl93DefaultSettingsEnabled, &L::SetVhdl93DefaultSettingsEnabled>("UseVhdl93Defaults"), "UseVhdl93Defaults", {{4, LANGUAGE_VERILOG}}, "true"},
        {kDelayType, "DelayType", {{5, LANGUAGE_VERILOG}}},
        {Bool<L, &L::GetPliDriven, &L::SetPliDriven>("PliDriven"), "PliDriven", {{6, LANGUAGE_VERILOG}}, "false"},
        {Text<L, &L::GetActiveSnapshotName, &L::SetActiveSnapshotName>("ActiveSnapshotName"), "ActiveSnapshotName", {{7}}},
        {Text<L, &L::GetDestinationLibraryName, &L::SetDestinationLibraryName>("DestinationLibraryName"), "DestinationLibraryName", {{8}}},
        {Text<L, &L::GetAdditionalExtensions, &L::SetAdditionalExtensions>("AdditionalExtensions"), "AdditionalExtensions", {{13}}},
        {Text<L, &L::GetBuildOptions, &L::SetBuildOptions>("BuildOptions"), "BuildOptions", {{14}}, nullptr, {"SimulatorOptions", "CompilerOptions"}},
        {Text<L, &L::GetLinkerOptions, &L::SetLinkerOptions>("LinkerOptions"), "LinkerOptions", {{15}}},
        {Text<L, &L::GetRuntimeOptions, &L::SetRuntimeOptions>("RuntimeOptions"), "RuntimeOptions", {{16}}},
        {Text<L, &L::GetOutputFileName, &L::SetOutputFileName>("OutputFileName"), "OutputFileName", {{12, LANGUAGE_TESTBUILDER}}, nullptr, {}, false},
        {Bool<L, &L::IsRunOutputFileExecutable, &L::SetRunOutputFileExecutable>("RunOutputFileExecutable"), "RunOutputFileExecutable", {{11, LANGUAGE_TESTBUILDER}}, "false"},
        {Bool<L, &L::IsForceTopLevel, &L::SetForceTopLevel>("ForceTopLevel")},
    };
    return *table;
}
// clang-format on

const TGeneralSetting* FindGeneralSetting(const std::string& name) {
    return FindByName(GetGeneralSettings(), name);
}

const TLanguageSetting* FindLanguageSetting(const std::string& name) {
    for (const TLanguageSetting& setting : GetLanguageSettings())
        for (const char* const older : setting.OlderNames)
            if (name == older) return &setting;
    return FindByName(GetLanguageSettings(), name);
}
