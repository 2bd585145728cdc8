#pragma once
#include "flows/diagnosticrules.h"
#include <string>

/// docs/diagnostics.md, made from the table.
inline std::string MakeDiagnosticsPage() {
    std::string page =
        "# The diagnostics\n\n"
        "What `hdlbuild check` finds wrong with a build. `{1}`, `{2}` ... stand for the names of\n"
        "one fault. This page is printed by the test program `print_diagnostics` from the table "
        "in\n"
        "`src/flows/diagnosticrules.cpp`.\n";
    for (const TDiagnosticRule& rule : GetDiagnosticRules()) {
        page += "\n## " + GetDiagnosticId(rule.Code) + ": " + rule.Name + "\n\n";
        page += std::string("*") + GetSeverityText(rule.Severity) + "*: `" + rule.Text + "`\n\n";
        page += std::string(rule.Cure) + "\n";
    }
    return page;
}
