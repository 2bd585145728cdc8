#include "services/base/observer.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

// Each registration has a serial number: the numbers give the order, and one that is gone tells a
// walk that its observer was deleted meanwhile, even when a new one has the same address.
class AEmbeddedObserverMgr::TObservers {
public:
    using TRegistrations = std::vector<std::pair<std::uint64_t, void*>>;

    TObservers() = default;
    /// The same observers.
    explicit TObservers(const TRegistrations& registrations) {
        for (const auto& [serial, observer] : registrations) Add(observer);
    }
    void Hold() { HolderCount.fetch_add(1, std::memory_order_relaxed); }
    void LetGo() {
        if (HolderCount.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
    }
    void Add(void* observer) {
        const std::lock_guard guard(Lock);
        if (Serials.contains(observer)) return;
        // All memory is taken before anything changes.
        std::map<std::uint64_t, void*> entry{{NextSerial, observer}};
        Serials.emplace(observer, NextSerial);
        InOrder.merge(entry);
        ++NextSerial;
    }
    void Remove(void* observer) {
        const std::lock_guard guard(Lock);
        const auto registration = Serials.find(observer);
        if (registration == Serials.end()) return;
        InOrder.erase(registration->second);
        Serials.erase(registration);
    }
    TRegistrations GetRegistrations() {
        const std::lock_guard guard(Lock);
        return {InOrder.begin(), InOrder.end()};
    }
    bool IsRegistered(std::uint64_t serial) {
        const std::lock_guard guard(Lock);
        return InOrder.contains(serial);
    }
    bool IsEmpty() {
        const std::lock_guard guard(Lock);
        return InOrder.empty();
    }

private:
    std::atomic<std::size_t> HolderCount = 1;
    std::mutex Lock;
    std::map<std::uint64_t, void*> InOrder;
    std::unordered_map<void*, std::uint64_t> Serials;
    std::uint64_t NextSerial = 0;
};

AEmbeddedObserverMgr::AEmbeddedObserverMgr(const AEmbeddedObserverMgr& other) {
    *this = other;
}

// A manager whose registrations are to be shared makes them first.
AEmbeddedObserverMgr& AEmbeddedObserverMgr::operator=(const AEmbeddedObserverMgr& other) {
    TObservers& shared = other.Registrations();
    shared.Hold();
    Replace(&shared);
    return *this;
}

AEmbeddedObserverMgr::~AEmbeddedObserverMgr() {
    Replace(nullptr);
}

void AEmbeddedObserverMgr::Replace(TObservers* observers) {
    if (TObservers* former = Observers.exchange(observers)) former->LetGo();
}

void AEmbeddedObserverMgr::Register(void* observer) const {
    if (observer) Registrations().Add(observer);
}

void AEmbeddedObserverMgr::Unregister(void* observer) const {
    if (TObservers* observers = Observers) observers->Remove(observer);
}

void AEmbeddedObserverMgr::CallEach(IObserverCaller& caller) const {
    if (!HasObservers()) return;
    // Held here: an observer may destroy this manager, or assign to it.
    const AEmbeddedObserverMgr held(*this);
    TObservers& observers = held.Registrations();
    for (const auto& [serial, observer] : observers.GetRegistrations())
        if (observers.IsRegistered(serial)) caller.Call(observer);
}

bool AEmbeddedObserverMgr::HasObservers() const {
    TObservers* const observers = Observers;
    return observers && !observers->IsEmpty();
}

void AEmbeddedObserverMgr::CopyRegistrations(const AEmbeddedObserverMgr& other) {
    TObservers* const others = other.Observers;
    const bool isWatched = others && !others->IsEmpty();
    Replace(isWatched ? new TObservers(others->GetRegistrations()) : nullptr);
}

AEmbeddedObserverMgr::TObservers& AEmbeddedObserverMgr::Registrations() const {
    if (TObservers* made = Observers) return *made;
    auto* const own = new TObservers;
    TObservers* first = nullptr;
    if (Observers.compare_exchange_strong(first, own)) return *own;
    // Another thread was faster.
    own->LetGo();
    return *first;
}
