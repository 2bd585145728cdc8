#include "cli/buildloader.h"
#include "cli/changereport.h"
#include "cli/commands.h"
#include "cli/filereports.h"
#include "sibling/utilities/xmlsectionfile.h"
#include "translation/v2vtranslationfileoption.h"
#include "translation/v2vtranslationoptionslist.h"
#include "translation/v2vtranslationstringoption.h"
#include <memory>

namespace {

using TOptions = TV2VTranslationOptionsList;

struct TTranslator {
    const char* Name;
    const char* Tag;
    void (*Populate)(TOptions*);
};

constexpr TTranslator kTranslators[] = {
    {"v2vhdl", "Verilog2VhdlTranslationOptions", TOptions::PopulateWithDefaultVerilog2VhdlOptions},
    {"vhdl2v", "Vhdl2VerilogTranslationOptions", TOptions::PopulateWithDefaultVhdl2VerilogOptions},
};

struct TOptionsDeleter {
    void operator()(TOptions* options) const {
        options->Flush();
        delete options;
    }
};
using TOwnedOptions = std::unique_ptr<TOptions, TOptionsDeleter>;

TOwnedOptions MakeDefaults(const TTranslator& translator) {
    TOwnedOptions options(new TOptions(nullptr, translator.Tag));
    translator.Populate(options.get());
    return options;
}

/// The section of one translator in a build file.
class TOptionsDocument : public TXMLSectionFile {
public:
    // Readers of build files take a section at every depth.
    TOptionsDocument(const TTranslator& translator, const TOptions& options)
        : TXMLSectionFile(translator.Tag, "HdlBuildFile", ANYWHERE), Options(options) {}

protected:
    void FillSection() override { Options.WriteToFile(this); }

private:
    const TOptions& Options;
};

/// The switches of the translator of the arguments, as the build of the arguments has them.
class TTranslatorAccess {
public:
    TTranslatorAccess(const TToolArguments& arguments, const TToolStreams& streams)
        : Arguments(arguments), Streams(streams) {}

    /// kExitUsage for an unknown translator, kExitFile for a build that cannot be read,
    /// kExitProblems when its switches cannot; each with one line on Err.
    int Read() {
        for (const TTranslator& translator : kTranslators)
            if (Arguments.Translator == translator.Name) Translator = &translator;
        if (!Translator) {
            ReportError(Streams,
                        "unknown translator '" + Arguments.Translator + "'; known: v2vhdl, vhdl2v");
            return kExitUsage;
        }
        THdlBuildFile build;
        if (LoadBuild(Arguments, Streams, &build) == kExitFile) return kExitFile;
        TakeOptions(build);
        StateRead = GetState();
        const THdlBuildFileReadResults result = build.GetReadResult();
        // Sources that are missing do not matter to the switches.
        if (result == READ_NO_ERROR || result == READ_FILES_MISSING) return kExitDone;
        ReportReadResult(build, Streams);
        return kExitProblems;
    }

    TOptions& GetOptions() { return *Options; }
    /// Whether the build has the switches of the other translator only.
    bool IsOthersBuild() const { return OthersBuild; }

    /// Null, with one line on Err, when there is no such switch. The leading '-' may be left out.
    TV2VTranslationOption* FindOption() {
        const std::string name = Arguments.Words.empty() ? "" : Arguments.Words.front();
        if (TV2VTranslationOption* option = Options->FindOption(name.c_str())) return option;
        if (TV2VTranslationOption* option = Options->FindOption(("-" + name).c_str()))
            return option;
        std::string known;
        for (const TV2VTranslationOption* option : *Options)
            known += (known.empty() ? "" : ", ") + std::string(option->GetDashOption());
        ReportError(Streams,
                    (name.empty() ? "SWITCH is required" : "unknown switch '" + name + "'") +
                        ("; known: " + known));
        return nullptr;
    }

    /// Saves what differs from what was read, and prints it, for the command called `verb`.
    int Save(const char* verb) {
        if (OthersBuild) {
            ReportError(Streams,
                        "the build has the switches of the other translator, and a build "
                        "keeps those of one");
            return kExitProblems;
        }
        TOptionsDocument document(*Translator, *Options);
        const TQuietMessageBox quiet;
        document.ReadFile(Path());
        if (document.GetSectionCount() > 1) {
            ReportError(Streams, Arguments.Build + ": the file holds the section " +
                                     Translator->Tag + " more than once");
            return kExitProblems;
        }
        TJson result = MakeResult(("hdlbuild-translator-" + std::string(verb)).c_str(), Arguments);
        result["translator"] = Translator->Name;
        const TFileChange change{std::move(result), Arguments.Build, StateRead, GetState()};
        return SaveChange(change, Arguments, Streams, [&]() -> std::string {
            if (document.ReplaceSection(Path())) return "";
            return quiet.GetText().empty() ? "the file holds no build" : quiet.GetText();
        });
    }

private:
    const char* Path() const {
        return ISFileName::NewISFileName(Arguments.Build.c_str())->Canonical(false);
    }

    // The build never deletes its list.
    void TakeOptions(THdlBuildFile& build) {
        Options.reset(build.GetV2VOptions());
        build.SetV2VOptions(nullptr);
        OthersBuild = Options && std::string(Options->GetTag()) != Translator->Tag;
        if (!Options || OthersBuild) Options = MakeDefaults(*Translator);
    }

    TState GetState() const {
        TState state;
        for (TV2VTranslationOption* option : *Options) {
            const std::string arguments = option->GetListDisplayString();
            const std::string text = arguments.empty() ? "on" : "on: " + arguments;
            state.emplace_back(option->GetDashOption(), option->IsEnabled() ? text : "off");
        }
        return state;
    }

    const TToolArguments& Arguments;
    const TToolStreams& Streams;
    const TTranslator* Translator = nullptr;
    TOwnedOptions Options;
    TState StateRead;
    bool OthersBuild = false;
};

template <class TOption>
void ReplaceEntries(TOption& option, const std::vector<std::string>& words) {
    option.ClearList();
    for (std::size_t i = 1; i < words.size(); ++i) option.AddAnOption(words[i].c_str());
}

/// Gives `option` the arguments behind the first of `words`, if there are any. Why that cannot be
/// done; "" when it is done.
std::string SetArguments(TV2VTranslationOption& option, const std::vector<std::string>& words) {
    const std::string name = option.GetDashOption();
    if (!option.HasStringOption())
        return words.size() > 1 ? "the switch '" + name + "' takes no arguments" : "";
    if (words.size() < 2)
        return *option.GetListDisplayString()
                   ? ""
                   : "the switch '" + name + "' needs arguments: " + option.GetOptionString();
    if (auto* files = dynamic_cast<TV2VTranslationFileOption*>(&option))
        ReplaceEntries(*files, words);
    if (auto* strings = dynamic_cast<TV2VTranslationStringOption*>(&option))
        ReplaceEntries(*strings, words);
    return "";
}

void PrintOption(TV2VTranslationOption& option, std::ostream& out) {
    out << (option.IsEnabled() ? "* " : "  ") << option.GetOptionString() << "\n";
    const std::string arguments = option.GetListDisplayString();
    if (!arguments.empty()) out << "      arguments: " << arguments << "\n";
    out << "      " << option.GetDescription() << "\n";
}

TJson OptionAsJson(TV2VTranslationOption& option) {
    return {{"switch", option.GetDashOption()},
            {"option", option.GetOptionString()},
            {"help", option.GetDescription()},
            {"enabled", option.IsEnabled()},
            {"takesArguments", option.HasStringOption()},
            {"arguments", option.GetListDisplayString()}};
}

TJson MakeTranslatorResult(const char* format, const TToolArguments& arguments) {
    TJson result = MakeResult(format, arguments);
    result["translator"] = arguments.Translator;
    return result;
}

void WarnOfOthersBuild(const TTranslatorAccess& translator, const TToolStreams& streams) {
    if (translator.IsOthersBuild())
        ReportWarning(streams,
                      "the build has the switches of the other translator: these are the defaults");
}

}  // namespace

int RunTranslatorList(const TToolArguments& arguments, const TToolStreams& streams) {
    TTranslatorAccess translator(arguments, streams);
    if (const int status = translator.Read(); status != kExitDone) return status;
    WarnOfOthersBuild(translator, streams);
    TJson result = MakeTranslatorResult("hdlbuild-translator-list", arguments);
    for (TV2VTranslationOption* option : translator.GetOptions()) {
        result["switches"].push_back(OptionAsJson(*option));
        if (!arguments.Json) PrintOption(*option, streams.Out);
    }
    if (arguments.Json) PrintJson(result, streams);
    return kExitDone;
}

int RunTranslatorEnable(const TToolArguments& arguments, const TToolStreams& streams) {
    TTranslatorAccess translator(arguments, streams);
    if (const int status = translator.Read(); status != kExitDone) return status;
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

int RunTranslatorDisable(const TToolArguments& arguments, const TToolStreams& streams) {
    TTranslatorAccess translator(arguments, streams);
    if (const int status = translator.Read(); status != kExitDone) return status;
    TV2VTranslationOption* option = translator.FindOption();
    if (!option) return kExitUsage;
    const std::string name = option->GetDashOption();
    if (arguments.Words.size() > 1) {
        ReportError(streams, "disable takes one SWITCH");
        return kExitUsage;
    }
    // Files hold enabled switches only, so a reader would turn it on again.
    for (const TTranslator& row : kTranslators)
        if (row.Name == arguments.Translator && MakeDefaults(row)->IsOptionEnabled(name.c_str())) {
            ReportError(streams, "the switch '" + name +
                                     "' is enabled by default, which a build file cannot change");
            return kExitProblems;
        }
    option->SetEnabled(false);
    return translator.Save("disable");
}

int RunTranslatorCommandLine(const TToolArguments& arguments, const TToolStreams& streams) {
    TTranslatorAccess translator(arguments, streams);
    if (const int status = translator.Read(); status != kExitDone) return status;
    WarnOfOthersBuild(translator, streams);
    const std::string commandLine = translator.GetOptions().GetCommandLineOptions();
    if (!arguments.Json) {
        streams.Out << commandLine << "\n";
        return kExitDone;
    }
    TJson result = MakeTranslatorResult("hdlbuild-translator-command-line", arguments);
    result["commandLine"] = commandLine;
    PrintJson(result, streams);
    return kExitDone;
}
