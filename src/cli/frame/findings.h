#pragma once
#include "cli/frame/command.h"
#include "flows/check/findingkinds.h"
#include "flows/diagnosticrules.h"
#include "flows/trees/json.h"
#include <functional>
#include <string>
#include <utility>
#include <vector>

/// What a report says of one fault.
struct TReportedDiagnostic {
    const TDiagnostic* Fault;
    TDiagnosticSeverity Severity;
    int Line = 0;    ///< 1-based, of the build file or the fault's source; 0: without a place
    int Column = 0;  ///< 1-based, in bytes
    std::size_t LineBegin = 0;
};

/// All faults that are not suppressed, in the order of the rows.
struct TReport {
    std::string File;  ///< as the user named it
    std::string Text;  ///< of the file, when a diagnostic has a place in it
    std::vector<TReportedDiagnostic> Diagnostics;
    TJson Result;         ///< the JSON object, with all members
    std::string Failure;  ///< why the file could not be read; empty: it was
};

struct TReportOptions {
    std::string Format;                   ///< empty: plain lines
    bool Strict = false;                  ///< warnings are errors
    std::vector<std::string> Suppressed;  ///< codes
};

/// kExitUsage, with an error line on Err, for an unknown format or code; else kExitDone.
int CheckReportOptions(const TReportOptions& options, const TToolStreams& streams);

/// Prints the findings about `file` in a format of the options that CheckReportOptions accepts; as
/// JSON `result` with "clean", a member for each kind that has a key, and "diagnostics". `readText`
/// is asked for the text of the file when there are places in it; they are left out when it is "".
/// Returns kExitProblems when one of them is an error, else kExitDone.
int ReportFindings(const TFindings& findings, const std::string& file,
                   const std::function<std::string()>& readText, TJson result,
                   const TReportOptions& options, const TToolStreams& streams);

/// Prints a log of SARIF whose one notification is that `file` could not be read.
void ReportFailureAsSarif(const std::string& reason, const std::string& file,
                          const TToolStreams& streams);

/// A log of SARIF 2.1.0 with one run.
TJson MakeSarif(const TReport& report);
