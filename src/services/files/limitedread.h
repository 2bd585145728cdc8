#pragma once
#include "services/files/filesystem.h"
#include <functional>

/// Reads some of the next bytes into a place of that room; `*count` tells how many, 0 at the end.
using TReadSome = std::function<TFileResult(char* place, std::size_t room, std::size_t* count)>;

/// Reads a file of `size` bytes to its end. One of more than `limit` bytes is refused before
/// anything is allocated, and one that turns out to have more than that is not read on. `bytes` is
/// empty when that fails.
TFileResult ReadLimited(std::uint64_t size, std::uint64_t limit, const TReadSome& readSome,
                        std::string* bytes);
