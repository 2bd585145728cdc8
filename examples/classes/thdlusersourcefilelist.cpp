// THdlUserSourceFileList, THdlProjectUserSourceFile: sources of the user, and what belongs to one
// of them.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlUserSourceFileList sources(nullptr);
    const ISFileName* top = ISFileName::NewISFileName("top.vhd");
    sources.AddAtTailAndSetOwner(top);
    sources.SetAssociatedFileScope(top);
    sources.AddAssociatedFileToScopeFile(ISFileName::NewISFileName("top_pkg.vhd"));

    const auto* file = dynamic_cast<const THdlProjectUserSourceFile*>(sources.GetHead());
    std::cout << sources.GetName() << ": " << file->GetNameAndExt() << "\n";
    for (const THdlProjectFile* associated : *file->GetAssociatedFileList())
        std::cout << "with " << associated->GetNameAndExt() << "\n";
    return 0;
}
