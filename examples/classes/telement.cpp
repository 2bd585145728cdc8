// TElement: one event of a document, with the attributes that it begins with.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TElement start(TElement::START, "SourceFile", "");
    start.SetAttributes({{"PrecompiledLibrary", "core"}, {"Library", "true"}});
    std::cout << start.Name.c_str() << " " << start.GetAttribute("PrecompiledLibrary") << "\n"
              << "library file: " << start.GetAttributeBool("Library", false)
              << ", absent: " << start.GetBool("Absent", true) << " "
              << start.HasAttribute("Absent") << "\n";
    return 0;
}
