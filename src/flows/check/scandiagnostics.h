#pragma once
#include "flows/check/toldscan.h"
#include "flows/diagnosticrules.h"
#include "flows/trees/json.h"
#include <span>
#include <vector>

/// One finding of a scan.
struct TScanDiagnostic {
    TDiagnostic Diagnostic;
    TJson Json;
};

/// A kind of finding: one row of the table of all that a scan may find.
struct TScanDiagnosticKind {
    const char* Key;  ///< of its member in JSON
    std::vector<TScanDiagnostic> (*Find)(const TToldScan& told);
};

/// In the order of all outputs.
std::span<const TScanDiagnosticKind> GetScanDiagnosticKinds();

/// What is about to change, and is not told: what dependencies lack, what is
/// unexplained and will be removed, what is late and will move.
struct TScanRepairs {
    bool Lacking = false;
    bool Unexplained = false;
    bool Late = false;
};

/// All other findings, in that order.
std::vector<TDiagnostic> DiagnoseScan(const TToldScan& told, const TScanRepairs& repairs = {});
