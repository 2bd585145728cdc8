#include "buildfile/hdlbuildfile.h"
#include "cli/frame/filereports.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/scanfindings.h"
#include "cli/questions/commands.h"
#include "cli/questions/sourcenames.h"
#include "flows/buildneeds.h"
#include "flows/check/toldscan.h"
#include "projectfiles/ihdlsourcefile.h"
#include <algorithm>

namespace {

/// That a file needs another.
struct TUse {
    std::uint32_t User;
    const TFileNeed* Need;
};

/// A file of an answer.
struct TAnsweredFile {
    std::uint32_t File;
    std::vector<TUse> Uses;  ///< that lead to it; only with --units
};
using TAnswer = std::vector<TAnsweredFile>;

/// A run of the command.
class TDepsRun {
public:
    TDepsRun(const TQuestionArguments& arguments, const TToolStreams& streams)
        : Arguments(arguments), Streams(streams) {}

    int Run();

private:
    int CheckUsage() const;
    int Answer(THdlBuildFile& build, int status);
    int AnswerChain(std::uint32_t file, int status);
    TAnswer AnswerFor(std::uint32_t file) const;
    TAnswer DirectOnes(std::uint32_t file) const;
    TAnswer AllOnes(std::uint32_t file) const;
    std::vector<TUse> UsesInChain(std::uint32_t former, std::uint32_t file) const;

    void Print(const TAnswer& answer, const char* indent);
    void PrintUses(const TAnsweredFile& file, const std::string& indent);
    TJson AsJson(const TAnswer& answer);
    TJson UsesAsJson(const std::vector<TUse>& uses);
    const std::string& PathOf(std::uint32_t file);

    const TQuestionArguments& Arguments;
    const TToolStreams& Streams;
    std::optional<TBuildNeeds> Needs;
    std::optional<TBuildScan> Scan;         // with --units
    TFileGraph Graph;                       // in the direction that is asked for
    std::vector<std::vector<TUse>> UsesOf;  // of each file by others
    std::vector<std::string> Paths;         // of the files; empty: not asked for yet
};

int TDepsRun::Run() {
    if (const int status = CheckUsage()) return status;
    THdlBuildFile build;
    const int status = LoadBuild(Arguments.Build, Streams, &build);
    if (status == kExitFile) return status;
    Needs.emplace(build);
    return Answer(build, status);
}

int TDepsRun::CheckUsage() const {
    const bool isChain = !Arguments.PathTo.empty();
    std::string complaint;
    if (Arguments.All && isChain)
        complaint = "--all excludes --path-to";
    else if (Arguments.File.empty() && (Arguments.All || isChain))
        complaint = std::string(isChain ? "--path-to" : "--all") + " needs a FILE";
    if (complaint.empty()) return kExitDone;
    ReportError(Streams, complaint);
    return kExitUsage;
}

int TDepsRun::Answer(THdlBuildFile& build, int status) {
    std::optional<std::uint32_t> asked;
    if (!Arguments.File.empty()) {
        asked = FindNamedFile(Arguments.File, *Needs, Arguments.Paths, Streams);
        if (!asked) return kExitUsage;
    }
    ReportReadResult(build, Streams);
    if (Arguments.Units) {
        Scan.emplace(build, TLinkOptions{{}, true});
        Needs->Add(*Scan);
        status = std::max(status, ReportUnread({*Scan, Arguments.Paths}, Streams));
    }
    Graph = Needs->MakeGraph();
    UsesOf.resize(Graph.size());
    for (std::uint32_t user = 0; user < Graph.size(); ++user)
        for (const TFileNeed& need : Needs->GetNeeds(user))
            UsesOf[need.File].push_back({user, &need});
    if (Arguments.Reverse) Graph = ReverseGraph(Graph);
    if (!Arguments.PathTo.empty()) return AnswerChain(*asked, status);
    TJson result = MakeResult("hdlbuild-deps", "build", Arguments.Build);
    TJson& files = result["files"] = TJson::Array();
    const std::uint32_t first = asked.value_or(0);
    const std::size_t end = asked ? std::size_t{first} + 1 : Graph.size();
    for (std::uint32_t file = first; file < end; ++file) {
        const TAnswer answer = AnswerFor(file);
        if (Arguments.Json) {
            TJson told = {{"path", PathOf(file)}};
            told[Arguments.Reverse ? "dependents" : "dependencies"] = AsJson(answer);
            files.Add(std::move(told));
            continue;
        }
        if (!asked) PrintLine(Streams.Out, PathOf(file));
        Print(answer, asked ? "" : "  ");
    }
    if (Arguments.Json) PrintJson(result, Streams);
    return status;
}

int TDepsRun::AnswerChain(std::uint32_t file, int status) {
    const auto to = FindNamedFile(Arguments.PathTo, *Needs, Arguments.Paths, Streams);
    if (!to) return kExitUsage;
    TAnswer chain;
    for (const std::uint32_t one : FindShortestChain(Graph, file, *to)) {
        std::vector<TUse> uses;
        if (!chain.empty()) uses = UsesInChain(chain.back().File, one);
        chain.push_back({one, std::move(uses)});
    }
    if (Arguments.Json) {
        TJson result = MakeResult("hdlbuild-deps", "build", Arguments.Build);
        result["chain"] = AsJson(chain);
        PrintJson(result, Streams);
    } else {
        Print(chain, "");
    }
    if (!chain.empty()) return status;
    const std::uint32_t user = Arguments.Reverse ? *to : file;
    const std::uint32_t needed = Arguments.Reverse ? file : *to;
    ReportError(Streams, PathOf(user) + " does not need " + PathOf(needed) +
                             ", neither directly nor through others");
    return kExitProblems;
}

TAnswer TDepsRun::AnswerFor(std::uint32_t file) const {
    return Arguments.All ? AllOnes(file) : DirectOnes(file);
}

TAnswer TDepsRun::DirectOnes(std::uint32_t file) const {
    TAnswer answer;
    if (Arguments.Reverse)
        for (const TUse& use : UsesOf[file]) answer.push_back({use.User, {use}});
    else
        for (const TFileNeed& need : Needs->GetNeeds(file))
            answer.push_back({need.File, {{file, &need}}});
    return answer;
}

// In compile order, whatever the direction. The needs are those between the files of the answer.
TAnswer TDepsRun::AllOnes(std::uint32_t file) const {
    std::vector<std::uint32_t> reached = ListReached(Graph, {file});
    if (Arguments.Reverse) std::reverse(reached.begin(), reached.end());
    std::vector<bool> isReached(Graph.size());
    for (const std::uint32_t one : reached) isReached[one] = true;
    TAnswer answer;
    for (const std::uint32_t one : reached) {
        if (one == file) continue;
        TAnsweredFile& answered = answer.emplace_back(TAnsweredFile{one, {}});
        if (!Arguments.Units) continue;
        if (Arguments.Reverse) {
            for (const TFileNeed& need : Needs->GetNeeds(one))
                if (isReached[need.File]) answered.Uses.push_back({one, &need});
        } else {
            for (const TUse& use : UsesOf[one])
                if (isReached[use.User]) answered.Uses.push_back(use);
        }
    }
    return answer;
}

std::vector<TUse> TDepsRun::UsesInChain(std::uint32_t former, std::uint32_t file) const {
    const std::uint32_t user = Arguments.Reverse ? file : former;
    const std::uint32_t needed = Arguments.Reverse ? former : file;
    for (const TFileNeed& need : Needs->GetNeeds(user))
        if (need.File == needed) return {{user, &need}};
    return {};
}

void TDepsRun::Print(const TAnswer& answer, const char* indent) {
    for (const TAnsweredFile& file : answer) {
        PrintLine(Streams.Out, indent + PathOf(file.File));
        if (Scan) PrintUses(file, std::string(indent) + "  ");
    }
}

void TDepsRun::PrintUses(const TAnsweredFile& file, const std::string& indent) {
    const TToldScan told{*Scan, Arguments.Paths};
    for (const TUse& use : file.Uses) {
        for (const TNeedPlace& place : ListNeedsOf(*use.Need)) {
            const TNeedRule& rule = GetNeedRule(NeedAt(Scan->GetFiles(), place).Kind);
            PrintLine(Streams.Out, indent + told.PlaceOf(place) + ": " + rule.Name + " " +
                                       told.NameOf(place) +
                                       (rule.OrdersFiles ? "" : " (elaboration)"));
        }
        const std::string& user = PathOf(use.User);
        if (use.Need->Units.empty())
            PrintLine(Streams.Out, indent + user + ": recorded, not found in the sources");
        else if (use.Need->IsForCompile && !use.Need->IsRecorded)
            PrintLine(Streams.Out, indent + user + ": not recorded");
    }
}

TJson TDepsRun::AsJson(const TAnswer& answer) {
    TJson files = TJson::Array();
    for (const TAnsweredFile& file : answer) {
        TJson told = {{"path", PathOf(file.File)}};
        if (Scan) told["uses"] = UsesAsJson(file.Uses);
        files.Add(std::move(told));
    }
    return files;
}

TJson TDepsRun::UsesAsJson(const std::vector<TUse>& uses) {
    const TToldScan told{*Scan, Arguments.Paths};
    TJson list = TJson::Array();
    for (const TUse& use : uses) {
        TJson needs = TJson::Array();
        for (const TNeedPlace& place : ListNeedsOf(*use.Need)) {
            const TNeedRule& rule = GetNeedRule(NeedAt(Scan->GetFiles(), place).Kind);
            needs.Add({{"place", told.PlaceOf(place)},
                       {"kind", rule.Name},
                       {"unit", told.NameOf(place)},
                       {"step", rule.OrdersFiles ? "compile" : "elaborate"}});
        }
        list.Add({{"user", PathOf(use.User)},
                  {"recorded", use.Need->IsRecorded},
                  {"needs", std::move(needs)}});
    }
    return list;
}

const std::string& TDepsRun::PathOf(std::uint32_t file) {
    Paths.resize(Graph.size());
    if (Paths[file].empty())
        Paths[file] = PathText(Needs->GetFiles()[file]->GetFileName(), Arguments.Paths);
    return Paths[file];
}

}  // namespace

int RunDeps(const TQuestionArguments& arguments, const TToolStreams& streams) {
    return TDepsRun(arguments, streams).Run();
}
