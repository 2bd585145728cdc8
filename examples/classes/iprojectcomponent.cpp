// IProjectComponent: the owner of a project's files, which gives them settings and hears of
// changes.
#include <hdlbuildfile.h>
#include <iostream>

class Project : public IProjectComponent {
public:
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage) override { return &Settings; }
    TProjectSimGeneralConfig* GetGeneralConfiguration() const override { return nullptr; }
    void SetProjectModified(bool modified) override {
        std::cout << "modified: " << modified << "\n";
    }

    TProjectSimLanguageConfig Settings;
};

int main() {
    Project project;
    project.Settings.SetBuildOptions("-g");
    THdlSourceFileList sources(&project);
    const ISFileName* name = ISFileName::NewISFileName("top.vhd");
    auto* source = static_cast<THdlProjectSourceFile*>(sources.AddAtTailAndSetOwner(name).first);
    std::cout << source->GetProjectLanguageConfig()->GetBuildOptions() << "\n";
    sources.Remove(name, true);
    return 0;
}
