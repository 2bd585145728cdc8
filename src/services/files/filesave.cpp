#include "services/files/filesave.h"
#include "services/base/sharedset.h"
#include "services/files/filebeside.h"
#include "services/files/filelock.h"
#include "services/files/filesystem.h"
#include "services/files/pathconventions.h"
#include <algorithm>
#include <atomic>
#include <optional>
#include <vector>

namespace {

constexpr std::string_view kTemporaryEnd = ".tmp";

/// The temporary files of the saves that other threads, and this one, have begun and not ended.
TSharedSet<std::string>& TemporariesInUse() {
    // Never destroyed: files are saved while the process ends, too.
    static auto& names = *new TSharedSet<std::string>;
    return names;
}

/// One save, a step an operation. An operation answers false when the save fails.
class TFileSave {
public:
    TFileSave(IFileSystem& system, const std::string& path)
        : System(system), Lock(path.c_str()), Target(Lock.GetTarget()), Reason(Lock.GetReason()) {}
    TFileSave(const TFileSave&) = delete;
    TFileSave& operator=(const TFileSave&) = delete;
    ~TFileSave() {
        for (const std::string& name : NamesTaken) TemporariesInUse().Remove(name);
    }

    bool Run(TFileParts parts, const std::string& like) {
        if (!Lock.IsHeld() || !LookAtTarget()) return false;
        RemoveLeftovers();
        const bool isDone = WriteTemporary(parts, TargetExists ? Target : like) && PutInPlace();
        RemoveTemporaries();
        return isDone;
    }
    const std::string& GetReason() const { return Reason; }

private:
    bool Check(const TFileResult& result) {
        if (result.IsDone()) return true;
        Reason = result.Reason;
        return false;
    }

    bool LookAtTarget() {
        const std::size_t name = Target.rfind(kPathDelimiter) + 1;
        Folder = Target.substr(0, name);
        TemporaryBegin = GetNameBeside(Target.substr(name)) + "-";
        const TFileResult result = System.CheckReplaceable(Target);
        TargetExists = result.IsDone();
        return result.Fault == TFileFault::Missing || Check(result);
    }

    /// The temporary files of saves that will not go on any more. Nothing depends on it.
    void RemoveLeftovers() {
        std::vector<std::string> names;
        if (!System.ListFolder(Folder, &names).IsDone()) return;
        for (const std::string& name : names)
            if (IsLeftover(name)) System.Remove(Folder + name);
    }

    bool IsLeftover(const std::string& name) const {
        if (!name.starts_with(TemporaryBegin) || !name.ends_with(kTemporaryEnd)) return false;
        const std::size_t begin = TemporaryBegin.size();
        const std::string mark = name.substr(begin, name.find('-', begin) - begin);
        // A save of this process that ended has left it, unless another thread's save goes on.
        if (mark == System.GetProcessMark()) return !TemporariesInUse().Has(Folder + name);
        return System.IsProcessGone(mark);
    }

    /// A name that no other file in the folder has, of another process or machine neither.
    std::string NewTemporaryName() {
        static std::atomic<unsigned> number = 0;
        NamesTaken.push_back(Folder + TemporaryBegin + System.GetProcessMark() + "-" +
                             std::to_string(System.GetTime()) + "-" + std::to_string(number++) +
                             std::string(kTemporaryEnd));
        TemporariesInUse().Add(NamesTaken.back());
        return NamesTaken.back();
    }

    /// Nobody else reads the bytes before the permissions are those of the file `like`.
    bool Create(bool isPrivate, TFileNumber* file) {
        constexpr int kMostTries = 100;
        for (int tries = 1;; ++tries) {
            const std::string name = NewTemporaryName();
            const TFileResult result = System.Create(name, isPrivate, file);
            if (result.IsDone()) Temporary = name;
            if (result.Fault != TFileFault::NameTaken || tries == kMostTries) return Check(result);
        }
    }

    bool WriteTemporary(TFileParts parts, const std::string& like) {
        TFileNumber file = 0;
        if (!Create(!like.empty(), &file)) return false;
        const auto writeAll = [&](std::string_view bytes) { return WriteAll(file, bytes); };
        const bool isWritten = std::all_of(parts.begin(), parts.end(), writeAll) &&
                               (like.empty() || Check(System.TakeOver(file, like))) &&
                               Check(System.Flush(file));
        // Also a late write error arrives here.
        const TFileResult closed = System.Close(file);
        return isWritten && Check(closed);
    }

    bool WriteAll(TFileNumber file, std::string_view bytes) {
        while (!bytes.empty()) {
            std::size_t count = 0;
            if (!Check(System.Write(file, bytes, &count))) return false;
            if (count == 0) {
                Reason = "the file takes no more bytes";
                return false;
            }
            bytes.remove_prefix(std::min(count, bytes.size()));
        }
        return true;
    }

    /// The renaming must survive a power failure as well. When it cannot be flushed, the old file
    /// comes back from its hard link.
    bool PutInPlace() {
        if (TargetExists) KeepHardLink();
        if (!Check(System.Rename(*Temporary, Target))) return false;
        Temporary.reset();
        if (Check(System.FlushFolder(Folder))) return true;
        if (!TargetExists)
            System.Remove(Target);
        else if (Former && System.Rename(*Former, Target).IsDone())
            Former.reset();
        return false;
    }

    /// Not every file system has hard links.
    void KeepHardLink() {
        const std::string name = NewTemporaryName();
        if (System.Link(Target, name).IsDone()) Former = name;
    }

    void RemoveTemporaries() {
        for (const auto& name : {Temporary, Former})
            if (name) RemoveFileBeside(System, *name);
    }

    IFileSystem& System;
    TFileLock Lock;
    std::string Target;
    std::string Folder;  // with the delimiter that ends it
    std::string TemporaryBegin;
    std::vector<std::string> NamesTaken;   // of temporary files
    std::optional<std::string> Temporary;  // what is to be removed at the end
    std::optional<std::string> Former;     // a hard link to the old file
    std::string Reason;
    bool TargetExists = false;
};

}  // namespace

bool SaveFile(const std::string& path, std::string_view bytes, const std::string& like,
              std::string* reason) {
    return SaveFileOfParts(path, TFileParts(&bytes, 1), like, reason);
}

bool SaveFileOfParts(const std::string& path, TFileParts parts, const std::string& like,
                     std::string* reason) {
    TFileSave save(GetFileSystem(), path);
    if (save.Run(parts, like)) return true;
    if (reason) *reason = save.GetReason();
    return false;
}
