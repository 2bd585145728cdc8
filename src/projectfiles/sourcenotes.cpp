#include "projectfiles/sourcenotes.h"
#include "services/base/fetchahead.h"

namespace {

bool IsNameOf(const TSourceNote& note, std::string_view canonical) {
    const std::string_view text = GetSharedText(note.Name);
    return text == canonical || EqualIgnoringCase(text, canonical);
}

}  // namespace

TSourceNote* TSourceNotes::Find(std::string_view canonical, std::size_t hash) {
    TSourceNote& note = Notes[FindPlace(canonical, ShortHash(hash))];
    return note.Name ? &note : nullptr;
}

TSourceNote* TSourceNotes::FindOrAdd(const ISFileName* file) {
    const ISFileName* const name = IsSharedHandle(file) ? file : GetFileIdentity(file).GetFile();
    const std::string_view text = GetSharedText(name);
    const std::uint32_t hash = ShortHash(HashIgnoringCase(text));
    std::size_t place = FindPlace(text, hash);
    if (!Notes[place].Name) {
        if ((Count + 1) * 4 > Notes.size() * 3) {
            Grow();
            place = FindPlace(text, hash);
        }
        ++Count;
        Notes[place].Hash = hash;
    }
    Notes[place].Name = name;
    return &Notes[place];
}

void TSourceNotes::FetchNote(std::size_t hash) const {
    __builtin_prefetch(&Notes[FirstPlace(ShortHash(hash))]);
}

bool TSourceNotes::FetchName(std::size_t hash) const {
    const std::uint32_t sought = ShortHash(hash);
    for (std::size_t i = FirstPlace(sought); Notes[i].Name; i = After(i)) {
        if (Notes[i].Hash != sought) continue;
        // With the text behind it.
        FetchAhead(Notes[i].Name);
        FetchAhead(reinterpret_cast<const char*>(Notes[i].Name) + 128);
        return true;
    }
    return false;
}

// The place of the note, or the free one where it belongs.
std::size_t TSourceNotes::FindPlace(std::string_view canonical, std::uint32_t hash) const {
    std::size_t place = FirstPlace(hash);
    while (Notes[place].Name && !(Notes[place].Hash == hash && IsNameOf(Notes[place], canonical)))
        place = After(place);
    return place;
}

void TSourceNotes::Grow() {
    std::vector<TSourceNote> former(Notes.size() / 2 * 3);
    former.swap(Notes);
    for (const TSourceNote& note : former) {
        if (!note.Name) continue;
        std::size_t place = FirstPlace(note.Hash);
        while (Notes[place].Name) place = After(place);
        Notes[place] = note;
    }
}
