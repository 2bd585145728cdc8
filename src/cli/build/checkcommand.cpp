#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/findings.h"
#include "flows/dependencycycles.h"
#include "flows/documentfindings.h"
#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"

namespace {

/// A build that has been read, with what its document shows beyond it.
struct TCheckedBuild {
    const THdlBuildFile& Build;
    TPathForm Paths;
    TDocumentFindings Document;
};

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
    return {DIAGNOSTIC_READ_RESULT,
            {std::to_string(result), THdlBuildFile::GetErrorString(result)}};
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
            {PathOf(source.File, checked), GetStringFromHdlLanguage(source.Group)}};
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

// Names the groups, and the spellings that differ from the first.
TDiagnostic DiagnoseRepeated(const TRepeatedSource& source, const TCheckedBuild& checked) {
    const std::string& path = source.Places.front().Path;
    std::vector<std::string> places;
    for (const TSourceMention& place : source.Places) {
        std::string& text = places.emplace_back(place.Language);
        if (place.Path != path) text += " as " + PathText(place.Path.c_str(), checked.Paths);
    }
    return {
        DIAGNOSTIC_REPEATED_SOURCE,
        {std::to_string(places.size()), PathText(path.c_str(), checked.Paths), JoinNames(places)}};
}

TJson RepeatedAsJson(const TRepeatedSource& source, const TCheckedBuild& checked) {
    TJson places = TJson::Array();
    for (const TSourceMention& place : source.Places)
        places.Add(
            {{"language", place.Language}, {"path", PathText(place.Path.c_str(), checked.Paths)}});
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
    return {DIAGNOSTIC_SPELLINGS, {std::to_string(texts.size()), JoinNames(texts)}};
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

/// Everything that may be wrong with a build, in the order of both outputs.
const std::vector<TFindingKind<TCheckedBuild>>& FindingKinds() {
    static const std::vector<TFindingKind<TCheckedBuild>> kinds = {
        FaultKind("hasBuild", LacksBuild, DiagnoseNoBuild, HasBuildAsJson),
        FaultKind("readResult", HasReadFault, DiagnoseReadResult, ReadResultAsJson),
        FindingKind("missingFiles", FindMissing, DiagnoseMissing, MissingAsJson),
        FindingKind("cycles", FindCycles, DiagnoseCycle, CycleAsJson),
        FindingKind("repeatedSources", FindRepeated, DiagnoseRepeated, RepeatedAsJson),
        FindingKind("spellings", FindSpelled, DiagnoseSpelled, SpelledAsJson),
    };
    return kinds;
}

}  // namespace

int RunCheck(const TBuildArguments& arguments, const TToolStreams& streams) {
    THdlBuildFile build;
    const int status = LoadBuild(arguments.Build, streams, &build);
    if (status == kExitFile) return status;
    const TCheckedBuild checked{build, arguments.Paths, CheckDocument(build.GetFileName())};
    return ReportFindings(FindAll(FindingKinds(), checked), arguments.Build,
                          MakeResult("hdlbuild-check", "build", arguments.Build), arguments,
                          streams);
}
