// TV2VTranslationFileOption: a switch with files, which are named against the component's folder.
#include <hdlbuildfile.h>
#include <iostream>

class Project : public TProjectComponent {
public:
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage) override { return nullptr; }
    TProjectSimGeneralConfig* GetGeneralConfiguration() const override { return nullptr; }
    const ISFileName* GetFileName() const override { return ISFileName::NewISFileName("p.hpj"); }
};

int main() {
    Project project;
    TV2VTranslationOptionsList options(&project, "Options");
    auto* packages = new TV2VTranslationFileOption("-p", "-p, packages", "Packages", true);
    options.AddOptionNoDup(packages);  // from here on the list's
    packages->AddFileNoDup("rtl/types.vhd");
    packages->AddAnOption("rtl/math.vhd");
    std::cout << packages->GetListString() << "\n";
    packages->ClearList();
    std::cout << '[' << packages->GetListString() << "]\n";
    options.Flush();
    return 0;
}
