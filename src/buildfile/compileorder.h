#pragma once
#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/sourcenametable.h"
#include "services/base/progress.h"
#include <cstdint>
#include <unordered_set>
#include <vector>

class TReadSourceFile;

/// Lists the sources of a group so that each comes after those it depends on. Of a cycle, the
/// source met first comes last. Each source is looked at once, however many depend on it.
class TCompileOrder {
public:
    /// A dependency that has the name of a source in `group`, but is another object, also waits for
    /// what that source depends on: callers may depend on a bare name before its source is known.
    explicit TCompileOrder(const TIHdlSourceFileList& group);

    /// Fills `ordered`, an empty list. To be called once.
    void Fill(TIHdlSourceFileList* ordered);

private:
    /// A source whose dependencies are being listed.
    struct TVisit {
        const IHdlSourceFile* File;
        TIHdlSourceFileList::const_iterator Next;
        TIHdlSourceFileList::const_iterator End;
        const TIHdlSourceFileList* Further;  // null when there are no others
    };
    // What a source's mark says in this order.
    static constexpr std::uint64_t kOfGroup = 1;
    static constexpr std::uint64_t kMet = 2;

    static const TReadSourceFile* GetMarked(const IHdlSourceFile* file);
    static std::uint64_t NewMark();
    template <class TTell>
    void Add(const IHdlSourceFile* file, TTell tell);
    bool Meet(const IHdlSourceFile* file);
    void Enter(const IHdlSourceFile* file);
    void EnterForeign(const IHdlSourceFile* file, TVisit* visit);
    void Leave(const IHdlSourceFile* file);
    static void Descend(const TIHdlSourceFileList* dependencies, TVisit* visit);

    const TIHdlSourceFileList& Group;
    const std::uint64_t Mark = NewMark();
    std::unordered_set<const IHdlSourceFile*> Met;  // those without a mark
    // Instead of recursion: a chain of dependencies may be as long as the build.
    std::vector<TVisit> Visits;
    std::vector<TIHdlSourceFileList::TNamedSource> Ordered;
    TProgress Progress{PROGRESS_ORDER_SOURCES, Group.size()};
    bool AreDistinct = true;                // the names of what was ordered
    TSourceNameTable<bool> NamesElsewhere;  // of what the group does not list
};
