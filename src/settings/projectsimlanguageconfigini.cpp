// The INI form of TProjectSimLanguageConfig.
#include "services/base/fold.h"
#include "services/files/directories.h"
#include "services/files/pathtext.h"
#include "services/ini/inifilenames.h"
#include "services/logging/binarylog.h"
#include "services/names/environment.h"
#include "services/names/isfilename.h"
#include "settings/inikeys.h"
#include "settings/projectsettingsconfigurationsdata.h"

namespace {

using namespace ProjectSettingsConfigurationsData;

TIniKeys KeysOf(const char* section, TSimulatorType tool, bool bareKeys) {
    return {section, bareKeys ? "" : std::string(GetSimulatorNameFromType(tool)) + "_"};
}

/// The settings in the user's own INI file name what is installed with the environment.
std::string WrittenBaseOf(const ISFileName* projectFile) {
    const bool isIniFile =
        EqualIgnoringCase(projectFile->Canonical(false), GetIniFile()->Canonical(false));
    return isIniFile ? GetOrvaneHomeDirectory() : projectFile->GetPathOnly();
}

/// Writes the directories as people know them, from `projectFile` on; as they are without one.
void WriteRelativePathToINI(const TIniKeys& keys, const char* key,
                            const std::vector<std::string>& directories,
                            const ISFileName* projectFile) {
    if (!projectFile || !*projectFile->Canonical(false))
        return keys.WriteStringsToINI(key, directories);
    const std::string base = WrittenBaseOf(projectFile);
    std::vector<std::string> nice;
    for (const std::string& directory : directories) {
        nice.push_back(directory);
        // What is already relative starts from the project, not from the working directory.
        if (!HasOrvaneEnvVariable(directory.c_str()) && !IsRelativePath(directory.c_str()))
            IFileName::CreateNiceFileNameForUI(base.c_str(), directory.c_str(), &nice.back());
    }
    keys.WriteStringsToINI(key, nice);
}

}  // namespace

void TProjectSimLanguageConfig::ReadFromINI(const char* section, THdlLanguage language,
                                            bool bareKeys) {
    if (const auto tool = TIniKeys(section, "").ReadText("SimTool"))
        Tool = GetSimulatorTypeFromName(tool->c_str());
    const TIniKeys keys = KeysOf(section, Tool, bareKeys);
    if (language == LANGUAGE_VERILOG) ReadVerilogKeys(keys, bareKeys);
    keys.ReadText("ActiveSnapshotName", &ActiveSnapshotName);
    keys.ReadText("DestinationLibraryName", &DestinationLibraryName);
    if (language == LANGUAGE_TESTBUILDER) {
        // Written, not read: the directories of a test bench follow the project at hand.
        WriteDirectoryKeys(keys);
        RunOutputFileExecutable = keys.ReadBool("RunOutputFileExecutable", false);
        OutputFileName = keys.ReadText("OutputFileName").value_or(OutputFileName);
    }
    keys.ReadText("AdditionalExtensions", &AdditionalExtensions);
    if (const auto options = keys.ReadText("BuildOptions")) SetBuildOptions(options->c_str());
    keys.ReadText("LinkerOptions", &LinkerOptions);
    keys.ReadText("RuntimeOptions", &RuntimeOptions);
}

void TProjectSimLanguageConfig::ReadVerilogKeys(const TIniKeys& keys, bool resolve) {
    ReadDirectoryKeys(keys, "IncludeDirectory", IncludeDirectories, resolve);
    ReadDirectoryKeys(keys, "LibraryDirectory", LibraryDirectories, resolve);
    ReadDirectoryKeys(keys, "LibraryExtension", LibraryExtensions, false);
    Vhdl93DefaultSettingsEnabled = keys.ReadBool("UseVhdl93Defaults", true);
    if (const auto delayType = keys.ReadText("DelayType"))
        DelayType = ParseDelayType(std::string(TrimmedView(*delayType)).c_str());
    PliDriven = keys.ReadBool("PliDriven", false);
}

void TProjectSimLanguageConfig::ReadDirectoryKeys(const TIniKeys& keys, const char* key,
                                                  TUniqueTextList& list, bool resolve) const {
    const auto texts = keys.ReadStringsFromINI(key);
    if (!texts) return;
    list.Clear();
    for (const std::string& text : *texts) AddDirectory(list, text.c_str(), resolve);
}

void TProjectSimLanguageConfig::WriteToINI(const char* section, THdlLanguage language,
                                           bool bareKeys) const {
    if (Tool == SIM_NONE) {
        static TCheckSite site("SimTool != SIM_NONE", kSource, kWriteIniWithoutSimulator);
        site.Report();
    }
    TIniKeys(section, "").WriteText("SimTool", GetSimulatorNameFromType(Tool));
    const TIniKeys keys = KeysOf(section, Tool, bareKeys);
    if (language == LANGUAGE_VERILOG) {
        WriteDirectoryKeys(keys);
        keys.WriteStringsToINI("LibraryExtension", GetLibraryExtensions());
        keys.WriteBool("UseVhdl93Defaults", Vhdl93DefaultSettingsEnabled);
        keys.WriteText("DelayType", GetDelayTypeFromEnum(DelayType));
        keys.WriteBool("PliDriven", PliDriven);
    }
    keys.WriteText("ActiveSnapshotName", ActiveSnapshotName);
    keys.WriteText("DestinationLibraryName", DestinationLibraryName);
    if (language == LANGUAGE_TESTBUILDER) {
        WriteDirectoryKeys(keys);
        keys.WriteBool("RunOutputFileExecutable", RunOutputFileExecutable);
        keys.WriteText("OutputFileName", OutputFileName.c_str());
    }
    keys.WriteText("AdditionalExtensions", AdditionalExtensions);
    keys.WriteText("BuildOptions", BuildOptions);
    keys.WriteText("LinkerOptions", LinkerOptions);
    keys.WriteText("RuntimeOptions", RuntimeOptions);
}

void TProjectSimLanguageConfig::WriteDirectoryKeys(const TIniKeys& keys) const {
    WriteRelativePathToINI(keys, "IncludeDirectory", GetIncludeDirectories(), ProjectFile);
    WriteRelativePathToINI(keys, "LibraryDirectory", GetLibraryDirectories(), ProjectFile);
}
