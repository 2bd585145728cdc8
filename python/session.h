#pragma once
#include "flows/buildedit.h"
#include "python/buildlock.h"
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class IHdlSourceFile;
class ISFileName;

/// The build that Python objects share: it lives as long as the last of them.
///
/// One thread at a time works on it. What is quick holds the interpreter's lock; what takes long
/// lets it go (see Work), and whoever asks the build for something meanwhile waits.
class TSession {
public:
    explicit TSession(const ISFileName* file) : File(file) {}
    TSession(const TSession&) = delete;
    TSession& operator=(const TSession&) = delete;

    const ISFileName* GetFile() const { return File; }
    TBuildEdit& GetEdit() { return *Edit; }
    THdlBuildFile& GetBuild() { return *Edit->GetBuild(); }

    /// Reads the file, in place of what was read before. False, with the build as it was, for a
    /// file that cannot be read, a document that is no build, and a section that cannot be read.
    bool Read(TXMLReadError* error);
    /// Begins a build where no file is; why that cannot be, else "".
    std::string Make(THdlLanguage language);

    /// Has the lock until it is null.
    void SetLock(std::unique_ptr<TBuildLock> lock) { Lock = std::move(lock); }
    bool HasLock() const { return Lock && Lock->IsHeld(); }

    /// Saves what was changed, under the build's lock or else under `lock`; why it cannot be done,
    /// else "".
    std::string Write(TBuildLock* lock, bool* isChanged);
    /// What Write() would do to the file, as a unified difference.
    std::string Compare(std::string* difference);

    /// Counts what was read: sources of a former read are gone.
    std::uint32_t GetReadCount() const { return ReadCount; }
    /// The sources stay where they are in memory, and belong to no group.
    void Remove(const std::vector<IHdlSourceFile*>& sources);
    bool IsRemoved(const IHdlSourceFile* source) const {
        return !Removed.empty() && Removed.contains(source);
    }
    /// The first name of what was renamed to `file`, else `file`.
    const ISFileName* GetOrigin(const ISFileName* file) const {
        const auto known = Origins.find(file);
        return known == Origins.end() ? file : known->second;
    }
    IHdlSourceFile* Rename(IHdlSourceFile* source, const ISFileName* file);

    // Of the interpreter's lock: both are called with it held.
    bool IsBusy() const { return Busy; }
    void SetBusy(bool busy);
    /// To be called without it: waits until nobody works on the build.
    void WaitUntilIdle();

private:
    const ISFileName* File;
    std::unique_ptr<TBuildEdit> Edit;
    std::uint32_t ReadCount = 0;
    std::unordered_set<const IHdlSourceFile*> Removed;
    std::unordered_map<const ISFileName*, const ISFileName*> Origins;
    std::unique_ptr<TBuildLock> Lock;
    std::mutex Mutex;
    std::condition_variable Idle;
    bool Busy = false;  // changed with Mutex and the interpreter's lock held
};
