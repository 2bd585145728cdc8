#include "cli/frame/findings.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/texts.h"
#include "flows/check/documentlocator.h"
#include "flows/knownnames.h"
#include <algorithm>

namespace {

bool IsSuppressed(TDiagnosticCode code, const TReportOptions& options) {
    return std::any_of(options.Suppressed.begin(), options.Suppressed.end(),
                       [code](const std::string& id) {
                           const TDiagnosticRule* rule = FindDiagnosticRule(id);
                           return rule && rule->Code == code;
                       });
}

TDiagnosticSeverity SeverityOf(TDiagnosticCode code, const TReportOptions& options) {
    const TDiagnosticSeverity severity = GetDiagnosticRule(code).Severity;
    return options.Strict && severity == SEVERITY_WARNING ? SEVERITY_ERROR : severity;
}

// In the build file.
bool HasPlace(const TReportedDiagnostic& diagnostic) {
    return diagnostic.Fault->Place != kNoXMLPlace;
}

/// The text is read and its lines are looked for when a fault has a place.
void Locate(const std::function<std::string()>& readText, TReport* report) {
    if (!std::any_of(report->Diagnostics.begin(), report->Diagnostics.end(), HasPlace)) return;
    report->Text = readText();
    const TDocumentLocator locator(report->Text);
    if (!locator.HasPlaces()) return;
    for (TReportedDiagnostic& diagnostic : report->Diagnostics) {
        if (!HasPlace(diagnostic)) continue;
        const TLinePlace place = locator.Find(diagnostic.Fault->Place);
        diagnostic.Line = place.Line;
        diagnostic.Column = place.Column;
        diagnostic.LineBegin = place.LineBegin;
    }
}

void PrintDetails(const TDiagnostic& diagnostic, const TToolStreams& streams) {
    for (const std::string& detail : diagnostic.Details) PrintLine(streams.Out, "  " + detail);
}

// An error has no word in front, so that lines stay as scripts know them.
void PrintPlain(const TReport& report, const TToolStreams& streams) {
    for (const TReportedDiagnostic& diagnostic : report.Diagnostics) {
        const bool isError = diagnostic.Severity == SEVERITY_ERROR;
        const std::string place = GetSourcePlaceText(diagnostic.Fault->Source);
        PrintLine(streams.Out,
                  (isError ? "" : std::string(GetSeverityText(diagnostic.Severity)) + ": ") +
                      (place.empty() ? "" : place + ": ") + GetDiagnosticText(*diagnostic.Fault));
        PrintDetails(*diagnostic.Fault, streams);
    }
    if (report.Diagnostics.empty()) PrintLine(streams.Out, report.File + ": no problems");
}

// As compilers do, so that editors find the place.
void PrintText(const TReport& report, const TToolStreams& streams) {
    for (const TReportedDiagnostic& diagnostic : report.Diagnostics) {
        const std::string& source = diagnostic.Fault->Source.Path;
        std::string line = (source.empty() ? report.File : source) + ":";
        if (diagnostic.Line > 0)
            line += std::to_string(diagnostic.Line) + ":" + std::to_string(diagnostic.Column) + ":";
        PrintLine(streams.Out, line + " " + GetSeverityText(diagnostic.Severity) + ": " +
                                   GetDiagnosticText(*diagnostic.Fault) + " [" +
                                   GetDiagnosticId(diagnostic.Fault->Code) + "]");
        PrintDetails(*diagnostic.Fault, streams);
    }
}

TJson DiagnosticsAsJson(const TReport& report) {
    TJson list = TJson::Array();
    for (const TReportedDiagnostic& diagnostic : report.Diagnostics) {
        const TDiagnosticRule& rule = GetDiagnosticRule(diagnostic.Fault->Code);
        const bool isPlaced = diagnostic.Line > 0;
        TJson one = {{"code", GetDiagnosticId(rule.Code)},
                     {"severity", GetSeverityText(diagnostic.Severity)},
                     {"line", isPlaced ? TJson(diagnostic.Line) : TJson()},
                     {"column", isPlaced ? TJson(diagnostic.Column) : TJson()},
                     {"text", GetDiagnosticText(*diagnostic.Fault)},
                     {"details", diagnostic.Fault->Details},
                     {"cure", rule.Cure}};
        if (!diagnostic.Fault->Source.Path.empty()) one["source"] = diagnostic.Fault->Source.Path;
        list.Add(std::move(one));
    }
    return list;
}

void PrintAsJson(const TReport& report, const TToolStreams& streams) {
    TJson result = report.Result;
    result["diagnostics"] = DiagnosticsAsJson(report);
    PrintJson(result, streams);
}

void PrintSarif(const TReport& report, const TToolStreams& streams) {
    PrintJson(MakeSarif(report), streams);
}

constexpr const char* kJsonFormat = "json";

struct TReportFormat {
    const char* Name;
    void (*Print)(const TReport& report, const TToolStreams& streams);
};

constexpr TReportFormat kFormats[] = {
    {"", PrintPlain},
    {"text", PrintText},
    {kJsonFormat, PrintAsJson},
    {"sarif", PrintSarif},
};

std::vector<std::string> KnownCodes() {
    std::vector<std::string> codes;
    for (const TDiagnosticRule& rule : GetDiagnosticRules())
        codes.push_back(GetDiagnosticId(rule.Code));
    return codes;
}

const TReportFormat* FindFormat(const std::string& name) {
    for (const TReportFormat& format : kFormats)
        if (name == format.Name) return &format;
    return nullptr;
}

}  // namespace

int CheckReportOptions(const TReportOptions& options, const TToolStreams& streams) {
    if (streams.Outcome && options.Format == kJsonFormat) streams.Outcome->IsWanted = true;
    if (!FindFormat(options.Format)) {
        ReportError(streams, UnknownName("format", options.Format, {"text", "json", "sarif"}));
        return kExitUsage;
    }
    for (const std::string& id : options.Suppressed) {
        if (FindDiagnosticRule(id)) continue;
        ReportError(streams, UnknownName("code", id, KnownCodes()));
        return kExitUsage;
    }
    return kExitDone;
}

void ReportFailureAsSarif(const std::string& reason, const std::string& file,
                          const TToolStreams& streams) {
    PrintJson(MakeSarif({file, {}, {}, {}, reason}), streams);
}

int ReportFindings(const TFindings& findings, const std::string& file,
                   const std::function<std::string()>& readText, TJson result,
                   const TReportOptions& options, const TToolStreams& streams) {
    TReport report{file, {}, {}, std::move(result), {}};
    for (const auto& [key, found] : findings)
        for (const TDiagnostic& diagnostic : found.Diagnostics)
            if (!IsSuppressed(diagnostic.Code, options))
                report.Diagnostics.push_back({&diagnostic, SeverityOf(diagnostic.Code, options),
                                              diagnostic.Source.Line, diagnostic.Source.Column});
    Locate(readText, &report);
    report.Result["clean"] = report.Diagnostics.empty();
    for (const auto& [key, found] : findings)
        if (key) report.Result[key] = found.Json;
    FindFormat(options.Format)->Print(report, streams);
    const bool hasError =
        std::any_of(report.Diagnostics.begin(), report.Diagnostics.end(),
                    [](const auto& diagnostic) { return diagnostic.Severity == SEVERITY_ERROR; });
    return hasError ? kExitProblems : kExitDone;
}
