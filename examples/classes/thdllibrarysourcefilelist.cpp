// THdlLibrarySourceFileList: the folder whose sources are library files.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlLibrarySourceFileList cells(nullptr);
    cells.AddAtTailAndSetOwner(ISFileName::NewISFileName("nand.v"));
    std::cout << cells.GetName() << ": " << cells.GetHead()->GetNameAndExt()
              << " is a library file: " << cells.GetHead()->IsLibrary() << "\n";
    return 0;
}
