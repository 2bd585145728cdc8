#include "cli/tool.h"
#include "cli/commands.h"
#include "sibling/fileservices/isfilename.h"
#include <CLI/CLI.hpp>

namespace {

enum TExtras : unsigned {
    NO_EXTRAS = 0,
    TAKES_LANGUAGE = 1,
    TAKES_TSV = 2,
    TAKES_OUTPUT = 4,
    TAKES_GOF = 8,
    TAKES_ABSOLUTE = 16
};

struct TCommand {
    const char* Name;
    const char* Description;
    int (*Run)(const TToolArguments&, const TToolStreams&);
    unsigned Extras;
};

constexpr TCommand kCommands[] = {
    {"show", "Show what the build holds", RunShow, TAKES_ABSOLUTE},
    {"check", "Report everything that is wrong with the build", RunCheck, TAKES_ABSOLUTE},
    {"order", "Print the files to compile, one a line, in compile order", RunOrder,
     TAKES_LANGUAGE | TAKES_TSV | TAKES_ABSOLUTE},
    {"options", "Print the Verilog option text", RunOptions, TAKES_GOF},
    {"command-file", "Write the Verilog command file", RunCommandFile, TAKES_OUTPUT | TAKES_GOF},
};

constexpr const char* kFooter =
    "Exit status: 0 done; 1 the build has problems (files missing, a dependency cycle, a section that\n"
    "cannot be read); 2 wrong usage; 3 a file cannot be read or written.\n"
    "Results go to standard output, everything else to standard error. NO_COLOR turns colours off.";

void AddCommand(CLI::App& app, const TCommand& command, TToolArguments& arguments) {
    CLI::App* sub = app.add_subcommand(command.Name, command.Description);
    sub->add_option("BUILD", arguments.Build, "The build file")->required();
    sub->add_flag("--json", arguments.Json, "Print one JSON object");
    if (command.Extras & TAKES_ABSOLUTE)
        sub->add_flag("--absolute", arguments.Absolute,
                      "Print absolute paths, not paths relative to the current directory");
    if (command.Extras & TAKES_LANGUAGE)
        sub->add_option("--language", arguments.Language,
                        "Verilog, VHDL (default), Bluespec, SystemC, C++, Specman or TestBuilder");
    if (command.Extras & TAKES_TSV)
        sub->add_flag("--tsv", arguments.Tsv, "Print library, tabulator, path");
    if (command.Extras & TAKES_OUTPUT)
        sub->add_option("-o,--output", arguments.Output, "Replace this file instead of printing");
    if (command.Extras & TAKES_GOF)
        sub->add_flag("--gof", arguments.Gof,
                      "The form without log file, user defines and other plus options");
}

void ReportLabelled(const TToolStreams& streams, const char* label, const char* color,
                    const std::string& message) {
    streams.Err << "hdlbuild: ";
    if (streams.ColorErrors)
        streams.Err << color << label << "\033[0m";
    else
        streams.Err << label;
    streams.Err << ": " << message << "\n";
}

int Dispatch(const CLI::App& app, const TToolArguments& arguments, const TToolStreams& streams) {
    for (const TCommand& command : kCommands)
        if (app.got_subcommand(command.Name)) return command.Run(arguments, streams);
    return kExitUsage;
}

}  // namespace

void ReportError(const TToolStreams& streams, const std::string& message) {
    ReportLabelled(streams, "error", "\033[1;31m", message);
}

void ReportWarning(const TToolStreams& streams, const std::string& message) {
    ReportLabelled(streams, "warning", "\033[1;33m", message);
}

int RunTool(const std::vector<std::string>& arguments, const TToolStreams& streams) {
    TToolArguments parsed;
    parsed.Directory = ISFileName::NewISFileName(".")->Canonical(false);
    CLI::App app("Reads, checks and orders HDL build files.", "hdlbuild");
    app.set_version_flag("--version", "hdlbuild " HDLBUILDFILE_VERSION);
    app.require_subcommand(1);
    app.footer(kFooter);
    for (const TCommand& command : kCommands) AddCommand(app, command, parsed);
    try {
        // CLI11 takes the arguments from the back.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        const int status = app.exit(error, streams.Out, streams.Err);
        return status == 0 ? kExitDone : kExitUsage;
    }
    const int status = Dispatch(app, parsed, streams);
    streams.Out.flush();
    if (streams.Out) return status;
    ReportError(streams, "the results could not be written");
    return kExitFile;
}
