// TProjectSimConfig: a named configuration with settings for each language.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TProjectSimConfig fast(false);
    fast.SetName("Fast");
    TProjectSimLanguageConfig* verilog = fast.GetProjectLanguageConfig(LANGUAGE_VERILOG);
    verilog->SetTool(SIM_VCS);
    verilog->SetBuildOptions("+define+FAST");
    const TProjectSimConfig copy(fast);
    std::cout << copy.GetName() << " "
              << copy.GetProjectLanguageConfig(LANGUAGE_VERILOG)->GetBuildOptions() << "\n"
              << "has SystemC: " << (copy.GetProjectLanguageConfig(LANGUAGE_SYSTEMC) != nullptr)
              << "\n";
    return 0;
}
