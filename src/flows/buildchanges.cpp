#include "flows/buildchanges.h"
#include "buildfile/hdlbuildfile.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include <algorithm>
#include <unordered_set>

namespace {

using TSources = std::vector<IHdlSourceFile*>;

void Fill(TIHdlSourceFileList* list, const TSources& sources) {
    list->Flush();
    for (IHdlSourceFile* source : sources) list->AddSourceFile(source, false);
}

/// Calls `visit` with each group and each list of dependencies of a listed source.
template <class TVisit>
void VisitLists(THdlBuildFile& build, TVisit visit) {
    for (const THdlLanguage language : build.GetSourceFileLanguages()) {
        TIHdlSourceFileList* const group = build.GetSourceFileGroup(language);
        visit(group);
        for (IHdlSourceFile* source : *group)
            if (TIHdlSourceFileList* const list = source->GetDependencyList()) visit(list);
    }
}

}  // namespace

TBuildSource FindListed(THdlBuildFile& build, const ISFileName* file) {
    for (const THdlLanguage language : build.GetSourceFileLanguages())
        if (IHdlSourceFile* source = build.GetSourceFileGroup(language)->GetSourceFile(file))
            return {language, source};
    return {LANGUAGE_NONE, nullptr};
}

IHdlSourceFile* AddSource(THdlBuildFile& build, const ISFileName* file, THdlLanguage language) {
    IHdlSourceFile* const source = build.CreateOrGetSourceFile(file->Canonical(false));
    if (!build.GetSourceFileGroup(language)->AddSourceFile(source, false)) return nullptr;
    CompileLanguage(build, language);
    return source;
}

void CompileLanguage(THdlBuildFile& build, THdlLanguage language) {
    struct TFlag {
        THdlLanguage Language;
        void (TProjectSimGeneralConfig::*Set)(bool on);
    };
    // The groups of all other languages are always kept.
    static constexpr TFlag kFlags[] = {
        {LANGUAGE_VERILOG, &TProjectSimGeneralConfig::SetCompileVerilogFiles},
        {LANGUAGE_VHDL, &TProjectSimGeneralConfig::SetCompileVHDLFiles},
        {LANGUAGE_TESTBUILDER, &TProjectSimGeneralConfig::SetCompileCppFiles},
    };
    TProjectSimGeneralConfig* general = build.GetGeneralConfiguration();
    if (general ? general->GetCompileLanguageFiles(language) : build.GetTopLanguage() == language)
        return;
    if (!general) build.SetGeneralConfiguration(general = new TProjectSimGeneralConfig);
    for (const TFlag& flag : kFlags)
        if (flag.Language == language) (general->*flag.Set)(true);
}

std::vector<THdlLanguage> ListUnsavedGroups(const THdlBuildFile& build) {
    const TProjectSimGeneralConfig* const general = build.GetGeneralConfiguration();
    std::vector<THdlLanguage> languages;
    for (const THdlLanguage language : build.GetSourceFileLanguages()) {
        const TIHdlSourceFileList& group = *build.GetSourceFileGroup(language);
        const bool isCompiled = general && general->GetCompileLanguageFiles(language);
        if (language != build.GetTopLanguage() && !isCompiled && group.begin() != group.end())
            languages.push_back(language);
    }
    return languages;
}

void SetDependencies(IHdlSourceFile& source, const TSources& dependencies) {
    source.FlushDependencies();
    for (IHdlSourceFile* dependency : dependencies) source.AddDependency(dependency);
}

void SetDependencies(THdlBuildFile& build, IHdlSourceFile& source,
                     const std::vector<const ISFileName*>& files) {
    TSources dependencies;
    for (const ISFileName* file : files)
        dependencies.push_back(build.CreateOrGetSourceFile(file->Canonical(false)));
    SetDependencies(source, dependencies);
}

void MoveSources(THdlBuildFile& build, THdlLanguage language, const TSources& sources,
                 TGroupPlace place, const IHdlSourceFile* other) {
    TIHdlSourceFileList* const group = build.GetSourceFileGroup(language);
    const std::unordered_set<const IHdlSourceFile*> moved(sources.begin(), sources.end());
    TSources order;
    const auto put = [&](bool isHere) {
        if (isHere) order.insert(order.end(), sources.begin(), sources.end());
    };
    put(place == PLACE_FIRST);
    for (IHdlSourceFile* source : *group) {
        put(place == PLACE_BEFORE && source == other);
        if (!moved.contains(source)) order.push_back(source);
        put(place == PLACE_BEHIND && source == other);
    }
    put(place == PLACE_LAST);
    Fill(group, order);
}

void RemoveSources(THdlBuildFile& build, const TSources& sources) {
    const std::unordered_set<const IHdlSourceFile*> gone(sources.begin(), sources.end());
    const auto isGone = [&](const IHdlSourceFile* source) { return gone.contains(source); };
    VisitLists(build, [&](TIHdlSourceFileList* list) {
        if (std::none_of(list->begin(), list->end(), isGone)) return;
        TSources kept(list->begin(), list->end());
        std::erase_if(kept, isGone);
        Fill(list, kept);
    });
}

void RenameSource(THdlBuildFile& build, IHdlSourceFile& source, const ISFileName* file) {
    IHdlSourceFile* const renamed = build.CreateOrGetSourceFile(file->Canonical(false));
    renamed->SetLibraryFlag(source.IsLibrary());
    renamed->SetPrecompiledLibraryGroupName(source.GetPrecompiledLibraryGroupName());
    if (const TIHdlSourceFileList* list = source.GetDependencyList())
        SetDependencies(*renamed, TSources(list->begin(), list->end()));
    VisitLists(build, [&](TIHdlSourceFileList* list) {
        if (std::find(list->begin(), list->end(), &source) == list->end()) return;
        TSources order(list->begin(), list->end());
        std::replace(order.begin(), order.end(), &source, renamed);
        Fill(list, order);
    });
}
