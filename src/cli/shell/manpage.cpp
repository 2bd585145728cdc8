#include "cli/shell/manpage.h"
#include "cli/shell/argumentkinds.h"
#include <algorithm>
#include <string_view>

namespace {

/// Text for roff: its escape character doubled, and no line that begins as a request does.
std::string RoffText(std::string_view text) {
    std::string roff;
    bool isLineStart = true;
    for (const char c : text) {
        if (isLineStart && (c == '.' || c == '\'')) roff += "\\&";
        if (c == '\\')
            roff += "\\e";
        else if (c == '-')
            roff += "\\-";
        else
            roff += c;
        isLineStart = c == '\n';
    }
    return roff;
}

std::string Bold(std::string_view text) {
    return "\\fB" + RoffText(text) + "\\fR";
}

/// "hdlbuild-settings" for "settings".
std::string PageName(std::string_view command) {
    return command.empty() ? "hdlbuild" : "hdlbuild-" + std::string(command);
}

std::string Heading(const std::string& page, std::string_view description) {
    std::string upper = page;
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return ".TH " + RoffText(upper) + " 1\n.SH NAME\n" + RoffText(page) + " \\- " +
           RoffText(description) + "\n";
}

void AddUsage(const TCommand& command, const std::string& front, std::string* page) {
    std::string line = front + " " + command.Name;
    std::string words = Bold(line) + " [OPTIONS]";
    for (const TArgument& argument : command.Arguments) {
        if (IsOption(argument)) continue;
        const std::string name =
            std::string(argument.Name) + (MayBeRepeated(argument) ? "..." : "");
        words += " \\fI" + RoffText(argument.IsRequired ? name : "[" + name + "]") + "\\fR";
        line += std::string(" ") + argument.Name;
    }
    if (*command.Words.Usage)
        words += std::string(" \\fI") + RoffText(command.Words.Usage) + "\\fR";
    if (command.Run) *page += ".PP\n" + words + "\n";
    for (const TCommand& verb : command.Verbs) AddUsage(verb, line, page);
}

void AddArguments(const TCommand& command, std::string* page) {
    for (const TArgument& argument : command.Arguments)
        *page += ".TP\n" + Bold(argument.Name) + "\n" + RoffText(argument.Help) + ".\n";
    if (*command.Footer) *page += ".PP\n" + RoffText(command.Footer) + "\n";
}

constexpr const char* kExitStatus =
    ".SH EXIT STATUS\n"
    ".TP\n0\nDone.\n"
    ".TP\n1\nThe build or project has problems: files missing, a dependency cycle, a section that\n"
    "cannot be read, a simulation that failed.\n"
    ".TP\n2\nWrong usage, unknown names.\n"
    ".TP\n3\nA file cannot be read or written, a program is missing, or memory ran out.\n";

}  // namespace

std::string ManPageOfTool(const std::vector<TCommand>& commands) {
    std::string page =
        Heading("hdlbuild", "reads, checks, orders, changes and runs HDL build files");
    page +=
        ".SH SYNOPSIS\n.PP\n\\fBhdlbuild\\fR [OPTIONS] \\fICOMMAND\\fR ...\n"
        ".SH DESCRIPTION\n"
        "A build file holds the sources of an HDL simulation project, their libraries and compile\n"
        "order, the top\\-level components that are simulated, and what each simulator is told.\n"
        "Results go to standard output, everything else to standard error.\n"
        ".SH OPTIONS\n"
        ".TP\n\\fB\\-V\\fR, \\fB\\-\\-version\\fR\nPrint the version.\n"
        ".TP\n\\fB\\-\\-verbose\\fR\nWith \\fB\\-\\-version\\fR: also print the versions of what "
        "the tool is "
        "built with.\n"
        ".TP\n\\fB\\-\\-json\\fR\nWith \\fB\\-\\-version\\fR: print all of it as a JSON object.\n"
        ".TP\n\\fB\\-\\-quiet\\fR\nDo not show how far long work has come.\n"
        ".TP\n\\fB\\-\\-max\\-file\\-size\\fR \\fISIZE\\fR\nRead no file of more bytes, 1G if not "
        "given.\n"
        ".SH COMMANDS\n";
    for (const TCommand& command : commands)
        page += ".TP\n\\fB" + RoffText(PageName(command.Name)) + "\\fR(1)\n" +
                RoffText(command.Description) + ".\n";
    page += kExitStatus;
    page +=
        ".SH ENVIRONMENT\n.TP\n\\fBNO_COLOR\\fR\nTurns colours off.\n"
        ".SH SEE ALSO\n\\fBhdlbuild\\-formats\\fR(5)\n";
    return page;
}

std::string ManPageOf(const TCommand& command) {
    const std::string name = PageName(command.Name);
    std::string page = Heading(name, command.Description);
    page += ".SH SYNOPSIS\n";
    AddUsage(command, "hdlbuild", &page);
    page += ".SH DESCRIPTION\n" + RoffText(command.Description) + ".\n.SH OPTIONS\n";
    AddArguments(command, &page);
    for (const TCommand& verb : command.Verbs) {
        page += ".SS " + RoffText(verb.Name) + "\n" + RoffText(verb.Description) + ".\n";
        AddArguments(verb, &page);
    }
    page +=
        ".PP\nEvery command takes \\fB\\-\\-help\\fR, \\fB\\-\\-quiet\\fR and "
        "\\fB\\-\\-max\\-file\\-size\\fR.\n";
    page += kExitStatus;
    page += ".SH SEE ALSO\n\\fBhdlbuild\\fR(1), \\fBhdlbuild\\-formats\\fR(5)\n";
    return page;
}
