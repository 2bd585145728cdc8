// TProjectSimGeneralConfig: the settings that do not depend on the language, as an element.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TProjectSimGeneralConfig settings;
    settings.SetLogFileName("run.log");
    settings.SetCompileVHDLFiles(true);
    TXMLList document;
    settings.WriteToProjectFile(&document);
    TProjectSimGeneralConfig read;
    read.ReadFromFile(DListIterator<TElement*>(document).Current());
    std::cout << read.GetSimulationLogFileName() << "\n"
              << "VHDL: " << read.GetCompileLanguageFiles(LANGUAGE_VHDL)
              << ", Verilog: " << read.GetCompileLanguageFiles(LANGUAGE_VERILOG) << "\n";
    return 0;
}
