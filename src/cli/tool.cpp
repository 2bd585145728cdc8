#include "cli/tool.h"
#include "cli/commandtable.h"
#include "services/names/isfilename.h"
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

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

/// Begins the usage line with what stands in front of a command, and ends it with its words.
class TUsageFormatter : public CLI::Formatter {
public:
    TUsageFormatter(std::string front, std::string words)
        : Front(std::move(front)), Words(std::move(words)) {}

    std::string make_usage(const CLI::App* app, std::string) const override {
        std::string usage = CLI::Formatter::make_usage(app, Front);
        if (!Words.empty()) usage.insert(usage.find_last_not_of('\n') + 1, " " + Words);
        return usage;
    }

private:
    std::string Front;
    std::string Words;
};

/// `front`: the words of a command line up to this command.
void AddCommand(CLI::App& app, const TCommand& command, const std::string& front,
                TToolArguments& arguments) {
    CLI::App* sub = app.add_subcommand(command.Name, command.Description);
    sub->footer(command.Footer);
    std::string line = front + " " + command.Name;
    sub->formatter(std::make_shared<TUsageFormatter>(line, command.Words));
    if (*command.Words) {
        sub->allow_extras();
        // A word may begin with "-h".
        sub->set_help_flag("--help", "Print this help message and exit");
    }
    // Never more than one verb: a configuration may bear the name of another.
    if (!command.Verbs.empty()) sub->require_subcommand(command.Run ? 0 : 1, 1);
    for (const TArgument& argument : command.Arguments) {
        std::visit(TArgumentAdder{*sub, argument, arguments}, argument.Member);
        if (argument.Name[0] != '-') line += std::string(" ") + argument.Name;
    }
    for (const TCommand& verb : command.Verbs) AddCommand(*sub, verb, line, arguments);
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

constexpr const char* kWordsMark = "--";

/// One parse of a command line.
class TCommandLine {
public:
    TCommandLine() {
        Arguments.Directory = ISFileName::NewISFileName(".")->Canonical(false);
        App.set_version_flag("--version", "hdlbuild " HDLBUILDFILE_VERSION);
        App.require_subcommand(1);
        // On Windows too, '/builds/a.xml' is a path.
        App.allow_windows_style_options(false);
        App.footer(kFooter);
        for (const TCommand& command : Commands()) AddCommand(App, command, "hdlbuild", Arguments);
    }

    /// Throws CLI::ParseError.
    void Parse(const std::vector<std::string>& arguments) {
        // CLI11 takes the arguments from the back.
        App.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        const auto [command, sub] = FindGiven(App, Commands());
        Command = command;
        if (!sub) return;
        Arguments.Words = sub->remaining();
        const auto mark = std::find(Arguments.Words.begin(), Arguments.Words.end(), kWordsMark);
        if (mark != Arguments.Words.end()) Arguments.Words.erase(mark);
    }

    /// Parse, for a command that takes words: all that stands behind the first "--" are words.
    /// False when the arguments in front of it are not those of such a command.
    bool ParseWithWords(const std::vector<std::string>& arguments) {
        const auto mark = std::find(arguments.begin(), arguments.end(), kWordsMark);
        if (mark == arguments.end()) return false;
        try {
            Parse({arguments.begin(), mark});
        } catch (const CLI::ParseError&) {
            return false;  // what is missing may stand behind the mark
        }
        if (!Command || !*Command->Words) return false;
        Arguments.Words.insert(Arguments.Words.end(), mark + 1, arguments.end());
        return true;
    }

    int Run(const TToolStreams& streams) const {
        return Finish(Command ? Command->Run(Arguments, streams) : kExitUsage, streams);
    }

    int Report(const CLI::ParseError& error, const TToolStreams& streams) const {
        const int status = App.exit(error, streams.Out, streams.Err);
        return status == 0 ? Finish(kExitDone, streams) : kExitUsage;
    }

private:
    TToolArguments Arguments;
    CLI::App App{"Reads, checks and orders HDL build files, and keeps their settings.", "hdlbuild"};
    const TCommand* Command = nullptr;
};

}  // namespace

void ReportError(const TToolStreams& streams, const std::string& message) {
    ReportLabelled(streams, "error", "\033[1;31m", message);
}

void ReportWarning(const TToolStreams& streams, const std::string& message) {
    ReportLabelled(streams, "warning", "\033[1;33m", message);
}

int RunTool(const std::vector<std::string>& arguments, const TToolStreams& streams) {
    TCommandLine withWords;
    if (withWords.ParseWithWords(arguments)) return withWords.Run(streams);
    TCommandLine line;
    try {
        line.Parse(arguments);
    } catch (const CLI::ParseError& error) {
        return line.Report(error, streams);
    }
    return line.Run(streams);
}
