#include "cli/settings/settingkeys.h"
#include "cli/frame/texts.h"
#include "flows/simulatornames.h"
#include "services/base/booltext.h"
#include <algorithm>
#include <array>
#include <charconv>

namespace {

using G = TProjectSimGeneralConfig;
using L = TProjectSimLanguageConfig;

template <class T, bool (T::*Get)() const, void (T::*Set)(bool)>
TSettingKey<T> BoolKey(const char* name) {
    return {
        name, SETTING_BOOL, [](const T& settings) { return TJson((settings.*Get)()); },
        [](T& settings, const char* text) { (settings.*Set)(ConvertStringBoolToBoolean(text)); }};
}

template <class T, const char* (T::*Get)() const, void (T::*Set)(const char*)>
TSettingKey<T> TextKey(const char* name, TSettingKind kind = SETTING_TEXT) {
    return {name, kind, [](const T& settings) { return TJson((settings.*Get)()); },
            [](T& settings, const char* text) { (settings.*Set)(text); }};
}

template <const std::vector<std::string>& (L::*Get)() const>
TLanguageKey ListKey(const char* name) {
    return {name, SETTING_LIST, [](const L& settings) { return TJson((settings.*Get)()); }};
}

int NumberOf(const std::string& text) {
    int number = -1;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? number : -1;
}

// Files hold the number, INI files the word.
int DelayNumberOf(const std::string& text) {
    constexpr std::array kWords = {"min", "typical", "max"};
    const auto word = std::find(kWords.begin(), kWords.end(), text);
    return word != kWords.end() ? static_cast<int>(word - kWords.begin()) : NumberOf(text);
}

const TLanguageKey kSimulator{
    "SimTool", SETTING_SIMULATOR,
    [](const L& settings) { return TJson(GetSimulatorNameFromType(settings.GetTool())); },
    [](L& settings, const char* text) { settings.SetTool(FindSimulator(text)); }};

const TLanguageKey kDelayType{
    "DelayType", SETTING_DELAY,
    [](const L& settings) { return TJson(GetDelayTypeFromEnum(settings.GetDelayType())); },
    [](L& settings, const char* text) {
        settings.SetDelayType(static_cast<TSimProjectDelayType>(DelayNumberOf(text)));
    }};

const TLanguageKey kSnapshot{
    "ActiveSnapshotName", SETTING_TEXT,
    [](const L& settings) { return TJson(settings.GetActiveSnapshotName().Str()); },
    [](L& settings, const char* text) { settings.SetActiveSnapshotName(text); }};

const TGeneralKey kArrayElementSize{
    "WatchableArrayElementSize", SETTING_NUMBER,
    [](const G& settings) { return TJson(settings.GetWatchableArrayElementSize()); },
    [](G& settings, const char* text) { settings.SetWatchableArrayElementSize(NumberOf(text)); }};

template <bool (L::*Add)(const char*, bool), bool IsResolved>
bool AddDirectory(L& settings, const char* entry) {
    return (settings.*Add)(entry, IsResolved);
}

bool AddExtension(L& settings, const char* entry) {
    return settings.AddLibraryExtension(entry);
}

const TListKey kListKeys[] = {
    {"IncludeDirectories", true, &L::GetIncludeDirectories,
     AddDirectory<&L::AddIncludeDirectory, true>, &L::ClearIncludeDirectory,
     AddDirectory<&L::AddIncludeDirectory, false>},
    {"LibraryDirectories", true, &L::GetLibraryDirectories,
     AddDirectory<&L::AddLibraryDirectory, true>, &L::ClearLibraryDirectory,
     AddDirectory<&L::AddLibraryDirectory, false>},
    {"LibraryExtensions", false, &L::GetLibraryExtensions, AddExtension, &L::ClearLibraryExtension,
     AddExtension},
};

template <class TKeys>
auto FindByName(const TKeys& keys, const std::string& name) -> decltype(&*std::begin(keys)) {
    const auto key = std::find_if(std::begin(keys), std::end(keys),
                                  [&](const auto& row) { return row.Name == name; });
    return key == std::end(keys) ? nullptr : &*key;
}

}  // namespace

const std::vector<TGeneralKey>& GeneralKeys() {
    static const std::vector<TGeneralKey> keys = {
        TextKey<G, &G::GetSimulationLogFileName, &G::SetLogFileName>("LogFileName", SETTING_NAME),
        BoolKey<G, &G::GetAddTopLevelSignals, &G::SetAddTopLevelSignals>("AddTopLevelSignals"),
        BoolKey<G, &G::GetShowWatchSignals, &G::SetShowWatchSignals>("ShowWatchSignals"),
        BoolKey<G, &G::GetDumpWatchSignals, &G::SetDumpWatchSignals>("DumpWatchSignals"),
        BoolKey<G, &G::GetBreakAtTimeZeroAfterCompile, &G::SetBreakAtTimeZeroAfterCompile>(
            "BreakAtTimeZeroAfterCompile"),
        BoolKey<G, &G::GetClearLogFileBeforeCompile, &G::SetClearLogFileBeforeCompile>(
            "ClearLogFileBeforeCompile"),
        BoolKey<G, &G::GetAutoParseProject, &G::SetAutoParseProject>("AutoParseProject"),
        BoolKey<G, &G::GetGenerateTestBenchOnBuildProject, &G::SetGenerateTestBenchOnBuildProject>(
            "GenerateTestBenchOnBuildProject"),
        BoolKey<G, &G::GetDisableWaveformUpdate, &G::SetDisableWaveformUpdate>(
            "DisablePeriodicWaveformUpdate"),
        BoolKey<G, &G::GetCompileVerilogFiles, &G::SetCompileVerilogFiles>("CompileVerilogFiles"),
        BoolKey<G, &G::GetCompileVHDLFiles, &G::SetCompileVHDLFiles>("CompileVHDLFiles"),
        BoolKey<G, &G::GetCompileCppFiles, &G::SetCompileCppFiles>("CompileCppFiles"),
        BoolKey<G, &G::GetMakeConstantsWatchable, &G::SetMakeConstantsWatchable>(
            "MakeConstantsWatchable"),
        BoolKey<G, &G::GetMakeArrayElementsWatchable, &G::SetMakeArrayElementsWatchable>(
            "MakeArrayElementsWatchable"),
        kArrayElementSize,
        BoolKey<G, &G::GetEnableSimulatorDebugging, &G::SetEnableSimulatorDebugging>(
            "EnableSimulatorDebugging"),
    };
    return keys;
}

const std::vector<TLanguageKey>& LanguageKeys() {
    static const std::vector<TLanguageKey> keys = {
        kSimulator,
        ListKey<&L::GetIncludeDirectories>("IncludeDirectories"),
        ListKey<&L::GetLibraryDirectories>("LibraryDirectories"),
        ListKey<&L::GetLibraryExtensions>("LibraryExtensions"),
        BoolKey<L, &L::IsVhdl93DefaultSettingsEnabled, &L::SetVhdl93DefaultSettingsEnabled>(
            "UseVhdl93Defaults"),
        kDelayType,
        BoolKey<L, &L::GetPliDriven, &L::SetPliDriven>("PliDriven"),
        kSnapshot,
        TextKey<L, &L::GetDestinationLibraryName, &L::SetDestinationLibraryName>(
            "DestinationLibraryName"),
        TextKey<L, &L::GetAdditionalExtensions, &L::SetAdditionalExtensions>(
            "AdditionalExtensions"),
        TextKey<L, &L::GetBuildOptions, &L::SetBuildOptions>("BuildOptions"),
        TextKey<L, &L::GetLinkerOptions, &L::SetLinkerOptions>("LinkerOptions"),
        TextKey<L, &L::GetRuntimeOptions, &L::SetRuntimeOptions>("RuntimeOptions"),
        TextKey<L, &L::GetOutputFileName, &L::SetOutputFileName>("OutputFileName"),
        BoolKey<L, &L::IsRunOutputFileExecutable, &L::SetRunOutputFileExecutable>(
            "RunOutputFileExecutable"),
        BoolKey<L, &L::IsForceTopLevel, &L::SetForceTopLevel>("ForceTopLevel"),
    };
    return keys;
}

const TGeneralKey* FindGeneralKey(const std::string& name) {
    return FindByName(GeneralKeys(), name);
}

const TLanguageKey* FindLanguageKey(const std::string& name) {
    const bool isOlder = name == "CompilerOptions" || name == "SimulatorOptions";
    return FindByName(LanguageKeys(), isOlder ? "BuildOptions" : name);
}

const TListKey* FindListKey(const std::string& name) {
    return FindByName(kListKeys, name);
}

std::string KnownKeys() {
    std::string names;
    for (const TGeneralKey& key : GeneralKeys()) names += std::string(key.Name) + ", ";
    for (const TLanguageKey& key : LanguageKeys()) names += std::string(key.Name) + ", ";
    return names.substr(0, names.size() - 2);
}

std::string ValueComplaint(TSettingKind kind, const std::string& text, THdlLanguage language) {
    const auto isOneOf = [&text](std::initializer_list<const char*> words) {
        return std::find(words.begin(), words.end(), text) != words.end();
    };
    switch (kind) {
        case SETTING_NAME:
            return text.empty() ? "a text that is not empty is wanted" : "";
        case SETTING_BOOL:
            if (isOneOf({"true", "yes", "on", "1", "false", "no", "off", "0"})) return "";
            return "true or false is wanted";
        case SETTING_NUMBER:
            return NumberOf(text) >= 0 ? "" : "a number from 0 on is wanted";
        case SETTING_DELAY:
            if (isOneOf({"min", "typical", "max", "0", "1", "2"})) return "";
            return "min, typical or max is wanted";
        case SETTING_SIMULATOR: {
            const auto& languages =
                GetSimulatorTable()[static_cast<std::size_t>(FindSimulator(text))].Languages;
            if (std::find(languages.begin(), languages.end(), language) != languages.end())
                return "";
            return "no simulator of this language; known: " + JoinNames(KnownSimulators(language));
        }
        case SETTING_TEXT:
        case SETTING_LIST:
            return "";
    }
    return "";
}
