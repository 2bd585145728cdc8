#pragma once
#include "services/base/api.h"
#include <cstdint>

/// How many bytes a file may have to be read, unless it is set otherwise: 1 GiB.
inline constexpr std::uint64_t kUsualFileSizeLimit = std::uint64_t{1} << 30;

/// The limit for every file that is read. A larger one counts as a file that cannot be read:
/// nothing is allocated for it. So does one that grows beyond the limit while it is read.
HDLBUILDFILE_API std::uint64_t GetFileSizeLimit();

/// Sets the limit for all threads, for reads that begin from now on; returns the former one.
HDLBUILDFILE_API std::uint64_t SetFileSizeLimit(std::uint64_t bytes);
