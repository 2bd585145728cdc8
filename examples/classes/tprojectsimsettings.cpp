// TProjectSimSettings: the configurations of a project; "Default" is the first.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TProjectSimSettings settings;
    auto* release = new TProjectSimConfig(false);
    release->SetName("Release");
    settings.AddConfiguration(release);
    settings.CopyConfiguration("Default", "Nightly");
    settings.GetConfiguration("Nightly")->GetGeneralConfiguration()->SetLogFileName("night.log");
    for (const TProjectSimConfig* each : settings.GetConfigurations())
        std::cout << each->GetName() << " "
                  << each->GetGeneralConfiguration()->GetSimulationLogFileName() << "\n";
    return 0;
}
