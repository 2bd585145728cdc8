#include "cli/translator/translatoraccess.h"
#include "buildfile/hdlbuildfile.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/progressline.h"
#include "flows/editrules.h"
#include "flows/knownnames.h"
#include "flows/textreaders.h"
#include "services/names/isfilename.h"
#include "translation/v2vtranslationoption.h"

namespace {

constexpr TTranslator kTranslators[] = {
    {"v2vhdl", "Verilog2VhdlTranslationOptions",
     TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions},
    {"vhdl2v", "Vhdl2VerilogTranslationOptions",
     TV2VTranslationOptionsList::PopulateWithDefaultVhdl2VerilogOptions},
};

std::vector<std::string> TranslatorNames() {
    std::vector<std::string> names;
    for (const TTranslator& translator : kTranslators) names.emplace_back(translator.Name);
    return names;
}

constexpr const char* kBuildElement = "HdlBuildFile";

bool HoldsElement(const TXMLList& document, const char* name) {
    DListIterator<TElement*> element(document);
    return TXMLList::FindNext(element, name, nullptr);
}

/// The switch's element with other arguments.
void PushSwitch(TV2VTranslationOption& option, bool isEnabled,
                const std::vector<std::string>& arguments, TXMLList* document) {
    TXMLList element;
    option.WriteToFile(&element);
    const std::string name = DListIterator<TElement*>(element).Current()->Name.Str();
    const TAttributeView enabled[] = {{"Enabled", isEnabled ? "true" : "false"}};
    document->Push(TElement::START, name, {}, enabled);
    for (const std::string& argument : arguments)
        document->PushTextElement("AdditionalOptions", argument);
    document->Push(TElement::END, name, {});
}

}  // namespace

std::vector<std::string> ArgumentsOf(TV2VTranslationOption& option) {
    TXMLList element;
    option.WriteToFile(&element);
    std::vector<std::string> arguments;
    for (DListIterator<TElement*> part(element); part.NotAtTail(); ++part)
        if (part.Current()->ElemType == TElement::TEXT)
            arguments.push_back(part.Current()->Text.Str());
    return arguments;
}

TTranslatorAccess::TTranslatorAccess(const TTranslatorArguments& arguments,
                                     const TToolStreams& streams)
    : Arguments(arguments),
      Streams(streams),
      File(ISFileName::NewISFileName(arguments.Build.c_str())) {}

void TTranslatorAccess::TOptionsDeleter::operator()(TV2VTranslationOptionsList* options) const {
    options->Flush();
    delete options;
}

TTranslatorAccess::TOptions TTranslatorAccess::MakeDefaults(const TTranslator& translator) {
    TOptions options(new TV2VTranslationOptionsList(nullptr, translator.Tag));
    translator.Populate(options.get());
    return options;
}

int TTranslatorAccess::Read() {
    return ReadBuild(false);
}

int TTranslatorAccess::ReadToChange() {
    return ReadBuild(!Arguments.DryRun);
}

int TTranslatorAccess::ReadBuild(bool isLocked) {
    for (const TTranslator& translator : kTranslators)
        if (Arguments.Translator == translator.Name) Translator = &translator;
    if (!Translator) {
        ReportError(Streams, UnknownName("translator", Arguments.Translator, TranslatorNames()));
        return kExitUsage;
    }
    const TQuietMessageBox quiet;
    if (Streams.Progress) Streams.Progress->SetFile(Arguments.Build);
    THdlBuildFile build;
    TXMLReadError error;
    if (isLocked) File.TakeLock();
    if (!File.Read(&error) || !ReadBuildText(File.GetBytes(), File.GetFile(), &build, &error)) {
        ReportReadError(error, Arguments.Build, Streams);
        return kExitFile;
    }
    Options = TakeOptions(build);
    OthersBuild = Options && std::string(Options->GetTag()) != Translator->Tag;
    if (!Options || OthersBuild) Options = MakeDefaults(*Translator);
    StateRead = StateOf(*Options);
    for (TV2VTranslationOption* option : *Options) ArgumentsRead.push_back(ArgumentsOf(*option));
    ReportNoBuild(build, Streams);
    const THdlBuildFileReadResults result = build.GetReadResult();
    // Sources that are missing do not matter to the switches.
    const bool isRead = result == READ_NO_ERROR || result == READ_FILES_MISSING;
    if (!isRead) ReportError(Streams, THdlBuildFile::GetErrorString(result));
    return isRead && build.HasBuildElement() ? kExitDone : kExitProblems;
}

// The build never deletes its list.
TTranslatorAccess::TOptions TTranslatorAccess::TakeOptions(THdlBuildFile& build) const {
    TOptions options(build.GetV2VOptions());
    build.SetV2VOptions(nullptr);
    return options;
}

TState TTranslatorAccess::StateOf(const TV2VTranslationOptionsList& options) {
    TState state;
    for (TV2VTranslationOption* option : options) {
        const TJson on = option->HasStringOption() ? TJson(ArgumentsOf(*option)) : TJson("on");
        state.emplace_back(option->GetDashOption(), option->IsEnabled() ? on : TJson("off"));
    }
    return state;
}

TTranslatorAccess::TBuildState TTranslatorAccess::ReadState(const std::string& document) const {
    TBuildState state;
    THdlBuildFile build;
    if (!ReadBuildText(document, File.GetFile(), &build, nullptr)) return state;
    const TOptions options = TakeOptions(build);
    state.Switches = StateOf(options ? *options : *MakeDefaults(*Translator));
    THdlBuildFileXMLList rest(nullptr);
    rest.SetFileName(File.GetFile()->Canonical(false));
    build.WriteFile(&rest);
    rest.WriteToText(&state.Rest, nullptr);
    return state;
}

TV2VTranslationOption* TTranslatorAccess::FindOption() {
    const std::string name = Arguments.Words.empty() ? "" : Arguments.Words.front();
    if (TV2VTranslationOption* option = Options->FindOption(name.c_str())) return option;
    if (TV2VTranslationOption* option = Options->FindOption(("-" + name).c_str())) return option;
    std::vector<std::string> known;
    for (const TV2VTranslationOption* option : *Options)
        known.emplace_back(option->GetDashOption());
    const bool isWhole = name.empty() || name.starts_with('-');
    const std::string complaint =
        name.empty() ? "SWITCH is required" : "unknown switch '" + name + "'";
    ReportError(Streams, WithKnownNames(complaint, isWhole ? name : "-" + name, known));
    return nullptr;
}

bool TTranslatorAccess::IsEnabledByDefault(const TV2VTranslationOption& option) const {
    return MakeDefaults(*Translator)->IsOptionEnabled(option.GetDashOption());
}

// Why the file cannot take changes; "" when it can.
std::string TTranslatorAccess::FindProblem() const {
    constexpr const char* kOfOne = "a build keeps the switches of one translator, and this one ";
    if (OthersBuild) return std::string(kOfOne) + "those of the other";
    TXMLList document;
    document.SetHoldsRoot(true);
    document.ReadFromText(File.GetBytes(), nullptr);
    for (const TTranslator& other : kTranslators)
        if (&other != Translator && HoldsElement(document, other.Tag))
            return std::string(kOfOne) + "holds those of both";
    return "";
}

// A switch that is not enabled may have an element all the same, with arguments that only its
// writer could have spelt: it stands in the base, so that they stay in the file as they are.
void TTranslatorAccess::PushChanges(TXMLList* base, TXMLList* wanted) const {
    const TState state = StateOf(*Options);
    for (TXMLList* document : {base, wanted}) {
        document->Push(TElement::START, kBuildElement, {});
        document->Push(TElement::START, Translator->Tag, {});
    }
    std::size_t number = 0;
    for (TV2VTranslationOption* option : *Options) {
        const std::size_t i = number++;
        if (state[i] == StateRead[i]) continue;
        PushSwitch(*option, StateRead[i].second != TJson("off"), ArgumentsRead[i], base);
        if (option->IsEnabled()) PushSwitch(*option, true, ArgumentsOf(*option), wanted);
    }
    for (TXMLList* document : {base, wanted}) {
        document->Push(TElement::END, Translator->Tag, {});
        document->Push(TElement::END, kBuildElement, {});
    }
}

int TTranslatorAccess::Save(const char* verb) {
    const TQuietMessageBox quiet;
    if (const std::string problem = FindProblem(); !problem.empty()) {
        ReportError(Streams, Arguments.Build + ": " + problem);
        return kExitProblems;
    }
    TXMLList base;
    TXMLList wanted;
    PushChanges(&base, &wanted);
    const TBuildState state = {StateOf(*Options), ReadState(File.GetBytes()).Rest};
    const std::string reason =
        File.Change(base, wanted, MakeBuildFileRules(File.GetFile()),
                    [&](const std::string& edited) { return ReadState(edited) == state; });
    TJson result = MakeResult("hdlbuild-translator-" + std::string(verb), "build", Arguments.Build);
    result["translator"] = Translator->Name;
    TFileChange change{std::move(result), Arguments.Build, StateRead, state.Switches};
    return SaveEditedFile(std::move(change), reason, File, Arguments, Streams);
}
