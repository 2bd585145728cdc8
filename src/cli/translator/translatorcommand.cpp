#include "cli/frame/jsonresults.h"
#include "cli/frame/texts.h"
#include "cli/translator/commands.h"
#include "cli/translator/translatoraccess.h"
#include "translation/v2vtranslationfileoption.h"
#include "translation/v2vtranslationstringoption.h"

namespace {

template <class TOption>
void ReplaceEntries(TOption& option, const std::vector<std::string>& words) {
    option.ClearList();
    for (std::size_t i = 1; i < words.size(); ++i) option.AddAnOption(words[i].c_str());
}

/// Gives `option` the arguments that follow the switch in `words`, if there are any. Returns why
/// that cannot be done; "" when it is done.
std::string SetArguments(TV2VTranslationOption& option, const std::vector<std::string>& words) {
    const std::string name = option.GetDashOption();
    if (!option.HasStringOption())
        return words.size() > 1 ? "the switch '" + name + "' takes no arguments" : "";
    if (words.size() < 2)
        return ArgumentsOf(option).empty()
                   ? "the switch '" + name + "' needs arguments: " + option.GetOptionString()
                   : "";
    if (auto* files = dynamic_cast<TV2VTranslationFileOption*>(&option))
        ReplaceEntries(*files, words);
    if (auto* strings = dynamic_cast<TV2VTranslationStringOption*>(&option))
        ReplaceEntries(*strings, words);
    return "";
}

void PrintOption(TV2VTranslationOption& option, std::ostream& out) {
    PrintLine(out, std::string(option.IsEnabled() ? "* " : "  ") + option.GetDashOption() + ": " +
                       option.GetOptionString());
    const std::string arguments = option.GetListDisplayString();
    if (!arguments.empty()) PrintLine(out, "      arguments: " + arguments);
    PrintLine(out, std::string("      ") + option.GetDescription());
}

TJson OptionAsJson(TV2VTranslationOption& option) {
    return {{"switch", option.GetDashOption()},
            {"option", option.GetOptionString()},
            {"help", option.GetDescription()},
            {"enabled", option.IsEnabled()},
            {"takesArguments", option.HasStringOption()},
            {"arguments", ArgumentsOf(option)}};
}

TJson MakeTranslatorResult(const char* format, const TTranslatorArguments& arguments) {
    TJson result = MakeResult(format, "build", arguments.Build);
    result["translator"] = arguments.Translator;
    return result;
}

void WarnOfOthersBuild(const TTranslatorAccess& translator, const TToolStreams& streams) {
    if (translator.IsOthersBuild())
        ReportWarning(streams,
                      "the build has the switches of the other translator: these are the defaults");
}

}  // namespace

int RunTranslatorList(const TTranslatorArguments& arguments, const TToolStreams& streams) {
    TTranslatorAccess translator(arguments, streams);
    if (const int status = translator.Read(); status != kExitDone) return status;
    WarnOfOthersBuild(translator, streams);
    TJson result = MakeTranslatorResult("hdlbuild-translator-list", arguments);
    for (TV2VTranslationOption* option : translator.GetOptions()) {
        result["switches"].Add(OptionAsJson(*option));
        if (!arguments.Json) PrintOption(*option, streams.Out);
    }
    if (arguments.Json) PrintJson(result, streams);
    return kExitDone;
}

int RunTranslatorEnable(const TTranslatorArguments& arguments, const TToolStreams& streams) {
    TTranslatorAccess translator(arguments, streams);
    if (const int status = translator.ReadToChange(); status != kExitDone) return status;
    TV2VTranslationOption* option = translator.FindOption();
    if (!option) return kExitUsage;
    const std::string complaint = SetArguments(*option, arguments.Words);
    if (!complaint.empty()) {
        ReportError(streams, complaint);
        return kExitUsage;
    }
    option->SetEnabled(true);
    return translator.Save("enable");
}

int RunTranslatorDisable(const TTranslatorArguments& arguments, const TToolStreams& streams) {
    TTranslatorAccess translator(arguments, streams);
    if (const int status = translator.ReadToChange(); status != kExitDone) return status;
    TV2VTranslationOption* option = translator.FindOption();
    if (!option) return kExitUsage;
    if (arguments.Words.size() > 1) {
        ReportError(streams, "disable takes one SWITCH");
        return kExitUsage;
    }
    // The library writes enabled switches only, so its next reader would turn it on again.
    if (option->IsEnabled() && translator.IsEnabledByDefault(*option)) {
        ReportError(streams,
                    "the switch '" + std::string(option->GetDashOption()) +
                        "' is enabled by default, and a build that is saved would enable it again");
        return kExitProblems;
    }
    option->SetEnabled(false);
    return translator.Save("disable");
}

int RunTranslatorCommandLine(const TTranslatorArguments& arguments, const TToolStreams& streams) {
    TTranslatorAccess translator(arguments, streams);
    if (const int status = translator.Read(); status != kExitDone) return status;
    WarnOfOthersBuild(translator, streams);
    const std::string commandLine = translator.GetOptions().GetCommandLineOptions();
    if (!arguments.Json) {
        PrintWords(streams.Out, commandLine);
        return kExitDone;
    }
    TJson result = MakeTranslatorResult("hdlbuild-translator-command-line", arguments);
    result["commandLine"] = commandLine;
    PrintJson(result, streams);
    return kExitDone;
}
