#include "services/files/filesave.h"
#include "services/base/sharedset.h"
#include "services/files/filebeside.h"
#include "services/files/pathconventions.h"
#include <algorithm>
#include <atomic>

namespace {

constexpr std::string_view kTemporaryEnd = ".tmp";

/// The temporary files of the saves that other threads, and this one, have begun and not ended.
TSharedSet<std::string>& TemporariesInUse() {
    // Never destroyed: files are saved while the process ends, too.
    static auto& names = *new TSharedSet<std::string>;
    return names;
}

}  // namespace

TFileSave::TFileSave(const std::string& path)
    : System(GetFileSystem()),
      Lock(path.c_str()),
      Target(Lock.GetTarget()),
      Reason(Lock.GetReason()) {}

// The destructor undoes it when it runs out of memory.
void TFileSave::Begin(const std::string& like) {
    if (!Lock.IsHeld() || !LookAtTarget()) return;
    RemoveLeftovers();
    Like = TargetExists ? Target : like;
    IsGood = Create(!Like.empty());
}

TFileSave::~TFileSave() {
    if (File) System.Close(*File);
    for (const std::optional<std::string>* const name : {&Temporary, &Former})
        if (*name) RemoveFileBeside(System, **name);
    for (const std::string& name : NamesTaken) TemporariesInUse().Remove(name);
}

bool TFileSave::Write(std::string_view bytes) {
    while (IsGood && !bytes.empty()) {
        std::size_t count = 0;
        IsGood = Check(System.Write(*File, bytes, &count));
        if (IsGood && count == 0) {
            IsGood = false;
            Reason = "the file takes no more bytes";
        }
        bytes.remove_prefix(std::min(count, bytes.size()));
    }
    return IsGood;
}

bool TFileSave::Finish() {
    return IsGood && (Like.empty() || Check(System.TakeOver(*File, Like))) &&
           Check(System.Flush(*File)) && Close() && PutInPlace();
}

// Takes no memory: what follows a failure must be done.
bool TFileSave::Check(TFileResult result) {
    if (result.IsDone()) return true;
    Reason = std::move(result.Reason);
    return false;
}

bool TFileSave::LookAtTarget() {
    const std::size_t name = Target.rfind(kPathDelimiter) + 1;
    Folder = Target.substr(0, name);
    TemporaryBegin = GetNameBeside(Target.substr(name)) + "-";
    TFileResult result = System.CheckReplaceable(Target);
    TargetExists = result.IsDone();
    return result.Fault == TFileFault::Missing || Check(std::move(result));
}

// The temporary files of saves that will not go on any more. Nothing depends on it.
void TFileSave::RemoveLeftovers() {
    std::vector<std::string> names;
    if (!System.ListFolder(Folder, &names).IsDone()) return;
    for (const std::string& name : names)
        if (IsLeftover(name)) System.Remove(Folder + name);
}

bool TFileSave::IsLeftover(const std::string& name) const {
    if (!name.starts_with(TemporaryBegin) || !name.ends_with(kTemporaryEnd)) return false;
    const std::size_t begin = TemporaryBegin.size();
    const std::string mark = name.substr(begin, name.find('-', begin) - begin);
    // A save of this process that ended has left it, unless another thread's save goes on.
    if (mark == System.GetProcessMark()) return !TemporariesInUse().Has(Folder + name);
    return System.IsProcessGone(mark);
}

// A name that no other file in the folder has, of another process or machine neither.
std::string TFileSave::NewTemporaryName() {
    static std::atomic<unsigned> number = 0;
    NamesTaken.push_back(Folder + TemporaryBegin + System.GetProcessMark() + "-" +
                         std::to_string(System.GetTime()) + "-" + std::to_string(number++) +
                         std::string(kTemporaryEnd));
    TemporariesInUse().Add(NamesTaken.back());
    return NamesTaken.back();
}

// Nobody else reads the bytes before the permissions are those of the file it is like.
bool TFileSave::Create(bool isPrivate) {
    constexpr int kMostTries = 100;
    for (int tries = 1;; ++tries) {
        std::string name = NewTemporaryName();
        TFileNumber file = 0;
        TFileResult result = System.Create(name, isPrivate, &file);
        if (result.IsDone()) {
            Temporary = std::move(name);
            File = file;
        }
        if (result.Fault != TFileFault::NameTaken || tries == kMostTries)
            return Check(std::move(result));
    }
}

// Also a late write error arrives here.
bool TFileSave::Close() {
    TFileResult closed = System.Close(*File);
    File.reset();
    return Check(std::move(closed));
}

// The renaming must survive a power failure as well. When it cannot be flushed, the old file
// comes back from its hard link.
bool TFileSave::PutInPlace() {
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

// Not every file system has hard links.
void TFileSave::KeepHardLink() {
    std::string name = NewTemporaryName();
    if (System.Link(Target, name).IsDone()) Former = std::move(name);
}

bool SaveFile(const std::string& path, std::string_view bytes, const std::string& like,
              std::string* reason) {
    TFileSave save(path, like);
    save.Write(bytes);
    const bool isDone = save.Finish();
    if (!isDone && reason) *reason = save.GetReason();
    return isDone;
}
