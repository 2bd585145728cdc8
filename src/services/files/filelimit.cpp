#include "services/files/filelimit.h"
#include <atomic>

namespace {
std::atomic<std::uint64_t> SizeLimit = kUsualFileSizeLimit;
}  // namespace

std::uint64_t GetFileSizeLimit() {
    return SizeLimit;
}

std::uint64_t SetFileSizeLimit(std::uint64_t bytes) {
    return SizeLimit.exchange(bytes);
}
