// THdbSFileName: a file name as an item of the design database, over the shared name of the file.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdbSFileName file("rtl/fifo.vhd");
    std::cout << file.ShortName(false) << "\n"
              << "the shared name: "
              << (file.GetFileName() == ISFileName::NewISFileName("rtl/fifo.vhd")) << "\n";
    // A text in an editor that is not on the disk yet.
    file.SetAsVirtualFile();
    std::cout << "virtual: " << THdbSFileName(file).IsVirtualFile() << "\n";
    file.StripVirtualState();
    return 0;
}
