#pragma once
#include "services/base/api.h"

/// The results of a simulation run, as far as a stimulus file asks about them.
class HDLBUILDFILE_SHARED_TYPE ISimulationResults {
public:
    virtual ~ISimulationResults() = default;
    /// Whether the results are archived ones.
    virtual bool IsArchive() const = 0;
};
