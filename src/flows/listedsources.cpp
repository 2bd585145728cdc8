#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"

std::vector<TListedSource> ListSources(const THdlBuildFile& build) {
    std::vector<TListedSource> sources;
    for (const THdlLanguage language : SelectableLanguages())
        for (const IHdlSourceFile* file : *build.GetSourceFileGroup(language))
            sources.push_back({language, file});
    return sources;
}

std::vector<TListedSource> ListMissingSources(const THdlBuildFile& build) {
    std::vector<TListedSource> missing;
    if (build.GetReadResult() == 0) return missing;
    for (const TListedSource& source : ListSources(build))
        if (!source.File->GetFileName()->Exists()) missing.push_back(source);
    return missing;
}

const std::vector<THdlLanguage>& SelectableLanguages() {
    static const std::vector<THdlLanguage> languages = {
        LANGUAGE_VERILOG,   LANGUAGE_VHDL,      LANGUAGE_BLUESPECVERILOG, LANGUAGE_SYSTEMC,
        LANGUAGE_CPLUSPLUS, LANGUAGE_RESERVED5, LANGUAGE_SPECMAN,         LANGUAGE_TESTBUILDER,
        LANGUAGE_RESERVED8, LANGUAGE_NONE};
    return languages;
}
