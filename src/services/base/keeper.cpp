#include "services/base/keeper.h"

#include <atomic>
#include <mutex>
#include <new>
#include <unordered_map>
#include <utility>

#include "services/base/sharedparts.h"

/// Where kept objects are: in a keeper, or without one until the process ends. A part of all
/// objects, those with certain addresses. The lock guards the places alone: a keeper belongs to the
/// thread that has its objects.
class TKeptObjects {
public:
    static TKeptObjects& Of(const void* object) {
        return GetSharedPart<TKeptObjects>(HashOfPlace(object));
    }
    void KeepUntilExit(const void* object) {
        const std::lock_guard guard(Lock);
        Places.try_emplace(object);
        NoteCount();
    }
    void Keep(TKeeper* keeper, const TKeeper::TKept& kept) {
        if (Move(keeper, kept)) return;
        // All memory is taken before anything changes.
        std::list<TKeeper::TKept> made{kept};
        Put(kept.Object, {keeper, made.begin()});
        keeper->Objects.splice(keeper->Objects.end(), made);
    }
    /// False when no keeper has the object. Takes no memory.
    bool HandOver(const void* object) {
        const TPlace place = TakeFromKeeper(object);
        if (place.Keeper) place.Keeper->Objects.erase(place.Entry);
        return place.Keeper != nullptr;
    }
    const TKeeper* Find(const void* object) { return PlaceOf(object).Keeper; }
    /// Of an object that a keeper has.
    const TKeeper::TKept& EntryOf(const void* object) { return *PlaceOf(object).Entry; }
    void Forget(const void* object) {
        // Most objects are in no place. What this thread may delete was put there before, by this
        // thread or by one that has handed it over.
        if (Count.load(std::memory_order_relaxed) == 0) return;
        const TPlace place = TakePlace(object);
        if (place.Keeper) place.Keeper->Objects.erase(place.Entry);
    }

private:
    struct TPlace {
        TKeeper* Keeper = nullptr;
        std::list<TKeeper::TKept>::iterator Entry;
    };
    /// From the keeper that has the object to another one. False, with nothing done, when no keeper
    /// has it. Takes no memory.
    bool Move(TKeeper* keeper, const TKeeper::TKept& kept) {
        const TPlace former = ExchangeKeeper(kept.Object, keeper);
        if (!former.Keeper) return false;
        former.Entry->Delete = kept.Delete;
        keeper->Objects.splice(keeper->Objects.end(), former.Keeper->Objects, former.Entry);
        return true;
    }
    /// The former place.
    TPlace ExchangeKeeper(const void* object, TKeeper* keeper) {
        const std::lock_guard guard(Lock);
        const auto found = Places.find(object);
        if (found == Places.end() || !found->second.Keeper) return {};
        TPlace former = found->second;
        found->second.Keeper = keeper;
        return former;
    }
    void Put(const void* object, const TPlace& place) {
        const std::lock_guard guard(Lock);
        Places[object] = place;
        NoteCount();
    }
    TPlace TakeFromKeeper(const void* object) {
        const std::lock_guard guard(Lock);
        const auto found = Places.find(object);
        return found == Places.end() ? TPlace() : std::exchange(found->second, {});
    }
    TPlace PlaceOf(const void* object) {
        const std::lock_guard guard(Lock);
        const auto place = Places.find(object);
        return place == Places.end() ? TPlace() : place->second;
    }
    TPlace TakePlace(const void* object) {
        const std::lock_guard guard(Lock);
        const auto found = Places.find(object);
        if (found == Places.end()) return {};
        const TPlace place = found->second;
        Places.erase(found);
        NoteCount();
        return place;
    }
    void NoteCount() { Count.store(Places.size(), std::memory_order_relaxed); }

    std::mutex Lock;
    std::unordered_map<const void*, TPlace> Places;
    std::atomic<std::size_t> Count = 0;
};

void KeepUntilExit(const void* object) {
    if (!object) return;
    try {
        TKeptObjects::Of(object).KeepUntilExit(object);
    } catch (const std::bad_alloc&) {
        // Leak checkers may find it; destructors leave objects behind, too.
    }
}

void ForgetKept(const void* object) {
    if (object) TKeptObjects::Of(object).Forget(object);
}

bool HandOver(const void* object) {
    return TKeptObjects::Of(object).HandOver(object);
}

void TKeeper::Keep(const void* object, TDelete deleteObject) {
    if (object) TKeptObjects::Of(object).Keep(this, {object, deleteObject});
}

bool TKeeper::Has(const void* object) const {
    return TKeptObjects::Of(object).Find(object) == this;
}

void TKeeper::Delete(const void* object) {
    if (!Has(object)) return;
    // Out of here first: deleting an object may delete others.
    const TKept kept = TKeptObjects::Of(object).EntryOf(object);
    ForgetKept(object);
    kept.Delete(object);
}

void TKeeper::DeleteAll() {
    while (!Objects.empty()) {
        const TKept kept = Objects.front();
        ForgetKept(kept.Object);
        kept.Delete(kept.Object);
    }
}

void TKeeper::TakeAll(TKeeper* other) {
    while (!other->Objects.empty()) {
        const TKept kept = other->Objects.front();
        Keep(kept.Object, kept.Delete);
    }
}

void TKeeper::HandOverAll() {
    while (!Objects.empty()) HandOver(Objects.front().Object);
}
