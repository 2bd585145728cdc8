#include "python/buildlock.h"
#include "services/files/filelock.h"
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <unistd.h>
#include <utility>

/// Of the owner and the thread that holds the lock.
struct TBuildLock::TShared {
    std::mutex Mutex;
    std::condition_variable Changed;
    bool IsTried = false;
    bool IsHeld = false;
    bool IsWanted = true;
    bool IsOver = false;
    std::string Reason;
    const std::function<void()>* Work = nullptr;
    std::exception_ptr Fault;  // of the work
    const pid_t Process = getpid();
};

// Runs on the thread of the lock.
void TBuildLock::Hold(const std::shared_ptr<TShared>& shared, const std::string& path) {
    {
        const TFileLock lock(path.c_str());
        std::unique_lock guard(shared->Mutex);
        shared->IsHeld = lock.IsHeld();
        shared->Reason = lock.GetReason();
        shared->IsTried = true;
        shared->Changed.notify_all();
        while (shared->IsHeld && shared->IsWanted) {
            shared->Changed.wait(guard, [&] { return shared->Work || !shared->IsWanted; });
            if (!shared->Work) continue;
            try {
                (*shared->Work)();
            } catch (...) {
                shared->Fault = std::current_exception();
            }
            shared->Work = nullptr;
            shared->Changed.notify_all();
        }
    }
    const std::lock_guard guard(shared->Mutex);
    shared->IsOver = true;
    shared->Changed.notify_all();
}

TBuildLock::~TBuildLock() {
    if (!Shared) return;
    if (Shared->Process != getpid()) {
        // The thread did not come along, and may have had the mutex.
        static_cast<void>(new std::shared_ptr<TShared>(Shared));
        return;
    }
    std::unique_lock guard(Shared->Mutex);
    Shared->IsWanted = false;
    Shared->Changed.notify_all();
    // One that still waits for the lock drops it as soon as it has it.
    if (Shared->IsTried) Shared->Changed.wait(guard, [this] { return Shared->IsOver; });
}

std::string TBuildLock::Take(const std::string& path, const std::function<bool()>& mayWait) {
    constexpr std::chrono::milliseconds kPause(50);
    Shared = std::make_shared<TShared>();
    std::thread(&TBuildLock::Hold, Shared, path).detach();
    std::unique_lock guard(Shared->Mutex);
    while (!Shared->Changed.wait_for(guard, kPause, [this] { return Shared->IsTried; })) {
        guard.unlock();
        const bool isWanted = mayWait();
        guard.lock();
        if (!isWanted) return "";
    }
    return Shared->Reason;
}

bool TBuildLock::IsHeld() const {
    if (!Shared || Shared->Process != getpid()) return false;
    const std::lock_guard guard(Shared->Mutex);
    return Shared->IsHeld;
}

void TBuildLock::Run(const std::function<void()>& work) {
    std::unique_lock guard(Shared->Mutex);
    Shared->Work = &work;
    Shared->Changed.notify_all();
    Shared->Changed.wait(guard, [this] { return !Shared->Work; });
    if (const std::exception_ptr fault = std::exchange(Shared->Fault, nullptr))
        std::rethrow_exception(fault);
}
