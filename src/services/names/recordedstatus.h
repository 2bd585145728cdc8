#pragma once
#include "services/base/api.h"
#include "services/files/filestatus.h"
#include <optional>

class ISFileName;

/// What the disk told when `file` was last recorded as loaded under `key`, but for IsUnknown; the
/// disk is not asked. Nothing without a record, and for a caller's own class of file names.
HDLBUILDFILE_API std::optional<TFileStatus> FindStatusWhenLoaded(const ISFileName* file,
                                                                 const char* key);

/// While one exists, reads on its thread take what was last recorded as loaded for what the disk
/// holds, and look only for files without such a record: for whoever reads a build twice.
class HDLBUILDFILE_API TRecordsTrusted {
public:
    TRecordsTrusted();
    ~TRecordsTrusted();
    TRecordsTrusted(const TRecordsTrusted&) = delete;
    TRecordsTrusted& operator=(const TRecordsTrusted&) = delete;
};
