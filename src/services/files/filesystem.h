#pragma once
#include "services/files/filestatus.h"
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Why an operation failed, as far as the library treats the reasons differently.
enum class TFileFault {
    None,
    Missing,      ///< there is no such file or folder
    NotALink,     ///< the file is there, and is no symbolic link
    NameTaken,    ///< a file of that name is there already
    Busy,         ///< somebody else has the file for a while
    Denied,       ///< the user may not open the file, which may change in a while
    Unsupported,  ///< the file system has nothing of that kind
    Other
};

struct TFileResult {
    TFileFault Fault = TFileFault::None;
    std::string Reason = {};  ///< in words; "" when done

    bool IsDone() const { return Fault == TFileFault::None; }
};

/// A file that is open for writing or locking.
using TFileNumber = std::intptr_t;

/// The operating system's files, folders and clock: nothing else in the library reaches them,
/// except that the log appends to its own file. Each step of a save is an operation of its own, so
/// that tests can make each one fail.
///
/// Paths are canonical ones in UTF-8. A path that this system has no place for (a drive or host
/// name on a POSIX system, or an empty one) names no file: it is never looked for in the working
/// directory. Out pointers must not be null.
class IFileSystem {
public:
    virtual ~IFileSystem() = default;

    /// One look; links are followed.
    virtual TFileStatus GetStatus(const std::string& path) = 0;
    virtual bool CanRead(const std::string& path) = 0;
    /// Whether the file exists and may be written.
    virtual bool CanWrite(const std::string& path) = 0;
    /// The path with every symbolic link followed; "" when that fails.
    virtual std::string ExpandLinks(const std::string& path) = 0;
    /// The absolute path that the link `path` leads to, whether something is there or not.
    virtual TFileResult ReadLink(const std::string& path, std::string* target) = 0;
    /// The names in a folder, in no particular order.
    virtual TFileResult ListFolder(const std::string& folder, std::vector<std::string>* names) = 0;
    /// A file of more than `limit` bytes is not read, nor anything that is no regular file.
    virtual TFileResult Read(const std::string& path, std::uint64_t limit, std::string* bytes) = 0;

    /// Whether another file may be put in the place of `path`: Missing when nothing is there, Other
    /// for a folder, a device and a write-protected file.
    virtual TFileResult CheckReplaceable(const std::string& path) = 0;
    /// Makes a new file for writing, which nobody else may read yet when `isPrivate`.
    virtual TFileResult Create(const std::string& path, bool isPrivate, TFileNumber* file) = 0;
    /// Writes some of the bytes; `*count` tells how many.
    virtual TFileResult Write(TFileNumber file, std::string_view bytes, std::size_t* count) = 0;
    /// Gives the new file owner, permissions and extended attributes of the file `from`, as far as
    /// the user may. Where the owner or group cannot be kept, the bits that let others run the file
    /// in their name are not kept either.
    virtual TFileResult TakeOver(TFileNumber file, const std::string& from) = 0;
    /// Waits until the bytes are on the disk.
    virtual TFileResult Flush(TFileNumber file) = 0;
    /// The number is not to be used afterwards, whatever the result.
    virtual TFileResult Close(TFileNumber file) = 0;
    /// Makes the hard link `secondName` to a file; fails where the file system has no such links.
    virtual TFileResult Link(const std::string& path, const std::string& secondName) = 0;
    /// Puts `from` in the place of `to` in one step.
    virtual TFileResult Rename(const std::string& from, const std::string& to) = 0;
    /// Waits until the names in the folder are on the disk.
    virtual TFileResult FlushFolder(const std::string& folder) = 0;

    /// Opens the lock file `path`, making it when it is missing. All who may write in its folder
    /// may open it, whoever made it. Busy while it is being removed, Denied while it is being made
    /// or when somebody else put a file of his own there, and NameTaken when something is there
    /// that is no lock file, such as a folder or a link.
    virtual TFileResult OpenLock(const std::string& path, TFileNumber* file) = 0;
    /// Locks an open lock file without waiting: Busy when it is locked through another opening of
    /// it. Close, and the end of the process, unlock it.
    virtual TFileResult Lock(TFileNumber file) = 0;
    /// Whether `path` names the open file: Missing when it names another one or none.
    virtual TFileResult CheckNames(const std::string& path, TFileNumber file) = 0;

    /// Deletes a file or an empty folder.
    virtual TFileResult Remove(const std::string& path) = 0;
    virtual TFileResult MakeFolder(const std::string& path) = 0;
    virtual TFileResult ChangeWorkingDirectory(const std::string& path) = 0;
    /// The working directory, or that of a drive ("C:"). Never empty, not canonical yet.
    virtual std::string GetWorkingDirectory(std::string_view drive) = 0;

    /// In nanoseconds since 1970 UTC.
    virtual std::int64_t GetTime() = 0;
    /// Lets the thread sleep.
    virtual void Wait(std::int64_t nanoseconds) = 0;
    /// A word of letters, digits and dots that no other living process which reaches the same files
    /// has, and whether the process of such a word is known to be gone.
    virtual std::string GetProcessMark() = 0;
    virtual bool IsProcessGone(const std::string& mark) = 0;
};

/// The operating system's, unless a test has put another one in its place.
IFileSystem& GetFileSystem();
/// Null restores the operating system's. Returns what was set before, null for the built-in one.
/// Not owned.
IFileSystem* SetFileSystem(IFileSystem* system);
/// The operating system's own, whatever is set.
IFileSystem& GetNativeFileSystem();
