#pragma once
#include "cli/frame/streams.h"
#include "flows/check/scandiagnostics.h"
#include "flows/check/toldscan.h"
#include "flows/diagnosticrules.h"
#include "flows/scannedtops.h"
#include "flows/trees/json.h"
#include <string>
#include <vector>

/// A top-level component as it is told.
std::string NameOfTop(const TBuildTop& top);

/// Adds a member for each kind of finding to `result`.
void AddFindings(const TToldScan& told, TJson* result);

/// An error line on Err for each source that could not be read; kExitProblems if there is one, else
/// kExitDone.
int ReportUnread(const TToldScan& told, const TToolStreams& streams);

/// kExitProblems in place of kExitDone where sources could not be read or, with a warning, depend
/// on each other in cycles: then no order is a compile order.
int StatusOfScan(int status, const TBuildScan& scan, const TToolStreams& streams);

/// Prints the findings but for those that are repaired: what may be wrong on Err, what is good to
/// know on Out.
void PrintFindings(const TToldScan& told, const TScanRepairs& repairs, const TToolStreams& streams);
