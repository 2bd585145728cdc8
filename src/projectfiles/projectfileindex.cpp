#include "projectfiles/projectfileindex.h"
#include "projectfiles/hdlprojectfile.h"
#include <new>

namespace {

// Up to here a walk is as fast and needs no memory.
constexpr std::size_t kWalkedSize = 16;

}  // namespace

bool TProjectFileIndex::Prepare(const TFiles& files) {
    if (files.size() <= kWalkedSize) {
        if (IsBuilt) Drop();
        return false;
    }
    if (!Fits(files.size())) Build(files);
    return NamelessCount == 0;
}

TProjectFileIndex::TPlace TProjectFileIndex::Find(const TFiles& files,
                                                  const TFileIdentity& identity) {
    auto found = Places.find(identity);
    if (found == Places.end()) return files.end();
    // A file put in another's place through an iterator of the list goes unnoticed until here.
    if (!(GetFileIdentity(*found->second.First) == identity)) {
        Build(files);
        found = Places.find(identity);
        if (found == Places.end()) return files.end();
    }
    return found->second.First;
}

void TProjectFileIndex::Added(const TFiles& files, TPlace place) {
    if (!IsBuilt) return;
    try {
        if (!Fits(files.size() - 1) || !AddPlace(place)) Drop();
    } catch (const std::bad_alloc&) {
        // The list has the file all the same.
        Drop();
    }
}

void TProjectFileIndex::Removing(const TFiles& files, TPlace place) {
    if (!IsBuilt) return;
    if (!Fits(files.size()) || !RemovePlace(place)) return Drop();
    --Size;
}

void TProjectFileIndex::Drop() {
    *this = {};
}

bool TProjectFileIndex::Fits(std::size_t size) const {
    return IsBuilt && Size == size && HandleChangeCount == THdlProjectFile::GetHandleChangeCount();
}

void TProjectFileIndex::Build(const TFiles& files) {
    Drop();
    Places.reserve(files.size());
    for (auto place = files.end(); place != files.begin();) {
        --place;
        if (!(*place)->GetFileName()) {
            ++NamelessCount;
            continue;
        }
        TPlaces& places =
            Places.try_emplace(GetFileIdentity(*place), TPlaces{files.end(), {}}).first->second;
        if (places.First != files.end()) places.Later.push_back(places.First);
        places.First = place;
    }
    IsBuilt = true;
    Size = files.size();
    HandleChangeCount = THdlProjectFile::GetHandleChangeCount();
}

// False when the index cannot follow.
bool TProjectFileIndex::AddPlace(TPlace place) {
    ++Size;
    if ((*place)->GetFileName())
        // The order of two of one name is not known here.
        return Places.try_emplace(GetFileIdentity(*place), TPlaces{place, {}}).second;
    ++NamelessCount;
    return true;
}

// False when the index cannot follow.
bool TProjectFileIndex::RemovePlace(TPlace place) {
    if (!(*place)->GetFileName()) {
        if (NamelessCount == 0) return false;
        --NamelessCount;
        return true;
    }
    const auto found = Places.find(GetFileIdentity(*place));
    if (found == Places.end() || found->second.First != place) return false;
    TPlaces& places = found->second;
    if (places.Later.empty()) {
        Places.erase(found);
    } else {
        places.First = places.Later.back();
        places.Later.pop_back();
    }
    return true;
}
