#include "cli/frame/commandline.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/progressline.h"
#include "cli/frame/sizelimit.h"
#include "cli/frame/texts.h"
#include "cli/frame/tooloptions.h"
#include "flows/knownnames.h"
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <map>
#include <sstream>

namespace {

/// Adds an argument to a command, and a function to `Resets` that gives it its preset.
struct TArgumentAdder {
    CLI::App& App;
    const TArgument& Argument;
    std::vector<std::function<void()>>& Resets;
    std::map<std::size_t*, std::vector<CLI::Option*>>& Choices;  // of this command

    template <class T>
    void KeepPreset(T* value) const {
        Resets.push_back([value, preset = *value] { *value = preset; });
    }

    void operator()(const TChoice& choice) const {
        KeepPreset(choice.Value);
        CLI::Option* option = App.add_flag_callback(
            Argument.Name, [choice] { *choice.Value = choice.Number; }, Argument.Help);
        for (CLI::Option* other : Choices[choice.Value]) option->excludes(other);
        Choices[choice.Value].push_back(option);
    }
    void operator()(bool* value) const {
        KeepPreset(value);
        App.add_flag(Argument.Name, *value, Argument.Help);
    }
    void operator()(std::string* value) const {
        KeepPreset(value);
        App.add_option(Argument.Name, *value, Argument.Help)->required(Argument.IsRequired);
    }
    void operator()(std::vector<std::string>* value) const {
        KeepPreset(value);
        if (Argument.Name[0] != '-') {
            App.add_option(Argument.Name, *value, Argument.Help)->required(Argument.IsRequired);
            return;
        }
        // Each mention takes one word, as it is; those behind it are arguments of their own.
        App.add_option(Argument.Name, *value, Argument.Help)
            ->expected(1)
            ->allow_extra_args(false)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    }
};

/// Begins the usage line with the words in front of a command, and ends it with its own words.
class TUsageFormatter : public CLI::Formatter {
public:
    TUsageFormatter(std::string front, std::string words)
        : Front(std::move(front)), Words(std::move(words)) {}

    std::string make_usage(const CLI::App* app, std::string) const override {
        std::string usage = CLI::Formatter::make_usage(app, Front);
        if (!Words.empty()) usage.insert(usage.find_last_not_of('\n') + 1, " " + Words);
        return usage;
    }
    // The parser has them in the order of their addresses.
    std::string make_option_opts(const CLI::Option* option) const override {
        std::string text = CLI::Formatter::make_option_opts(option);
        const std::size_t excluded = text.find(kExcludes);
        if (excluded == std::string::npos) return text;
        std::istringstream stream(text.substr(excluded + std::string_view(kExcludes).size()));
        std::vector<std::string> names{std::istream_iterator<std::string>(stream), {}};
        std::sort(names.begin(), names.end());
        text.resize(excluded);
        text += kExcludes;
        for (const std::string& name : names) text += " " + name;
        return text;
    }

private:
    static constexpr const char* kExcludes = " Excludes:";

    std::string Front;
    std::string Words;
};

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

constexpr const char* kHelpHint = "\nRun with --help for more information.\n";

using TApps = std::vector<const CLI::App*>;

/// The commands below the tool, or the verbs below a command.
TApps CommandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
    for (const CLI::App* command : CommandsOf(app))
        if (command->get_name() == name) return command;
    return nullptr;
}

std::vector<std::string> CommandNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : CommandsOf(app)) names.push_back(command->get_name());
    return names;
}

std::string UnknownCommand(const CLI::App& app, const std::string& word) {
    const std::vector<std::string> known = CommandNames(app);
    if (known.empty())
        return "'" + app.get_name() + "' has no verbs: '" + word + "' was not expected";
    return UnknownName(app.get_parent() ? "verb" : "command", word, known);
}

/// A name that was given to `app` and is the one of a verb, with the place that it took; "" without
/// one.
std::string VerbTakenFor(const CLI::App& app) {
    for (const CLI::Option* option : app.get_options())
        if (option->get_positional() && option->count() > 0 &&
            FindCommand(app, option->as<std::string>()))
            return "; '" + option->as<std::string>() + "' was taken for " + option->get_name();
    return "";
}

/// What is wrong with the arguments of which `error` complains: the parser only counts commands.
std::string ComplaintOf(const CLI::App& tool, const CLI::Error& error) {
    const CLI::App* app = &tool;
    while (!CommandsOf(*app).empty()) {
        for (const std::string& word : app->remaining())
            if (!word.starts_with("-")) return UnknownCommand(*app, word);
        const auto given = app->get_subcommands();
        if (given.empty()) break;
        app = given.front();
    }
    std::string complaint = error.what();
    if (complaint != CLI::RequiredError::Subcommand(1).what()) return complaint;
    if (!app->remaining().empty()) return CLI::ExtrasError(app->remaining()).what();
    return std::string(app->get_parent() ? "VERB" : "COMMAND") +
           " is required; known: " + JoinNames(CommandNames(*app)) + VerbTakenFor(*app);
}

/// `status`, when all results have reached Out.
int Finish(int status, const TToolStreams& streams) {
    streams.Out.flush();
    if (streams.Out) return status;
    ReportError(streams, "the results could not be written");
    return kExitFile;
}

constexpr const char* kWordsMark = "--";
constexpr const char* kJsonOption = "--json";

/// Whether the option was given to a command, or to the one that it is a verb of.
bool IsJsonGiven(const CLI::App* command) {
    for (; command; command = command->get_parent()) {
        const CLI::Option* const option = command->get_option_no_throw(kJsonOption);
        if (option && option->count() > 0) return true;
    }
    return false;
}

/// The tree of commands, and what a parse found.
class TCommandLine {
public:
    explicit TCommandLine(const TTool& tool) : Tool(tool), App(tool.Description, tool.Name) {
        App.get_formatter()->label("SUBCOMMAND", "COMMAND");
        App.set_help_flag(kHelpOption.Names, kHelpOption.Description);
        CLI::Option* const version =
            App.set_version_flag(kVersionOption.Names, "", kVersionOption.Description);
        Verbose = App.add_flag(kVerboseOption.Names)->description(kVerboseOption.Description);
        VersionJson =
            App.add_flag(kVersionJsonOption.Names)->description(kVersionJsonOption.Description);
        for (CLI::Option* const option : {Verbose, VersionJson}) option->needs(version);
        App.require_subcommand(1);
        // On Windows too, '/builds/a.xml' is a path.
        App.allow_windows_style_options(false);
        App.footer(tool.Footer);
        App.failure_message([](const CLI::App* app, const CLI::Error& error) {
            return Escaped(ComplaintOf(*app, error)) + kHelpHint;
        });
        AddCommonOptions(App);
        for (const TCommand& command : tool.Commands) AddCommand(App, command, tool.Name);
        AddHelp();
    }

    /// Throws CLI::ParseError.
    void Parse(const std::vector<std::string>& arguments) {
        // A former parse that failed may have set some of them.
        for (const auto& reset : Resets) reset();
        IsQuiet = false;
        MaxFileSize.clear();
        IsJson = false;
        HelpedCommand.clear();
        // CLI11 takes the arguments from the back.
        App.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        const auto [command, sub] = FindGiven(App, Tool.Commands);
        Command = command;
        IsJson = IsJsonGiven(sub);
        if (!command || !command->Words.Values) return;
        std::vector<std::string> words = sub->remaining();
        const auto mark = std::find(words.begin(), words.end(), kWordsMark);
        if (mark != words.end()) words.erase(mark);
        *command->Words.Values = std::move(words);
    }

    /// Parse, for a command that takes words: all behind the first "--" are words. False when the
    /// arguments in front of it are not those of such a command.
    bool ParseWithWords(const std::vector<std::string>& arguments) {
        const auto mark = std::find(arguments.begin(), arguments.end(), kWordsMark);
        if (mark == arguments.end()) return false;
        try {
            Parse({arguments.begin(), mark});
        } catch (const CLI::ParseError&) {
            return false;  // what is missing may follow the mark
        }
        if (!Command || !Command->Words.Values) return false;
        Command->Words.Values->insert(Command->Words.Values->end(), mark + 1, arguments.end());
        return true;
    }

    int Run(const TToolStreams& streams) const {
        if (Help->parsed()) return PrintHelp(streams);
        TToolStreams shown = streams;
        if (IsQuiet) shown.Progress = nullptr;
        TJsonOutcome outcome{IsJson};
        shown.Outcome = &outcome;
        const TProgressShown progress(shown.Progress);
        const TSizeLimit limit(MaxFileSize);
        const int status = Command ? Command->Run(shown) : kExitUsage;
        if (status != kExitDone) PrintFailureAsJson(status, shown);
        return Finish(status, streams);
    }

    int PrintVersion(const TToolStreams& streams) const {
        if (VersionJson->count() > 0) {
            PrintJson(VersionAsJson(), streams);
            return Finish(kExitDone, streams);
        }
        PrintLine(streams.Out, std::string(Tool.Name) + " " + Tool.Version);
        if (Verbose->count() > 0) {
            std::vector<std::vector<std::string>> rows = {{"built with", "version", "for"}};
            for (const TBuiltWith& each : Tool.BuiltWith)
                rows.push_back({each.Name, each.Version, each.Purpose});
            PrintTable(std::move(rows), streams.Out);
        }
        return Finish(kExitDone, streams);
    }

    /// `arguments` are those that could not be parsed.
    int Report(const CLI::ParseError& error, const std::vector<std::string>& arguments,
               const TToolStreams& streams) const {
        if (App.exit(error, streams.Out, streams.Err) == 0) return Finish(kExitDone, streams);
        const auto mark = std::find(arguments.begin(), arguments.end(), kWordsMark);
        TJsonOutcome outcome{std::find(arguments.begin(), mark, kJsonOption) != mark,
                             false,
                             {ComplaintOf(App, error)}};
        TToolStreams shown = streams;
        shown.Outcome = &outcome;
        PrintFailureAsJson(kExitUsage, shown);
        return Finish(kExitUsage, streams);
    }

private:
    /// `front`: the words of a command line up to this command.
    void AddCommand(CLI::App& app, const TCommand& command, const std::string& front) {
        CLI::App* sub = app.add_subcommand(command.Name, command.Description);
        sub->footer(command.Footer);
        std::string line = front + " " + command.Name;
        sub->group(app.get_parent() ? "Verbs" : "Commands");
        sub->formatter(std::make_shared<TUsageFormatter>(line, command.Words.Usage));
        sub->get_formatter()->label("SUBCOMMAND", "VERB");
        if (command.Words.Values) {
            sub->allow_extras();
            sub->set_help_flag(kLongHelpOption.Names, kLongHelpOption.Description);
        }
        // Never more than one verb: a configuration may bear the name of another.
        if (!command.Verbs.empty()) sub->require_subcommand(command.Run ? 0 : 1, 1);
        std::map<std::size_t*, std::vector<CLI::Option*>> choices;
        for (const TArgument& argument : command.Arguments) {
            std::visit(TArgumentAdder{*sub, argument, Resets, choices}, argument.Value);
            if (argument.Name[0] != '-') line += std::string(" ") + argument.Name;
        }
        AddCommonOptions(*sub);
        for (const TCommand& verb : command.Verbs) AddCommand(*sub, verb, line);
    }

    void AddHelp() {
        Help = App.add_subcommand("help", "Print the help of the tool, a command or its verb");
        Help->group("Commands");
        Help->footer("");  // else the tool's
        Help->formatter(std::make_shared<TUsageFormatter>(std::string(Tool.Name) + " help", ""));
        Help->add_option("COMMAND", HelpedCommand, "The command, and its verb")->type_name("");
        AddCommonOptions(*Help);
    }

    int PrintHelp(const TToolStreams& streams) const {
        const CLI::App* app = &App;
        for (const std::string& word : HelpedCommand) {
            const CLI::App* const sub = FindCommand(*app, word);
            if (!sub) {
                streams.Err << Escaped(UnknownCommand(*app, word)) << kHelpHint;
                return kExitUsage;
            }
            app = sub;
        }
        const std::shared_ptr<CLI::FormatterBase> formatter = app->get_formatter();
        streams.Out << formatter->make_help(app, app->get_name(), CLI::AppFormatMode::Normal);
        return Finish(kExitDone, streams);
    }

    TJson VersionAsJson() const {
        TJson result = MakeResult("hdlbuild-version");
        result["tool"] = Tool.Name;
        result["toolVersion"] = Tool.Version;
        TJson rows = TJson::Array(Tool.BuiltWith.size());
        for (const TBuiltWith& each : Tool.BuiltWith)
            rows.Add(TJson{{"name", each.Name}, {"version", each.Version}, {"for", each.Purpose}});
        result["builtWith"] = std::move(rows);
        return result;
    }

    void AddCommonOptions(CLI::App& app) {
        app.add_flag(kQuietOption.Names, IsQuiet, kQuietOption.Description);
        app.add_option(kSizeOption.Names, MaxFileSize, kSizeOption.Description)
            ->type_name(kSizeOption.Value)
            ->check(CLI::Validator(ComplaintOfSize, ""));
    }

    const TTool& Tool;
    CLI::App App;
    std::vector<std::function<void()>> Resets;  // give the arguments their presets
    const TCommand* Command = nullptr;
    CLI::App* Help = nullptr;
    CLI::Option* Verbose = nullptr;
    CLI::Option* VersionJson = nullptr;
    std::vector<std::string> HelpedCommand;  // its words
    bool IsQuiet = false;
    std::string MaxFileSize;
    bool IsJson = false;
};

}  // namespace

int RunCommandLine(const TTool& tool, const std::vector<std::string>& arguments,
                   const TToolStreams& streams) {
    TCommandLine line(tool);
    if (line.ParseWithWords(arguments)) return line.Run(streams);
    try {
        line.Parse(arguments);
    } catch (const CLI::CallForVersion&) {
        return line.PrintVersion(streams);
    } catch (const CLI::ParseError& error) {
        return line.Report(error, arguments, streams);
    }
    return line.Run(streams);
}
