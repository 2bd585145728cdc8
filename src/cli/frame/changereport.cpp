#include "cli/frame/changereport.h"
#include "cli/frame/jsonresults.h"
#include "cli/frame/texts.h"
#include "flows/editedfile.h"
#include <map>

std::vector<TStateDifference> FindDifferences(const TState& before, const TState& after) {
    std::map<std::string, const TJson*> values;
    for (const auto& [name, value] : before) values.emplace(name, &value);
    std::vector<TStateDifference> differences;
    for (const auto& [name, value] : after) {
        const auto former = values.find(name);
        if (former != values.end() && *former->second != value)
            differences.push_back({name, *former->second, value});
    }
    return differences;
}

std::string TextOf(const TStateDifference& difference) {
    const auto text = [](const TJson& value) { return value.IsNull() ? "none" : value.Dump(); };
    return difference.Name + ": " + text(difference.Before) + " -> " + text(difference.After);
}

TJson AsJson(const std::vector<TStateDifference>& differences) {
    TJson list = TJson::Array();
    for (const auto& [name, before, after] : differences)
        list.Add({{"what", name}, {"before", before}, {"after", after}});
    return list;
}

namespace {

void Print(const std::vector<TStateDifference>& differences, const TFileChange& change,
           bool isSaved, std::ostream& out) {
    for (const TStateDifference& difference : differences) PrintLine(out, TextOf(difference));
    const char* const done = isSaved ? "saved" : "not saved (dry run)";
    PrintLine(out, change.File + ": " + (differences.empty() ? "nothing to change" : done));
    if (!isSaved) PrintDiff(change.Diff, out);
}

void PrintAsJson(const std::vector<TStateDifference>& differences, const TFileChange& change,
                 bool isSaved, const TToolStreams& streams) {
    TJson result = change.Result;
    result["changes"] = AsJson(differences);
    result["saved"] = isSaved;
    if (!isSaved && !change.Diff.empty()) result["diff"] = change.Diff;
    PrintJson(result, streams);
}

}  // namespace

int SaveChange(const TFileChange& change, const TCommonArguments& arguments,
               const TToolStreams& streams, const std::function<std::string()>& save) {
    const std::vector<TStateDifference> differences = FindDifferences(change.Before, change.After);
    const bool isSaved = !differences.empty() && !arguments.DryRun;
    if (isSaved) {
        const std::string reason = save();
        if (!reason.empty()) {
            ReportError(streams, change.File + ": " + reason);
            return kExitFile;
        }
    }
    if (arguments.Json)
        PrintAsJson(differences, change, isSaved, streams);
    else
        Print(differences, change, isSaved, streams.Out);
    return kExitDone;
}

int SaveEditedFile(TFileChange change, const std::string& reason, const TEditedFile& file,
                   const TCommonArguments& arguments, const TToolStreams& streams) {
    if (!reason.empty()) {
        ReportError(streams, change.File + ": " + reason);
        return kExitFile;
    }
    // What is saved is not shown.
    if (arguments.DryRun || FindDifferences(change.Before, change.After).empty())
        change.Diff = file.GetUnifiedDiff(change.File);
    return SaveChange(change, arguments, streams, [&file] { return file.Save(); });
}
