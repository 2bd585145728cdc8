#include "cli/frame/changereport.h"
#include "cli/frame/texts.h"
#include "flows/editedfile.h"
#include <map>

namespace {

struct TDifference {
    std::string Name;
    TJson Before;
    TJson After;
};

std::vector<TDifference> DifferencesOf(const TFileChange& change) {
    const std::map<std::string, TJson> before(change.Before.begin(), change.Before.end());
    std::vector<TDifference> differences;
    for (const auto& [name, value] : change.After) {
        const auto former = before.find(name);
        if (former != before.end() && former->second != value)
            differences.push_back({name, former->second, value});
    }
    return differences;
}

std::string Text(const TJson& value) {
    return value.IsNull() ? "none" : value.Dump();
}

void Print(const std::vector<TDifference>& differences, const TFileChange& change, bool isSaved,
           std::ostream& out) {
    for (const TDifference& difference : differences)
        PrintLine(out, difference.Name + ": " + Text(difference.Before) + " -> " +
                           Text(difference.After));
    const char* const done = isSaved ? "saved" : "not saved (dry run)";
    PrintLine(out, change.File + ": " + (differences.empty() ? "nothing to change" : done));
    if (!isSaved) PrintDiff(change.Diff, out);
}

void PrintAsJson(const std::vector<TDifference>& differences, const TFileChange& change,
                 bool isSaved, const TToolStreams& streams) {
    TJson result = change.Result;
    TJson& list = result["changes"] = TJson::Array();
    for (const auto& [name, before, after] : differences)
        list.Add({{"what", name}, {"before", before}, {"after", after}});
    result["saved"] = isSaved;
    if (!isSaved && !change.Diff.empty()) result["diff"] = change.Diff;
    PrintJson(result, streams);
}

}  // namespace

int SaveChange(const TFileChange& change, const TCommonArguments& arguments,
               const TToolStreams& streams, const std::function<std::string()>& save) {
    const std::vector<TDifference> differences = DifferencesOf(change);
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
    change.Diff = file.GetUnifiedDiff(change.File);
    return SaveChange(change, arguments, streams, [&file] { return file.Save(); });
}
