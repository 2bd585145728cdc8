#include "cli/frame/findings.h"
#include <algorithm>

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

// Of each character of UTF-8 one byte is no continuation. In UTF-16 bytes are no characters.
TJson RegionOf(const TReportedDiagnostic& diagnostic, std::string_view text) {
    TJson region = {{"startLine", diagnostic.Line}};
    const bool isWide = text.find('\0') < 4;
    const auto length = static_cast<std::size_t>(diagnostic.Column) - 1;
    if (isWide || length > kLongestColumn) return region;
    const std::string_view front = text.substr(diagnostic.LineBegin, length);
    region["startColumn"] = 1 + std::count_if(front.begin(), front.end(), [](char c) {
                                return (static_cast<unsigned char>(c) & 0xc0U) != 0x80U;
                            });
    return region;
}

TJson ResultAsSarif(const TReportedDiagnostic& diagnostic, const TReport& report) {
    const std::vector<TDiagnosticRule>& rules = GetDiagnosticRules();
    const TDiagnosticRule& rule = GetDiagnosticRule(diagnostic.Fault->Code);
    std::string text = GetDiagnosticText(*diagnostic.Fault);
    for (const std::string& detail : diagnostic.Fault->Details) text += "\n" + detail;
    TJson place = {{"artifactLocation", TJson{{"uri", UriOf(report.File)}}}};
    if (diagnostic.Line > 0) place["region"] = RegionOf(diagnostic, report.Text);
    TJson locations = TJson::Array();
    locations.Add({{"physicalLocation", place}});
    return {{"ruleId", GetDiagnosticId(rule.Code)},
            {"ruleIndex", &rule - rules.data()},
            {"level", GetSeverityText(diagnostic.Severity)},
            {"message", TextObject(text)},
            {"locations", locations}};
}

}  // namespace

TJson MakeSarif(const TReport& report) {
    TJson rules = TJson::Array();
    for (const TDiagnosticRule& rule : GetDiagnosticRules()) rules.Add(RuleAsSarif(rule));
    TJson results = TJson::Array();
    for (const TReportedDiagnostic& diagnostic : report.Diagnostics)
        results.Add(ResultAsSarif(diagnostic, report));
    TJson runs = TJson::Array();
    runs.Add({{"tool", TJson{{"driver", TJson{{"name", "hdlbuild"}, {"rules", rules}}}}},
              {"columnKind", "unicodeCodePoints"},
              {"results", results}});
    return {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
            {"version", "2.1.0"},
            {"runs", runs}};
}
