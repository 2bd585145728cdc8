// TV2VTranslationOptionsList: the switches of a translator in the order of its command line.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TV2VTranslationOptionsList options(nullptr, "Verilog2VhdlTranslationOptions");
    TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions(&options);
    std::cout << "checks components: " << !options.IsOptionEnabled("-ncc") << "\n";
    options.FindOption("-87")->SetEnabled(true);
    TXMLList document;
    options.WriteToFile(&document);
    std::string text;
    document.WriteToText(&text, nullptr);
    std::cout << text;
    options.Flush();
    return 0;
}
