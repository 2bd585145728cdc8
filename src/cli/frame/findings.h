#pragma once
#include "cli/frame/command.h"
#include "flows/diagnosticrules.h"
#include "flows/trees/json.h"
#include <functional>
#include <string>
#include <utility>
#include <vector>

/// What was found of one kind.
struct TFound {
    std::vector<TDiagnostic> Diagnostics;  ///< none: nothing is wrong
    TJson Json;
};

/// A kind of finding in a `TSubject`: one row in the table of a command that checks.
template <class TSubject>
struct TFindingKind {
    const char* Key;  ///< of its member in the JSON output; null: "diagnostics" tells all
    std::function<TFound(const TSubject&)> Find;
};

/// A kind of which there may be many. In JSON it is the array of them.
template <class TSubject, class TItem>
TFindingKind<TSubject> FindingKind(const char* key, std::vector<TItem> (*collect)(const TSubject&),
                                   TDiagnostic (*diagnose)(const TItem&, const TSubject&),
                                   TJson (*json)(const TItem&, const TSubject&)) {
    return {key, [=](const TSubject& subject) {
                TFound found{{}, TJson::Array()};
                for (const TItem& item : collect(subject)) {
                    found.Diagnostics.push_back(diagnose(item, subject));
                    found.Json.Add(json(item, subject));
                }
                return found;
            }};
}

/// A kind that is one fault or none. In JSON it is a value that is there without a fault, too.
template <class TSubject>
TFindingKind<TSubject> FaultKind(const char* key, bool (*isFault)(const TSubject&),
                                 TDiagnostic (*diagnose)(const TSubject&),
                                 TJson (*json)(const TSubject&)) {
    return {key, [=](const TSubject& subject) {
                TFound found{{}, json(subject)};
                if (isFault(subject)) found.Diagnostics.push_back(diagnose(subject));
                return found;
            }};
}

/// A kind that has no member of its own in JSON.
template <class TSubject>
TFindingKind<TSubject> DiagnosticKind(std::vector<TDiagnostic> (*find)(const TSubject&)) {
    return {nullptr, [=](const TSubject& subject) { return TFound{find(subject), TJson()}; }};
}

/// The findings of all kinds, under the keys of their rows.
using TFindings = std::vector<std::pair<const char*, TFound>>;

template <class TSubject>
TFindings FindAll(const std::vector<TFindingKind<TSubject>>& kinds, const TSubject& subject) {
    TFindings findings;
    for (const auto& kind : kinds) findings.emplace_back(kind.Key, kind.Find(subject));
    return findings;
}

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
