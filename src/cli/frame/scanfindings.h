#pragma once
#include "cli/frame/streams.h"
#include "cli/frame/toldscan.h"
#include "flows/diagnosticrules.h"
#include "flows/scannedtops.h"
#include "flows/trees/json.h"
#include <string>
#include <vector>

/// A top-level component as it is told.
std::string NameOfTop(const TBuildTop& top);

/// Adds a member for each kind of finding to `result`.
void AddFindings(const TToldScan& told, TJson* result);

/// kExitProblems in place of kExitDone where sources could not be read or, with a warning, depend
/// on each other in cycles: then no order is a compile order.
int StatusOfScan(int status, const TBuildScan& scan, const TToolStreams& streams);

/// All findings, in the order of the output.
std::vector<TDiagnostic> DiagnoseScan(const TToldScan& told);

/// What a command is about to change, and does not tell: what dependencies lack, what is
/// unexplained and will be removed, what is late and will move.
struct TScanRepairs {
    bool Lacking = false;
    bool Unexplained = false;
    bool Late = false;
};

/// Prints the other findings: what may be wrong on Err, what is good to know on Out.
void PrintFindings(const TToldScan& told, const TScanRepairs& repairs, const TToolStreams& streams);
