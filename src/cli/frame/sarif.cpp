#include "cli/frame/findings.h"
#include "services/files/filereplace.h"
#include "services/xml/documentlines.h"
#include <algorithm>
#include <cstddef>
#include <optional>

namespace {

// Columns in longer lines would cost too much: characters must be counted one by one.
constexpr std::size_t kLongestColumn = 4096;

bool IsUnreserved(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

/// A path as a reference of a URI, absolute for an absolute path.
std::string UriOf(const std::string& path) {
#ifdef _WIN32
    constexpr char kDelimiter = '\\';
    const bool hasDrive = path.size() > 1 && path[1] == ':';
    std::string uri = hasDrive ? "file:///" : "";
#else
    constexpr char kDelimiter = '/';
    std::string uri = path.starts_with(kDelimiter) ? "file://" : "";
#endif
    static constexpr const char* kDigits = "0123456789ABCDEF";
    for (const char c : path) {
        if (c == kDelimiter || IsUnreserved(c)) {
            uri += c == kDelimiter ? '/' : c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        uri += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return uri;
}

TJson TextObject(std::string text) {
    return {{"text", std::move(text)}};
}

TJson RuleAsSarif(const TDiagnosticRule& rule) {
    return {{"id", GetDiagnosticId(rule.Code)},
            {"name", rule.Name},
            {"shortDescription", TextObject(rule.Text)},
            {"help", TextObject(rule.Cure)},
            {"defaultConfiguration", TJson{{"level", GetSeverityText(rule.Severity)}}}};
}

/// Sources in which something was found: the one looked at last is kept.
class TSourceTexts {
public:
    /// The characters of a line in front of a column; nothing when the file cannot be read.
    std::optional<std::string_view> FrontOf(const TDiagnosticSource& place) {
        if (place.Path != Path) Read(place.Path);
        const auto line = static_cast<std::size_t>(place.Line);
        const auto length = static_cast<std::size_t>(place.Column) - 1;
        if (line > Lines.size() || Lines[line - 1] + length > Text.size()) return std::nullopt;
        return std::string_view(Text).substr(Lines[line - 1], length);
    }

private:
    void Read(const std::string& path) {
        Path = path;
        Lines.clear();
        if (ReadWholeFile(path.c_str(), &Text, nullptr) == FILE_READ_DONE)
            Lines = FindLinesOfDocument(Text);
    }

    std::string Path;
    std::string Text;
    std::vector<std::size_t> Lines;
};

// Of each character of UTF-8 one byte is no continuation. In UTF-16 bytes are no characters.
std::ptrdiff_t ColumnBehind(std::string_view front) {
    return 1 + std::count_if(front.begin(), front.end(), [](char c) {
               return (static_cast<unsigned char>(c) & 0xc0U) != 0x80U;
           });
}

TJson RegionOf(const TReportedDiagnostic& diagnostic, std::string_view text,
               TSourceTexts* sources) {
    TJson region = {{"startLine", diagnostic.Line}};
    const auto length = static_cast<std::size_t>(diagnostic.Column) - 1;
    if (length > kLongestColumn) return region;
    if (!diagnostic.Fault->Source.Path.empty()) {
        const auto front = sources->FrontOf(diagnostic.Fault->Source);
        if (front) region["startColumn"] = ColumnBehind(*front);
        return region;
    }
    const bool isWide = text.find('\0') < 4;
    if (!isWide) region["startColumn"] = ColumnBehind(text.substr(diagnostic.LineBegin, length));
    return region;
}

TJson ResultAsSarif(const TReportedDiagnostic& diagnostic, const TReport& report,
                    TSourceTexts* sources) {
    const std::vector<TDiagnosticRule>& rules = GetDiagnosticRules();
    const TDiagnosticRule& rule = GetDiagnosticRule(diagnostic.Fault->Code);
    std::string text = GetDiagnosticText(*diagnostic.Fault);
    for (const std::string& detail : diagnostic.Fault->Details) text += "\n" + detail;
    const std::string& source = diagnostic.Fault->Source.Path;
    TJson place = {
        {"artifactLocation", TJson{{"uri", UriOf(source.empty() ? report.File : source)}}}};
    if (diagnostic.Line > 0) place["region"] = RegionOf(diagnostic, report.Text, sources);
    TJson locations = TJson::Array();
    locations.Add({{"physicalLocation", place}});
    return {{"ruleId", GetDiagnosticId(rule.Code)},
            {"ruleIndex", &rule - rules.data()},
            {"level", GetSeverityText(diagnostic.Severity)},
            {"message", TextObject(text)},
            {"locations", locations}};
}

/// The one run of the tool, which failed.
TJson FailureAsSarif(const TReport& report) {
    const TJson file = {{"artifactLocation", TJson{{"uri", UriOf(report.File)}}}};
    TJson locations = TJson::Array();
    locations.Add({{"physicalLocation", file}});
    TJson notifications = TJson::Array();
    notifications.Add({{"level", "error"},
                       {"message", TextObject(report.Failure)},
                       {"locations", std::move(locations)}});
    TJson invocations = TJson::Array();
    invocations.Add(
        {{"executionSuccessful", false}, {"toolExecutionNotifications", std::move(notifications)}});
    return invocations;
}

}  // namespace

TJson MakeSarif(const TReport& report) {
    TJson rules = TJson::Array();
    for (const TDiagnosticRule& rule : GetDiagnosticRules()) rules.Add(RuleAsSarif(rule));
    TJson results = TJson::Array();
    TSourceTexts sources;
    for (const TReportedDiagnostic& diagnostic : report.Diagnostics)
        results.Add(ResultAsSarif(diagnostic, report, &sources));
    TJson runs = TJson::Array();
    TJson run = {{"tool", TJson{{"driver", TJson{{"name", "hdlbuild"}, {"rules", rules}}}}},
                 {"columnKind", "unicodeCodePoints"},
                 {"results", results}};
    if (!report.Failure.empty()) run["invocations"] = FailureAsSarif(report);
    runs.Add(std::move(run));
    return {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
            {"version", "2.1.0"},
            {"runs", runs}};
}
