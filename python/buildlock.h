#pragma once
#include <functional>
#include <memory>
#include <string>

/// The lock of a file for an object, not for a thread: a thread of its own holds the library's
/// lock, which belongs to the thread that took it.
///
/// After a fork the child's copy holds nothing, and touches nothing of the parent's.
class TBuildLock {
public:
    TBuildLock() = default;
    /// Lets go of the lock, and waits until that is done.
    ~TBuildLock();
    TBuildLock(const TBuildLock&) = delete;
    TBuildLock& operator=(const TBuildLock&) = delete;

    /// Waits for the lock of the file at `path`, 10 seconds at most. `mayWait` is called meanwhile,
    /// some times a second; when it tells false, nobody waits any more. Returns why the lock cannot
    /// be had, "" when it is held or no longer wanted. To be called once.
    std::string Take(const std::string& path, const std::function<bool()>& mayWait);
    bool IsHeld() const;
    /// Does the work where the lock is held, as a save has to be done.
    void Run(const std::function<void()>& work);

private:
    struct TShared;
    static void Hold(const std::shared_ptr<TShared>& shared, const std::string& path);

    std::shared_ptr<TShared> Shared;
};
