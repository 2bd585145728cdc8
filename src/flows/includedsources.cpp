#include "flows/includedsources.h"
#include "flows/linking/sourcescan.h"
#include "flows/scan/asciicase.h"
#include "flows/scan/includefiles.h"
#include "flows/scan/includeindex.h"
#include "services/names/utilfilename.h"
#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace {

bool IsHeader(const std::string& path) {
    const std::string folded = FoldAscii(path);
    return folded.ends_with(".vh") || folded.ends_with(".svh");
}

/// Whether the file itself has what is compiled on its own. Classes are mostly included.
bool HasUnits(const TScannedFile& scan) {
    return std::any_of(scan.Units.begin(), scan.Units.end(), [](const TDesignUnit& unit) {
        return unit.Kind != TDesignUnitKind::Class && unit.Place.Include == 0;
    });
}

/// The folder from which `name` leads to `path`; empty for an absolute name.
std::string BaseOf(const TScannedInclude& include) {
    std::string name = include.Name;
    while (name.starts_with("./") || name.starts_with(".\\")) name.erase(0, 2);
    const std::size_t length = include.Path.size() - std::min(name.size(), include.Path.size());
    return include.Path.compare(length, std::string::npos, name) == 0
               ? include.Path.substr(0, length)
               : std::string();
}

class TSorting {
public:
    explicit TSorting(const TFoundSources& found) : Found(found) {
        std::vector<std::string> paths = found.Rest;
        for (const TFoundSource& source : found.Sources)
            if (source.Language == LANGUAGE_VERILOG) {
                paths.push_back(source.Path);
                Candidates.push_back({source.Path, LANGUAGE_VERILOG, ""});
            }
        Verilog = Candidates.size();
        for (const std::string& path : found.Rest)
            if (IsHeader(path)) Candidates.push_back({path, LANGUAGE_VERILOG, ""});
        const TIncludeIndex index(paths);
        TScanOptions options;
        options.Elsewhere = &index;
        if (!Candidates.empty()) Scan = ScanSources(Candidates, options);
    }

    TSortedSources Sort() {
        for (std::size_t i = 0; i < Candidates.size(); ++i)
            for (const TScannedInclude& include : Scan.Files[i].Scan.Includes)
                Note(include, Candidates[i].Path);
        for (std::size_t i = 0; i < Candidates.size(); ++i)
            if (IsLeftOut(i)) LeftOut.insert(Candidates[i].Path);
        for (const TFoundSource& source : Found.Sources)
            if (LeftOut.contains(source.Path))
                Sorted.Included.push_back(source.Path);
            else
                Sorted.Sources.push_back(source);
        for (std::size_t i = Verilog; i < Candidates.size(); ++i) {
            const std::string& path = Candidates[i].Path;
            if (!LeftOut.contains(path))
                Sorted.Sources.push_back({path, LANGUAGE_VERILOG});
            else if (!Includes.contains(path))
                AddFolder(std::string(FolderOfPath(path)));
        }
        return std::move(Sorted);
    }

private:
    void Note(const TScannedInclude& include, const std::string& including) {
        if (include.Path.empty()) return;
        const std::string path = TUtilFileName(include.Path.c_str()).Canonical();
        if (path == including) return;
        bool& isCertain = Includes[path];
        isCertain = isCertain || include.IsCertain;
        AddFolder(BaseOf(include));
    }

    void AddFolder(const std::string& folder) {
        if (!folder.empty() && Folders.insert(folder).second)
            Sorted.IncludeFolders.push_back(folder);
    }

    bool IsLeftOut(std::size_t candidate) const {
        const auto included = Includes.find(Candidates[candidate].Path);
        if (included != Includes.end() && included->second) return true;
        const bool isLoose = included != Includes.end() || IsHeader(Candidates[candidate].Path);
        const bool isRead = Scan.Reasons[candidate].empty();
        return isLoose && isRead && !HasUnits(Scan.Files[candidate].Scan);
    }

    const TFoundSources& Found;
    std::vector<TSourceToScan> Candidates;  // Verilog sources, then headers
    std::size_t Verilog = 0;
    TSourceScan Scan;
    std::unordered_map<std::string, bool> Includes;  // by path; whether for certain
    std::unordered_set<std::string> LeftOut;
    std::unordered_set<std::string> Folders;
    TSortedSources Sorted;
};

}  // namespace

TSortedSources SortOutIncluded(const TFoundSources& found) {
    return TSorting(found).Sort();
}
