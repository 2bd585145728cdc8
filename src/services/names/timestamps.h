#pragma once
#include "services/files/filestatus.h"
#include <optional>

/// The times recorded for one file. Full resolution and the size beside it show an edit within the
/// same second. What was recorded stays until the process ends.
///
/// Any thread may ask and record.
class TFileStamps {
public:
    enum TKind : unsigned char { LOADED, COMPILED };

    TFileStamps() = default;
    TFileStamps(const TFileStamps&) = delete;
    TFileStamps& operator=(const TFileStamps&) = delete;

    /// What was recorded last under `key`, not null; nothing without a record. IsUnknown is not
    /// kept.
    std::optional<TFileStatus> Find(TKind kind, const char* key) const;
    /// What was recorded last as compiled, under whatever key.
    std::optional<TFileStatus> FindLastCompiled() const;
    void Record(TKind kind, const char* key, const TFileStatus& status);

private:
    struct TStamp;
    TStamp* FindStamp(TKind kind, const char* key) const;
    void Set(TKind kind, const char* key, const TFileStatus& status);

    TStamp* First = nullptr;
};
