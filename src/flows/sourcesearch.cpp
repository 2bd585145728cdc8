#include "flows/sourcesearch.h"
#include "flows/filepatterns.h"
#include "services/base/progress.h"
#include "services/files/filestatus.h"
#include "services/hdl/sourcefileextensions.h"
#include "services/names/utilfilename.h"
#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace {

// Of simulators, synthesis tools and runners of tests. The last ones keep the name of the project
// in front.
constexpr const char* kOutputFolders[] = {
    "build",           "obj_dir",      "xsim.dir",  "csrc",      "INCA_libs",   "xcelium.d",
    "incremental_db",  "output_files", "sim_build", "vunit_out", "__pycache__", "node_modules",
    "CMakeFiles",      "*.daidir",     "*.cache",   "*.runs",    "*.sim",       "*.hw",
    "*.ip_user_files",
};

// What other sources include is no source of its own.
constexpr const char* kIncludedExtensions[] = {".vh", ".svh", ".h", ".hpp"};

namespace fs = std::filesystem;

fs::path Native(const std::string& path) {
    return std::u8string(path.begin(), path.end());
}

std::string Utf8(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string ExtensionOf(const std::string& path) {
    return TUtilFileName(path.c_str()).GetParts(PART_EXTENSION);
}

THdlLanguage LanguageOf(const std::string& path) {
    return TSourceFileExtensions::GetInstance()->GetSourceFileLanguageFromExtension(
        ExtensionOf(path).c_str());
}

bool IsIncluded(const std::string& path) {
    const std::string extension = ExtensionOf(path);
    return std::any_of(
        std::begin(kIncludedExtensions), std::end(kIncludedExtensions),
        [&](const char* included) { return MatchesPartOfPattern(included, extension); });
}

std::string CanonicalOf(const std::string& path) {
    return TUtilFileName(path.c_str()).CanonicalWithoutFinalSlash();
}

std::string Below(const std::string& folder, const std::string& name) {
    TUtilFileName path(folder.c_str());
    path.PushFileName(name.c_str());
    return path.Canonical();
}

struct TFolderEntry {
    std::string Name;
    bool IsFolder;
    bool IsLink;
};

class TSearch {
public:
    explicit TSearch(const TSourceSearch& search) : Search(search) {
        for (const std::string& pattern : search.Excluded) {
            if (PartsOfPath(pattern).size() < 2)
                ExcludedNames.push_back(pattern);
            else
                ExcludedPaths.push_back(CanonicalOf(pattern));
        }
    }

    void Find(const std::string& path) {
        if (IsFilePattern(path))
            FindPattern(path);
        else
            FindPlain(path);
    }

    TFoundSources Found;

private:
    void Complain(const std::string& complaint, bool isFileFault) {
        if (!Found.Complaint.empty()) return;
        Found.Complaint = complaint;
        Found.IsFileFault = isFileFault;
    }

    void FindPlain(const std::string& path) {
        const std::string canonical = CanonicalOf(path);
        const TFileStatus status = LookAtFile(canonical);
        if (!status.Exists) return Complain(path + ": the file does not exist", true);
        if (status.IsDirectory) {
            if (!Search.EntersFolders)
                return Complain("'" + path + "' is a folder: give -r for the sources in it", false);
            return FindBelow(canonical);
        }
        const THdlLanguage language =
            Search.Language == LANGUAGE_NONE ? LanguageOf(canonical) : Search.Language;
        if (language == LANGUAGE_NONE)
            return Complain(
                "no language has the extension of '" + path + "': give one with --language", false);
        Add(canonical, language);
    }

    void FindPattern(const std::string& path) {
        const std::size_t before = Met;
        const std::string canonical = CanonicalOf(path);
        Walk(canonical);
        if (Met == before) Complain("no source matches '" + path + "'", false);
    }

    /// A folder and the parts of the pattern that are still to be met below it.
    struct TStep {
        std::string Folder;
        std::size_t Part;
        bool operator<(const TStep& other) const {
            return std::tie(Folder, Part) < std::tie(other.Folder, other.Part);
        }
    };

    // Goes down as far as the pattern is plain, then from folder to folder.
    void Walk(const std::string& pattern) {
        const std::vector<std::string_view> parts = PartsOfPath(pattern);
        std::size_t first = 0;
        while (first + 1 < parts.size() && !IsFilePattern(parts[first])) ++first;
        const auto begin = static_cast<std::size_t>(parts[first].data() - pattern.data());
        std::vector<TStep> steps{{pattern.substr(0, begin), first}};
        std::set<TStep> known(steps.begin(), steps.end());
        while (!steps.empty()) {
            const TStep step = std::move(steps.back());
            steps.pop_back();
            std::vector<TStep> next = Take(step, parts);
            // The last one is taken first.
            for (auto inner = next.rbegin(); inner != next.rend(); ++inner)
                if (known.insert(*inner).second) steps.push_back(std::move(*inner));
        }
    }

    std::vector<TStep> Take(const TStep& step, const std::vector<std::string_view>& parts) {
        const std::string_view part = parts[step.Part];
        const bool isLast = step.Part + 1 == parts.size();
        const bool isAnyParts = part == "**";
        std::vector<TStep> next;
        if (isAnyParts && !isLast) next.push_back({step.Folder, step.Part + 1});
        for (const TFolderEntry& entry : List(step.Folder)) {
            const bool isMeant = isAnyParts || MatchesPartOfPattern(part, entry.Name);
            if (!isMeant || IsHidden(entry.Name, part)) continue;
            std::string path = Below(step.Folder, entry.Name);
            if (!entry.IsFolder) {
                if (isLast) AddMatch(path);
            } else if (entry.IsLink) {
                if ((isAnyParts || !isLast) && KnownLinks.insert(path).second)
                    Found.Links.push_back(std::move(path));
            } else if (isAnyParts ? EntersByItself(entry.Name) : !isLast) {
                next.push_back({std::move(path), isAnyParts ? step.Part : step.Part + 1});
            } else if (isLast && !isAnyParts && Search.EntersFolders) {
                FindBelow(path);
            }
        }
        return next;
    }

    // A wildcard means what is hidden only when it begins with a dot itself.
    static bool IsHidden(const std::string& name, std::string_view part) {
        return name.starts_with('.') && !part.starts_with('.');
    }
    bool EntersByItself(const std::string& name) const {
        return !name.starts_with('.') && (Search.EntersOutputs || !IsOutputFolder(name));
    }

    void FindBelow(const std::string& folder) {
        std::vector<std::string> folders{folder};
        while (!folders.empty()) {
            const std::string current = std::move(folders.back());
            folders.pop_back();
            std::vector<std::string> inner;
            for (const TFolderEntry& entry : List(current)) {
                if (entry.Name.starts_with('.')) continue;
                std::string path = Below(current, entry.Name);
                if (!entry.IsFolder) {
                    AddOrKeep(path);
                } else if (!entry.IsLink && EntersByItself(entry.Name)) {
                    inner.push_back(std::move(path));
                }
            }
            std::move(inner.rbegin(), inner.rend(), std::back_inserter(folders));
        }
    }

    void AddOrKeep(const std::string& path) {
        const std::size_t before = Met;
        if (!IsIncluded(path)) AddOfFolder(path);
        if (Met == before && Search.KeepsRest && KnownRest.insert(path).second)
            Found.Rest.push_back(path);
    }

    void AddMatch(const std::string& path) {
        if (Search.Language != LANGUAGE_NONE) return Add(path, Search.Language);
        AddOfFolder(path);
    }

    void AddOfFolder(const std::string& path) {
        const THdlLanguage language = LanguageOf(path);
        if (language == LANGUAGE_NONE) return;
        if (Search.Language == LANGUAGE_NONE || Search.Language == language) Add(path, language);
    }

    void Add(const std::string& path, THdlLanguage language) {
        ++Met;
        if (Known.insert(path).second) Found.Sources.push_back({path, language});
    }

    // By name, without what is excluded.
    std::vector<TFolderEntry> List(const std::string& folder) {
        std::vector<TFolderEntry> entries;
        std::error_code fault;
        fs::directory_iterator entry(Native(folder), fault);
        for (; !fault && entry != fs::directory_iterator(); entry.increment(fault)) {
            std::error_code ignored;
            const bool isLink = entry->is_symlink(ignored);
            const bool isFolder = entry->is_directory(ignored);
            std::string name = Utf8(entry->path().filename());
            if (!IsExcluded(folder, name)) entries.push_back({std::move(name), isFolder, isLink});
        }
        if (fault) Complain(folder + ": " + fault.message(), true);
        std::sort(entries.begin(), entries.end(),
                  [](const auto& one, const auto& other) { return one.Name < other.Name; });
        return entries;
    }

    bool IsExcluded(const std::string& folder, const std::string& name) const {
        const auto matchesName = [&](const std::string& pattern) {
            return MatchesPartOfPattern(pattern, name);
        };
        if (std::any_of(ExcludedNames.begin(), ExcludedNames.end(), matchesName)) return true;
        if (ExcludedPaths.empty()) return false;
        const std::string path = Below(folder, name);
        return std::any_of(
            ExcludedPaths.begin(), ExcludedPaths.end(),
            [&](const std::string& pattern) { return MatchesFilePattern(pattern, path); });
    }

    const TSourceSearch& Search;
    std::vector<std::string> ExcludedNames;
    std::vector<std::string> ExcludedPaths;
    std::unordered_set<std::string> Known;
    std::unordered_set<std::string> KnownRest;
    std::unordered_set<std::string> KnownLinks;
    std::size_t Met = 0;  // sources, those that were known included
};

}  // namespace

TFoundSources FindSources(const std::vector<std::string>& paths, const TSourceSearch& search) {
    TSearch found(search);
    for (const std::string& path : paths) found.Find(path);
    if (!found.Found.Complaint.empty()) found.Found.Sources.clear();
    return std::move(found.Found);
}

TIncludedFiles FindIncludedFiles(const std::string& folder) {
    TSourceSearch search;
    search.EntersFolders = true;
    search.KeepsRest = true;
    TFoundSources found = FindSources({folder}, search);
    TIncludedFiles files;
    const auto add = [&files](std::string path) {
        auto& kind = IsIncluded(path) ? files.Headers : files.Others;
        std::replace(path.begin(), path.end(), '\\', '/');
        kind.push_back(std::move(path));
    };
    for (TFoundSource& source : found.Sources) add(std::move(source.Path));
    for (std::string& path : found.Rest) add(std::move(path));
    return files;
}

bool IsOutputFolder(std::string_view name) {
    return std::any_of(std::begin(kOutputFolders), std::end(kOutputFolders),
                       [name](const char* pattern) { return MatchesPartOfPattern(pattern, name); });
}
