#include "cli/frame/changereport.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/progressline.h"
#include "cli/frame/scanfindings.h"
#include "cli/frame/texts.h"
#include "cli/scan/commands.h"
#include "flows/buildchanges.h"
#include "flows/buildedit.h"
#include "flows/filepatterns.h"
#include "flows/includedsources.h"
#include "flows/scanedit.h"
#include "flows/sourcesearch.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include "services/names/utilfilename.h"
#include "settings/projectsimlanguageconfig.h"
#include <algorithm>

namespace {

/// Which library the sources of some paths are in.
struct TLibraryRule {
    std::string Library;
    std::string Pattern;
    bool IsMet = false;

    bool Matches(const std::string& path) const {
        return MatchesFilePattern(Pattern, path) || MatchesFilePattern(Pattern + "/**", path);
    }
};

/// A run of the command that makes a build.
class TScanNewRun {
public:
    TScanNewRun(const TScanArguments& arguments, const TToolStreams& streams)
        : Arguments(arguments),
          Streams(streams),
          Edit(ISFileName::NewISFileName(arguments.Output.c_str())) {}

    int Run();

private:
    int Refuse(const std::string& reason, int status = kExitUsage) const {
        ReportError(Streams, reason);
        return status;
    }
    int ReadRules();
    int FindAll();
    int Make();
    void SetIncludeDirectories();
    int Save(const TBuildScan& scan);
    TState GetMadeState();
    std::string TextOfFolder(const std::string& folder) const {
        return PathText(TUtilFileName(folder.c_str()).CanonicalWithoutFinalSlash(), Form);
    }

    const TScanArguments& Arguments;
    const TToolStreams& Streams;
    TBuildEdit Edit;
    TPathForm Form;
    std::vector<TLibraryRule> Rules;
    TSortedSources Sorted;
};

int TScanNewRun::Run() {
    if (Arguments.Check || Arguments.Exact)
        return Refuse("--check and --exact need a build that is there: --output makes one");
    for (const auto step : {&TScanNewRun::ReadRules, &TScanNewRun::FindAll, &TScanNewRun::Make})
        if (const int status = (this->*step)(); status != kExitDone) return status;
    const TBuildScan scan(*Edit.GetBuild(), {Arguments.ExternalLibraries});
    return StatusOfScan(Save(scan), scan, Streams);
}

int TScanNewRun::ReadRules() {
    for (const std::string& rule : Arguments.Libraries) {
        const std::size_t sign = rule.find('=');
        if (sign == 0 || sign >= rule.size() - 1)
            return Refuse("--library '" + rule + "': write it as NAME=PATTERN");
        const std::string pattern = rule.substr(sign + 1);
        Rules.push_back(
            {rule.substr(0, sign), TUtilFileName(pattern.c_str()).CanonicalWithoutFinalSlash()});
    }
    return kExitDone;
}

int TScanNewRun::FindAll() {
    const TFoundSources found =
        FindSources(Arguments.Paths, {true, LANGUAGE_NONE, Arguments.Excluded, true});
    if (!found.Complaint.empty())
        return Refuse(found.Complaint, found.IsFileFault ? kExitFile : kExitUsage);
    Sorted = SortOutIncluded(found);
    if (Sorted.Sources.empty()) return Refuse("there are no sources in the folders");
    return kExitDone;
}

int TScanNewRun::Make() {
    const TQuietMessageBox quiet;
    if (Streams.Progress) Streams.Progress->SetFile(Arguments.Output);
    const std::vector<TFoundSource>& sources = Sorted.Sources;
    const bool hasVhdl =
        std::any_of(sources.begin(), sources.end(),
                    [](const TFoundSource& source) { return source.Language == LANGUAGE_VHDL; });
    const std::string reason =
        Edit.Make(hasVhdl ? LANGUAGE_VHDL : sources.front().Language, !Arguments.DryRun);
    if (!reason.empty()) return Refuse(Arguments.Output + ": " + reason, kExitFile);
    SetIncludeDirectories();
    for (const TFoundSource& found : sources) {
        const ISFileName* const file = ISFileName::NewISFileName(found.Path.c_str());
        IHdlSourceFile* const source = AddSource(*Edit.GetBuild(), file, found.Language);
        const auto rule = std::find_if(Rules.begin(), Rules.end(), [&](const TLibraryRule& each) {
            return each.Matches(found.Path);
        });
        if (!source || rule == Rules.end()) continue;
        rule->IsMet = true;
        source->SetPrecompiledLibraryGroupName(rule->Library.c_str());
    }
    for (const TLibraryRule& rule : Rules)
        if (!rule.IsMet)
            return Refuse("--library " + rule.Library +
                          ": no source that is left matches its pattern");
    return kExitDone;
}

void TScanNewRun::SetIncludeDirectories() {
    if (Sorted.IncludeFolders.empty()) return;
    TProjectSimLanguageConfig verilog;
    for (const std::string& folder : Sorted.IncludeFolders)
        verilog.AddIncludeDirectory(folder.c_str(), false);
    Edit.GetBuild()->AddLanguageConfig(LANGUAGE_VERILOG, &verilog);
}

int TScanNewRun::Save(const TBuildScan& scan) {
    const TQuietMessageBox quiet;
    const TToldScan told{scan, Form};
    TScanChanges changes{scan.GetDifferences(), {}};
    if (Arguments.SetTops) changes.Tops = ListUnrecordedTops(scan, *Edit.GetBuild());
    ApplyScan(scan, changes, Edit.GetBuild());
    // Nobody has chosen an order that would have to stay.
    ApplySort(SortVerilog(*Edit.GetBuild()), Edit.GetBuild());
    TJson result = MakeResult("hdlbuild-scan", "build", Arguments.Output);
    if (Arguments.Json) {
        TJson& included = result["included"] = TJson::Array();
        for (const std::string& path : Sorted.Included) included.Add(PathText(path.c_str(), Form));
        AddFindings(told, &result);
    } else {
        for (const std::string& path : Sorted.Included)
            PrintLine(Streams.Out, PathText(path.c_str(), Form) + ": included, not listed");
        PrintFindings(told, {true, Arguments.Exact, Arguments.Sort}, Streams);
    }
    TState after = GetMadeState();
    for (const TBuildTop& top : changes.Tops) after.emplace_back(NameOfTop(top), true);
    TState before;
    for (const auto& [name, value] : after) before.emplace_back(name, TJson());
    return SaveEditedFile({std::move(result), Arguments.Output, before, after}, Edit.FindEdits(),
                          Edit.GetFile(), Arguments, Streams);
}

TState TScanNewRun::GetMadeState() {
    TState state;
    for (const std::string& folder : Sorted.IncludeFolders)
        state.emplace_back("Verilog include directory " + TextOfFolder(folder), true);
    THdlBuildFile& build = *Edit.GetBuild();
    for (const THdlLanguage language : build.GetSourceFileLanguages()) {
        for (const IHdlSourceFile* const source : *build.GetSourceFileGroup(language)) {
            TJson dependencies = TJson::Array();
            for (const IHdlSourceFile* const dependency : *source->GetDependencyList())
                dependencies.Add(PathText(dependency->GetFileName(), Form));
            TJson json = {{"library", source->GetPrecompiledLibraryGroupName()}};
            if (!dependencies.GetEntries().empty()) json["dependencies"] = std::move(dependencies);
            state.emplace_back(std::string(GetStringFromHdlLanguage(language)) + " source " +
                                   PathText(source->GetFileName(), Form),
                               std::move(json));
        }
    }
    return state;
}

}  // namespace

int RunScanNew(const TScanArguments& arguments, const TToolStreams& streams) {
    return TScanNewRun(arguments, streams).Run();
}
