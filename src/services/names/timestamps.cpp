#include "services/names/timestamps.h"
#include "services/base/sharedparts.h"
#include "services/files/pathpieces.h"
#include <cstdint>
#include <cstring>
#include <mutex>

/// Small, as every file of a build has one: what TFileStatus compares, and whether it is a folder.
struct TFileStamps::TStamp {
    TStamp* Next;
    const char* Key;  // one text per distinct key; null: whatever key
    std::int64_t Time;
    std::uint64_t Size : 61;
    std::uint64_t IsCompiled : 1;  // else loaded
    std::uint64_t Exists : 1;
    std::uint64_t IsDirectory : 1;

    TFileStatus GetStatus() const {
        TFileStatus status;
        status.Exists = Exists != 0;
        status.IsDirectory = IsDirectory != 0;
        status.Time = Time;
        status.Size = static_cast<std::int64_t>(Size);
        return status;
    }
};

namespace {

constexpr std::uint64_t kMostSize = (std::uint64_t{1} << 61) - 1;

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
    const bool isCompiled = kind == COMPILED;
    for (TStamp* stamp = First; stamp; stamp = stamp->Next)
        if ((stamp->IsCompiled != 0) == isCompiled && IsSameKey(stamp->Key, key)) return stamp;
    return nullptr;
}

void TFileStamps::Set(TKind kind, const char* key, const TFileStatus& status) {
    TStamp* stamp = FindStamp(kind, key);
    if (!stamp) {
        stamp = First = new TStamp{
            First, key ? KeptPathText(key) : nullptr, 0, 0, kind == COMPILED, false, false};
    }
    stamp->Time = status.Time;
    stamp->Size = static_cast<std::uint64_t>(status.Size) & kMostSize;
    stamp->Exists = status.Exists;
    stamp->IsDirectory = status.IsDirectory;
}
