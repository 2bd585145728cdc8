#pragma once
#include "cli/frame/json.h"
#include "cli/frame/streams.h"
#include "cli/frame/texts.h"
#include "cli/scan/commands.h"
#include "flows/buildscan.h"
#include "flows/compilesort.h"
#include "flows/scannedtops.h"
#include <string>
#include <vector>

/// A build that has been scanned, as it is told.
struct TToldScan {
    const TBuildScan& Scan;
    TPathForm Paths;
    std::vector<TLateSource> Late = {};  ///< of Verilog

    std::string PathOf(std::size_t source) const;
    /// "lib.e", "lib.e(a)" of an architecture.
    std::string NameOf(TUnitPlace unit) const;
};

/// A top-level component as it is told.
std::string NameOfTop(const TScannedTop& top);

/// Adds a member for each kind of finding to `result`.
void AddFindings(const TToldScan& told, TJson* result);

/// kExitProblems in place of kExitDone where sources could not be read or, with a warning, depend
/// on each other in cycles: then no order is a compile order.
int StatusOfScan(int status, const TBuildScan& scan, const TToolStreams& streams);

/// Prints the findings: what may be wrong on Err, what is good to know on Out. What differs from
/// the build is left out where it is about to change, unless `arguments` ask for a check: what
/// dependencies lack, what is unexplained and will be removed, what is late and will move.
void PrintFindings(const TToldScan& told, const TScanArguments& arguments,
                   const TToolStreams& streams);
