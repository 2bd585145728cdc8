#include "services/base/observer.h"

#include <cstdint>
#include <map>
#include <unordered_map>
#include <vector>

// Each registration has a serial number: the numbers give the order, and one that is gone tells a
// walk that its observer was deleted meanwhile, even when a new one has the same address.
struct AEmbeddedObserverMgr::TObservers {
    std::map<std::uint64_t, void*> InOrder;
    std::unordered_map<void*, std::uint64_t> Serials;
    std::uint64_t NextSerial = 0;
};

AEmbeddedObserverMgr::AEmbeddedObserverMgr(const AEmbeddedObserverMgr& other)
    : Observers(other.Registrations()) {}

AEmbeddedObserverMgr& AEmbeddedObserverMgr::operator=(const AEmbeddedObserverMgr& other) {
    Observers = other.Registrations();
    return *this;
}

AEmbeddedObserverMgr::~AEmbeddedObserverMgr() = default;

void AEmbeddedObserverMgr::Register(void* observer) const {
    if (!observer) return;
    auto& observers = *Registrations();
    if (!observers.Serials.emplace(observer, observers.NextSerial).second) return;
    observers.InOrder.emplace(observers.NextSerial++, observer);
}

void AEmbeddedObserverMgr::Unregister(void* observer) const {
    if (!Observers) return;
    const auto registration = Observers->Serials.find(observer);
    if (registration == Observers->Serials.end()) return;
    Observers->InOrder.erase(registration->second);
    Observers->Serials.erase(registration);
}

void AEmbeddedObserverMgr::CallEach(IObserverCaller& caller) const {
    // Held here: an observer may destroy this manager, or assign to it.
    const auto observers = Observers;
    if (!observers) return;
    const std::vector<std::pair<std::uint64_t, void*>> snapshot(observers->InOrder.begin(),
                                                                observers->InOrder.end());
    for (const auto& [serial, observer] : snapshot)
        if (observers->InOrder.contains(serial)) caller.Call(observer);
}

bool AEmbeddedObserverMgr::HasObservers() const {
    return Observers && !Observers->InOrder.empty();
}

void AEmbeddedObserverMgr::CopyRegistrations(const AEmbeddedObserverMgr& other) {
    Observers = other.HasObservers() ? std::make_shared<TObservers>(*other.Observers) : nullptr;
}

const std::shared_ptr<AEmbeddedObserverMgr::TObservers>& AEmbeddedObserverMgr::Registrations()
    const {
    if (!Observers) Observers = std::make_shared<TObservers>();
    return Observers;
}
