#include "buildfile/hdlbuildfile.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/languagenames.h"
#include "cli/frame/scanfindings.h"
#include "cli/questions/commands.h"
#include "cli/questions/namedtops.h"
#include "flows/listedsources.h"
#include "flows/toptexts.h"
#include "projectfiles/ihdlsourcefile.h"
#include <algorithm>

namespace {

/// A run of the command.
class TNeededRun {
public:
    TNeededRun(const TQuestionArguments& arguments, THdlLanguage language,
               const TToolStreams& streams)
        : Arguments(arguments), Language(language), Streams(streams) {}

    int Run();

private:
    int Answer(int status);
    bool AddTops(TNeededFiles* files);
    std::vector<std::string> TopsOfBuild() const;
    void WarnOfUnscanned(const std::vector<std::uint32_t>& rest) const;
    void PrintAsJson(const std::vector<std::uint32_t>& needed,
                     const std::vector<std::uint32_t>& rest);
    void Print(const std::vector<std::uint32_t>& files) const;
    std::string LibraryOf(std::uint32_t file) const {
        return LibraryOfSource(*Needs->GetFiles()[file], Build);
    }
    std::string PathOf(std::uint32_t file) const {
        return PathText(Needs->GetFiles()[file]->GetFileName(), Arguments.Paths);
    }

    const TQuestionArguments& Arguments;
    const THdlLanguage Language;
    const TToolStreams& Streams;
    THdlBuildFile Build;
    std::optional<TBuildNeeds> Needs;
    std::optional<TBuildScan> Scan;
    std::vector<std::string> Tops;
    std::vector<std::string> TopNames;  // in full
};

int TNeededRun::Run() {
    int status = LoadBuild(Arguments.Build, Streams, &Build);
    if (status == kExitFile) return status;
    ReportReadResult(Build, Streams);
    Tops = Arguments.Tops.empty() ? TopsOfBuild() : Arguments.Tops;
    Scan.emplace(Build, TLinkOptions{{}, true});
    Needs.emplace(Build);
    Needs->Add(*Scan);
    status = std::max(status, ReportUnread({*Scan, Arguments.Paths}, Streams));
    return Answer(status);
}

std::vector<std::string> TNeededRun::TopsOfBuild() const {
    std::vector<std::string> tops;
    for (const TBuildTop& top : ListTops(Build)) tops.push_back(TextOf(top));
    return tops;
}

bool TNeededRun::AddTops(TNeededFiles* files) {
    const TToldScan told{*Scan, Arguments.Paths};
    if (Tops.empty()) {
        ReportError(Streams, "the build records no top-level components: give one with --top");
        return false;
    }
    for (const std::string& top : Tops) {
        const auto found =
            FindTop(top, Language, *files, told, GetDestinationLibraryName(Build), Streams);
        if (!found) return false;
        files->Add(*found);
        TopNames.push_back(told.NameOf(found->Unit) +
                           (found->Architecture.empty() ? "" : "(" + found->Architecture + ")"));
    }
    return true;
}

int TNeededRun::Answer(int status) {
    TNeededFiles files(*Scan, *Needs);
    if (!AddTops(&files)) return kExitUsage;
    bool isCyclic = false;
    const std::vector<std::uint32_t> needed = files.ListInOrder(&isCyclic);
    std::vector<std::uint32_t> rest;
    for (std::uint32_t file = 0; file < Needs->GetFiles().size(); ++file)
        if (!files.IsNeeded(file) && Needs->GetGroup(file) != LANGUAGE_NONE) rest.push_back(file);
    if (Arguments.Json)
        PrintAsJson(needed, rest);
    else
        Print(Arguments.Rest ? rest : needed);
    WarnOfUnscanned(rest);
    if (!isCyclic) return status;
    ReportWarning(Streams, "the needs have a cycle: no order of the files is a compile order");
    return kExitProblems;
}

// Nobody knows whether they are needed.
void TNeededRun::WarnOfUnscanned(const std::vector<std::uint32_t>& rest) const {
    const auto count = std::count_if(rest.begin(), rest.end(), [this](std::uint32_t file) {
        return !CanScanLanguage(Needs->GetGroup(file));
    });
    if (count > 0)
        ReportWarning(Streams, "sources in languages that are not scanned count as not needed: " +
                                   std::to_string(count));
}

void TNeededRun::Print(const std::vector<std::uint32_t>& files) const {
    for (const std::uint32_t file : files)
        if (Arguments.Tsv)
            PrintFields(Streams.Out, {LibraryOf(file), PathOf(file)});
        else
            PrintLine(Streams.Out, PathOf(file));
}

void TNeededRun::PrintAsJson(const std::vector<std::uint32_t>& needed,
                             const std::vector<std::uint32_t>& rest) {
    const auto filesOf = [this](const std::vector<std::uint32_t>& files) {
        TJson list = TJson::Array();
        for (const std::uint32_t file : files) {
            const THdlLanguage group = Needs->GetGroup(file);
            list.Add({{"path", PathOf(file)},
                      {"library", LibraryOf(file)},
                      {"language",
                       group == LANGUAGE_NONE ? TJson() : TJson(GetStringFromHdlLanguage(group))}});
        }
        return list;
    };
    TJson result = MakeResult("hdlbuild-needed", "build", Arguments.Build);
    result["tops"] = TopNames;
    result["needed"] = filesOf(needed);
    result["rest"] = filesOf(rest);
    PrintJson(result, Streams);
}

}  // namespace

int RunNeeded(const TQuestionArguments& arguments, const TToolStreams& streams) {
    if (arguments.Json && arguments.Tsv) {
        ReportError(streams, "--json excludes --tsv");
        return kExitUsage;
    }
    THdlLanguage language = LANGUAGE_NONE;
    if (!arguments.Language.empty()) {
        language = FindLanguage(arguments.Language, streams);
        if (language == LANGUAGE_NONE) return kExitUsage;
    }
    return TNeededRun(arguments, language, streams).Run();
}
