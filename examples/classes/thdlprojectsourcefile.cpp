// THdlProjectSourceFile: a source of a project; settings are those of its owner.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlProjectSourceFile cells(ISFileName::NewISFileName("lib/cells.v"), nullptr, true);
    std::cout << GetStringFromHdlLanguage(cells.GetHdlLanguage()) << "\n"
              << "library file: " << cells.IsLibrary() << "\n";
    cells.SetExcludeFromBuild(true);
    const THdlProjectSourceFile copy(cells);
    std::cout << "the copy is excluded: " << copy.IsExcludeFromBuild() << "\n";
    return 0;
}
