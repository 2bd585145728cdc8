#include "projectfiles/hdlprojectstimulusresultsfile.h"
#include "projectfiles/isimulationresults.h"
#include "services/designdatabase/visitor.h"

THdlProjectStimulusResultsFile::THdlProjectStimulusResultsFile(const ISFileName* file,
                                                               IProjectComponent* owner,
                                                               ISimulationResults* results)
    : THdlProjectDiagramFile(file, owner), OwnerResults(results) {}

THdlProjectStimulusResultsFile::THdlProjectStimulusResultsFile(
    const THdlProjectStimulusResultsFile& other) = default;

THdlProjectStimulusResultsFile& THdlProjectStimulusResultsFile::operator=(
    const THdlProjectStimulusResultsFile& other) = default;

THdlProjectStimulusResultsFile::~THdlProjectStimulusResultsFile() = default;

void THdlProjectStimulusResultsFile::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}

bool THdlProjectStimulusResultsFile::IsArchive() const {
    return OwnerResults && OwnerResults->IsArchive();
}
