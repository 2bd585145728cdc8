#pragma once
#include "services/base/observer.h"
#include "services/names/ifilename.h"
#include <cstddef>
#include <string_view>

class ISFileName;

/// The key of the time stamps that the library records itself.
inline constexpr const char* kDefaultTimeStampKey = "DEFAULT_TIME_STAMP_KEY";

/// Is told when a file name's record changes, on the thread that changes it. The record of a handle
/// is shared by all threads.
class HDLBUILDFILE_SHARED_TYPE ASFileNameObserver {
public:
    virtual ~ASFileNameObserver() = default;
    virtual void FileNameChanged(const ISFileName* file) = 0;
};

/// The shared handle of one file, with a record of time stamps. Handles are made by NewISFileName,
/// one per canonical text (letter case kept), and live until the process ends.
///
/// A stamp is a file's modification time and size. Per key, "last loaded" and "last compiled" are
/// kept apart. Times pass as one word: nanoseconds since 1970 UTC where `unsigned long` has 64
/// bits, seconds where it has 32; 0 is "no file" or "never". Null keys count as "".
///
/// As callers share a handle, the operations that change a name do nothing to it. The handle of the
/// empty name records nothing and answers false, 0 and "". Pieces of names live as long as the
/// process.
class HDLBUILDFILE_API ISFileName : public virtual IFileName,
                                    public TEmbeddedObserverMgr<ASFileNameObserver> {
public:
    ~ISFileName() override = default;
    /// Records the file as it is now, both as loaded and as compiled.
    virtual void SetDateAndTimeFlag(const char* key) const = 0;
    virtual void UpdateTimeFileLastLoaded(const char* key) const = 0;
    virtual void UpdateTimeFileLastCompiled(const char* key) const = 0;
    /// Whether time or size differ from the recorded ones, older included, or the file went or came
    /// since. Without a record the answer is `whenUnknown`.
    virtual bool IsFileModifiedSinceLastLoaded(const char* key, bool whenUnknown) const = 0;
    /// The same for "last compiled"; when never compiled under the key, "last loaded" decides.
    virtual bool IsFileModifiedSinceLastCompiled(const char* key, bool whenUnknown) const = 0;
    /// Result and `*out` (null allowed) are the same value.
    virtual unsigned long GetLastCompiledTimestamp(unsigned long* out) const = 0;
    /// Whether the current time differs from `*stamp`; null: true.
    virtual bool IsFileModifiedSinceTimestamp(const unsigned long* const stamp) const = 0;
    virtual unsigned long GetFileModificationTime(unsigned long* out) const = 0;
    /// Whether the current time is `low`; `high` must be 0, as times are one word.
    virtual bool CompareModificationTimeTo(unsigned long low, unsigned long high) const = 0;
    /// The same canonical text ignoring case.
    virtual bool IsEquivalent(const ISFileName& other) const = 0;
    /// The handle itself; a tracked file name gives the handle that it wraps, which may be null.
    virtual const ISFileName* GetFileName() const = 0;

    /// The handle for `name`: fixed against the working directory when relative, null counts as "".
    /// Never null, never freed.
    static const ISFileName* NewISFileName(const char* name);
    /// The handle of the empty name.
    static const ISFileName* const BlankFileName;
};

/// The handle at the bottom of `file`, which may be a tracked name around others; null without one.
const ISFileName* GetInnermostHandle(const ISFileName* file);

/// Which file a name means, whatever its letter case: one word, equal for names of one file.
class TFileIdentity {
public:
    /// No file, equal to no file's.
    TFileIdentity() = default;
    explicit TFileIdentity(const ISFileName* first) : First(first) {}

    bool operator==(const TFileIdentity&) const = default;
    bool IsNone() const { return !First; }
    /// The handle that it was made of.
    const ISFileName* GetFile() const { return First; }
    /// A number for each file, in the order in which the process met them, so that what was named
    /// together lies together in a table. Not of no file.
    std::size_t GetNumber() const;

private:
    const ISFileName* First = nullptr;  // of all handles that differ in letter case alone
};

/// The identity of `file`; of the blank name for null and for a tracked name without handle.
TFileIdentity GetFileIdentity(const ISFileName* file);
/// The number of the file's identity, for tables of what callers know of files.
HDLBUILDFILE_API std::size_t GetFileNumber(const ISFileName* file);

/// Whether `file` is a handle that NewISFileName made: its text never changes.
bool IsSharedHandle(const ISFileName* file);
/// The text of such a handle, which lives as long as the process and has a zero behind it.
std::string_view GetSharedText(const ISFileName* sharedHandle);
/// NewISFileName for a path that is canonical.
const ISFileName* NewHandleOfCanonicalPath(std::string_view path);
/// The same for whoever has HashIgnoringCase of the path.
const ISFileName* NewHandleOfCanonicalPath(std::string_view path, std::size_t hash);
/// Has the place of such a handle on its way from memory.
void FetchPlaceOfHandle(std::size_t hash);

/// To be called when `file` is taken for `listed`, whose identity it has: writes a diagnostic line
/// when they are two files, known by letter case alone. The disk is only looked at when the
/// spellings differ and diagnostics are enabled.
void ReportNamesake(const ISFileName* listed, const ISFileName* file);

/// Records `file` as loaded under `key` and tells whether it exists, with one look at the disk.
bool MarkLoadedAndTestExists(const ISFileName* file, const char* key);
