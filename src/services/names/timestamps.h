#pragma once
#include "services/files/filestatus.h"
#include <cstddef>
#include <optional>
#include <string_view>

/// The times of one file under one key. Full resolution and the size beside it show an edit within
/// the same second.
struct TTimeStamps {
    std::optional<TFileStatus> Loaded;
    std::optional<TFileStatus> Compiled;
};

/// A file whose stamps are kept: a text that lives as long as the process, and its hash.
struct TStampedFile {
    std::string_view Text;
    std::size_t Hash;
};

/// Null without a record; valid for the life of the process.
const TTimeStamps* FindTimeStamps(const TStampedFile& file, std::string_view key);
void RecordLoaded(const TStampedFile& file, std::string_view key, const TFileStatus& status);
void RecordCompiled(const TStampedFile& file, std::string_view key, const TFileStatus& status);
/// What was recorded last as compiled, under whatever key; null when nothing was.
const TFileStatus* FindLastCompiled(const TStampedFile& file);
