#include "flows/formats/toolcalls.h"
#include "flows/plan/planoptions.h"

bool RefuseQuoted(const std::string& name, TExportWriter* writer) {
    if (!HasAny(name, "\"")) return false;
    writer->Refuse(name, "the tool cannot read its own file with a quote");
    return true;
}

std::vector<std::string> GhdlUnitOf(const TBuildTop& top) {
    std::vector<std::string> words{top.Entity};
    if (!top.Architecture.empty()) words.push_back(top.Architecture);
    return words;
}

std::vector<std::string> IcarusOptions(TExportWriter* writer) {
    const TPlanSettings& settings = writer->SettingsOf(LANGUAGE_VERILOG);
    std::vector<std::string> words;
    if (const char* const word = FindIcarusWord(writer->GetPlan())) words.emplace_back(word);
    if (settings.Delay == DELAY_TYPE_MINIMUM) words.emplace_back("-Tmin");
    if (settings.Delay == DELAY_TYPE_MAXIMUM) words.emplace_back("-Tmax");
    for (const auto* const folders : {&settings.IncludeDirectories, &settings.LibraryDirectories})
        for (const std::string& folder : *folders) RefuseQuoted(writer->PathOf(folder), writer);
    for (const std::string& folder : settings.IncludeDirectories)
        words.push_back("-I" + writer->PathOf(folder));
    for (const TScanDefine& define : settings.Defines) words.push_back("-D" + TextOf(define));
    for (const std::string& folder : settings.LibraryDirectories)
        words.push_back("-y" + writer->PathOf(folder));
    for (const std::string& extension : settings.LibraryExtensions)
        words.push_back("-Y" + extension);
    for (const TPlanStep step : {STEP_ANALYSE, STEP_ELABORATE}) {
        const auto options = writer->OptionsFor(kWordsOfIcarus, LANGUAGE_VERILOG, step);
        words.insert(words.end(), options.begin(), options.end());
    }
    return words;
}

std::vector<std::string> IcarusSources(TExportWriter* writer) {
    std::vector<std::string> words;
    for (const TPlanSource& source : writer->GetPlan().Sources) {
        if (source.Language != LANGUAGE_VERILOG) continue;
        if (source.IsLibraryFile) words.emplace_back("-l");
        words.push_back(writer->WordOf(source.Path));
        RefuseQuoted(words.back(), writer);
    }
    return words;
}
