#include "projectfiles/groupsreading.h"
#include "projectfiles/readsources.h"
#include <typeinfo>
#include <utility>

bool TGroupsReading::FindDependency(const ISFileName* name, IHdlSourceFile** found) {
    Expect();
    TSourceName key;
    if (!AreNotesComplete || !GetSourceName(name, &key)) return false;
    const TNote* note = Notes.Find(key);
    *found = note ? note->Dependency : nullptr;
    return true;
}

void TGroupsReading::CatchUp() {
    ListChanges = TIHdlSourceFileList::GetListChangeCount();
    NameChanges = THdlSourceFile::GetHandleChangeCount();
}

bool TGroupsReading::IsUnchanged() const {
    return ListChanges == TIHdlSourceFileList::GetListChangeCount() &&
           NameChanges == THdlSourceFile::GetHandleChangeCount();
}

void TGroupsReading::NoteSource(const IHdlSourceFile* source, const TIHdlSourceFileList& group,
                                bool wasAdded) {
    if (!source || !AreNotesComplete) return;
    // What a source of a caller's class depends on, and one that a namesake keeps out of the group,
    // has to be looked for.
    const bool isListed = wasAdded || group.GetSourceFile(source->GetFileName()) == source;
    AreNotesComplete = isListed && typeid(*source) == typeid(TReadSourceFile);
}

void TGroupsReading::NoteDependency(IHdlSourceFile* dependency) {
    TSourceName name;
    if (!AreNotesComplete || !GetSourceName(dependency, &name)) return;
    TNote* note = Notes.Add(name, {}).first;
    if (!note->Dependency) note->Dependency = dependency;
    // The order of the groups decides between two.
    AreNotesComplete = note->Dependency == dependency;
}

bool TGroupsReading::IsNew(const IHdlSourceFile& source) {
    TSourceName name;
    if (!GetSourceName(&source, &name)) return false;
    TNote* note = Notes.Add(name, {}).first;
    return !std::exchange(note->IsMet, true);
}
