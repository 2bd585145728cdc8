#pragma once
#include "services/base/api.h"
#include <memory>
#include <string>
#include <vector>

/// Why an INI file could not be read; both texts are empty when nothing went wrong.
struct TIniReadError {
    std::string File;  ///< as it was given
    std::string Reason;
};

/// The properties of the user's and the system's INI file, in memory.
///
/// Reads look in the user's file first, then in the system's; writes go to the user's only, are
/// visible to reads at once, and reach the file with Flush() or the destructor: the keys changed
/// here are merged into the file as it then is, which is replaced whole; the file is locked
/// meanwhile (see TFileLock), so that what two save at the same time is all there. A key deleted in
/// the user's file shows the system's value again. Sections and keys compare exactly; null counts
/// as empty. A value with outer blanks or outer double quotes is stored in double quotes, of which
/// reading strips one pair; a line end in a value becomes one blank (logged). Foreign sections,
/// comments and their order survive a save.
///
/// All threads may use one cache at the same time.
class HDLBUILDFILE_API TPropCache {
public:
    /// Reads both files; either path may be null or empty, either file may be missing. One that is
    /// there and cannot be read is logged, and counts as empty.
    TPropCache(const char* userFile, const char* systemFile);
    ~TPropCache();
    TPropCache(const TPropCache&) = delete;
    TPropCache& operator=(const TPropCache&) = delete;

    /// What kept the constructor from reading the user's file, else the system's. For the process's
    /// cache what kept the last read from it; valid until the cache is dropped.
    const TIniReadError& GetReadError() const;

    /// Copies the value into `buffer` of `size` bytes, the ending zero included, cut at a whole
    /// character when it is longer (a diagnostic line names section and key). An absent key gives
    /// `missing`, null as "", and the result false. Size 0 writes nothing.
    bool GetPrivatePropString(const char* section, const char* key, const char* missing,
                              char* buffer, int size) const;
    /// The whole value, or `missing` for an absent key.
    std::string GetPrivatePropText(const char* section, const char* key, const char* missing) const;
    bool HasPrivateProp(const char* section, const char* key) const;
    /// Every key of the section that a read finds, sorted, each once.
    std::vector<std::string> GetPrivatePropKeys(const char* section) const;
    bool GetPrivatePropBool(const char* section, const char* key, bool missing) const;
    /// The leading decimal number of the value, clamped; 0 for a text that is none.
    int GetPrivatePropInt(const char* section, const char* key, int missing) const;

    /// A null value deletes the key. Writing back exactly what GetPrivatePropString cut off leaves
    /// the whole value alone.
    void WritePrivatePropString(const char* section, const char* key, const char* value);
    void WritePrivatePropBool(const char* section, const char* key, bool value);
    void DeletePrivateProp(const char* section, const char* key);

    /// Saves what changed. False, logged, when the file cannot be locked, read or written; the
    /// changes stay pending. Without a user's file there is nothing to save: true, and the changes
    /// live as long as the cache.
    bool Flush();

private:
    friend class TSystemPropCache;
    struct TState;
    std::unique_ptr<TState> State;
};

/// The process's cache over GetIniFile() and GetSystemIniFile(), read on first use; never null,
/// never destroyed.
HDLBUILDFILE_API TPropCache* GetSystemPropCache();
/// Flushes and drops what the process's cache holds: the next GetSystemPropCache() reads the files
/// anew. What another thread writes until then is saved as well.
HDLBUILDFILE_API void ResetSystemPropCache();
