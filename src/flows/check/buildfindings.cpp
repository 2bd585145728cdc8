#include "flows/check/buildfindings.h"
#include "buildfile/hdlbuildfile.h"
#include "flows/check/scandiagnostics.h"
#include "flows/dependencycycles.h"
#include "flows/knownnames.h"
#include "flows/listedsources.h"
#include "flows/scannedtops.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <set>

namespace {

std::string PathOf(const IHdlSourceFile* file, const TCheckedBuild& checked) {
    return PathText(file->GetFileName(), checked.Paths);
}

bool LacksBuild(const TCheckedBuild& checked) {
    return !checked.Build.HasBuildElement();
}

TDiagnostic DiagnoseNoBuild(const TCheckedBuild&) {
    return {DIAGNOSTIC_NO_BUILD, {}};
}

TJson HasBuildAsJson(const TCheckedBuild& checked) {
    return checked.Build.HasBuildElement();
}

bool HasReadFault(const TCheckedBuild& checked) {
    return checked.Build.GetReadResult() != 0;
}

TDiagnostic DiagnoseReadResult(const TCheckedBuild& checked) {
    const THdlBuildFileReadResults result = checked.Build.GetReadResult();
    TDiagnostic diagnostic{DIAGNOSTIC_READ_RESULT,
                           {std::to_string(result), THdlBuildFile::GetErrorString(result)}};
    if (result != READ_PROJECT_SETTINGS_FAILED) return diagnostic;
    for (const TDiagnostic& word : checked.Document.Words)
        if (word.Code == DIAGNOSTIC_SETTINGS_WITHOUT_LANGUAGE ||
            word.Code == DIAGNOSTIC_UNREADABLE_LIST)
            diagnostic.Place = std::min(diagnostic.Place, word.Place);
    return diagnostic;
}

TJson ReadResultAsJson(const TCheckedBuild& checked) {
    const THdlBuildFileReadResults result = checked.Build.GetReadResult();
    return {{"number", static_cast<int>(result)}, {"text", THdlBuildFile::GetErrorString(result)}};
}

std::vector<TListedSource> FindMissing(const TCheckedBuild& checked) {
    return ListMissingSources(checked.Build);
}

TDiagnostic DiagnoseMissing(const TListedSource& source, const TCheckedBuild& checked) {
    return {DIAGNOSTIC_MISSING_FILE,
            {PathOf(source.File, checked), GetStringFromHdlLanguage(source.Group)},
            {},
            checked.Document.FindPlace(source.File->GetFileName())};
}

TJson MissingAsJson(const TListedSource& source, const TCheckedBuild& checked) {
    return {{"language", GetStringFromHdlLanguage(source.Group)},
            {"path", PathOf(source.File, checked)}};
}

std::vector<TDependencyCycle> FindCycles(const TCheckedBuild& checked) {
    std::vector<const IHdlSourceFile*> files;
    for (const TListedSource& source : ListSources(checked.Build)) files.push_back(source.File);
    return FindDependencyCycles(files);
}

TDiagnostic DiagnoseCycle(const TDependencyCycle& cycle, const TCheckedBuild& checked) {
    const std::size_t count = cycle.Files.size();
    std::string path;
    for (const IHdlSourceFile* file : cycle.Shortest) path += PathOf(file, checked) + " -> ";
    TDiagnostic diagnostic{DIAGNOSTIC_CYCLE,
                           {std::to_string(count) + (count == 1 ? " file" : " files"),
                            path + PathOf(cycle.Shortest.front(), checked)}};
    for (const IHdlSourceFile* file : cycle.Files)
        diagnostic.Details.push_back(PathOf(file, checked));
    diagnostic.Place = checked.Document.FindPlace(cycle.Shortest.front()->GetFileName());
    return diagnostic;
}

TJson CycleAsJson(const TDependencyCycle& cycle, const TCheckedBuild& checked) {
    const auto paths = [&checked](const std::vector<const IHdlSourceFile*>& files) {
        TJson list = TJson::Array();
        for (const IHdlSourceFile* file : files) list.Add(PathOf(file, checked));
        return list;
    };
    return {{"files", paths(cycle.Files)}, {"shortest", paths(cycle.Shortest)}};
}

std::vector<TRepeatedSource> FindRepeated(const TCheckedBuild& checked) {
    return checked.Document.Repeated;
}

std::string LibraryOf(const TSourceMention& place, const TCheckedBuild& checked) {
    return place.Library.empty() ? GetDestinationLibraryName(checked.Build) : place.Library;
}

/// How many libraries are meant, whatever their letter case.
std::size_t CountLibraries(const TRepeatedSource& source, const TCheckedBuild& checked) {
    std::set<std::string> libraries;
    for (const TSourceMention& place : source.Places) {
        TMyString library = LibraryOf(place, checked);
        library.toLower();
        libraries.insert(library.Str());
    }
    return libraries.size();
}

// Names the groups, the libraries if they differ, and the spellings that differ from the first.
TDiagnostic DiagnoseRepeated(const TRepeatedSource& source, const TCheckedBuild& checked) {
    const std::string& path = source.Places.front().Path;
    const std::size_t libraries = CountLibraries(source, checked);
    std::vector<std::string> places;
    for (const TSourceMention& place : source.Places) {
        std::string& text = places.emplace_back(place.Language);
        if (libraries > 1) text += " in " + LibraryOf(place, checked);
        if (place.Path != path) text += " as " + PathText(place.Path.c_str(), checked.Paths);
    }
    return {libraries > 1 ? DIAGNOSTIC_SOURCE_IN_LIBRARIES : DIAGNOSTIC_REPEATED_SOURCE,
            {std::to_string(libraries > 1 ? libraries : places.size()),
             PathText(path.c_str(), checked.Paths), JoinNames(places)},
            {},
            source.Places[1].Place};
}

TJson RepeatedAsJson(const TRepeatedSource& source, const TCheckedBuild& checked) {
    TJson places = TJson::Array();
    for (const TSourceMention& place : source.Places)
        places.Add({{"language", place.Language},
                    {"library", LibraryOf(place, checked)},
                    {"path", PathText(place.Path.c_str(), checked.Paths)}});
    return places;
}

std::vector<TSpelledSource> FindSpelled(const TCheckedBuild& checked) {
    return checked.Document.Spelled;
}

TDiagnostic DiagnoseSpelled(const TSpelledSource& source, const TCheckedBuild& checked) {
    std::vector<std::string> texts;
    for (const TSpelling& spelling : source.Spellings) {
        std::string& text = texts.emplace_back(PathText(spelling.Path.c_str(), checked.Paths));
        if (!spelling.Dependent.empty())
            text += " as a dependency of " + PathText(spelling.Dependent.c_str(), checked.Paths);
    }
    return {DIAGNOSTIC_SPELLINGS,
            {std::to_string(texts.size()), JoinNames(texts)},
            {},
            source.Spellings[1].Place};
}

TJson SpelledAsJson(const TSpelledSource& source, const TCheckedBuild& checked) {
    TJson spellings = TJson::Array();
    for (const auto& [path, dependent, place] : source.Spellings) {
        const bool isListed = dependent.empty();
        spellings.Add({{"path", PathText(path.c_str(), checked.Paths)},
                       {"dependencyOf",
                        isListed ? TJson() : TJson(PathText(dependent.c_str(), checked.Paths))}});
    }
    return spellings;
}

// A document that is no build has other words.
std::vector<TDiagnostic> FindWords(const TCheckedBuild& checked) {
    return LacksBuild(checked) ? std::vector<TDiagnostic>() : checked.Document.Words;
}

std::vector<TDiagnostic> FindFolders(const TCheckedBuild& checked) {
    std::vector<TDiagnostic> folders;
    for (const TFolderAsSource& folder : checked.Document.Folders)
        folders.push_back(
            {DIAGNOSTIC_FOLDER, {PathText(folder.Path.c_str(), checked.Paths)}, {}, folder.Place});
    return folders;
}

std::vector<TDiagnostic> FindUnlisted(const TCheckedBuild& checked) {
    std::vector<TDiagnostic> dependencies;
    for (const TUnlistedDependency& dependency : checked.Document.Unlisted)
        dependencies.push_back(
            {dependency.Exists ? DIAGNOSTIC_UNLISTED_DEPENDENCY : DIAGNOSTIC_MISSING_DEPENDENCY,
             {PathText(dependency.Path.c_str(), checked.Paths),
              PathText(dependency.Dependent.c_str(), checked.Paths)},
             {},
             dependency.Place});
    return dependencies;
}

std::vector<TDiagnostic> FindScanned(const TCheckedBuild& checked) {
    return checked.Scan ? DiagnoseScan(*checked.Scan) : std::vector<TDiagnostic>();
}

std::vector<TDiagnostic> FindUnheldTops(const TCheckedBuild& checked) {
    std::vector<TDiagnostic> unheld;
    if (!checked.Scan) return unheld;
    std::vector<TTopMention> tops = checked.Document.Tops;
    for (TTopMention& top : tops)
        if (top.Library.empty()) top.Library = GetDestinationLibraryName(checked.Build);
    for (const TTopMention& top : ListUnheldTops(checked.Scan->Scan, checked.LinkOptions, tops))
        unheld.push_back(
            {DIAGNOSTIC_UNHELD_TOP, {top.Library + "." + top.Entity, top.Library}, {}, top.Place});
    return unheld;
}

const std::vector<TFindingKind<TCheckedBuild>>& FindingKinds() {
    static const std::vector<TFindingKind<TCheckedBuild>> kinds = {
        FaultKind("hasBuild", LacksBuild, DiagnoseNoBuild, HasBuildAsJson),
        FaultKind("readResult", HasReadFault, DiagnoseReadResult, ReadResultAsJson),
        FindingKind("missingFiles", FindMissing, DiagnoseMissing, MissingAsJson),
        FindingKind("cycles", FindCycles, DiagnoseCycle, CycleAsJson),
        FindingKind("repeatedSources", FindRepeated, DiagnoseRepeated, RepeatedAsJson),
        FindingKind("spellings", FindSpelled, DiagnoseSpelled, SpelledAsJson),
        DiagnosticKind(FindFolders),
        DiagnosticKind(FindUnlisted),
        DiagnosticKind(FindWords),
        DiagnosticKind(FindUnheldTops),
        DiagnosticKind(FindScanned),
    };
    return kinds;
}

}  // namespace

TFindings FindAll(const TCheckedBuild& checked) {
    return FindAll(FindingKinds(), checked);
}
