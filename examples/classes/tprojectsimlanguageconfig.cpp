// TProjectSimLanguageConfig: simulator, directories and options of one language.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TProjectSimLanguageConfig verilog;
    verilog.SetTool(SIM_VCS);
    verilog.SetDelayType(DELAY_TYPE_MAXIMUM);
    verilog.AddLibraryExtension(".v");
    std::cout << "added: " << verilog.AddLibraryExtension(".sv")
              << ", again: " << verilog.AddLibraryExtension(".v") << "\n";
    verilog.AddIncludeDirectory("rtl/include", false);
    const TProjectSimLanguageConfig copy(verilog);
    for (const std::string& extension : copy.GetLibraryExtensions()) std::cout << extension << "\n";
    std::cout << copy.GetIncludeDirectories().front() << "\n"
              << copy.GetCorbaSimulatorName() << "\n";
    return 0;
}
