#include "flows/formats/exportwriter.h"
#include "flows/scan/sourcetext.h"
#include <algorithm>
#include <array>

std::string TextOf(const TScanDefine& define) {
    return define.Value.empty() ? define.Name : define.Name + "=" + define.Value;
}

const TPlanSettings& TExportWriter::SettingsOf(THdlLanguage language) const {
    static const TPlanSettings none;
    const TPlanSettings* const settings = GetPlan().FindSettings(language);
    return settings ? *settings : none;
}

bool TExportWriter::HasSources(THdlLanguage language) const {
    const auto& sources = GetPlan().Sources;
    return std::any_of(sources.begin(), sources.end(), [language](const TPlanSource& source) {
        return source.Language == language;
    });
}

std::vector<const TBuildTop*> TExportWriter::ListTops(THdlLanguage language) const {
    std::vector<const TBuildTop*> tops;
    for (const TBuildTop& top : GetPlan().Tops)
        if (top.Language == language && (!GetTop() || GetTop() == &top)) tops.push_back(&top);
    return tops;
}

// Through folders above only as far as both share a folder: else a whole path says more.
std::string TExportWriter::PathOf(const std::string& path) const {
    const std::string& folder = Request.Folder;
    if (folder.empty()) return path;
    std::size_t shared = 0;
    for (std::size_t at = 0; at < folder.size() && at < path.size() && folder[at] == path[at]; ++at)
        if (folder[at] == '/') shared = at + 1;
    // A folder itself, which has no delimiter at its end.
    if (path.size() + 1 == folder.size() && folder.starts_with(path)) return ".";
    if (shared <= 1) return path;
    std::string relative;
    for (std::size_t at = shared; at < folder.size(); ++at)
        if (folder[at] == '/') relative += "../";
    return relative.append(path, shared);
}

std::string TExportWriter::WordOf(const std::string& path) const {
    std::string word = PathOf(path);
    return HasAny(word.substr(0, 1), "-+@") ? word.insert(0, "./") : word;
}

void TExportWriter::AddLine(std::string_view line) {
    Exported.Text.append(line).append("\n");
}

void TExportWriter::Lose(const std::string& what) {
    if (Lost.insert(what).second)
        Exported.Losses.push_back({DIAGNOSTIC_NOT_EXPORTED, {Format, what}});
}

void TExportWriter::Refuse(const std::string& name, const char* reason) {
    if (Refused.insert(name + "\n" + reason).second)
        Exported.Losses.push_back({DIAGNOSTIC_UNWRITABLE_NAME, {Format, name, reason}});
}

const std::string& TExportWriter::Utf8Of(const std::string& name) {
    if (!IsUtf8Text(name)) Refuse(name, "it is no UTF-8");
    return name;
}

void TExportWriter::LoseLanguage(THdlLanguage language) {
    Lose(std::string("sources in ") + GetDisplayStringFromHdlLanguage(language));
}

void TExportWriter::LoseDirectories(THdlLanguage language) {
    const TPlanSettings& settings = SettingsOf(language);
    if (!settings.IncludeDirectories.empty()) Lose("include directories");
    if (!settings.LibraryDirectories.empty()) Lose("library directories");
    if (!settings.Defines.empty()) Lose("defines");
}

void TExportWriter::LoseOtherLanguages(const std::set<THdlLanguage>& written) {
    for (const TPlanSource& source : GetPlan().Sources)
        if (!written.contains(source.Language)) LoseLanguage(source.Language);
}

void TExportWriter::LoseLibraries(const std::set<THdlLanguage>& written) {
    const std::string* library = nullptr;  // of those so far
    for (const TPlanSource& source : GetPlan().Sources) {
        if (!written.contains(source.Language)) continue;
        if (library && *library != source.Library) Lose("libraries");
        library = &source.Library;
    }
}

void TExportWriter::LoseVerilogStandard() {
    if (!SettingsOf(LANGUAGE_VERILOG).Standard.empty()) Lose("the standard of Verilog");
}

void TExportWriter::LoseLibraryFiles() {
    for (const TPlanSource& source : GetPlan().Sources)
        if (source.IsLibraryFile) Lose("the mark of library files");
}

void TExportWriter::LoseDelays() {
    if (SettingsOf(LANGUAGE_VERILOG).Delay != DELAY_TYPE_TYPICAL) Lose("the choice of delays");
}

void TExportWriter::LoseOption(TPlanStep step, const std::string& option) {
    constexpr std::array<const char*, kPlanSteps> kNames = {"analysis", "elaboration", "run"};
    Lose(std::string("the ") + kNames[step] + " option " + option);
}

void TExportWriter::LoseOptions(THdlLanguage language, const std::set<TPlanStep>& written) {
    for (const TPlanStep step : {STEP_ANALYSE, STEP_ELABORATE, STEP_RUN}) {
        if (written.contains(step)) continue;
        for (const std::vector<std::string>& words :
             WithOperands(SettingsOf(language).Options[step]))
            LoseOption(step, TextOfOption(words));
    }
}

std::vector<std::string> TExportWriter::OptionsFor(const TToolWords& tool, THdlLanguage language,
                                                   TPlanStep step) {
    return ListTaken(SettingsOf(language).Options[step], tool,
                     [&](const std::string& option) { LoseOption(step, option); });
}
