// ICorbaProjectSimSettingsConfigurationImpl, ICorbaProjectSimLanguageSettingsImpl,
// ICorbaProjectSimGeneralSettingsImpl: reads settings as another process does.
#include <hdlbuildfile.h>
#include <iostream>

void Print(ICorbaProjectSimSettingsConfigurationImpl& configuration) {
    ICorbaProjectSimLanguageSettingsImpl* verilog =
        configuration.GetCorbaProjectSimLanguageSettings("Verilog");
    std::cout << configuration.GetCorbaConfigurationName() << "\n"
              << verilog->GetCorbaSimulatorName() << " " << verilog->GetCorbaBuildOptionsString()
              << "\n";
}

int main() {
    TProjectSimConfig nightly(false);
    nightly.SetName("Nightly");
    nightly.GetProjectLanguageConfig(LANGUAGE_VERILOG)->SetBuildOptions("+define+NIGHT");
    Print(nightly);
    ICorbaProjectSimGeneralSettingsImpl& general = *nightly.GetGeneralConfiguration();
    std::cout << general.GetCorbaSimulationLogFileName() << "\n";
    return 0;
}
