#include "projectfiles/groupsreading.h"
#include "projectfiles/readsources.h"
#include "services/base/fold.h"
#include <typeinfo>
#include <utility>

bool TGroupsReading::Find(const ISFileName* name, TSourceNote* note) {
    Expect();
    TSourceName key;
    if (!AreNotesComplete || !GetSourceName(name, &key)) return false;
    const std::string_view text = GetSharedText(key.GetFile());
    const TSourceNote* found = Notes.Find(text, HashIgnoringCase(text));
    *note = found ? *found : TSourceNote();
    return true;
}

void TGroupsReading::LookAheadFrom(const ISFileName* file, bool asksForAll) {
    Ahead = std::make_unique<TNamesAhead>(file, &Notes);
    AsksForAll = asksForAll;
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
}

const ISFileName* TGroupsReading::FindHandle(const char* name, const ISFileName* file) {
    return Ahead && name ? Ahead->FindHandle(name, file) : nullptr;
}

void TGroupsReading::AnnounceMore() {
    for (; !Ahead->IsFull() && Announced.NotAtTail(); ++Announced) {
        if (IsAtEnd(Announced, "SourceFileGroup")) return;
        if (IsAtStart(Announced)) IsSourceAnnounced = IsAtStart(Announced, "SourceFile");
        if (IsAtText(Announced)) Ahead->Announce(TrimmedTextView(Announced), IsSourceAnnounced);
    }
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
TSourceNote* TGroupsReading::NoteOf(IHdlSourceFile* source) {
    TSourceName name;
    if (!AreNotesComplete || !GetSourceName(source, &name)) return nullptr;
    TSourceNote* note = Notes.FindOrAdd(source->GetFileName());
    if (!note->Source) note->Source = source;
    // The order of the groups decides between two.
    AreNotesComplete = note->Source == source;
    return note;
}

void TGroupsReading::AddTo(TIHdlSourceFileList* group, IHdlSourceFile* source) {
    Expect();
    const bool wasAdded = Take(group, source);
    CatchUp();
    if (!source || !AreNotesComplete) return;
    // What a source of a caller's class depends on, and one that a namesake keeps out of the group,
    // has to be looked for.
    const bool isListed = wasAdded || group->GetSourceFile(source->GetFileName()) == source;
    AreNotesComplete = isListed && typeid(*source) == typeid(TReadSourceFile);
    if (TSourceNote* note = NoteOf(source)) note->IsListed = true;
}

// A group need not look for a name that the notes know to be in none.
bool TGroupsReading::Take(TIHdlSourceFileList* group, IHdlSourceFile* source) {
    TSourceName name;
    if (!source || !AreNotesComplete || !GetSourceName(source, &name))
        return group->AddSourceFile(source, false);
    const TSourceNote* note = Notes.FindOrAdd(source->GetFileName());
    if (note->IsListed) return group->AddSourceFile(source, false);
    group->AddUnlisted(source, name);
    return true;
}

void TGroupsReading::AddTo(IHdlSourceFile* source, IHdlSourceFile* dependency) {
    Expect();
    const bool wasAdded = source->AddDependency(dependency);
    CatchUp();
    if (!wasAdded) return;
    if (TSourceNote* note = NoteOf(dependency)) note->IsDependency = true;
}

bool TGroupsReading::AddKnown(std::string_view name, IHdlSourceFile* source) {
    Expect();
    if (AsksForAll || !AreNotesComplete || typeid(*source) != typeid(TReadSourceFile)) return false;
    TSourceNote* const note = Ahead ? Ahead->FindNote(name) : nullptr;
    if (!note || !(note->IsListed || note->IsDependency)) return false;
    const bool wasAdded =
        source->GetDependencyList()->AddNamed(note->Source, GetFileIdentity(note->Name));
    CatchUp();
    if (wasAdded) note->IsDependency = true;
    return true;
}

bool TGroupsReading::IsNew(const IHdlSourceFile& source) {
    TSourceName name;
    if (!GetSourceName(&source, &name)) return false;
    return !std::exchange(Notes.FindOrAdd(source.GetFileName())->IsMet, true);
}
