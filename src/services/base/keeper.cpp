#include "services/base/keeper.h"

#include <unordered_map>

/// Where each kept object is: in a keeper, or without one until the process ends.
class TKeptObjects {
public:
    static TKeptObjects& GetInstance() {
        // Never destroyed: objects are dropped and deleted while the process ends, too.
        static auto* kept = new TKeptObjects;
        return *kept;
    }
    void KeepUntilExit(const void* object) { Places.try_emplace(object); }
    void Keep(TKeeper* keeper, const TKeeper::TKept& kept) {
        Forget(kept.Object);
        keeper->Objects.push_back(kept);
        Places[kept.Object] = {keeper, --keeper->Objects.end()};
    }
    const TKeeper* Find(const void* object) const {
        const auto place = Places.find(object);
        return place == Places.end() ? nullptr : place->second.Keeper;
    }
    /// Of an object that a keeper has.
    const TKeeper::TKept& EntryOf(const void* object) const {
        return *Places.find(object)->second.Entry;
    }
    void Forget(const void* object) {
        const auto place = Places.find(object);
        if (place == Places.end()) return;
        if (TKeeper* keeper = place->second.Keeper) keeper->Objects.erase(place->second.Entry);
        Places.erase(place);
    }

private:
    struct TPlace {
        TKeeper* Keeper = nullptr;
        std::list<TKeeper::TKept>::iterator Entry;
    };
    std::unordered_map<const void*, TPlace> Places;
};

void KeepUntilExit(const void* object) {
    if (object) TKeptObjects::GetInstance().KeepUntilExit(object);
}

void ForgetKept(const void* object) {
    if (object) TKeptObjects::GetInstance().Forget(object);
}

bool HandOver(const void* object) {
    if (!TKeptObjects::GetInstance().Find(object)) return false;
    ForgetKept(object);
    KeepUntilExit(object);
    return true;
}

void TKeeper::Keep(const void* object, TDelete deleteObject) {
    if (object) TKeptObjects::GetInstance().Keep(this, {object, deleteObject});
}

bool TKeeper::Has(const void* object) const {
    return TKeptObjects::GetInstance().Find(object) == this;
}

void TKeeper::Delete(const void* object) {
    if (!Has(object)) return;
    // Out of here first: deleting an object may delete others.
    const TKept kept = TKeptObjects::GetInstance().EntryOf(object);
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
