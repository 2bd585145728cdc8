#pragma once
#include "cli/frame/command.h"
#include "cli/frame/json.h"
#include "flows/diagnosticrules.h"
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
    const char* Key;  ///< of its member in the JSON output
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

/// The findings of all kinds, under the keys of their rows.
using TFindings = std::vector<std::pair<const char*, TFound>>;

template <class TSubject>
TFindings FindAll(const std::vector<TFindingKind<TSubject>>& kinds, const TSubject& subject) {
    TFindings findings;
    for (const auto& kind : kinds) findings.emplace_back(kind.Key, kind.Find(subject));
    return findings;
}

/// Prints the findings about `file`: their texts and details, or one line when nothing is wrong; as
/// JSON `result` with "clean" and a member for each kind. Returns kExitProblems or kExitDone.
int ReportFindings(const TFindings& findings, const std::string& file, TJson result,
                   const TCommonArguments& arguments, const TToolStreams& streams);
