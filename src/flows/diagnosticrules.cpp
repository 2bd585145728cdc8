#include "flows/diagnosticrules.h"
#include <algorithm>

namespace {

constexpr std::string_view kPrefix = "HB";

bool IsIdOf(std::string_view id, TDiagnosticCode code) {
    const std::string known = GetDiagnosticId(code);
    return std::equal(id.begin(), id.end(), known.begin(), known.end(), [](char a, char b) {
        return (a >= 'a' && a <= 'z' ? static_cast<char>(a - 'a' + 'A') : a) == b;
    });
}

}  // namespace

const std::vector<TDiagnosticRule>& GetDiagnosticRules() {
    static const std::vector<TDiagnosticRule> rules = {
        {DIAGNOSTIC_NO_BUILD, "no-build", SEVERITY_ERROR,
         "no HdlBuildFile element: the document describes no build",
         "Name the file that holds the build. A build file has an HdlBuildFile element around its "
         "sections."},
        {DIAGNOSTIC_READ_RESULT, "unreadable-section", SEVERITY_ERROR, "read result {1}: {2}",
         "Mend what the read result names. Sections behind one that cannot be read may be missing "
         "from the build, so do not save it before."},
        {DIAGNOSTIC_MISSING_FILE, "missing-file", SEVERITY_ERROR, "missing file: {1} ({2})",
         "Restore or generate the file, correct its path, which is relative to the folder of the "
         "build file, or take its SourceFile element out."},
        {DIAGNOSTIC_REPEATED_SOURCE, "repeated-source", SEVERITY_ERROR,
         "named {1} times: {2} ({3})",
         "Keep one SourceFile element of the source. The build holds a path once, so the other "
         "elements' libraries and flags are lost."},
        {DIAGNOSTIC_SPELLINGS, "spellings", SEVERITY_ERROR, "{1} spellings: {2}",
         "Spell the path everywhere as its SourceFile element does. Where the file system "
         "distinguishes case, one of the files does not exist."},
        {DIAGNOSTIC_CYCLE, "dependency-cycle", SEVERITY_ERROR, "dependency cycle of {1}: {2}",
         "Take out one Dependency of the cycle. With a cycle no order is a compile order."},
    };
    return rules;
}

const TDiagnosticRule& GetDiagnosticRule(TDiagnosticCode code) {
    const std::vector<TDiagnosticRule>& rules = GetDiagnosticRules();
    return *std::find_if(rules.begin(), rules.end(),
                         [code](const TDiagnosticRule& rule) { return rule.Code == code; });
}

const TDiagnosticRule* FindDiagnosticRule(std::string_view id) {
    for (const TDiagnosticRule& rule : GetDiagnosticRules())
        if (IsIdOf(id, rule.Code)) return &rule;
    return nullptr;
}

std::string GetDiagnosticId(TDiagnosticCode code) {
    return std::string(kPrefix) + std::to_string(code);
}

const char* GetSeverityText(TDiagnosticSeverity severity) {
    static constexpr const char* kTexts[] = {"note", "warning", "error"};
    return kTexts[severity];
}

std::string GetDiagnosticText(const TDiagnostic& diagnostic) {
    std::string text;
    std::string_view rest = GetDiagnosticRule(diagnostic.Code).Text;
    for (std::size_t at; (at = rest.find('{')) != std::string_view::npos;
         rest.remove_prefix(at + 3)) {
        const auto place = static_cast<std::size_t>(rest[at + 1] - '1');
        text += rest.substr(0, at);
        if (place < diagnostic.Names.size()) text += diagnostic.Names[place];
    }
    return text + std::string(rest);
}
