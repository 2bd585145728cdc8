// TProjectTemplateSimConfigList: the templates that new configurations are copies of.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TProjectTemplateSimConfigList templates;
    templates.ResetAllTemplateConfigurations();
    for (const TProjectSimConfig* each : templates.GetConfigurations())
        std::cout << each->GetName() << "\n";
    return 0;
}
