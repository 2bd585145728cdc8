#pragma once
#include "services/files/filesystem.h"
#include <cstddef>
#include <cstdint>
#include <string>

/// What a look at an open file tells: other bytes mostly show as another state.
struct TFileState {
    std::uint64_t Size = 0;
    std::int64_t Time = 0;  ///< of the last change, in any unit

    bool operator==(const TFileState&) const = default;
};

/// A file that is open for reading.
class IOpenFile {
public:
    virtual ~IOpenFile() = default;
    virtual TFileResult Look(TFileState* state) = 0;
    /// Some of the next bytes into a place of that room; `*count` tells how many, 0 at the end.
    virtual TFileResult ReadSome(char* place, std::size_t room, std::size_t* count) = 0;
    /// Goes back to the first byte.
    virtual TFileResult Rewind() = 0;
};

/// Reads a file of no more than `limit` bytes (see ReadLimited). Another program may write it
/// meanwhile: then what was read is a mix of what was there before and after, and it is read anew.
/// One that changes again and again is a failure. A size of 0 means unknown, too, as the files of
/// some systems have it. `bytes` is empty when it fails.
TFileResult ReadSteadily(IOpenFile& file, std::uint64_t limit, std::string* bytes);
