#include "services/files/filelock.h"
#include "services/files/filebeside.h"
#include "services/files/filesystem.h"
#include "services/files/pathconventions.h"
#include "services/files/pathtext.h"
#include <algorithm>
#include <memory>
#include <new>

namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
constexpr std::int64_t kShortestPause = kMillisecond;
constexpr std::int64_t kLongestPause = 4 * kMillisecond;
constexpr std::int64_t kLongestWait = 10'000 * kMillisecond;

/// Links in the place of the file itself; those in its folders need no care.
TFileResult FollowLinks(IFileSystem& system, std::string* path) {
    constexpr int kMostLinks = 40;
    for (int links = 0; links <= kMostLinks; ++links) {
        std::string next;
        TFileResult result = system.ReadLink(*path, &next);
        if (result.Fault == TFileFault::NotALink || result.Fault == TFileFault::Missing) return {};
        if (!result.IsDone()) return result;
        *path = next;
    }
    return {TFileFault::Other, "Too many levels of symbolic links"};
}

/// An empty path names no file, and has none either.
std::string LockFileOf(const std::string& target) {
    if (target.empty()) return {};
    const std::size_t name = target.rfind(kPathDelimiter) + 1;
    return target.substr(0, name) + GetNameBeside(target.substr(name)) + ".lock";
}

/// Locks the lock file, unless somebody else has it at this moment: Busy.
TFileResult TryToLock(IFileSystem& system, const std::string& path, TFileNumber* file) {
    TFileResult result = system.OpenLock(path, file);
    if (!result.IsDone()) return result;
    try {
        result = system.Lock(*file);
        // Its former holder may have removed it between the two: then it locks nobody out any more.
        if (result.IsDone()) result = system.CheckNames(path, *file);
    } catch (const std::bad_alloc&) {
        system.Close(*file);
        throw;
    }
    if (result.Fault == TFileFault::Missing) result.Fault = TFileFault::Busy;
    if (result.IsDone()) return result;
    if (result.Fault == TFileFault::Unsupported) system.Remove(path);
    system.Close(*file);
    return result;
}

bool MayPass(const TFileResult& result) {
    return result.Fault == TFileFault::Busy || result.Fault == TFileFault::Denied;
}

/// What cannot be locked, when the lock file is to blame: its name is none that users know.
TFileResult Blaming(const std::string& path, TFileResult result) {
    if (result.Fault == TFileFault::NameTaken)
        result.Reason = "\"" + path + "\" is in the way: " + result.Reason;
    else if (result.Fault == TFileFault::Denied)
        result.Reason = "its lock file \"" + path + "\" cannot be opened: " + result.Reason;
    else if (result.Fault == TFileFault::Busy)
        result.Reason =
            "it is being changed elsewhere: \"" + path + "\" stayed locked for 10 seconds";
    return result;
}

}  // namespace

/// A lock of one thread, however often the thread took it.
class THeldLock {
public:
    /// Gives the lock of that lock file, which Drop() lets go.
    static TFileResult Take(IFileSystem& system, const std::string& path, THeldLock** held);
    void Drop();

private:
    THeldLock(IFileSystem& system, const std::string& path) : System(system), Path(path) {}
    void Hold(TFileNumber file, bool isLocked) {
        File = file;
        IsLocked = isLocked;
        Next = First;
        First = this;
    }

    static THeldLock* Find(IFileSystem& system, const std::string& path);
    static THeldLock* FindByFile(IFileSystem& system, const std::string& path);

    static thread_local THeldLock* First;  // of those that this thread holds

    IFileSystem& System;
    std::string Path;  // of the lock file
    TFileNumber File = 0;
    bool IsLocked = false;  // false where the file system knows no locks
    int Count = 1;
    THeldLock* Next = nullptr;
};

thread_local THeldLock* THeldLock::First = nullptr;

THeldLock* THeldLock::Find(IFileSystem& system, const std::string& path) {
    THeldLock* held = First;
    while (held && (&held->System != &system || held->Path != path)) held = held->Next;
    return held;
}

/// The same folder may have two paths.
THeldLock* THeldLock::FindByFile(IFileSystem& system, const std::string& path) {
    const auto isIt = [&](const THeldLock& held) {
        return &held.System == &system && held.IsLocked &&
               system.CheckNames(path, held.File).IsDone();
    };
    THeldLock* held = First;
    while (held && !isIt(*held)) held = held->Next;
    return held;
}

TFileResult THeldLock::Take(IFileSystem& system, const std::string& path, THeldLock** held) {
    *held = Find(system, path);
    // Made before there is a lock to lose.
    std::unique_ptr<THeldLock> made(*held ? nullptr : new THeldLock(system, path));
    std::int64_t pause = kShortestPause;
    for (std::int64_t waited = 0; !*held; waited += pause) {
        TFileNumber file = 0;
        TFileResult result = TryToLock(system, path, &file);
        const bool isLocked = result.IsDone();
        if (isLocked || result.Fault == TFileFault::Unsupported) {
            *held = made.release();
            (*held)->Hold(file, isLocked);
            return {};
        }
        if (!MayPass(result)) return Blaming(path, std::move(result));
        *held = FindByFile(system, path);
        if (*held) break;
        if (waited >= kLongestWait) return Blaming(path, std::move(result));
        pause = waited == 0 ? kShortestPause : std::min(2 * pause, kLongestPause);
        system.Wait(pause);
    }
    ++(*held)->Count;
    return {};
}

void THeldLock::Drop() {
    if (--Count > 0) return;
    THeldLock** place = &First;
    while (*place != this) place = &(*place)->Next;
    *place = Next;
    if (IsLocked) {
        // Removed while it is locked, so that nobody locks one that is about to go.
        RemoveFileBeside(System, Path);
        System.Close(File);
    }
    delete this;
}

TFileLock::TFileLock(const char* path) : Target(CanonicalPath(path ? path : "")) {
    IFileSystem& system = GetFileSystem();
    TFileResult result = FollowLinks(system, &Target);
    if (result.IsDone()) result = THeldLock::Take(system, LockFileOf(Target), &Held);
    Reason = std::move(result.Reason);
}

TFileLock::~TFileLock() {
    if (Held) Held->Drop();
}
