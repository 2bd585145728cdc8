#include "projectfiles/namesahead.h"
#include "services/base/fetchahead.h"
#include "services/base/fold.h"
#include "services/files/filenameparts.h"
#include "services/files/pathtext.h"

TNamesAhead::TNamesAhead(const ISFileName* file, TSourceNotes* notes)
    : File(file), Notes(notes), Directory(file->GetParts(PART_DIRECTORY)) {}

void TNamesAhead::Announce(std::string_view text, bool isSourceNeeded) {
    TName& name = At(Count++);
    name.Text = text;
    name.IsRelative = !text.empty() && IsRelativePath(name.Text.c_str());
    name.IsSourceNeeded = isSourceNeeded;
    if (!name.IsRelative) return;
    name.Path = Directory.Resolve(text);
    name.Hash = HashIgnoringCase(name.Path);
    Notes->FetchNote(name.Hash);
}

TSourceNote* TNamesAhead::FindNote(std::string_view text) {
    if (!IsNext(text) || !At(0).IsRelative) return nullptr;
    TSourceNote* const note = Notes->Find(At(0).Path, At(0).Hash);
    return note && GetSharedText(note->Name) == At(0).Path ? note : nullptr;
}

const ISFileName* TNamesAhead::FindHandle(std::string_view text, const ISFileName* file) {
    if (!IsNext(text) || file != File || !At(0).IsRelative) return nullptr;
    if (const TSourceNote* note = FindNote(text)) return note->Name;
    return NewHandleOfCanonicalPath(At(0).Path, At(0).Hash);
}

void TNamesAhead::DropNext() {
    First = (First + 1) % kSize;
    --Count;
    if (const TName* name = FindRelative(kFetchName); name && !Notes->FetchName(name->Hash))
        FetchPlaceOfHandle(name->Hash);
    if (const TName* name = FindRelative(kFetchSource); name && name->IsSourceNeeded)
        if (const TSourceNote* note = Notes->Find(name->Path, name->Hash)) FetchAhead(note->Source);
}

// Null when there is none, or it is not relative.
const TNamesAhead::TName* TNamesAhead::FindRelative(std::size_t distance) {
    return distance < Count && At(distance).IsRelative ? &At(distance) : nullptr;
}
