// TSourceFileGroups: the sources of a build, a list for each language.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlSourceFile top("top.vhd");
    THdlSourceFile cells("cells.v");
    TSourceFileGroups groups(nullptr);
    groups.AddSourceFile(&top, false);
    groups.AddSourceFile(&cells, false);
    for (const THdlLanguage language : groups.GetLanguages())
        std::cout << GetStringFromHdlLanguage(language) << ": "
                  << groups.FindGroup(language)->size() << "\n";
    const ISFileName* name = ISFileName::NewISFileName("cells.v");
    std::cout << "found: " << (groups.GetSourceFile(name) == &cells) << "\n";
    return 0;
}
