#include "projectfiles/groupsreading.h"
#include "projectfiles/readsources.h"
#include "services/base/fetchahead.h"
#include <typeinfo>
#include <utility>

bool TGroupsReading::Find(const ISFileName* name, TNote* note) {
    Expect();
    TSourceName key;
    if (!AreNotesComplete || !GetSourceName(name, &key)) return false;
    const TNote* found = Notes.Find(key);
    *note = found ? *found : TNote();
    return true;
}

void TGroupsReading::BeginGroup(const TElementIterator& element) {
    if (!Ahead) return;
    Ahead->DropAll();
    Announced = element;
    AnnounceMore();
}

void TGroupsReading::MeetText(const TElementIterator& element) {
    IsAtName = Ahead && IsAtText(element);
    // A text that no reader asks for was announced: what follows cannot be told.
    if (IsAtName && !Ahead->IsNext(Text)) LoseTrack();
}

void TGroupsReading::LeaveText() {
    if (!Ahead || !IsAtName) return;
    Ahead->DropNext();
    AnnounceMore();
    FetchNotes();
}

const ISFileName* TGroupsReading::FindHandle(const char* name, const ISFileName* file) {
    return Ahead && name ? Ahead->FindNext(name, file) : nullptr;
}

void TGroupsReading::AnnounceMore() {
    for (; !Ahead->IsFull() && Announced.NotAtTail(); ++Announced) {
        if (IsAtEnd(Announced, "SourceFileGroup")) return;
        if (IsAtText(Announced)) Ahead->Announce(TrimmedTextView(Announced));
    }
}

// Has what is noted of the names ahead, and their sources, on the way from memory.
void TGroupsReading::FetchNotes() {
    constexpr std::size_t kNote = 4;
    constexpr std::size_t kSource = 2;
    if (const ISFileName* name = Ahead->Peek(kNote))
        if (const TNote* note = Notes.Find(GetFileIdentity(name))) __builtin_prefetch(note);
    if (const ISFileName* name = Ahead->Peek(kSource))
        if (const TNote* note = Notes.Find(GetFileIdentity(name))) FetchAhead(note->Source);
}

void TGroupsReading::CatchUp() {
    ListChanges = TIHdlSourceFileList::GetListChangeCount();
    NameChanges = THdlSourceFile::GetHandleChangeCount();
}

bool TGroupsReading::IsUnchanged() const {
    return ListChanges == TIHdlSourceFileList::GetListChangeCount() &&
           NameChanges == THdlSourceFile::GetHandleChangeCount();
}

// Null when the notes do not tell all any more, and for a source without a name.
TGroupsReading::TNote* TGroupsReading::NoteOf(IHdlSourceFile* source) {
    TSourceName name;
    if (!AreNotesComplete || !GetSourceName(source, &name)) return nullptr;
    TNote* note = Notes.Add(name, {}).first;
    if (!note->Source) note->Source = source;
    // The order of the groups decides between two.
    AreNotesComplete = note->Source == source;
    return note;
}

void TGroupsReading::NoteSource(IHdlSourceFile* source, const TIHdlSourceFileList& group,
                                bool wasAdded) {
    if (!source || !AreNotesComplete) return;
    // What a source of a caller's class depends on, and one that a namesake keeps out of the group,
    // has to be looked for.
    const bool isListed = wasAdded || group.GetSourceFile(source->GetFileName()) == source;
    AreNotesComplete = isListed && typeid(*source) == typeid(TReadSourceFile);
    if (TNote* note = NoteOf(source)) note->IsListed = true;
}

void TGroupsReading::NoteDependency(IHdlSourceFile* dependency) {
    if (TNote* note = NoteOf(dependency)) note->IsDependency = true;
}

bool TGroupsReading::IsNew(const IHdlSourceFile& source) {
    TSourceName name;
    if (!GetSourceName(&source, &name)) return false;
    TNote* note = Notes.Add(name, {}).first;
    return !std::exchange(note->IsMet, true);
}
