#include "cli/frame/languagenames.h"
#include "cli/frame/texts.h"
#include "flows/knownnames.h"
#include "services/hdl/hdllanguagetable.h"

std::vector<std::string> OfferedLanguages() {
    std::vector<std::string> names;
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        if (record.IsOffered) names.emplace_back(record.Name);
    return names;
}

std::string LanguageHelp(const std::string& preset) {
    std::vector<std::string> names = OfferedLanguages();
    for (std::string& name : names)
        if (name == preset) name += " (default)";
    return JoinChoices(names);
}

THdlLanguage FindLanguage(const std::string& text, const TToolStreams& streams) {
    const THdlLanguage language = GetHdlLanguageFromString(text.c_str());
    if (language == LANGUAGE_NONE)
        ReportError(streams, UnknownName("language", text, OfferedLanguages()));
    return language;
}
