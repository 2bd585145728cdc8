#include "cli/buildloader.h"
#include "cli/commands.h"
#include "cli/dependencycycles.h"
#include "cli/jsonoutput.h"
#include "cli/repeatedsources.h"
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

std::string CycleText(const TDependencyCycle& cycle, const TToolArguments& arguments) {
    std::string text;
    for (const IHdlSourceFile* file : cycle.Shortest)
        text += PathText(file->GetFileName(), arguments) + " -> ";
    return text + PathText(cycle.Shortest.front()->GetFileName(), arguments);
}

void PrintFindings(const TFindings& findings, const TToolArguments& arguments,
                   const TToolStreams& streams) {
    std::ostream& out = streams.Out;
    if (!findings.Document.HasBuild)
        out << "no HdlBuildFile element: the document describes no build\n";
    if (findings.ReadResult != 0)
        out << "read result " << findings.ReadResult << ": "
            << THdlBuildFile::GetErrorString(findings.ReadResult) << "\n";
    for (const TListedSource& source : findings.Missing)
        out << "missing file: " << PathText(source.File->GetFileName(), arguments) << " ("
            << GetStringFromHdlLanguage(source.Group) << ")\n";
    for (const TDependencyCycle& cycle : findings.Cycles) {
        out << "dependency cycle of " << cycle.Files.size()
            << (cycle.Files.size() == 1 ? " file: " : " files: ") << CycleText(cycle, arguments)
            << "\n";
        for (const IHdlSourceFile* file : cycle.Files)
            out << "  " << PathText(file->GetFileName(), arguments) << "\n";
    }
    for (const TRepeatedSource& source : findings.Document.Repeated)
        out << "named " << source.Places.size()
            << " times: " << PathText(source.Places.front().Path.c_str(), arguments) << " ("
            << DescribePlaces(source, arguments) << ")\n";
    if (findings.IsClean()) out << arguments.Build << ": no problems\n";
}

void PrintFindingsAsJson(const TFindings& findings, const TToolArguments& arguments,
                         const TToolStreams& streams) {
    const auto paths = [&](const std::vector<const IHdlSourceFile*>& files) {
        TJson list = TJson::array();
        for (const IHdlSourceFile* file : files)
            list.push_back(PathText(file->GetFileName(), arguments));
        return list;
    };
    TJson result = MakeResult("hdlbuild-check", arguments);
    result["clean"] = findings.IsClean();
    result["hasBuild"] = findings.Document.HasBuild;
    result["readResult"] = {{"number", static_cast<int>(findings.ReadResult)},
                            {"text", THdlBuildFile::GetErrorString(findings.ReadResult)}};
    TJson& missing = result["missingFiles"] = TJson::array();
    for (const TListedSource& source : findings.Missing)
        missing.push_back({{"language", GetStringFromHdlLanguage(source.Group)},
                           {"path", PathText(source.File->GetFileName(), arguments)}});
    TJson& cycles = result["cycles"] = TJson::array();
    for (const TDependencyCycle& cycle : findings.Cycles)
        cycles.push_back({{"files", paths(cycle.Files)}, {"shortest", paths(cycle.Shortest)}});
    TJson& repeated = result["repeatedSources"] = TJson::array();
    for (const TRepeatedSource& source : findings.Document.Repeated) {
        TJson places = TJson::array();
        for (const TSourcePlace& place : source.Places)
            places.push_back(
                {{"language", place.Language}, {"path", PathText(place.Path.c_str(), arguments)}});
        repeated.push_back(places);
    }
    PrintJson(result, streams);
}

}  // namespace

int RunCheck(const TToolArguments& arguments, const TToolStreams& streams) {
    THdlBuildFile build;
    const int status = LoadBuild(arguments, streams, &build);
    if (status == kExitFile) return status;
    const TFindings findings = CheckBuild(build);
    if (arguments.Json)
        PrintFindingsAsJson(findings, arguments, streams);
    else
        PrintFindings(findings, arguments, streams);
    return findings.IsClean() ? kExitDone : kExitProblems;
}
