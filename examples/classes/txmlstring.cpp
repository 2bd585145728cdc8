// TXMLString: a text for a document, with the characters that XML needs itself written as
// references.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const TXMLString condition = MakeXMLString("a < b & c");
    std::cout << condition.GetPlain() << "\n" << condition.GetEscaped() << "\n";
    return 0;
}
