// THpjFile: reads the settings of a project file, changes them, and saves them.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    const ISFileName* name = ISFileName::NewISFileName("design.hpj");
    {
        TProjectSimSettings settings;
        THpjFile file(name);
        std::cout << THpjFile::GetErrorString(file.Read(&settings)) << "\n";
        auto* nightly = new TProjectSimConfig(false);
        nightly->SetName("Nightly");
        settings.AddConfiguration(nightly);
        settings.SelectCurrentConfig("Nightly");
        std::cout << "saved: " << (file.Save(&settings) == HPJ_FILE_DONE) << "\n";
    }
    TProjectSimSettings settings;
    THpjFile(name).Read(&settings);
    std::cout << settings.GetCurrentConfigName() << "\n";
    return 0;
}
