// THdlBuildFileXMLList: the document of a build file, pushed by the build and printed in memory.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TSimWrapHdlBuildFile build;
    build.SetTopLanguage(LANGUAGE_VERILOG);
    build.AddComponentName("counter", "", "work", LANGUAGE_VERILOG);

    THdlBuildFileXMLList document(&build);
    document.SetDocumentType("<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">");
    build.WriteTopLevelComponentNames(&document);
    std::string text;
    document.WriteToText(&text, nullptr);
    std::cout << text;
    return 0;
}
