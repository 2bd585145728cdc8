// THdlProjectStimulusResultsFile, ISimulationResults: a diagram that belongs to the results of a
// run.
#include <hdlbuildfile.h>
#include <iostream>

class ArchivedRun : public ISimulationResults {
public:
    bool IsArchive() const override { return true; }
};

int main() {
    ArchivedRun run;
    THdlProjectStimulusResultsFile waves(ISFileName::NewISFileName("waves.btim"), nullptr, &run);
    std::cout << "archived: " << waves.IsArchive() << "\n";
    waves.SetOwnerResults(nullptr);
    std::cout << "archived: " << waves.IsArchive() << "\n";
    return 0;
}
