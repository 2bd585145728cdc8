#include "buildfile/compileorder.h"
#include "projectfiles/readsources.h"
#include "projectfiles/sourcesahead.h"
#include "services/base/fetchahead.h"
#include <atomic>
#include <typeinfo>

TCompileOrder::TCompileOrder(const TIHdlSourceFileList& group) : Group(group) {
    AreDistinct = Group.HasDistinctNames();
    for (const IHdlSourceFile* source : Group)
        if (const TReadSourceFile* marked = GetMarked(source))
            marked->CompileMark = Mark | kOfGroup;
}

void TCompileOrder::Fill(TIHdlSourceFileList* ordered) {
    Ordered.reserve(Group.size());
    TSourcesAhead ahead(Group);
    for (const IHdlSourceFile* source : Group) {
        ahead.Step();
        if (Progress.IsObserved())
            Add(source, [this] { Progress.Advance(); });
        else
            Add(source, [] {});
    }
    if (AreDistinct) return ordered->FillDistinct(Ordered);
    for (const auto& [source, name] : Ordered) ordered->AddSourceFile(source, false);
}

// A walk that tells nobody would feel a count.
template <class TTell>
void TCompileOrder::Add(const IHdlSourceFile* file, TTell tell) {
    if (Meet(file)) Enter(file);
    while (!Visits.empty()) {
        TVisit& visit = Visits.back();
        while (visit.Next != visit.End && !Meet(*visit.Next)) ++visit.Next;
        if (visit.Next != visit.End) {
            Enter(*visit.Next++);
        } else if (visit.Further) {
            Descend(visit.Further, &visit);
            visit.Further = nullptr;
        } else {
            Leave(visit.File);
            Visits.pop_back();
            tell();
        }
    }
}

// A source that was read has a mark: looking it up in a set would cost more than all the rest. Null
// for others.
inline const TReadSourceFile* TCompileOrder::GetMarked(const IHdlSourceFile* file) {
    // The class is known here alone, so that it has one description: no need to compare names.
    return &typeid(*file) == &typeid(TReadSourceFile) ? static_cast<const TReadSourceFile*>(file)
                                                      : nullptr;
}

// No two orders share a mark, so that what one left on a source says nothing to another.
std::uint64_t TCompileOrder::NewMark() {
    static std::atomic<std::uint64_t> last = 0;
    return last += kOfGroup + kMet + 1;
}

// False for a source that was met before.
inline bool TCompileOrder::Meet(const IHdlSourceFile* file) {
    const TReadSourceFile* marked = GetMarked(file);
    if (!marked) return Met.insert(file).second;
    const std::uint64_t mark = marked->CompileMark;
    if ((mark & ~kOfGroup) == (Mark | kMet)) return false;
    marked->CompileMark = mark == (Mark | kOfGroup) ? mark | kMet : Mark | kMet;
    return true;
}

// A file is met before its dependencies are visited: that ends cycles, and no file is visited
// twice.
void TCompileOrder::Enter(const IHdlSourceFile* file) {
    const TReadSourceFile* marked = GetMarked(file);
    TVisit visit{file, {}, {}, nullptr};
    Descend(marked ? marked->Dependencies : file->GetDependencyList(), &visit);
    if (!marked || marked->CompileMark != (Mark | kMet | kOfGroup)) EnterForeign(file, &visit);
    Visits.push_back(visit);
}

// Of a file that the group does not list, as far as its mark tells.
void TCompileOrder::EnterForeign(const IHdlSourceFile* file, TVisit* visit) {
    const IHdlSourceFile* sameName = Group.GetSourceFile(file->GetFileName());
    if (sameName && sameName != file) visit->Further = sameName->GetDependencyList();
    TSourceName name;
    AreDistinct = AreDistinct && !sameName && GetSourceName(file, &name) &&
                  NamesElsewhere.Add(name, true).second;
}

void TCompileOrder::Leave(const IHdlSourceFile* file) {
    const TReadSourceFile* marked = GetMarked(file);
    const ISFileName* name = marked ? marked->FileName : nullptr;
    AreDistinct = AreDistinct && name;
    // The list holds sources that callers may edit.
    Ordered.push_back({const_cast<IHdlSourceFile*>(file), name});
}

void TCompileOrder::Descend(const TIHdlSourceFileList* dependencies, TVisit* visit) {
    if (!dependencies) return;
    visit->Next = dependencies->begin();
    visit->End = dependencies->end();
    // The walk jumps about in memory: what it needs next is on its way while it looks at the first.
    for (auto next = visit->Next; next != visit->End; ++next) FetchAhead(*next);
}
