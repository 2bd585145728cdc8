// THdlUtilitiesSourceFileList: the folder of utilities; to take one out is no change of the
// project.
#include <hdlbuildfile.h>
#include <iostream>

class Project : public IProjectComponent {
public:
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage) override { return nullptr; }
    TProjectSimGeneralConfig* GetGeneralConfiguration() const override { return nullptr; }
    void SetProjectModified(bool) override { std::cout << "modified\n"; }
};

int main() {
    Project project;
    THdlUtilitiesSourceFileList utilities(&project);
    const ISFileName* name = ISFileName::NewISFileName("text_util.vhd");
    utilities.AddAtTailAndSetOwner(name);
    std::cout << utilities.GetName() << ": removed " << utilities.Remove(name, true) << "\n";
    return 0;
}
