#include "cli/translator/translatoraccess.h"
#include "buildfile/hdlbuildfile.h"
#include "cli/frame/filereports.h"
#include "cli/frame/knownnames.h"
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

/// Whether the document holds a section of another translator, too.
bool HoldsOthers(const TXMLList& document, const char* tag) {
    for (DListIterator<TElement*> element(document); element.NotAtTail(); ++element)
        for (const TTranslator& other : kTranslators)
            if (element.Current()->ElemType == TElement::START &&
                element.Current()->Name == other.Tag && std::string(other.Tag) != tag)
                return true;
    return false;
}

}  // namespace

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
    for (const TTranslator& translator : kTranslators)
        if (Arguments.Translator == translator.Name) Translator = &translator;
    if (!Translator) {
        ReportError(Streams, UnknownName("translator", Arguments.Translator, TranslatorNames()));
        return kExitUsage;
    }
    ReadSection();
    THdlBuildFile build;
    if (LoadBuild(Arguments.Build, Streams, &build) == kExitFile) return kExitFile;
    TakeOptions(build);
    StateRead = GetState();
    for (TV2VTranslationOption* option : *Options) ArgumentsRead.push_back(ArgumentsOf(*option));
    const THdlBuildFileReadResults result = build.GetReadResult();
    // Sources that are missing do not matter to the switches.
    if (result == READ_NO_ERROR || result == READ_FILES_MISSING) return kExitDone;
    ReportReadResult(build, Streams);
    return kExitProblems;
}

// Called before the build is read, so that a save of others in between is noticed. A file that
// cannot be read is reported with the build.
void TTranslatorAccess::ReadSection() {
    const TQuietMessageBox quiet;
    TTranslatorSection section(Translator->Tag);
    section.ReadFile(ISFileName::NewISFileName(Arguments.Build.c_str())->Canonical(false));
    SectionRead = section.GetSectionText();
}

// The build never deletes its list.
void TTranslatorAccess::TakeOptions(THdlBuildFile& build) {
    Options.reset(build.GetV2VOptions());
    build.SetV2VOptions(nullptr);
    OthersBuild = Options && std::string(Options->GetTag()) != Translator->Tag;
    if (!Options || OthersBuild) Options = MakeDefaults(*Translator);
}

TState TTranslatorAccess::GetState() const {
    TState state;
    for (TV2VTranslationOption* option : *Options) {
        const TJson on = option->HasStringOption() ? TJson(ArgumentsOf(*option)) : TJson("on");
        state.emplace_back(option->GetDashOption(), option->IsEnabled() ? on : TJson("off"));
    }
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

std::vector<TChangedSwitch> TTranslatorAccess::FindChanges() const {
    const TState state = GetState();
    std::vector<TChangedSwitch> changes;
    for (std::size_t i = 0; i < state.size(); ++i) {
        TV2VTranslationOption* option = Options->begin()[static_cast<std::ptrdiff_t>(i)];
        if (state[i] != StateRead[i])
            changes.push_back({option, ArgumentsOf(*option) != ArgumentsRead[i]});
    }
    return changes;
}

// Why the section cannot take changes; "" when it can.
std::string TTranslatorAccess::FindProblem(const TTranslatorSection& section) const {
    constexpr const char* kOfOne = "a build keeps the switches of one translator, and this one ";
    if (OthersBuild) return std::string(kOfOne) + "those of the other";
    if (HoldsOthers(section, Translator->Tag)) return std::string(kOfOne) + "holds those of both";
    return section.GetSectionCount() > 1 ? "the file holds the switches more than once" : "";
}

int TTranslatorAccess::Save(const char* verb) {
    const char* const path = ISFileName::NewISFileName(Arguments.Build.c_str())->Canonical(false);
    const TQuietMessageBox quiet;
    TTranslatorSection section(Translator->Tag);
    if (!section.ReadFile(path)) {
        ReportReadError(section.GetReadError(), Arguments.Build, Streams);
        return kExitFile;
    }
    if (const std::string problem = FindProblem(section); !problem.empty()) {
        ReportError(Streams, Arguments.Build + ": " + problem);
        return kExitProblems;
    }
    TJson result = MakeResult("hdlbuild-translator-" + std::string(verb), "build", Arguments.Build);
    result["translator"] = Translator->Name;
    const TFileChange change{std::move(result), Arguments.Build, StateRead, GetState()};
    return SaveChange(change, Arguments, Streams, [&]() -> std::string {
        if (section.GetSectionText() != SectionRead)
            return "the switches in the file have changed since they were read";
        section.Change(FindChanges());
        if (section.ReplaceSection(path)) return "";
        return quiet.GetText().empty() ? "the file holds no build" : quiet.GetText();
    });
}
