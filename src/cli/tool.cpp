#include "cli/tool.h"
#include "cli/commandtable.h"
#include "sibling/fileservices/isfilename.h"
#include <CLI/CLI.hpp>

namespace {

constexpr const char* kFooter =
    "Exit status: 0 done; 1 the build or project has problems (files missing, a dependency cycle,\n"
    "a section that cannot be read); 2 wrong usage, unknown names; 3 a file cannot be read or\n"
    "written. Results go to standard output, everything else to standard error. NO_COLOR turns\n"
    "colours off.";

struct TArgumentAdder {
    CLI::App& App;
    const TArgument& Argument;
    TToolArguments& Values;

    void operator()(bool TToolArguments::*member) const {
        App.add_flag(Argument.Name, Values.*member, Argument.Help);
    }
    void operator()(std::string TToolArguments::*member) const {
        App.add_option(Argument.Name, Values.*member, Argument.Help)->required(Argument.IsRequired);
    }
    void operator()(std::vector<std::string> TToolArguments::*member) const {
        // One value for each mention: the word behind it is the next argument.
        App.add_option(Argument.Name, Values.*member, Argument.Help)
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    }
};

void AddCommand(CLI::App& app, const TCommand& command, TToolArguments& arguments) {
    CLI::App* sub = app.add_subcommand(command.Name, command.Description);
    sub->footer(command.Footer);
    sub->allow_extras(command.TakesWords);
    // Never more than one verb: a configuration may bear the name of another.
    if (!command.Verbs.empty()) sub->require_subcommand(command.Run ? 0 : 1, 1);
    for (const TArgument& argument : command.Arguments)
        std::visit(TArgumentAdder{*sub, argument, arguments}, argument.Member);
    for (const TCommand& verb : command.Verbs) AddCommand(*sub, verb, arguments);
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

/// The command that was given, and its parsed arguments.
std::pair<const TCommand*, const CLI::App*> FindGiven(const CLI::App& app,
                                                      const std::vector<TCommand>& commands) {
    for (const TCommand& command : commands) {
        if (!app.got_subcommand(command.Name)) continue;
        const CLI::App* sub = app.get_subcommand(command.Name);
        const auto verb = FindGiven(*sub, command.Verbs);
        return verb.first ? verb : std::pair{&command, sub};
    }
    return {nullptr, nullptr};
}

/// `status`, when all results have reached Out.
int Finish(int status, const TToolStreams& streams) {
    streams.Out.flush();
    if (streams.Out) return status;
    ReportError(streams, "the results could not be written");
    return kExitFile;
}

int Dispatch(const CLI::App& app, TToolArguments& arguments, const TToolStreams& streams) {
    const auto [command, sub] = FindGiven(app, Commands());
    if (!command) return kExitUsage;
    arguments.Words = sub->remaining();
    return command->Run(arguments, streams);
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
    CLI::App app("Reads, checks and orders HDL build files, and keeps their settings.", "hdlbuild");
    app.set_version_flag("--version", "hdlbuild " HDLBUILDFILE_VERSION);
    app.require_subcommand(1);
    // On Windows too, '/builds/a.xml' is a path.
    app.allow_windows_style_options(false);
    app.footer(kFooter);
    for (const TCommand& command : Commands()) AddCommand(app, command, parsed);
    try {
        // CLI11 takes the arguments from the back.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        const int status = app.exit(error, streams.Out, streams.Err);
        return status == 0 ? Finish(kExitDone, streams) : kExitUsage;
    }
    return Finish(Dispatch(app, parsed, streams), streams);
}
