// TProjectDiagramSimConfig: the configuration of diagrams, of which some settings are fixed.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TProjectDiagramSimConfig diagram;
    diagram.ResetDiagramConfiguration();
    const TProjectSimGeneralConfig* general = diagram.GetGeneralConfiguration();
    std::cout << diagram.GetName() << "\n"
              << "parses the project: " << general->GetAutoParseProject() << "\n"
              << "shows watched signals: " << general->GetShowWatchSignals() << "\n";
    return 0;
}
