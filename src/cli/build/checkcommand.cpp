#include "cli/build/commands.h"
#include "cli/frame/filereports.h"
#include "cli/frame/json.h"
#include "cli/frame/texts.h"
#include "flows/dependencycycles.h"
#include "flows/listedsources.h"
#include "flows/repeatedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"

namespace {

/// Everything that is wrong with a build.
struct TFindings {
    THdlBuildFileReadResults ReadResult = {};
    std::vector<TListedSource> Missing;
    std::vector<TDependencyCycle> Cycles;
    TDocumentFindings Document;

    bool IsClean() const {
        return ReadResult == 0 && Missing.empty() && Cycles.empty() && Document.HasBuild &&
               Document.Repeated.empty();
    }
};

TFindings CheckBuild(const THdlBuildFile& build) {
    TFindings findings;
    findings.ReadResult = build.GetReadResult();
    findings.Missing = ListMissingSources(build);
    std::vector<const IHdlSourceFile*> files;
    for (const TListedSource& source : ListSources(build)) files.push_back(source.File);
    findings.Cycles = FindDependencyCycles(files);
    findings.Document = CheckDocument(build.GetFileName());
    return findings;
}

std::string CycleText(const TDependencyCycle& cycle, const TBuildArguments& arguments) {
    std::string text;
    for (const IHdlSourceFile* file : cycle.Shortest)
        text += PathText(file->GetFileName(), arguments.Paths) + " -> ";
    return text + PathText(cycle.Shortest.front()->GetFileName(), arguments.Paths);
}

/// The groups, and the other spellings, of a repeated source.
std::string DescribePlaces(const TRepeatedSource& source, const TPathForm& paths) {
    std::vector<std::string> places;
    for (const TSourcePlace& place : source.Places) {
        std::string& text = places.emplace_back(place.Language);
        if (place.Path != source.Places.front().Path)
            text += " as " + PathText(place.Path.c_str(), paths);
    }
    return JoinNames(places);
}

void PrintFindings(const TFindings& findings, const TBuildArguments& arguments,
                   const TToolStreams& streams) {
    std::ostream& out = streams.Out;
    if (!findings.Document.HasBuild)
        out << "no HdlBuildFile element: the document describes no build\n";
    if (findings.ReadResult != 0)
        out << "read result " << findings.ReadResult << ": "
            << THdlBuildFile::GetErrorString(findings.ReadResult) << "\n";
    for (const TListedSource& source : findings.Missing)
        out << "missing file: " << PathText(source.File->GetFileName(), arguments.Paths) << " ("
            << GetStringFromHdlLanguage(source.Group) << ")\n";
    for (const TDependencyCycle& cycle : findings.Cycles) {
        out << "dependency cycle of " << cycle.Files.size()
            << (cycle.Files.size() == 1 ? " file: " : " files: ") << CycleText(cycle, arguments)
            << "\n";
        for (const IHdlSourceFile* file : cycle.Files)
            out << "  " << PathText(file->GetFileName(), arguments.Paths) << "\n";
    }
    for (const TRepeatedSource& source : findings.Document.Repeated)
        out << "named " << source.Places.size()
            << " times: " << PathText(source.Places.front().Path.c_str(), arguments.Paths) << " ("
            << DescribePlaces(source, arguments.Paths) << ")\n";
    if (findings.IsClean()) out << arguments.Build << ": no problems\n";
}

void PrintFindingsAsJson(const TFindings& findings, const TBuildArguments& arguments,
                         const TToolStreams& streams) {
    const auto paths = [&](const std::vector<const IHdlSourceFile*>& files) {
        TJson list = TJson::Array();
        for (const IHdlSourceFile* file : files)
            list.Add(PathText(file->GetFileName(), arguments.Paths));
        return list;
    };
    TJson result = MakeResult("hdlbuild-check", "build", arguments.Build);
    result["clean"] = findings.IsClean();
    result["hasBuild"] = findings.Document.HasBuild;
    result["readResult"] = {{"number", static_cast<int>(findings.ReadResult)},
                            {"text", THdlBuildFile::GetErrorString(findings.ReadResult)}};
    TJson& missing = result["missingFiles"] = TJson::Array();
    for (const TListedSource& source : findings.Missing)
        missing.Add({{"language", GetStringFromHdlLanguage(source.Group)},
                     {"path", PathText(source.File->GetFileName(), arguments.Paths)}});
    TJson& cycles = result["cycles"] = TJson::Array();
    for (const TDependencyCycle& cycle : findings.Cycles)
        cycles.Add({{"files", paths(cycle.Files)}, {"shortest", paths(cycle.Shortest)}});
    TJson& repeated = result["repeatedSources"] = TJson::Array();
    for (const TRepeatedSource& source : findings.Document.Repeated) {
        TJson places = TJson::Array();
        for (const TSourcePlace& place : source.Places)
            places.Add({{"language", place.Language},
                        {"path", PathText(place.Path.c_str(), arguments.Paths)}});
        repeated.Add(places);
    }
    PrintJson(result, streams);
}

}  // namespace

int RunCheck(const TBuildArguments& arguments, const TToolStreams& streams) {
    THdlBuildFile build;
    const int status = LoadBuild(arguments.Build, streams, &build);
    if (status == kExitFile) return status;
    const TFindings findings = CheckBuild(build);
    if (arguments.Json)
        PrintFindingsAsJson(findings, arguments, streams);
    else
        PrintFindings(findings, arguments, streams);
    return findings.IsClean() ? kExitDone : kExitProblems;
}
