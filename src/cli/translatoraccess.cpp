#include "cli/translatoraccess.h"
#include "cli/buildloader.h"
#include "cli/filereports.h"
#include "sibling/fileservices/isfilename.h"
#include "sibling/utilities/xmlsectionfile.h"
#include "translation/v2vtranslationoption.h"

namespace {

constexpr TTranslator kTranslators[] = {
    {"v2vhdl", "Verilog2VhdlTranslationOptions",
     TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions},
    {"vhdl2v", "Vhdl2VerilogTranslationOptions",
     TV2VTranslationOptionsList::PopulateWithDefaultVhdl2VerilogOptions},
};

/// The section of one translator in a build file.
class TOptionsDocument : public TXMLSectionFile {
public:
    // Readers of build files take a section at every depth.
    TOptionsDocument(const TTranslator& translator, const TV2VTranslationOptionsList& options)
        : TXMLSectionFile(translator.Tag, "HdlBuildFile", ANYWHERE), Options(options) {}

protected:
    void FillSection() override { Options.WriteToFile(this); }

private:
    const TV2VTranslationOptionsList& Options;
};

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
        const std::string arguments = option->GetListDisplayString();
        const std::string text = arguments.empty() ? "on" : "on: " + arguments;
        state.emplace_back(option->GetDashOption(), option->IsEnabled() ? text : "off");
    }
    return state;
}

TV2VTranslationOption* TTranslatorAccess::FindOption() {
    const std::string name = Arguments.Words.empty() ? "" : Arguments.Words.front();
    if (TV2VTranslationOption* option = Options->FindOption(name.c_str())) return option;
    if (TV2VTranslationOption* option = Options->FindOption(("-" + name).c_str())) return option;
    std::string known;
    for (const TV2VTranslationOption* option : *Options)
        known += (known.empty() ? "" : ", ") + std::string(option->GetDashOption());
    const std::string complaint =
        name.empty() ? "SWITCH is required" : "unknown switch '" + name + "'";
    ReportError(Streams, complaint + "; known: " + known);
    return nullptr;
}

bool TTranslatorAccess::IsEnabledByDefault(const TV2VTranslationOption& option) const {
    return MakeDefaults(*Translator)->IsOptionEnabled(option.GetDashOption());
}

int TTranslatorAccess::Save(const char* verb) {
    const char* const path = ISFileName::NewISFileName(Arguments.Build.c_str())->Canonical(false);
    const TQuietMessageBox quiet;
    TOptionsDocument document(*Translator, *Options);
    if (!document.ReadFile(path)) {
        TXMLReadError error = document.GetReadError();
        error.File = Arguments.Build;  // as the user typed it
        ReportError(Streams, ReadErrorText(error));
        return kExitFile;
    }
    if (OthersBuild || document.GetSectionCount() > 1) {
        ReportError(
            Streams,
            Arguments.Build + (OthersBuild ? ": a build keeps the switches of one translator, and "
                                             "this one those of the other"
                                           : ": the file holds the switches more than once"));
        return kExitProblems;
    }
    TJson result = MakeResult(("hdlbuild-translator-" + std::string(verb)).c_str(), Arguments);
    result["translator"] = Translator->Name;
    const TFileChange change{std::move(result), Arguments.Build, StateRead, GetState()};
    return SaveChange(change, Arguments, Streams, [&]() -> std::string {
        if (document.ReplaceSection(path)) return "";
        return quiet.GetText().empty() ? "the file holds no build" : quiet.GetText();
    });
}
