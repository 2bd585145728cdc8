// TAttributeList: attributes that are pushed with an element, each name once.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TAttributeList attributes;
    attributes.Psh("Name", "VCS");
    attributes.PushBool("Enabled", true);
    attributes.Psh("Name", "NCSim");  // the first place, the last value
    TXMLList document;
    document.Psh("Tool", &attributes, TElement::START, "");
    document.Psh("Tool", nullptr, TElement::END, "");
    std::string text;
    document.WriteToText(&text, nullptr);
    std::cout << text;
    return 0;
}
