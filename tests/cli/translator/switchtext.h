#pragma once
#include <string>

/// A build with elements that only a build's own reader knows, as the tool writes it.
inline std::string Build(const std::string& options) {
    return "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">\n"
           "<HdlBuildFileList>\n"
           "  <HdlBuildFile TopLevelLanguage=\"VHDL\">\n"
           "    <Foreign A=\"1\">text</Foreign>\n" +
           options +
           "  </HdlBuildFile>\n"
           "</HdlBuildFileList>\n";
}

/// The section of the switches between Verilog and VHDL.
inline std::string Options(const std::string& switches) {
    return "    <Verilog2VhdlTranslationOptions>\n" + switches +
           "    </Verilog2VhdlTranslationOptions>\n";
}
