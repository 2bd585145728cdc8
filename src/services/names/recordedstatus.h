#pragma once
#include "services/base/api.h"
#include "services/files/filestatus.h"
#include <optional>

class ISFileName;

/// What the disk told when `file` was last recorded as loaded under `key`, but for IsUnknown; the
/// disk is not asked. Nothing without a record, and for a caller's own class of file names.
HDLBUILDFILE_API std::optional<TFileStatus> FindStatusWhenLoaded(const ISFileName* file,
                                                                 const char* key);
