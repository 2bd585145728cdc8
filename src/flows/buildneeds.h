#pragma once
#include "flows/buildscan.h"
#include "flows/filegraph.h"
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

class ISFileName;

/// A file that another one needs.
struct TFileNeed {
    std::uint32_t File;              ///< its number
    bool IsRecorded;                 ///< as a dependency in the build
    std::vector<TLinkedUnit> Units;  ///< that a scan found, in the order of the needs
    bool IsForCompile = false;       ///< whether one of them has to be compiled before
};

/// The needs behind it, each once.
std::vector<TNeedPlace> ListNeedsOf(const TFileNeed& need);

/// What the files of a build need of each other.
class TBuildNeeds {
public:
    /// What the build records. Its sources are kept.
    explicit TBuildNeeds(const THdlBuildFile& build);

    /// Adds what a scan of the build, which kept the units, has found.
    void Add(const TBuildScan& scan);

    /// The sources of all groups in their order, each once, then those that only dependencies name.
    /// A file's place is its number.
    const std::vector<const IHdlSourceFile*>& GetFiles() const { return Files; }
    /// The language of the first group that lists a file; LANGUAGE_NONE for one that none lists.
    THdlLanguage GetGroup(std::uint32_t file) const {
        return file < Groups.size() ? Groups[file] : LANGUAGE_NONE;
    }
    /// The number of a file, whatever the letter case of its name.
    std::optional<std::uint32_t> FindFile(const ISFileName* name) const;
    /// Recorded ones first; each file once, and never itself but where that is recorded.
    const std::vector<TFileNeed>& GetNeeds(std::uint32_t file) const { return Needs[file]; }
    TFileGraph MakeGraph() const;

private:
    std::uint32_t NumberOf(const IHdlSourceFile* file);

    std::vector<const IHdlSourceFile*> Files;
    std::vector<THdlLanguage> Groups;  // of those that are listed
    std::unordered_map<const IHdlSourceFile*, std::uint32_t> Numbers;
    std::vector<std::vector<TFileNeed>> Needs;
};
