#pragma once
#include "projectfiles/sourcename.h"
#include <cstddef>
#include <map>
#include <memory>
#include <unordered_map>

class TIHdlSourceFileList;

/// Finds by name what the sources of one group depend on. Built when first asked; from then on the
/// group and the dependency lists of its sources report their changes to it.
class TDependencyIndex {
public:
    /// `group` must outlive the index.
    explicit TDependencyIndex(TIHdlSourceFileList* group) : Group(group) {}
    ~TDependencyIndex();
    TDependencyIndex(const TDependencyIndex&) = delete;
    TDependencyIndex& operator=(const TDependencyIndex&) = delete;

    /// Sets `*found` to the dependency of that name, null when there is none. False when the group
    /// must be asked instead: different sources share the name, so that its order decides, or an
    /// entry gives no list of its dependencies and has to be asked itself.
    bool Find(const ISFileName* name, IHdlSourceFile** found);

    bool IsGroup(const TIHdlSourceFileList* list) const { return list == Group; }
    // Called by the lists. `name` is null for a source that is not found by a name there.
    void Added(TIHdlSourceFileList* list, IHdlSourceFile* source, const TSourceName* name);
    void Removed(TIHdlSourceFileList* list, IHdlSourceFile* source, const TSourceName* name);
    /// A change could not be reported: the next look-up builds the index anew.
    void LoseTrack();
    /// A dependency list is being destroyed; what it held was reported as removed.
    void Gone(TIHdlSourceFileList* list);

private:
    /// The sources of one name, with the number of lists that hold each.
    struct TUses {
        IHdlSourceFile* First = nullptr;
        std::size_t FirstCount = 0;
        std::unique_ptr<std::map<IHdlSourceFile*, std::size_t>> Others;
    };
    struct TEntry {
        TIHdlSourceFileList* Dependencies;
        std::size_t Count;  // sources without a name may be in the group more than once
        bool HasList;
    };
    struct TWatch {
        IHdlSourceFile* Entry;
        std::size_t Count;  // of entries whose GetDependencyList() is this list
    };

    bool IsCurrent() const;
    void Build();
    void Drop();
    void EntryAdded(IHdlSourceFile* source);
    void EntryRemoved(IHdlSourceFile* source);
    void Watch(TIHdlSourceFileList* list, IHdlSourceFile* entry);
    void Unwatch(TIHdlSourceFileList* list);
    void AddUse(IHdlSourceFile* source, const TSourceName& name);
    void RemoveUse(IHdlSourceFile* source, const TSourceName& name);

    TIHdlSourceFileList* Group;
    bool IsBuilt = false;
    unsigned long long HandleChangeCount = 0;
    std::size_t EntriesWithoutList = 0;
    std::unordered_map<IHdlSourceFile*, TEntry> Entries;
    std::unordered_map<TIHdlSourceFileList*, TWatch> Lists;
    std::unordered_map<TSourceName, TUses, TSourceNameHash> Uses;
};
