// THdlSourceFileList: a folder of sources, which are made for the names that are added.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlSourceFileList sources(nullptr);
    sources.AddAtTailAndSetOwner(ISFileName::NewISFileName("top.vhd"));
    sources.AddAtTailAndSetOwner(ISFileName::NewISFileName("cells.v"));
    for (THdlProjectFile* file : sources) {
        auto* source = dynamic_cast<THdlProjectSourceFile*>(file);
        std::cout << source->GetNameAndExt() << " "
                  << GetStringFromHdlLanguage(source->GetHdlLanguage()) << "\n";
    }
    return 0;
}
