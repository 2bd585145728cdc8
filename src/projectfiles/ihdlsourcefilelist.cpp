#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/dependencyindex.h"
#include "projectfiles/hdlprojectsourcefile.h"
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/sourcenametable.h"
#include "services/base/keeper.h"
#include <algorithm>
#include <functional>
#include <new>
#include <utility>
#include <vector>

namespace {

// So many names are compared one by one.
constexpr std::size_t kFewEntries = 8;

thread_local unsigned long long listChangeCount = 0;

// No count of changed handles gets there.
constexpr unsigned long long kNamesNeverCurrent = ~0ULL;

struct TSourceEnd {
    void operator()(THdlSourceFile* source) const { DeleteWithDependencies(source); }
};

}  // namespace

/// What only long and watched lists have.
struct TIHdlSourceFileList::TNames {
    TSourceNameTable<TEntry*> Places;
    bool HasPlaces = false;
    // Entries that were made together; none of them is freed alone.
    std::vector<TEntry> Together;
    bool AreHandles = false;  // the names of these, until somebody asks for a name
    std::vector<TDependencyIndex*> Indexes;

    bool IsOneOfMany(const TEntry* entry) const {
        const std::less<const TEntry*> isBefore;
        return !isBefore(entry, Together.data()) &&
               isBefore(entry, Together.data() + Together.size());
    }
};

TIHdlSourceFileList::TIHdlSourceFileList() = default;

TIHdlSourceFileList::TIHdlSourceFileList(const TIHdlSourceFileList& other) {
    *this = other;
}

TIHdlSourceFileList& TIHdlSourceFileList::operator=(const TIHdlSourceFileList& other) {
    if (this == &other) return *this;
    // The former sources stay when memory runs out.
    TIHdlSourceFileList made;
    for (IHdlSourceFile* file : other) {
        TSourceName name;
        GetSourceName(file, &name);
        made.Link(&made.Ring, file, name, made.Find(name) != nullptr);
    }
    Language = other.Language;
    Flush();
    TakeAll(&made);
    return *this;
}

TIHdlSourceFileList::~TIHdlSourceFileList() {
    if (Source == NO_SOURCE) ForgetKept(this);
    if (Names)
        for (TDependencyIndex* index : Names->Indexes) {
            ReportAllAsRemoved(index);
            index->Gone(this);
        }
    DropAll();
}

bool TIHdlSourceFileList::AddSourceFile(IHdlSourceFile* file, bool atHead) {
    if (!file) return false;
    TSourceName name;
    GetSourceName(file, &name);
    if (const TEntry* listed = Find(name)) {
        ReportNamesake(listed->File->GetFileName(), file->GetFileName());
        return false;
    }
    Link(atHead ? Ring.Next : &Ring, file, name, false);
    return true;
}

bool TIHdlSourceFileList::AddNamed(IHdlSourceFile* file, const TFileIdentity& name) {
    if (Find(name)) return false;
    AddUnlisted(file, name);
    return true;
}

bool TIHdlSourceFileList::AddSourceFile(const char* name) {
    std::unique_ptr<THdlSourceFile, TSourceEnd> file(new THdlSourceFile(name));
    if (!AddSourceFile(file.get(), false)) return false;
    KeepUntilExit(file.release());
    return true;
}

IHdlSourceFile* TIHdlSourceFileList::GetSourceFile(const ISFileName* name) {
    const TEntry* entry = FindEntry(name);
    return entry ? entry->File : nullptr;
}

const IHdlSourceFile* TIHdlSourceFileList::GetSourceFile(const ISFileName* name) const {
    const TEntry* entry = FindEntry(name);
    return entry ? entry->File : nullptr;
}

IHdlSourceFile* TIHdlSourceFileList::GetSourceFileOrDependency(const ISFileName* name) {
    if (IHdlSourceFile* file = GetSourceFile(name)) return file;
    for (IHdlSourceFile* file : *this)
        if (IHdlSourceFile* dependency = file->GetDependency(name)) return dependency;
    return nullptr;
}

const IHdlSourceFile* TIHdlSourceFileList::GetSourceFileOrDependency(const ISFileName* name) const {
    if (const IHdlSourceFile* file = GetSourceFile(name)) return file;
    for (const IHdlSourceFile* file : *this)
        if (const IHdlSourceFile* dependency = file->GetDependency(name)) return dependency;
    return nullptr;
}

bool TIHdlSourceFileList::RemoveSourceFile(IHdlSourceFile* file) {
    if (!file) return false;
    TEntry* entry = FindEntry(file->GetFileName());
    if (!entry) return false;
    if (AreNamesShared)
        UnlinkEvery(file);
    else if (entry->File == file)
        Unlink(entry);
    return true;
}

bool TIHdlSourceFileList::RemoveSourceFile(THdlProjectSourceFile* file) {
    IHdlSourceFile* source = file;
    return RemoveSourceFile(source);
}

bool TIHdlSourceFileList::RemoveSourceFile(const ISFileName* name) {
    TEntry* entry = FindEntry(name);
    if (!entry) return false;
    if (AreNamesShared)
        UnlinkEvery(entry->File);
    else
        Unlink(entry);
    return true;
}

void TIHdlSourceFileList::Flush() {
    if (!empty()) ++listChangeCount;
    if (Names)
        for (TDependencyIndex* index : Names->Indexes) ReportAllAsRemoved(index);
    DropAll();
    NameCount = THdlSourceFile::GetHandleChangeCount();
}

void TIHdlSourceFileList::DropAll() {
    while (Ring.Next != &Ring) Drop(static_cast<TEntry*>(Ring.Next));
    AreNamesShared = false;
    if (!Names) return;
    Names->Places.Clear();
    Names->HasPlaces = false;
    Names->Together = {};
    Names->AreHandles = false;
}

// Into the empty list. `other` has its entries one by one, and no index watches it.
void TIHdlSourceFileList::TakeAll(TIHdlSourceFileList* other) {
    if (other->empty()) return;
    ++listChangeCount;
    Ring = other->Ring;
    Ring.Next->Previous = &Ring;
    Ring.Previous->Next = &Ring;
    other->Ring = {&other->Ring, &other->Ring};
    Count = std::exchange(other->Count, 0);
    IsFilled = true;
    AreNamesShared = other->AreNamesShared;
    NameCount = other->NameCount;
    if (!Names) {
        Names = std::move(other->Names);
        return;
    }
    if (other->Names) {
        Names->Places = std::move(other->Names->Places);
        Names->HasPlaces = other->Names->HasPlaces;
    }
    for (TDependencyIndex* index : Names->Indexes) ReportAllAsAdded(index);
}

TIHdlSourceFileList::TNames& TIHdlSourceFileList::MadeNames() const {
    if (!Names) Names = std::make_unique<TNames>();
    return *Names;
}

TIHdlSourceFileList::TEntry* TIHdlSourceFileList::FindEntry(const ISFileName* name) const {
    TSourceName key;
    return GetSourceName(name, &key) ? Find(key) : nullptr;
}

// Null for the name of no file.
TIHdlSourceFileList::TEntry* TIHdlSourceFileList::Find(const TFileIdentity& name) const {
    if (empty() || name.IsNone()) return nullptr;
    RefreshNames();
    NameHandles();
    return FindNamed(name);
}

// Among the names that are known; never touches a source.
TIHdlSourceFileList::TEntry* TIHdlSourceFileList::FindNamed(const TFileIdentity& name) const {
    if (name.IsNone()) return nullptr;
    if (Count > kFewEntries && !(Names && Names->HasPlaces)) MakePlaces();
    if (Names && Names->HasPlaces) {
        TEntry* const* found = Names->Places.Find(name);
        return found ? *found : nullptr;
    }
    for (TLink* link = Ring.Next; link != &Ring; link = link->Next)
        if (auto* entry = static_cast<TEntry*>(link); entry->Name == name) return entry;
    return nullptr;
}

// `isShared` tells whether an entry has the name already.
void TIHdlSourceFileList::Link(TLink* before, IHdlSourceFile* file, const TFileIdentity& name,
                               bool isShared) {
    NameHandles();
    auto made = std::make_unique<TEntry>(TEntry{{nullptr, nullptr}, file, name});
    TEntry* const entry = made.get();
    if (Names && Names->HasPlaces && !name.IsNone()) Names->Places.Add(name, entry);
    Insert(made.release(), before);
    AreNamesShared = AreNamesShared || isShared;
    if (!Names) return;
    const TSourceName* found = isShared || name.IsNone() ? nullptr : &name;
    for (TDependencyIndex* index : Names->Indexes) index->Added(this, file, found);
}

void TIHdlSourceFileList::Insert(TEntry* entry, TLink* before) {
    ++listChangeCount;
    if (empty()) NameCount = THdlSourceFile::GetHandleChangeCount();
    entry->Previous = before->Previous;
    entry->Next = before;
    before->Previous->Next = entry;
    before->Previous = entry;
    ++Count;
    IsFilled = true;
}

// For a list in which no two entries share a name.
void TIHdlSourceFileList::Unlink(TEntry* entry) {
    ++listChangeCount;
    if (Names) {
        for (TDependencyIndex* index : Names->Indexes)
            index->Removed(this, entry->File, &entry->Name);
        if (!entry->Name.IsNone()) Names->Places.Remove(entry->Name);
    }
    Drop(entry);
}

void TIHdlSourceFileList::UndoAdd(bool atHead) {
    Unlink(static_cast<TEntry*>(atHead ? Ring.Next : Ring.Previous));
}

void TIHdlSourceFileList::UnlinkEvery(const IHdlSourceFile* file) {
    ++listChangeCount;
    if (Names)
        for (TDependencyIndex* index : Names->Indexes) ReportAllAsRemoved(index);
    for (TLink* link = Ring.Next; link != &Ring;) {
        auto* entry = static_cast<TEntry*>(link);
        link = link->Next;
        if (entry->File == file) Drop(entry);
    }
    try {
        RebuildNames();
    } catch (const std::bad_alloc&) {
        // They are dropped all the same: the next look-up looks at the names.
        if (Names)
            for (TDependencyIndex* index : Names->Indexes) index->LoseTrack();
        return;
    }
    if (Names)
        for (TDependencyIndex* index : Names->Indexes) ReportAllAsAdded(index);
}

void TIHdlSourceFileList::Drop(TEntry* entry) {
    entry->Previous->Next = entry->Next;
    entry->Next->Previous = entry->Previous;
    --Count;
    if (!Names || !Names->IsOneOfMany(entry)) delete entry;
}

void TIHdlSourceFileList::RefreshNames() const {
    if (NameCount != THdlSourceFile::GetHandleChangeCount()) RebuildNames();
}

// Looks at the entries again: some may have another name now, and two may share one.
void TIHdlSourceFileList::RebuildNames() const {
    const auto count = THdlSourceFile::GetHandleChangeCount();
    NameCount = kNamesNeverCurrent;
    AreNamesShared = false;
    if (Names) {
        Names->Places.Clear();
        Names->HasPlaces = false;
        Names->AreHandles = false;
    }
    TSourceNameTable<TEntry*> places;
    for (TLink* link = Ring.Next; link != &Ring; link = link->Next) {
        auto* entry = static_cast<TEntry*>(link);
        if (GetSourceName(entry->File, &entry->Name) && !places.Add(entry->Name, entry).second)
            AreNamesShared = true;
    }
    if (Count > kFewEntries) {
        MadeNames().Places = std::move(places);
        Names->HasPlaces = true;
    }
    NameCount = count;
}

// Turns the handles in the entries into names.
void TIHdlSourceFileList::NameHandles() const {
    if (!Names || !Names->AreHandles) return;
    Names->AreHandles = false;
    for (TEntry& entry : Names->Together) entry.Name = GetFileIdentity(entry.Name.GetFile());
}

void TIHdlSourceFileList::MakePlaces() const {
    TSourceNameTable<TEntry*> places;
    for (TLink* link = Ring.Next; link != &Ring; link = link->Next) {
        auto* entry = static_cast<TEntry*>(link);
        if (!entry->Name.IsNone()) places.Add(entry->Name, entry);
    }
    MadeNames().Places = std::move(places);
    Names->HasPlaces = true;
}

bool TIHdlSourceFileList::HasDistinctNames() const {
    RefreshNames();
    return !AreNamesShared;
}

void TIHdlSourceFileList::FillDistinct(const std::vector<TNamedSource>& sources) {
    if (sources.empty()) return;
    TNames& names = MadeNames();
    names.Together.reserve(sources.size());
    for (const TNamedSource& source : sources)
        names.Together.push_back({{nullptr, nullptr}, source.File, TFileIdentity(source.Name)});
    TLink* last = &Ring;
    for (TEntry& entry : names.Together) {
        entry.Previous = last;
        last->Next = &entry;
        last = &entry;
    }
    last->Next = &Ring;
    Ring.Previous = last;
    Count = sources.size();
    IsFilled = true;
    NameCount = THdlSourceFile::GetHandleChangeCount();
    names.AreHandles = true;
    ++listChangeCount;
    if (names.Indexes.empty()) return;
    NameHandles();
    for (TDependencyIndex* index : names.Indexes) ReportAllAsAdded(index);
}

void TIHdlSourceFileList::ReportTo(TDependencyIndex* index) {
    MadeNames().Indexes.push_back(index);
    RefreshNames();
    NameHandles();
    ReportAllAsAdded(index);
}

void TIHdlSourceFileList::StopReportingTo(TDependencyIndex* index) {
    // An index that got no memory may not have been noted.
    if (!Names) return;
    auto& indexes = Names->Indexes;
    const auto noted = std::find(indexes.begin(), indexes.end(), index);
    if (noted != indexes.end()) indexes.erase(noted);
}

void TIHdlSourceFileList::ReportAllAsAdded(TDependencyIndex* index) {
    ReportAll(index, &TDependencyIndex::Added);
}

void TIHdlSourceFileList::ReportAllAsRemoved(TDependencyIndex* index) {
    ReportAll(index, &TDependencyIndex::Removed);
}

void TIHdlSourceFileList::ReportAll(TDependencyIndex* index, TReport report) {
    const bool isGroup = index->IsGroup(this);
    try {
        for (TLink* link = Ring.Next; link != &Ring; link = link->Next) {
            const auto* entry = static_cast<const TEntry*>(link);
            if (isGroup)
                (index->*report)(this, entry->File, nullptr);
            else if (FindNamed(entry->Name) == entry)
                (index->*report)(this, entry->File, &entry->Name);
        }
    } catch (const std::bad_alloc&) {
        index->LoseTrack();
    }
}

unsigned long long TIHdlSourceFileList::GetListChangeCount() {
    return listChangeCount;
}
