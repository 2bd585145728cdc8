// IHdlSourceFile: what a build knows of a source, whatever class it is of.
#include <hdlbuildfile.h>
#include <iostream>

void Print(const IHdlSourceFile& source) {
    std::cout << source.GetFileName()->ShortName(false) << " in "
              << source.GetPrecompiledLibraryGroupName() << ", needs "
              << source.GetDependencyList()->size() << "\n";
}

int main() {
    THdlSourceFile package("pkg.vhd");
    package.SetPrecompiledLibraryGroupName("util");
    THdlProjectSourceFile top(ISFileName::NewISFileName("top.vhd"), nullptr, false);
    top.SetPrecompiledLibraryGroupName("work");
    top.AddDependency(&package);
    for (const IHdlSourceFile* source :
         {static_cast<IHdlSourceFile*>(&package), static_cast<IHdlSourceFile*>(&top)})
        Print(*source);
    return 0;
}
