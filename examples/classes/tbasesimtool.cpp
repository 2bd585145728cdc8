// TBaseSimTool: which program simulates a language, as files hold it.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TBaseSimTool tool;
    tool.SetLanguage(LANGUAGE_VERILOG);
    tool.SetSimulatorType(SIM_VCS);
    tool.SetPliLibrary("pli.so");
    TXMLList document;
    tool.WriteToFile(&document);
    std::string text;
    document.WriteToText(&text, nullptr);
    std::cout << text;

    TBaseSimTool read;
    DListIterator<TElement*> element(document);
    read.ReadFromFile(element);
    std::cout << read.GetPliLibrary() << "\n";
    return 0;
}
