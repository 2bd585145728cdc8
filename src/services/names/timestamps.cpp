#include "services/names/timestamps.h"
#include "services/base/sharedparts.h"
#include "services/files/pathpieces.h"
#include <cstring>
#include <mutex>

/// Small, as every file of a build has one: what TFileStatus compares, and whether it is a folder.
struct TFileStamps::TStamp {
    TStamp* Next;
    const char* Key;  // one text per distinct key; null: whatever key
    std::int64_t Time;
    std::int64_t Size;
    bool Exists;
    bool IsDirectory;
    TKind Kind;

    TFileStatus GetStatus() const {
        TFileStatus status;
        status.Exists = Exists;
        status.IsDirectory = IsDirectory;
        status.Time = Time;
        status.Size = Size;
        return status;
    }
};

namespace {

bool IsSameKey(const char* a, const char* b) {
    return a == b || (a && b && std::strcmp(a, b) == 0);
}

/// Of the time stamps of some files. A lock for each file would cost more memory than what it
/// guards.
class TStampsLock : public std::mutex {};

TStampsLock& LockOf(const TFileStamps* stamps) {
    return GetSharedPart<TStampsLock>(HashOfPlace(stamps));
}

}  // namespace

std::optional<TFileStatus> TFileStamps::Find(TKind kind, const char* key) const {
    const std::lock_guard guard(LockOf(this));
    const TStamp* stamp = FindStamp(kind, key);
    return stamp ? std::optional(stamp->GetStatus()) : std::nullopt;
}

std::optional<TFileStatus> TFileStamps::FindLastCompiled() const {
    return Find(COMPILED, nullptr);
}

void TFileStamps::Record(TKind kind, const char* key, const TFileStatus& status) {
    const std::lock_guard guard(LockOf(this));
    Set(kind, key, status);
    if (kind == COMPILED) Set(kind, nullptr, status);
}

TFileStamps::TStamp* TFileStamps::FindStamp(TKind kind, const char* key) const {
    for (TStamp* stamp = First; stamp; stamp = stamp->Next)
        if (stamp->Kind == kind && IsSameKey(stamp->Key, key)) return stamp;
    return nullptr;
}

void TFileStamps::Set(TKind kind, const char* key, const TFileStatus& status) {
    TStamp* stamp = FindStamp(kind, key);
    if (!stamp) {
        stamp = First =
            new TStamp{First, key ? KeptPathText(key) : nullptr, 0, 0, false, false, kind};
    }
    stamp->Time = status.Time;
    stamp->Size = status.Size;
    stamp->Exists = status.Exists;
    stamp->IsDirectory = status.IsDirectory;
}
