// TIHdlSourceFileList: sources in their order, each name once.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlSourceFile top("top.v");
    THdlSourceFile cells("cells.v");
    THdlSourceFile again("./TOP.v");
    TIHdlSourceFileList sources;
    sources.SetLanguage(LANGUAGE_VERILOG);
    sources.AddSourceFile(&top, false);
    sources.AddSourceFile(&cells, true);
    std::cout << "added: " << sources.AddSourceFile(&again, false) << "\n";
    for (const IHdlSourceFile* source : sources)
        std::cout << source->GetFileName()->ShortName(false) << "\n";
    sources.RemoveSourceFile(&cells);
    std::cout << "left: " << sources.size() << "\n";
    return 0;
}
