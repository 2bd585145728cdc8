// THdlBuildFile: makes a build of two sources, saves it, and reads it again in compile order.
#include <fstream>
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    std::ofstream("pkg.vhd") << "package pkg is\nend;\n";
    std::ofstream("top.vhd") << "use work.pkg.all;\nentity top is\nend;\n";
    THdlSourceFile top("top.vhd");
    THdlSourceFile package("pkg.vhd");
    top.AddDependency(&package);
    {
        TSimWrapHdlBuildFile build;
        build.SetBuildFileName(ISFileName::NewISFileName("build.xml"));
        build.SetTopLanguage(LANGUAGE_VHDL);
        build.SetHdlLanguage(LANGUAGE_VHDL);
        build.SetDestinationLibrary("work");
        build.AddSourceFile(&top, false);
        build.AddSourceFile(&package, false);
        std::cout << "saved: " << build.WriteToFile() << "\n";
    }
    TSimWrapHdlBuildFile build(ISFileName::NewISFileName("build.xml"));
    std::cout << THdlBuildFile::GetErrorString(build.GetReadResult()) << "\n";
    build.OrderFilesForCompile(LANGUAGE_VHDL);
    for (const IHdlSourceFile* source : *build.GetFilesToCompile(LANGUAGE_VHDL))
        std::cout << source->GetFileName()->ShortName(false) << "\n";
    return 0;
}
