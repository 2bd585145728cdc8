#pragma once
#include "services/hdl/hdllanguage.h"
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

class ISFileName;
class THdlBuildFile;
class TXMLList;

/// A number for each text that was met.
class TTextNumbers {
public:
    std::uint32_t NumberOf(const char* text);
    const std::string& GetText(std::uint32_t number) const { return *Texts[number]; }

private:
    std::unordered_map<std::string, std::uint32_t> Numbers;
    std::vector<const std::string*> Texts;
};

/// One handle for each file of several builds, whatever the letter case of its name.
class TSameFiles {
public:
    const ISFileName* HandleOf(const ISFileName* file);

private:
    std::unordered_map<const ISFileName*, const ISFileName*> Handles;
    std::unordered_map<std::string, const ISFileName*> ByFoldedPath;
};

/// One source as a build lists it.
struct TListedRecord {
    const ISFileName* File;
    std::uint32_t Library;  ///< its number
    bool IsLibraryFile;
    std::size_t Dependencies;  ///< the place of the first one
    std::size_t DependencyCount;
};

/// What the groups of a build list, as a value that stays when the build is changed.
class TSourceLists {
public:
    using TFiles = std::span<const ISFileName* const>;
    using TRecords = std::vector<TListedRecord>;

    /// No groups.
    TSourceLists() = default;
    /// `libraries` gives the numbers: lists that are compared share one. So do those of two builds
    /// with `files`; null takes the handles that the build has. Neither is kept.
    TSourceLists(const THdlBuildFile& build, TTextNumbers* libraries, TSameFiles* files = nullptr);

    /// By language; empty groups included.
    const std::map<THdlLanguage, TRecords>& GetGroups() const { return Groups; }
    const TRecords& GetGroup(THdlLanguage language) const;
    TFiles GetDependencies(const TListedRecord& record) const {
        return TFiles(Dependencies).subspan(record.Dependencies, record.DependencyCount);
    }

    /// Empty groups do not count.
    bool operator==(const TSourceLists& other) const;

private:
    std::map<THdlLanguage, TRecords> Groups;
    std::vector<const ISFileName*> Dependencies;
};

/// What became of one source between two lists.
struct TListedChange {
    THdlLanguage Language;
    const TListedRecord* Before;  ///< null for a source that came
    const TListedRecord* After;   ///< null for one that went
    bool IsMoved;                 ///< stands elsewhere among those that stayed
};

/// How two lists differ, of one build or of two. Both must outlive the object and number libraries
/// alike.
class TSourceListsDifference {
public:
    TSourceListsDifference(const TSourceLists& before, const TSourceLists& after);

    /// In the order of the languages, then of the groups.
    const std::vector<TListedChange>& GetChanges() const { return Changes; }
    /// The one in front of a source that is in both lists; null for the first.
    const ISFileName* GetFileInFrontBefore(const TListedChange& change) const;
    const ISFileName* GetFileInFrontAfter(const TListedChange& change) const;

    /// Pushes the groups of both lists as a save would, but of the sources only those that changed
    /// and the neighbours of new ones, or a group whole in which sources moved. Paths are relative
    /// to the folder of `buildFile`.
    void Push(const ISFileName* buildFile, const TTextNumbers& libraries, TXMLList* before,
              TXMLList* after) const;

private:
    void Compare(THdlLanguage language);
    void CompareOne(THdlLanguage language, const TListedRecord& before, const TListedRecord& after);

    const TSourceLists& Before;
    const TSourceLists& After;
    std::vector<TListedChange> Changes;
};
