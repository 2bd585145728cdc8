// THdlSourceFile: a plain source with its language, library and dependencies.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    THdlSourceFile alu("rtl/alu.vhd");
    THdlSourceFile package("rtl/alu_pkg.vhd");
    std::cout << GetStringFromHdlLanguage(alu.GetLanguage()) << "\n";
    alu.SetPrecompiledLibraryGroupName("core");
    std::cout << "added: " << alu.AddDependency(&package)
              << ", again: " << alu.AddDependency(&package) << "\n";
    const ISFileName* name = ISFileName::NewISFileName("rtl/alu_pkg.vhd");
    std::cout << "needs it: " << (alu.GetDependency(name) == &package) << "\n";
    alu.RemoveDependency(name);
    std::cout << "needs " << alu.GetDependencyList()->size() << "\n";
    return 0;
}
