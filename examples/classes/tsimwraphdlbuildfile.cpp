// TSimWrapHdlBuildFile: a build that frees the configurations that it was given.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TSimWrapHdlBuildFile build;
    auto* general = new TProjectSimGeneralConfig;
    general->SetLogFileName("night.log");
    build.SetGeneralConfiguration(general);  // from here on the build's

    TProjectSimLanguageConfig vhdl;
    vhdl.SetBuildOptions("-2008");
    build.AddLanguageConfig(LANGUAGE_VHDL, &vhdl);  // a copy
    std::cout << build.GetGeneralConfiguration()->GetSimulationLogFileName() << "\n"
              << build.GetCompileOptions(LANGUAGE_VHDL) << "\n";
    return 0;
}
