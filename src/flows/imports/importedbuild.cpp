#include "flows/imports/importedbuild.h"
#include "flows/buildchanges.h"
#include "flows/buildedit.h"
#include "flows/listedsources.h"
#include "flows/plan/planoptions.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include "settings/projectsimlanguageconfig.h"
#include <algorithm>
#include <unordered_set>

namespace {

/// A text of options, word by word.
class TOptionText {
public:
    void Add(const std::string& word) {
        if (!Known.insert(word).second) return;
        Append(word);
    }
    /// Words that repeat as they are written.
    void Append(const std::string& word) {
        if (!Text.empty()) Text += ' ';
        const bool isQuoted = word.empty() || word.find_first_of(" \t") != std::string::npos;
        Text += isQuoted ? '"' + word + '"' : word;
    }
    const std::string& Get() const { return Text; }

private:
    std::string Text;
    std::unordered_set<std::string> Known;
};

// A plus ends the value of the first form.
std::string DefineOption(const TScanDefine& define) {
    const std::string text = define.Value.empty() ? define.Name : define.Name + "=" + define.Value;
    return (text.find('+') == std::string::npos ? "+define+" : "-D") + text;
}

std::string StandardOption(THdlLanguage language, const std::string& year) {
    if (language == LANGUAGE_VHDL) return "-" + (year.starts_with("19") ? year.substr(2) : year);
    for (const TVerilogStandard& standard : kVerilogStandards)
        if (year == standard.Year && year != kSystemVerilogYear) return standard.IcarusWord;
    return "-sv";
}

void AppendOptions(const std::vector<TImportedOption>& options, TOptionText* text) {
    for (const TImportedOption& option : options) {
        text->Append(option.Text);
        for (const std::string& operand : option.Operands) text->Append(operand);
    }
}

std::string BuildOptionsOf(THdlLanguage language, const TImportedSettings& settings) {
    TOptionText text;
    if (settings.Standard) text.Add(StandardOption(language, settings.Standard->Text));
    for (const TImportedDefine& define : settings.Defines) text.Add(DefineOption(define.Define));
    AppendOptions(settings.Options[STEP_ANALYSE], &text);
    return text.Get();
}

std::string TextOfOptions(const std::vector<TImportedOption>& options) {
    TOptionText text;
    AppendOptions(options, &text);
    return text.Get();
}

bool HasSettings(const TImportedSettings& settings) {
    const bool hasOptions = std::any_of(settings.Options.begin(), settings.Options.end(),
                                        [](const auto& words) { return !words.empty(); });
    return hasOptions || !settings.IncludeDirectories.empty() ||
           !settings.LibraryDirectories.empty() || !settings.LibraryExtensions.empty() ||
           !settings.Defines.empty() || settings.Standard ||
           settings.Delay.value_or(DELAY_TYPE_TYPICAL) != DELAY_TYPE_TYPICAL;
}

void AddSettings(THdlLanguage language, const TImportedSettings& settings, TBuildEdit* edit) {
    if (!HasSettings(settings)) return;
    TProjectSimLanguageConfig& own = edit->GetOrMakeLanguageSettings(language);
    for (const TImportedText& folder : settings.IncludeDirectories)
        own.AddIncludeDirectory(folder.Text.c_str(), false);
    for (const TImportedText& folder : settings.LibraryDirectories)
        own.AddLibraryDirectory(folder.Text.c_str(), false);
    for (const TImportedText& extension : settings.LibraryExtensions)
        own.AddLibraryExtension(extension.Text.c_str());
    if (settings.Delay) own.SetDelayType(*settings.Delay);
    own.SetBuildOptions(BuildOptionsOf(language, settings).c_str());
    own.SetLinkerOptions(TextOfOptions(settings.Options[STEP_ELABORATE]).c_str());
    own.SetRuntimeOptions(TextOfOptions(settings.Options[STEP_RUN]).c_str());
}

void AddOne(const TImportedSource& imported, THdlBuildFile* build) {
    const ISFileName* const file = ISFileName::NewISFileName(imported.Path.c_str());
    IHdlSourceFile* const source = AddSource(*build, file, imported.Language);
    if (!source) return;
    if (!imported.Library.empty()) source->SetPrecompiledLibraryGroupName(imported.Library.c_str());
    if (imported.IsLibraryFile) source->SetLibraryFlag(true);
}

}  // namespace

THdlLanguage LanguageOfImported(const TImported& imported) {
    const auto& sources = imported.Sources;
    if (sources.empty()) return LANGUAGE_NONE;
    const bool hasVhdl =
        std::any_of(sources.begin(), sources.end(),
                    [](const TImportedSource& source) { return source.Language == LANGUAGE_VHDL; });
    return hasVhdl ? LANGUAGE_VHDL : sources.front().Language;
}

void AddImported(const TImported& imported, TBuildEdit* edit) {
    THdlBuildFile& build = *edit->GetBuild();
    for (const TImportedSource& source : imported.Sources) AddOne(source, &build);
    for (const TImportedTop& listed : imported.Tops) {
        TBuildTop top = listed.Top;
        if (top.Library.empty()) top.Library = GetDestinationLibraryName(build);
        AddTop(build, top);
    }
    for (const auto& [language, settings] : imported.Settings)
        AddSettings(language, settings, edit);
}
