#pragma once
#include "services/files/filelock.h"
#include "services/files/filesystem.h"
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Replaces the file of a canonical path whole, or leaves it as it was. Has its lock (see
/// TFileLock) until it ends: one that cannot be had is a failure.
///
/// The bytes go to a temporary file in the same folder, which Finish() puts in the place of the old
/// one once it is on the disk. Symbolic links are followed; owner, permissions and extended
/// attributes are those of the old file or, for a new one, of the file `like` unless that is "".
/// What saves of this file left behind when their process was killed is removed.
class TFileSave {
public:
    TFileSave(const std::string& path, const std::string& like) : TFileSave(path) { Begin(like); }
    TFileSave(const TFileSave&) = delete;
    TFileSave& operator=(const TFileSave&) = delete;
    /// Without Finish() the file is as it was.
    ~TFileSave();

    /// What comes next in the file. After a failure it and Finish() do nothing.
    bool Write(std::string_view bytes);
    /// To be called once. False when anything failed: GetReason() then says what.
    bool Finish();
    const std::string& GetReason() const { return Reason; }

private:
    explicit TFileSave(const std::string& path);
    void Begin(const std::string& like);
    bool Check(TFileResult result);
    bool LookAtTarget();
    void RemoveLeftovers();
    bool IsLeftover(const std::string& name) const;
    std::string NewTemporaryName();
    bool Create(bool isPrivate);
    bool Close();
    bool PutInPlace();
    void KeepHardLink();

    IFileSystem& System;
    TFileLock Lock;
    std::string Target;
    std::string Folder;  // with the delimiter that ends it
    std::string TemporaryBegin;
    std::string Like;                      // the file that the new one is to be like
    std::vector<std::string> NamesTaken;   // of temporary files
    std::optional<std::string> Temporary;  // what is to be removed at the end
    std::optional<std::string> Former;     // a hard link to the old file
    std::optional<TFileNumber> File;       // the temporary one, while it is open
    std::string Reason;
    bool TargetExists = false;
    bool IsGood = false;  // nothing failed
};

/// The whole save of bytes that are there. `reason` may be null.
bool SaveFile(const std::string& path, std::string_view bytes, const std::string& like,
              std::string* reason);
