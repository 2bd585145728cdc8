#pragma once
#include "services/files/directories.h"
#include "services/ini/inifilenames.h"
#include "services/ini/propcache.h"
#include "services/names/isfilename.h"
#include "settings/projectsimconfig.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/settingtexts.h"
#include <string>

/// The library only carries pointers to proxies.
class ICorbaProxy {};

/// INI files of the test's own, and an installation directory on a drive, so that what is resolved
/// against it reads the same on both systems.
template <class TFolder>
class IniFilesIn {
public:
    IniFilesIn() {
        SetIniFile(Folder.Path("user.ini").c_str());
        SetSystemIniFile(Folder.Path("system.ini").c_str());
        SetOrvaneHomeDirectory("H:\\home\\");
    }
    ~IniFilesIn() {
        ResetSystemPropCache();
        SetIniFile(nullptr);
        SetSystemIniFile(nullptr);
        SetOrvaneHomeDirectory(nullptr);
    }
    /// What the user's file holds after everything written so far.
    std::string Saved() const {
        GetSystemPropCache()->Flush();
        return Folder.Read("user.ini");
    }
    /// Replaces the user's file by `text`.
    void Give(const std::string& text) const {
        ResetSystemPropCache();
        Folder.Write("user.ini", text);
    }

private:
    TFolder Folder;
};
using IniFiles = IniFilesIn<MemoryFolder>;

inline const ISFileName* FileNamed(const char* path) {
    return ISFileName::NewISFileName(path);
}

inline std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) joined += "<" + text + ">";
    return joined;
}

/// Every setting of the general configuration, one a line.
inline std::string TextOf(const TProjectSimGeneralConfig& general) {
    std::string text = "log=" + std::string(general.GetSimulationLogFileName()) + "\n";
    const std::pair<const char*, bool> flags[] = {
        {"top", general.GetAddTopLevelSignals()},
        {"show", general.GetShowWatchSignals()},
        {"dump", general.GetDumpWatchSignals()},
        {"break", general.GetBreakAtTimeZeroAfterCompile()},
        {"clear", general.GetClearLogFileBeforeCompile()},
        {"parse", general.GetAutoParseProject()},
        {"bench", general.GetGenerateTestBenchOnBuildProject()},
        {"waveform", general.GetDisableWaveformUpdate()},
        {"verilog", general.GetCompileVerilogFiles()},
        {"vhdl", general.GetCompileVHDLFiles()},
        {"cpp", general.GetCompileCppFiles()},
        {"constants", general.GetMakeConstantsWatchable()},
        {"arrays", general.GetMakeArrayElementsWatchable()},
        {"debugging", general.GetEnableSimulatorDebugging()}};
    for (const auto& [name, value] : flags) text += value ? std::string(name) + " " : "";
    return text + "size=" + std::to_string(general.GetWatchableArrayElementSize()) + "\n";
}

/// The settings as SetDefaults gives them.
inline constexpr const char* kGeneralDefaults =
    "log=simulation.log\ntop show clear bench constants debugging size=0\n";

/// Every setting of the language configuration, with a line for each group.
inline std::string TextOf(const TProjectSimLanguageConfig& settings) {
    const auto path = [](const ISFileName* file) {
        return file ? std::string(file->Canonical(false)) : "null";
    };
    std::string text = "project=" + path(settings.GetProjectFileName()) +
                       " vcd=" + path(settings.GetVcdFileName()) + "\n";
    text += "tool=" + std::to_string(settings.GetTool()) +
            " delay=" + std::to_string(settings.GetDelayType());
    const std::pair<const char*, bool> flags[] = {
        {"toplevel", settings.IsUseTopLevelProjectSettings()},
        {"vhdl93", settings.IsVhdl93DefaultSettingsEnabled()},
        {"pli", settings.GetPliDriven()},
        {"vcdexport", settings.GetVcdExport()},
        {"run", settings.IsRunOutputFileExecutable()},
        {"force", settings.IsForceTopLevel()}};
    for (const auto& [name, value] : flags) text += value ? std::string(" ") + name : "";
    text += "\ninclude=" + Joined(settings.GetIncludeDirectories()) +
            "\nlibrary=" + Joined(settings.GetLibraryDirectories()) +
            "\nextensions=" + Joined(settings.GetLibraryExtensions());
    text += "\noutput=<" + std::string(settings.GetOutputFileName()) + "> additional=<" +
            settings.GetAdditionalExtensions() + "> snapshot=<" +
            settings.GetActiveSnapshotName().Str() + "> destination=<" +
            settings.GetDestinationLibraryName() + ">";
    return text + "\nbuild=<" + settings.GetBuildOptions() + "> linker=<" +
           settings.GetLinkerOptions() + "> runtime=<" + settings.GetRuntimeOptions() + ">\n";
}

/// The settings as the constructor gives them.
inline constexpr const char* kLanguageDefaults =
    "project=null vcd=null\n"
    "tool=0 delay=1 toplevel vhdl93\n"
    "include=\nlibrary=\nextensions=\n"
    "output=<> additional=<> snapshot=<> destination=<work>\n"
    "build=<> linker=<> runtime=<>\n";

/// Gives every setting a value that is no default; the files are on drives.
inline void FillLanguageConfig(TProjectSimLanguageConfig& settings) {
    settings.SetProjectFileName(FileNamed("D:\\p\\design.hpj"));
    settings.SetUseTopLevelProjectSettings(false);
    settings.SetTool(SIM_NC_VERILOG);
    settings.AddIncludeDirectory("inc", true);
    settings.AddIncludeDirectory("${IP}/inc", true);
    settings.AddLibraryDirectory("E:\\lib", true);
    settings.AddLibraryExtension(".v");
    settings.AddLibraryExtension(".vo");
    settings.SetVhdl93DefaultSettingsEnabled(false);
    settings.SetDelayType(DELAY_TYPE_MAXIMUM);
    settings.SetPliDriven(true);
    settings.SetVcdExport(true);
    settings.SetVcdFileName(FileNamed("D:\\p\\dump.vcd"));
    settings.SetOutputFileName("bench.exe");
    settings.SetRunOutputFileExecutable(true);
    settings.SetForceTopLevel(true);
    settings.SetAdditionalExtensions(".svp");
    settings.SetActiveSnapshotName("snap");
    settings.SetDestinationLibraryName("gates");
    settings.SetBuildOptions("-b 1");
    settings.SetLinkerOptions(" -l 2");
    settings.SetRuntimeOptions("-r 3");
}

/// What TextOf gives for the settings above.
inline constexpr const char* kFullLanguageConfig =
    "project=D:\\p\\design.hpj vcd=D:\\p\\dump.vcd\n"
    "tool=20 delay=2 pli vcdexport run force\n"
    "include=<D:\\p\\inc><${IP}/inc>\nlibrary=<E:\\lib\\>\nextensions=<.v><.vo>\n"
    "output=<bench.exe> additional=<.svp> snapshot=<snap> destination=<gates>\n"
    "build=<-b 1> linker=< -l 2> runtime=<-r 3>\n";

/// The settings above as project files hold them.
inline TSettingValues FullLanguageValues() {
    return {{"SimTool", "NCSim Verilog"},
            {"IncludeDirectories", "inc, ${IP}/inc"},
            {"LibraryDirectories", "E:\\lib\\"},
            {"LibraryExtensions", ".v, .vo"},
            {"UseVhdl93Defaults", "false"},
            {"DelayType", "max"},
            {"PliDriven", "true"},
            {"ActiveSnapshotName", "snap"},
            {"DestinationLibraryName", "gates"},
            {"AdditionalExtensions", ".svp"},
            {"BuildOptions", "-b 1"},
            {"LinkerOptions", " -l 2"},
            {"RuntimeOptions", "-r 3"},
            {"OutputFileName", "bench.exe"},
            {"RunOutputFileExecutable", "true"},
            {"ForceTopLevel", "true"}};
}
