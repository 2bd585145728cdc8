#include "fuzz/buildtext.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/buildattributes.h"
#include "flows/buildtops.h"
#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/hdl/hdllanguagetable.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/support/elementtext.h"

#include <cstdio>
#include <cstdlib>

namespace {

std::string PathOf(const IHdlSourceFile& source) {
    return source.GetFileName()->Canonical(false);
}

std::string TextOfSource(const TListedSource& source) {
    std::string text = "source " + std::to_string(source.Group) + " " + PathOf(*source.File) + " " +
                       source.File->GetPrecompiledLibraryGroupName() +
                       (source.File->IsLibrary() ? " library\n" : "\n");
    if (const TIHdlSourceFileList* list = source.File->GetDependencyList())
        for (const IHdlSourceFile* needed : *list) text += "  on " + PathOf(*needed) + "\n";
    return text;
}

std::string TextOfTop(const TBuildTop& top) {
    return "top " + std::to_string(top.Language) + " " + top.Library + " " + top.Entity + " " +
           top.Architecture + "\n";
}

std::string TextOfTool(const TBaseSimTool& tool) {
    return "tool " + std::to_string(tool.GetLanguage()) + " " +
           std::to_string(tool.GetSimulatorType()) + " " + tool.GetExecutablePath() + " " +
           tool.GetPliLibrary() + "\n";
}

}  // namespace

void Give(const char* complaint, const std::string& detail) {
    std::fprintf(stderr, "%s\n%s\n", complaint, detail.c_str());
    std::abort();
}

std::string TextOfBuild(const THdlBuildFile& build) {
    std::string text;
    for (const TBuildAttribute& attribute : GetBuildAttributes())
        text += std::string(attribute.Name) + " " + attribute.Get(build) + "\n";
    if (build.GetForceTopLevelComponents()) text += "forced\n";
    for (const TBuildTop& top : ListTops(build)) text += TextOfTop(top);
    for (const THdlLanguage language : build.GetSimToolLanguages())
        text += TextOfTool(*build.GetSimTool(language));
    if (const TProjectSimGeneralConfig* general = build.GetGeneralConfiguration())
        text += ElementsWrittenBy([&](TXMLList* list) { general->WriteToProjectFile(list); });
    for (const TListedSource& source : ListSources(build)) text += TextOfSource(source);
    for (const auto& [name, value] : *build.GetPseudoEnvironmentVariables()) {
        text += "variable " + name;
        text += "=" + value + "\n";
    }
    return text;
}

std::string TextOfLanguages(const THdlBuildFile& build) {
    std::string text;
    for (const THdlLanguage language : GetStoredLanguages()) {
        const TProjectSimLanguageConfig* const own = build.GetProjectLanguageConfig(language);
        if (!own) continue;
        // To write one may change it.
        TProjectSimLanguageConfig copy = *own;
        text += "language " + std::to_string(language) + "\n";
        text += ElementsWrittenBy(
            [&](TXMLList* list) { copy.WriteToProjectFile(list, language, false, false, false); });
    }
    return text;
}
