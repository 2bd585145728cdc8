#include "cli/shell/manpage.h"
#include "cli/frame/tooloptions.h"
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

/// "-o, --output TEXT": the names of an argument, and what the help calls its value.
std::string ArgumentHead(std::string_view names, std::string_view value) {
    std::string head;
    for (std::size_t comma; (comma = names.find(',')) != std::string_view::npos;
         names.remove_prefix(comma + 1))
        head += Bold(names.substr(0, comma)) + ", ";
    head += Bold(names);
    if (!value.empty()) head += " \\fI" + RoffText(value) + "\\fR";
    return head;
}

void AddArgument(std::string_view names, std::string_view value, std::string_view description,
                 std::string* page) {
    *page += ".TP\n" + ArgumentHead(names, value) + "\n" + RoffText(description) + ".\n";
}

void AddArguments(const TCommand& command, std::string* page) {
    for (const TArgument& argument : command.Arguments) {
        const bool isFlag = std::holds_alternative<bool*>(argument.Value) ||
                            std::holds_alternative<TChoice>(argument.Value);
        AddArgument(argument.Name, isFlag || !IsOption(argument) ? "" : "TEXT", argument.Help,
                    page);
    }
    if (*command.Footer) *page += ".PP\n" + RoffText(command.Footer) + "\n";
}

constexpr const char* kChanges =
    "The document describes no build, or a section of it cannot be read.";
constexpr const char* kReads =
    "Sources are missing, the document describes no build, or a section of it cannot be read.";
constexpr const char* kReadsWithCycles =
    "Sources are missing or depend on each other in a cycle, the document describes no build, or "
    "a section of it cannot be read.";

/// What status 1 of a command means; commands without a row do not end with it.
constexpr struct {
    std::string_view Command;
    const char* Text;
} kProblems[] = {
    {"show", kReads},
    {"check",
     "Errors were told: files that are missing, dependency cycles, sections that cannot "
     "be read and others."},
    {"order", kReadsWithCycles},
    {"options", kReads},
    {"command-file", kReads},
    {"list", kReads},
    {"deps",
     "Sources are missing, the document describes no build, a section of it cannot be "
     "read, or nothing leads from one file to the other."},
    {"needed", kReadsWithCycles},
    {"diff", "The builds differ, or a section of one cannot be read."},
    {"graph", kReadsWithCycles},
    {"add", kChanges},
    {"source", kChanges},
    {"remove", kChanges},
    {"rename", kChanges},
    {"depend",
     "The document describes no build, a section of it cannot be read, or its sources "
     "depend on each other in a cycle."},
    {"top", kChanges},
    {"set", kChanges},
    {"get", kChanges},
    {"tool", kChanges},
    {"use",
     "The document describes no build, a section of it cannot be read, or the project has "
     "no settings that can be read."},
    {"scan",
     "Sources cannot be read or depend on each other in a cycle, the document describes no "
     "build, a section of it cannot be read, or a check found differences."},
    {"export", "The build cannot be exported as it is."},
    {"import", "The files have errors or name no sources, or something would be lost."},
    {"run", "A simulation or a step failed, or the build cannot be run as it is."},
    {"settings", "The project has no settings that can be read."},
    {"translator",
     "The document describes no build, a section of it cannot be read, or the switch "
     "would be enabled again by the next reader."},
};

/// The section of a command, or of the tool for "".
std::string ExitStatus(std::string_view command) {
    std::string page = ".SH EXIT STATUS\n.TP\n0\nDone.\n";
    if (command.empty())
        page +=
            ".TP\n1\nThe build or project has problems: files missing, a dependency cycle, a "
            "section that\ncannot be read, a simulation that failed.\n";
    for (const auto& row : kProblems)
        if (row.Command == command) page += ".TP\n1\n" + RoffText(row.Text) + "\n";
    const bool needsPrograms = command.empty() || command == "run";
    return page +
           ".TP\n2\nWrong usage, unknown names.\n"
           ".TP\n3\nA file cannot be read or written, " +
           (needsPrograms ? "a program is missing, " : "") + "or memory ran out.\n";
}

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
        ".SH OPTIONS\n";
    for (const TToolOption& option : {kHelpOption, kVersionOption, kVerboseOption,
                                      kVersionJsonOption, kQuietOption, kSizeOption})
        AddArgument(option.Names, option.Value, option.Description, &page);
    page += ".SH COMMANDS\n";
    for (const TCommand& command : commands)
        page += ".TP\n\\fB" + RoffText(PageName(command.Name)) + "\\fR(1)\n" +
                RoffText(command.Description) + ".\n";
    page += ExitStatus("");
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
    page += ExitStatus(command.Name);
    page += ".SH SEE ALSO\n\\fBhdlbuild\\fR(1), \\fBhdlbuild\\-formats\\fR(5)\n";
    return page;
}
