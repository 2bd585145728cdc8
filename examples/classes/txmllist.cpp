// TXMLList: a document as a stream of elements, read from a text and printed again.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TXMLList document;
    TXMLReadError error;
    document.ReadFromText("<Tools><Tool Name='VCS'>Verilog</Tool></Tools>", &error);
    for (DListIterator<TElement*> at(document); at.NotAtTail(); ++at)
        if (at.Current()->ElemType == TElement::TEXT)
            std::cout << at.Current()->Text.c_str() << "\n";

    TXMLList note;
    note.PushTextElement("Note", "a < b");
    std::string text;
    note.WriteToText(&text, nullptr);
    std::cout << text;
    if (!document.ReadFromText("<Tools>\n<Tool>", &error))
        std::cout << error.Line << ":" << error.Column << ": " << error.Reason << "\n";
    return 0;
}
