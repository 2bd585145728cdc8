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
