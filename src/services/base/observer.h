#pragma once
#include "services/base/api.h"
#include <atomic>

/// Does one thing to each observer that ForEach hands it.
class HDLBUILDFILE_SHARED_TYPE IObserverCaller {
public:
    virtual ~IObserverCaller() = default;
    /// `observer` points to the observer class T of the calling TEmbeddedObserverMgr<T>.
    virtual void Call(void* observer) = 0;
};

/// A registration list. Observers are not owned: unregister before deleting one. Copies share the
/// registrations, so that adding or deleting through either is seen by both, unless a derived class
/// copies them.
///
/// All threads may register, unregister and call the observers of one manager at the same time;
/// an observer is called on the thread that has something to tell, without a lock. Before one is
/// deleted, no other thread may be about to call it. Assigning to a manager and its end belong to
/// one thread.
class HDLBUILDFILE_API AEmbeddedObserverMgr {
public:
    AEmbeddedObserverMgr() = default;
    AEmbeddedObserverMgr(const AEmbeddedObserverMgr& other);
    AEmbeddedObserverMgr& operator=(const AEmbeddedObserverMgr& other);
    virtual ~AEmbeddedObserverMgr();

protected:
    /// Null, and one registered already, are ignored.
    void Register(void* observer) const;
    void Unregister(void* observer) const;
    /// Walks a copy of the registrations and skips one deleted meanwhile.
    void CallEach(IObserverCaller& caller) const;
    bool HasObservers() const;
    /// Takes registrations of its own for the observers of `other`, in place of the present ones.
    void CopyRegistrations(const AEmbeddedObserverMgr& other);

private:
    class TObservers;
    TObservers& Registrations() const;
    void Replace(TObservers* observers);
    mutable std::atomic<TObservers*> Observers = nullptr;  // made when first needed
};

/// The observers of class T.
template <class T>
class TEmbeddedObserverMgr : public AEmbeddedObserverMgr {
public:
    void AddObserver(T* observer) const { Register(observer); }
    void DeleteObserver(T* observer) const { Unregister(observer); }
    void ForEach(IObserverCaller& caller) const { CallEach(caller); }
};

/// Calls one member function without arguments of every observer.
template <class T>
class TNotifyNoArg : public IObserverCaller {
public:
    explicit TNotifyNoArg(void (T::*operation)()) : Operation(operation) {}
    void Call(void* observer) override { (static_cast<T*>(observer)->*Operation)(); }

private:
    void (T::*Operation)();
};

/// Calls one member function with one argument of every observer.
template <class T, class A>
class TNotifyOneArg : public IObserverCaller {
public:
    TNotifyOneArg(void (T::*operation)(A), A argument) : Operation(operation), Argument(argument) {}
    void Call(void* observer) override { (static_cast<T*>(observer)->*Operation)(Argument); }

private:
    void (T::*Operation)(A);
    A Argument;
};
