#pragma once
#include "flows/diagnosticrules.h"
#include "flows/trees/json.h"
#include <functional>
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
