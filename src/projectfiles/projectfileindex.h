#pragma once
#include "services/names/isfilename.h"
#include <list>
#include <unordered_map>
#include <vector>

class THdlProjectFile;

/// Finds the first entry of a project file list by its file name. Built when first asked for, kept
/// up to date by the list's own changes, and built anew when it does not fit the list any more.
class TProjectFileIndex {
public:
    using TFiles = std::list<THdlProjectFile*>;
    using TPlace = TFiles::const_iterator;

    /// Brings the index up to date with `files`. False when they are to be walked: they are few, or
    /// one of them has no handle, which a walk must report.
    bool Prepare(const TFiles& files);
    /// The first entry of `files` with the name `identity`, the end when there is none. To be
    /// called right after Prepare gave true.
    TPlace Find(const TFiles& files, const TFileIdentity& identity);

    /// `place` was just linked into `files`.
    void Added(const TFiles& files, TPlace place);
    /// `place` is about to be unlinked from `files`.
    void Removing(const TFiles& files, TPlace place);
    /// Forgets everything.
    void Drop();

private:
    /// Entries of one name.
    struct TPlaces {
        TPlace First;
        // From the last one to the second one: the next one to become first is at the end.
        std::vector<TPlace> Later;
    };
    struct THashOf {
        std::size_t operator()(const TFileIdentity& identity) const { return identity.GetNumber(); }
    };
    bool Fits(std::size_t size) const;
    void Build(const TFiles& files);
    bool AddPlace(TPlace place);
    bool RemovePlace(TPlace place);

    std::unordered_map<TFileIdentity, TPlaces, THashOf> Places;
    bool IsBuilt = false;
    std::size_t Size = 0;
    std::size_t NamelessCount = 0;
    unsigned long long HandleChangeCount = 0;
};
