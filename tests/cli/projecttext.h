#pragma once
#include <string>

/// A project file with the configurations Release, the current one, and Debug, among the sections
/// of other components.
inline std::string ProjectText() {
    return "<!DOCTYPE SimulationProject SYSTEM \"project.dtd\">\n"
           "<SimulationProject Version=\"7\">\n"
           "  <Windows><Window Name=\"main\"/></Windows>\n"
           "  <ProjectSettings CurrentConfiguration=\"Release\">\n"
           "    <ProjectSettingsConfiguration ConfigurationName=\"Release\">\n"
           "      <LanguageSettings Language=\"Verilog\">\n"
           "        <SimTool>VCS</SimTool>\n"
           "        <IncludeDirectories><Directory>inc</Directory>"
           "<Directory>${IP}/inc</Directory></IncludeDirectories>\n"
           "        <LibraryExtensions><Extension>.v</Extension></LibraryExtensions>\n"
           "        <DelayType>2</DelayType>\n"
           "        <LinkerOptions> -l 2</LinkerOptions>\n"
           "      </LanguageSettings>\n"
           "    </ProjectSettingsConfiguration>\n"
           "    <ProjectSettingsConfiguration ConfigurationName=\"Debug\"/>\n"
           "  </ProjectSettings>\n"
           "  <Notes>keep &amp; hold</Notes>\n"
           "</SimulationProject>\n";
}

/// What "settings show" prints of the general settings when all have their defaults.
inline constexpr const char* kGeneralText =
    "  LogFileName                       simulation.log\n"
    "  AddTopLevelSignals                true\n"
    "  ShowWatchSignals                  true\n"
    "  DumpWatchSignals                  false\n"
    "  BreakAtTimeZeroAfterCompile       false\n"
    "  ClearLogFileBeforeCompile         true\n"
    "  AutoParseProject                  false\n"
    "  GenerateTestBenchOnBuildProject   true\n"
    "  DisablePeriodicWaveformUpdate     false\n"
    "  CompileVerilogFiles               false\n"
    "  CompileVHDLFiles                  false\n"
    "  CompileCppFiles                   false\n"
    "  MakeConstantsWatchable            true\n"
    "  MakeArrayElementsWatchable        false\n"
    "  WatchableArrayElementSize         0\n"
    "  EnableSimulatorDebugging          true\n";

/// What it prints of a language: the settings that differ between languages by default, the others
/// with their defaults. Texts that are not empty begin at their column.
struct TLanguageText {
    std::string Language;
    std::string SimTool;
    std::string IncludeDirectories;
    std::string LibraryDirectories = "";
    std::string LibraryExtensions = "";
    std::string DelayType = "typical";
    std::string BuildOptions = "";
    std::string LinkerOptions = "";
};

inline std::string LineOf(const std::string& key, const std::string& value) {
    return "  " + key + (value.empty() ? "" : std::string(34 - key.size(), ' ') + value) + "\n";
}

inline std::string TextOf(const TLanguageText& text) {
    return text.Language + "\n" + LineOf("SimTool", text.SimTool) +
           LineOf("IncludeDirectories", text.IncludeDirectories) +
           LineOf("LibraryDirectories", text.LibraryDirectories) +
           LineOf("LibraryExtensions", text.LibraryExtensions) +
           "  UseVhdl93Defaults                 true\n" + LineOf("DelayType", text.DelayType) +
           "  PliDriven                         false\n"
           "  ActiveSnapshotName\n"
           "  DestinationLibraryName            work\n"
           "  AdditionalExtensions\n" +
           LineOf("BuildOptions", text.BuildOptions) + LineOf("LinkerOptions", text.LinkerOptions) +
           "  RuntimeOptions\n"
           "  OutputFileName\n"
           "  RunOutputFileExecutable           false\n"
           "  ForceTopLevel                     false\n";
}
