#include "projectfiles/dependencyindex.h"
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include <new>
#include <tuple>

namespace {

// No count of changed handles gets there.
constexpr unsigned long long kNeverCurrent = ~0ULL;
// While it is built: other threads may change handles of theirs, and nothing may be left out.
constexpr unsigned long long kBuilding = kNeverCurrent - 1;

}  // namespace

TDependencyIndex::~TDependencyIndex() {
    Drop();
}

bool TDependencyIndex::Find(const ISFileName* name, IHdlSourceFile** found) {
    *found = nullptr;
    TSourceName key;
    if (!GetSourceName(name, &key)) return true;
    if (!IsCurrent()) Build();
    if (EntriesWithoutList > 0) return false;
    const auto uses = Uses.find(key);
    if (uses == Uses.end()) return true;
    *found = uses->second.First;
    return !uses->second.Others;
}

void TDependencyIndex::Added(TIHdlSourceFileList* list, IHdlSourceFile* source,
                             const TSourceName* name) {
    if (!IsCurrent()) return;
    try {
        if (IsGroup(list))
            EntryAdded(source);
        else if (name)
            AddUse(source, *name);
    } catch (const std::bad_alloc&) {
        // The list has its source all the same.
        LoseTrack();
    }
}

void TDependencyIndex::Removed(TIHdlSourceFileList* list, IHdlSourceFile* source,
                               const TSourceName* name) {
    if (!IsCurrent()) return;
    try {
        if (IsGroup(list))
            EntryRemoved(source);
        else if (name)
            RemoveUse(source, *name);
    } catch (const std::bad_alloc&) {
        LoseTrack();
    }
}

void TDependencyIndex::LoseTrack() {
    HandleChangeCount = kNeverCurrent;
}

void TDependencyIndex::Gone(TIHdlSourceFileList* list) {
    const auto watched = Lists.find(list);
    if (watched == Lists.end()) return;
    const auto entry = Entries.find(watched->second.Entry);
    if (entry != Entries.end()) entry->second.Dependencies = nullptr;
    Lists.erase(watched);
}

bool TDependencyIndex::IsCurrent() const {
    return IsBuilt && (HandleChangeCount == kBuilding ||
                       HandleChangeCount == THdlSourceFile::GetHandleChangeCount());
}

void TDependencyIndex::Build() {
    Drop();
    IsBuilt = true;
    const auto count = THdlSourceFile::GetHandleChangeCount();
    HandleChangeCount = kBuilding;
    try {
        Entries.reserve(Group->size());
        Lists.reserve(Group->size());
        Uses.reserve(Group->size());
        Group->ReportTo(this);
        if (HandleChangeCount == kNeverCurrent) throw std::bad_alloc();
        HandleChangeCount = count;
    } catch (const std::bad_alloc&) {
        Drop();
        throw;
    }
}

void TDependencyIndex::Drop() {
    if (!IsBuilt) return;
    Group->StopReportingTo(this);
    for (const auto& [list, watch] : Lists) list->StopReportingTo(this);
    IsBuilt = false;
    EntriesWithoutList = 0;
    Lists.clear();
    Entries.clear();
    Uses.clear();
}

void TDependencyIndex::EntryAdded(IHdlSourceFile* source) {
    const auto [entry, isNew] = Entries.try_emplace(source, TEntry{nullptr, 0, false});
    if (isNew) {
        entry->second.Dependencies = source->GetDependencyList();
        entry->second.HasList = entry->second.Dependencies != nullptr;
        if (!entry->second.HasList) ++EntriesWithoutList;
        Watch(entry->second.Dependencies, source);
    }
    ++entry->second.Count;
}

// Does not touch the source, which may be gone.
void TDependencyIndex::EntryRemoved(IHdlSourceFile* source) {
    const auto entry = Entries.find(source);
    if (entry == Entries.end() || --entry->second.Count > 0) return;
    if (!entry->second.HasList) --EntriesWithoutList;
    Unwatch(entry->second.Dependencies);
    Entries.erase(entry);
}

void TDependencyIndex::Watch(TIHdlSourceFileList* list, IHdlSourceFile* entry) {
    if (!list) return;
    if (++Lists.try_emplace(list, TWatch{entry, 0}).first->second.Count == 1) list->ReportTo(this);
}

void TDependencyIndex::Unwatch(TIHdlSourceFileList* list) {
    const auto watched = Lists.find(list);
    if (watched == Lists.end() || --watched->second.Count > 0) return;
    list->ReportAllAsRemoved(this);
    list->StopReportingTo(this);
    Lists.erase(watched);
}

void TDependencyIndex::AddUse(IHdlSourceFile* source, const TSourceName& name) {
    TUses& uses = Uses[name];
    if (!uses.First) uses.First = source;
    if (uses.First == source) {
        ++uses.FirstCount;
        return;
    }
    if (!uses.Others) uses.Others = std::make_unique<std::map<IHdlSourceFile*, std::size_t>>();
    ++(*uses.Others)[source];
}

void TDependencyIndex::RemoveUse(IHdlSourceFile* source, const TSourceName& name) {
    const auto found = Uses.find(name);
    if (found == Uses.end()) return;
    TUses& uses = found->second;
    if (uses.First == source) {
        if (--uses.FirstCount > 0) return;
        if (!uses.Others) {
            Uses.erase(found);
            return;
        }
        std::tie(uses.First, uses.FirstCount) = *uses.Others->begin();
        uses.Others->erase(uses.Others->begin());
    } else if (uses.Others && uses.Others->count(source) && --(*uses.Others)[source] == 0) {
        uses.Others->erase(source);
    }
    if (uses.Others && uses.Others->empty()) uses.Others.reset();
}
