#pragma once
#include "projectfiles/hdlprojectdiagramfile.h"

class ISimulationResults;

/// A diagram of the stimulus and the results of a simulation run.
class HDLBUILDFILE_API THdlProjectStimulusResultsFile : public THdlProjectDiagramFile {
public:
    /// `results`, which may be null, stay the caller's.
    THdlProjectStimulusResultsFile(const ISFileName* file, IProjectComponent* owner,
                                   ISimulationResults* results);
    /// The copy belongs to the same results.
    THdlProjectStimulusResultsFile(const THdlProjectStimulusResultsFile& other);
    THdlProjectStimulusResultsFile& operator=(const THdlProjectStimulusResultsFile& other);
    ~THdlProjectStimulusResultsFile() override;

    void Accept(IBaseVisitor* visitor) const override;
    ISimulationResults* GetOwnerResults() const { return OwnerResults; }
    void SetOwnerResults(ISimulationResults* results) { OwnerResults = results; }
    /// Whether the results are archived ones; false without results.
    bool IsArchive() const;

private:
    ISimulationResults* OwnerResults;
};
