#include "flows/run/runscan.h"
#include "flows/buildneeds.h"
#include "flows/buildscan.h"
#include "flows/linking/sourcescan.h"
#include "flows/neededfiles.h"
#include "flows/plan/neededsources.h"
#include "flows/plan/planoptions.h"
#include "flows/run/runfiles.h"
#include "flows/scan/asciicase.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/names/isfilename.h"
#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace {

bool IsFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(NativePath(path), error);
}

std::string PathOf(const IHdlSourceFile& source) {
    return source.GetFileName() ? WholePath(source.GetFileName()->Canonical(false), "/")
                                : std::string();
}

/// The files that compilers of Verilog read besides the sources of a build, in the making.
class TVerilogFiles {
public:
    TVerilogFiles(const TPlanSettings& settings, const std::string& folder)
        : Settings(settings), Folder(folder) {
        for (const std::string& directory : settings.IncludeDirectories)
            IncludeFolders.push_back(directory + "/");
    }

    void AddSource(const std::string& path) {
        if (!Known.insert(path).second) return;
        Files.push_back(path);
        Unread.push_back({path, LANGUAGE_VERILOG, ""});
    }

    /// Adds what a file includes. A file of that name in another directory is read as well, as what
    /// it includes counts, too.
    void AddIncludes(const TScannedFile& file) {
        for (const TScannedInclude& include : file.Includes) {
            if (!include.Path.empty()) AddSource(WholePath(include.Path, Folder));
            if (!Names.insert(include.Name).second) continue;
            for (const std::string& directory : IncludeFolders)
                if (const std::string path = directory + include.Name; IsFile(path))
                    AddSource(WholePath(path, Folder));
        }
    }

    std::vector<std::string> List() {
        while (!Unread.empty())
            for (const TDesignFile& file :
                 ScanSources(std::exchange(Unread, {}), {Settings.Defines, IncludeFolders}).Files)
                AddIncludes(file.Scan);
        return std::move(Files);
    }

private:
    const TPlanSettings& Settings;
    const std::string& Folder;
    std::vector<std::string> IncludeFolders;
    std::vector<std::string> Files;
    std::vector<TSourceToScan> Unread;
    std::unordered_set<std::string> Known, Names;
};

/// What a scan of the build tells of the sources and tops of its plan.
class TPlanScan {
public:
    TPlanScan(THdlBuildFile& build, const TBuildPlan& plan)
        : Plan(plan), Scan(build, TLinkOptions{{}, true}), Needs(build) {
        Needs.Add(Scan);
        for (std::size_t number = 0; number < plan.Sources.size(); ++number)
            Numbers[plan.Sources[number].Path].push_back(number);
    }

    TRunScan Tell() {
        TRunScan result;
        result.Needs.resize(Plan.Sources.size());
        result.VerilogFiles = ListVerilogFiles();
        AddNeeds(&result);
        for (const TBuildTop& top : Plan.Tops) AddTop(top, &result);
        return result;
    }

private:
    /// Of the sources of the plan that are this one: two when two languages list it.
    const std::vector<std::size_t>& NumbersOf(const IHdlSourceFile& source) {
        return Numbers[PathOf(source)];
    }

    std::vector<std::string> ListVerilogFiles() {
        const TPlanSettings* const settings = Plan.FindSettings(LANGUAGE_VERILOG);
        if (!settings) return {};
        TVerilogFiles files(*settings, Plan.Folder);
        for (std::size_t file = 0; file < Scan.GetSources().size(); ++file)
            files.AddIncludes(Scan.GetFiles()[file].Scan);
        // Library files of options are no sources of the build.
        for (const TPlanSource& source : Plan.Sources)
            if (source.IsLibraryFile) files.AddSource(source.Path);
        for (const std::string& file : ListLibrarySources(*settings)) files.AddSource(file);
        return files.List();
    }

    // Without what the texts tell, a build that records an order alone would not analyse again
    // what depends on a changed package.
    void AddNeeds(TRunScan* result) {
        for (std::uint32_t file = 0; file < Needs.GetFiles().size(); ++file)
            for (const TFileNeed& need : Needs.GetNeeds(file)) {
                if (!need.IsRecorded && !need.IsForCompile) continue;
                const std::vector<std::size_t>& needed = NumbersOf(*Needs.GetFiles()[need.File]);
                for (const std::size_t number : NumbersOf(*Needs.GetFiles()[file]))
                    for (const std::size_t former : needed)
                        if (former < number) result->Needs[number].push_back(former);
            }
        AddOrderOfUnits(result);
        for (std::vector<std::size_t>& needs : result->Needs) SortOnce(&needs);
    }

    // An analysis replaces what a former one has put under its name, and an instance that names no
    // architecture has the one that was analysed last.
    void AddOrderOfUnits(TRunScan* result) {
        std::map<std::string, std::set<std::size_t>> holders;
        for (std::size_t file = 0; file < Scan.GetSources().size(); ++file) {
            if (Scan.GetSources()[file].Group != LANGUAGE_VHDL) continue;
            const TDesignFile& scanned = Scan.GetFiles()[file];
            for (const TDesignUnit& unit : scanned.Scan.Units)
                for (const std::size_t number : NumbersOf(*Scan.GetSources()[file].Source))
                    holders[KeyOf(scanned.Library, unit)].insert(number);
        }
        for (const auto& [key, numbers] : holders)
            for (auto number = numbers.begin(); std::next(number) != numbers.end(); ++number)
                result->Needs[*std::next(number)].push_back(*number);
    }

    static std::string KeyOf(const std::string& library, const TDesignUnit& unit) {
        const bool isArchitecture = unit.Kind == TDesignUnitKind::Architecture;
        const std::string key = library + "\n" + (isArchitecture ? unit.Primary : unit.Name);
        return FoldAscii(key);
    }

    void AddTop(const TBuildTop& top, TRunScan* result) {
        TNeededFiles files(Scan, Needs);
        for (const TUnitPlace unit : files.FindUnits(top)) files.Add({unit, top.Architecture});
        result->OtherLanguages.push_back(ListOtherLanguages(top, files));
        result->TopNeeds.push_back(ListNeeded(top, &files));
    }

    std::vector<THdlLanguage> ListOtherLanguages(const TBuildTop& top, const TNeededFiles& files) {
        std::set<THdlLanguage> languages;
        for (std::uint32_t file = 0; file < Needs.GetFiles().size(); ++file)
            if (files.IsNeeded(file)) languages.insert(Needs.GetGroup(file));
        languages.erase(top.Language);
        languages.erase(LANGUAGE_NONE);
        return {languages.begin(), languages.end()};
    }

    std::vector<std::size_t> ListNeeded(const TBuildTop& top, TNeededFiles* files) {
        std::vector<std::size_t> needed;
        if (!FindTopUnit(*files, Scan, top)) {
            needed.resize(Plan.Sources.size());
            std::iota(needed.begin(), needed.end(), std::size_t{0});
            return needed;
        }
        AddUnexplained(Scan, files);
        // Of a unit that several files hold, any may count.
        for (const TRepeatedUnit& unit : Scan.GetDesign().Repeated)
            for (const TUnitPlace place : unit.Places) files->AddSource(place.File);
        for (std::uint32_t file = 0; file < Needs.GetFiles().size(); ++file) {
            if (!files->IsNeeded(file)) continue;
            const std::vector<std::size_t>& numbers = NumbersOf(*Needs.GetFiles()[file]);
            needed.insert(needed.end(), numbers.begin(), numbers.end());
        }
        SortOnce(&needed);
        return needed;
    }

    static void SortOnce(std::vector<std::size_t>* numbers) {
        std::sort(numbers->begin(), numbers->end());
        numbers->erase(std::unique(numbers->begin(), numbers->end()), numbers->end());
    }

    const TBuildPlan& Plan;
    const TBuildScan Scan;
    TBuildNeeds Needs;
    std::unordered_map<std::string, std::vector<std::size_t>> Numbers;  // by path
};

}  // namespace

// Editors leave links that lead nowhere, and hidden files.
std::vector<std::string> ListLibrarySources(const TPlanSettings& settings) {
    std::vector<std::string> extensions = settings.LibraryExtensions;
    if (extensions.empty()) extensions = {".v", ".sv"};
    std::vector<std::string> sources;
    for (const std::string& directory : settings.LibraryDirectories) {
        std::vector<std::string> names;
        ListFiles(directory, &names);  // the simulator tells of what it cannot read
        std::sort(names.begin(), names.end());
        const std::string folder = directory + "/";
        for (const std::string& name : names) {
            const std::string path = folder + name;
            if (!name.starts_with('.') &&
                std::any_of(extensions.begin(), extensions.end(),
                            [&path](const std::string& end) { return path.ends_with(end); }) &&
                IsFile(path))
                sources.push_back(path);
        }
    }
    return sources;
}

TRunScan ScanForRun(THdlBuildFile& build, const TBuildPlan& plan) {
    return TPlanScan(build, plan).Tell();
}
