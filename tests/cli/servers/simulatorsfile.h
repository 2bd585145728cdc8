#pragma once
#include <string>

/// A simulators file with the given tools, as the tool writes it.
inline std::string FileText(const std::string& tools) {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"serverconfigurationfile.dtd\">\n"
           "<HdlBuildFileList>\n"
           "  <ExternalSimulatorSettings>\n" +
           tools +
           "  </ExternalSimulatorSettings>\n"
           "</HdlBuildFileList>\n";
}

inline std::string ToolText(const std::string& name, const std::string& language,
                            const std::string& path = "", const std::string& pli = "") {
    return "    <Tool Name=\"" + name + "\" Path=\"" + path + "\" PliLibPath=\"" + pli + "\">" +
           language + "</Tool>\n";
}
