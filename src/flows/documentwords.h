#pragma once
#include "flows/diagnosticrules.h"
#include "flows/knownelements.h"
#include "services/xml/elementvisit.h"
#include <set>

/// Meets the elements of a build file one after the other, in document order, and finds the words
/// that no reader knows: elements, attributes, languages, simulators and time units, and settings
/// that cannot be read. What is repeated is found once, at its first place; settings each time.
class TDocumentWords {
public:
    void Meet(const TMetElement& element);
    /// In the order in which they were met: a list at its end.
    const std::vector<TDiagnostic>& GetDiagnostics() const { return Diagnostics; }

private:
    struct TOpen {
        const TKnownElement* Known;  // null for an unknown element
        std::uint32_t Place;
        bool HasEntry = false;  // a list's
        bool IsBroken = false;  // holds what a reader of lists stops at
    };

    void Open(const TMetElement& start);
    void Close();
    const TKnownElement* FindKnown(std::string_view name);
    void MeetInList(const TKnownElement* known);
    void MeetUnknown(const std::string& name, std::uint32_t place);
    void MeetText(const TMetElement& text);
    void CheckAttributes(const TKnownElement& known, const TMetElement& start);
    void CheckWord(TWordKind kind, std::string_view text, std::uint32_t place);
    void AddOnce(TDiagnosticCode code, std::vector<std::string> names, std::uint32_t place);
    void Add(TDiagnosticCode code, std::vector<std::string> names, std::uint32_t place) {
        Diagnostics.push_back({code, std::move(names), {}, place});
    }

    std::vector<TOpen> Stack;
    // What was met last in each known element: mostly the same again.
    std::vector<const TKnownElement*> LastIn =
        std::vector<const TKnownElement*>(GetKnownElements().size());
    std::string Language;  // of the settings met last
    std::set<std::pair<TDiagnosticCode, std::vector<std::string>>> Told;
    std::vector<TDiagnostic> Diagnostics;
};
