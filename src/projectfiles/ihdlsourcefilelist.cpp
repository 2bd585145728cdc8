#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/dependencyindex.h"
#include "projectfiles/hdlprojectsourcefile.h"
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/sourcenametable.h"
#include "services/base/keeper.h"
#include <algorithm>
#include <vector>

/// What a list knows of the names of its entries.
struct TIHdlSourceFileList::TNames {
    TSourceNameTable Places;
    // Sources that were assigned names after they were added may share one: the first one has it.
    bool AreShared = false;
    bool WasFilled = false;
    unsigned long long ChangeCount = THdlSourceFile::GetHandleChangeCount();
    std::vector<TDependencyIndex*> Indexes;
};

TIHdlSourceFileList::TIHdlSourceFileList() = default;

TIHdlSourceFileList::TIHdlSourceFileList(const TIHdlSourceFileList& other) {
    *this = other;
}

TIHdlSourceFileList& TIHdlSourceFileList::operator=(const TIHdlSourceFileList& other) {
    Language = other.Language;
    if (this == &other) return *this;
    Flush();
    for (IHdlSourceFile* file : other.Entries) {
        TSourceName name;
        const bool isNamed = GetSourceName(file, &name);
        Link(Entries.end(), file, isNamed ? &name : nullptr);
    }
    return *this;
}

TIHdlSourceFileList::~TIHdlSourceFileList() {
    ForgetKept(this);
    if (!Names) return;
    for (TDependencyIndex* index : Names->Indexes) {
        ReportAllAsRemoved(index);
        index->Gone(this);
    }
}

bool TIHdlSourceFileList::AddSourceFile(IHdlSourceFile* file, bool atHead) {
    if (!file) return false;
    TSourceName name;
    const bool isNamed = GetSourceName(file, &name);
    if (const TPlace listed = isNamed ? Find(name) : Entries.end(); listed != Entries.end()) {
        ReportNamesake((*listed)->GetFileName(), file->GetFileName());
        return false;
    }
    Link(atHead ? Entries.begin() : Entries.end(), file, isNamed ? &name : nullptr);
    return true;
}

bool TIHdlSourceFileList::AddSourceFile(const char* name) {
    auto* file = new THdlSourceFile(name);
    if (!AddSourceFile(file, false)) {
        DeleteWithDependencies(file);
        return false;
    }
    KeepUntilExit(file);
    return true;
}

IHdlSourceFile* TIHdlSourceFileList::GetSourceFile(const ISFileName* name) {
    TSourceName key;
    if (!GetSourceName(name, &key)) return nullptr;
    const TPlace place = Find(key);
    return place == Entries.end() ? nullptr : *place;
}

const IHdlSourceFile* TIHdlSourceFileList::GetSourceFile(const ISFileName* name) const {
    TSourceName key;
    if (!GetSourceName(name, &key)) return nullptr;
    const TPlace place = Find(key);
    return place == Entries.end() ? nullptr : *place;
}

IHdlSourceFile* TIHdlSourceFileList::GetSourceFileOrDependency(const ISFileName* name) {
    if (IHdlSourceFile* file = GetSourceFile(name)) return file;
    for (IHdlSourceFile* file : Entries)
        if (IHdlSourceFile* dependency = file->GetDependency(name)) return dependency;
    return nullptr;
}

const IHdlSourceFile* TIHdlSourceFileList::GetSourceFileOrDependency(const ISFileName* name) const {
    if (const IHdlSourceFile* file = GetSourceFile(name)) return file;
    for (const IHdlSourceFile* file : Entries)
        if (const IHdlSourceFile* dependency = file->GetDependency(name)) return dependency;
    return nullptr;
}

bool TIHdlSourceFileList::RemoveSourceFile(IHdlSourceFile* file) {
    TSourceName name;
    if (!file || !GetSourceName(file, &name)) return false;
    const TPlace place = Find(name);
    if (place == Entries.end()) return false;
    if (Names->AreShared)
        UnlinkEvery(file);
    else if (*place == file)
        Unlink(place, name);
    return true;
}

bool TIHdlSourceFileList::RemoveSourceFile(THdlProjectSourceFile* file) {
    IHdlSourceFile* source = file;
    return RemoveSourceFile(source);
}

bool TIHdlSourceFileList::RemoveSourceFile(const ISFileName* name) {
    TSourceName key;
    if (!GetSourceName(name, &key)) return false;
    const TPlace place = Find(key);
    if (place == Entries.end()) return false;
    if (Names->AreShared)
        UnlinkEvery(*place);
    else
        Unlink(place, key);
    return true;
}

void TIHdlSourceFileList::Flush() {
    if (!Names) return;
    for (TDependencyIndex* index : Names->Indexes) ReportAllAsRemoved(index);
    Entries.clear();
    Names->Places.Clear();
    Names->AreShared = false;
    Names->ChangeCount = THdlSourceFile::GetHandleChangeCount();
}

TIHdlSourceFileList::TNames& TIHdlSourceFileList::MadeNames() const {
    if (!Names) Names = std::make_unique<TNames>();
    return *Names;
}

TIHdlSourceFileList::TPlace TIHdlSourceFileList::Find(const TSourceName& name) const {
    if (!Names) return Entries.end();
    if (Names->ChangeCount != THdlSourceFile::GetHandleChangeCount()) RebuildNames();
    const TPlace* found = Names->Places.Find(name);
    return found ? *found : Entries.end();
}

// `name` is null for a source without one.
void TIHdlSourceFileList::Link(TPlace before, IHdlSourceFile* file, const TSourceName* name) {
    TNames& names = MadeNames();
    const TPlace place = Entries.insert(before, file);
    names.WasFilled = true;
    if (name && !names.Places.Add(*name, place)) {
        names.AreShared = true;
        name = nullptr;
    }
    for (TDependencyIndex* index : names.Indexes) index->Added(this, file, name);
}

// For a list in which no two entries share a name.
void TIHdlSourceFileList::Unlink(TPlace place, const TSourceName& name) {
    for (TDependencyIndex* index : Names->Indexes) index->Removed(this, *place, &name);
    Names->Places.Remove(name);
    Entries.erase(place);
}

void TIHdlSourceFileList::UnlinkEvery(const IHdlSourceFile* file) {
    for (TDependencyIndex* index : Names->Indexes) ReportAllAsRemoved(index);
    Entries.remove_if([file](const IHdlSourceFile* entry) { return entry == file; });
    RebuildNames();
    for (TDependencyIndex* index : Names->Indexes) ReportAllAsAdded(index);
}

void TIHdlSourceFileList::RebuildNames() const {
    Names->Places.Clear();
    Names->AreShared = false;
    Names->ChangeCount = THdlSourceFile::GetHandleChangeCount();
    for (TPlace place = Entries.begin(); place != Entries.end(); ++place) {
        TSourceName name;
        if (GetSourceName(*place, &name) && !Names->Places.Add(name, place))
            Names->AreShared = true;
    }
}

void TIHdlSourceFileList::ReportTo(TDependencyIndex* index) {
    TNames& names = MadeNames();
    names.Indexes.push_back(index);
    if (names.ChangeCount != THdlSourceFile::GetHandleChangeCount()) RebuildNames();
    ReportAllAsAdded(index);
}

void TIHdlSourceFileList::StopReportingTo(TDependencyIndex* index) {
    auto& indexes = Names->Indexes;
    indexes.erase(std::find(indexes.begin(), indexes.end(), index));
}

void TIHdlSourceFileList::ReportAllAsAdded(TDependencyIndex* index) {
    if (index->IsGroup(this)) {
        for (IHdlSourceFile* file : Entries) index->Added(this, file, nullptr);
        return;
    }
    Names->Places.ForEach([this, index](const TSourceName& name, TPlace place) {
        index->Added(this, *place, &name);
    });
}

void TIHdlSourceFileList::ReportAllAsRemoved(TDependencyIndex* index) {
    if (index->IsGroup(this)) {
        for (IHdlSourceFile* file : Entries) index->Removed(this, file, nullptr);
        return;
    }
    Names->Places.ForEach([this, index](const TSourceName& name, TPlace place) {
        index->Removed(this, *place, &name);
    });
}

bool TIHdlSourceFileList::WasFilled() const {
    return Names && Names->WasFilled;
}

void TIHdlSourceFileList::ForgetFilling() {
    if (Names) Names->WasFilled = false;
}
