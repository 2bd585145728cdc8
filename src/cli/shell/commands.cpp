#include "cli/shell/commands.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/texts.h"
#include "cli/shell/completion.h"
#include "cli/shell/manpage.h"
#include "cli/shell/shellscripts.h"
#include "flows/knownnames.h"

namespace {

struct TShellArguments : TCommonArguments {
    std::string Shell;
};

int RunCompletion(const TShellArguments& arguments, const TToolStreams& streams) {
    const std::string script = CompletionScriptFor(arguments.Shell);
    if (script.empty()) {
        ReportError(streams, UnknownName("shell", arguments.Shell, ShellNames()));
        return kExitUsage;
    }
    if (arguments.Json) {
        TJson result = MakeResult("hdlbuild-completion");
        result["shell"] = arguments.Shell;
        result["script"] = script;
        PrintJson(result, streams);
    } else {
        PrintFile(script, streams.Out);
    }
    return kExitDone;
}

}  // namespace

int RunComplete(const std::vector<TCommand>& commands, const std::vector<std::string>& words,
                const TToolStreams& streams) {
    // Before PowerShell 7.3 no empty word could be handed to a program, only quotes.
    std::vector<std::string> asked = words;
    if (!asked.empty() && asked.back() == "\"\"") asked.back().clear();
    std::vector<std::string> helped;
    std::vector<TCommand> all = commands;
    all.push_back({"help",
                   "Print the help of the tool, a command or its verb",
                   nullptr,
                   {{kCommandArgument, &helped, "The command, and its verb"}}});
    const TCompletion completion = CompleteWords(all, asked);
    for (const TCandidate& candidate : completion.Candidates)
        PrintWords(streams.Out, candidate.Help.empty() ? candidate.Word
                                                       : candidate.Word + "\t" + candidate.Help);
    if (completion.TakesFiles) PrintLine(streams.Out, ":");
    return kExitDone;
}

int RunManPage(const std::vector<TCommand>& commands, const std::vector<std::string>& words,
               const TToolStreams& streams) {
    if (words.empty()) {
        PrintFile(ManPageOfTool(commands), streams.Out);
        return kExitDone;
    }
    std::vector<std::string> known;
    for (const TCommand& command : commands) {
        known.emplace_back(command.Name);
        if (command.Name != words.front()) continue;
        PrintFile(ManPageOf(command), streams.Out);
        return kExitDone;
    }
    ReportError(streams, UnknownName("command", words.front(), known));
    return kExitUsage;
}

std::vector<TCommand> MakeShellCommands() {
    const auto values = std::make_shared<TShellArguments>();
    return {
        {"completion",
         "Print the script that completes command lines in a shell",
         TRunWith<TShellArguments>(values)(RunCompletion),
         {{"SHELL", &values->Shell, JoinChoices(ShellNames()), kRequired}, JsonArgument(*values)}}};
}
