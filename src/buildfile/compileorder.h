#pragma once
#include "projectfiles/ihdlsourcefilelist.h"
#include <unordered_set>
#include <vector>

/// Lists sources so that each comes after those it depends on. Of a cycle, the source met first
/// comes last. Each source is looked at once, however many depend on it.
class TCompileOrder {
public:
    using TFiles = std::unordered_set<const IHdlSourceFile*>;

    /// Appends to `ordered` what is not in `listed` yet, and enters it there. A dependency that has
    /// the name of a source in `group`, but is another object, also waits for what that source
    /// depends on: callers may depend on a bare name before its source is known.
    TCompileOrder(const TIHdlSourceFileList& group, TIHdlSourceFileList* ordered, TFiles* listed)
        : Group(group), Ordered(ordered), Listed(listed) {}

    /// Appends what `file` depends on and `file` itself; null does nothing.
    void Add(const IHdlSourceFile* file);

private:
    /// A source whose dependencies are being listed.
    struct TVisit {
        const IHdlSourceFile* File;
        TIHdlSourceFileList::const_iterator Next;
        TIHdlSourceFileList::const_iterator End;
        const TIHdlSourceFileList* Further;  // null when there are no others
    };
    void Enter(const IHdlSourceFile* file);
    static void Descend(const TIHdlSourceFileList* dependencies, TVisit* visit);
    const IHdlSourceFile* NextDependency(TVisit* visit);

    const TIHdlSourceFileList& Group;
    TIHdlSourceFileList* Ordered;
    TFiles* Listed;
    // Instead of recursion: a chain of dependencies may be as long as the build.
    std::vector<TVisit> Visits;
};
