// IBuildManager: what a simulator's code asks of the build, with the variables put in.
#include <hdlbuildfile.h>
#include <iostream>

std::string CommandLine(IBuildManager& build) {
    return "vcom " + build.GetCompileOptions(LANGUAGE_VHDL);
}

int main() {
    TSimWrapHdlBuildFile build;
    TProjectSimLanguageConfig vhdl;
    vhdl.SetBuildOptions("-2008 -work ${LIBRARY}");
    build.AddLanguageConfig(LANGUAGE_VHDL, &vhdl);
    (*build.GetPseudoEnvironmentVariables())["LIBRARY"] = "core";
    std::cout << CommandLine(build) << "\n";
    return 0;
}
