// TProjectComponent: a component in a file, against whose folder a translator's files are stored.
#include <hdlbuildfile.h>
#include <iostream>

class Project : public TProjectComponent {
public:
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage) override { return nullptr; }
    TProjectSimGeneralConfig* GetGeneralConfiguration() const override { return nullptr; }
    const ISFileName* GetFileName() const override {
        return ISFileName::NewISFileName("project/design.hpj");
    }
};

int main() {
    Project project;
    TV2VTranslationOptionsList options(&project, "Vhdl2VerilogTranslationOptions");
    auto* packages = new TV2VTranslationFileOption("-p", "-p, packages", "Packages", true);
    options.AddOptionNoDup(packages);
    packages->AddFileNoDup("project/rtl/pkg.vhd");
    std::cout << packages->GetListString() << "\n";
    options.Flush();
    return 0;
}
