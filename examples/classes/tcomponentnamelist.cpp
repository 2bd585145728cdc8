// TComponentNameList: the units of one language that are simulated, each once.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TComponentNameList tops(LANGUAGE_VHDL);
    tops.AddComponentName("counter_tb", "sim", "work");
    tops.AddComponentName("fifo_tb", "sim", "work");
    std::cout << "added again: " << tops.AddComponentName("FIFO_TB", "SIM", "work") << "\n";

    TXMLList document;
    document.SetDocumentType("<!DOCTYPE Tops SYSTEM \"tops.dtd\">");
    tops.WriteToFile(&document);
    std::string text;
    document.WriteToText(&text, nullptr);
    std::cout << tops.size() << " components\n" << text;
    tops.Flush();  // deletes the names
    return 0;
}
